#include "desktop/LampWidget.h"

#include <QPainter>
#include <QPainterPath>

namespace quillon {

void LampWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // Drawn on a grid of 11 by 11, the lamp's size on a plain screen.
    painter.scale(width() / 11.0, height() / 11.0);
    QPainterPath bulb;
    bulb.moveTo(3.9, 7.4);
    bulb.cubicTo(3.7, 6.0, 2.0, 5.5, 2.0, 3.6);
    bulb.cubicTo(2.0, 1.7, 3.6, 0.4, 5.5, 0.4);
    bulb.cubicTo(7.4, 0.4, 9.0, 1.7, 9.0, 3.6);
    bulb.cubicTo(9.0, 5.5, 7.3, 6.0, 7.1, 7.4);
    bulb.closeSubpath();
    painter.setPen(QPen(QColor(70, 60, 20), 0.8));
    painter.setBrush(QColor(255, 221, 87));
    painter.drawPath(bulb);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(110, 110, 110));
    painter.drawRoundedRect(QRectF(3.9, 7.9, 3.2, 2.6), 0.8, 0.8);
}

}  // namespace quillon
