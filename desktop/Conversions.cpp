#include "desktop/Conversions.h"

#include <QPainter>
#include <QStringDecoder>
#include <algorithm>
#include <cmath>

#include "engine/NativePaths.h"
#include "engine/PictureBox.h"

namespace quillon {

QString toQString(std::string_view bytes) {
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(view);
    return decoder.hasError() ? QString::fromLatin1(view) : text;
}

std::string toBytes(const QString& text) {
    return text.toStdString();
}

QString toNativePath(const std::string& path) {
    return toQString(foundPath(path));
}

std::string toLabPath(const QString& path) {
    return labPath(toBytes(path));
}

int toPixels(Single twips) {
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

Single toTwips(double pixels) {
    return static_cast<Single>(pixels * static_cast<double>(kTwipsPerPixel));
}

QRect placeOf(const Control& control) {
    return {toPixels(control.Left), toPixels(control.Top), toPixels(control.Width),
            toPixels(control.Height)};
}

QColor toQColor(ColorValue color) {
    return QColor::fromRgb(static_cast<QRgb>(toPixelWord(color)) | 0xFF000000U);
}

ColorValue toColorValue(const QColor& color) {
    return RGB(color.red(), color.green(), color.blue());
}

QFont toQFont(Font font, Single points, bool bold) {
    QFont letters;
    switch (font) {
        case Font::Arial:
            letters.setFamily(QStringLiteral("Arial"));
            break;
        case Font::ArialNarrow:
            letters.setFamily(QStringLiteral("Arial Narrow"));
            break;
        case Font::TimesNewRoman:
            letters.setFamily(QStringLiteral("Times New Roman"));
            break;
    }
    letters.setPixelSize(std::max(1, static_cast<int>(std::lround(points * 4 / 3))));
    letters.setBold(bold);
    return letters;
}

QImage wrapped(const Bitmap& picture) {
    static_assert(sizeof(PixelWord) == 4);
    return {reinterpret_cast<const uchar*>(picture.words.data()), picture.width, picture.height,
            static_cast<qsizetype>(picture.width) * 4, QImage::Format_RGB32};
}

Bitmap toBitmap(const QImage& image) {
    if (image.isNull())
        return {};
    QImage opaque = image;
    if (image.hasAlphaChannel()) {
        opaque = QImage(image.size(), QImage::Format_RGB32);
        opaque.fill(Qt::white);
        QPainter painter(&opaque);
        painter.drawImage(0, 0, image);
    } else if (image.format() != QImage::Format_RGB32) {
        opaque = image.convertToFormat(QImage::Format_RGB32);
    }
    Bitmap picture(opaque.width(), opaque.height());
    for (int y = 0; y < picture.height; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(opaque.constScanLine(y));
        std::ranges::transform(line, line + picture.width, picture.row(y).begin(),
                               [](QRgb word) { return static_cast<PixelWord>(word & 0xFFFFFFU); });
    }
    return picture;
}

}  // namespace quillon
