#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "engine/RunTimeError.h"
#include "engine/spectrum_passes.h"
#include "tests/support/slow_renderer.h"
#include "tests/support/spectra.h"

namespace quillon {
namespace {

constexpr std::uint32_t kSeed = 20240611;

const slow::Tables& tables() {
    static const slow::Tables made = slow::makeTables();
    return made;
}

/// One of the twenty ways to look at a spectrum. The table in force is none of
/// the others, so that a mix-up shows.
slow::Look lookOf(int combination) {
    slow::Look look;
    look.mView = static_cast<Integer>(combination % 5);
    look.bSqrtScale = combination / 5 % 2 == 0;
    look.invert = combination / 10 == 1;
    look.ifacLinear = 100;
    look.ifacSqrt = 1;
    std::mt19937 random(99);
    for (Long& word : look.lutActive)
        word = static_cast<Long>(random() & 0xFFFFFF);
    return look;
}

constexpr int kCombinations = 20;

std::string nameOf(const slow::Look& look) {
    return "view " + std::to_string(look.mView) + (look.bSqrtScale ? ", sqrt" : ", linear") +
           (look.invert ? ", inverted" : "");
}

SpectrumLook asLook(const slow::Look& look) {
    return {.view = look.mView,
            .scale = look.bSqrtScale ? Scale::SquareRoot : Scale::Linear,
            .linearFactor = look.ifacLinear,
            .sqrtFactor = look.ifacSqrt,
            .inversion = look.invert ? Inversion::On : Inversion::Off,
            .lutActive = look.lutActive,
            .lutHue = tables().hue,
            .lutRe = tables().re,
            .lutIm = tables().im};
}

/// The passes as DrawFT runs them, told in the slow renderer's terms. They are the
/// same ones for all pictures, so that what they keep of one is met by the next.
slow::Drawing drawFast(const ComplexGrid& data, Long w, Long h, const slow::Look& look) {
    static SpectrumPasses passes;
    slow::Drawing drawing;
    SpectrumIndex ftIndex;
    ftIndex.allocate(w, h);
    const auto count = static_cast<std::size_t>(w) * static_cast<std::size_t>(h);
    // What stood there before shows nowhere.
    drawing.pix.assign(count, 0x123456);
    std::vector<std::uint8_t> levels(count, 77);
    try {
        if (passes.measure(data, w, h, asLook(look))) {
            passes.paint(asLook(look), ftIndex, drawing.pix);
            passes.paintLevels(asLook(look), levels);
            drawing.relief.assign(levels.begin(), levels.end());
            drawing.drawn = true;
        }
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::Overflow);
        drawing.overflow = true;
    }
    drawing.ftIndex.allocate(w, h);
    for (Long x = 0; x <= w; ++x)
        for (Long y = 0; y <= h; ++y)
            drawing.ftIndex(x, y) = ftIndex(x, y);
    return drawing;
}

RealRange rangeOf(const ComplexGrid& data, Long w, Long h) {
    RealRange range;
    for (Long y = 0; y < h; ++y)
        for (Long x = 0; x < w; ++x) {
            range.rmin = std::min(range.rmin, data(x, y).re);
            range.rmax = std::max(range.rmax, data(x, y).re);
        }
    return range;
}

/// A reconstruction as DrawFT draws it.
slow::Drawing reconstructionFast(const ComplexGrid& data, Long w, Long h, const slow::Look& look) {
    slow::Drawing drawing;
    const RealRange range = rangeOf(data, w, h);
    drawing.drawn = showsReconstruction(range, look.mView);
    if (!drawing.drawn)
        return drawing;
    std::vector<PixelWord> words(static_cast<std::size_t>(w * h));
    try {
        paintReconstruction(data, w, h, range, look.invert ? Inversion::On : Inversion::Off, words);
        drawing.pix = words;
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::Overflow);
        drawing.overflow = true;
        drawing.drawn = false;
    }
    return drawing;
}

/// Where two pictures differ first, or nothing.
std::string firstDifference(const std::vector<Long>& a, const std::vector<Long>& b, Long w) {
    const auto [left, right] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    if (left == a.end() && right == b.end())
        return "";
    const auto at = static_cast<Long>(left - a.begin());
    return "at (" + std::to_string(at % w) + ", " + std::to_string(at / w) + ")";
}

std::string firstDifference(const Grid<FtIndexCell>& a, const Grid<FtIndexCell>& b) {
    for (Long y = 0; y <= a.yBound(); ++y)
        for (Long x = 0; x <= a.xBound(); ++x)
            if (a(x, y).u != b(x, y).u || a(x, y).v != b(x, y).v)
                return "at (" + std::to_string(x) + ", " + std::to_string(y) + ")";
    return "";
}

void expectSameSpectrum(const ComplexGrid& data, Long w, Long h, const slow::Look& look) {
    const slow::Drawing expected = slow::drawSpectrum(data, w, h, look, tables());
    const slow::Drawing found = drawFast(data, w, h, look);
    ASSERT_EQ(found.drawn, expected.drawn);
    ASSERT_EQ(found.overflow, expected.overflow);
    EXPECT_EQ(firstDifference(found.ftIndex, expected.ftIndex), "");
    if (!expected.drawn)
        return;
    EXPECT_EQ(firstDifference(found.pix, expected.pix, w), "");
    EXPECT_EQ(found.relief, expected.relief);
}

class EveryLook : public testing::TestWithParam<int> {};

TEST_P(EveryLook, OfASpectrumIsThatOfTheSlowRenderer) {
    for (const NamedSpectrum& spectrum : spectraToRender(kSeed)) {
        slow::Look look = lookOf(GetParam());
        for (const Single factor : {1.0F, 0.05F, 7.77F}) {
            look.ifacSqrt = factor;
            look.ifacLinear = factor * 100.0F;
            SCOPED_TRACE(nameOf(look) + ": " + spectrum.name);
            expectSameSpectrum(spectrum.cells, 256, 256, look);
        }
    }
}

TEST_P(EveryLook, OfAnotherSizeIsThatOfTheSlowRenderer) {
    const slow::Look look = lookOf(GetParam());
    for (const auto& [w, h] : {std::pair{1, 1}, {2, 2}, {8, 4}, {5, 7}, {64, 64}}) {
        SCOPED_TRACE(nameOf(look) + ": " + std::to_string(w) + " by " + std::to_string(h));
        expectSameSpectrum(randomSpectrum(w, h, kSeed), w, h, look);
    }
}

TEST_P(EveryLook, OverflowsWhereAFactorIsTooLargeAndNotesTheCellsBefore) {
    slow::Look look = lookOf(GetParam());
    const ComplexGrid data = randomSpectrum(256, 256, kSeed);
    // From all cells too large to only the few strongest.
    for (const Single factor : {3e38F, 2e37F, 1.7e37F, 1.7e36F, 1.4e36F, 7.5e34F}) {
        look.ifacSqrt = factor;
        look.ifacLinear = factor;
        SCOPED_TRACE(nameOf(look) + ", factor " + std::to_string(factor));
        expectSameSpectrum(data, 256, 256, look);
    }
    look.ifacSqrt = look.ifacLinear = 3e38F;
    EXPECT_TRUE(drawFast(data, 256, 256, look).overflow);
}

TEST_P(EveryLook, OfAReconstructionIsThatOfTheSlowRenderer) {
    slow::Look look = lookOf(GetParam());
    for (NamedSpectrum& plane : spectraToRender(kSeed)) {
        SCOPED_TRACE(nameOf(look) + ": " + plane.name);
        if (plane.name == "infinite" || plane.name.starts_with("not a number"))
            continue;
        // A reconstruction has no imaginary parts.
        for (Long y = 0; y < 256; ++y)
            for (Long x = 0; x < 256; ++x)
                plane.cells(x, y).im = 0;
        const slow::Drawing expected = slow::drawReconstruction(plane.cells, 256, 256, look);
        const slow::Drawing found = reconstructionFast(plane.cells, 256, 256, look);
        ASSERT_EQ(found.overflow, expected.overflow);
        ASSERT_EQ(found.drawn, expected.drawn);
        if (expected.drawn) {
            EXPECT_EQ(firstDifference(found.pix, expected.pix, 256), "");
        }
    }
}

TEST_P(EveryLook, OfAReconstructionOfAnotherSizeIsThatOfTheSlowRenderer) {
    const slow::Look look = lookOf(GetParam());
    for (const auto& [w, h] : {std::pair{1, 1}, {2, 2}, {8, 4}, {5, 7}, {31, 3}, {64, 64}}) {
        SCOPED_TRACE(nameOf(look) + ": " + std::to_string(w) + " by " + std::to_string(h));
        ComplexGrid data = randomSpectrum(w, h, kSeed);
        for (Long x = 0; x < w; ++x)
            for (Long y = 0; y < h; ++y)
                data(x, y).im = 0;
        const slow::Drawing expected = slow::drawReconstruction(data, w, h, look);
        const slow::Drawing found = reconstructionFast(data, w, h, look);
        ASSERT_EQ(found.drawn, expected.drawn);
        if (expected.drawn) {
            EXPECT_EQ(firstDifference(found.pix, expected.pix, w), "");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ViewsScalesInversions, EveryLook, testing::Range(0, kCombinations));

TEST(SpectrumPasses, AViewThatDoesNotExistShowsNothing) {
    const ComplexGrid data = randomSpectrum(256, 256, kSeed);
    for (const int view : {-1, 5, 99}) {
        slow::Look look = lookOf(0);
        look.mView = static_cast<Integer>(view);
        EXPECT_FALSE(SpectrumPasses().measure(data, 256, 256, asLook(look)));
        EXPECT_FALSE(slow::drawSpectrum(data, 256, 256, look, tables()).drawn);
        EXPECT_FALSE(reconstructionFast(data, 256, 256, look).drawn);
    }
}

TEST(SpectrumPasses, CellsThatDoNotExistAreASubscriptError) {
    const ComplexGrid data = randomSpectrum(16, 16, kSeed);
    const slow::Look look = lookOf(0);
    SpectrumPasses passes;
    EXPECT_THROW(passes.measure(data, 64, 64, asLook(look)), RunTimeError);
    std::vector<PixelWord> words(64 * 64, 7);
    EXPECT_THROW(paintReconstruction(data, 64, 64, {-1, 1}, Inversion::Off, words), RunTimeError);
    EXPECT_EQ(words, std::vector<PixelWord>(64 * 64, 7)) << "nothing is written";
    ASSERT_TRUE(passes.measure(data, 16, 16, asLook(look)));
    SpectrumIndex unallocated;
    EXPECT_THROW(passes.paint(asLook(look), unallocated, words), RunTimeError);
}

TEST(SpectrumPasses, AWrittenCellIsMeasuredAnew) {
    ComplexGrid data = randomSpectrum(256, 256, kSeed);
    for (int combination = 0; combination < kCombinations; ++combination) {
        const slow::Look look = lookOf(combination);
        SCOPED_TRACE(nameOf(look));
        expectSameSpectrum(data, 256, 256, look);
        data(3, 5) = {1e6F, -2e6F};
        expectSameSpectrum(data, 256, 256, look);
        data.at(200, 100) = {3e6F, 4e6F};
        expectSameSpectrum(data, 256, 256, look);
        data.realPlane()[7] = 5e6F;
        expectSameSpectrum(data, 256, 256, look);
        data.imaginaryPlane()[9] = 6e6F;
        expectSameSpectrum(data, 256, 256, look);
        data = randomSpectrum(256, 256, kSeed + static_cast<std::uint32_t>(combination));
        expectSameSpectrum(data, 256, 256, look);
    }
}

TEST(SpectrumPasses, AFailedMeasuringIsNotKept) {
    ComplexGrid data = randomSpectrum(16, 16, kSeed);
    data(1, 1).re = std::numeric_limits<Single>::infinity();
    SpectrumPasses passes;
    EXPECT_THROW(passes.measure(data, 16, 16, asLook(lookOf(0))), RunTimeError);
    EXPECT_THROW(passes.measure(data, 16, 16, asLook(lookOf(0))), RunTimeError);
    EXPECT_TRUE(passes.measure(data, 16, 16, asLook(lookOf(4)))) << "its imaginary parts are sound";
}

TEST(SpectrumPasses, AnOverflowingFactorWritesNoWord) {
    const ComplexGrid data = randomSpectrum(16, 16, kSeed);
    slow::Look look = lookOf(0);
    look.ifacSqrt = 3e38F;
    SpectrumPasses passes;
    ASSERT_TRUE(passes.measure(data, 16, 16, asLook(look)));
    SpectrumIndex ftIndex;
    ftIndex.allocate(16, 16);
    std::vector<PixelWord> words(256, 0x123456);
    EXPECT_THROW(passes.paint(asLook(look), ftIndex, words), RunTimeError);
    EXPECT_EQ(words, std::vector<PixelWord>(256, 0x123456));
}

TEST(SpectrumPasses, TheQuadrantsChangePlacesWithTheZeroFrequencyUpAndLeftOfTheMiddle) {
    const ComplexGrid data = randomSpectrum(256, 256, kSeed);
    const slow::Drawing drawing = drawFast(data, 256, 256, lookOf(0));
    const auto shownAt = [&](Long x, Long y) {
        return std::pair(drawing.ftIndex(x, y).u, drawing.ftIndex(x, y).v);
    };
    using Cell = std::pair<Integer, Integer>;
    EXPECT_EQ(shownAt(127, 127), Cell(0, 0));
    EXPECT_EQ(shownAt(0, 0), Cell(129, 129));
    EXPECT_EQ(shownAt(255, 255), Cell(128, 128));
    EXPECT_EQ(shownAt(126, 128), Cell(255, 1));
    EXPECT_EQ(shownAt(255, 0), Cell(128, 129));
    EXPECT_EQ(shownAt(256, 256), Cell(0, 0)) << "the last row and column stay zero";
}

/// A spectrum of one strong cell and one other, and the level of the other.
Integer levelBeside(Single strong, Single other, const slow::Look& look) {
    ComplexGrid data(256, 256);
    data(0, 0).re = strong;
    data(1, 0).re = other;
    return drawFast(data, 256, 256, look).relief[127 * 256 + 128];
}

TEST(SpectrumLevels, InTheLinearScaleWithFactor100AllAboveAHundredthOfTheLargestAreFull) {
    slow::Look look = lookOf(0);
    look.bSqrtScale = false;
    EXPECT_EQ(levelBeside(1000.0F, 10.01F, look), 255);
    EXPECT_EQ(levelBeside(1000.0F, 10.0F, look), 255);
    EXPECT_EQ(levelBeside(1000.0F, 9.9F, look), 252);
    EXPECT_EQ(levelBeside(1000.0F, 0.0F, look), 0);
}

TEST(SpectrumLevels, InTheSquareRootScaleAWeakCellIsBlackRatherThanLifted) {
    slow::Look look = lookOf(0);
    look.ifacSqrt = 50;
    // The divisor is the root of the largest value: 1000. A value of 3.9 gives
    // 0.99 of a level, one of 4 gives 1.02 and its root.
    EXPECT_EQ(levelBeside(1e6F, 3.9F, look), 0);
    EXPECT_EQ(levelBeside(1e6F, 4.0F, look), 50);
}

TEST(SpectrumLevels, InTheSquareRootScaleAQuotientOfExactlyOneIsNotYetBlack) {
    slow::Look look = lookOf(0);
    look.ifacSqrt = 50;
    EXPECT_EQ(levelBeside(65025.0F, 1.0F, look), 50);
    EXPECT_EQ(levelBeside(65025.0F, 0.9999F, look), 0);
}

TEST(SpectrumLevels, HalvesGoToTheEvenLevel) {
    slow::Look look = lookOf(0);
    look.bSqrtScale = false;
    look.ifacLinear = 1;
    EXPECT_EQ(levelBeside(255.0F, 2.5F, look), 2);
    EXPECT_EQ(levelBeside(255.0F, 3.5F, look), 4);
}

TEST(SpectrumLevels, ThePhaseViewTakesTheLinearFactorAlsoInTheSquareRootScale) {
    slow::Look look = lookOf(2);
    look.bSqrtScale = true;
    look.ifacLinear = 0.01F;
    look.ifacSqrt = 1000;
    ComplexGrid data(256, 256);
    data(0, 0) = {-1, 0};
    data(1, 0) = {0, 1};
    const std::vector<Integer> levels = drawFast(data, 256, 256, look).relief;
    // 180 degrees over the root of 180, by 255, by 0.01.
    EXPECT_EQ(levels[127 * 256 + 127], 34);
    EXPECT_EQ(levels[127 * 256 + 128], 17);
}

TEST(SpectrumColours, InvertedARealPartOfZeroIsWhiteInItsView) {
    slow::Look look = lookOf(3);
    look.bSqrtScale = false;
    look.invert = true;
    ComplexGrid data(256, 256);
    data(0, 0).re = 5;
    data(1, 0).re = -5;
    const std::vector<Long> pix = drawFast(data, 256, 256, look).pix;
    EXPECT_EQ(pix[10], tables().re[510]);
    EXPECT_EQ(pix[127 * 256 + 127], tables().re[255]);
    EXPECT_EQ(pix[127 * 256 + 128], tables().re[255]);
}

TEST(SpectrumColours, PhasesKeepTheirColourWhenInverted) {
    const ComplexGrid data = randomSpectrum(256, 256, kSeed);
    slow::Look look = lookOf(2);
    const std::vector<Long> plain = drawFast(data, 256, 256, look).pix;
    look.invert = true;
    EXPECT_EQ(drawFast(data, 256, 256, look).pix, plain);
}

}  // namespace
}  // namespace quillon
