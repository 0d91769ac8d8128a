#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QApplication>
#include <QDragMoveEvent>
#include <QImage>
#include <QMimeData>
#include <QWindow>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"

// Files dragged from a file manager, by the events that the window system sends.

namespace quillon {
namespace {

class DraggedFiles : public OpenedWindow {
protected:
    /// What the source of the drag sees: whether the place takes the files, which is
    /// how the pointer looks, and what becomes of them there.
    struct Answer {
        bool taken = false;
        Qt::DropAction action = Qt::IgnoreAction;
        friend bool operator==(const Answer&, const Answer&) = default;
    };
    static constexpr Answer kCopied{true, Qt::CopyAction};

    template <class Event>
    Answer send(Event& event) {
        QApplication::sendEvent(window().windowHandle(), &event);
        return {event.isAccepted(), event.isAccepted() ? event.dropAction() : Qt::IgnoreAction};
    }

    /// Brings files over a panel with Shift held, which asks for a move where the
    /// source offers one. `drops` lets them go there.
    Answer drag(const char* panelName, const QList<QUrl>& urls, bool drops = false,
                Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction) {
        QMimeData content;
        content.setUrls(urls);
        const QPointF at = panel(panelName).mapTo(&window(), QPoint(50, 50));
        QDragEnterEvent enter(at.toPoint(), offered, &content, Qt::LeftButton, Qt::ShiftModifier);
        EXPECT_EQ(enter.proposedAction(),
                  offered & Qt::MoveAction ? Qt::MoveAction : Qt::CopyAction);
        enter.ignore();
        const Answer entered = send(enter);
        const QPointF further = at + QPointF(3, 2);
        QDragMoveEvent moved(further.toPoint(), offered, &content, Qt::LeftButton,
                             Qt::ShiftModifier);
        // The window system begins with the answer before.
        moved.setDropAction(entered.action);
        moved.setAccepted(entered.taken);
        const Answer over = send(moved);
        EXPECT_EQ(over, entered);
        if (!drops || !over.taken) {
            QDragLeaveEvent leave;
            QApplication::sendEvent(window().windowHandle(), &leave);
            return over;
        }
        QDropEvent dropped(further, offered, &content, Qt::LeftButton, Qt::ShiftModifier);
        return send(dropped);
    }
    Answer dropOn(const char* panelName, const QList<QUrl>& urls) {
        return drag(panelName, urls, true);
    }

    QUrl file(const char* name, const QByteArray& bytes) {
        QFile written(home.filePath(QString::fromLatin1(name)));
        EXPECT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(bytes);
        return QUrl::fromLocalFile(written.fileName());
    }
    QUrl picture(const char* name, const char* format = "BMP") {
        const QString path = home.filePath(QString::fromLatin1(name));
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(QColor(9, 8, 7));
        EXPECT_TRUE(image.save(path, format));
        return QUrl::fromLocalFile(path);
    }
};

TEST_F(DraggedFiles, AFileThatTheSourceWouldMoveIsCopied) {
    const QUrl cat = picture("cat.bmp");
    EXPECT_EQ(dropOn("pb4", {cat}), kCopied);
    EXPECT_EQ(form().pb4.Image(), Bitmap(256, 256, 0x090807));
    EXPECT_TRUE(QFile::exists(cat.toLocalFile()));
    EXPECT_EQ(dropOn("pb1", {file("lesson.ftscr", "LOWPASS 7")}), kCopied);
    EXPECT_TRUE(entry("mnuFT1a(10)").isChecked());
}

TEST_F(DraggedFiles, ASourceThatOnlyMovesIsRefused) {
    EXPECT_EQ(drag("pb1", {picture("cat.bmp")}, false, Qt::MoveAction), Answer{});
}

TEST_F(DraggedFiles, PicturesAndScriptsAreTaken) {
    for (const QUrl& taken :
         {picture("a.bmp"), picture("b.JPG", "JPG"), picture("c.jpeg", "JPG"),
          file("d.gif", "GIF89a"), file("e.ftscr", "TITLE x"), file("f.FtScr", "")})
        for (const char* name : {"pb1", "pb4"})
            EXPECT_EQ(drag(name, {taken}), kCopied) << taken.fileName().toStdString();
}

TEST_F(DraggedFiles, WhatCannotBeReadIsRefused) {
    QDir(home.path()).mkdir(QStringLiteral("folder.bmp"));
    const QList<QUrl> refused = {QUrl::fromLocalFile(home.path()),
                                 QUrl::fromLocalFile(home.filePath(QStringLiteral("folder.bmp"))),
                                 QUrl::fromLocalFile(home.filePath(QStringLiteral("gone.bmp"))),
                                 QUrl::fromLocalFile(home.filePath(QStringLiteral("gone.ftscr"))),
                                 file("notes.txt", "x"),
                                 file("empty.bmp", ""),
                                 file("a.png", "x"),
                                 file("rings.ftmsk", "1 2 3 4"),
                                 QUrl(QStringLiteral("https://a.invalid/x.bmp"))};
    for (const QUrl& url : refused)
        for (const char* name : {"pb1", "pb4"})
            EXPECT_EQ(drag(name, {url}), Answer{}) << url.toString().toStdString();
    EXPECT_EQ(drag("pb1", {}), Answer{});
}

TEST_F(DraggedFiles, TheFirstFileDecides) {
    const QUrl cat = picture("cat.bmp");
    const QUrl notes = file("notes.txt", "x");
    EXPECT_EQ(drag("pb1", {cat, notes}), kCopied);
    EXPECT_EQ(drag("pb1", {notes, cat}), Answer{});
}

TEST_F(DraggedFiles, AFileThatTheUserMayNotReadIsRefused) {
    const TemporaryFolder place;
    place.write("secret.bmp", "BM");
    ASSERT_EQ(::chmod(place.file("secret.bmp").c_str(), 0), 0);
    const QUrl secret = QUrl::fromLocalFile(QString::fromStdString(place.file("secret.bmp")));
    const OrdinaryUser user(place);
    if (!user.isBound())
        GTEST_SKIP() << "permissions do not bind this user";
    EXPECT_EQ(drag("pb1", {secret}), Answer{});
}

TEST_F(DraggedFiles, OtherPlacesTakeNone) {
    const QUrl cat = picture("cat.bmp");
    for (const char* name : {"pb2", "pb3", "pb5", "pb6"})
        EXPECT_EQ(drag(name, {cat}), Answer{}) << name;
}

}  // namespace
}  // namespace quillon
