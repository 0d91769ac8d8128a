#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <array>
#include <string>

#include "desktop/Conversions.h"
#include "scripting/WriteScript.h"
#include "tests/desktop/OpenedWindow.h"

// What was made with the mouse comes back in the next session, with the files on
// the disk.

namespace quillon {
namespace {

class PicturesOfTheSession : public OpenedWindow {
protected:
    using Panels = std::array<Bitmap, 6>;

    Panels panels() {
        Panels all;
        for (Integer id = 1; id <= 6; ++id)
            all[static_cast<std::size_t>(id - 1)] = form().lab.panel(id).Image();
        return all;
    }
    void drag(const char* name, PanelPoint from, PanelPoint to) {
        PanelWidget& on = panel(name);
        press(on, pixel(on, from.x, from.y));
        move(on, pixel(on, to.x, to.y));
        release(on, pixel(on, to.x, to.y));
        settle();
    }
    QDir folder(const char* name) {
        return QDir(home.filePath(QStringLiteral("Quillon/") + QString::fromLatin1(name)));
    }
    std::string script(const char* name) {
        QFile file(folder("Scripts").filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll().toStdString();
    }
    /// Pictures of the image folder with a stamp in their names, hidden and empty
    /// files too.
    QStringList stamped() {
        return folder("Images").entryList(
            {QStringLiteral("*_*t.bmp"), QStringLiteral("*_*b.bmp"), QStringLiteral(".*")},
            QDir::Files | QDir::Hidden);
    }
    /// Closes the window and loads the session's script into a new one by the menu.
    Panels panelsOfTheNextSession() {
        window().close();
        open();
        recording.dialogs.messages.clear();
        recording.dialogs.answerOpen(
            toLabPath(folder("Scripts").filePath(QStringLiteral("last.ftscr"))));
        choose("mnuSCR", "itmSCR(0)");
        EXPECT_TRUE(recording.dialogs.messages.empty());
        return panels();
    }
};

TEST_F(PicturesOfTheSession, AStrokeAndARollComeBackPixelForPixel) {
    drag("pb1", {30, 40}, {200, 90});
    form().click(MenuArray::mnuImg2b, 2);
    drag("pb4", {100, 100}, {117, 60});
    const Panels before = panels();
    EXPECT_EQ(panelsOfTheNextSession(), before) << script("last.ftscr");
    EXPECT_EQ(stamped().size(), 2);
}

TEST_F(PicturesOfTheSession, APastedAndAGriddedImageComeBackThoughTheClipboardsFileIsGone) {
    services.clipboard.setPicture(form().pb4.Image());
    chooseOn("pb1", "mnuImg1a(7)");
    recording.dialogs.answerInput("10.2.1.0");
    form().click(MenuArray::mnuImg2b, 3);
    const Panels before = panels();
    ASSERT_NE(form().lab.channel1.file.find("clipboard.bmp"), std::string::npos);
    services.files.remove(form().lab.channel1.file);
    EXPECT_EQ(panelsOfTheNextSession(), before) << script("last.ftscr");
}

TEST_F(PicturesOfTheSession, ADrawnLatticeAndADrawingOnAnInvertedImageComeBack) {
    form().click(MenuArray::mnuImg1b, 1);
    drag("pb1", {100, 80}, {109, 83});
    drag("pb1", {200, 20}, {97, 92});
    form().itmOpt(3);
    chooseOn("pb4", "mnuImg2a(9)");
    drag("pb4", {30, 40}, {200, 90});
    const Panels before = panels();
    EXPECT_EQ(panelsOfTheNextSession(), before) << script("last.ftscr");
}

TEST_F(PicturesOfTheSession, AnInvertedFileComesBackWithoutACopy) {
    chooseOn("pb1", "mnuImg1a(9)");
    const Panels before = panels();
    EXPECT_EQ(panelsOfTheNextSession(), before) << script("last.ftscr");
    EXPECT_TRUE(stamped().isEmpty());
}

TEST_F(PicturesOfTheSession, EachSavedScriptBringsItsOwnPictureBack) {
    drag("pb1", {30, 40}, {200, 90});
    const Panels first = panels();
    form().WriteScript(form().lab.folders.ScriptPath + "first.ftscr", "First");
    drag("pb1", {30, 140}, {200, 190});
    form().WriteScript(form().lab.folders.ScriptPath + "second.ftscr", "Second");
    form().ReadScript(form().lab.folders.ScriptPath + "first.ftscr");
    EXPECT_EQ(panels(), first);
    EXPECT_EQ(stamped().size(), 2);
}

TEST_F(PicturesOfTheSession, SnapshotsLeaveNoPictureBehindThatNobodyNeeds) {
    const std::string path = form().lab.folders.ScriptPath + "snapshot.ftscr";
    for (Long y = 20; y < 220; y += 40) {
        drag("pb1", {30, y}, {200, y + 9});
        writeSnapshot(form().lab, path, "Snapshot");
        EXPECT_EQ(stamped().size(), 1);
    }
    const Panels before = panels();
    form().ReadScript(path);
    EXPECT_EQ(panels(), before);
}

}  // namespace
}  // namespace quillon
