#include <gtest/gtest.h>

#include <functional>

#include "engine/RunTimeError.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/slow_renderer.h"

namespace quillon {
namespace {

using Lines = std::vector<std::string>;

const Lines kSpectrumDraw = {"showNow pb2", "DrawMasks(-1)"};
const Lines kReconstructionDraw = {"showNow pb3", "DrawMasks(-1)"};

/// A channel whose picture has been computed.
class LiveChannel : public testing::Test {
protected:
    LiveChannel() {
        lab.show(scene);
        lab.channel.CalculateAll();
        lab.log.clear();
    }

    slow::Look look(Integer panel) const { return slow::lookOf(channel, panel); }

    std::vector<Long> slowSpectrum() const {
        return slow::drawSpectrum(channel.spectrum(), 256, 256, look(1), slow::makeTables()).pix;
    }

    std::vector<Long> slowReconstruction() const {
        return slow::drawReconstruction(channel.reconstruction(), 256, 256, look(2)).pix;
    }

    ChannelUnderTest lab;
    clComplexImage& channel = lab.channel;
};

TEST_F(LiveChannel, ShowsWhatTheSlowRendererShows) {
    EXPECT_EQ(lab.pb2.Image().words, slowSpectrum());
    EXPECT_EQ(lab.pb3.Image().words, slowReconstruction());
    for (int view = 4; view >= 0; --view) {
        channel.SetFTView(static_cast<Integer>(view), 0);
        EXPECT_EQ(lab.pb2.Image().words, slowSpectrum()) << view;
        channel.SetScale(0);
        EXPECT_EQ(lab.pb2.Image().words, slowSpectrum()) << view;
        channel.SetScale(1);
        EXPECT_EQ(lab.pb2.Image().words, slowSpectrum()) << view;
    }
}

TEST_F(LiveChannel, EachPanelHasItsOwnInvertFlag) {
    channel.SetInvert(1, true);
    channel.RedrawFT(1, 0);
    channel.RedrawFT(0, 0);
    EXPECT_EQ(lab.pb2.Image().words, slowSpectrum());
    const std::vector<Long> upright = slowReconstruction();
    EXPECT_EQ(lab.pb3.Image().words, upright);
    channel.SetInvert(2, true);
    channel.runFOURN(0);
    EXPECT_EQ(lab.pb3.Image().words, slowReconstruction());
    EXPECT_EQ(lab.pb3.Image().words[77], 0xFFFFFF - upright[77]);
    channel.SetInvert(0, true);
    channel.runFOURN(1);
    EXPECT_EQ(lab.pb3.Image().words, slowReconstruction());
}

TEST_F(LiveChannel, TheIndexTellsTheCellBehindEachPixel) {
    EXPECT_EQ(channel.spectrumIndex()(127, 127).u, 0);
    EXPECT_EQ(channel.spectrumIndex()(127, 127).v, 0);
    EXPECT_EQ(channel.spectrumIndex()(0, 0).u, 129);
    EXPECT_EQ(channel.spectrumIndex()(255, 255).v, 128);
}

TEST_F(LiveChannel, ARedrawShowsThenPaintsTheMasks) {
    channel.RedrawFT(1, 0);
    EXPECT_EQ(lab.calls(), kSpectrumDraw);
    lab.log.clear();
    channel.RedrawFT(0, 0);
    EXPECT_EQ(lab.calls(), kReconstructionDraw);
    lab.log.clear();
    for (const int mode : {2, -1, 7})
        channel.RedrawFT(static_cast<Integer>(mode), 5);
    EXPECT_TRUE(lab.log.empty());
    EXPECT_EQ(channel.linearFactor(), 5);
}

TEST_F(LiveChannel, ThePictureIsWholeWhenThePanelShowsIt) {
    bool compared = false;
    lab.watcher.onShow = [&](Control& control) {
        if (&control != &lab.pb2)
            return;
        EXPECT_EQ(lab.pb2.Image().words, slowSpectrum());
        compared = true;
    };
    channel.SetFTView(3, 0);
    EXPECT_TRUE(compared);
}

TEST_F(LiveChannel, ARedrawnReconstructionIsMarkedAsComputedAndASpectrumIsNot) {
    lab.pb3.Tag = "3D";
    lab.pb2.Tag = "";
    channel.RedrawFT(1, 0);
    EXPECT_EQ(lab.pb3.Tag, "3D");
    EXPECT_EQ(lab.pb2.Tag, "");
    channel.RedrawFT(0, 0);
    EXPECT_EQ(lab.pb3.Tag, "!");
}

TEST_F(LiveChannel, ARedrawStoresAnyPositiveFactorAsTheLinearOne) {
    channel.RedrawFT(1, 1.0F);
    EXPECT_EQ(channel.linearFactor(), 1);
    channel.RedrawFT(1, 0.0F);
    EXPECT_EQ(channel.linearFactor(), 1);
    channel.RedrawFT(1, -1.0F);
    EXPECT_EQ(channel.linearFactor(), 1);
    channel.RedrawFT(0, 33.0F);
    EXPECT_EQ(channel.linearFactor(), 33);
}

TEST_F(LiveChannel, TheScaleKeepsBothFactorsAndRedraws) {
    channel.setIntFac(2);
    lab.log.clear();
    channel.SetScale(2);
    EXPECT_FALSE(channel.sqrtScale());
    EXPECT_EQ(channel.linearFactor(), 100);
    EXPECT_EQ(channel.sqrtFactor(), 2);
    EXPECT_EQ(lab.calls(), kSpectrumDraw);
    channel.SetScale(1);
    EXPECT_TRUE(channel.sqrtScale());
    channel.SetScale(-1);
    EXPECT_FALSE(channel.sqrtScale());
}

TEST_F(LiveChannel, AViewBringsItsTableIntoForceAndRedrawsUnlessAskedNotTo) {
    const Bitmap before = lab.pb2.Image();
    channel.SetFTView(2, 1);
    EXPECT_EQ(channel.mView, 2);
    EXPECT_EQ(channel.activeTable(), channel.hueTable());
    EXPECT_EQ(lab.pb2.Image(), before);
    EXPECT_TRUE(lab.calls().empty());
    channel.SetFTView(3, 0);
    EXPECT_EQ(channel.activeTable(), channel.hueTable()) << "the signed views leave it";
    channel.SetFTView(4, 0);
    EXPECT_EQ(channel.activeTable(), channel.hueTable());
    EXPECT_EQ(lab.calls(), (Lines{"showNow pb2", "DrawMasks(-1)", "showNow pb2", "DrawMasks(-1)"}));
    channel.SetFTView(1, 1);
    EXPECT_EQ(channel.activeTable(), channel.grayTable());
    channel.SetFTView(2, 1);
    channel.SetFTView(0, 1);
    EXPECT_EQ(channel.activeTable(), channel.grayTable());
}

TEST_F(LiveChannel, AViewThatDoesNotExistLeavesBothPanelsAndAnIndexOfZeros) {
    const Bitmap spectrum = lab.pb2.Image();
    const Bitmap reconstruction = lab.pb3.Image();
    for (const int view : {5, -1}) {
        channel.SetFTView(static_cast<Integer>(view), 0);
        channel.RedrawFT(0, 0);
        EXPECT_EQ(lab.pb2.Image(), spectrum);
        EXPECT_EQ(lab.pb3.Image(), reconstruction);
        EXPECT_TRUE(lab.calls().empty());
        EXPECT_EQ(channel.spectrumIndex()(0, 0).u, 0);
        EXPECT_EQ(channel.spectrumIndex()(255, 255).v, 0);
    }
}

TEST_F(LiveChannel, TheImaginaryViewKeepsTheOldReconstruction) {
    const Bitmap reconstruction = lab.pb3.Image();
    channel.SetFTView(4, 0);
    lab.show([](int x, int y) { return (x + y) % 256; });
    lab.log.clear();
    channel.CalculateAll();
    EXPECT_EQ(lab.pb3.Image(), reconstruction);
    EXPECT_EQ(lab.count("showNow pb3"), 0);
    EXPECT_EQ(lab.pb3.Tag, "!") << "the run marks the panel all the same";
    channel.SetFTView(0, 0);
    EXPECT_EQ(lab.pb3.Image(), reconstruction) << "a view redraws only the spectrum";
    channel.RedrawFT(0, 0);
    EXPECT_EQ(lab.pb3.Image().words, slowReconstruction());
    EXPECT_NE(lab.pb3.Image(), reconstruction);
}

TEST_F(LiveChannel, ThePhaseViewShowsAReconstructionOnlyWithNegativeParts) {
    channel.SetFTView(2, 0);
    const Bitmap before = lab.pb3.Image();
    // Bright all over: nothing negative comes back.
    lab.show([](int x, int) { return 100 + x % 50; });
    channel.CalculateAll();
    EXPECT_EQ(lab.pb3.Image(), before);
    // Without its mean the picture has negative parts.
    channel.SetFilterFT(4);
    channel.AddMask(127, 127, 127, 127);
    channel.runFOURN(0);
    EXPECT_NE(lab.pb3.Image(), before);
    EXPECT_EQ(lab.pb3.Image().words, slowReconstruction());
}

TEST_F(LiveChannel, ASpectrumOfZerosIsNotDrawnAndItsIndexIsAllZero) {
    ChannelUnderTest fresh;
    ChannelUnderTest::lay(fresh.pb2, scene);
    const Bitmap before = fresh.pb2.Image();
    fresh.log.clear();
    fresh.channel.RedrawFT(1, 0);
    EXPECT_EQ(fresh.pb2.Image(), before);
    EXPECT_TRUE(fresh.log.empty());
    EXPECT_EQ(fresh.channel.spectrumIndex().xBound(), 256);
    EXPECT_EQ(fresh.channel.spectrumIndex()(0, 0).u, 0);
    EXPECT_EQ(fresh.channel.sqrtFactor(), 1) << "the first draw gives the factor its start";
    EXPECT_EQ(fresh.channel.linearFactor(), 0);
}

TEST_F(LiveChannel, AReconstructionIsStretchedBetweenItsExtremesWithZeroIncluded) {
    lab.show([](int x, int) { return x < 128 ? 100 : 200; });
    channel.CalculateAll();
    const Long dark = lab.pb3.Image().at(64, 64) & 0xFF;
    const Long bright = lab.pb3.Image().at(192, 64) & 0xFF;
    EXPECT_NEAR(bright, 255, 1);
    EXPECT_NEAR(dark, 127, 1) << "black stands for zero, not for the smallest grey";
}

TEST_F(LiveChannel, FactorsScaleAndTableHaveNoBearingOnTheReconstruction) {
    const Bitmap before = lab.pb3.Image();
    channel.SetScale(0);
    channel.setIntFac(7);
    channel.SetLUT(1, std::vector<Long>(256, 0x0000FF));
    channel.RedrawFT(0, 0);
    EXPECT_EQ(lab.pb3.Image(), before);
}

TEST_F(LiveChannel, ABrightnessStepChangesTheFactorOfTheScaleInForce) {
    channel.SetScale(0);
    lab.log.clear();
    channel.ChangeBrightness(1);
    EXPECT_EQ(channel.linearFactor(), 111);
    EXPECT_EQ(channel.sqrtFactor(), 1);
    EXPECT_EQ(lab.calls(), kSpectrumDraw);
    EXPECT_EQ(lab.pb2.Image().words, slowSpectrum());
    channel.SetScale(1);
    channel.ChangeBrightness(0);
    EXPECT_EQ(channel.sqrtFactor(), 0.9F);
    channel.ChangeBrightness(-1);
    EXPECT_EQ(channel.sqrtFactor(), 0.81F);
    channel.ChangeBrightness(2);
    EXPECT_EQ(channel.sqrtFactor(), static_cast<Single>(0.81F * 1.11));
    EXPECT_EQ(channel.linearFactor(), 111);
}

TEST_F(LiveChannel, BrightnessStopsAtTheLeastFactorOfEachScale) {
    channel.SetScale(0);
    channel.setIntFac(0.2F);
    for (int step = 0; step < 30; ++step)
        channel.ChangeBrightness(-1);
    EXPECT_EQ(channel.linearFactor(), 0.1F);
    channel.SetScale(1);
    for (int step = 0; step < 60; ++step)
        channel.ChangeBrightness(-1);
    EXPECT_EQ(channel.sqrtFactor(), 0.01F);
}

TEST_F(LiveChannel, AStepAfterWhichTheDrawWouldOverflowLeavesFactorAndPicture) {
    for (const Integer scale : std::initializer_list<Integer>{0, 1}) {
        channel.SetScale(scale);
        const auto factor = [&] {
            return scale == 0 ? channel.linearFactor() : channel.sqrtFactor();
        };
        channel.setIntFac(1e30F);
        Single before = 0;
        while (factor() != before) {
            before = factor();
            lab.log.clear();
            channel.ChangeBrightness(1);
            ASSERT_LT(factor(), 3e38F);
        }
        EXPECT_GT(factor(), 1e35F) << "there is no limit but the range of a Single";
        EXPECT_TRUE(lab.log.empty()) << "nothing is drawn";
        EXPECT_TRUE(lab.desktop.dialogs.messages.empty());
        EXPECT_EQ(lab.pb2.Image().words, slowSpectrum());
        EXPECT_EQ(channel.spectrumIndex()(127, 127).u, 0);
        EXPECT_EQ(channel.spectrumIndex()(0, 0).u, 129);
        channel.ChangeBrightness(-1);
        EXPECT_EQ(factor(), static_cast<Single>(before * 0.9)) << "there is a way back";
    }
}

TEST_F(LiveChannel, AStepBeyondTheRangeOfASingleLeavesTheFactorToo) {
    channel.SetScale(0);
    // The draw of a factor that was typed tells of its overflow.
    channel.setIntFac(3.3e38F);
    lab.desktop.dialogs.messages.clear();
    for (const Integer direction : std::initializer_list<Integer>{1, -1}) {
        channel.ChangeBrightness(direction);
        EXPECT_EQ(channel.linearFactor(), 3.3e38F) << "no draw of the next one either";
    }
    EXPECT_TRUE(lab.desktop.dialogs.messages.empty());
}

TEST_F(LiveChannel, AnEnteredFactorGoesToTheScaleInForceAndIsAtLeastATwentieth) {
    channel.setIntFac(0.01F);
    EXPECT_EQ(channel.sqrtFactor(), 0.05F);
    EXPECT_EQ(channel.linearFactor(), 100);
    EXPECT_EQ(lab.pb2.Image().words, slowSpectrum());
    channel.SetScale(0);
    channel.setIntFac(-3);
    EXPECT_EQ(channel.linearFactor(), 0.05F);
    channel.setIntFac(12.5F);
    EXPECT_EQ(channel.linearFactor(), 12.5F);
    EXPECT_EQ(channel.sqrtFactor(), 0.05F);
}

TEST_F(LiveChannel, TheFactorReadsWithTheNameOfItsScale) {
    EXPECT_EQ(channel.getIntFac(), "1.00 (sqrt)");
    channel.SetScale(0);
    EXPECT_EQ(channel.getIntFac(), "100.0 (linear)");
    channel.setIntFac(0.06F);
    EXPECT_EQ(channel.getIntFac(), "0.1 (linear)");
    channel.SetScale(1);
    channel.setIntFac(2.345F);
    EXPECT_EQ(channel.getIntFac(), "2.35 (sqrt)") << "the Single lies above the half";
}

TEST_F(LiveChannel, TheFactorsOutliveTransformsAndViews) {
    channel.setIntFac(3);
    channel.SetFTView(2, 0);
    channel.CalculateAll();
    channel.SetFTView(0, 0);
    EXPECT_EQ(channel.sqrtFactor(), 3);
    EXPECT_EQ(channel.linearFactor(), 100);
}

TEST_F(LiveChannel, AnOverflowEndsTheDrawWithAMessageAndTheOldPicture) {
    channel.SetScale(0);
    const Bitmap before = lab.pb2.Image();
    lab.log.clear();
    channel.setIntFac(3e38F);
    const RecordingDialogs::Message expected{"Error in DrawFT: Overflow", "", MessageIcon::None,
                                             MessageButtons::Ok};
    EXPECT_EQ(lab.desktop.dialogs.messages, std::vector{expected});
    EXPECT_EQ(lab.pb2.Image(), before);
    EXPECT_EQ(lab.count("showNow pb2"), 0);
    EXPECT_EQ(lab.count("DrawMasks(-1)"), 0);
    channel.setIntFac(100);
    EXPECT_EQ(lab.desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(lab.pb2.Image(), before);
}

TEST_F(LiveChannel, AReconstructionOfAnotherSizeIsAFailureOfTheDraw) {
    channel.SetDimensionFFT(64);
    channel.bBatch = true;
    channel.runFOURN(1);
    lab.desktop.dialogs.messages.clear();
    channel.RedrawFT(0, 0);
    ASSERT_EQ(lab.desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(lab.desktop.dialogs.messages[0].text, "Error in DrawFT: Subscript out of range");
}

TEST_F(LiveChannel, ADrawTakesAwayWhatLiesOnTheScreenOnly) {
    lab.pb2.setAutoRedraw(false);
    lab.pb2.Box(0, 0, 50, 50, kBlack, BoxStyle::Filled);
    EXPECT_TRUE(lab.pb2.hasScreenLayer());
    channel.RedrawFT(1, 0);
    EXPECT_FALSE(lab.pb2.hasScreenLayer());
    EXPECT_EQ(lab.pb2.Image().words, slowSpectrum());
}

}  // namespace
}  // namespace quillon
