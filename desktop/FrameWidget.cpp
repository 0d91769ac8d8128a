#include "desktop/FrameWidget.h"

#include <QFontMetrics>
#include <QPainter>

#include "desktop/Conversions.h"

namespace quillon {

namespace {

constexpr int kCaptionLeft = 9;
constexpr int kCaptionMargin = 3;

}  // namespace

void FrameWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor ground = toQColor(frame_.BackColor());
    const QColor ink = toQColor(frame_.ForeColor);
    painter.fillRect(rect(), ground);
    const QFont letters = toQFont(frame_.FontName, frame_.FontSize, frame_.FontBold);
    const QFontMetrics metrics(letters);
    const QString caption = toQString(frame_.Caption.get());
    const int width = metrics.horizontalAdvance(caption);
    if (frame_.BorderStyle == 1) {
        // Filled, because a thin pen may miss the edge at a scale between whole numbers.
        const QRect outer = rect().adjusted(0, metrics.height() / 2, 0, 0);
        painter.fillRect(outer, ink);
        painter.fillRect(outer.adjusted(1, 1, -1, -1), ground);
        if (!caption.isEmpty())
            painter.fillRect(kCaptionLeft - kCaptionMargin, 0, width + 2 * kCaptionMargin,
                             metrics.height(), ground);
    }
    painter.setFont(letters);
    painter.setPen(ink);
    painter.drawText(kCaptionLeft, metrics.ascent(), caption);
}

}  // namespace quillon
