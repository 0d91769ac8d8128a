#include "engine/spectrum_passes.h"

#include <algorithm>
#include <cmath>

#include "engine/RunTimeError.h"
#include "engine/kernels/greys.h"
#include "engine/mFFTUTIL.h"
#include "engine/mHSBRGB.h"

namespace quillon {

namespace {

constexpr Double kDegree = 0.017453292519943278;
/// Takes 360 degrees to 239.04, nearly the full scale of hues.
constexpr Double kDegreesPerHue = 1.506;
constexpr Integer kFullSaturation = 239;
constexpr std::size_t kHues = 240;

/// Rounds half to even a value below 2^22 in size: the shift leaves no room for
/// a fraction.
Long nearest(Single value) noexcept {
    constexpr Single kShift = 12582912.0F;
    return static_cast<Long>((value + kShift) - kShift);
}

std::size_t area(Long w, Long h) {
    return static_cast<std::size_t>(w) * static_cast<std::size_t>(h);
}

Single magnitude(const ComplexCell& cell) noexcept {
    const auto re = static_cast<Double>(cell.re);
    const auto im = static_cast<Double>(cell.im);
    return static_cast<Single>(std::sqrt(re * re + im * im));
}

Single phase(const ComplexCell& cell) {
    return PhaseDeg(cell.re, cell.im);
}

template <class ValueOf>
std::vector<Single> plane(const ComplexGrid& cells, Long w, Long h, ValueOf valueOf) {
    std::vector<Single> values(area(w, h));
    auto value = values.begin();
    for (Long j = 0; j < h; ++j)
        for (Long i = 0; i < w; ++i)
            *value++ = valueOf(cells(i, j));
    return values;
}

/// The words of the view of magnitudes and phases, by hue 0 to 239 and level.
/// They depend on nothing else, so they are made once.
const std::vector<PixelWord>& wordsByHueAndLevel() {
    static const std::vector<PixelWord> table = [] {
        std::vector<PixelWord> words;
        words.reserve(kHues * 256);
        for (Integer hue = 0; hue < static_cast<Integer>(kHues); ++hue)
            for (Integer g = 0; g < 256; ++g) {
                const Single brightness = static_cast<Single>(g) / 255.0F * 239.0F;
                words.push_back(HSBtoRGB(hue, kFullSaturation, toInteger(brightness), 1));
            }
        return words;
    }();
    return table;
}

std::size_t hueOf(Single degrees) noexcept {
    constexpr Double kShift = 6755399441055744.0;
    return static_cast<std::size_t>((degrees / kDegreesPerHue + kShift) - kShift);
}

}  // namespace

Single PhaseDeg(Single re, Single im) {
    // The angle is never negative, so no turn needs adding.
    return static_cast<Single>(Atan2Rad(im, re) / kDegree);
}

SpectrumPasses::SpectrumPasses(const ComplexGrid& cells, Long w, Long h, const SpectrumLook& look)
    : cells_(cells),
      w_(w),
      h_(h),
      look_(look),
      columns_(centredPositions(w)),
      rows_(centredPositions(h)) {
    requireCells(cells, w, h);
}

Single SpectrumPasses::measure() {
    switch (look_.view) {
        case 0:
            values_ = plane(cells_, w_, h_, magnitude);
            break;
        case 1:
            values_ = plane(cells_, w_, h_, magnitude);
            phases_ = plane(cells_, w_, h_, phase);
            break;
        case 2:
            values_ = plane(cells_, w_, h_, phase);
            break;
        case 3:
            values_ = plane(cells_, w_, h_, [](const ComplexCell& c) { return std::abs(c.re); });
            break;
        case 4:
            values_ = plane(cells_, w_, h_, [](const ComplexCell& c) { return std::abs(c.im); });
            break;
        default:
            // A view that does not exist measures nothing, so nothing is shown.
            return 0.0F;
    }
    for (const Single value : values_)
        vmax_ = MaxOf(value, vmax_);
    checkedSingle(vmax_);
    // The root rises with its argument: the root of the largest value is the
    // largest root.
    if (look_.scale == Scale::SquareRoot)
        vmax_ = std::sqrt(vmax_);
    return vmax_;
}

/// In the square-root scale the divisor is a root while the value is plain, so
/// the quotient is not bounded by 1. The curve is meant so: it lifts weak
/// cells against strong ones.
Single SpectrumPasses::scaled(Single value) const {
    const Single t = value / vmax_ * 255.0F;
    if (look_.scale == Scale::Linear || look_.view == 2)
        return t * look_.linearFactor;
    return (t < 1.0F ? 0.0F : std::sqrt(t)) * look_.sqrtFactor;
}

SpectrumPicture SpectrumPasses::paint(SpectrumIndex& ftIndex) const {
    if (ftIndex.xBound() < w_ - 1 || ftIndex.yBound() < h_ - 1)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    SpectrumPicture picture{std::vector<PixelWord>(area(w_, h_)),
                            std::vector<Integer>(area(w_, h_))};
    std::vector<Integer> levels(static_cast<std::size_t>(w_));
    for (Long j = 0; j < h_; ++j) {
        if (!scaleRow(j, levels)) {
            ftIndex.note(cellsUpToOverflow());
            throw RunTimeError(ErrorNumber::Overflow);
        }
        const std::size_t start = area(w_, rows_[static_cast<std::size_t>(j)]);
        const std::size_t length = levels.size();
        colourRow(j, levels, std::span(picture.words).subspan(start, length));
        for (std::size_t i = 0; i < length; ++i)
            picture.levels[start + static_cast<std::size_t>(columns_[i])] = levels[i];
    }
    ftIndex.noteAll();
    return picture;
}

/// How many cells a draw comes to, column after column, the one that overflows
/// included.
Long SpectrumPasses::cellsUpToOverflow() const {
    Long cells = 0;
    for (Long i = 0; i < w_; ++i)
        for (Long j = 0; j < h_; ++j) {
            ++cells;
            if (!std::isfinite(scaled(valuesOfRow(j)[static_cast<std::size_t>(i)])))
                return cells;
        }
    return cells;
}

/// False where a value overflows.
bool SpectrumPasses::scaleRow(Long j, std::span<Integer> levels) const {
    const std::span<const Single> values = valuesOfRow(j);
    bool allFinite = true;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const Single x = scaled(values[i]);
        allFinite &= std::isfinite(x);
        levels[i] = static_cast<Integer>(nearest(MinOf(255.0F, x)));
    }
    if (look_.inversion == Inversion::On)
        for (Integer& g : levels)
            g = static_cast<Integer>(255 - g);
    return allFinite;
}

void SpectrumPasses::colourRow(Long j, std::span<const Integer> levels,
                               std::span<PixelWord> words) const {
    const auto colour = [&](auto wordOf) {
        for (std::size_t i = 0; i < levels.size(); ++i)
            words[static_cast<std::size_t>(columns_[i])] =
                wordOf(i, static_cast<std::size_t>(levels[i]));
    };
    const std::span<const Single> realParts = cells_.realRow(j);
    const std::span<const Single> imaginaryParts = cells_.imaginaryRow(j);
    const std::span<const Single> values = valuesOfRow(j);
    const std::span<const Single> phases = phasesOfRow(j);
    switch (look_.view) {
        case 0:
            colour([&](std::size_t, std::size_t g) { return look_.lutActive[g]; });
            break;
        case 1: {
            const std::vector<PixelWord>& table = wordsByHueAndLevel();
            colour([&](std::size_t i, std::size_t g) { return table[hueOf(phases[i]) * 256 + g]; });
            break;
        }
        case 2:
            // The level only raises the relief: neither scale nor inversion
            // changes the colour of a phase.
            colour([&](std::size_t i, std::size_t) { return look_.lutHue[hueOf(values[i])]; });
            break;
        case 3:
            colour([&](std::size_t i, std::size_t g) {
                return look_.lutRe[realParts[i] < 0.0F ? 255 - g : 255 + g];
            });
            break;
        default:
            colour([&](std::size_t i, std::size_t g) {
                return look_.lutIm[imaginaryParts[i] < 0.0F ? 255 - g : 255 + g];
            });
    }
}

std::span<const Single> SpectrumPasses::valuesOfRow(Long j) const {
    return std::span(values_).subspan(area(w_, j), columns_.size());
}

std::span<const Single> SpectrumPasses::phasesOfRow(Long j) const {
    return phases_.empty() ? std::span<const Single>()
                           : std::span(phases_).subspan(area(w_, j), columns_.size());
}

void requireCells(const ComplexGrid& cells, Long w, Long h) {
    if (w > 0 && h > 0 && (w - 1 > cells.xBound() || h - 1 > cells.yBound()))
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
}

bool showsReconstruction(const RealRange& range, Integer view) noexcept {
    // The test looks at the view's values, although the picture is always grey.
    // Without imaginary parts they need no roots: the size of a real part in the
    // views 0, 1 and 3, the 180 degrees of a negative one in view 2, else 0.
    if (view == 2)
        return range.rmin != 0.0F;
    return (view == 0 || view == 1 || view == 3) && range.rmin != range.rmax;
}

void paintReconstruction(const ComplexGrid& cells, Long w, Long h, const RealRange& range,
                         Inversion inversion, std::span<PixelWord> words) {
    requireCells(cells, w, h);
    kernels::GreyScale scale{.lowest = range.rmin,
                             .range = checkedSingle(range.rmax - range.rmin),
                             .flip = inversion == Inversion::On ? 255 : 0};
    // Of all the steps only the product can overflow, and it is largest here.
    checkedSingle(scale.range * 255.0F);
    const auto width = static_cast<std::size_t>(w);
    for (Long j = 0; j < h; ++j)
        kernels::greys()(cells.realRow(j).data(), width, scale, words.subspan(area(w, j)).data());
}

}  // namespace quillon
