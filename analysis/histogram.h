#pragma once

#include <array>

#include "engine/Numbers.h"
#include "engine/PictureBox.h"

namespace quillon {

/// c modulo 256 with the sign of c: the lowest byte of a colour, its red one. A
/// colour of -1, from off a panel, stays -1.
void getGray(Long c, Integer& g) noexcept;

/// How often each grey level stands on a panel.
struct Histogram {
    /// Counts of the levels 0 to 255, or percentages of the tallest; 256 is unused.
    std::array<Long, 257> hist{};
    /// Lowest and highest level seen; 255 and 0 where there was none.
    Integer grayMin = 255;
    Integer grayMax = 0;
    /// The tallest count.
    Long top = 0;

    /// Turns the counts into percentages of the tallest, rounded half to even:
    /// half a percent is 0. Throws RunTimeError DivisionByZero where nothing was counted.
    void scale();
};

/// Counts what a panel shows at this moment, marks and masks included. Of a
/// coloured pixel only the red component counts.
Histogram countGrays(const PictureBox& pb);

/// Stands the percentages as bars on the bottom edge of a panel of at least 256
/// columns: a column for each level, a pixel for each percent.
void drawBars(const Histogram& histogram, PictureBox& pb, ColorValue color);

}  // namespace quillon
