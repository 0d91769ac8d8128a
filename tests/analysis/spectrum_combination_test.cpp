#include "analysis/spectrum_combination.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/ExchangeArray.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/error_of.h"
#include "tests/support/slow_edits.h"
#include "tests/support/spectra.h"

namespace quillon {
namespace {

using slow::differingCells;
using slow::Spectrum;

class Combination : public testing::Test {
protected:
    Combination() { showBoth(); }

    void showBoth() {
        one.show(scene);
        two.show(noise(8));
        one.channel.CalculateAll();
        two.channel.CalculateAll();
        one.log.clear();
        two.log.clear();
    }
    void set(ChannelUnderTest& lab, const Spectrum& f) {
        lab.channel.SetFTArray(slow::toExchangeArray(f));
        lab.log.clear();
    }
    void convolve(Integer target) { ConvolveSpectra(one.channel, two.channel, 256, 256, target); }
    void deconvolve(Integer target) {
        DeconvolveSpectra(one.channel, two.channel, 256, 256, target);
    }
    const Spectrum& f1() const { return one.channel.spectrum(); }
    const Spectrum& f2() const { return two.channel.spectrum(); }

    ChannelUnderTest one;
    ChannelUnderTest two;
};

TEST_F(Combination, GoesIntoChannelOneBelowFourAndElseIntoChannelTwo) {
    for (const Integer target : {Integer{-1}, Integer{1}, Integer{3}, Integer{4}, Integer{7}}) {
        showBoth();
        const Spectrum a = f1();
        const Spectrum b = f2();
        const Spectrum product = slow::convolve(a, b);
        convolve(target);
        EXPECT_EQ(differingCells(f1(), target < 4 ? product : a), 0) << target;
        EXPECT_EQ(differingCells(f2(), target < 4 ? b : product), 0) << target;
        showBoth();
        deconvolve(target);
        EXPECT_EQ(differingCells(f1(), target < 4 ? slow::deconvolveIntoChannel1(a, b) : a), 0);
        EXPECT_EQ(differingCells(f2(), target < 4 ? b : slow::deconvolveIntoChannel2(a, b)), 0);
    }
}

TEST_F(Combination, IsThePlainLoopOnSpectraOfEveryKind) {
    constexpr std::uint32_t kSeed = 2201;
    const Spectrum other = randomSpectrum(256, 256, kSeed);
    int finished = 0;
    for (const NamedSpectrum& start : spectraToRender(kSeed))
        for (const bool first : {true, false})
            for (const Integer target : {Integer{1}, Integer{4}})
                for (const bool product : {true, false}) {
                    const Spectrum& a = first ? start.cells : other;
                    const Spectrum& b = first ? other : start.cells;
                    set(one, a);
                    set(two, b);
                    const auto run = [&] { product ? convolve(target) : deconvolve(target); };
                    if (errorOf(run) != ErrorNumber{})
                        continue;
                    ++finished;
                    const Spectrum expected = product       ? slow::convolve(a, b)
                                              : target == 1 ? slow::deconvolveIntoChannel1(a, b)
                                                            : slow::deconvolveIntoChannel2(a, b);
                    EXPECT_EQ(differingCells(target == 1 ? f1() : f2(), expected), 0)
                        << start.name << " target " << target << " product " << product;
                }
    EXPECT_GT(finished, 40);
}

TEST_F(Combination, ConvolvesAboutTheTopLeftPixel) {
    // A single point of brightness 2 moves the picture to where it stands.
    two.show([](int x, int y) { return x == 3 && y == 5 ? 2 : 0; });
    two.channel.CalculateAll();
    convolve(1);
    for (int x = 0; x < 256; ++x)
        for (int y = 0; y < 256; ++y)
            ASSERT_NEAR(one.channel.reconstruction()(x, y).re,
                        2 * scene((x + 253) % 256, (y + 251) % 256), 0.01)
                << x << ", " << y;
}

TEST_F(Combination, ComputesAgainFromTheChangedTarget) {
    const Spectrum twice = slow::convolve(slow::convolve(f1(), f2()), f2());
    convolve(1);
    convolve(1);
    EXPECT_EQ(differingCells(f1(), twice), 0);
}

TEST_F(Combination, TakesSpectraAsTheyWereEdited) {
    const Spectrum expected = slow::convolve(slow::discardPhases(f1()), f2());
    one.channel.DiscardPhases();
    convolve(4);
    EXPECT_EQ(differingCells(f2(), expected), 0);
}

TEST_F(Combination, FiltersOnlyTheReconstructionOfTheTarget) {
    const Spectrum expected = slow::convolve(f1(), f2());
    convolve(1);
    const Bitmap unfiltered = one.pb3.Image();
    showBoth();
    // A filter of the other channel has no effect.
    two.channel.SetFilterFT(2);
    two.channel.SetFilterRad(3);
    convolve(1);
    EXPECT_TRUE(one.pb3.Image() == unfiltered);
    showBoth();
    one.channel.SetFilterFT(2);
    one.channel.SetFilterRad(3);
    convolve(1);
    EXPECT_EQ(differingCells(f1(), expected), 0);
    EXPECT_FALSE(one.pb3.Image() == unfiltered);
}

TEST_F(Combination, LeavesTheImageAndTheOtherChannelsPanels) {
    const Bitmap image = one.pb1.Image();
    const Bitmap spectrum = two.pb2.Image();
    convolve(1);
    EXPECT_TRUE(one.pb1.Image() == image);
    EXPECT_TRUE(two.pb2.Image() == spectrum);
    EXPECT_TRUE(two.log.empty());
    EXPECT_EQ(one.count("showNow pb2"), 1);
    EXPECT_EQ(one.count("showNow pb3"), 1);
}

TEST_F(Combination, AsksForNoImage) {
    one.pb1.Tag = "";
    two.pb1.Tag = "";
    const Spectrum expected = slow::convolve(f1(), f2());
    convolve(4);
    EXPECT_EQ(differingCells(f2(), expected), 0);
    EXPECT_EQ(two.pb1.Tag, "!") << "a reconstruction marks its channel";
}

TEST_F(Combination, WithAnEmptySpectrumIsEmpty) {
    set(two, Spectrum(256, 256));
    convolve(1);
    EXPECT_EQ(f1()(0, 0).re, 0);
    EXPECT_EQ(f1()(77, 12).im, 0);
}

TEST_F(Combination, DividesASpectrumByItselfToOneInChannelTwoOnly) {
    two.show(scene);
    two.channel.CalculateAll();
    const Spectrum f = randomSpectrum(256, 256, 19);
    for (const bool picture : {true, false}) {
        if (!picture) {
            set(one, f);
            set(two, f);
        }
        deconvolve(4);
        for (Long u = 0; u < 256; ++u)
            for (Long v = 0; v < 256; ++v) {
                ASSERT_NEAR(f2()(u, v).re, 1, 4 * 0x1p-24);
                ASSERT_NEAR(f2()(u, v).im, 0, 4 * 0x1p-24);
            }
    }
    set(two, f);
    deconvolve(1);
    EXPECT_GT(std::hypot(f1()(3, 4).re - 1, f1()(3, 4).im), 0.5);
}

TEST_F(Combination, ReadsTheDenominatorBackwardsForChannelOne) {
    Spectrum a(256, 256);
    Spectrum b(256, 256);
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v) {
            a(u, v) = {65536, 0};
            b(u, v) = {1, 0};
        }
    b(0, 0) = {4, 0};
    b(255, 250) = {0, 2};
    set(one, a);
    set(two, b);
    deconvolve(1);
    EXPECT_EQ(f1()(255, 255).re, 0.25F) << "the zero frequency divides the last cell";
    EXPECT_EQ(f1()(0, 0).re, 1) << "and is itself divided by the last one";
    EXPECT_EQ(f1()(0, 5).re, 0);
    EXPECT_EQ(f1()(0, 5).im, -0.5F);
}

/// A combination that fails leaves the target's spectrum and panels.
class FailingCombination : public Combination {
protected:
    void expectFailure(Integer target, ErrorNumber error, bool product = false) {
        const Spectrum a = f1();
        const Spectrum b = f2();
        const Bitmap panels[] = {one.pb2.Image(), one.pb3.Image(), two.pb2.Image(),
                                 two.pb3.Image()};
        one.log.clear();
        two.log.clear();
        EXPECT_EQ(errorOf([&] { product ? convolve(target) : deconvolve(target); }), error);
        EXPECT_EQ(differingCells(f1(), a), 0);
        EXPECT_EQ(differingCells(f2(), b), 0);
        EXPECT_TRUE(one.pb2.Image() == panels[0] && one.pb3.Image() == panels[1]);
        EXPECT_TRUE(two.pb2.Image() == panels[2] && two.pb3.Image() == panels[3]);
        EXPECT_TRUE(one.log.empty() && two.log.empty());
    }
};

TEST_F(FailingCombination, DividesByAnExactZero) {
    Spectrum b = f2();
    // The last cell that is visited with either target's formula.
    for (const auto& [u, target] : {std::pair(Long{255}, Integer{4}), {Long{0}, Integer{1}}}) {
        Spectrum holed = b;
        holed(u, u) = ComplexCell{};
        set(two, holed);
        expectFailure(target, ErrorNumber::DivisionByZero);
    }
}

TEST_F(FailingCombination, DividesByASquareThatIsTooSmallForChannelOneOnly) {
    Spectrum b = f2();
    b(9, 9) = {1e-30F, 1e-30F};
    set(two, b);
    expectFailure(1, ErrorNumber::DivisionByZero);
    Spectrum a = f1();
    a(9, 9) = {1e-30F, 0};
    set(one, a);
    deconvolve(4);
    EXPECT_FLOAT_EQ(f2()(9, 9).re, 0.5F);
    EXPECT_FLOAT_EQ(f2()(9, 9).im, -0.5F);
}

TEST_F(FailingCombination, OverflowsASingle) {
    Spectrum a = f1();
    a(200, 3) = {1e30F, 1};
    set(one, a);
    Spectrum b = f2();
    b(200, 3) = {1e30F, 1};
    set(two, b);
    for (const Integer target : {Integer{1}, Integer{4}})
        expectFailure(target, ErrorNumber::Overflow, true);
    b(200, 3) = {1e-30F, 0};
    set(two, b);
    expectFailure(4, ErrorNumber::Overflow);
}

}  // namespace
}  // namespace quillon
