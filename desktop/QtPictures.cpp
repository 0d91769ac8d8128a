#include "desktop/QtPictures.h"

#include <QBuffer>
#include <QImageReader>

#include "desktop/Conversions.h"
#include "desktop/bitmap_file.h"
#include "desktop/whole_picture.h"
#include "engine/RunTimeError.h"

namespace quillon {

namespace {

// Room for a decoded picture of 8000 by 6000 with some to spare; a file that
// claims to be larger is refused before memory is asked for.
constexpr int kLargestPictureMegabytes = 512;

bool isReadableFormat(const QByteArray& format) {
    return format == "bmp" || format == "gif" || format == "jpeg";
}

/// Some programs write 32-bit bitmaps with an alpha channel of zeros and mean an
/// opaque picture.
bool isFullyTransparent(const QImage& image) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 0)
                return false;
    return true;
}

}  // namespace

QtPictures::QtPictures(Files& files) : files_(files) {
    QImageReader::setAllocationLimit(kLargestPictureMegabytes);
}

Bitmap QtPictures::load(const std::string& path) {
    const std::string bytes = files_.read(path);
    if (Bitmap picture = pictureOfUsualBitmap(bytes); !picture.empty())
        return picture;
    if (!isWholePicture(bytes))
        throw RunTimeError(ErrorNumber::InvalidPicture);
    QByteArray content =
        QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&content);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (!isReadableFormat(reader.format()))
        throw RunTimeError(ErrorNumber::InvalidPicture);
    const bool isBitmap = reader.format() == "bmp";
    QImage image = reader.read();
    if (image.isNull())
        throw RunTimeError(ErrorNumber::InvalidPicture);
    if (isBitmap && image.hasAlphaChannel() && isFullyTransparent(image))
        image.reinterpretAsFormat(QImage::Format_RGB32);
    return toBitmap(image);
}

void QtPictures::save(const Bitmap& picture, const std::string& path) {
    if (picture.empty())
        throw RunTimeError(ErrorNumber::InvalidPicture);
    files_.write(path, bitmapFile(picture));
}

}  // namespace quillon
