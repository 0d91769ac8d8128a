#include "desktop/QtClipboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "desktop/Conversions.h"
#include "engine/RunTimeError.h"

namespace quillon {

void QtClipboard::clear() {
    QGuiApplication::clipboard()->clear();
}

void QtClipboard::setText(const std::string& text) {
    QGuiApplication::clipboard()->setText(toQString(text));
}

void QtClipboard::setPicture(const Bitmap& picture) {
    // The clipboard may be read long after the panel has changed, so it gets a
    // copy of its own.
    const QImage image = wrapped(picture).copy();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    auto* content = new QMimeData;
    content->setImageData(image);
    content->setData(QStringLiteral("image/png"), png);
    QGuiApplication::clipboard()->setMimeData(content);
}

bool QtClipboard::hasPicture() {
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    // Another program may promise a picture and hand out bytes that are none.
    return content != nullptr && content->hasImage() &&
           !QGuiApplication::clipboard()->image().isNull();
}

Bitmap QtClipboard::picture() {
    Bitmap picture = toBitmap(QGuiApplication::clipboard()->image());
    if (picture.empty())
        throw RunTimeError(ErrorNumber::InvalidPicture);
    return picture;
}

}  // namespace quillon
