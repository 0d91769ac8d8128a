#include "analysis/histogram.h"

#include <algorithm>

#include "engine/RunTimeError.h"

namespace quillon {

namespace {

constexpr Integer kLevels = 256;

}  // namespace

void getGray(Long c, Integer& g) noexcept {
    g = static_cast<Integer>(remainder(c, kLevels));
}

Histogram countGrays(const PictureBox& pb) {
    Histogram counted;
    const Integer right = toInteger(pb.ScaleWidth() - 1);
    const Integer bottom = toInteger(pb.ScaleHeight() - 1);
    for (Long x = 0; x <= right; ++x)
        for (Long y = 0; y <= bottom; ++y) {
            Integer g = 0;
            getGray(pb.GetPixel(x, y), g);
            g = std::clamp<Integer>(g, 0, kLevels - 1);
            counted.grayMin = std::min(counted.grayMin, g);
            counted.grayMax = std::max(counted.grayMax, g);
            Long& count = counted.hist[static_cast<std::size_t>(g)];
            ++count;
            counted.top = std::max(counted.top, count);
        }
    return counted;
}

void Histogram::scale() {
    if (top == 0)
        throw RunTimeError(ErrorNumber::DivisionByZero);
    for (std::size_t i = 0; i < kLevels; ++i) {
        const Long product = toLong(static_cast<Double>(hist[i]) * 100);
        hist[i] = toLong(static_cast<Double>(product) / top);
    }
}

void drawBars(const Histogram& histogram, PictureBox& pb, ColorValue color) {
    for (Long i = 0; i < kLevels; ++i) {
        const Single H = pb.ScaleHeight();
        const auto x = static_cast<Single>(i);
        const auto percent = static_cast<Single>(histogram.hist[static_cast<std::size_t>(i)]);
        // The line leaves out its upper end, so a bar has a pixel for each
        // percent, and none for 0.
        pb.Line(x, H - 1, x, H - percent - 1, color);
    }
}

}  // namespace quillon
