#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "engine/ExchangeArray.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/error_of.h"
#include "tests/support/slow_edits.h"
#include "tests/support/spectra.h"

namespace quillon {
namespace {

using slow::differingCells;
using slow::Spectrum;

/// Edits that end at a cell: what came before it is changed, what comes behind
/// is not, and nothing is drawn.
class SpectrumEditErrors : public testing::Test {
protected:
    void start(const Spectrum& f) {
        channel.SetFTArray(slow::toExchangeArray(f));
        lab.pb1.Tag = "!";
        lab.rnd = Rnd();
        lab.log.clear();
    }

    /// The cells before (u, v) are those of `after`, it and the rest those of `before`.
    void expectSplitAt(Long u, Long v, const Spectrum& before, const Spectrum& after) {
        Spectrum expected = before;
        for (Long x = 0; x <= u; ++x)
            for (Long y = 0; y < (x == u ? v : 256); ++y)
                expected(x, y) = after(x, y);
        EXPECT_GT(differingCells(expected, before), 0);
        EXPECT_EQ(differingCells(channel.spectrum(), expected), 0);
        EXPECT_TRUE(lab.log.empty()) << lab.log.front();
    }

    ChannelUnderTest lab;
    clComplexImage& channel = lab.channel;
};

TEST_F(SpectrumEditErrors, ADrawOfNoDirectionDividesByZero) {
    const Spectrum before = randomSpectrum(256, 256, 41);
    start(before);
    Rnd rnd;
    // Both draws of the fourth cell from here on are exactly a half.
    constexpr std::uint64_t kSixBefore = 0x33AA1F87D36F551FU;
    rnd = Rnd(kSixBefore);
    lab.rnd = Rnd(kSixBefore);
    const Spectrum after = slow::randomizePhases(before, rnd);
    EXPECT_EQ(errorOf([&] { channel.RandomizePhases(); }), ErrorNumber::DivisionByZero);
    expectSplitAt(0, 3, before, after);
}

TEST_F(SpectrumEditErrors, APhaseOfNothingDividesByZero) {
    const Spectrum own = randomSpectrum(256, 256, 42);
    Spectrum other = randomSpectrum(256, 256, 43);
    const Spectrum after = slow::swapPhases(own, other);
    other(2, 7) = ComplexCell{};
    start(own);
    EXPECT_EQ(errorOf([&] { channel.SwapPhases(slow::toExchangeArray(other)); }),
              ErrorNumber::DivisionByZero);
    expectSplitAt(2, 7, own, after);
}

TEST_F(SpectrumEditErrors, AnEmptyOtherSpectrumFailsAtTheFirstCell) {
    const Spectrum own = randomSpectrum(256, 256, 44);
    start(own);
    EXPECT_EQ(errorOf([&] { channel.SwapPhases(ExchangeArray(256, 256)); }),
              ErrorNumber::DivisionByZero);
    EXPECT_EQ(differingCells(channel.spectrum(), own), 0);
    EXPECT_TRUE(lab.log.empty());
}

TEST_F(SpectrumEditErrors, RandomMagnitudesOfNothingHaveNoMean) {
    lab.show(scene);
    channel.CalculateAll();
    const Single factor = channel.sqrtFactor();
    start(Spectrum(256, 256));
    lab.log.clear();
    EXPECT_EQ(errorOf([&] { channel.RandomizeMagnitudes(); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(channel.sqrtFactor(), factor);
    EXPECT_TRUE(lab.log.empty());
}

TEST_F(SpectrumEditErrors, AMagnitudeThatNoSingleHoldsOverflows) {
    Spectrum f = randomSpectrum(256, 256, 45);
    f(0, 5) = {3e38F, 3e38F};
    start(f);
    EXPECT_EQ(errorOf([&] { channel.DiscardPhases(); }), ErrorNumber::Overflow);
    expectSplitAt(0, 5, f, slow::discardPhases(f));
}

TEST_F(SpectrumEditErrors, EveryEditEndsAtAMagnitudeThatNoSingleHolds) {
    Spectrum f = randomSpectrum(256, 256, 48);
    f(1, 2) = {-3e38F, 3e38F};
    const Spectrum other = randomSpectrum(256, 256, 49);
    start(f);
    EXPECT_EQ(errorOf([&] { channel.DiscardMagnitudes(); }), ErrorNumber::Overflow);
    expectSplitAt(1, 2, f, slow::discardMagnitudes(f));
    Rnd rnd;
    start(f);
    EXPECT_EQ(errorOf([&] { channel.RandomizePhases(); }), ErrorNumber::Overflow);
    expectSplitAt(1, 2, f, slow::randomizePhases(f, rnd));
    start(f);
    EXPECT_EQ(errorOf([&] { channel.SwapPhases(slow::toExchangeArray(other)); }),
              ErrorNumber::Overflow);
    expectSplitAt(1, 2, f, slow::swapPhases(f, other));
}

TEST_F(SpectrumEditErrors, AFactorThatNoSingleHoldsEndsRandomMagnitudesBeforeTheIntensity) {
    // The range of this spectrum is large and one of its magnitudes very small.
    Spectrum f(256, 256);
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v)
            f(u, v) = {1e30F, -1e30F};
    f(7, 9) = {1e-30F, 0};
    start(f);
    const Single factor = channel.sqrtFactor();
    Rnd rnd;
    const Spectrum after = slow::randomizeMagnitudes(f, rnd).spectrum;
    EXPECT_EQ(errorOf([&] { channel.RandomizeMagnitudes(); }), ErrorNumber::Overflow);
    expectSplitAt(7, 9, f, after);
    EXPECT_EQ(channel.sqrtFactor(), factor);
}

TEST_F(SpectrumEditErrors, ASumThatNoSingleHoldsEndsRandomMagnitudesAtTheCellThatTipsIt) {
    Spectrum f(256, 256);
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v)
            f(u, v) = {2e38F, -2e38F};
    // The first draws alone decide where the sum passes the greatest Single.
    Rnd rnd;
    Double sum = 0;
    Long v = -1;
    while (sum <= std::numeric_limits<Single>::max()) {
        sum += rnd() * 2e38;
        ++v;
    }
    ASSERT_LT(v, 256);
    start(f);
    rnd = Rnd();
    const Spectrum after = slow::randomizeMagnitudes(f, rnd).spectrum;
    EXPECT_EQ(errorOf([&] { channel.RandomizeMagnitudes(); }), ErrorNumber::Overflow);
    expectSplitAt(0, v, f, after);
}

TEST_F(SpectrumEditErrors, ASmallArrayEndsAtTheFirstCellItLacks) {
    const Spectrum own = randomSpectrum(256, 256, 46);
    const Spectrum other = randomSpectrum(256, 256, 47);
    const auto cut = [](const Spectrum& f, Long w, Long h) {
        ExchangeArray p(w, h);
        for (Long u = 0; u <= w; ++u)
            for (Long v = 0; v <= h; ++v) {
                p(u, v, 0) = f(u, v).re;
                p(u, v, 1) = f(u, v).im;
            }
        return p;
    };
    start(own);
    EXPECT_EQ(errorOf([&] { channel.SwapPhases(cut(other, 256, 100)); }),
              ErrorNumber::SubscriptOutOfRange);
    expectSplitAt(0, 101, own, slow::swapPhases(own, other));
    start(own);
    EXPECT_EQ(errorOf([&] { channel.SetFTArray(cut(other, 254, 256)); }),
              ErrorNumber::SubscriptOutOfRange);
    expectSplitAt(255, 0, own, other);
    start(own);
    ExchangeArray p(256, 3);
    EXPECT_EQ(errorOf([&] { channel.GetFTArray(p); }), ErrorNumber::SubscriptOutOfRange);
    for (Long v = 0; v <= 3; ++v)
        EXPECT_EQ(p(0, v, 0), own(0, v).re);
    EXPECT_EQ(p(1, 0, 0), 0);
    // An array without the unused row and column is large enough.
    EXPECT_EQ(errorOf([&] { channel.SetFTArray(cut(other, 255, 255)); }), ErrorNumber{});
}

}  // namespace
}  // namespace quillon
