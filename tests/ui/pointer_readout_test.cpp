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

TEST_F(PointerReadout, AFileIsToldByItsNameAloneHoweverItsScriptWritesThePath) {
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
    for (const auto& [x, y] : {std::pair{-1, 5}, {-400, 5}, {5, -1}, {5, -400}}) {
        EXPECT_EQ(errorOf([&] {
                      over(form.pb5, static_cast<Single>(x), static_cast<Single>(y), kLeftButton);
                  }),
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
