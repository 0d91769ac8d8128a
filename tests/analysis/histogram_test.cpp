#include "analysis/histogram.h"

#include <gtest/gtest.h>

#include <numeric>

#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// A panel whose words are those of `word(x, y)`.
template <class Word>
void lay(PictureBox& panel, Word word) {
    Bitmap picture(static_cast<int>(panel.ScaleWidth()), static_cast<int>(panel.ScaleHeight()));
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            picture.at(x, y) = word(x, y);
    panel.setPicture(picture);
}

TEST(GrayOfAColour, IsTheRemainderBy256WithItsSign) {
    Integer g = 7;
    getGray(0x0000FF, g);
    EXPECT_EQ(g, 255);
    getGray(0xFF0000, g);
    EXPECT_EQ(g, 0);
    getGray(0x123456, g);
    EXPECT_EQ(g, 0x56);
    getGray(-1, g);
    EXPECT_EQ(g, -1);
    getGray(-300, g);
    EXPECT_EQ(g, -44);
}

TEST(HistogramCounts, EveryPixelByItsRedComponentAlone) {
    PictureBox panel("pb1", 256, 256);
    // Words of a bitmap have red in the third byte.
    lay(panel, [](int x, int y) { return x << 16 | y << 8 | (255 - x); });
    const Histogram counted = countGrays(panel);
    for (std::size_t i = 0; i < 256; ++i)
        ASSERT_EQ(counted.hist[i], 256);
    EXPECT_EQ(counted.hist[256], 0);
    EXPECT_EQ(counted.top, 256);
    EXPECT_EQ(counted.grayMin, 0);
    EXPECT_EQ(counted.grayMax, 255);
}

TEST(HistogramCounts, BlueAsBlackAndRedAsWhite) {
    PictureBox panel("pb1", 10, 10);
    lay(panel, [](int x, int) { return x < 3 ? 0x0000FF : 0xFF0000; });
    const Histogram counted = countGrays(panel);
    EXPECT_EQ(counted.hist[0], 30);
    EXPECT_EQ(counted.hist[255], 70);
}

TEST(HistogramCounts, WhatThePanelShowsWithMarksAndMasks) {
    PictureBox panel("pb2", 40, 30);
    lay(panel, [](int, int) { return 0x646464; });
    panel.setAutoRedraw(true);
    panel.Box(0, 0, 9, 0, RGB(200, 0, 0), BoxStyle::Filled);
    // A mask lies on the screen layer, above the bitmap.
    panel.setAutoRedraw(false);
    panel.Box(5, 0, 14, 0, RGB(1, 0, 0), BoxStyle::Filled);
    Histogram counted = countGrays(panel);
    EXPECT_EQ(counted.hist[200], 5);
    EXPECT_EQ(counted.hist[1], 10);
    EXPECT_EQ(counted.hist[100], 40 * 30 - 15);
    EXPECT_EQ(counted.grayMin, 1);
    panel.Refresh();
    counted = countGrays(panel);
    EXPECT_EQ(counted.hist[200], 10);
    EXPECT_EQ(counted.hist[1], 0);
}

TEST(HistogramScaling, MakesTheTallestAHundredAndRoundsHalfToEven) {
    Histogram histogram;
    histogram.hist[0] = 200;
    histogram.hist[1] = 1;  // exactly half a percent
    histogram.hist[2] = 3;  // 1.5
    histogram.hist[3] = 5;  // 2.5
    histogram.hist[4] = 199;
    histogram.hist[255] = 100;
    histogram.top = 200;
    histogram.scale();
    EXPECT_EQ(histogram.hist[0], 100);
    EXPECT_EQ(histogram.hist[1], 0);
    EXPECT_EQ(histogram.hist[2], 2);
    EXPECT_EQ(histogram.hist[3], 2);
    EXPECT_EQ(histogram.hist[4], 100);
    EXPECT_EQ(histogram.hist[255], 50);
}

TEST(HistogramScaling, OverflowsWhereAHundredfoldIsNoLong) {
    Histogram histogram;
    histogram.hist[9] = histogram.top = 21474837;
    EXPECT_EQ(errorOf([&] { histogram.scale(); }), ErrorNumber::Overflow);
    histogram.hist[9] = histogram.top = 21474836;
    histogram.scale();
    EXPECT_EQ(histogram.hist[9], 100);
}

TEST(HistogramOfNoPixel, CountsNothingAndDividesByZero) {
    for (const auto& [width, height] : {std::pair(0, 0), std::pair(0, 20), std::pair(20, 0)}) {
        PictureBox panel("pb1", width, height);
        Histogram counted = countGrays(panel);
        EXPECT_EQ(counted.top, 0);
        EXPECT_EQ(counted.grayMin, 255);
        EXPECT_EQ(counted.grayMax, 0);
        EXPECT_EQ(errorOf([&] { counted.scale(); }), ErrorNumber::DivisionByZero);
    }
}

TEST(HistogramBars, StandOnTheBottomEdgeAPixelForEachPercent) {
    PictureBox box("pbh", 257, 102);
    box.setAutoRedraw(true);
    box.setBackColor(RGB(0, 0, 99));
    Histogram histogram;
    std::iota(histogram.hist.begin(), histogram.hist.begin() + 101, 0);
    histogram.hist[255] = 100;
    drawBars(histogram, box, RGB(250, 0, 0));
    for (int x = 0; x < 257; ++x) {
        const auto percent =
            x < 256 ? static_cast<int>(histogram.hist[static_cast<std::size_t>(x)]) : 0;
        for (int y = 0; y < 102; ++y)
            ASSERT_EQ(box.Image().at(x, y), y >= 102 - percent ? 0xFA0000 : 0x000063)
                << x << ", " << y;
    }
}

}  // namespace
}  // namespace quillon
