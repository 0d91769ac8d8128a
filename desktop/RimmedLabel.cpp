#include "desktop/RimmedLabel.h"

#include <QPainter>

#include "desktop/Conversions.h"

namespace quillon {

void RimmedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(toQColor(panel_.BackColor()));
    for (const int dx : {-1, 0, 1})
        for (const int dy : {-1, 0, 1})
            painter.drawText(rect().translated(dx, dy), static_cast<int>(alignment()), text());
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), static_cast<int>(alignment()), text());
}

}  // namespace quillon
