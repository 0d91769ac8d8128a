#include "desktop/FrameWidget.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "desktop/Conversions.h"

namespace quillon {

namespace {

constexpr int kCaptionLeft = 9;
constexpr int kCaptionMargin = 3;

}  // namespace

int FrameWidget::captionRoom(int lineHeight) const {
    int end = width() - kCaptionLeft;
    for (const QObject* child : children()) {
        const auto* control = qobject_cast<const QWidget*>(child);
        if (control != nullptr && !control->isHidden() && control->y() < lineHeight &&
            control->x() > kCaptionLeft)
            // The gap in the frame's line reaches beyond the letters.
            end = std::min(end, control->x() - 2 * kCaptionMargin);
    }
    return end - kCaptionLeft;
}

void FrameWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor ground = toQColor(frame_.BackColor());
    const QColor ink = toQColor(frame_.ForeColor);
    painter.fillRect(rect(), ground);
    const QFont letters = toQFont(frame_.FontName, frame_.FontSize, frame_.FontBold);
    const QFontMetrics metrics(letters);
    const QString caption = toQString(frame_.Caption.get());
    const int natural = metrics.horizontalAdvance(caption);
    const int width = std::min(natural, captionRoom(metrics.height()));
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
    // Squeezed, not cut: of a factor no digit may be missing.
    painter.translate(kCaptionLeft, metrics.ascent());
    if (width < natural)
        painter.scale(static_cast<double>(width) / natural, 1);
    painter.drawText(0, 0, caption);
}

}  // namespace quillon
