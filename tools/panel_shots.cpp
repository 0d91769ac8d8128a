#include "tools/panel_shots.h"

#include <QPainter>
#include <QPixmap>
#include <cmath>

#include "desktop/PanelWidget.h"

namespace quillon {

namespace {

constexpr int kGap = 8;

}  // namespace

QImage panelShot(FormWindow& window, Form1& form, Integer panel) {
    const PictureBox& box = form.lab.panel(panel);
    auto& widget = dynamic_cast<PanelWidget&>(*window.widgetOf(box));
    // The middle of the first pixel lies half a pixel inside the picture.
    const QPointF first = widget.pointOf(QPoint(0, 0)) + widget.mapTo(&window, QPoint(0, 0));
    const QRect place(static_cast<int>(std::floor(first.x())),
                      static_cast<int>(std::floor(first.y())), box.shown().width,
                      box.shown().height);
    // The fourth byte of a panel word is no opacity, so it must not come along.
    return window.grab().toImage().copy(place).convertToFormat(QImage::Format_RGB888);
}

QImage rowShot(FormWindow& window, Form1& form, Integer channel) {
    const int first = channel == 1 ? 1 : 4;
    QImage row;
    for (int i = 0; i < 3; ++i) {
        const QImage panel = panelShot(window, form, static_cast<Integer>(first + i));
        if (row.isNull()) {
            row = QImage(3 * panel.width() + 2 * kGap, panel.height(), QImage::Format_ARGB32);
            row.fill(Qt::transparent);
        }
        QPainter(&row).drawImage(i * (panel.width() + kGap), 0, panel);
    }
    return row;
}

}  // namespace quillon
