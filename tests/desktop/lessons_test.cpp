#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "desktop/Conversions.h"
#include "tests/desktop/LessonFixture.h"

// What the lessons on masks, convolution, symmetry, sampling and numbers promise.

namespace quillon {
namespace {

constexpr Integer kNoFilter = 9;
constexpr Integer kCustomMasks = 12;
constexpr Integer kConvolution = 14;
constexpr Integer kHalfShift = 9;
constexpr Integer kViewPhases = 14;

TEST_F(Lessons, FourMasksTakeTheStripesOutOfTheCup) {
    const Greys cup = delivered("cup.bmp");
    setUp("09-noise-and-masks.ftscr");
    EXPECT_GT(likeness(shown(form().pb3), cup), 0.995);
    form().mnuFT1a(kNoFilter);
    EXPECT_LT(likeness(shown(form().pb3), cup), 0.93);
}

TEST_F(Lessons, AClickOnEachOfTwoSpotsTakesTheStripesOutToo) {
    const Greys cup = delivered("cup.bmp");
    setUp("09-noise-and-masks.ftscr");
    form().mnuFT1a(kNoFilter);
    form().mnuFT1a(kCustomMasks);
    settle();
    clickOn("pb2", 163, 147);
    const double onceClicked = likeness(shown(form().pb3), cup);
    clickOn("pb2", 199, 167);
    EXPECT_GT(likeness(shown(form().pb3), cup), 0.995);
    EXPECT_LT(onceClicked, 0.99) << "the finer stripes of the overtone are left";
}

TEST_F(Lessons, TheConvolutionPutsAFishOnEveryPointOfTheLattice) {
    setUp("11-convolution.ftscr");
    form().mnuImg1a(kConvolution);
    const Greys fish = delivered("fish.bmp");
    const auto shoal = [&](int x, int y) {
        double sum = 0;
        for (int row = 0; row < 8; ++row)
            for (int i = 0; i < 8; ++i)
                sum += fish(x - 32 * i - 16 * row, y - 32 * row);
        return sum;
    };
    EXPECT_GT(likeness(shown(form().pb3), shoal), 0.9999);
}

TEST_F(Lessons, TheBlurredCupComesOutRolledByHalfAPanelAndIsRolledBack) {
    const Greys blurred = delivered("cup-blurred.bmp");
    setUp("11-convolution-blur.ftscr");
    const Greys rolled = [&](int x, int y) { return blurred(x + kSide / 2, y + kSide / 2); };
    EXPECT_GT(likeness(shown(form().pb3), rolled), 0.999);
    form().mnuNew1a(kHalfShift);
    EXPECT_GT(likeness(shown(form().pb3), blurred), 0.999);
}

TEST_F(Lessons, TheQuotientMakesOnePictureOfTwo) {
    setUp("12-deconvolution.ftscr");
    const Greys cup = delivered("cup.bmp");
    EXPECT_LT(likeness(shown(form().pb3), cup), 0.95);
    EXPECT_GT(likeness(shown(form().pb6), cup), 0.999);
}

TEST_F(Lessons, TheQuotientByABlurringSpotDrownsAndALowPassSavesIt) {
    const Greys cup = delivered("cup.bmp");
    const Greys rolled = [&](int x, int y) { return cup(x + kSide / 2, y + kSide / 2); };
    setUp("12-deconvolution-breaks.ftscr");
    EXPECT_LT(std::abs(likeness(shown(form().pb6), rolled)), 0.05);
    setUp("12-deconvolution-low-pass.ftscr");
    form().mnuNew2a(kHalfShift);
    const double saved = likeness(shown(form().pb6), cup);
    const double blurred = likeness(delivered("cup-blurred.bmp"), cup);
    EXPECT_GT(saved, blurred + 0.01) << "sharper than what it was made of: " << blurred;
}

TEST_F(Lessons, ADivisorWithExactZerosIsRefused) {
    const QString path = home.filePath(QStringLiteral("zero.ftscr"));
    std::ofstream(path.toStdString()) << "LOAD1 cup-twice.bmp\r\nBOTTOM\r\n"
                                         "LOAD1 lattice-rectangular.bmp\r\nDECONVOLVE2\r\n";
    recording.dialogs.messages.clear();
    form().ReadScript(toLabPath(path));
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(recording.dialogs.messages[0].text,
              "Error in Read Script: [DECONVOLVE2]Division by zero");
    EXPECT_GT(likeness(shown(form().pb6), delivered("lattice-rectangular.bmp")), 0.9999);
}

TEST_F(Lessons, AMovedLetterKeepsItsMagnitudes) {
    setUp("13-symmetry-shift-rotation.ftscr");
    const ComplexGrid before = channel(Channel::One).spectrum();
    constexpr Integer kRight = 39;
    form().KeyDown(kRight, 1);
    form().KeyUp(kRight, 1);
    const ComplexGrid& after = channel(Channel::One).spectrum();
    double changed = 0;
    for (int u = 0; u < kSide; ++u)
        for (int v = 0; v < kSide; ++v) {
            const auto& one = before.at(u, v);
            const auto& other = after.at(u, v);
            // The rounding of a transform of greys up to 255, in single precision.
            EXPECT_NEAR(std::hypot(one.re, one.im), std::hypot(other.re, other.im), 10);
            changed = std::max(changed, std::hypot(double{one.re} - double{other.re},
                                                   double{one.im} - double{other.im}));
        }
    EXPECT_GT(changed, 1e4) << "the phases must have turned";
}

TEST_F(Lessons, AnEvenPictureHasARealSpectrumAndAnOddOneAnImaginarySpectrum) {
    setUp("14-real-and-imaginary.ftscr");
    const ComplexGrid& even = channel(Channel::One).spectrum();
    const ComplexGrid& odd = channel(Channel::Two).spectrum();
    double largestReal = 0, largestImaginary = 0;
    for (int u = 0; u < kSide; ++u)
        for (int v = 0; v < kSide; ++v) {
            EXPECT_NEAR(even.at(u, v).im, 0, 2);
            largestReal = std::max(largestReal, std::abs(double{even.at(u, v).re}));
            const bool isMean = u == 0 && v == 0;
            EXPECT_NEAR(isMean ? 0 : odd.at(u, v).re, 0, 2);
            largestImaginary = std::max(largestImaginary, std::abs(double{odd.at(u, v).im}));
        }
    EXPECT_GT(largestReal, 4e4);
    EXPECT_GT(largestImaginary, 2e4);
}

TEST_F(Lessons, TheSineHasItsGreenSpotOnTheRight) {
    setUp("14-real-and-imaginary-waves.ftscr");
    EXPECT_NEAR(channel(Channel::One).spectrum().at(8, 0).re, 3282671, 10);
    EXPECT_NEAR(channel(Channel::Two).spectrum().at(8, 0).im, 3282671, 10);
    EXPECT_NEAR(channel(Channel::Two).spectrum().at(248, 0).im, -3282671, 10);
}

TEST_F(Lessons, EveryFourthPixelIsEnoughForTheCupButNotForTheRings) {
    setUp("15-sampling.ftscr");
    EXPECT_GT(likeness(shown(form().pb3), delivered("cup-blurred.bmp")), 0.98);
    const Greys rings = shown(form().pb6);
    EXPECT_LT(likeness(rings, delivered("rings.bmp")), 0.3);
    // The false rings 75 pixels right of the middle look like those below it.
    double same = 0, size = 0;
    for (int y = -20; y <= 20; ++y)
        for (int x = -20; x <= 20; ++x) {
            same += std::abs(rings(128 + 75 + x, 128 + y) - rings(128 + x, 128 + 75 + y));
            size += std::abs(rings(128 + 75 + x, 128 + y) - 128);
        }
    EXPECT_LT(same, size / 2);
}

TEST_F(Lessons, TheKnownWavesReadAsTheLessonSays) {
    setUp("16-numbers.ftscr");
    EXPECT_EQ(channel(Channel::One).getVXY(128, 128), " M= 8388608.0");
    EXPECT_EQ(channel(Channel::One).getVXY(138, 128), " M= 1965488.5");
    EXPECT_EQ(channel(Channel::One).getVXY(128, 148), " M= 983102.0");
    form().itmOpt(kViewPhases);
    EXPECT_EQ(channel(Channel::One).getVXY(128, 148), " Ph= 90.0");
    const std::string cosine = channel(Channel::One).getVXY(138, 128);
    EXPECT_TRUE(cosine == " Ph= 0.0" || cosine == " Ph= 360.0") << cosine;
}

}  // namespace
}  // namespace quillon
