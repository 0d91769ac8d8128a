// Lines, boxes and dots on the panel surface.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "engine/RunTimeError.h"
#include "tests/support/TestPanel.h"
#include "tests/support/slow_drawing.h"

namespace quillon {
namespace {

TEST(PictureBoxLines, ALineLeavesOutItsEndPoint) {
    TestPanel panel(6, 4);
    panel.Line(1, 1, 4, 1);
    panel.Line(5, 3, 5, 1, kRed);
    EXPECT_EQ(panel.text(), (Rows{"......", ".###..", ".....R", ".....R"}));
}

TEST(PictureBoxLines, ALineOfNoLengthDrawsNothingWithAOnePixelPen) {
    TestPanel panel(3, 3);
    panel.Line(1, 1, 1, 1);
    EXPECT_EQ(panel.text(), (Rows{"...", "...", "..."}));
}

TEST(PictureBoxLines, ALineOfNoLengthLeavesADotOfAWiderPen) {
    TestPanel panel(4, 4);
    panel.DrawWidth = 2;
    panel.Line(2, 2, 2, 2);
    EXPECT_EQ(panel.text(), (Rows{"....", ".##.", ".##.", "...."}));
}

TEST(PictureBoxLines, TheTwoByTwoBlockHasThePointAsItsLowerRightPixel) {
    TestPanel panel(5, 4);
    panel.DrawWidth = 2;
    panel.PSet(3, 2, kGreen);
    EXPECT_EQ(panel.text(), (Rows{".....", "..GG.", "..GG.", "....."}));
}

TEST(PictureBoxLines, AWidePenRunsAlongTheLineAndStopsBeforeItsEnd) {
    TestPanel panel(6, 5);
    panel.DrawWidth = 2;
    panel.Line(1, 1, 4, 1);
    EXPECT_EQ(panel.text(), (Rows{"####..", "####..", "......", "......", "......"}));
    panel.Cls();
    panel.Line(1, 1, 4, 4);
    EXPECT_EQ(panel.text(), (Rows{"##....", "###...", ".###..", "..##..", "......"}));
}

TEST(PictureBoxLines, APenOfThreePixelsHasThePointInItsMiddle) {
    TestPanel panel(5, 5);
    panel.DrawWidth = 3;
    panel.PSet(2, 2);
    EXPECT_EQ(panel.text(), (Rows{".....", ".###.", ".###.", ".###.", "....."}));
}

TEST(PictureBoxLines, APenBelowOnePixelIsOnePixelWide) {
    TestPanel panel(3, 1);
    panel.DrawWidth = 0;
    panel.PSet(1, 0);
    EXPECT_EQ(panel.text(), (Rows{".#."}));
}

TEST(PictureBoxLines, CoordinatesAreRoundedHalfToEven) {
    TestPanel panel(5, 1);
    panel.PSet(0.5F, 0);
    panel.PSet(2.5F, 0.5F);
    panel.PSet(3.5F, -0.5F);
    EXPECT_EQ(panel.text(), (Rows{"#.#.#"}));
}

TEST(PictureBoxLines, ACoordinateThatNoLongHoldsIsAnOverflow) {
    TestPanel panel(5, 1);
    EXPECT_THROW(panel.Line(0, 0, 3e9F, 0), RunTimeError);
    EXPECT_THROW(panel.PSet(0, std::nanf("")), RunTimeError);
}

TEST(PictureBoxLines, ALineTakesTheUpperOrLeftOfTwoEquallyNearPixels) {
    TestPanel panel(4, 4);
    panel.Line(0, 0, 2, 1);
    EXPECT_EQ(panel.text(), (Rows{"##..", "....", "....", "...."}));
    panel.Cls();
    panel.Line(0, 0, 1, 2);
    EXPECT_EQ(panel.text(), (Rows{"#...", "#...", "....", "...."}));
    panel.Cls();
    panel.Line(3, 3, 1, 2);
    EXPECT_EQ(panel.text(), (Rows{"....", "....", "..#.", "...#"}));
}

Bitmap slowLine(int width, int height, PanelPoint from, PanelPoint to, int pen) {
    Bitmap picture(width, height);
    slow::line(picture, from, to, pen, 0xFFFFFF);
    return picture;
}

void drawLine(TestPanel& panel, PanelPoint from, PanelPoint to) {
    panel.Polyline(std::vector<PanelPoint>{from, to});
}

TEST(PictureBoxLines, EveryLineIsTheSlowLineCutToThePanel) {
    constexpr unsigned kSeed = 11;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<Long> coordinate(-30, 50);
    for (int round = 0; round < 3000; ++round) {
        TestPanel panel(17, 23);
        const PanelPoint from{coordinate(random), coordinate(random)};
        const PanelPoint to{coordinate(random), coordinate(random)};
        drawLine(panel, from, to);
        ASSERT_EQ(panel.text(), textOf(slowLine(17, 23, from, to, 1)))
            << from.x << ' ' << from.y << ' ' << to.x << ' ' << to.y;
    }
}

TEST(PictureBoxLines, ALineCoversTheSamePixelsBothWaysButForItsEnds) {
    constexpr unsigned kSeed = 12;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<Long> coordinate(0, 22);
    for (int round = 0; round < 1000; ++round) {
        const PanelPoint from{coordinate(random), coordinate(random)};
        const PanelPoint to{coordinate(random), coordinate(random)};
        TestPanel forth(23, 23);
        TestPanel back(23, 23);
        drawLine(forth, from, to);
        drawLine(back, to, from);
        forth.SetPixelV(to.x, to.y, kWhite);
        back.SetPixelV(from.x, from.y, kWhite);
        ASSERT_EQ(forth.text(), back.text());
    }
}

/// The visible pixels of the line through far points by exact rational arithmetic.
Bitmap slowFarLine(int side, PanelPoint from, PanelPoint to) {
    Bitmap picture(side, side);
    const std::int64_t dx = std::int64_t{to.x} - from.x;
    const std::int64_t dy = std::int64_t{to.y} - from.y;
    const bool steep = std::abs(dy) > std::abs(dx);
    for (int major = 0; major < side; ++major) {
        const std::int64_t step = std::abs(major - std::int64_t{steep ? from.y : from.x});
        const std::int64_t run = std::abs(steep ? dy : dx);
        const bool towards =
            (major - std::int64_t{steep ? from.y : from.x}) * (steep ? dy : dx) >= 0;
        if (!towards || step >= run)
            continue;
        for (int minor = 0; minor < side; ++minor) {
            // Twice the distance of the pixel from the true line, times the run:
            // more than -run and up to run for the nearest, the upper on a tie.
            // For the points used here it has at most 64 bits and is exact.
            const long double distance =
                2.0L * (static_cast<long double>(steep ? from.x : from.y) - minor) *
                    static_cast<long double>(run) +
                2.0L * static_cast<long double>(steep ? dx : dy) * static_cast<long double>(step);
            if (distance > -static_cast<long double>(run) &&
                distance <= static_cast<long double>(run))
                picture.at(steep ? minor : major, steep ? major : minor) = 0xFFFFFF;
        }
    }
    return picture;
}

TEST(PictureBoxLines, ALineFromFarOutsideCrossesThePanelWhereItShould) {
    constexpr unsigned kSeed = 13;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<Long> far(-1'000'000'000, 1'000'000'000);
    std::uniform_int_distribution<Long> near(-3, 15);
    for (int round = 0; round < 500; ++round) {
        const PanelPoint inside{near(random), near(random)};
        const PanelPoint from{far(random), far(random)};
        // The line goes through the panel's neighbourhood and as far beyond.
        const PanelPoint to{2 * inside.x - from.x, 2 * inside.y - from.y};
        TestPanel panel(13, 13);
        drawLine(panel, from, to);
        ASSERT_EQ(panel.text(), textOf(slowFarLine(13, from, to)))
            << from.x << ' ' << from.y << ' ' << to.x << ' ' << to.y;
    }
}

TEST(PictureBoxLines, TheFarthestPointsOfAllNeitherOverflowNorTakeLong) {
    constexpr Long kFar = 2'147'483'647;
    TestPanel panel(5, 5);
    drawLine(panel, {-kFar - 1, 2}, {kFar, 2});
    drawLine(panel, {2, kFar}, {2, -kFar - 1});
    EXPECT_EQ(panel.text(), (Rows{"..#..", "..#..", "#####", "..#..", "..#.."}));
    panel.Cls();
    for (int i = 0; i < 10'000; ++i)
        drawLine(panel, {-kFar, -kFar}, {kFar, kFar});
    EXPECT_EQ(panel.text(), (Rows{"#....", ".#...", "..#..", "...#.", "....#"}));
    panel.DrawWidth = 2;
    panel.Cls();
    panel.Line(-1e9F, 2, 1e9F, 2);
    EXPECT_EQ(panel.text(), (Rows{".....", "#####", "#####", ".....", "....."}));
}

TEST(PictureBoxLines, AWideXorLineTouchesEachPixelOfItsBlocksOnce) {
    constexpr unsigned kSeed = 14;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<Long> coordinate(-25, 40);
    for (int round = 0; round < 2000; ++round) {
        const PanelPoint from{coordinate(random), coordinate(random)};
        const PanelPoint to{coordinate(random), coordinate(random)};
        if (from == to)
            continue;
        TestPanel panel(15, 19);
        panel.DrawMode = kPenXor;
        panel.DrawWidth = static_cast<Integer>(1 + round % 5);
        drawLine(panel, from, to);
        ASSERT_EQ(panel.text(), textOf(slowLine(15, 19, from, to, panel.DrawWidth)))
            << from.x << ' ' << from.y << ' ' << to.x << ' ' << to.y << ' ' << panel.DrawWidth;
    }
}

TEST(PictureBoxLines, AFilledBoxHoldsItsCornersInAnyOrder) {
    TestPanel panel(5, 4);
    panel.Box(3, 2, 1, 1, kBlue, BoxStyle::Filled);
    EXPECT_EQ(panel.text(), (Rows{".....", ".BBB.", ".BBB.", "....."}));
}

TEST(PictureBoxLines, AFilledBoxDoesNotGrowWithThePen) {
    TestPanel panel(5, 4);
    panel.DrawWidth = 2;
    panel.Box(2, 2, 3, 2, kBlue, BoxStyle::Filled);
    EXPECT_EQ(panel.text(), (Rows{".....", ".....", "..BB.", "....."}));
}

TEST(PictureBoxLines, AnOutlineHoldsItsCornersAndLeavesItsInsideAlone) {
    TestPanel panel(6, 5);
    panel.Box(4, 3, 1, 0, kRed, BoxStyle::Outline);
    EXPECT_EQ(panel.text(), (Rows{".RRRR.", ".R..R.", ".R..R.", ".RRRR.", "......"}));
}

TEST(PictureBoxLines, AnOutlineOfNoSizeIsOneDot) {
    TestPanel panel(3, 3);
    panel.Box(1, 1, 1, 1, kRed, BoxStyle::Outline);
    EXPECT_EQ(panel.text(), (Rows{"...", ".R.", "..."}));
    panel.Cls();
    panel.Box(0, 1, 2, 1, kRed, BoxStyle::Outline);
    EXPECT_EQ(panel.text(), (Rows{"...", "RRR", "..."}));
}

TEST(PictureBoxLines, AnOutlineIsAsWideAsThePen) {
    TestPanel panel(8, 7);
    panel.DrawWidth = 2;
    panel.Box(1, 1, 6, 5, kRed, BoxStyle::Outline);
    EXPECT_EQ(panel.text(), (Rows{"RRRRRRR.", "RRRRRRR.", "RR...RR.", "RR...RR.", "RRRRRRR.",
                                  "RRRRRRR.", "........"}));
}

TEST(PictureBoxLines, AnXorBoxTouchesEachPixelOnce) {
    TestPanel panel(6, 5);
    panel.DrawMode = kPenXor;
    panel.DrawWidth = 2;
    panel.Box(1, 1, 4, 4, kWhite, BoxStyle::Outline);
    EXPECT_EQ(panel.text(), (Rows{"#####.", "#####.", "##.##.", "#####.", "#####."}));
}

TEST(PictureBoxLines, CrossedXorBoxesTurnTheCrossingBack) {
    TestPanel panel(5, 5);
    panel.DrawMode = kPenXor;
    panel.Box(1, 0, 2, 5, kWhite, BoxStyle::Filled);
    panel.Box(0, 1, 5, 2, kWhite, BoxStyle::Filled);
    EXPECT_EQ(panel.text(), (Rows{".##..", "#..##", "#..##", ".##..", ".##.."}));
}

TEST(PictureBoxLines, TheXorPenCombinesTheColourWithEachPixel) {
    TestPanel panel(Rows{".R#"});
    panel.DrawMode = kPenXor;
    panel.Box(0, 0, 2, 0, RGB(255, 255, 0), BoxStyle::Filled);
    EXPECT_EQ(panel.text(), (Rows{"YGB"}));
}

TEST(PictureBoxLines, XorTwiceGivesBackThePictureAndKeepsTheTopByteZero) {
    const Bitmap picture = randomPicture(20, 16, 15);
    TestPanel panel(20, 16);
    panel.setPicture(picture);
    panel.DrawMode = kPenXor;
    panel.DrawWidth = 2;
    for (int pass = 0; pass < 2; ++pass) {
        panel.Line(-5, 3, 30, 14, ColorValue{0x7FABCDEF});
        panel.Box(2, 2, 12, 9, kRed, BoxStyle::Outline);
        panel.Box(-3, 8, 9, 40, kWhite, BoxStyle::Filled);
        panel.PSet(19, 0, kGreen);
        EXPECT_TRUE(std::ranges::all_of(panel.Image().words,
                                        [](PixelWord word) { return word >> 24 == 0; }));
        EXPECT_EQ(panel.Image() == picture, pass == 1);
    }
}

TEST(PictureBoxLines, EverythingClipsOnAllFourSides) {
    // A box of three by three whose middle lies near each border.
    const std::vector<std::pair<PanelPoint, Rows>> cases{
        {{-1, 2}, {".....", "#....", "#....", "#....", "....."}},
        {{4, 2}, {".....", "...##", "...##", "...##", "....."}},
        {{2, -1}, {".###.", ".....", ".....", ".....", "....."}},
        {{2, 5}, {".....", ".....", ".....", ".....", ".###."}},
    };
    for (const auto& [middle, expected] : cases) {
        TestPanel panel(5, 5);
        const auto x = static_cast<Single>(middle.x);
        const auto y = static_cast<Single>(middle.y);
        panel.Box(x - 1, y - 1, x + 1, y + 1, kWhite, BoxStyle::Filled);
        EXPECT_EQ(panel.text(), expected);
    }
}

TEST(PictureBoxLines, DrawingWhollyOutsideChangesNothing) {
    TestPanel panel(4, 4);
    panel.DrawWidth = 2;
    const Bitmap before = panel.Image();
    panel.Line(-5, -5, -1, 20);
    panel.Line(6, 0, 6, 4);
    panel.Box(-9, -9, -2, -2, kRed, BoxStyle::Filled);
    panel.Box(-9, -9, 20, 20, kRed, BoxStyle::Outline);
    panel.PSet(-1, 2);
    panel.PSet(2, 5);
    panel.SetPixelV(4, 0, kRed);
    panel.SetPixelV(0, -1, kRed);
    EXPECT_EQ(panel.Image(), before);
    // One pixel beyond the right and lower border the pen still reaches back.
    panel.PSet(4, 4);
    EXPECT_EQ(panel.text(), (Rows{"....", "....", "....", "...#"}));
}

TEST(PictureBoxLines, APixelIsOnePixelWhateverThePen) {
    TestPanel panel(Rows{"###", "###"});
    panel.DrawWidth = 2;
    panel.DrawMode = kPenXor;
    panel.SetPixelV(1, 1, kRed);
    EXPECT_EQ(panel.text(), (Rows{"###", "#R#"}));
}

TEST(PictureBoxLines, APolylineJoinsItsPointsAndLeavesOutTheLast) {
    TestPanel panel(6, 4);
    panel.Polyline(std::vector<PanelPoint>{{0, 3}, {2, 1}, {4, 3}, {5, 3}});
    EXPECT_EQ(panel.text(), (Rows{"......", "..#...", ".#.#..", "#...#."}));
    panel.Cls();
    panel.Polyline(std::vector<PanelPoint>{{1, 1}});
    panel.Polyline({});
    EXPECT_EQ(panel.text(), (Rows{"......", "......", "......", "......"}));
}

TEST(PictureBoxLines, DrawingWithoutAColourUsesForeColor) {
    TestPanel panel(3, 1);
    panel.ForeColor = kBlue;
    panel.Line(0, 0, 1, 0);
    panel.PSet(2, 0);
    EXPECT_EQ(panel.text(), (Rows{"B.B"}));
}

}  // namespace
}  // namespace quillon
