#include "app/image_io.h"

#include <initializer_list>

#include "engine/RunTimeError.h"
#include "engine/stretch.h"
#include "tests/app/ImageIoFixture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

// --- A new image

TEST_F(ImageIo, ANewImageEmptiesThePanelsOfItsChannelOnly) {
    loadBoth();
    markChannels();
    pb1.setBackColor(kWhite);
    lab.guiColors[1] = RGB(80, 140, 192);
    const Bitmap otherImage = pb4.Image();
    NewPanelImage(lab, 1);
    EXPECT_EQ(pb1.Image(), Bitmap(256, 256, 0));
    EXPECT_EQ(pb2.Image(), Bitmap(256, 256, 0x508CC0));
    EXPECT_EQ(pb3.Image(), Bitmap(256, 256, 0x508CC0));
    EXPECT_TRUE(pb1.Picture().empty());
    EXPECT_TRUE(pb2.Picture().empty());
    EXPECT_TRUE(pb3.Picture().empty());
    EXPECT_EQ(pb1.Tag + pb2.Tag + pb3.Tag, "");
    EXPECT_EQ(channel1.nmask, 0);
    EXPECT_EQ(pb4.Image(), otherImage);
    EXPECT_EQ(pb4.Tag, "marked");
    EXPECT_EQ(channel2.nmask, 2);
}

TEST_F(ImageIo, ANewImageKeepsTheFileAndRunsNoTransform) {
    loadBoth();
    NewPanelImage(lab, 4);
    EXPECT_EQ(channel2.file, kFile);
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(ImageIo, ANewImageTakesTheDimmedForegroundWhileTheLightIsOff) {
    lab.guiColors[1] = RGB(80, 140, 192);
    lab.guiColors[4] = RGB(93, 93, 93);
    lab.dimmed = [] { return true; };
    NewPanelImage(lab, 4);
    EXPECT_EQ(pb4.Image(), Bitmap(256, 256, 0));
    EXPECT_EQ(pb5.Image(), Bitmap(256, 256, 0x5D5D5D));
    EXPECT_EQ(pb6.Image(), Bitmap(256, 256, 0x5D5D5D));
}

TEST_F(ImageIo, ANewImageOfAnInvertedChannelStartsWhite) {
    channel1.SetInvert(0, true);
    NewPanelImage(lab, 3);
    EXPECT_EQ(pb1.Image(), Bitmap(256, 256, 0xFFFFFF));
    pb1.Cls();
    EXPECT_EQ(pb1.Image(), Bitmap(256, 256, 0xFFFFFF)) << "what was painted is committed";
}

TEST_F(ImageIo, ANewImageUnderTheLatticeToolStaysBlack) {
    channel1.SetInvert(0, true);
    channel1.SetDrawMode(1);
    NewPanelImage(lab, 1);
    EXPECT_EQ(pb1.Image(), Bitmap(256, 256, 0));
}

// --- Saving

TEST_F(ImageIo, ASaveForcesTheExtensionAtTheFirstPointOfTheNameBehindTheFolder) {
    const std::vector<std::pair<std::string, std::string>> names = {
        {"x.bmp", "x.bmp"},
        {"x.BMP", "x.BMP"},
        {"x.bMp", "x.bMp"},
        {"C:\\a.jpg", "C:\\a.bmp"},
        {"C:\\my.pics\\a.jpg", "C:\\my.pics\\a.bmp"},
        {"/home/jo.doe/a.jpg", "/home/jo.doe/a.bmp"},
        {"C:\\my.pics\\a.bmp", "C:\\my.pics\\a.bmp"},
        {"C:\\a.b.c", "C:\\a.bmp"},
        {".gif", ".bmp"},
    };
    desktop.files.addFolder("C:\\my.pics");
    desktop.files.addFolder("/home/jo.doe");
    for (const auto& [given, written] : names) {
        desktop.pictures.saved.clear();
        SavePanelImage(lab, 2, given);
        ASSERT_EQ(desktop.pictures.saved.size(), 1U) << given;
        EXPECT_EQ(desktop.pictures.saved[0].first, written);
    }
    EXPECT_TRUE(desktop.calls.of({"dialogs."}).empty());
}

TEST_F(ImageIo, ANameWithoutAPointSavesNothing) {
    for (const char* name : {"picture", "bmp", "C:\\folder\\picture", "C:\\my.pics\\picture"}) {
        cells[2].Caption = std::string();
        EXPECT_EQ(errorOf([&] { SavePanelImage(lab, 1, name); }), ErrorNumber{});
        EXPECT_EQ(cells[2].Caption.get(), "not saved: the name has no point") << name;
    }
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(ImageIo, ASaveWithoutAFileAsksAndOffersTheLastName) {
    lab.ComFile.FileName = "C:\\Q\\Images\\last.bmp";
    desktop.dialogs.answerSave("C:\\Q\\Images\\picture.png");
    SavePanelImage(lab, 3, "");
    ASSERT_EQ(desktop.dialogs.saves.size(), 1U);
    EXPECT_EQ(desktop.dialogs.saves[0].FileName, "C:\\Q\\Images\\last.bmp");
    EXPECT_EQ(desktop.dialogs.saves[0].InitDir, "C:\\Q\\Images\\");
    EXPECT_EQ(desktop.dialogs.saves[0].Filter, "Windows Bitmap (*.bmp)|*.bmp");
    EXPECT_EQ(desktop.log,
              (std::vector<std::string>{
                  "dialogs.showSave(, C:\\Q\\Images\\, C:\\Q\\Images\\last.bmp)",
                  "screen.pendingEvents()", "pictures.save(256x256, C:\\Q\\Images\\picture.png)"}));
}

TEST_F(ImageIo, ASaveOffersTheLastFileAsABitmap) {
    for (const auto& [last, offered] :
         {std::pair{"C:\\Q\\Images\\cat.jpg", "C:\\Q\\Images\\cat.bmp"},
          std::pair{"C:\\Q\\Scripts\\two.ftscr", "C:\\Q\\Scripts\\two.bmp"}, std::pair{"", ""}}) {
        lab.ComFile.FileName = last;
        desktop.dialogs.cancelSave();
        SavePanelImage(lab, 1, "");
        EXPECT_EQ(desktop.dialogs.saves.back().FileName, offered);
        EXPECT_EQ(lab.ComFile.FileName, last) << "a cancelled dialog leaves the name";
    }
}

TEST_F(ImageIo, EachDialogHasItsOwnTitle) {
    lab.ComFile.DialogTitle = "Select File Type and 1 Image for FT Batch Processing";
    desktop.dialogs.cancelSave();
    SavePanelImage(lab, 1, "");
    EXPECT_EQ(desktop.dialogs.saves.back().DialogTitle, "");
    lab.ComFile.DialogTitle = "Select File Type and 1 Image for FT Batch Processing";
    desktop.dialogs.cancelOpen();
    LoadPanelImage(lab, 1, "");
    EXPECT_EQ(desktop.dialogs.opens.back().DialogTitle, "");
}

TEST_F(ImageIo, ACancelledSaveIsSilentAndAFailingOneSaysWhy) {
    desktop.dialogs.cancelSave();
    EXPECT_EQ(errorOf([&] { SavePanelImage(lab, 1, ""); }), ErrorNumber{});
    EXPECT_EQ(cells[2].Caption.get(), "");
    desktop.pictures.failingSaves.insert("C:\\full.bmp");
    EXPECT_EQ(errorOf([&] { SavePanelImage(lab, 1, "C:\\full.bmp"); }), ErrorNumber{});
    EXPECT_EQ(cells[2].Caption.get(), "not saved: no right to write here");
    EXPECT_TRUE(desktop.pictures.saved.empty());
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(ImageIo, ASaveWritesTheBitmapOfThePanelAskedFor) {
    const std::array<PictureBox*, 6> panels{&pb1, &pb2, &pb3, &pb4, &pb5, &pb6};
    for (std::size_t i = 0; i < panels.size(); ++i)
        panels[i]->setBackColor(ColorValue{static_cast<Long>(i) * 1000});
    for (Integer id = 0; id <= 7; ++id)
        SavePanelImage(lab, id, "C:\\p" + std::to_string(id) + ".bmp");
    ASSERT_EQ(desktop.pictures.saved.size(), 6U) << "ids outside 1 to 6 save nothing";
    for (std::size_t i = 0; i < panels.size(); ++i) {
        EXPECT_EQ(desktop.pictures.saved[i].first, "C:\\p" + std::to_string(i + 1) + ".bmp");
        EXPECT_EQ(desktop.pictures.saved[i].second, panels[i]->Image());
    }
}

TEST_F(ImageIo, ASaveLeavesTheScreenLayerOut) {
    pb2.setAutoRedraw(false);
    pb2.Box(0, 0, 255, 255, kRed, BoxStyle::Filled);
    SavePanelImage(lab, 2, "C:\\spectrum.bmp");
    ASSERT_EQ(desktop.pictures.saved.size(), 1U);
    EXPECT_EQ(desktop.pictures.saved[0].second, Bitmap(256, 256));
}

// --- Copying and pasting

TEST_F(ImageIo, ACopyClearsTheClipboardPutsThePanelThereAndBeeps) {
    pb6.setBackColor(kRed);
    CopyPanelImage(lab, 6);
    EXPECT_EQ(desktop.log,
              (std::vector<std::string>{"clipboard.clear()", "clipboard.setPicture(256x256)",
                                        "screen.beep()"}));
    EXPECT_EQ(desktop.clipboard.content, Bitmap(256, 256, 0xFF0000));
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(ImageIo, PastingWithoutAPictureOnTheClipboardSaysSoAndChangesNothing) {
    loadBoth();
    markChannels();
    desktop.clipboard.text = "words";
    const Bitmap before = pb1.Image();
    PasteImage(lab, 1);
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.messages[0],
              (RecordingDialogs::Message{"No Image Data on Clipboard", "", MessageIcon::Exclamation,
                                         MessageButtons::Ok}));
    EXPECT_EQ(channel1.file, kFile);
    EXPECT_EQ(channel1.nmask, 2);
    EXPECT_EQ(pb1.Image(), before);
    EXPECT_TRUE(desktop.calls.of({"pictures.", "environment."}).empty());
}

TEST_F(ImageIo, APastedPictureIsLoadedThroughATemporaryFile) {
    desktop.clipboard.content = picture;
    PasteImage(lab, 3);
    const std::string file = "C:\\Temp\\clipboard.bmp";
    EXPECT_EQ(channel1.file, file);
    EXPECT_EQ(channel1.sfile, "clipboard.bmp");
    ASSERT_EQ(desktop.pictures.saved.size(), 1U);
    EXPECT_EQ(desktop.pictures.saved[0].first, file);
    EXPECT_EQ(desktop.pictures.saved[0].second, picture) << "the file keeps the picture's size";
    EXPECT_EQ(pb1.Image(), stretched(picture, 256, 256));
    EXPECT_EQ(pb1.Picture(), pb1.Image());
    EXPECT_EQ(pb2.Tag, "!");
    const auto steps = desktop.calls.of({"clipboard.", "environment.", "pictures."});
    EXPECT_EQ(steps,
              (std::vector<std::string>{
                  "clipboard.hasPicture()", "clipboard.picture()", "environment.variable(TMP)",
                  "pictures.save(640x480, " + file + ")", "pictures.load(" + file + ")"}));
}

TEST_F(ImageIo, APastedPictureSurvivesAReloadUntilTheNextPaste) {
    desktop.clipboard.content = picture;
    PasteImage(lab, 4);
    NewPanelImage(lab, 4);
    ReloadImage(lab, 4);
    EXPECT_EQ(pb4.Image(), stretched(picture, 256, 256));
    const Bitmap next = randomPicture(256, 256, 8);
    desktop.clipboard.content = next;
    PasteImage(lab, 1);
    ReloadImage(lab, 4);
    EXPECT_EQ(pb4.Image(), next);
}

TEST_F(ImageIo, APasteForgetsTheMasksOfItsChannel) {
    markChannels();
    desktop.clipboard.content = picture;
    PasteImage(lab, 5);
    EXPECT_EQ(channel2.nmask, 0);
    EXPECT_EQ(channel1.nmask, 2);
}

TEST_F(ImageIo, APasteWithoutTmpGoesToTheRootOfTheDrive) {
    desktop.environment.variables.clear();
    desktop.clipboard.content = picture;
    PasteImage(lab, 1);
    EXPECT_EQ(channel1.file, "\\clipboard.bmp");
    ASSERT_EQ(desktop.pictures.saved.size(), 1U);
    EXPECT_EQ(desktop.pictures.saved[0].first, "\\clipboard.bmp");
}

TEST_F(ImageIo, APasteThatCannotBeWrittenSaysSoAndChangesNothing) {
    loadBoth();
    markChannels();
    const Bitmap before = pb1.Image();
    desktop.clipboard.content = picture;
    desktop.pictures.failingSaves.insert("C:\\Temp\\clipboard.bmp");
    EXPECT_EQ(errorOf([&] { PasteImage(lab, 1); }), ErrorNumber{});
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(
        desktop.dialogs.messages[0],
        (RecordingDialogs::Message{"Not pasted: no right to write here\nC:/Temp/clipboard.bmp", "",
                                   MessageIcon::Exclamation, MessageButtons::Ok}));
    EXPECT_EQ(channel1.file, kFile);
    EXPECT_EQ(channel1.nmask, 2);
    EXPECT_EQ(pb1.Image(), before);
    EXPECT_EQ(img.Width, 15);
}

/// A clipboard whose picture goes between two looks.
class FleetingClipboard : public RecordingClipboard {
public:
    using RecordingClipboard::RecordingClipboard;
    bool hasPicture() override { return true; }
};

TEST_F(ImageIo, APictureThatHasLeftTheClipboardIsNone) {
    FleetingClipboard fleeting(desktop.calls);
    Desktop& services = desktop.desktop();
    Desktop with{services.dialogs, services.pictures, fleeting,        services.text,
                 services.printer, services.shell,    services.screen, services.environment,
                 services.store,   services.files};
    Lab other{.desktop = with,
              .folders = lab.folders,
              .channel1 = channel1,
              .channel2 = channel2,
              .pb1 = pb1,
              .pb2 = pb2,
              .pb3 = pb3,
              .pb4 = pb4,
              .pb5 = pb5,
              .pb6 = pb6,
              .mem = mem,
              .img = img,
              .lbSTB = lab.lbSTB,
              .dimmed = {}};
    EXPECT_EQ(errorOf([&] { PasteImage(other, 1); }), ErrorNumber{});
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.messages[0].text, "No Image Data on Clipboard");
}

// --- Inverting

TEST_F(ImageIo, InvertingAnImageTwiceWithTrueRestoresThePixelsAndLeavesTheFlagSet) {
    loadBoth();
    const Bitmap before = pb1.Image();
    InvertPanel(lab, masks, 1, true);
    EXPECT_EQ(pb1.Image(), complementOf(before));
    EXPECT_EQ(pb1.Picture(), pb1.Image());
    InvertPanel(lab, masks, 1, true);
    EXPECT_EQ(pb1.Image(), before);
    EXPECT_TRUE(channel1.GetInvert(0));
    EXPECT_TRUE(desktop.log.empty()) << "no transform runs";
}

TEST_F(ImageIo, InvertingAnImageWithFalseFlipsThePixelsToo) {
    loadBoth();
    const Bitmap before = pb4.Image();
    InvertPanel(lab, masks, 4, false);
    EXPECT_EQ(pb4.Image(), complementOf(before));
    EXPECT_FALSE(channel2.GetInvert(0));
}

TEST_F(ImageIo, InvertingASpectrumRedrawsItWithTheFlagAndItsMasks) {
    loadBoth();
    const Bitmap plain = pb2.Image();
    InvertPanel(lab, masks, 2, true);
    EXPECT_TRUE(channel1.GetInvert(1));
    EXPECT_EQ(pb2.Image(), complementOf(plain));
    EXPECT_EQ(channel1.linearFactor(), 100.0F) << "a negative factor leaves the stored one";
    EXPECT_EQ(desktop.calls.of({"DrawMasks"}), std::vector<std::string>{"DrawMasks(-1)"});
    desktop.log.clear();
    channel1.bMask = true;
    InvertPanel(lab, masks, 2, false);
    EXPECT_EQ(pb2.Image(), plain);
    EXPECT_EQ(desktop.calls.of({"DrawMasks"}),
              (std::vector<std::string>{"DrawMasks(-1)", "DrawMasks(2)"}));
}

TEST_F(ImageIo, InvertingAReconstructionRedrawsItAndSetsTheLinearFactorToOne) {
    loadBoth();
    const Bitmap plain = pb6.Image();
    InvertPanel(lab, masks, 6, true);
    EXPECT_TRUE(channel2.GetInvert(2));
    EXPECT_EQ(pb6.Image(), complementOf(plain));
    EXPECT_EQ(channel2.linearFactor(), 1.0F);
    EXPECT_EQ(channel1.linearFactor(), 100.0F);
    channel2.bMask = true;
    desktop.log.clear();
    InvertPanel(lab, masks, 6, false);
    EXPECT_EQ(desktop.calls.of({"DrawMasks"}), std::vector<std::string>{"DrawMasks(-1)"});
}

TEST_F(ImageIo, InvertingAPanelThatDoesNotExistChangesNothing) {
    loadBoth();
    const Bitmap before = pb1.Image();
    for (const Integer panel : std::initializer_list<Integer>{-1, 0, 7})
        InvertPanel(lab, masks, panel, true);
    EXPECT_EQ(pb1.Image(), before);
    for (const Integer kind : std::initializer_list<Integer>{0, 1, 2})
        EXPECT_FALSE(channel1.GetInvert(kind) || channel2.GetInvert(kind));
}

}  // namespace
}  // namespace quillon
