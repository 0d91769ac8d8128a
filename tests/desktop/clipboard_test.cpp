#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include "desktop/QtClipboard.h"
#include "engine/RunTimeError.h"

namespace quillon {
namespace {

TEST(ClipboardService, APictureLiesThereInTheDesktopsFormAndAsPngBytes) {
    QtClipboard clipboard;
    Bitmap picture(3, 2, 0x0A0B0C);
    picture.at(2, 1) = 0xFFFEFD;
    clipboard.setPicture(picture);
    picture.at(0, 0) = 0;

    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    ASSERT_TRUE(content->hasImage());
    QImage png;
    ASSERT_TRUE(png.loadFromData(content->data(QStringLiteral("image/png")), "PNG"));
    EXPECT_EQ(png.size(), QSize(3, 2));
    EXPECT_EQ(png.pixelColor(2, 1), QColor(0xFF, 0xFE, 0xFD));
    EXPECT_EQ(png.pixelColor(0, 0), QColor(0x0A, 0x0B, 0x0C))
        << "what was copied is what was there at the copying";
    EXPECT_TRUE(clipboard.hasPicture());
    EXPECT_EQ(clipboard.picture().at(2, 1), 0xFFFEFD);
}

TEST(ClipboardService, APictureOfAnotherProgramIsTakenOverWithTransparencyOnWhite) {
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, qRgba(0, 0, 0, 0));
    image.setPixel(1, 0, qRgba(10, 20, 30, 255));
    QGuiApplication::clipboard()->setImage(image);
    EXPECT_EQ(QtClipboard().picture().words, (std::vector<PixelWord>{0xFFFFFF, 0x0A141E}));
}

TEST(ClipboardService, APromisedPictureThatCannotBeDecodedIsNone) {
    // As a picture of another program is offered, but with bytes that are none.
    auto* content = new QMimeData;
    content->setData(QStringLiteral("application/x-qt-image"), QByteArray("no picture at all"));
    ASSERT_TRUE(content->hasImage());
    QGuiApplication::clipboard()->setMimeData(content);
    QtClipboard clipboard;
    EXPECT_FALSE(clipboard.hasPicture());
    EXPECT_THROW(clipboard.picture(), RunTimeError);
    auto* empty = new QMimeData;
    empty->setImageData(QImage());
    QGuiApplication::clipboard()->setMimeData(empty);
    EXPECT_FALSE(clipboard.hasPicture());
}

TEST(ClipboardService, TextIsNoPicture) {
    QtClipboard clipboard;
    clipboard.setText("1\t2\r\n\xC3\xA9");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("1\t2\r\né"));
    EXPECT_FALSE(clipboard.hasPicture());
    EXPECT_THROW(clipboard.picture(), RunTimeError);
}

TEST(ClipboardService, ClearingLeavesNothing) {
    QtClipboard clipboard;
    clipboard.setText("text");
    clipboard.clear();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().isEmpty());
    clipboard.setPicture(Bitmap(1, 1));
    clipboard.clear();
    EXPECT_FALSE(clipboard.hasPicture());
}

}  // namespace
}  // namespace quillon
