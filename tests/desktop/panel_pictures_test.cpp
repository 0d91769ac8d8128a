#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QImage>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"

// Pictures on their whole way: from the menu entry through real files and the
// real clipboard to the panels.

namespace quillon {
namespace {

class PanelPictures : public OpenedWindow {
protected:
    std::string inHome(const char* name) const {
        return toLabPath(home.filePath(QString::fromLatin1(name)));
    }

    /// Left half red, right half blue.
    static QImage twoHalves(int width, int height) {
        QImage image(width, height, QImage::Format_RGB32);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                image.setPixelColor(x, y, x < width / 2 ? QColor(Qt::red) : QColor(Qt::blue));
        return image;
    }

    static void expectTwoHalves(const Bitmap& shown) {
        ASSERT_EQ(shown.width, 256);
        ASSERT_EQ(shown.height, 256);
        for (const int y : {0, 128, 255}) {
            EXPECT_EQ(shown.at(0, y), 0xFF0000U) << y;
            EXPECT_EQ(shown.at(120, y), 0xFF0000U) << y;
            EXPECT_EQ(shown.at(135, y), 0x0000FFU) << y;
            EXPECT_EQ(shown.at(255, y), 0x0000FFU) << y;
        }
    }

    EnvironmentVariable pasteFolder{"TMP", home.path()};
};

TEST_F(PanelPictures, ACopyOfOneChannelIsPastedIntoTheOtherPixelByPixel) {
    const Bitmap copied = form().pb1.Image();
    ASSERT_NE(form().pb4.Image(), copied);
    form().click(MenuArray::mnuImg1a, 5);
    form().click(MenuArray::mnuImg2a, 7);
    EXPECT_EQ(form().pb4.Image(), copied);
    EXPECT_EQ(form().pb5.Image(), form().pb2.Image()) << "the pasted picture is transformed";
    EXPECT_EQ(form().lab.channel2.file, inHome("clipboard.bmp"));
}

TEST_F(PanelPictures, APastedPictureComesBackByAReloadOfItsFile) {
    form().click(MenuArray::mnuImg1a, 5);
    form().click(MenuArray::mnuImg2a, 7);
    const Bitmap pasted = form().pb4.Image();
    form().click(MenuArray::mnuImg2a, 3);
    ASSERT_NE(form().pb4.Image(), pasted);
    QGuiApplication::clipboard()->clear();
    form().click(MenuArray::mnuImg2a, 0);
    EXPECT_EQ(form().pb4.Image(), pasted);
}

TEST_F(PanelPictures, APictureOfAnotherProgramFillsThePanelWhateverItsSize) {
    QGuiApplication::clipboard()->setImage(twoHalves(640, 480));
    form().click(MenuArray::mnuImg1a, 7);
    expectTwoHalves(form().pb1.Image());
}

TEST_F(PanelPictures, ALoadedFileOf640By480IsSavedAsABitmapOf256By256) {
    ASSERT_TRUE(twoHalves(640, 480).save(home.filePath(QStringLiteral("wide.bmp")), "BMP"));
    recording.dialogs.answerOpen(inHome("wide.bmp"));
    form().click(MenuArray::mnuImg1a, 2);
    expectTwoHalves(form().pb1.Image());

    recording.dialogs.answerSave(inHome("saved.bmp"));
    form().click(MenuArray::mnuImg1a, 6);
    QFile file(home.filePath(QStringLiteral("saved.bmp")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("BM"));
    EXPECT_EQ(toBitmap(QImage::fromData(bytes)), form().pb1.Image());
}

TEST_F(PanelPictures, ASavedSpectrumLacksTheDarkSurroundThatTheScreenShows) {
    const Bitmap spectrum = form().pb2.Image();
    form().click(MenuArray::mnuFT1a, 10);
    ASSERT_NE(form().pb2.shown(), spectrum);
    recording.dialogs.answerSave(inHome("spectrum.bmp"));
    form().click(MenuArray::mnuFT1a, 3);
    EXPECT_EQ(toBitmap(QImage(home.filePath(QStringLiteral("spectrum.bmp")))), spectrum);
}

}  // namespace
}  // namespace quillon
