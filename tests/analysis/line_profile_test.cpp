#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <random>

#include "engine/stretch.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/TextPicture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

constexpr ColorValue kGround = RGB(10, 20, 30);
constexpr PixelWord kGroundWord = 0x0A141E;

class LineProfile : public ::testing::Test, protected ChannelUnderTest {
protected:
    LineProfile() {
        show(noise(61));
        channel.runFOURN(1);
        log.clear();
    }

    void profile(Single x, Single y) { channel.GetProfile(values, vmax, x, y, kGround); }

    Single magnitudeAt(int column, int row) const {
        const ComplexCell& cell = channel.spectrum()(column, row);
        const double re = cell.re;
        const double im = cell.im;
        return static_cast<Single>(std::sqrt(re * re + im * im));
    }

    /// The patch around (x, y) at 256 / 51 times its size, over the ground.
    static Bitmap magnified(const Bitmap& spectrum, int x, int y) {
        Bitmap picture(256, 256, kGroundWord);
        for (int row = 0; row < 256; ++row)
            for (int column = 0; column < 256; ++column) {
                const int fromX = x - 25 + (2 * column + 1) * 51 / 512;
                const int fromY = y - 25 + (2 * row + 1) * 51 / 512;
                if (spectrum.contains(fromX, fromY))
                    picture.at(column, row) = spectrum.at(fromX, fromY);
            }
        return picture;
    }

    std::array<Single, 256> values{};
    Single vmax = 0;
};

TEST_F(LineProfile, TheMagnitudesRunOverThePanelsColumns) {
    profile(40, 200);
    Single highest = 0;
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(values[static_cast<std::size_t>(i)],
                  magnitudeAt((128 + i) % 256, (128 + 200) % 256))
            << i;
        highest = std::fmax(highest, values[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(vmax, highest);
}

TEST_F(LineProfile, TheZeroFrequencyStandsInTheMiddleOfTheMiddleRow) {
    profile(0, 128);
    EXPECT_EQ(values[128], magnitudeAt(0, 0));
    EXPECT_EQ(vmax, values[128]);
}

TEST_F(LineProfile, ARowBetweenTwoGoesToTheEvenOne) {
    profile(0, 127.5F);
    EXPECT_EQ(values[5], magnitudeAt(133, 0));
    profile(0, 126.5F);
    EXPECT_EQ(values[5], magnitudeAt(133, 254));
}

TEST_F(LineProfile, AMaximumThatIsHigherAlreadyStays) {
    vmax = 1e9F;
    profile(10, 10);
    EXPECT_EQ(vmax, 1e9F);
}

TEST_F(LineProfile, AnEmptyRowHasTheMaximumOne) {
    show([](int, int) { return 0; });
    channel.runFOURN(1);
    profile(10, 10);
    EXPECT_EQ(vmax, 1.0F);
    for (const Single value : values)
        EXPECT_EQ(value, 0.0F);
}

TEST_F(LineProfile, EveryViewPlotsTheMagnitudes) {
    profile(10, 77);
    const auto before = values;
    for (Integer view = 1; view <= 4; ++view) {
        channel.mView = view;
        values.fill(-1);
        profile(10, 77);
        EXPECT_EQ(values, before) << "view " << view;
    }
}

TEST_F(LineProfile, ThePatchAroundThePointerFillsTheImagePanel) {
    pb1.setAutoRedraw(true);
    pb2.setPicture(randomPicture(256, 256, 62));
    for (const auto& [x, y] : {std::pair{128, 128}, {25, 25}, {10, 100}, {250, 255}, {0, 0}}) {
        profile(static_cast<Single>(x), static_cast<Single>(y));
        EXPECT_TRUE(pb1.Image() == magnified(pb2.Image(), x, y)) << x << ", " << y;
    }
}

TEST_F(LineProfile, ThePatchShowsWhatLiesOverTheSpectrumToo) {
    pb1.setAutoRedraw(true);
    pb2.setAutoRedraw(false);
    pb2.Box(90, 90, 110, 120, kRed, BoxStyle::Filled);
    ASSERT_FALSE(pb2.shown() == pb2.Image());
    profile(100, 100);
    EXPECT_TRUE(pb1.Image() == magnified(pb2.shown(), 100, 100));
}

TEST_F(LineProfile, TheCornerOfThePatchRoundsHalfToEven) {
    pb1.setAutoRedraw(true);
    pb2.setPicture(randomPicture(256, 256, 63));
    profile(100.5F, 101.5F);
    // 75.5 and 76.5 both round to 76.
    EXPECT_TRUE(pb1.Image() == magnified(pb2.Image(), 101, 101));
}

TEST_F(LineProfile, TheImagePanelIsShownOnceAndTheDataStay) {
    const ComplexCell before = channel.spectrum()(3, 4);
    const Bitmap spectrum = pb2.Image();
    profile(60, 60);
    EXPECT_EQ(calls(), std::vector<std::string>{"showNow pb1"});
    EXPECT_EQ(channel.spectrum()(3, 4).re, before.re);
    EXPECT_EQ(channel.spectrum()(3, 4).im, before.im);
    EXPECT_EQ(pb2.Image(), spectrum);
}

TEST_F(LineProfile, ARowFarAboveThePanelAndABufferTooShortFail) {
    EXPECT_EQ(errorOf([&] { profile(20, -129); }), ErrorNumber::SubscriptOutOfRange);
    std::array<Single, 255> tooShort{};
    EXPECT_EQ(errorOf([&] { channel.GetProfile(tooShort, vmax, 20, 20, kGround); }),
              ErrorNumber::SubscriptOutOfRange);
}

}  // namespace
}  // namespace quillon
