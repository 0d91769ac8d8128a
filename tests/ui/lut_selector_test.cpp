#include <gtest/gtest.h>

#include "engine/lut_selector.h"
#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

/// The words that a row of the selector brings into a table, read off the
/// picture itself; row 0 is the exact ramp.
std::array<Long, 256> wordsOfRow(int row) {
    const Bitmap picture = lutSelectorPicture();
    std::array<Long, 256> words{};
    for (int i = 0; i < 256; ++i)
        words[static_cast<std::size_t>(i)] =
            row == 0 ? i * 0x10101 : picture.at(i, row * kLutSelectorBandHeight + 5);
    return words;
}

class LutSelector : public OpenForm {
protected:
    void clickLine(Single y) { form.MouseUp(form.pbLUT, kLeftButton, 0, 100, y); }
    /// The colours of the button's first sixteen columns, each uniform.
    std::array<Long, 16> samples() {
        std::array<Long, 16> colors{};
        for (Long k = 0; k < 16; ++k) {
            colors[static_cast<std::size_t>(k)] = form.btLUT.GetPixel(k, 0);
            for (Long y = 1; y < static_cast<Long>(form.btLUT.ScaleHeight()); ++y)
                EXPECT_EQ(form.btLUT.GetPixel(k, y), form.btLUT.GetPixel(k, 0)) << k << " " << y;
        }
        return colors;
    }
    std::array<Long, 16> samplesOfRow(int row) {
        std::array<Long, 16> colors{};
        for (std::size_t k = 0; k < 16; ++k)
            colors[k] = exchangeRedAndBlue(wordsOfRow(row)[16 * k]);
        return colors;
    }
};

TEST_F(LutSelector, ThePictureLiesInTheSelector) {
    EXPECT_EQ(form.pbLUT.ScaleWidth(), 256);
    EXPECT_EQ(form.pbLUT.ScaleHeight(), 70);
    EXPECT_EQ(form.pbLUT.Image(), lutSelectorPicture());
}

TEST_F(LutSelector, EveryRowGoesToBothChannelsInTheBitmapsByteOrder) {
    for (Integer row = 0; row <= 6; ++row) {
        form.SelectLutRow(row);
        EXPECT_EQ(form.lab.channel1.grayTable(), wordsOfRow(row)) << row;
        EXPECT_EQ(form.lab.channel2.grayTable(), wordsOfRow(row)) << row;
        EXPECT_EQ(form.lab.channel1.activeTable(), wordsOfRow(row)) << row;
    }
}

TEST_F(LutSelector, ASchemesColoursReachTheTableUnexchanged) {
    form.SelectLutRow(1);
    // Column 128 of the first scheme is red DE, green 38, blue 36.
    EXPECT_EQ(form.lab.channel1.grayTable()[128], 0xDE3836);
    EXPECT_EQ(form.btLUT.GetPixel(8, 0), RGB(0xDE, 0x38, 0x36).value);
}

TEST_F(LutSelector, TheButtonShowsSixteenSamplesOverItsFullHeight) {
    for (Integer row = 0; row <= 6; ++row) {
        form.SelectLutRow(row);
        EXPECT_EQ(samples(), samplesOfRow(row)) << row;
    }
}

TEST_F(LutSelector, TheSamplesStayWhenTheButtonIsPaintedAgain) {
    form.SelectLutRow(3);
    form.btLUT.Refresh();
    EXPECT_EQ(samples(), samplesOfRow(3));
}

TEST_F(LutSelector, TheButtonShowsItsSamplesAtOnce) {
    RecordingWatcher watcher;
    form.btLUT.watch(&watcher);
    form.SelectLutRow(2);
    EXPECT_EQ(watcher.count("showNow btLUT"), 1);
    EXPECT_EQ(watcher.log.back(), "showNow btLUT");
}

TEST_F(LutSelector, TheRowOfTheSettingsRedrawsNothing) {
    const Bitmap before = form.pb2.Image();
    form.SelectLutRow(4);
    EXPECT_EQ(form.pb2.Image(), before);
    EXPECT_EQ(stored("LUT"), "0") << "only a click stores the row";
}

TEST_F(LutSelector, AClickRedrawsBothSpectraAndStoresTheRow) {
    const Bitmap first = form.pb2.Image();
    const Bitmap second = form.pb5.Image();
    clickLine(25 + 20);
    EXPECT_NE(form.pb2.Image(), first);
    EXPECT_NE(form.pb5.Image(), second);
    EXPECT_EQ(form.lab.channel1.grayTable(), wordsOfRow(4));
    EXPECT_EQ(form.lab.channel2.grayTable(), wordsOfRow(4));
    EXPECT_EQ(stored("LUT"), "4");
}

TEST_F(LutSelector, AClickOnTheTopBandGivesTheExactRamp) {
    clickLine(35);
    clickLine(4);
    EXPECT_EQ(form.lab.channel1.grayTable(), wordsOfRow(0));
    EXPECT_EQ(stored("LUT"), "0");
}

TEST_F(LutSelector, HalfwayLinesGoToTheEvenRow) {
    struct {
        Single y;
        const char* row;
    } const cases[] = {{0, "0"},  {10, "0"}, {11, "1"}, {19, "1"}, {20, "2"}, {25, "2"},
                       {30, "2"}, {31, "3"}, {40, "4"}, {50, "4"}, {60, "6"}, {69, "6"}};
    for (const auto& [y, row] : cases) {
        clickLine(y);
        EXPECT_EQ(stored("LUT"), row) << y;
    }
}

TEST_F(LutSelector, AReleaseFarOffThePictureChangesNothing) {
    clickLine(35);
    const auto before = form.lab.channel1.grayTable();
    for (const Single y : {-20.0F, 76.0F, 4000.0F}) {
        clickLine(y);
        EXPECT_EQ(form.lab.channel1.grayTable(), before) << y;
        EXPECT_EQ(stored("LUT"), "3") << y;
    }
}

TEST_F(LutSelector, ARowOutsideThePictureLeavesTablesAndButton) {
    form.SelectLutRow(5);
    for (const Integer row : {Integer{-1}, Integer{7}, Integer{32767}}) {
        form.SelectLutRow(row);
        EXPECT_EQ(form.lab.channel1.grayTable(), wordsOfRow(5)) << row;
        EXPECT_EQ(samples(), samplesOfRow(5)) << row;
    }
}

TEST_F(LutSelector, InThePhaseViewASchemeWaitsUntilTheMagnitudesReturn) {
    form.lab.channel1.SetFTView(2);
    const Bitmap phases = form.pb2.Image();
    clickLine(35);
    EXPECT_EQ(form.lab.channel1.grayTable(), wordsOfRow(3));
    EXPECT_EQ(form.lab.channel1.activeTable(), form.lab.channel1.hueTable());
    EXPECT_EQ(form.pb2.Image(), phases);
    form.lab.channel1.SetFTView(0);
    EXPECT_EQ(form.lab.channel1.activeTable(), wordsOfRow(3));
}

TEST_F(LutSelector, TheButtonOpensAndClosesTheSelector) {
    EXPECT_FALSE(form.frLUT.Visible);
    form.Click(form.btLUT);
    EXPECT_TRUE(form.frLUT.Visible);
    form.Click(form.btLUT);
    EXPECT_FALSE(form.frLUT.Visible);
}

TEST_F(LutSelector, TheCrossClosesTheSelector) {
    form.Click(form.btLUT);
    form.Click(form.Label1);
    EXPECT_FALSE(form.frLUT.Visible);
    form.Click(form.Label1);
    EXPECT_FALSE(form.frLUT.Visible);
}

TEST_F(LutSelector, AChoiceLeavesTheSelectorOpen) {
    form.Click(form.btLUT);
    clickLine(35);
    EXPECT_TRUE(form.frLUT.Visible);
}

}  // namespace
}  // namespace quillon
