#include <gtest/gtest.h>

#include <QFile>
#include <QFontInfo>
#include <QTemporaryDir>

#include "desktop/Conversions.h"

namespace quillon {
namespace {

TEST(Conversions, TextsAreUtf8AndOtherBytesAreShownAsLatin1) {
    EXPECT_EQ(toQString("Fran\xC3\xA7"
                        "ais"),
              QStringLiteral("Français"));
    EXPECT_EQ(toQString("Fran\xE7"
                        "ais"),
              QStringLiteral("Français"));
    EXPECT_EQ(toBytes(QStringLiteral("Français")),
              "Fran\xC3\xA7"
              "ais");
    EXPECT_EQ(toQString(""), QString());
}

TEST(Conversions, PathsExchangeTheirSeparators) {
    EXPECT_EQ(toNativePath("\\home\\user\\a b.jpg"), QStringLiteral("/home/user/a b.jpg"));
    EXPECT_EQ(toLabPath(QStringLiteral("/home/user/a b.jpg")), "\\home\\user\\a b.jpg");
}

TEST(Conversions, ANativePathMayStandInFrontOfALabPath) {
    EXPECT_EQ(toNativePath("/tmp/nowhere\\name"), QStringLiteral("/tmp/nowhere/name"));
}

TEST(Conversions, AFileIsFoundInAnyCaseOfItsName) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Cat.JPG"));
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    EXPECT_EQ(toNativePath(toLabPath(folder.path()) + "\\cat.jpg"), path);
}

TEST(Conversions, FifteenTwipsAreAPixel) {
    EXPECT_EQ(toPixels(3870), 258);
    EXPECT_EQ(toPixels(-30), -2);
    EXPECT_FLOAT_EQ(toTwips(258), 3870);
    Label label("label");
    label.Move(90, 105, 1290, 270);
    EXPECT_EQ(placeOf(label), QRect(6, 7, 86, 18));
}

TEST(Conversions, ColourValuesHaveRedLowestAndWordsHaveBlueLowest) {
    EXPECT_EQ(toQColor(RGB(1, 2, 3)), QColor(1, 2, 3));
    EXPECT_EQ(toColorValue(QColor(1, 2, 3)), RGB(1, 2, 3));
}

TEST(Conversions, AWrappedPictureIsTheSameMemory) {
    Bitmap picture(3, 2, 0x102030);
    const QImage image = wrapped(picture);
    EXPECT_EQ(static_cast<const void*>(image.constBits()), picture.words.data());
    picture.at(2, 1) = 0x405060;
    EXPECT_EQ(image.pixelColor(2, 1), QColor(0x40, 0x50, 0x60));
}

TEST(Conversions, TheTopByteOfEveryWordIsZero) {
    QImage image(2, 1, QImage::Format_RGB32);
    image.fill(QColor(255, 0, 128));
    EXPECT_EQ(toBitmap(image), Bitmap(2, 1, 0xFF0080));
    EXPECT_TRUE(toBitmap(QImage()).empty());
}

TEST(Conversions, LettersHaveTheirSizeInPixelsWhateverTheScreen) {
    const QFont font = toQFont(Font::Arial, 8.25F);
    EXPECT_EQ(font.pixelSize(), 11);
    EXPECT_FALSE(font.bold());
    EXPECT_EQ(toQFont(Font::Arial, 9, true).pixelSize(), 12);
    EXPECT_TRUE(toQFont(Font::Arial, 9, true).bold());
}

TEST(Conversions, ArialIsShownInLettersOfItsMeasures) {
    const QString family = QFontInfo(toQFont(Font::Arial, 8.25F)).family();
    EXPECT_TRUE(family == QStringLiteral("Arial") || family == QStringLiteral("Liberation Sans"))
        << family.toStdString();
}

}  // namespace
}  // namespace quillon
