// The surround of an ellipse on the panel surface.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

#include "tests/support/TestPanel.h"

namespace quillon {
namespace {

/// The pixels whose centres lie inside the ellipse, by whole numbers.
bool insideEllipse(std::int64_t x, std::int64_t y, std::int64_t left, std::int64_t top,
                   std::int64_t right, std::int64_t bottom) {
    const std::int64_t width = std::abs(right - left);
    const std::int64_t height = std::abs(bottom - top);
    const std::int64_t across = 2 * x + 1 - left - right;
    const std::int64_t down = 2 * y + 1 - top - bottom;
    return across * across * height * height + down * down * width * width <
           width * width * height * height;
}

void expectEllipse(int side, int left, int top, int right, int bottom) {
    TestPanel panel(side, side);
    panel.setBackColor(kWhite);
    panel.FillAroundEllipse(left, top, right, bottom, kBlack);
    int wrong = 0;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            wrong += (panel.Image().at(x, y) == 0xFFFFFF) !=
                     insideEllipse(x, y, left, top, right, bottom);
    EXPECT_EQ(wrong, 0) << left << ' ' << top << ' ' << right << ' ' << bottom;
}

TEST(PictureBoxEllipse, TheSurroundOfAnEllipseLeavesThePixelsWhoseCentresLieInside) {
    for (int radius = 0; radius <= 128; ++radius)
        expectEllipse(256, 129 - radius, 129 - radius, 128 + radius, 128 + radius);
    expectEllipse(40, -5, 3, 31, 20);
    // Points of this circle lie exactly on its edge: they are not inside.
    expectEllipse(12, 0, 0, 10, 10);
    expectEllipse(12, 5, 0, 5, 10);
    expectEllipse(12, -2'000, -2'000, 2'000, 6'000);
}

TEST(PictureBoxEllipse, TheSurroundOfASmallCircleIsSymmetric) {
    TestPanel panel(8, 8);
    panel.setBackColor(kWhite);
    panel.DrawMode = kPenXor;
    panel.FillAroundEllipse(1, 1, 6, 6, kRed);
    EXPECT_EQ(panel.text(), (Rows{"RRRRRRRR", "RR###RRR", "R#####RR", "R#####RR", "R#####RR",
                                  "RR###RRR", "RRRRRRRR", "RRRRRRRR"}));
    panel.Cls();
    panel.FillAroundEllipse(6, 6, 1, 1, kRed);
    EXPECT_EQ(panel.text()[1], "RR###RRR");
}

}  // namespace
}  // namespace quillon
