#include <gtest/gtest.h>

#include <limits>

#include "tests/support/ChannelUnderTest.h"
#include "tests/support/fourn_grids.h"
#include "tests/support/plain_fourn.h"

namespace quillon {
namespace {

constexpr Long kWhitePen = 16777215;

/// A spectrum with one value, away from the zero frequency.
ExchangeArray onlyValue(Single re, Single im) {
    ExchangeArray spectrum(256, 256);
    spectrum(3, 5, 0) = re;
    spectrum(3, 5, 1) = im;
    return spectrum;
}

class StateOfARun : public testing::Test {
protected:
    StateOfARun() {
        lab.show(scene);
        channel.CalculateAll();
    }

    /// The inverse of a spectrum of one value shows nothing and leaves zeros.
    void expectNoPictureOf(Single re, Single im) {
        const Bitmap before = lab.pb3.Image();
        channel.SetFTArray(onlyValue(re, im));
        lab.pb3.Tag = "";
        lab.log.clear();
        channel.runFOURN(0);
        EXPECT_EQ(lab.pb3.Image(), before);
        EXPECT_EQ(lab.pb3.Tag, "");
        EXPECT_EQ(lab.count("showNow pb3"), 0);
        for (Long x = 0; x <= 256; ++x)
            for (Long y = 0; y <= 256; ++y)
                ASSERT_EQ(channel.reconstruction()(x, y).re, 0);
    }

    ChannelUnderTest lab;
    clComplexImage& channel = lab.channel;
};

TEST_F(StateOfARun, ASpectrumOfImaginaryPartsAloneCountsAsEmpty) {
    expectNoPictureOf(0.0F, 1e6F);
}

TEST_F(StateOfARun, ARealPartThatVanishesInTheDivisionByTheCellsCountsAsNone) {
    expectNoPictureOf(std::numeric_limits<Single>::denorm_min(), 0.0F);
}

TEST_F(StateOfARun, OneRealPartBringsTheImaginaryPartsAlong) {
    channel.SetFTArray(onlyValue(65536.0F, 65536.0F));
    channel.runFOURN(0);
    // The real part of (1 + i) exp(-2 pi i (3 x + 5 y) / 256).
    EXPECT_NEAR(channel.reconstruction()(0, 0).re, 1.0F, 1e-4F);
    EXPECT_NEAR(channel.reconstruction()(64, 0).re, -1.0F, 1e-4F);
    EXPECT_NEAR(channel.reconstruction()(0, 64).re, 1.0F, 1e-4F);
}

TEST_F(StateOfARun, AnInverseAloneMarksTheReconstructionAndTheImageButNotTheSpectrum) {
    lab.pb1.Tag = lab.pb2.Tag = lab.pb3.Tag = "";
    channel.runFOURN(0);
    EXPECT_EQ(lab.pb1.Tag, "!");
    EXPECT_EQ(lab.pb2.Tag, "");
    EXPECT_EQ(lab.pb3.Tag, "!");
}

TEST_F(StateOfARun, TheSpectrumIsMarkedAfterItsDrawAndBeforeTheInverse) {
    lab.pb1.Tag = lab.pb2.Tag = "";
    std::string marks;
    lab.watcher.onShow = [&](Control& control) {
        if (&control == &lab.pb2 || &control == &lab.pb3)
            marks += control.Name + ":" + lab.pb1.Tag + lab.pb2.Tag + " ";
    };
    channel.runFOURN(1);
    EXPECT_EQ(marks, "pb2: pb3:!! ");
}

TEST_F(StateOfARun, AnotherDimensionEmptiesSpectrumAndReconstruction) {
    ASSERT_NE(channel.spectrum()(0, 0).re, 0);
    ASSERT_NE(channel.reconstruction()(100, 140).re, 0);
    channel.SetDimensionFFT(256);
    EXPECT_EQ(channel.spectrum()(0, 0).re, 0);
    EXPECT_EQ(channel.reconstruction()(100, 140).re, 0);
}

// The run puts the sides back to 256 but not their product, which the mean and
// the division before the inverse take as it was set.
TEST_F(StateOfARun, MeanAndInverseDivideByTheNumberOfCellsThatWasSet) {
    lab.show([](int, int) { return 255; });
    channel.SetDimensionFFT(512);
    channel.runFOURN(1);
    EXPECT_EQ(channel.pencolor, kWhitePen);
    EXPECT_NEAR(channel.reconstruction()(7, 9).re, 255.0F / 4, 0.01F);
}

TEST_F(StateOfARun, TheDivisionByAnyNumberOfCellsIsRoundedOnce) {
    for (const Integer side : std::initializer_list<Integer>{100, 255, 257, 300}) {
        channel.SetDimensionFFT(side);
        channel.runFOURN(1);
        FournGrid grid({256, 256});
        const double cells = static_cast<double>(side) * side;
        for (std::size_t k = 0; k < grid.elements(); ++k) {
            const ComplexCell cell =
                channel.spectrum()(static_cast<Long>(k / 256), static_cast<Long>(k % 256));
            grid.re(k) = static_cast<Single>(cell.re / cells);
            grid.im(k) = static_cast<Single>(cell.im / cells);
        }
        plainFourn(grid.data, grid.nn, 2, -1);
        for (std::size_t k = 0; k < grid.elements(); ++k)
            ASSERT_EQ(
                channel.reconstruction()(static_cast<Long>(k / 256), static_cast<Long>(k % 256)).re,
                grid.re(k))
                << "side " << side << ", element " << k;
    }
}

TEST_F(StateOfARun, AnInfiniteSpectrumLeavesThePictureWithAMessage) {
    const Bitmap before = lab.pb3.Image();
    ExchangeArray spectrum = onlyValue(1, 0);
    channel.SetFTArray(spectrum);
    lab.desktop.dialogs.messages.clear();
    const Bitmap whole = lab.pb3.Image();
    EXPECT_NE(whole, before);
    spectrum(7, 9, 0) = std::numeric_limits<Single>::infinity();
    channel.SetFTArray(spectrum);
    EXPECT_EQ(lab.pb3.Image(), whole);
    ASSERT_EQ(lab.desktop.dialogs.messages.size(), 2U) << "of the spectrum's draw and its own";
    EXPECT_EQ(lab.desktop.dialogs.messages[1].text, "Error in DrawFT: Overflow");
}

TEST_F(StateOfARun, ATextForEachFlagIsShownInOrderAndTheLastOneStands) {
    channel.bLowpass = channel.bHighpass = channel.bMask = true;
    channel.SetFilterRad(3);
    std::vector<std::string> texts;
    lab.watcher.onShow = [&](Control& control) {
        if (&control == &lab.lbSTB)
            texts.push_back(lab.lbSTB.Caption.get());
    };
    channel.runFOURN(0);
    EXPECT_EQ(texts, (std::vector<std::string>{"", " (Low-pass filter r=3)",
                                               " (High-pass filter r=3)", " (Custom filter)"}));
}

TEST_F(StateOfARun, AFilterWithoutAKindLeavesTheTextThatStands) {
    lab.lbSTB.Caption = std::string("as it was");
    channel.bFilter = true;
    channel.runFOURN(0);
    EXPECT_EQ(lab.lbSTB.Caption.get(), "as it was");
}

}  // namespace
}  // namespace quillon
