#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/QtTextPainter.h"
#include "engine/PictureBox.h"

namespace quillon {
namespace {

/// The rows and columns that hold something other than the ground.
PixelArea inked(const Bitmap& canvas, PixelWord ground) {
    int left = canvas.width, top = canvas.height, right = -1, bottom = -1;
    for (int y = 0; y < canvas.height; ++y)
        for (int x = 0; x < canvas.width; ++x)
            if (canvas.at(x, y) != ground) {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x);
                bottom = std::max(bottom, y);
            }
    return {left, top, right - left + 1, bottom - top + 1};
}

TEST(TextOnAPanel, BeginsAtItsUpperLeftCorner) {
    Bitmap canvas(80, 40, 0x202020);
    QtTextPainter().draw(canvas, 10, 5, "Hg", Font::Arial, 8.25F, kWhite);
    const PixelArea ink = inked(canvas, 0x202020);
    EXPECT_GE(ink.left, 10);
    EXPECT_LE(ink.left, 12);
    EXPECT_GE(ink.top, 5);
    EXPECT_LE(ink.top, 9);
    EXPECT_LE(ink.top + ink.height, 5 + 16);
    EXPECT_GE(ink.height, 8);
}

TEST(TextOnAPanel, IsAsWideAsMeasured) {
    QtTextPainter painter;
    EXPECT_EQ(painter.width("", Font::Arial, 8.25F), 0);
    const int width = painter.width("Magnitude", Font::Arial, 8.25F);
    EXPECT_GT(width, painter.width("Magn", Font::Arial, 8.25F));
    EXPECT_LT(painter.width("Magnitude", Font::ArialNarrow, 8.25F), width);
    Bitmap canvas(120, 20, 0);
    painter.draw(canvas, 0, 0, "Magnitude", Font::Arial, 8.25F, kWhite);
    EXPECT_NEAR(inked(canvas, 0).width, width, 3);
}

TEST(TextOnAPanel, LeavesTheTopByteOfEveryWordZero) {
    Bitmap canvas(60, 20, 0x102030);
    QtTextPainter().draw(canvas, 0, 0, "Text", Font::Arial, 8.25F, kRed);
    EXPECT_TRUE(std::ranges::all_of(canvas.words, [](PixelWord word) { return word >> 24 == 0; }));
    EXPECT_TRUE(std::ranges::any_of(canvas.words,
                                    [](PixelWord word) { return (word >> 16 & 0xFF) > 0xC0; }));
}

TEST(TextOnAPanel, IsCutAtTheEdgesAndAbsentOnAPanelOfNoSize) {
    Bitmap canvas(20, 10, 0);
    QtTextPainter().draw(canvas, -10, -5, "WWWWWWWW", Font::Arial, 12, kWhite);
    EXPECT_EQ(canvas.words.size(), 200U);
    Bitmap nothing;
    QtTextPainter().draw(nothing, 0, 0, "W", Font::Arial, 12, kWhite);
    EXPECT_TRUE(nothing.empty());
}

}  // namespace
}  // namespace quillon
