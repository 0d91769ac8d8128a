#include "engine/stretch.h"
#include "tests/support/CommandFixture.h"
#include "tests/support/TextPicture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// Files dropped on the window.
class Drop : public CommandFixture {
protected:
    Drop() {
        for (const char* name : {"C:\\a.bmp", "C:\\b.JPEG", "C:\\c.gif"})
            desktop.pictures.add(name, picture);
        desktop.pictures.addUndecodable("C:\\broken.jpg");
        desktop.log.clear();
    }
    const Bitmap picture = randomPicture(70, 90, 13);
};

TEST_F(Drop, APictureIsLoadedIntoTheChannelOfItsPanelWithTheMasksKept) {
    for (const Channel which : kBoth) {
        clickFilter(which, 12);
        channel(which).AddMask(1, 2, 3, 4);
        const std::string file = which == Channel::One ? "C:\\a.bmp" : "C:\\b.JPEG";
        desktop.log.clear();
        form.OLEDragDrop(image(which), {file});
        EXPECT_EQ(channel(which).file, file);
        EXPECT_EQ(image(which).Image(), stretched(picture, 256, 256));
        EXPECT_EQ(channel(which).nmask, 1);
        EXPECT_EQ(transforms(), 3);
        EXPECT_TRUE(form.img.Picture().empty());
        EXPECT_EQ(form.img.Width, 15);
        EXPECT_EQ(form.img.Height, 15);
    }
    EXPECT_TRUE(desktop.calls.of({"dialogs."}).empty());
}

TEST_F(Drop, OnlyTheFirstFileCounts) {
    form.OLEDragDrop(form.pb1, {"C:\\c.gif", "C:\\a.bmp"});
    EXPECT_EQ(form.lab.channel1.file, "C:\\c.gif");
    form.OLEDragDrop(form.pb1, {"C:\\notes.txt", "C:\\a.bmp"});
    EXPECT_EQ(form.lab.channel1.file, "C:\\c.gif");
}

TEST_F(Drop, NothingComesOfNoFiles) {
    form.OLEDragDrop(form.pb4, {});
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(Drop, OtherControlsTakeNoFiles) {
    for (Control* control : form.controls())
        if (control != &form.pb1 && control != &form.pb4)
            form.OLEDragDrop(*control, {"C:\\a.bmp"});
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(Drop, AFileThatCannotBeReadIsAbandonedWithoutADialog) {
    const Bitmap before = form.pb1.Image();
    form.pb1.Tag = "marked";
    for (const char* file : {"C:\\broken.jpg", "C:\\nowhere.bmp", "", "C:\\folder.gif"})
        EXPECT_EQ(errorOf([&] { form.OLEDragDrop(form.pb1, {file}); }), ErrorNumber{}) << file;
    EXPECT_EQ(form.lab.channel1.file, sample1);
    EXPECT_EQ(form.pb1.Image(), before);
    EXPECT_EQ(form.pb1.Tag, "marked");
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(transforms(), 0);
}

TEST_F(Drop, AFileOfAnotherKindIsLeftAlone) {
    for (const char* file : {"C:\\a.png", "C:\\a.txt", "C:\\a.ftscr.bak", "C:\\bmp.exe"})
        form.OLEDragDrop(form.pb1, {file});
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(Drop, AScriptRunsWhicheverPanelTookIt) {
    desktop.files.addFile("C:\\lesson.ftscr", "TOP\r\nLOWPASS 30\r\n");
    for (const Channel which : kBoth)
        for (const char* file : {"C:\\lesson.ftscr", "C:\\lesson.FtScr"}) {
            clickFilter(Channel::One, 9);
            form.OLEDragDrop(image(which), {file, "C:\\a.bmp"});
            EXPECT_TRUE(form.lab.channel1.bLowpass) << file;
            EXPECT_FALSE(form.lab.channel2.bFilter) << file;
        }
    EXPECT_EQ(form.lab.channel1.file, sample1);
}

TEST_F(Drop, AMaskFileDoesNothing) {
    desktop.files.addFile("C:\\rings.ftmsk", "1 2 3 4\r\n");
    desktop.log.clear();
    form.OLEDragDrop(form.pb1, {"C:\\rings.ftmsk"});
    form.OLEDragDrop(form.pb4, {"C:\\rings.FTMSK"});
    EXPECT_TRUE(desktop.log.empty());
    EXPECT_EQ(form.lab.channel1.nmask, 0);
}

}  // namespace
}  // namespace quillon
