#include <initializer_list>

#include "tests/support/CommandFixture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// Cells 0 and 1 of the strip while the mouse moves over the panels.
class PointerReadout : public CommandFixture {
protected:
    void over(Control& panel, Single x, Single y, Integer button = 0) {
        form.MouseMove(panel, button, 0, x, y);
    }
};

TEST_F(PointerReadout, AnImagePanelTellsItsFileAndTheGreyUnderThePointer) {
    for (const Channel which : kBoth) {
        image(which).SetPixelV(12, 34, RGB(201, 5, 7));
        over(image(which), 12, 34);
        EXPECT_EQ(status(0), channel(which).sfile + " ");
        EXPECT_EQ(status(1), "[12,34]  M=201") << "the red byte of the colour";
    }
}

TEST_F(PointerReadout, AReconstructionPanelTellsItsFileAndTheGreyUnderThePointer) {
    for (const Channel which : kBoth) {
        reconstruction(which).SetPixelV(255, 0, RGB(9, 9, 9));
        over(reconstruction(which), 255, 0);
        EXPECT_EQ(status(0), channel(which).sfile + " [iFT] ");
        EXPECT_EQ(status(1), "[255,0]  M=9");
    }
}

TEST_F(PointerReadout, OffAPictureTheGreyIsMinusOne) {
    over(form.pb1, -1, 5, kLeftButton);
    EXPECT_EQ(status(1), "[-1,5]  M=-1");
    over(form.pb6, 256, 300, kLeftButton);
    EXPECT_EQ(status(1), "[256,300]  M=-1");
}

TEST_F(PointerReadout, AnFtPanelTellsItsFileAndTheValueOfTheSpectrum) {
    for (const Channel which : kBoth) {
        over(spectrum(which), 128, 128);
        EXPECT_EQ(status(0), " [FT] " + channel(which).sfile);
        EXPECT_EQ(status(1), "[128,128] " + channel(which).getVXY(128, 128));
        EXPECT_EQ(status(1).substr(0, 14), "[128,128]  M= ");
    }
}

TEST_F(PointerReadout, TheFtReadOutShowsItsFileAtOnce) {
    desktop.log.clear();
    over(form.pb2, 10, 20);
    EXPECT_EQ(shown(form.lbSTB(0)), 1);
}

TEST_F(PointerReadout, AFileIsShownByItsNameAloneHoweverItsScriptWritesThePath) {
    const Bitmap picture = form.pb1.Image();
    for (const std::string path : {"/home/a b/cat.bmp", "\\home\\a b\\cat.bmp", "C:\\a\\cat.bmp",
                                   "/home/a/.config\\Images\\cat.bmp", "sub/cat.bmp"}) {
        desktop.pictures.add(path.starts_with("sub") ? folders.ImagePath + path : path, picture);
        desktop.files.addFile("C:\\cat.ftscr", "LOAD1 " + path + "\r\nBOTTOM\r\nLOAD1 " + path);
        form.ReadScript("C:\\cat.ftscr");
        ASSERT_TRUE(desktop.dialogs.messages.empty()) << path;
        for (const Channel which : kBoth) {
            EXPECT_EQ(channel(which).sfile, "cat.bmp") << path;
            over(image(which), 12, 34);
            EXPECT_EQ(status(0), "cat.bmp ") << path;
            over(spectrum(which), 12, 34);
            EXPECT_EQ(status(0), " [FT] cat.bmp") << path;
            form.PrintPanel(imagePanelId(which));
            EXPECT_EQ(desktop.printer.marks.front().text, "FFT - cat.bmp!") << path;
            desktop.printer.marks.clear();
        }
    }
}

TEST_F(PointerReadout, PositionsRoundHalfToEven) {
    over(form.pb2, 10.5F, 11.5F);
    EXPECT_EQ(status(1).substr(0, 7), "[10,12]");
}

TEST_F(PointerReadout, ACapturedMoveLeftOfAnFtPanelOrAboveItLeavesTheReadOutAsItWas) {
    over(form.pb5, 10, 20);
    const std::string before = status(1);
    for (const std::pair<Single, Single>& at :
         {std::pair{-1.0F, 5.0F}, {-400.0F, 5.0F}, {5.0F, -1.0F}, {5.0F, -400.0F}}) {
        EXPECT_EQ(errorOf([&] { over(form.pb5, at.first, at.second, kLeftButton); }),
                  ErrorNumber{});
        EXPECT_EQ(status(1), before);
    }
    over(form.pb5, 256, 300, kLeftButton);
    EXPECT_EQ(status(1).substr(0, 9), "[256,300]") << "to the right the values repeat";
}

TEST_F(PointerReadout, AltAloneOverAnFtPanelPlotsTheProfileAfterTheReadOut) {
    for (const Channel which : kBoth) {
        LineControl& line = form.Line1(which == Channel::One ? 0 : 1);
        for (const Integer shift : std::initializer_list<Integer>{0, 1, 2, 5, 6})
            form.MouseMove(spectrum(which), 0, shift, 10, 20);
        form.MouseMove(spectrum(which), kLeftButton, kAltKey, 10, 20);
        EXPECT_FALSE(line.Visible) << "a held button stops the profile";
        desktop.log.clear();
        form.MouseMove(spectrum(which), 0, kAltKey, 10, 20);
        EXPECT_TRUE(line.Visible);
        EXPECT_EQ(line.Y1, 20);
        EXPECT_EQ(line.Y2, 20);
        EXPECT_EQ(status(1), "[10,20] " + channel(which).getVXY(10, 20));
        EXPECT_LT(placeOf("showNow lbSTB(0)"), placeOf("showNow " + line.Name));
    }
}

/// The file cell when a picture is loaded while the pointer rests.
class FileCell : public PointerReadout {
protected:
    FileCell() {
        for (const char* name : {"C:\\new.bmp", "C:\\other.bmp"})
            desktop.pictures.add(name, discPicture());
        desktop.pictures.addUndecodable("C:\\broken.bmp");
    }
    /// The cell when the pointer has come onto a panel, and a file was loaded then.
    std::string afterLoad(Integer panel, Integer imagePanel, const std::string& file) {
        form.LoadPanelImage(1, sample1);
        form.LoadPanelImage(4, sample2);
        over(form.lab.panel(panel), 10, 10);
        form.LoadPanelImage(imagePanel, file);
        return status(0);
    }
};

TEST_F(FileCell, TakesTheNewNameInTheFormOfThePanelThatItShows) {
    EXPECT_EQ(afterLoad(1, 1, "C:\\new.bmp"), "new.bmp ");
    EXPECT_EQ(afterLoad(2, 1, "C:\\new.bmp"), " [FT] new.bmp");
    EXPECT_EQ(afterLoad(3, 1, "C:\\new.bmp"), "new.bmp [iFT] ");
    EXPECT_EQ(afterLoad(4, 4, "C:\\new.bmp"), "new.bmp ");
    EXPECT_EQ(afterLoad(5, 4, "C:\\new.bmp"), " [FT] new.bmp");
    EXPECT_EQ(afterLoad(6, 4, "C:\\new.bmp"), "new.bmp [iFT] ");
}

TEST_F(FileCell, IsLeftAloneByTheOtherChannelAndByALoadThatFails) {
    EXPECT_EQ(afterLoad(1, 4, "C:\\new.bmp"), "Halvard-Image1.jpg ");
    EXPECT_EQ(afterLoad(5, 1, "C:\\new.bmp"), " [FT] Halvard-Image2.jpg");
    EXPECT_EQ(afterLoad(3, 1, "C:\\broken.bmp"), "Halvard-Image1.jpg [iFT] ");
}

TEST_F(FileCell, IsEmptyUntilThePointerHasBeenOnAPanel) {
    form.LoadPanelImage(1, "C:\\new.bmp");
    EXPECT_EQ(status(0), "");
}

TEST_F(FileCell, FollowsEveryWayThatAPictureComesIn) {
    over(form.pb2, 10, 10);
    form.OLEDragDrop(form.pb1, {"C:\\new.bmp"});
    EXPECT_EQ(status(0), " [FT] new.bmp");
    desktop.files.write("C:\\load.ftscr", "TOP\r\nLOAD1 C:\\other.bmp\r\n");
    form.ReadScript("C:\\load.ftscr");
    EXPECT_EQ(status(0), " [FT] other.bmp");
    desktop.clipboard.content = discPicture();
    form.PasteImage(1);
    EXPECT_EQ(status(0), " [FT] clipboard.bmp");
    form.lab.channel1.file = sample1;
    form.ReloadImage(1);
    EXPECT_EQ(status(0), " [FT] Halvard-Image1.jpg");
}

TEST_F(FileCell, KeepsTheNameOfAScriptThatEndsBeforeItsTransform) {
    over(form.pb4, 10, 10);
    desktop.files.write("C:\\load.ftscr",
                        "BOTTOM\r\nLOAD1 C:\\other.bmp\r\nMASK missing.ftmsk\r\n");
    form.ReadScript("C:\\load.ftscr");
    EXPECT_EQ(status(0), channel(Channel::Two).sfile + " ");
}

TEST_F(PointerReadout, AMoveChangesNoPicture) {
    for (Integer panel = 1; panel <= 6; ++panel) {
        const Bitmap before = form.lab.panel(panel).Image();
        over(form.lab.panel(panel), 100, 100);
        EXPECT_EQ(form.lab.panel(panel).Image(), before);
    }
    EXPECT_EQ(transforms(), 0);
}

}  // namespace
}  // namespace quillon
