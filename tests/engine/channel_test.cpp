#include <gtest/gtest.h>

#include <functional>

#include "engine/RunTimeError.h"
#include "tests/support/ChannelUnderTest.h"

namespace quillon {
namespace {

ErrorNumber errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return ErrorNumber{};
}

class NewChannel : public testing::Test {
protected:
    RecordingDesktop desktop;
    RecordingMaskPainter masks{desktop.log};
    Rnd rnd;
    clComplexImage channel{desktop.desktop(), masks, rnd};
};

TEST_F(NewChannel, IsInTheSquareRootScaleWithoutFactorsOrMasks) {
    EXPECT_TRUE(channel.sqrtScale());
    EXPECT_EQ(channel.linearFactor(), 0);
    EXPECT_EQ(channel.sqrtFactor(), 0);
    EXPECT_EQ(channel.nmask, 0);
}

TEST_F(NewChannel, HasEveryOtherFieldEmpty) {
    EXPECT_EQ(channel.file, "");
    EXPECT_EQ(channel.sfile, "");
    EXPECT_EQ(channel.width, 0);
    EXPECT_EQ(channel.scaledwidth, 0);
    EXPECT_EQ(channel.height, 0);
    EXPECT_EQ(channel.scaledheight, 0);
    EXPECT_FALSE(channel.bBatch || channel.bFilter || channel.bMask || channel.bLowpass ||
                 channel.bHighpass || channel.bRing);
    EXPECT_EQ(channel.filter_rad, 0);
    EXPECT_EQ(channel.filter_xm, 0);
    EXPECT_EQ(channel.filter_ym, 0);
    EXPECT_EQ(channel.pencolor, 0);
    EXPECT_EQ(channel.mDraw, 0);
    EXPECT_EQ(channel.mView, 0);
    for (Integer panel = 0; panel < 3; ++panel)
        EXPECT_FALSE(channel.GetInvert(panel));
    EXPECT_FALSE(channel.spectrum().allocated());
    EXPECT_FALSE(channel.reconstruction().allocated());
    EXPECT_FALSE(channel.spectrumIndex().allocated());
}

TEST_F(NewChannel, TheInitialisationBringsTheScaleAndTheTablesBack) {
    channel.SetScale(2);
    std::vector<Long> blacks(256, 0);
    channel.SetLUT(1, blacks, 1);
    EXPECT_FALSE(channel.sqrtScale());
    channel.class_initialize();
    EXPECT_TRUE(channel.sqrtScale());
    EXPECT_EQ(channel.grayTable()[255], 0xFFFFFF);
}

TEST_F(NewChannel, TheDimensionAllocatesOneRowAndColumnMoreThanTheSide) {
    channel.SetDimensionFFT(256);
    EXPECT_EQ(channel.spectrum().xBound(), 256);
    EXPECT_EQ(channel.spectrum().yBound(), 256);
    EXPECT_EQ(channel.reconstruction().xBound(), 256);
    EXPECT_EQ(channel.reconstruction().yBound(), 256);
    EXPECT_EQ(channel.spectrum()(256, 256).re, 0);
    EXPECT_FALSE(channel.spectrumIndex().allocated());
}

TEST_F(NewChannel, ADimensionWithoutCellsIsASubscriptError) {
    EXPECT_EQ(errorOf([&] { channel.SetDimensionFFT(-1); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { channel.SetDimensionFFT(0); }), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(NewChannel, AnInvertFlagIsOnlyRemembered) {
    PictureBox pb1("pb1", 256, 256);
    PictureBox pb2("pb2", 256, 256);
    PictureBox pb3("pb3", 256, 256);
    channel.SetCanvas(pb1, pb2, pb3, 1);
    const Bitmap before = pb2.Image();
    channel.SetInvert(1, true);
    EXPECT_TRUE(channel.GetInvert(1));
    EXPECT_FALSE(channel.GetInvert(0));
    EXPECT_FALSE(channel.GetInvert(2));
    EXPECT_EQ(pb2.Image(), before);
    channel.SetInvert(1, false);
    EXPECT_FALSE(channel.GetInvert(1));
}

TEST_F(NewChannel, AnInvertFlagOfNoPanelIsASubscriptErrorAndChangesNothing) {
    for (const Integer panel : std::initializer_list<Integer>{-1, 3, 256}) {
        EXPECT_EQ(errorOf([&] { channel.SetInvert(panel, true); }),
                  ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(errorOf([&] { channel.GetInvert(panel); }), ErrorNumber::SubscriptOutOfRange);
    }
    for (Integer panel = 0; panel < 3; ++panel)
        EXPECT_FALSE(channel.GetInvert(panel));
}

TEST_F(NewChannel, TheImageSizeRoundsHalfToEven) {
    channel.SetImageSize(10.5F, 11.5F);
    EXPECT_EQ(channel.width, 10);
    EXPECT_EQ(channel.height, 12);
    EXPECT_EQ(channel.scaledwidth, 0);
    EXPECT_EQ(channel.scaledheight, 0);
}

TEST_F(NewChannel, AnImageSizeThatDoesNotFitIsAnOverflow) {
    EXPECT_EQ(errorOf([&] { channel.SetImageSize(40000.0F, 5.0F); }), ErrorNumber::Overflow);
    EXPECT_EQ(errorOf([&] { channel.SetImageSize(5.0F, -40000.0F); }), ErrorNumber::Overflow);
    EXPECT_EQ(channel.width, 5);
    EXPECT_EQ(channel.height, 0);
}

TEST_F(NewChannel, TheDrawingToolIsStored) {
    channel.SetDrawMode(2);
    EXPECT_EQ(channel.mDraw, 2);
}

TEST_F(NewChannel, ATextWithoutALabelAndAFileWithoutAPanelAreErrors) {
    EXPECT_EQ(errorOf([&] { channel.Msg("text"); }), ErrorNumber::ObjectNotSet);
    desktop.pictures.add("C:\\a.bmp", Bitmap(2, 2));
    EXPECT_EQ(errorOf([&] { channel.LoadImageFile("C:\\a.bmp"); }), ErrorNumber::ObjectNotSet);
    EXPECT_EQ(errorOf([&] { channel.SetFTView(0, 0); }), ErrorNumber::ObjectNotSet);
}

TEST(BoundChannel, TheBindingMakesEachPanelPersistentAndCountedInPixels) {
    RecordingDesktop desktop;
    RecordingMaskPainter masks{desktop.log};
    Rnd rnd;
    clComplexImage channel{desktop.desktop(), masks, rnd};
    PictureBox panels[] = {{"pb4", 256, 256}, {"pb5", 256, 256}, {"pb6", 256, 256}};
    for (PictureBox& panel : panels) {
        panel.setAutoRedraw(false);
        panel.ScaleMode = 1;
    }
    channel.SetCanvas(panels[0], panels[1], panels[2], 2);
    for (const PictureBox& panel : panels) {
        EXPECT_TRUE(panel.AutoRedraw()) << panel.Name;
        EXPECT_EQ(panel.ScaleMode, 3) << panel.Name;
    }
}

TEST(BoundChannel, TheAcceptedWordsChangeNothingOnThePanels) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.CalculateAll();
    const Bitmap image = lab.pb1.Image();
    const Bitmap spectrum = lab.pb2.Image();
    const Bitmap reconstruction = lab.pb3.Image();
    lab.log.clear();
    lab.channel.PaintAll();
    lab.channel.UpdateFTImage();
    lab.channel.InvertImage(true);
    lab.channel.ShowHistogram(true);
    lab.channel.ShowColorImage(true);
    EXPECT_EQ(lab.pb1.Image(), image);
    EXPECT_EQ(lab.pb2.Image(), spectrum);
    EXPECT_EQ(lab.pb3.Image(), reconstruction);
    EXPECT_TRUE(lab.log.empty());
    EXPECT_EQ(lab.channel.scaledwidth, 0);
    EXPECT_EQ(lab.channel.scaledheight, 0);
}

TEST(BoundChannel, ATextIsWrittenAndShownAtOnce) {
    ChannelUnderTest lab;
    lab.channel.Msg("hello");
    EXPECT_EQ(lab.lbSTB.Caption.get(), "hello");
    EXPECT_EQ(lab.log, (std::vector<std::string>{"stale lbSTB(2)", "showNow lbSTB(2)"}));
}

TEST(BoundChannel, BothChannelsWriteIntoTheSameCellAndTheLaterTextStands) {
    ChannelUnderTest first;
    RecordingDesktop desktop;
    clComplexImage second{desktop.desktop(), first.masks, first.rnd};
    second.SetMessageLabel(first.lbSTB);
    first.channel.Msg("one");
    second.Msg("two");
    EXPECT_EQ(first.lbSTB.Caption.get(), "two");
    first.channel.Msg("three");
    EXPECT_EQ(first.lbSTB.Caption.get(), "three");
}

TEST(ImageFile, LiesUnscaledAtTheTopLeftOfTheImagePanel) {
    ChannelUnderTest lab;
    lab.pb1.setBackColor(kBlack);
    lab.desktop.pictures.add("C:\\Images\\small.bmp", Bitmap(3, 2, 0x00112233));
    lab.log.clear();
    lab.channel.LoadImageFile("C:\\Images\\small.bmp");
    EXPECT_EQ(lab.channel.file, "C:\\Images\\small.bmp");
    EXPECT_EQ(lab.channel.sfile, "small.bmp");
    EXPECT_EQ(lab.pb1.Image().at(2, 1), 0x00112233);
    EXPECT_EQ(lab.pb1.Image().at(3, 1), 0);
    EXPECT_EQ(lab.pb1.Image().at(2, 2), 0);
    EXPECT_EQ(lab.log.back(), "showNow pb1");
    EXPECT_EQ(lab.count("showNow pb2"), 0) << "a load makes no transform";
    EXPECT_FALSE(lab.channel.spectrum()(0, 0).re != 0);
}

TEST(ImageFile, LargerThanThePanelIsCutOff) {
    ChannelUnderTest lab;
    Bitmap large(300, 400, 0x00010203);
    large.at(255, 255) = 0x00AABBCC;
    lab.desktop.pictures.add("C:\\large.bmp", large);
    lab.channel.LoadImageFile("C:\\large.bmp");
    EXPECT_EQ(lab.pb1.Image().width, 256);
    EXPECT_EQ(lab.pb1.Image().height, 256);
    EXPECT_EQ(lab.pb1.Image().at(255, 255), 0x00AABBCC);
}

TEST(ImageFile, ThatCannotBeReadIsTheCallersError) {
    ChannelUnderTest lab;
    lab.show(scene);
    const Bitmap before = lab.pb1.Image();
    lab.desktop.pictures.addUndecodable("C:\\Images\\broken.jpg");
    EXPECT_EQ(errorOf([&] { lab.channel.LoadImageFile("C:\\Images\\missing.jpg"); }),
              ErrorNumber::FileNotFound);
    EXPECT_EQ(lab.channel.sfile, "missing.jpg");
    EXPECT_EQ(errorOf([&] { lab.channel.LoadImageFile("C:\\Images\\broken.jpg"); }),
              ErrorNumber::InvalidPicture);
    EXPECT_EQ(lab.channel.file, "C:\\Images\\broken.jpg");
    EXPECT_EQ(lab.pb1.Image(), before);
    EXPECT_TRUE(lab.desktop.dialogs.messages.empty());
}

}  // namespace
}  // namespace quillon
