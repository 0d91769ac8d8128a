#include <string>

#include "tests/support/CommandFixture.h"
#include "tests/support/error_of.h"

// Scripts that run in the window.

namespace quillon {
namespace {

class Scripts : public CommandFixture {
protected:
    /// Runs a text as the script C:\Q\lesson.ftscr.
    void run(const std::string& text) {
        desktop.files.addFile(kScript, text);
        form.ReadScript(kScript);
    }
    /// The marks of "Invert Image" of panels 1 to 6 as "x" and "-".
    std::string invertMarks() {
        std::string marks;
        for (const MenuArray first : {MenuArray::mnuImg1a, MenuArray::mnuImg2a})
            for (int k = 0; k < 3; ++k)
                marks += form.menu(panelMenu(first, k), k == 0 ? 9 : 6).Checked ? "x" : "-";
        return marks;
    }
    static MenuArray panelMenu(MenuArray image, int kind) {
        const bool top = image == MenuArray::mnuImg1a;
        if (kind == 0)
            return image;
        if (kind == 1)
            return top ? MenuArray::mnuFT1a : MenuArray::mnuFT2a;
        return top ? MenuArray::mnuNew1a : MenuArray::mnuNew2a;
    }
    bool isFilterMarked(MenuArray array, Integer index) { return form.menu(array, index).Checked; }

    static constexpr const char* kScript = "C:\\Q\\lesson.ftscr";
};

TEST_F(Scripts, ALowerCaseRResetsBothChannelsAndAnUpperCaseRDoesNot) {
    form.mnuFT1a(10);
    form.mnuFT2a(12);
    form.mnuImg1a(9);
    form.mnuNew2a(6);
    form.itmOpt(14);
    EXPECT_EQ(invertMarks(), "x----x");
    form.KeyPress('R');
    EXPECT_EQ(invertMarks(), "x----x");
    const Bitmap inverted = form.pb1.Image();
    desktop.log.clear();

    Integer key = 'r';
    form.remoteKeyPress(key);
    EXPECT_EQ(invertMarks(), "------");
    for (const Channel which : kBoth) {
        EXPECT_FALSE(channel(which).bFilter);
        EXPECT_EQ(channel(which).mView, 0);
        for (Integer kind = 0; kind < 3; ++kind)
            EXPECT_FALSE(channel(which).GetInvert(kind));
    }
    EXPECT_TRUE(isFilterMarked(MenuArray::mnuFT1a, 9));
    EXPECT_TRUE(isFilterMarked(MenuArray::mnuFT2a, 9));
    EXPECT_TRUE(form.menu(MenuArray::itmOpt, 12).Checked);
    EXPECT_EQ(form.pb1.Image(), inverted) << "the flag goes, the pixels stay";
    EXPECT_GE(transforms(), 6) << "both channels are recalculated";
}

TEST_F(Scripts, ADroppedScriptRunsWhicheverPanelTookIt) {
    for (PictureBox* panel : {&form.pb1, &form.pb4})
        for (const std::string file : {"C:\\Q\\lesson.ftscr", "C:\\Q\\lesson.FtScr"}) {
            desktop.files.addFile(file, "LOWPASS 7");
            form.ResetForScript();
            form.OLEDragDrop(*panel, {file, "C:\\a.bmp"});
            EXPECT_TRUE(form.lab.channel1.bLowpass) << file;
            EXPECT_FALSE(form.lab.channel2.bLowpass);
        }
}

TEST_F(Scripts, ADroppedMaskFileDoesNothing) {
    desktop.files.addFile("C:\\Q\\two.ftmsk", "1 2 3 4");
    form.mnuFT1a(12);
    form.OLEDragDrop(form.pb1, {"C:\\Q\\two.ftmsk"});
    EXPECT_EQ(form.lab.channel1.nmask, 0);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(Scripts, ARadiusIsRoundedUpToTheNextHalfByTheRing) {
    run("LOWPASS 12,5\r\nBOTTOM\r\nHIGHPASS 20");
    EXPECT_EQ(form.lab.channel1.filter_rad, 12.5F);
    EXPECT_EQ(form.lab.channel2.filter_rad, 20.5F);
    run("LOWPASS");
    EXPECT_EQ(form.lab.channel1.filter_rad, 0.5F);
    EXPECT_TRUE(form.lab.channel1.bLowpass);
}

TEST_F(Scripts, ANegativeRadiusIsAFailureOfItsCommand) {
    EXPECT_EQ(errorOf([&] { form.SetFilterRing(0, -1); }), ErrorNumber::InvalidPropertyValue);
    run("HIGHPASS -1\r\nTITLE a");
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.messages[0].text,
              "Error in Read Script: [HIGHPASS]Invalid property value");
}

TEST_F(Scripts, ARadiusTooLargeForTheRingIsAFailureOfItsCommand) {
    run("LOWPASS 1e39");
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.messages[0].text, "Error in Read Script: [LOWPASS]Overflow");
}

TEST_F(Scripts, TheFilterOfAScriptActsInItsClosingTransform) {
    run("LOWPASS 8,5");
    const Bitmap byScript = form.pb3.Image();
    form.ResetForScript();
    form.mnuFT1a(10);
    form.SetFilterRing(0, 8.5F);
    form.lab.channel1.CalculateAll();
    EXPECT_EQ(byScript, form.pb3.Image());
}

TEST_F(Scripts, InvertsAreMarkedInTheMenusAndShown) {
    const Bitmap before = form.pb1.Image();
    const Bitmap spectrumBefore = form.pb2.Image();
    run("INVERT1\r\nINVERT3\r\nBOTTOM\r\nINVERT2");
    EXPECT_EQ(invertMarks(), "x-x-x-");
    EXPECT_EQ(form.pb1.Image().at(10, 10), ~before.at(10, 10) & 0xFFFFFF);
    EXPECT_EQ(form.pb2.Image(), spectrumBefore) << "the spectrum is that of the upright image";
    EXPECT_TRUE(form.lab.channel2.GetInvert(1));
    run("");
    EXPECT_EQ(invertMarks(), "------");
}

TEST_F(Scripts, TheSavesOfAScriptWriteWhatThePanelsShowAtThatMoment) {
    const Bitmap spectrumBefore = form.pb2.Image();
    run("LOAD1 Halvard-Image2.jpg\r\nSAVE1 image.bmp\r\nSAVE2 spectrum");
    ASSERT_EQ(desktop.pictures.saved.size(), 1U) << "a name without a point is not saved";
    EXPECT_EQ(desktop.pictures.saved[0].first, folders.ImagePath + "image.bmp");
    EXPECT_EQ(desktop.pictures.saved[0].second, squaresPicture());
    run("LOAD1 Halvard-Image1.jpg");
    EXPECT_EQ(form.pb2.Image(), spectrumBefore);
    run("LOAD1 Halvard-Image2.jpg\r\nSAVE2 spectrum.bmp");
    EXPECT_EQ(desktop.pictures.saved[1].second, spectrumBefore)
        << "the spectrum of the picture before the load";
}

TEST_F(Scripts, ADeconvolutionByAnEmptySpectrumFailsInTheReadersHandler) {
    form.NewPanelImage(4);
    form.lab.channel2.file.clear();
    run("CONVOLVE2\r\nDECONVOLVE1\r\nRNDPHASES");
    const Bitmap before = form.pb3.Image();
    EXPECT_EQ(desktop.dialogs.messages.back().text,
              "Error in Read Script: [RNDPHASES]Division by zero");
    EXPECT_EQ(status(2), "Convolution Performed") << "what came before it stays done";
    desktop.dialogs.messages.clear();
    run("DECONVOLVE1\r\nDECONVOLVE2");
    EXPECT_EQ(desktop.dialogs.messages.size(), 1U) << "the second one does not run";
    run("DECONVOLVE2");
    EXPECT_EQ(desktop.dialogs.messages.back().text,
              "Error in Read Script: [DECONVOLVE2]Division by zero");
    run("");
    EXPECT_NE(before, form.pb3.Image()) << "the phases had been randomised before the failure";
}

TEST_F(Scripts, ADeferredCommandDoesWhatItsMenuEntryDoes) {
    const std::pair<const char*, const char*> commands[] = {
        {"RNDPHASES", "FT Phases Randomized"},      {"RNDMODULI", "FT Magnitudes Randomized"},
        {"CONVOLVE1", "Convolution Performed"},     {"CONVOLVE2", "Convolution Performed"},
        {"DECONVOLVE1", "Deconvolution Performed"}, {"DECONVOLVE2", "Deconvolution Performed"}};
    for (const auto& [command, text] : commands) {
        run("");
        const Bitmap top = form.pb3.Image();
        const Bitmap bottom = form.pb6.Image();
        run(command);
        EXPECT_EQ(status(2), text) << command;
        const bool both = std::string(command).starts_with("RND");
        const bool intoTop = std::string(command).ends_with("1");
        EXPECT_EQ(form.pb3.Image() != top, both || intoTop) << command;
        EXPECT_EQ(form.pb6.Image() != bottom, both || !intoTop) << command;
    }
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(Scripts, ANewImageKeepsTheFileOfItsChannelForTheClosingStage) {
    run("LOWPASS 9\r\nNEW1\r\nINVERT1");
    EXPECT_EQ(form.lab.channel1.file, sample1);
    EXPECT_FALSE(form.lab.channel1.bFilter) << "the filter went with the old image";
    EXPECT_TRUE(isFilterMarked(MenuArray::mnuFT1a, 9));
    EXPECT_EQ(form.pb1.Image(), Bitmap(256, 256, 0xFFFFFF))
        << "a channel that holds a file is transformed and inverted";
    EXPECT_EQ(form.lab.channel1.spectrum()(0, 0).re, 0)
        << "the spectrum is that of the black image";
}

TEST_F(Scripts, AFilterOfAScriptIsMarkedInItsMenu) {
    run("HIGHPASS 9\r\nBOTTOM\r\nMASK 1\r\n10 20 30 40");
    EXPECT_TRUE(isFilterMarked(MenuArray::mnuFT1a, 11));
    EXPECT_TRUE(isFilterMarked(MenuArray::mnuFT2a, 12));
    EXPECT_EQ(form.lab.channel2.nmask, 1);
    const Bitmap masked = form.pb6.Image();
    run("");
    EXPECT_TRUE(isFilterMarked(MenuArray::mnuFT1a, 9));
    EXPECT_TRUE(isFilterMarked(MenuArray::mnuFT2a, 9));
    EXPECT_NE(form.pb6.Image(), masked);
}

TEST_F(Scripts, TheStartScriptOfTheCommandLineTakesThePlaceOfTheSamples) {
    desktop.files.addFile("C:\\a b\\x.FtScr", "LOAD1 Halvard-Image2.jpg\r\nLOWPASS 5");
    desktop.environment.arguments = "\"C:\\a b\\x.FtScr\"";
    Form1 other(desktop.desktop(), folders);
    other.Form_Load();
    EXPECT_EQ(other.lab.channel1.file, sample2);
    EXPECT_TRUE(other.lab.channel1.bLowpass);
    EXPECT_EQ(other.lab.channel2.file, "");
}

}  // namespace
}  // namespace quillon
