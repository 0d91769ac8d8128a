#include <gtest/gtest.h>

#include <QTest>
#include <cmath>
#include <numbers>

#include "tests/desktop/LessonFixture.h"

// What the lessons on waves, edges, filters and phases promise.

namespace quillon {
namespace {

// Entries of the FT menu, the iFT menu and the options.
constexpr Integer kLowPass = 10;
constexpr Integer kCustomMasks = 12;
constexpr Integer kHalfShift = 9;
constexpr Integer kNoneShift = 2;
constexpr Integer kRecalculate = 3;
constexpr Integer kSwapPhases = 6;
constexpr Integer kDiscardPhases = 9;
constexpr Integer kDiscardMagnitudes = 10;
constexpr Integer kMagnitudesAndPhases = 13;

/// The part of the magnitudes without the mean that lies beyond a distance from it.
double partBeyond(const clComplexImage& channel, double distance) {
    double beyond = 0, all = 0;
    for (int u = -127; u <= 128; ++u)
        for (int v = -127; v <= 128; ++v) {
            const auto& cell = channel.spectrum().at((u + kSide) % kSide, (v + kSide) % kSide);
            const double size = u == 0 && v == 0 ? 0 : std::hypot(cell.re, cell.im);
            all += size;
            beyond += std::hypot(u, v) > distance ? size : 0;
        }
    return beyond / all;
}

TEST_F(Lessons, CloudsNeedCoarseWavesOnlyAndGrassNeedsAll) {
    setUp("01-spectrum.ftscr");
    EXPECT_LT(partBeyond(channel(Channel::One), 64), 0.2);
    EXPECT_GT(partBeyond(channel(Channel::Two), 64), 0.5);
}

TEST_F(Lessons, TheSpotsOfAWaveReadAsItsAmplitudeSays) {
    setUp("02-one-wave-weak.ftscr");
    // The read-out stands one pixel down and to the right of what is drawn.
    EXPECT_EQ(form().pb2.shown().at(135, 127), form().pb2.shown().at(127, 127));
    EXPECT_EQ(form().pb2.shown().at(119, 127), form().pb2.shown().at(127, 127));
    EXPECT_EQ(channel(Channel::One).getVXY(128, 128), " M= 8356864.0");
    EXPECT_EQ(channel(Channel::One).getVXY(136, 128).substr(0, 11), " M= 3282671");
    EXPECT_EQ(channel(Channel::Two).getVXY(136, 128).substr(0, 10), " M= 328933");
}

TEST_F(Lessons, AMovedWaveHasTheSameMagnitudesAndOtherPhases) {
    setUp("02-one-wave.ftscr");
    EXPECT_NEAR(magnitude(Channel::One, 8, 0), magnitude(Channel::Two, 8, 0), 10);
    form().itmOpt(kMagnitudesAndPhases);
    form().lab.channel1.setIntFac(0.2F);
    form().lab.channel2.setIntFac(0.2F);
    const auto colour = [](const PictureBox& panel, int x) { return panel.shown().at(x, 127); };
    const auto red = [](PixelWord word) { return word >> 16 & 0xFF; };
    const auto green = [](PixelWord word) { return word >> 8 & 0xFF; };
    const auto blue = [](PixelWord word) { return word & 0xFF; };
    for (const int x : {119, 135}) {
        EXPECT_GT(red(colour(form().pb2, x)), 2 * green(colour(form().pb2, x)));
        EXPECT_GT(red(colour(form().pb2, x)), 2 * blue(colour(form().pb2, x)));
    }
    EXPECT_GT(green(colour(form().pb5, 135)), red(colour(form().pb5, 135))) << "yellow-green";
    EXPECT_GT(red(colour(form().pb5, 135)), 2 * blue(colour(form().pb5, 135)));
    EXPECT_GT(blue(colour(form().pb5, 119)), red(colour(form().pb5, 119))) << "violet";
    EXPECT_GT(red(colour(form().pb5, 119)), 2 * green(colour(form().pb5, 119)));
}

TEST_F(Lessons, ARingMeasuresTheFrequencyOfAWave) {
    setUp("03-direction-and-frequency.ftscr");
    EXPECT_EQ(form().pb5.shown().at(143, 139), 0xFFFFFFU);
    EXPECT_EQ(form().pb5.shown().at(111, 115), 0xFFFFFFU);
    const Greys wave = delivered("wave-oblique.bmp");
    const auto contrast = [&] {
        const Greys now = shown(form().pb6);
        return now(0, 0) - now(8, 0);
    };
    form().mnuFT2a(kLowPass);
    dragOn("pb5", {130, 128}, {151, 128});
    const double whole = contrast();
    EXPECT_GT(likeness(shown(form().pb6), wave), 0.999);
    dragOn("pb5", {130, 128}, {148, 128});
    const double half = contrast();
    EXPECT_GT(half, 20) << "one spot of the two is inside";
    EXPECT_LT(half, whole - 20);
    dragOn("pb5", {130, 128}, {146, 128});
    const Greys mean = shown(form().pb6);
    for (int at = 0; at < kSide; ++at)
        EXPECT_GE(mean(at, at), 253) << "the mean alone is white";
}

TEST_F(Lessons, EachWaveMoreMakesTheStripesSteeper) {
    setUp("04-adding-waves.ftscr");
    for (const int even : {16, 32, 48})
        EXPECT_LT(magnitude(Channel::Two, even, 0), 10);
    EXPECT_NEAR(magnitude(Channel::Two, 8, 0) / magnitude(Channel::Two, 24, 0), 3, 0.1);
    const Greys stripes = delivered("stripes.bmp");
    form().mnuFT2a(kLowPass);
    double before = 0;
    for (const int radius : {16, 32, 48, 64}) {
        dragOn("pb5", {130, 128}, {128 + radius, 128});
        const double now = likeness(shown(form().pb6), stripes);
        EXPECT_GT(now, before + 0.005) << radius;
        before = now;
    }
    EXPECT_GT(before, 0.96);
}

TEST_F(Lessons, AClickOnASpotTakesItsWaveAway) {
    setUp("04-adding-waves.ftscr");
    form().mnuFT1a(kCustomMasks);
    settle();
    clickOn("pb2", 143, 139);
    EXPECT_GT(likeness(shown(form().pb3), delivered("wave-8.bmp")), 0.999);
}

TEST_F(Lessons, AStreakLiesAcrossItsEdgeAndTheLongSidesMakeTheStronger) {
    setUp("05-edges.ftscr");
    double upright = 0, level = 0;
    for (int at = 20; at < 100; ++at) {
        upright += magnitude(Channel::One, 0, at);
        level += magnitude(Channel::One, at, 0);
    }
    EXPECT_GT(upright, 1.5 * level);
    EXPECT_GT(level, 100 * magnitude(Channel::One, 50, 50));
    // Waves that fit into the 48 rows a whole number of times cancel out.
    EXPECT_LT(magnitude(Channel::One, 0, 16), magnitude(Channel::One, 0, 19) / 100);
}

TEST_F(Lessons, TheCrossComesFromTheBordersAndGoesWithThem) {
    setUp("05-edges-cross.ftscr");
    const auto uprightLine = [&](Channel which) {
        double line = 0, beside = 0;
        for (int at = 60; at < 128; ++at) {
            line += magnitude(which, 0, at);
            beside += (magnitude(which, 4, at) + magnitude(which, -4, at)) / 2;
        }
        return line / beside;
    };
    EXPECT_GT(uprightLine(Channel::One), 3);
    EXPECT_LT(uprightLine(Channel::Two), 2);
}

TEST_F(Lessons, ARolledImageKeepsItsMagnitudes) {
    setUp("05-edges-cross.ftscr");
    const double before = magnitude(Channel::One, 3, 70);
    const Greys image = delivered("Halvard-Image1.jpg");
    form().mnuImg1b(kNoneShift);
    dragOn("pb1", {100, 60}, {100, 188});
    const Greys rolled = [&](int x, int y) { return image(x, y - 128); };
    EXPECT_GT(likeness(shown(form().pb1), rolled), 0.9999);
    EXPECT_NEAR(magnitude(Channel::One, 3, 70), before, 10);
}

TEST_F(Lessons, TheRampsJumpAtTheBorderMakesALevelLine) {
    setUp("05-edges-ramp.ftscr");
    // A saw-tooth's waves fall off with the sine of half their step.
    EXPECT_NEAR(magnitude(Channel::One, 60, 0),
                kSide * kSide / (2 * std::sin(std::numbers::pi * 60 / kSide)), 100);
    EXPECT_LT(magnitude(Channel::One, 60, 5), 10);
    EXPECT_LT(magnitude(Channel::One, 0, 60), 10);
}

TEST_F(Lessons, LowPassAndHighPassTogetherAreTheOriginal) {
    setUp("06-low-pass-high-pass.ftscr");
    const Greys image = delivered("Halvard-Image1.jpg");
    EXPECT_LT(likeness(shown(form().pb3), image), 0.98);
    EXPECT_LT(likeness(shown(form().pb6), image), 0.6);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            ASSERT_NEAR(channel(Channel::One).reconstruction().at(x, y).re +
                            channel(Channel::Two).reconstruction().at(x, y).re,
                        image(x, y), 0.01)
                << x << ", " << y;
}

TEST_F(Lessons, TheEnterKeyShowsTheCutOfAScriptsLowPass) {
    for (const char* script : {"06-low-pass-high-pass.ftscr", "06-low-pass-high-pass-ringing.ftscr",
                               "09-noise-and-masks-grain.ftscr"}) {
        setUp(script);
        const auto brightBeyond = [&](int radius) {
            int bright = 0;
            for (int y = 0; y < kSide; ++y)
                for (int x = 0; x < kSide; ++x)
                    bright += std::hypot(x - 127, y - 127) > radius &&
                              (form().pb2.shown().at(x, y) & 0xFFFFFFU) != 0;
            return bright;
        };
        EXPECT_GT(brightBeyond(50), 100) << script;
        QTest::keyClick(window().windowHandle(), Qt::Key_Return);
        settle();
        EXPECT_EQ(brightBeyond(50), 0) << script;
    }
}

TEST_F(Lessons, ThePictureGoesWithThePhases) {
    setUp("07-swapping-phases.ftscr");
    const Greys man = delivered("Halvard-Image1.jpg");
    const Greys cat = delivered("Halvard-Image2.jpg");
    form().itmOpt(kSwapPhases);
    EXPECT_GT(likeness(shown(form().pb3), cat), likeness(shown(form().pb3), man) + 0.3);
    EXPECT_GT(likeness(shown(form().pb6), man), likeness(shown(form().pb6), cat) + 0.3);
    form().itmOpt(kSwapPhases);
    EXPECT_GT(likeness(shown(form().pb3), man), 0.999);
    EXPECT_GT(likeness(shown(form().pb6), cat), 0.999);
}

TEST_F(Lessons, WithoutPhasesAllCrestsMeetInTheUpperLeftCorner) {
    setUp("08-discarding.ftscr");
    form().itmOpt(kDiscardPhases);
    const Greys magnitudes = shown(form().pb3);
    EXPECT_EQ(magnitudes(0, 0), 255);
    EXPECT_LT(magnitudes(60, 60), 30);
    form().mnuNew1a(kHalfShift);
    EXPECT_EQ(shown(form().pb3)(128, 128), 255);
    form().itmOpt(kRecalculate);
    EXPECT_GT(likeness(shown(form().pb3), delivered("Halvard-Image1.jpg")), 0.999);
}

TEST_F(Lessons, WithoutPhasesAndMagnitudesOnePixelIsLeft) {
    setUp("08-discarding.ftscr");
    form().itmOpt(kDiscardMagnitudes);
    form().itmOpt(kDiscardPhases);
    const Greys left = shown(form().pb3);
    EXPECT_EQ(left(0, 0), 255);
    for (int y = 0; y < kSide; ++y)
        for (int x = y == 0 ? 1 : 0; x < kSide; ++x)
            ASSERT_LE(left(x, y), 1) << x << ", " << y;
}

TEST_F(Lessons, RandomPhasesLeaveNothingAndRandomMagnitudesLeaveTheOutlines) {
    setUp("08-discarding-random-phases.ftscr");
    const Greys man = delivered("Halvard-Image1.jpg");
    // The few strong coarse waves may chance to fall together a little.
    EXPECT_LT(std::abs(likeness(shown(form().pb3), man)), 0.4);
    setUp("08-discarding.ftscr");
    form().itmOpt(kDiscardMagnitudes);
    const Greys outlines = shown(form().pb3);
    setUp("08-discarding-random-magnitudes.ftscr");
    EXPECT_GT(likeness(shown(form().pb3), outlines), 0.5);
}

}  // namespace
}  // namespace quillon
