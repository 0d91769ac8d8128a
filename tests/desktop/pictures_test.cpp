#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <random>

#include "desktop/Conversions.h"
#include "desktop/QtPictures.h"
#include "desktop/bitmap_file.h"
#include "engine/RunTimeError.h"
#include "tests/desktop/picture_files.h"
#include "tests/support/RecordingDesktop.h"

namespace quillon {
namespace {

constexpr PixelWord kRedWord = 0xFF0000;
constexpr PixelWord kGreenWord = 0x00FF00;
constexpr PixelWord kBlueWord = 0x0000FF;
constexpr PixelWord kWhiteWord = 0xFFFFFF;
constexpr PixelWord kBlackWord = 0x000000;

class PictureFiles : public ::testing::Test {
protected:
    RecordingDesktop recording;
    QtPictures pictures{recording.files};

    Bitmap decoded(const std::string& bytes, const std::string& path = "C:\\picture.bin") {
        recording.files.addFile(path, bytes);
        return pictures.load(path);
    }
    ErrorNumber errorOf(const std::string& bytes, const std::string& path = "C:\\broken.bmp") {
        try {
            decoded(bytes, path);
        } catch (const RunTimeError& error) {
            return error.number();
        }
        ADD_FAILURE() << "the file was decoded";
        return ErrorNumber::Overflow;
    }
};

Bitmap noise(int width, int height, unsigned seed) {
    std::cout << "seed " << seed << '\n';
    std::mt19937 random(seed);
    Bitmap picture(width, height);
    for (PixelWord& word : picture.words)
        word = static_cast<PixelWord>(random() & 0xFFFFFF);
    return picture;
}

std::string jpegOf(const QImage& image, bool progressive = false) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(100);
    writer.setProgressiveScanWrite(progressive);
    EXPECT_TRUE(writer.write(image));
    return bytes.toStdString();
}

/// A grey ramp from left to right, with a bright block in the upper left corner.
QImage rampWithCorner(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int grey = x < width / 4 && y < height / 4 ? 255 : 10 + x * 100 / width;
            image.setPixel(x, y, qRgb(grey, grey, grey));
        }
    return image;
}

void expectNear(const Bitmap& picture, int x, int y, int grey) {
    const PixelWord word = picture.at(x, y);
    for (const int shift : {0, 8, 16})
        EXPECT_NEAR(word >> shift & 0xFF, grey, 4) << "at " << x << ", " << y;
}

TEST_F(PictureFiles, ABitmapOfOneBitAPixelGivesTheTwoColoursOfItsTable) {
    const Bitmap picture = decoded(indexedBmp(3, 2, 1, {0, 1, 0, 1, 1, 0}, {kBlackWord, 0x123456}));
    EXPECT_EQ(picture.words, (std::vector<PixelWord>{0, 0x123456, 0, 0x123456, 0x123456, 0}));
    EXPECT_EQ(picture.width, 3);
}

TEST_F(PictureFiles, ABitmapOfFourBitsAPixelGivesTheColoursOfItsTable) {
    const Bitmap picture =
        decoded(indexedBmp(3, 1, 4, {2, 0, 1}, {kRedWord, kGreenWord, kBlueWord}));
    EXPECT_EQ(picture.words, (std::vector<PixelWord>{kBlueWord, kRedWord, kGreenWord}));
}

TEST_F(PictureFiles, ABitmapOfEightBitsAPixelGivesTheColoursOfItsTable) {
    const Bitmap picture =
        decoded(indexedBmp(1, 3, 8, {2, 0, 1}, {kRedWord, kGreenWord, kBlueWord}));
    EXPECT_EQ(picture.words, (std::vector<PixelWord>{kBlueWord, kRedWord, kGreenWord}));
    EXPECT_EQ(picture.height, 3);
}

TEST_F(PictureFiles, ABitmapInRunsIsUnrolled) {
    const Bitmap picture = decoded(runLengthBmp());
    EXPECT_EQ(picture.words, (std::vector<PixelWord>{kBlueWord, kBlackWord, kBlueWord, kRedWord,
                                                     kRedWord, kRedWord, kRedWord, kRedWord}));
}

TEST_F(PictureFiles, ABitmapOf24BitsAPixelKeepsItsThreeBytes) {
    const Bitmap source = noise(5, 4, 20240101);
    EXPECT_EQ(decoded(directBmp(source, 24)), source);
}

TEST_F(PictureFiles, ABitmapOf32BitsAPixelKeepsThreeBytesAndItsTopByteIsZero) {
    const Bitmap source = noise(5, 4, 20240102);
    EXPECT_EQ(decoded(directBmp(source, 32)), source);
}

TEST_F(PictureFiles, TransparentPixelsOfABitmapLieOnWhite) {
    const Bitmap picture = decoded(alphaBmp(2, 1, {0x00FF0000, 0xFF0000FF}));
    EXPECT_EQ(picture.words, (std::vector<PixelWord>{kWhiteWord, kBlueWord}));
}

TEST_F(PictureFiles, ABitmapWhoseAlphaIsZeroThroughoutIsMeantOpaque) {
    const Bitmap picture = decoded(alphaBmp(2, 1, {0x00FF0000, 0x000000FF}));
    EXPECT_EQ(picture.words, (std::vector<PixelWord>{kRedWord, kBlueWord}));
}

TEST_F(PictureFiles, OfAnAnimationTheFirstFrameIsTaken) {
    const std::vector<PixelWord> colors{kRedWord, kGreenWord, kBlueWord};
    const Bitmap picture =
        decoded(gif(2, 2, colors, {{{0, 1, 2, 0}, false}, {{1, 1, 1, 1}, false}}));
    EXPECT_EQ(picture.words, (std::vector<PixelWord>{kRedWord, kGreenWord, kBlueWord, kRedWord}));
}

TEST_F(PictureFiles, TransparentPixelsOfAGifLieOnWhite) {
    const Bitmap picture =
        decoded(gif(2, 1, {kRedWord, kGreenWord, kBlueWord, kBlackWord}, {{{3, 0}, true}}));
    EXPECT_EQ(picture.words, (std::vector<PixelWord>{kWhiteWord, kRedWord}));
}

TEST_F(PictureFiles, AGreyJpegHasThreeEqualBytes) {
    const Bitmap picture =
        decoded(jpegOf(rampWithCorner(64, 32).convertToFormat(QImage::Format_Grayscale8)));
    ASSERT_EQ(picture.width, 64);
    ASSERT_EQ(picture.height, 32);
    for (const PixelWord word : picture.words)
        EXPECT_EQ(word, (word & 0xFF) * 0x010101);
    expectNear(picture, 4, 2, 255);
    expectNear(picture, 32, 20, 60);
}

TEST_F(PictureFiles, AColourJpegKeepsItsColours) {
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(QColor(200, 40, 90));
    const PixelWord word = decoded(jpegOf(image)).at(8, 8);
    EXPECT_NEAR(word >> 16 & 0xFF, 200, 4);
    EXPECT_NEAR(word >> 8 & 0xFF, 40, 4);
    EXPECT_NEAR(word & 0xFF, 90, 4);
}

TEST_F(PictureFiles, AProgressiveJpegIsReadLikeAnyOther) {
    const std::string bytes = jpegOf(rampWithCorner(64, 32), true);
    ASSERT_NE(bytes.find("\xFF\xC2"), std::string::npos) << "not a progressive file";
    const Bitmap picture = decoded(bytes);
    expectNear(picture, 4, 2, 255);
    expectNear(picture, 48, 20, 85);
}

TEST_F(PictureFiles, AJpegIsTurnedUprightByItsOrientationTag) {
    // Orientation 6: the camera was held so that its left side was up.
    const Bitmap picture = decoded(withOrientation(jpegOf(rampWithCorner(64, 32)), 6));
    ASSERT_EQ(picture.width, 32);
    ASSERT_EQ(picture.height, 64);
    expectNear(picture, 28, 4, 255);
    expectNear(picture, 2, 4, 16);
}

TEST_F(PictureFiles, ContentDecidesAndNotTheName) {
    EXPECT_EQ(decoded(directBmp(Bitmap(2, 2, kGreenWord), 24), "C:\\wrong.gif"),
              Bitmap(2, 2, kGreenWord));
}

TEST_F(PictureFiles, SizesReachFromOnePixelToCameraPictures) {
    EXPECT_EQ(decoded(directBmp(Bitmap(1, 1, kRedWord), 24)), Bitmap(1, 1, kRedWord));
    QImage camera(8000, 6000, QImage::Format_Grayscale8);
    camera.fill(77);
    const Bitmap picture = decoded(jpegOf(camera));
    EXPECT_EQ(picture.width, 8000);
    EXPECT_EQ(picture.height, 6000);
    expectNear(picture, 7999, 5999, 77);
}

TEST_F(PictureFiles, AMissingFileIsError53) {
    EXPECT_THROW(
        {
            try {
                pictures.load("C:\\nowhere.bmp");
            } catch (const RunTimeError& error) {
                EXPECT_EQ(error.number(), ErrorNumber::FileNotFound);
                throw;
            }
        },
        RunTimeError);
}

TEST_F(PictureFiles, WhatIsNoPictureIsError481) {
    EXPECT_EQ(errorOf(""), ErrorNumber::InvalidPicture);
    EXPECT_EQ(errorOf("just some words"), ErrorNumber::InvalidPicture);
    EXPECT_EQ(errorOf("BM"), ErrorNumber::InvalidPicture);
    EXPECT_EQ(errorOf("\xFF\xD8\xFF"), ErrorNumber::InvalidPicture);
    EXPECT_EQ(errorOf("GIF89a"), ErrorNumber::InvalidPicture);
}

TEST_F(PictureFiles, OtherKindsOfPicturesAreRefused) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    QImage(2, 2, QImage::Format_RGB32).save(&buffer, "PNG");
    EXPECT_EQ(errorOf(png.toStdString(), "C:\\a.bmp"), ErrorNumber::InvalidPicture);
}

TEST_F(PictureFiles, AFileThatBreaksOffIsError481WhereverItBreaks) {
    const std::vector<std::string> files = {
        directBmp(noise(9, 7, 20240103), 24),
        runLengthBmp(),
        gif(4, 4, {kRedWord, kGreenWord}, {{std::vector<int>(16, 1), false}}),
        jpegOf(rampWithCorner(16, 16)),
        jpegOf(rampWithCorner(16, 16), true),
    };
    for (const std::string& whole : files) {
        EXPECT_FALSE(decoded(whole).empty());
        // The last byte of a GIF says only that no further frame follows.
        const std::size_t needed = whole.starts_with("GIF") ? whole.size() - 1 : whole.size();
        for (std::size_t length = 0; length < needed; ++length)
            EXPECT_EQ(errorOf(whole.substr(0, length)), ErrorNumber::InvalidPicture)
                << whole.substr(0, 3) << " cut to " << length << " of " << whole.size();
    }
}

TEST_F(PictureFiles, AFileThatClaimsAnAbsurdSizeIsRefusedBeforeMemoryIsAskedFor) {
    std::string bytes = directBmp(Bitmap(4, 4, kRedWord), 24);
    bytes[20] = '\x7F';
    bytes[24] = '\x7F';
    EXPECT_EQ(errorOf(bytes), ErrorNumber::InvalidPicture);
}

TEST_F(PictureFiles, BytesBehindThePictureDoNoHarm) {
    const Bitmap source = noise(3, 3, 20240104);
    EXPECT_EQ(decoded(directBmp(source, 24) + "trailing"), source);
    EXPECT_FALSE(decoded(jpegOf(rampWithCorner(16, 16)) + "trailing").empty());
}

TEST_F(PictureFiles, SavedPicturesHave24BitsAPixelAndComeBackAsTheyWere) {
    const Bitmap source = noise(7, 5, 20240105);
    pictures.save(source, "C:\\out.bmp");
    const std::string bytes = recording.files.bytesOf("C:\\out.bmp");
    EXPECT_TRUE(bytes.starts_with("BM"));
    EXPECT_EQ(static_cast<int>(bytes[28]), 24);
    EXPECT_EQ(bytes.size(), 54U + 24U * 5U);
    EXPECT_EQ(pictures.load("C:\\out.bmp"), source);
    EXPECT_EQ(toBitmap(QImage::fromData(QByteArray::fromStdString(bytes))), source)
        << "the toolkit reads it too";
}

TEST_F(PictureFiles, ASavedPictureIsByteForByteThatOfTheToolkit) {
    for (const auto& [width, height] : {std::pair(1, 1), {2, 3}, {3, 2}, {4, 1}, {257, 3}}) {
        const Bitmap source = noise(width, height, 20240106);
        pictures.save(source, "C:\\out.bmp");
        QImage image = wrapped(source);
        image.setDotsPerMeterX(3780);
        image.setDotsPerMeterY(3780);
        QBuffer expected;
        expected.open(QIODevice::WriteOnly);
        ASSERT_TRUE(image.save(&expected, "bmp"));
        EXPECT_EQ(recording.files.bytesOf("C:\\out.bmp"), expected.data().toStdString())
            << width << " by " << height;
    }
}

Bitmap decodedByTheToolkit(const std::string& bytes) {
    return toBitmap(QImage::fromData(QByteArray::fromStdString(bytes), "BMP"));
}

TEST_F(PictureFiles, ABitmapOfTheUsualKindIsReadAsTheToolkitReadsIt) {
    for (const auto& [width, height] :
         {std::pair(1, 1), {2, 3}, {3, 2}, {4, 1}, {5, 2}, {257, 3}}) {
        const Bitmap source = noise(width, height, 20240107);
        const std::string bytes = bitmapFile(source);
        EXPECT_EQ(pictureOfUsualBitmap(bytes), source) << width << " by " << height;
        EXPECT_EQ(decodedByTheToolkit(bytes), source) << width << " by " << height;
        EXPECT_EQ(pictureOfUsualBitmap(bytes + "trailing"), source);
    }
}

TEST_F(PictureFiles, ABitmapThatIsUnusualInOneThingIsLeftToTheToolkit) {
    const std::string usual = bitmapFile(noise(6, 5, 20240108));
    // Offsets, header sizes, planes, bits, compression, colours of a table; and
    // sizes of nothing, of rows from the top and beyond all bounds.
    const std::vector<std::pair<std::size_t, char>> changes = {
        {0, 'A'},     {10, 55}, {14, 108}, {18, 0},  {21, '\x7F'}, {22, 0}, {25, -1},
        {19, '\x7F'}, {26, 2},  {28, 16},  {28, 32}, {30, 3},      {46, 1}, {50, 1}};
    for (const auto& [at, value] : changes) {
        std::string changed = usual;
        changed[at] = value;
        EXPECT_TRUE(pictureOfUsualBitmap(changed).empty()) << "byte " << at;
    }
    for (std::size_t length = 0; length < usual.size(); ++length)
        EXPECT_TRUE(pictureOfUsualBitmap(usual.substr(0, length)).empty()) << length;
}

TEST_F(PictureFiles, RowsFromTheTopAreTurnedRound) {
    const Bitmap source = noise(3, 2, 20240109);
    std::string bytes = bitmapFile(source);
    const std::string minusTwo = "\xFE\xFF\xFF\xFF";
    bytes.replace(22, 4, minusTwo);
    const Bitmap picture = decoded(bytes);
    ASSERT_EQ(picture.height, 2);
    for (int x = 0; x < 3; ++x) {
        EXPECT_EQ(picture.at(x, 0), source.at(x, 1));
        EXPECT_EQ(picture.at(x, 1), source.at(x, 0));
    }
}

TEST_F(PictureFiles, AFolderThatCannotBeWrittenIsError75AndLeavesTheOldFile) {
    recording.files.addFolder("C:\\Locked");
    pictures.save(Bitmap(2, 2, kRedWord), "C:\\Locked\\out.bmp");
    const std::string before = recording.files.bytesOf("C:\\Locked\\out.bmp");
    recording.files.makeFolderReadOnly("C:\\Locked");
    try {
        pictures.save(Bitmap(3, 3, kGreenWord), "C:\\Locked\\out.bmp");
        FAIL() << "the picture was written";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::PathFileAccessError);
    }
    EXPECT_EQ(recording.files.bytesOf("C:\\Locked\\out.bmp"), before);
}

TEST_F(PictureFiles, AFullDiskIsError61) {
    recording.files.diskFull = true;
    try {
        pictures.save(Bitmap(2, 2), "C:\\out.bmp");
        FAIL() << "the picture was written";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::DiskFull);
    }
}

TEST_F(PictureFiles, TheEmptyPictureCannotBeSaved) {
    try {
        pictures.save(Bitmap(), "C:\\out.bmp");
        FAIL() << "nothing was written as a picture";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::InvalidPicture);
    }
    EXPECT_FALSE(recording.files.exists("C:\\out.bmp"));
}

}  // namespace
}  // namespace quillon
