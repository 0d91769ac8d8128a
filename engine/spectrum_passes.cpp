#include "engine/spectrum_passes.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"
#include "engine/kernels/greys.h"
#include "engine/kernels/spectrum_rows.h"
#include "engine/mFFTUTIL.h"
#include "engine/mHSBRGB.h"

namespace quillon {

namespace {

constexpr Double kDegree = 0.017453292519943278;
/// Takes 360 degrees to 239.04, nearly the full scale of hues.
constexpr Double kDegreesPerHue = 1.506;
constexpr Integer kFullSaturation = 239;
constexpr std::size_t kHues = 240;

std::size_t area(Long w, Long h) {
    return static_cast<std::size_t>(w) * static_cast<std::size_t>(h);
}

/// The words of the view of magnitudes and phases, by level and hue 0 to 239. They
/// depend on nothing else, so they are made once.
const std::vector<PixelWord>& wordsByLevelAndHue() {
    static const std::vector<PixelWord> table = [] {
        std::vector<PixelWord> words;
        words.reserve(256 * kHues);
        for (Integer g = 0; g < 256; ++g) {
            const Single brightness = static_cast<Single>(g) / 255.0F * 239.0F;
            for (Integer hue = 0; hue < static_cast<Integer>(kHues); ++hue)
                words.push_back(HSBtoRGB(hue, kFullSaturation, toInteger(brightness), 1));
        }
        return words;
    }();
    return table;
}

std::uint8_t hueOf(Single degrees) noexcept {
    constexpr Double kShift = 6755399441055744.0;
    const Double hue = (degrees / kDegreesPerHue + kShift) - kShift;
    // What is not a number has no hue; its draw ends with an overflow.
    return hue >= 0 ? static_cast<std::uint8_t>(hue) : std::uint8_t{0};
}

}  // namespace

Single PhaseDeg(Single re, Single im) {
    // The angle is never negative, so no turn needs adding.
    return static_cast<Single>(Atan2Rad(im, re) / kDegree);
}

std::vector<SpectrumPasses::Run> SpectrumPasses::runsOf(const std::vector<Integer>& positions) {
    std::vector<Run> runs;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const auto panel = static_cast<std::size_t>(positions[i]);
        if (!runs.empty() && runs.back().panel + runs.back().length == panel)
            ++runs.back().length;
        else
            runs.push_back({i, panel, 1});
    }
    return runs;
}

bool SpectrumPasses::measure(const ComplexGrid& cells, Long w, Long h, const SpectrumLook& look) {
    requireCells(cells, w, h);
    // A view that does not exist measures nothing, so nothing is shown.
    if (look.view < 0 || look.view > 4)
        return false;
    const Source source{cells.revision(), w, h, look.view, look.scale};
    if (source != source_) {
        columns_ = runsOf(centredPositions(w));
        rows_ = centredPositions(h);
        source_ = source;
        takeValues(cells);
        scaleValues();
    }
    return greatestValue_ != 0.0F;
}

void SpectrumPasses::takeValues(const ComplexGrid& cells) {
    const auto& [revision, w, h, view, scale] = *source_;
    const auto length = static_cast<std::size_t>(w);
    steps_.resize(area(w, h));
    const bool phases = view == 1 || view == 2;
    hues_.resize(phases ? area(w, h) : 0);
    for (Long j = 0; j < h; ++j) {
        const std::span<const Single> re = cells.realRow(j).first(length);
        const std::span<const Single> im = cells.imaginaryRow(j).first(length);
        Single* const values = steps_.data() + placeOfRow(j);
        std::uint8_t* const hues = phases ? hues_.data() + placeOfRow(j) : nullptr;
        if (view == 0 || view == 1)
            kernels::spectrumRows().magnitudes(re.data(), im.data(), length, values);
        if (view == 1)
            std::transform(re.begin(), re.end(), im.begin(), hues,
                           [](Single x, Single y) { return hueOf(PhaseDeg(x, y)); });
        if (view == 2) {
            std::transform(re.begin(), re.end(), im.begin(), values, PhaseDeg);
            std::transform(values, values + length, hues, hueOf);
        }
        // A negative zero counts as positive; the sum is without its sign.
        if (view == 3 || view == 4)
            std::ranges::transform(view == 3 ? re : im, values,
                                   [](Single part) { return part + 0.0F; });
    }
}

void SpectrumPasses::scaleValues() {
    greatestValue_ = kernels::spectrumRows().greatest(steps_.data(), steps_.size());
    if (!std::isfinite(greatestValue_)) {
        source_.reset();
        throw RunTimeError(ErrorNumber::Overflow);
    }
    if (greatestValue_ == 0.0F)
        return;
    scale(steps_);
    // Every step rises with its argument.
    greatestStep_ = greatestValue_;
    scale({&greatestStep_, 1});
}

/// In the square-root scale the divisor is a root while the value is plain, so
/// the quotient is not bounded by 1. The curve is meant so: it lifts weak
/// cells against strong ones.
void SpectrumPasses::scale(std::span<Single> values) const noexcept {
    const kernels::SpectrumRows& rows = kernels::spectrumRows();
    // The root rises with its argument: the root of the largest value is the
    // largest root.
    const bool squareRoot = source_->scale == Scale::SquareRoot;
    const Single vmax = squareRoot ? std::sqrt(greatestValue_) : greatestValue_;
    if (squareRoot && source_->view != 2)
        rows.scaleSquareRoot(values.data(), values.size(), vmax);
    else
        rows.scaleLinear(values.data(), values.size(), vmax);
}

bool SpectrumPasses::overflows(const SpectrumLook& look) const noexcept {
    return !std::isfinite(greatestStep_ * look.factor());
}

void SpectrumPasses::paint(const SpectrumLook& look, SpectrumIndex& ftIndex,
                           std::span<PixelWord> words) const {
    const auto& [revision, w, h, view, scale] = *source_;
    if (ftIndex.xBound() < w - 1 || ftIndex.yBound() < h - 1)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    if (overflows(look)) {
        ftIndex.note(cellsUpToOverflow(look.factor()));
        throw RunTimeError(ErrorNumber::Overflow);
    }
    // An odd side puts two cells on every other position and none between them.
    if (w % 2 != 0 || h % 2 != 0)
        std::ranges::fill(words, 0);
    std::vector<std::uint8_t> levels(static_cast<std::size_t>(w));
    for (Long j = 0; j < h; ++j) {
        // The level only raises the relief of a phase: neither scale nor inversion
        // changes its colour.
        if (view != 2)
            takeLevels(j, look, levels);
        colourRow(j, look, levels, words.subspan(placeOnPanel(j), levels.size()));
    }
    ftIndex.noteAll();
}

void SpectrumPasses::paintLevels(const SpectrumLook& look, std::span<std::uint8_t> levels) const {
    std::ranges::fill(levels, std::uint8_t{0});
    std::vector<std::uint8_t> ofRow(static_cast<std::size_t>(source_->w));
    for (Long j = 0; j < source_->h; ++j) {
        takeLevels(j, look, ofRow);
        for (const Run& run : columns_)
            std::copy_n(ofRow.data() + run.cell, run.length,
                        levels.data() + placeOnPanel(j) + run.panel);
    }
}

/// How many cells a draw comes to, column after column, the one that overflows
/// included.
Long SpectrumPasses::cellsUpToOverflow(Single factor) const {
    Long cells = 0;
    for (Long i = 0; i < source_->w; ++i)
        for (Long j = 0; j < source_->h; ++j) {
            ++cells;
            if (!std::isfinite(steps_[placeOfRow(j) + static_cast<std::size_t>(i)] * factor))
                return cells;
        }
    return cells;
}

void SpectrumPasses::takeLevels(Long j, const SpectrumLook& look,
                                std::span<std::uint8_t> levels) const {
    kernels::spectrumRows().levels(steps_.data() + placeOfRow(j), levels.size(), look.factor(),
                                   look.inversion == Inversion::On ? 255 : 0, levels.data());
}

void SpectrumPasses::colourRow(Long j, const SpectrumLook& look,
                               std::span<const std::uint8_t> levels,
                               std::span<PixelWord> words) const {
    const auto colour = [&](auto wordOf) {
        for (const Run& run : columns_) {
            PixelWord* const word = words.data() + run.panel;
            for (std::size_t i = 0; i < run.length; ++i)
                word[i] = wordOf(run.cell + i);
        }
    };
    const Single* const steps = steps_.data() + placeOfRow(j);
    const std::uint8_t* const hues = hues_.empty() ? nullptr : hues_.data() + placeOfRow(j);
    const auto byLevelAndHue = [&] {
        const PixelWord* const table = wordsByLevelAndHue().data();
        colour([&](std::size_t i) { return table[levels[i] * kHues + hues[i]]; });
    };
    const auto bySign = [&](std::span<const Long, 511> table) {
        // A choice by the sign would be guessed wrong for every other cell.
        colour([&](std::size_t i) {
            const std::array<std::size_t, 2> byLevel = {255U + levels[i], 255U - levels[i]};
            return table[byLevel[std::signbit(steps[i]) ? 1 : 0]];
        });
    };
    switch (source_->view) {
        case 0:
            colour([&](std::size_t i) { return look.lutActive[levels[i]]; });
            break;
        case 1:
            byLevelAndHue();
            break;
        case 2:
            colour([&](std::size_t i) { return look.lutHue[hues[i]]; });
            break;
        case 3:
            bySign(look.lutRe);
            break;
        default:
            bySign(look.lutIm);
    }
}

std::size_t SpectrumPasses::placeOfRow(Long j) const noexcept {
    return area(source_->w, j);
}

std::size_t SpectrumPasses::placeOnPanel(Long j) const noexcept {
    return area(source_->w, rows_[static_cast<std::size_t>(j)]);
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
