#include "analysis/lattice_points.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/RecordingWatcher.h"
#include "tests/support/error_of.h"
#include "tests/support/slow_drawing.h"

namespace quillon {
namespace {

Bitmap plotted(int width, int height, const LatticeBasis& basis) {
    PictureBox box("box", width, height);
    box.setBackColor(kBlack);
    box.ForeColor = kWhite;
    plotLattice(box, basis);
    return box.Image();
}

long pointsOf(const Bitmap& picture) {
    long count = 0;
    for (const PixelWord word : picture.words)
        count += word != 0 ? 1 : 0;
    return count;
}

void expectPlain(int width, int height, const LatticeBasis& basis) {
    EXPECT_TRUE(plotted(width, height, basis) == slow::lattice(width, height, basis))
        << "P0 " << basis.p0.x << ", " << basis.p0.y << "  P1 " << basis.p1.x << ", " << basis.p1.y
        << "  P2 " << basis.p2.x << ", " << basis.p2.y;
}

TEST(LatticePoints, ASquareLatticeHasAPointAtEveryStep) {
    const Bitmap picture = plotted(64, 64, {{3, 5}, {11, 5}, {3, 13}});
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            EXPECT_EQ(picture.at(x, y), x % 8 == 3 && y % 8 == 5 ? 0xFFFFFF : 0) << x << ", " << y;
}

TEST(LatticePoints, RandomBasesGiveThePointsOfThePlainLoop) {
    constexpr unsigned kSeed = 5201;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    const auto within = [&random](int low, int high) {
        return static_cast<Single>(low + static_cast<int>(random() % unsigned(high - low + 1)));
    };
    for (int i = 0; i < 40; ++i) {
        const PointXY p0{within(0, 127), within(0, 127)};
        const auto stepped = [&](PointXY from) {
            const Single dx = within(5, 40) * (random() % 2 == 0 ? 1 : -1);
            const Single dy = within(5, 40) * (random() % 2 == 0 ? 1 : -1);
            return PointXY{from.x + dx, from.y + dy};
        };
        const PointXY p1 = stepped(p0);
        expectPlain(128, 128, {p0, p1, stepped(p0)});
    }
}

TEST(LatticePoints, BasesBetweenPixelsRoundAsThePlainLoopDoes) {
    constexpr unsigned kSeed = 5202;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<Single> place(-10, 110);
    std::uniform_real_distribution<Single> step(5, 25);
    for (int i = 0; i < 25; ++i) {
        const PointXY p0{place(random), place(random)};
        expectPlain(100, 70,
                    {p0,
                     {p0.x + step(random), p0.y - step(random)},
                     {p0.x + step(random), p0.y + step(random)}});
    }
    expectPlain(100, 70, {{2.5F, 3.5F}, {9, 3.5F}, {2.5F, 10}});
}

TEST(LatticePoints, AStepOfOnePixelGivesThePointsOfThePlainLoop) {
    expectPlain(24, 24, {{5, 6}, {6, 6}, {5, 7}});
    expectPlain(24, 24, {{5, 6}, {6, 6}, {6, 7}});
    expectPlain(24, 24, {{5, 6}, {6, 7}, {4, 7}});
    expectPlain(24, 24, {{5, 6}, {5, 7}, {6, 6}});
}

TEST(LatticePoints, AStepOfOnePixelFillsALargePanel) {
    EXPECT_EQ(pointsOf(plotted(256, 256, {{128, 128}, {129, 128}, {128, 129}})), 256 * 256);
}

TEST(LatticePoints, CollinearOrCoincidentVectorsGiveALineOfPoints) {
    const LatticeBasis collinear{{4, 4}, {10, 10}, {16, 16}};
    expectPlain(60, 60, collinear);
    EXPECT_EQ(pointsOf(plotted(60, 60, collinear)), 10);
    const LatticeBasis coincident{{4, 4}, {10, 4}, {10, 4}};
    expectPlain(60, 60, coincident);
    EXPECT_EQ(pointsOf(plotted(60, 60, coincident)), 10);
}

TEST(LatticePoints, AVectorOfNoLengthLeavesTheOther) {
    expectPlain(60, 60, {{4, 4}, {4, 4}, {12, 9}});
    expectPlain(60, 60, {{4, 4}, {12, 9}, {4, 4}});
    const LatticeBasis point{{4, 7}, {4, 7}, {4, 7}};
    expectPlain(20, 20, point);
    EXPECT_EQ(pointsOf(plotted(20, 20, point)), 1);
}

TEST(LatticePoints, AVeryObliqueBasisStopsAtTenTimesThePanel) {
    // The steps are too few to reach every corner of the panel.
    expectPlain(100, 100, {{50, 50}, {90, 51}, {89, 51}});
    expectPlain(100, 100, {{0, 99}, {40, 99}, {41, 98}});
}

TEST(LatticePoints, ThePointsArePersistentInTheInkOfThePanelWhateverThePen) {
    PictureBox box("box", 30, 30);
    box.setBackColor(kBlack);
    box.DrawWidth = 2;
    box.ForeColor = kRed;
    box.Line(0, 0, 29, 29, kGreen);
    ASSERT_TRUE(box.hasScreenLayer());
    RecordingWatcher watcher;
    box.watch(&watcher);
    plotLattice(box, {{5, 5}, {15, 5}, {5, 15}});
    EXPECT_EQ(watcher.count("showNow box"), 1);
    EXPECT_TRUE(box.AutoRedraw());
    EXPECT_FALSE(box.hasScreenLayer()) << "the construction lines are gone";
    EXPECT_EQ(pointsOf(box.Image()), 9);
    EXPECT_EQ(box.GetPixel(15, 25), kRed.value);
    EXPECT_EQ(box.GetPixel(14, 25), 0);
    box.watch(nullptr);
}

TEST(LatticePoints, TooManyStepsForAnIntegerOverflow) {
    PictureBox wide("wide", 3277, 4);
    EXPECT_EQ(errorOf([&] { plotLattice(wide, {{0, 0}, {1, 0}, {0, 1}}); }), ErrorNumber::Overflow);
    PictureBox high("high", 4, 3277);
    EXPECT_EQ(errorOf([&] { plotLattice(high, {{0, 0}, {1, 0}, {0, 1}}); }), ErrorNumber::Overflow);
    PictureBox fits("fits", 3276, 4);
    EXPECT_EQ(errorOf([&] { plotLattice(fits, {{0, 0}, {1, 0}, {0, 1}}); }), ErrorNumber{});
}

}  // namespace
}  // namespace quillon
