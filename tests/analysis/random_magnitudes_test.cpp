#include <gtest/gtest.h>

#include <cmath>

#include "engine/ExchangeArray.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/slow_edits.h"
#include "tests/support/spectra.h"

namespace quillon {
namespace {

using slow::Spectrum;

class RandomMagnitudes : public testing::Test {
protected:
    RandomMagnitudes() {
        lab.show(scene);
        channel.CalculateAll();
    }
    void start(const Spectrum& f) {
        channel.SetFTArray(slow::toExchangeArray(f));
        lab.rnd = Rnd();
    }
    /// Every cell the same.
    static Spectrum flat(Single re, Single im) {
        Spectrum f(256, 256);
        for (Long u = 0; u < 256; ++u)
            for (Long v = 0; v < 256; ++v)
                f(u, v) = {re, im};
        return f;
    }
    /// The length of the first cell after the edit, over the first draw.
    Single rangeSeen() {
        channel.RandomizeMagnitudes();
        const ComplexCell& cell = channel.spectrum()(0, 0);
        return std::hypot(cell.re, cell.im) / Rnd()();
    }

    ChannelUnderTest lab;
    clComplexImage& channel = lab.channel;
};

TEST_F(RandomMagnitudes, SetTheIntensityOfTheSquareRootScaleAndNoOther) {
    for (const Integer scale : {Integer{0}, Integer{1}}) {
        channel.runFOURN(1);
        channel.SetScale(scale);
        const Single linear = channel.linearFactor();
        Rnd rnd;
        lab.rnd = rnd;
        const slow::RandomMagnitudes expected = slow::randomizeMagnitudes(channel.spectrum(), rnd);
        channel.RandomizeMagnitudes();
        EXPECT_EQ(channel.sqrtFactor(), expected.ifacSqrt);
        EXPECT_EQ(channel.linearFactor(), linear);
    }
}

TEST_F(RandomMagnitudes, AreTheOnlyEditThatTouchesAnIntensityFactor) {
    const Single sqrt = channel.sqrtFactor();
    const Single linear = channel.linearFactor();
    channel.DiscardPhases();
    channel.DiscardMagnitudes();
    channel.RandomizePhases();
    ExchangeArray p(256, 256);
    channel.GetFTArray(p);
    channel.SwapPhases(p);
    EXPECT_EQ(channel.sqrtFactor(), sqrt);
    EXPECT_EQ(channel.linearFactor(), linear);
}

TEST_F(RandomMagnitudes, LieBetweenZeroAndTheRangeWhateverTheyWere) {
    Rnd rnd;
    const Single range = slow::randomizeMagnitudes(channel.spectrum(), rnd).range;
    const Single zeroFrequency = channel.spectrum()(0, 0).re;
    channel.RandomizeMagnitudes();
    long upperHalf = 0;
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v) {
            const ComplexCell& cell = channel.spectrum()(u, v);
            const Single m = std::hypot(cell.re, cell.im);
            ASSERT_LE(m, range * (1 + 0x1p-21F));
            upperHalf += m > range / 2 ? 1 : 0;
        }
    EXPECT_NEAR(static_cast<double>(upperHalf) / 65536, 0.5, 0.01);
    // The largest cell of the picture is one of many now.
    EXPECT_LT(channel.spectrum()(0, 0).re, zeroFrequency);
    EXPECT_NEAR(channel.spectrum()(0, 0).re, Rnd()() * range, range * 1e-6F);
}

TEST_F(RandomMagnitudes, TakeTheirRangeFromRealAndImaginaryPartsTogether) {
    Spectrum f = flat(1, 1);
    f(9, 9) = {1, 500};
    f(200, 1) = {-300, 1};
    start(f);
    EXPECT_FLOAT_EQ(rangeSeen(), 400);
    f(9, 9) = {500, 1};
    f(200, 1) = {1, -300};
    start(f);
    EXPECT_FLOAT_EQ(rangeSeen(), 400);
}

TEST_F(RandomMagnitudes, TakeTheirRangeFromZeroUpWhereAllIsNegative) {
    start(flat(-80, -20));
    EXPECT_FLOAT_EQ(rangeSeen(), 40);
}

TEST_F(RandomMagnitudes, TakeTheLeastPartToBe9999999WhereAllIsLarger) {
    start(flat(20000000, 30000000));
    EXPECT_FLOAT_EQ(rangeSeen(), (30000000.0F + 9999999.0F) / 2);
    start(flat(10, 30));
    EXPECT_FLOAT_EQ(rangeSeen(), 20);
}

TEST_F(RandomMagnitudes, CountAZeroInTheMean) {
    // Half of the cells are zeros, which stay and weigh on the mean as they are.
    Spectrum f = flat(100, 0);
    for (Long u = 0; u < 256; u += 2)
        for (Long v = 0; v < 256; ++v)
            f(u, v) = ComplexCell{};
    start(f);
    channel.RandomizeMagnitudes();
    double sum = 0;
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v) {
            const ComplexCell& cell = channel.spectrum()(u, v);
            if (u % 2 == 0) {
                ASSERT_EQ(cell.re, 0);
            }
            sum += std::hypot(cell.re, cell.im);
        }
    constexpr double kRange = 50;
    // The running sum is a Single: up to half a unit in its last place for each cell.
    EXPECT_NEAR(channel.sqrtFactor(), kRange / (sum / 65536) / 4, 0.01);
    EXPECT_NEAR(channel.sqrtFactor(), 1.0, 0.02);
}

}  // namespace
}  // namespace quillon
