#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <initializer_list>
#include <string>

#include "desktop/Conversions.h"
#include "engine/mFFTUTIL.h"
#include "tests/desktop/AnsweredWindow.h"
#include "tests/support/SmallDisk.h"

// Saving, reloading and pasting in the whole window, with the real dialogs, files
// and clipboard.

namespace quillon {
namespace {

class Saving : public AnsweredWindow {
protected:
    QString image(const char* name) const {
        return home.filePath(QStringLiteral("Quillon/Images/%1").arg(QString::fromUtf8(name)));
    }
    QString script(const char* name) const {
        return home.filePath(QStringLiteral("Quillon/Scripts/%1").arg(QString::fromUtf8(name)));
    }
    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
    /// What the strip's cell for messages shows on the screen.
    std::string message() {
        settle();
        return toBytes(dynamic_cast<QLabel&>(widget("lbSTB(2)")).text().trimmed());
    }
    /// In the next file dialog a user looks at the title and the name offered, types
    /// a name and presses Enter.
    void type(const QString& name, const QString& title, const QString& offered) {
        answers.next<QFileDialog>([=](QFileDialog& box) {
            EXPECT_EQ(box.windowTitle(), title);
            auto* edit = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            EXPECT_EQ(edit->text(), offered);
            edit->setText(name);
            QTest::keyClick(edit, Qt::Key_Return);
        });
    }
    void cancel(const QString& title) {
        answers.next<QFileDialog>([=](QFileDialog& box) {
            EXPECT_EQ(box.windowTitle(), title);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
    }

    const QString open = QStringLiteral("Open");
    const QString saveAs = QStringLiteral("Save As");
};

TEST_F(Saving, APictureOfALoadedJpegIsSavedAsABitmapBesideIt) {
    const QByteArray before = bytesOf(image("Halvard-Image1.jpg"));
    type(image("Halvard-Image1.jpg"), open, QString());
    chooseOn("pb1", "mnuImg1a(2)");
    type(QStringLiteral("Halvard-Image1.bmp"), saveAs, QStringLiteral("Halvard-Image1.bmp"));
    chooseOn("pb1", "mnuImg1a(6)");
    EXPECT_TRUE(bytesOf(image("Halvard-Image1.bmp")).startsWith("BM"));
    EXPECT_EQ(bytesOf(image("Halvard-Image1.jpg")), before);
    // The last name is offered, and the one typed gets its suffix.
    type(QStringLiteral("spectrum"), saveAs, QStringLiteral("Halvard-Image1.bmp"));
    chooseOn("pb2", "mnuFT1a(3)");
    EXPECT_TRUE(bytesOf(image("spectrum.bmp")).startsWith("BM"));
    EXPECT_FALSE(QFile::exists(image("spectrum")));
    EXPECT_EQ(message(), "");
}

TEST_F(Saving, AScriptGetsItsSuffixBeforeTheQuestionAboutReplacingAFile) {
    const auto answerTitle = [this] {
        answers.next<QInputDialog>([](QInputDialog& box) { box.accept(); });
    };
    type(QStringLiteral("mine"), saveAs, QString());
    answerTitle();
    choose("mnuSCR", "itmSCR(1)");
    const QByteArray first = bytesOf(script("mine.ftscr"));
    EXPECT_TRUE(first.startsWith("TITLE\tmine.ftscr\r\n")) << first.toStdString();

    choose("mnuOpt", "itmOpt(3)");
    chooseOn("pb2", "mnuFT1a(10)");
    type(QStringLiteral("mine"), saveAs, QString());
    answers.nextMessage("mine.ftscr already exists.\nDo you want to replace it?", "Save As",
                        QMessageBox::Warning, QMessageBox::No);
    cancel(saveAs);
    choose("mnuSCR", "itmSCR(1)");
    EXPECT_EQ(bytesOf(script("mine.ftscr")), first);

    type(QStringLiteral("mine"), saveAs, QString());
    answers.nextMessage("mine.ftscr already exists.\nDo you want to replace it?", "Save As",
                        QMessageBox::Warning, QMessageBox::Yes);
    answerTitle();
    choose("mnuSCR", "itmSCR(1)");
    EXPECT_NE(bytesOf(script("mine.ftscr")), first);
}

TEST_F(Saving, TheTitleOfABatchsDialogStaysForNoOther) {
    const QString batch = QStringLiteral("Select File Type and 1 Image for FT Batch Processing");
    const struct {
        const char* title;
        const char* entry;
        const char* panel;
        QString dialogs;
    } others[] = {{nullptr, "mnuImg1a(2)", "pb1", open},
                  {nullptr, "mnuImg2a(6)", "pb4", saveAs},
                  {"mnuSCR", "itmSCR(0)", nullptr, open},
                  {"mnuSCR", "itmSCR(1)", nullptr, saveAs},
                  {"mnuSCR", "itmSCR(2)", nullptr, open}};
    for (const auto& other : others) {
        cancel(batch);
        choose("mnuFile", "itmFile(3)");
        cancel(other.dialogs);
        if (other.panel != nullptr)
            chooseOn(other.panel, other.entry);
        else
            choose(other.title, other.entry);
    }
}

TEST_F(Saving, AFullDiskIsSaidInTheStripUntilTheNextCommand) {
    type(QStringLiteral("full.bmp"), saveAs, QString());
    {
        const SmallDisk disk(1000);
        chooseOn("pb1", "mnuImg1a(6)");
    }
    EXPECT_EQ(message(), "not saved: the disk is full");
    EXPECT_FALSE(QFile::exists(image("full.bmp")));
    chooseOn("pb1", "mnuImg1a(5)");
    EXPECT_EQ(message(), "");
}

TEST_F(Saving, AReloadOfAFileThatIsGoneEndsNothing) {
    const Bitmap before = form().pb4.Image();
    ASSERT_TRUE(QFile::remove(image("Halvard-Image2.jpg")));
    chooseOn("pb4", "mnuImg2a(0)");
    EXPECT_EQ(message(), "file not found: Halvard-Image2.jpg");
    EXPECT_EQ(form().pb4.Image(), before);
    form().lab.channel2.file.clear();
    chooseOn("pb4", "mnuImg2a(0)");
    EXPECT_EQ(message(), "no file to reload");
}

TEST_F(Saving, APasteOfAPictureThatIsNoneSaysSoAndEndsNothing) {
    const Bitmap before = form().pb1.Image();
    // As a picture of another program is offered, but with bytes that are none.
    auto* content = new QMimeData;
    content->setData(QStringLiteral("application/x-qt-image"), QByteArray("no picture at all"));
    QGuiApplication::clipboard()->setMimeData(content);
    answers.nextMessage("No Image Data on Clipboard", "Quillon", QMessageBox::Warning,
                        QMessageBox::Ok);
    chooseOn("pb1", "mnuImg1a(7)");
    EXPECT_EQ(form().pb1.Image(), before);
    EXPECT_EQ(FileNamePart(form().lab.channel1.file), "Halvard-Image1.jpg");
}

TEST_F(Saving, APasteThatCannotWriteItsFileSaysSoAndChangesNothing) {
    const Bitmap before = form().pb1.Image();
    const EnvironmentVariable nowhere("TMP", home.filePath(QStringLiteral("gone")));
    QGuiApplication::clipboard()->setImage(QImage(40, 30, QImage::Format_RGB32));
    const std::string folder = toBytes(home.filePath(QStringLiteral("gone/")));
    answers.nextMessage("Not pasted: folder not found: " + folder + "\n" + folder + "clipboard.bmp",
                        "Quillon", QMessageBox::Warning, QMessageBox::Ok);
    chooseOn("pb1", "mnuImg1a(7)");
    EXPECT_EQ(form().pb1.Image(), before);
    EXPECT_EQ(FileNamePart(form().lab.channel1.file), "Halvard-Image1.jpg");
}

}  // namespace
}  // namespace quillon
