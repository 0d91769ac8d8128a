#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/RunTimeError.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/fourn_grids.h"
#include "tests/support/plain_fourn.h"

namespace quillon {
namespace {

using Lines = std::vector<std::string>;

constexpr Single kCells = 256.0F * 256.0F;
constexpr Long kWhitePen = 16777215;

Lines joined(const std::vector<Lines>& parts) {
    Lines all;
    for (const Lines& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

// What a run asks for, in order.
const Lines kHead = {"screen.setMousePointer(11)", "showNow lbSTB(2)"};
const Lines kSpectrumDraw = {"showNow pb2", "DrawMasks(-1)"};
const Lines kReconstructionDraw = {"showNow pb3", "DrawMasks(-1)"};
const Lines kTail = {"screen.setMousePointer(0)"};
const Lines kInverse = joined({kHead, kReconstructionDraw, kTail});

TEST(Calculation, RunsOnceForwardAndTwiceBackInThisOrder) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.log.clear();
    lab.channel.CalculateAll();
    // The inverse inside the forward run sets the pointer back before the outer
    // run has ended; then the second inverse runs.
    EXPECT_EQ(lab.calls(), joined({kHead, kSpectrumDraw, kInverse, kTail, kInverse}));
}

TEST(Calculation, RunsOnceEachWayInABatch) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.bBatch = true;
    lab.log.clear();
    lab.channel.CalculateAll();
    EXPECT_EQ(lab.calls(), joined({kHead, kSpectrumDraw, kTail, kInverse}));
}

TEST(Calculation, WithMasksTheForwardRunPaintsThemAtItsEnd) {
    ChannelUnderTest lab;
    lab.channel.SetCanvas(lab.pb1, lab.pb2, lab.pb3, 2);
    lab.show(scene);
    lab.channel.SetFilterFT(4);
    lab.log.clear();
    lab.channel.runFOURN(1);
    EXPECT_EQ(lab.calls(), joined({kHead, kSpectrumDraw, kInverse, {"DrawMasks(2)"}, kTail}));
}

TEST(Calculation, GivesTheFactorsTheirStartAndTheFileItsName) {
    ChannelUnderTest lab;
    lab.channel.file = "C:\\Images\\one.jpg";
    lab.channel.CalculateAll();
    EXPECT_EQ(lab.channel.sfile, "one.jpg");
    EXPECT_EQ(lab.channel.linearFactor(), 100);
    EXPECT_EQ(lab.channel.sqrtFactor(), 1);
    lab.channel.setIntFac(3);
    lab.channel.CalculateAll();
    EXPECT_EQ(lab.channel.sqrtFactor(), 3);
}

TEST(Calculation, MarksThePanelsAsComputed) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.pb1.Tag = lab.pb2.Tag = "old";
    lab.pb3.Tag = "3D";
    lab.channel.CalculateAll();
    EXPECT_EQ(lab.pb1.Tag, "!");
    EXPECT_EQ(lab.pb2.Tag, "!");
    EXPECT_EQ(lab.pb3.Tag, "!");
}

TEST(ForwardTransform, InABatchLeavesTheReconstruction) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.bBatch = true;
    lab.channel.runFOURN(1);
    EXPECT_EQ(lab.count("showNow pb3"), 0);
    EXPECT_EQ(lab.channel.reconstruction()(5, 5).re, 0);
    EXPECT_EQ(lab.pb1.Tag, "!");
    EXPECT_EQ(lab.pb2.Tag, "!");
    EXPECT_EQ(lab.pb3.Tag, "");
}

TEST(ForwardTransform, AnArgumentSetsTheLinearFactorToZero) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.CalculateAll();
    lab.channel.runFOURN(0, 1);
    EXPECT_EQ(lab.channel.linearFactor(), 0);
    lab.channel.CalculateAll();
    EXPECT_EQ(lab.channel.linearFactor(), 100);
}

TEST(ForwardTransform, AnyPositiveDirectionIsForwardAndAnyOtherInverse) {
    ChannelUnderTest lab;
    lab.channel.bBatch = true;
    lab.show(scene);
    lab.channel.runFOURN(7);
    EXPECT_EQ(lab.count("showNow pb2"), 1);
    EXPECT_EQ(lab.count("showNow pb3"), 0);
    lab.channel.runFOURN(-3);
    EXPECT_EQ(lab.count("showNow pb2"), 1);
    EXPECT_EQ(lab.count("showNow pb3"), 1);
}

TEST(ForwardTransform, ABlackImageLeavesBothPanelsAndAnEmptySpectrum) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.CalculateAll();
    const Bitmap spectrum = lab.pb2.Image();
    const Bitmap reconstruction = lab.pb3.Image();
    const Long pen = lab.channel.pencolor;
    lab.show([](int, int) { return 0; });
    lab.pb1.Tag = lab.pb2.Tag = lab.pb3.Tag = "";
    lab.log.clear();
    lab.channel.CalculateAll();
    EXPECT_EQ(lab.pb2.Image(), spectrum);
    EXPECT_EQ(lab.pb3.Image(), reconstruction);
    EXPECT_EQ(lab.channel.pencolor, pen);
    for (Long u = 0; u <= 256; ++u)
        for (Long v = 0; v <= 256; ++v) {
            ASSERT_EQ(lab.channel.spectrum()(u, v).re, 0);
            ASSERT_EQ(lab.channel.spectrum()(u, v).im, 0);
            ASSERT_EQ(lab.channel.reconstruction()(u, v).re, 0);
        }
    EXPECT_EQ(lab.pb1.Tag + lab.pb2.Tag + lab.pb3.Tag, "");
    // No inverse inside the forward run; the one of the calculation ends early too.
    EXPECT_EQ(lab.calls(), joined({kHead, kTail, kHead, kTail}));
}

TEST(ForwardTransform, AWhiteImageHasOnlyItsZeroFrequencyAndTakesTheBlackPen) {
    ChannelUnderTest lab;
    lab.channel.pencolor = 77;
    lab.show([](int, int) { return 255; });
    lab.channel.CalculateAll();
    EXPECT_EQ(lab.channel.pencolor, 0);
    const Single whole = 255.0F * kCells;
    const Single tolerance = std::numeric_limits<Single>::epsilon() * 16 * whole;
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v) {
            const ComplexCell cell = lab.channel.spectrum()(u, v);
            ASSERT_NEAR(cell.re, u == 0 && v == 0 ? whole : 0.0F, tolerance);
            ASSERT_NEAR(cell.im, 0.0F, tolerance);
        }
}

TEST(ForwardTransform, TheMeanGreyChoosesThePenWithTiesToEven) {
    ChannelUnderTest lab;
    const auto halves = [](int low) { return [low](int x, int) { return low + x % 2; }; };
    lab.show(halves(127));
    lab.channel.runFOURN(1);
    EXPECT_EQ(lab.channel.pencolor, 0) << "127.5 counts as 128";
    lab.show(halves(126));
    lab.channel.runFOURN(1);
    EXPECT_EQ(lab.channel.pencolor, kWhitePen) << "126.5 counts as 126";
    lab.show([](int, int) { return 128; });
    lab.channel.runFOURN(1);
    EXPECT_EQ(lab.channel.pencolor, 0);
    lab.show([](int x, int y) { return x == 0 && y == 0 ? 128 : 127; });
    lab.channel.runFOURN(1);
    EXPECT_EQ(lab.channel.pencolor, kWhitePen);
}

TEST(ForwardTransform, OfAColouredPixelOnlyTheLowestByteCounts) {
    ChannelUnderTest grey;
    grey.show([](int x, int y) { return (x * 3 + y) % 256; });
    grey.channel.runFOURN(1);
    ChannelUnderTest coloured;
    Bitmap picture(256, 256);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            picture.at(x, y) = (x * 3 + y) % 256 | (x & 0xFF) << 8 | (y & 0xFF) << 16;
    coloured.pb1.setPicture(picture);
    coloured.channel.runFOURN(1);
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v)
            ASSERT_EQ(coloured.channel.spectrum()(u, v).re, grey.channel.spectrum()(u, v).re);
    EXPECT_EQ(coloured.channel.pencolor, grey.channel.pencolor);
}

TEST(ForwardTransform, TheFirstIndexOfTheSpectrumRunsToTheRight) {
    ChannelUnderTest lab;
    // A wave of three periods along x.
    lab.show([](int x, int) {
        return static_cast<int>(std::lround(127 + 100 * std::cos(2 * 3.14159265 * 3 * x / 256)));
    });
    lab.channel.runFOURN(1);
    const ComplexGrid& spectrum = lab.channel.spectrum();
    EXPECT_GT(spectrum(3, 0).re, 49 * kCells);
    EXPECT_GT(spectrum(253, 0).re, 49 * kCells);
    EXPECT_LT(std::abs(spectrum(0, 3).re), 0.01F * kCells);
}

TEST(ForwardTransform, HasTheBitsOfThePlainLoop) {
    for (int kind = 0; kind < 4; ++kind) {
        const std::vector<std::uint8_t> pixels = testPicture(kind);
        ChannelUnderTest lab;
        lab.show([&](int x, int y) { return pixels[static_cast<std::size_t>(y * 256 + x)]; });
        lab.channel.runFOURN(1);
        FournGrid grid({256, 256});
        for (std::size_t k = 0; k < grid.elements(); ++k)
            grid.re(k) = pixels[k % 256 * 256 + k / 256];
        plainFourn(grid.data, grid.nn, 2, 1);
        for (std::size_t k = 0; k < grid.elements(); ++k) {
            const ComplexCell cell =
                lab.channel.spectrum()(static_cast<Long>(k / 256), static_cast<Long>(k % 256));
            ASSERT_EQ(cell.re, grid.re(k)) << "picture " << kind << ", element " << k;
            ASSERT_EQ(cell.im, grid.im(k)) << "picture " << kind << ", element " << k;
        }
    }
}

TEST(ForwardTransform, HasAPositiveSignInTheExponent) {
    ChannelUnderTest lab;
    lab.show([](int x, int y) { return x == 1 && y == 0 ? 200 : 0; });
    lab.channel.runFOURN(1);
    // exp(+2 pi i / 4) = i
    EXPECT_NEAR(lab.channel.spectrum()(64, 0).im, 200.0F, 0.001F);
    EXPECT_NEAR(lab.channel.spectrum()(64, 0).re, 0.0F, 0.001F);
    EXPECT_NEAR(lab.channel.spectrum()(0, 64).re, 200.0F, 0.001F);
}

TEST(ForwardTransform, APanelThatGivesTooFewBytesIsToldAtEachRunAndTransformedAsItCame) {
    ChannelUnderTest lab;
    PictureBox small("small", 256, 128);
    small.setPicture(Bitmap(256, 128, 0x00404040));
    lab.channel.SetCanvas(small, lab.pb2, lab.pb3, 1);
    lab.channel.runFOURN(1);
    const RecordingDialogs::Message expected{"Screen must be set to 32-bit True Color!",
                                             "System Requirement", MessageIcon::Critical,
                                             MessageButtons::Ok};
    EXPECT_EQ(lab.desktop.dialogs.messages, std::vector{expected});
    EXPECT_EQ(lab.channel.spectrum()(0, 0).re, 64.0F * 256.0F * 128.0F);
    EXPECT_EQ(lab.count("showNow pb2"), 1);
    lab.channel.runFOURN(1);
    EXPECT_EQ(lab.desktop.dialogs.messages.size(), 2U);
    lab.channel.runFOURN(0);
    EXPECT_EQ(lab.desktop.dialogs.messages.size(), 2U);
}

TEST(ForwardTransform, TheSideIs256WhateverWasSet) {
    ChannelUnderTest lab;
    lab.show([](int, int) { return 1; });
    lab.channel.SetDimensionFFT(512);
    lab.desktop.dialogs.messages.clear();
    lab.channel.runFOURN(1);
    EXPECT_EQ(lab.channel.spectrum().xBound(), 256);
    EXPECT_EQ(lab.channel.spectrum()(0, 0).re, kCells);
    // More bytes are asked for than the panel has.
    EXPECT_EQ(lab.desktop.dialogs.messages.size(), 1U);
}

TEST(ForwardTransform, AChannelWithoutADimensionRunsToItsEnd) {
    RecordingDesktop desktop;
    RecordingMaskPainter masks{desktop.log};
    Rnd rnd;
    clComplexImage channel{desktop.desktop(), masks, rnd};
    channel.CalculateAll();
    EXPECT_EQ(desktop.screen.pointers, (std::vector<Integer>{11, 0, 11, 0}));
    EXPECT_EQ(channel.spectrum().xBound(), 256);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST(InverseTransform, OfAnEmptySpectrumLeavesThePanel) {
    ChannelUnderTest lab;
    ChannelUnderTest::lay(lab.pb3, scene);
    const Bitmap before = lab.pb3.Image();
    lab.log.clear();
    lab.channel.runFOURN(0);
    EXPECT_EQ(lab.pb3.Image(), before);
    EXPECT_EQ(lab.pb3.Tag, "");
    EXPECT_EQ(lab.calls(), joined({kHead, kTail}));
}

TEST(InverseTransform, KeepsOnlyTheRealPart) {
    ChannelUnderTest lab;
    lab.show(noise(3));
    lab.channel.CalculateAll();
    for (Long x = 0; x < 256; ++x)
        for (Long y = 0; y < 256; ++y)
            ASSERT_EQ(lab.channel.reconstruction()(x, y).im, 0);
}

TEST(InverseTransform, LeavesTheSpectrum) {
    ChannelUnderTest lab;
    lab.show(noise(4));
    lab.channel.runFOURN(1);
    const ComplexGrid before = lab.channel.spectrum();
    lab.channel.SetFilterFT(2);
    lab.channel.SetFilterRad(20);
    lab.channel.runFOURN(0);
    for (Long u = 0; u <= 256; ++u)
        for (Long v = 0; v <= 256; ++v) {
            ASSERT_EQ(lab.channel.spectrum()(u, v).re, before(u, v).re);
            ASSERT_EQ(lab.channel.spectrum()(u, v).im, before(u, v).im);
        }
}

TEST(StatusText, NamesTheFilterInForceInBothDirections) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.runFOURN(1);
    lab.lbSTB.Caption = std::string("something else");
    lab.channel.runFOURN(0);
    EXPECT_EQ(lab.lbSTB.Caption.get(), "");

    lab.channel.SetFilterFT(2);
    lab.channel.SetFilterRad(12.5F);
    lab.channel.runFOURN(0);
    EXPECT_EQ(lab.lbSTB.Caption.get(), " (Low-pass filter r=12.5)");
    lab.channel.SetFilterRad(5);
    lab.channel.runFOURN(1);
    EXPECT_EQ(lab.lbSTB.Caption.get(), " (Low-pass filter r=5)");

    lab.channel.SetFilterFT(3);
    lab.channel.SetFilterRad(33.33333F);
    lab.channel.runFOURN(0);
    EXPECT_EQ(lab.lbSTB.Caption.get(), " (High-pass filter r=33.33333)");

    lab.channel.SetFilterFT(4);
    lab.channel.runFOURN(0);
    EXPECT_EQ(lab.lbSTB.Caption.get(), " (Custom filter)");

    lab.channel.NoFilterFT();
    lab.channel.runFOURN(0);
    EXPECT_EQ(lab.lbSTB.Caption.get(), "");
}

TEST(StatusText, IsShownBeforeTheTransform) {
    ChannelUnderTest lab;
    lab.show(scene);
    lab.channel.SetFilterFT(2);
    lab.channel.SetFilterRad(7);
    std::string shown;
    lab.watcher.onShow = [&](Control& control) {
        if (&control == &lab.lbSTB && shown.empty())
            shown =
                lab.lbSTB.Caption.get() + (lab.channel.spectrum()(0, 0).re == 0 ? " early" : "");
    };
    lab.channel.runFOURN(1);
    EXPECT_EQ(shown, " (Low-pass filter r=7) early");
}

class ThrowingMaskPainter : public MaskPainter {
public:
    void DrawMasks(Integer) override { throw RunTimeError(ErrorNumber::InvalidPropertyValue); }
};

TEST(FailureInARun, IsPassedOverAndThePointerComesBack) {
    ChannelUnderTest lab;
    ThrowingMaskPainter masks;
    clComplexImage channel{lab.desktop.desktop(), masks, lab.rnd};
    channel.SetMessageLabel(lab.lbSTB);
    channel.SetCanvas(lab.pb1, lab.pb2, lab.pb3, 1);
    channel.SetDimensionFFT(256);
    channel.SetFilterFT(4);
    lab.watcher.onShow = [&](Control& control) {
        if (&control == &lab.lbSTB)
            throw RunTimeError(ErrorNumber::DeviceIoError);
    };
    lab.show(scene);
    lab.desktop.screen.pointers.clear();
    channel.CalculateAll();
    EXPECT_EQ(lab.desktop.screen.pointers, (std::vector<Integer>{11, 11, 0, 0, 11, 0}));
    EXPECT_EQ(lab.pb1.Tag, "!");
    EXPECT_EQ(lab.pb2.Tag, "!");
    EXPECT_EQ(lab.pb3.Tag, "!");
    EXPECT_NE(channel.reconstruction()(10, 10).re, 0);
    // Each of the three draws tells of its own failure.
    ASSERT_EQ(lab.desktop.dialogs.messages.size(), 3U);
    EXPECT_EQ(lab.desktop.dialogs.messages[0].text, "Error in DrawFT: Invalid property value");
}

}  // namespace
}  // namespace quillon
