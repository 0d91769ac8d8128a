#include "desktop/QtTextPainter.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "desktop/Conversions.h"

namespace quillon {

namespace {

/// Letters are measured and drawn on a surface like the panel's, so that a
/// screen's density has no say in them.
QFontMetrics metricsOf(Font font, Single points) {
    static QImage surface(1, 1, QImage::Format_RGB32);
    return {toQFont(font, points), &surface};
}

}  // namespace

void QtTextPainter::draw(Bitmap& canvas, int x, int y, const std::string& text, Font font,
                         Single points, ColorValue color) {
    if (canvas.empty())
        return;
    QImage image(reinterpret_cast<uchar*>(canvas.words.data()), canvas.width, canvas.height,
                 static_cast<qsizetype>(canvas.width) * 4, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setFont(toQFont(font, points));
    painter.setPen(toQColor(color));
    painter.drawText(x, y + metricsOf(font, points).ascent(), toQString(text));
    painter.end();
    // The toolkit sets the top byte of the words it touches, which would turn
    // them negative.
    std::ranges::for_each(canvas.words, [](PixelWord& word) { word &= 0xFFFFFF; });
}

int QtTextPainter::width(const std::string& text, Font font, Single points) {
    return metricsOf(font, points).horizontalAdvance(toQString(text));
}

}  // namespace quillon
