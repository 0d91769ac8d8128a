#include <initializer_list>

#include "app/image_io.h"
#include "engine/RunTimeError.h"
#include "engine/stretch.h"
#include "tests/app/ImageIoFixture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

// --- Loading

TEST_F(ImageIo, ALoadWithoutAFileAsksForOneInTheImageFolder) {
    lab.ComFile.FileName = "left over";
    desktop.dialogs.answerOpen(kFile);
    LoadPanelImage(lab, 1, "");
    ASSERT_EQ(desktop.dialogs.opens.size(), 1U);
    EXPECT_EQ(desktop.dialogs.opens[0].FileName, "");
    EXPECT_EQ(desktop.dialogs.opens[0].InitDir, "C:\\Q\\Images\\");
    EXPECT_EQ(desktop.dialogs.opens[0].Filter, "Images (*.bmp;*.gif;*.jpg)|*.bmp;*.gif;*.jpg");
    EXPECT_EQ(channel1.file, kFile);
    EXPECT_EQ(channel1.sfile, "cat.jpg");
}

TEST_F(ImageIo, ALoadYieldsAfterTheDialogAndBeforeTheTransform) {
    desktop.dialogs.answerOpen(kFile);
    LoadPanelImage(lab, 1, "");
    const auto steps =
        desktop.calls.of({"dialogs.", "screen.pendingEvents", "pictures.", "screen.setMouse"});
    const std::vector<std::string> expected = {
        "dialogs.showOpen(, C:\\Q\\Images\\, )",
        "screen.pendingEvents()",
        "pictures.load(C:\\Q\\Images\\cat.jpg)",
        "screen.pendingEvents()",
        "screen.setMousePointer(11)",  // forward
        "screen.setMousePointer(11)",  // its inverse
        "screen.setMousePointer(0)",
        "screen.setMousePointer(0)",
        "screen.setMousePointer(11)",  // the inverse of CalculateAll
        "screen.setMousePointer(0)",
    };
    EXPECT_EQ(steps, expected);
}

TEST_F(ImageIo, ALoadedPictureIsStretchedToThePanelAndCommitted) {
    LoadPanelImage(lab, 1, kFile);
    EXPECT_EQ(pb1.Image(), stretched(picture, 256, 256));
    EXPECT_EQ(pb1.Picture(), pb1.Image());
    SavePanelImage(lab, 1, "C:\\Q\\out.bmp");
    ASSERT_EQ(desktop.pictures.saved.size(), 1U);
    EXPECT_EQ(desktop.pictures.saved[0].second.width, 256);
    EXPECT_EQ(desktop.pictures.saved[0].second.height, 256);
}

TEST_F(ImageIo, PicturesOfAllShapesFillThePanel) {
    for (const auto& [width, height] :
         {std::pair{1, 1}, {1, 300}, {300, 1}, {256, 256}, {31, 977}}) {
        const Bitmap odd = randomPicture(width, height, 11);
        desktop.pictures.add("C:\\odd.bmp", odd);
        LoadPanelImage(lab, 4, "C:\\odd.bmp");
        EXPECT_EQ(pb4.Image(), stretched(odd, 256, 256)) << width << " by " << height;
    }
}

TEST_F(ImageIo, ALoadForgetsMasksAndTagsOfItsChannelBeforeTheTransform) {
    markChannels();
    std::string seen;
    desktop.screen.nextYields.push_back([&] {
        seen = pb1.Tag + "|" + pb2.Tag + "|" + pb3.Tag;
        EXPECT_EQ(channel1.file, kFile);
        EXPECT_EQ(channel1.nmask, 0);
        EXPECT_EQ(pb1.Image(), stretched(picture, 256, 256)) << "shown before the transform";
    });
    LoadPanelImage(lab, 1, kFile);
    EXPECT_EQ(seen, "||");
    EXPECT_EQ(pb1.Tag, "!");
    EXPECT_EQ(pb2.Tag, "!");
    EXPECT_EQ(pb3.Tag, "!");
    EXPECT_EQ(channel2.nmask, 2);
    EXPECT_EQ(pb4.Tag, "marked");
}

TEST_F(ImageIo, OnlyPanelOneLoadsIntoChannelOne) {
    for (const Integer panel : std::initializer_list<Integer>{0, 2, 3, 4, 5, 6, 7}) {
        channel1.file = "one";
        channel2.file = "two";
        LoadPanelImage(lab, panel, kFile);
        EXPECT_EQ(channel1.file, "one") << panel;
        EXPECT_EQ(channel2.file, kFile) << panel;
    }
    LoadPanelImage(lab, 1, kFile);
    EXPECT_EQ(channel1.file, kFile);
}

TEST_F(ImageIo, AFailedLoadSaysWhyInTheStripAloneAndChangesNothing) {
    loadBoth();
    markChannels();
    const Bitmap before = pb1.Image();
    const Bitmap spectrum = pb2.Image();
    for (const std::string& file : {kBroken, std::string("C:\\nowhere.jpg")}) {
        EXPECT_EQ(errorOf([&] { LoadPanelImage(lab, 1, file); }), ErrorNumber{});
        EXPECT_EQ(channel1.file, kFile);
        EXPECT_EQ(channel1.nmask, 2);
        EXPECT_EQ(pb1.Tag, "marked");
        EXPECT_EQ(pb1.Image(), before);
        EXPECT_EQ(pb2.Image(), spectrum);
    }
    EXPECT_EQ(cells[2].Caption.get(), "file not found: nowhere.jpg");
    LoadPanelImage(lab, 1, kBroken);
    EXPECT_EQ(cells[2].Caption.get(), "not a picture: broken.gif");
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_TRUE(desktop.calls.of({"screen."}).empty());
    expectBufferAtRest();
}

TEST_F(ImageIo, ACancelledOpenDialogIsSilentAndChangesNothing) {
    loadBoth();
    markChannels();
    desktop.dialogs.cancelOpen();
    EXPECT_EQ(errorOf([&] { LoadPanelImage(lab, 1, ""); }), ErrorNumber{});
    EXPECT_EQ(channel1.file, kFile);
    EXPECT_EQ(channel1.nmask, 2);
    EXPECT_EQ(desktop.calls.of({"pictures.", "screen."}), std::vector<std::string>{});
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(cells[2].Caption.get(), "");
}

TEST_F(ImageIo, TheLoadingBufferIsEmptyAndSmallAfterEveryOperation) {
    LoadPanelImage(lab, 1, kFile);
    expectBufferAtRest();
    ReloadImage(lab, 1);
    expectBufferAtRest();
    dropImage(lab, Channel::Two, kFile);
    expectBufferAtRest();
    desktop.clipboard.content = picture;
    PasteImage(lab, 1);
    expectBufferAtRest();
    desktop.pictures.failingSaves.insert("C:\\Temp\\clipboard.bmp");
    EXPECT_EQ(errorOf([&] { PasteImage(lab, 1); }), ErrorNumber{});
    expectBufferAtRest();
    channel1.file = kBroken;
    ReloadImage(lab, 1);
    expectBufferAtRest();
}

TEST_F(ImageIo, APictureLoadedWhileALatticeIsUnderWayReachesTheTransform) {
    pb1.setAutoRedraw(false);
    LoadPanelImage(lab, 1, kFile);
    EXPECT_EQ(pb1.Image(), stretched(picture, 256, 256));
    EXPECT_FALSE(pb1.AutoRedraw());
    EXPECT_EQ(pb2.Tag, "!");
}

// --- Reloading

TEST_F(ImageIo, AReloadBringsTheFileBackAndCalculates) {
    loadBoth();
    NewPanelImage(lab, 1);
    desktop.log.clear();
    pb1.Tag = pb2.Tag = pb3.Tag = "marked";
    desktop.screen.nextYields.push_back([&] { EXPECT_EQ(pb1.Tag + pb2.Tag + pb3.Tag, ""); });
    ReloadImage(lab, 1);
    EXPECT_EQ(pb1.Image(), stretched(picture, 256, 256));
    EXPECT_EQ(pb1.Picture(), pb1.Image());
    EXPECT_EQ(pb2.Tag, "!");
    const auto steps = desktop.calls.of({"pictures.", "screen."});
    ASSERT_EQ(steps.size(), 8U);
    EXPECT_EQ(steps[0], "pictures.load(C:\\Q\\Images\\cat.jpg)");
    EXPECT_EQ(steps[1], "screen.pendingEvents()");
    EXPECT_EQ(steps[2], "screen.setMousePointer(11)");
}

TEST_F(ImageIo, AReloadKeepsTheMasksAndTheInvertState) {
    loadBoth();
    channel1.AddMask(1, 2, 3, 4);
    channel1.SetInvert(0, true);
    ReloadImage(lab, 1);
    EXPECT_EQ(channel1.nmask, 1);
    EXPECT_TRUE(channel1.GetInvert(0));
    EXPECT_EQ(pb1.Image(), complementOf(stretched(picture, 256, 256)));
    EXPECT_EQ(pb1.Picture(), pb1.Image());
}

TEST_F(ImageIo, AReloadReadsPanelsBelowFourAsChannelOne) {
    loadBoth();
    for (const Integer panel : std::initializer_list<Integer>{1, 2, 3}) {
        NewPanelImage(lab, 1);
        NewPanelImage(lab, 4);
        ReloadImage(lab, panel);
        EXPECT_EQ(pb1.Image(), stretched(picture, 256, 256)) << panel;
        EXPECT_EQ(pb4.Image(), Bitmap(256, 256)) << panel;
    }
    for (const Integer panel : std::initializer_list<Integer>{4, 5, 6}) {
        NewPanelImage(lab, 1);
        NewPanelImage(lab, 4);
        ReloadImage(lab, panel);
        EXPECT_EQ(pb1.Image(), Bitmap(256, 256)) << panel;
        EXPECT_EQ(pb4.Image(), stretched(picture, 256, 256)) << panel;
    }
}

TEST_F(ImageIo, AReloadWithoutAFileSaysSoAndEndsNothing) {
    for (const Integer panel : std::initializer_list<Integer>{1, 4}) {
        cells[2].Caption = std::string();
        EXPECT_EQ(errorOf([&] { ReloadImage(lab, panel); }), ErrorNumber{});
        EXPECT_EQ(cells[2].Caption.get(), "no file to reload");
    }
    EXPECT_TRUE(desktop.calls.of({"dialogs.", "pictures.", "screen."}).empty());
}

TEST_F(ImageIo, AReloadOfAMissingOrBrokenFileNamesItInTheStripAndChangesNothing) {
    loadBoth();
    markChannels();
    const Bitmap before = pb1.Image();
    channel1.file = "C:\\gone.jpg";
    EXPECT_EQ(errorOf([&] { ReloadImage(lab, 1); }), ErrorNumber{});
    EXPECT_EQ(cells[2].Caption.get(), "file not found: gone.jpg");
    channel1.file = kBroken;
    EXPECT_EQ(errorOf([&] { ReloadImage(lab, 1); }), ErrorNumber{});
    EXPECT_EQ(cells[2].Caption.get(), "not a picture: broken.gif");
    EXPECT_EQ(pb1.Image(), before);
    EXPECT_EQ(pb1.Tag, "marked");
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

// --- Dropping

TEST_F(ImageIo, ADroppedPictureKeepsTheMasksOfItsChannel) {
    markChannels();
    desktop.screen.nextYields.push_back([&] {
        EXPECT_EQ(channel2.file, kFile);
        EXPECT_EQ(pb4.Tag + pb5.Tag + pb6.Tag, "");
        EXPECT_EQ(pb4.Image(), stretched(picture, 256, 256));
    });
    dropImage(lab, Channel::Two, kFile);
    EXPECT_EQ(channel2.nmask, 2);
    EXPECT_EQ(channel2.sfile, "cat.jpg");
    EXPECT_EQ(pb4.Picture(), pb4.Image());
    EXPECT_EQ(pb5.Tag, "!");
    EXPECT_EQ(pb1.Tag, "marked");
}

TEST_F(ImageIo, ADropTakesWhateverFourLettersOccurInTheListOfExtensions) {
    for (const char* file :
         {"a.bmp", "a.BMP", "a.Gif", "a.jpg", "a.jpeg", "a.JPEG", "a.jpe", "jpg", "P.GI", "G", ""})
        EXPECT_TRUE(isPictureFile(file)) << file;
    for (const char* file : {"a.png", "a.ftscr", "a.ftmsk", "a.bmp2", "ajpg", "a.bmp "})
        EXPECT_FALSE(isPictureFile(file)) << file;
}

TEST_F(ImageIo, ADroppedMaskFileDoesNothing) {
    markChannels();
    dropMaskFile("C:\\Q\\rings.ftmsk", 2);
    dropMaskFile("C:\\Q\\rings.ftmsk", 5);
    EXPECT_EQ(channel1.nmask, 2);
    EXPECT_EQ(channel2.nmask, 2);
    EXPECT_TRUE(desktop.log.empty());
}

}  // namespace
}  // namespace quillon
