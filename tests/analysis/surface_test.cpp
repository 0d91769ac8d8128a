#include <gtest/gtest.h>

#include "engine/RunTimeError.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/slow_edits.h"
#include "tests/support/slow_renderer.h"

namespace quillon {
namespace {

class Surface : public testing::Test {
protected:
    Surface() {
        lab.show(scene);
        channel.CalculateAll();
        lab.log.clear();
    }

    /// The relief line by line on a panel with the same background picture.
    Bitmap slowRelief() const { return slow::reliefOn(lab.pb3, channel); }

    ChannelUnderTest lab;
    clComplexImage& channel = lab.channel;
};

TEST_F(Surface, IsThePaintersPictureInEveryViewScaleAndInversion) {
    for (int combination = 0; combination < 20; ++combination) {
        SCOPED_TRACE(combination);
        channel.SetFTView(static_cast<Integer>(combination % 5), 1);
        channel.SetInvert(1, combination / 10 == 1);
        channel.SetScale(static_cast<Integer>(combination / 5 % 2));
        channel.draw3DFT();
        EXPECT_TRUE(lab.pb3.Image() == slowRelief());
    }
}

TEST_F(Surface, OfADegenerateSpectrumIsThePaintersPicture) {
    const std::function<int(int, int)> pictures[] = {
        [](int, int) { return 200; },
        [](int x, int y) { return x == 5 && y == 9 ? 255 : 0; },
        [](int x, int y) { return (x + y) % 2 * 255; },
        noise(11),
    };
    for (const auto& picture : pictures) {
        lab.show(picture);
        channel.CalculateAll();
        for (const Single factor : {0.3F, 4.0F, 200.0F}) {
            channel.setIntFac(factor);
            channel.draw3DFT();
            EXPECT_TRUE(lab.pb3.Image() == slowRelief());
        }
    }
}

TEST_F(Surface, PaintsOverTheBackgroundPictureOrTheBareGround) {
    lab.pb3.setBackColor(RGB(10, 20, 30));
    channel.draw3DFT();
    EXPECT_EQ(lab.pb3.Image().at(255, 0), toPixelWord(RGB(10, 20, 30)));
    EXPECT_TRUE(lab.pb3.Image() == slowRelief());
    ChannelUnderTest::lay(lab.pb3, noise(12));
    channel.draw3DFT();
    EXPECT_EQ(lab.pb3.Image().at(255, 0), lab.pb3.Picture().at(255, 0));
    EXPECT_TRUE(lab.pb3.Image() == slowRelief());
}

TEST_F(Surface, IsShownOnceWithoutTheMasksAndMarked) {
    channel.draw3DFT();
    EXPECT_EQ(lab.calls(), std::vector<std::string>{"showNow pb3"});
    EXPECT_EQ(lab.pb3.Tag, "3D");
}

TEST_F(Surface, LeavesTheSpectrumPanelAndTheData) {
    const Bitmap spectrum = lab.pb2.Image();
    const Bitmap reconstruction = lab.pb3.Image();
    const slow::Spectrum cells = channel.spectrum();
    channel.draw3DFT();
    EXPECT_EQ(lab.pb2.Image(), spectrum);
    EXPECT_NE(lab.pb3.Image(), reconstruction);
    EXPECT_EQ(slow::differingCells(channel.spectrum(), cells), 0);
    channel.RedrawFT(0, 0);
    EXPECT_EQ(lab.pb3.Tag, "!");
    EXPECT_EQ(lab.pb3.Image(), reconstruction);
}

TEST_F(Surface, OfAnEmptySpectrumLeavesThePanelAndItsTag) {
    ChannelUnderTest fresh;
    ChannelUnderTest::lay(fresh.pb3, scene);
    fresh.pb3.Tag = "3D";
    const Bitmap before = fresh.pb3.Image();
    fresh.channel.draw3DFT();
    EXPECT_EQ(fresh.pb3.Image(), before);
    EXPECT_EQ(fresh.pb3.Tag, "3D");
    EXPECT_EQ(fresh.count("showNow pb3"), 0);
    EXPECT_EQ(fresh.channel.sqrtFactor(), 1);
    lab.pb3.Tag = "!";
    channel.SetFTView(5, 0);
    channel.draw3DFT();
    EXPECT_EQ(lab.pb3.Tag, "!");
}

TEST_F(Surface, TheZeroFrequencyStandsAt124And154) {
    lab.pb3.setBackColor(kBlack);
    lab.show([](int, int) { return 255; });
    channel.CalculateAll();
    channel.SetScale(0);
    channel.setIntFac(1);
    channel.draw3DFT();
    // Level 255 gives a line of 128 pixels, foot included, upper end left out:
    // the half of 255 goes to the even 128.
    const Bitmap& picture = lab.pb3.Image();
    int height = 0;
    for (int y = 0; y < 256; ++y)
        height += picture.at(124, y) == 0xFFFFFF ? 1 : 0;
    EXPECT_EQ(height, 128);
    EXPECT_EQ(picture.at(124, 154), 0xFFFFFF);
    EXPECT_EQ(picture.at(124, 155), 0);
    EXPECT_EQ(picture.at(124, 27), 0xFFFFFF);
    EXPECT_EQ(picture.at(124, 26), 0);
}

TEST_F(Surface, OfTwoPointsOfARowInOneColumnTheLaterOneStays) {
    // The zero frequency and its neighbour to the right both round to column 124.
    const std::pair<Single, Single> pairs[] = {{255, 100}, {100, 255}};
    for (const auto& [left, right] : pairs) {
        slow::Spectrum cells(256, 256);
        cells(0, 0).re = left;
        cells(1, 0).re = right;
        channel.SetFTArray(slow::toExchangeArray(cells));
        channel.SetScale(0);
        channel.setIntFac(1);
        lab.pb3.setBackColor(kRed);
        channel.draw3DFT();
        // 50 pixels of the level 100, 128 of the level 255.
        const PixelWord foot = right < left ? 0x646464 : 0xFFFFFF;
        for (int y = 0; y < 256; ++y)
            ASSERT_EQ(lab.pb3.Image().at(124, y), y > 154 || y < 27 ? toPixelWord(kRed)
                                                  : y > 104         ? foot
                                                                    : 0xFFFFFF)
                << left << ", " << right << " at " << y;
    }
}

TEST_F(Surface, APointOfNoHeightDrawsNothing) {
    lab.pb3.setBackColor(RGB(1, 2, 3));
    lab.show([](int, int) { return 255; });
    channel.CalculateAll();
    channel.SetScale(0);
    channel.setIntFac(1);
    channel.draw3DFT();
    EXPECT_EQ(lab.pb3.Image().at(60, 90), toPixelWord(RGB(1, 2, 3)));
    EXPECT_EQ(lab.pb3.Image().at(123, 154), toPixelWord(RGB(1, 2, 3)));
}

TEST_F(Surface, InvertedTheBackgroundStandsTall) {
    lab.pb3.setBackColor(RGB(1, 2, 3));
    lab.show([](int, int) { return 255; });
    channel.CalculateAll();
    channel.SetScale(0);
    channel.setIntFac(1);
    channel.SetInvert(1, true);
    channel.draw3DFT();
    // The back row starts at (60, 90) and the front row ends at (188, 218).
    EXPECT_EQ(lab.pb3.Image().at(60, 90), 0xFFFFFF);
    EXPECT_EQ(lab.pb3.Image().at(188, 218), 0xFFFFFF);
    EXPECT_EQ(lab.pb3.Image().at(188, 219), toPixelWord(RGB(1, 2, 3)));
    EXPECT_TRUE(lab.pb3.Image() == slowRelief());
}

TEST_F(Surface, InThePhaseViewTheHeightsAreTheScaledAngles) {
    channel.SetFTView(2, 1);
    channel.SetScale(0);
    channel.setIntFac(0.2F);
    channel.draw3DFT();
    const Bitmap low = lab.pb3.Image();
    EXPECT_TRUE(low == slowRelief());
    channel.setIntFac(1);
    EXPECT_FALSE(lab.pb3.Image() == low);
}

TEST_F(Surface, FollowsIntensityAndViewWhileItIsOnShow) {
    channel.draw3DFT();
    lab.log.clear();
    channel.setIntFac(3);
    EXPECT_EQ(lab.calls(),
              (std::vector<std::string>{"showNow pb2", "DrawMasks(-1)", "showNow pb3"}));
    EXPECT_TRUE(lab.pb3.Image() == slowRelief());
    EXPECT_EQ(lab.pb3.Tag, "3D");
    channel.SetFTView(3, 0);
    EXPECT_TRUE(lab.pb3.Image() == slowRelief());
    const Bitmap before = lab.pb3.Image();
    channel.SetFTView(4, 1);
    EXPECT_TRUE(lab.pb3.Image() == before) << "a view set without drawing leaves the surface";

    channel.runFOURN(0);
    lab.log.clear();
    channel.setIntFac(2);
    channel.SetFTView(0, 0);
    EXPECT_EQ(lab.count("showNow pb3"), 0) << "the surface is no longer on show";
}

TEST_F(Surface, DoesNotFollowABrightnessStepByItself) {
    channel.draw3DFT();
    const Bitmap before = lab.pb3.Image();
    channel.ChangeBrightness(1);
    channel.SetScale(0);
    EXPECT_TRUE(lab.pb3.Image() == before);
}

TEST_F(Surface, AnOverflowEndsInAMessageAndLeavesThePanel) {
    channel.SetScale(0);
    channel.setIntFac(3e38F);
    lab.desktop.dialogs.messages.clear();
    const Bitmap before = lab.pb3.Image();
    channel.draw3DFT();
    const RecordingDialogs::Message expected{"Error in Draw3DFT: Overflow", "", MessageIcon::None,
                                             MessageButtons::Ok};
    EXPECT_EQ(lab.desktop.dialogs.messages, std::vector{expected});
    EXPECT_EQ(lab.pb3.Image(), before);
    EXPECT_EQ(lab.pb3.Tag, "!");
}

TEST_F(Surface, WritesTheIndexButDoesNotAllocateIt) {
    // A view that shows nothing renews the index and leaves it all zero.
    channel.SetFTView(9, 0);
    EXPECT_EQ(channel.spectrumIndex()(0, 0).u, 0);
    channel.SetFTView(0, 1);
    channel.draw3DFT();
    EXPECT_EQ(channel.spectrumIndex()(0, 0).u, 129);
    EXPECT_EQ(channel.spectrumIndex()(127, 127).v, 0);
}

}  // namespace
}  // namespace quillon
