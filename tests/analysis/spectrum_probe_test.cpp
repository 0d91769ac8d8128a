#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "engine/NumberText.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

class SpectrumProbe : public ::testing::Test, protected ChannelUnderTest {
protected:
    void transform(const std::function<int(int, int)>& picture) {
        show(picture);
        channel.runFOURN(1);
    }
};

TEST_F(SpectrumProbe, TheZeroFrequencyIsReadInTheMiddle) {
    transform([](int, int) { return 7; });
    EXPECT_EQ(channel.getVXY(128, 128), " M= 458752.0") << "7 times 65536";
    EXPECT_EQ(channel.getVXY(127, 127), " M= 0.0") << "where the panel paints it";
}

TEST_F(SpectrumProbe, TiesGoToTheEvenCell) {
    transform([](int, int) { return 7; });
    // 127.5 reads cell 256, that is 0; 126.5 reads cell 254.
    EXPECT_EQ(channel.getVXY(127.5F, 128), " M= 458752.0");
    EXPECT_EQ(channel.getVXY(126.5F, 128), " M= 0.0");
    EXPECT_EQ(channel.getVXY(128.5F, 128), " M= 458752.0");
}

TEST_F(SpectrumProbe, EveryViewReadsItsOwnPartOfTheCell) {
    std::mt19937 random(41);
    transform(noise(41));
    for (int i = 0; i < 200; ++i) {
        const Long x = static_cast<Long>(random() % 256);
        const Long y = static_cast<Long>(random() % 256);
        const ComplexCell& cell = channel.spectrum()((128 + x) % 256, (128 + y) % 256);
        const auto magnitude = static_cast<Single>(std::sqrt(
            static_cast<double>(cell.re) * cell.re + static_cast<double>(cell.im) * cell.im));
        const std::string expected[] = {
            " M= " + trimmedText(magnitude, 2), " M= " + trimmedText(magnitude, 2),
            " Ph= " + trimmedText(PhaseDeg(cell.re, cell.im), 2), " Re= " + trimmedText(cell.re, 2),
            " Im= " + trimmedText(cell.im, 2)};
        for (Integer view = 0; view <= 4; ++view) {
            channel.mView = view;
            EXPECT_EQ(channel.getVXY(static_cast<Single>(x), static_cast<Single>(y)),
                      expected[view])
                << "view " << view << " at " << x << ", " << y;
        }
    }
}

TEST_F(SpectrumProbe, AViewThatDoesNotExistReadsNothing) {
    transform(noise(42));
    for (const Integer view : {Integer{-1}, Integer{5}}) {
        channel.mView = view;
        EXPECT_EQ(channel.getVXY(10, 10), "");
    }
}

TEST_F(SpectrumProbe, AViewThatDoesNotExistLooksAtNoCell) {
    channel.mView = 5;
    EXPECT_EQ(errorOf([&] { EXPECT_EQ(channel.getVXY(-129, 20), ""); }), ErrorNumber{});
    clComplexImage unbound(desktop.desktop(), masks, rnd);
    unbound.mView = -1;
    EXPECT_EQ(errorOf([&] { EXPECT_EQ(unbound.getVXY(128, 128), ""); }), ErrorNumber{});
}

TEST_F(SpectrumProbe, NeitherFilterNorFactorNorScaleBearsOnTheValue) {
    transform(noise(43));
    const std::string before = channel.getVXY(128, 128);
    channel.SetFilterFT(2);
    channel.SetFilterRad(1);
    channel.runFOURN(0);
    channel.SetScale(0);
    channel.setIntFac(3);
    EXPECT_EQ(channel.getVXY(128, 128), before);
}

TEST_F(SpectrumProbe, ThePositionsRepeatToTheRightAndFailFarToTheLeft) {
    transform(noise(44));
    EXPECT_EQ(channel.getVXY(300, 20), channel.getVXY(44, 20));
    EXPECT_EQ(channel.getVXY(20, 300), channel.getVXY(20, 44));
    EXPECT_EQ(errorOf([&] { channel.getVXY(-128, -128); }), ErrorNumber{});
    EXPECT_EQ(errorOf([&] { channel.getVXY(-129, 20); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { channel.getVXY(20, -130); }), ErrorNumber::SubscriptOutOfRange);
}

}  // namespace
}  // namespace quillon
