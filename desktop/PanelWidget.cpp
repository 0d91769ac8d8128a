#include "desktop/PanelWidget.h"

#include <QPainter>
#include <cmath>

#include "desktop/Conversions.h"

namespace quillon {

namespace {

constexpr Integer kSolidFill = 0;

/// A circle as wide as its box, its line a panel pixel wide and inside the box.
void drawShape(QPainter& painter, const Shape& shape, const PanelGeometry& geometry) {
    const double factor = geometry.factor;
    const QRectF box(shape.Left * factor, shape.Top * factor, shape.Width * factor,
                     shape.Height * factor);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(geometry.bitmap.topLeft());
    painter.setPen(QPen(toQColor(shape.BorderColor), factor));
    painter.setBrush(shape.FillStyle == kSolidFill ? QBrush(toQColor(shape.FillColor))
                                                   : QBrush(Qt::NoBrush));
    painter.drawEllipse(box.adjusted(factor / 2, factor / 2, -factor / 2, -factor / 2));
    painter.restore();
}

/// Points of a line from its first to its last, one for each step along its
/// longer side.
std::vector<QPoint> pointsOf(const LineControl& line) {
    const double dx = static_cast<double>(line.X2) - static_cast<double>(line.X1);
    const double dy = static_cast<double>(line.Y2) - static_cast<double>(line.Y1);
    const int steps = static_cast<int>(std::lround(std::max(std::abs(dx), std::abs(dy))));
    std::vector<QPoint> points;
    for (int i = 0; i < steps; ++i)
        points.emplace_back(static_cast<int>(std::lround(line.X1 + dx * i / steps)),
                            static_cast<int>(std::lround(line.Y1 + dy * i / steps)));
    return points;
}

/// Exclusive-or with what the panel shows, so that the line is seen on any ground.
void drawLine(QPainter& painter, const LineControl& line, const Bitmap& shown,
              const PanelGeometry& geometry) {
    const PixelWord pen = toPixelWord(line.BorderColor);
    for (const QPoint point : pointsOf(line))
        if (shown.contains(point.x(), point.y()))
            painter.fillRect(geometry.devicePixels(point),
                             toQColor(toColorValue(shown.at(point.x(), point.y()) ^ pen)));
}

}  // namespace

PanelWidget::PanelWidget(const PictureBox& panel, QWidget* parent)
    : QWidget(parent), panel_(panel) {}

PanelGeometry PanelWidget::geometryAt(QPointF corner, qreal ratio) const {
    const Bitmap& shown = panel_.shown();
    return PanelGeometry::of(corner, size(), ratio, {shown.width, shown.height},
                             panel_.BorderStyle == 1 ? 1 : 0);
}

QPointF PanelWidget::cornerOnScreen() const {
    return QPointF(mapTo(window(), QPoint(0, 0))) * devicePixelRatioF();
}

void PanelWidget::takePlace() {
    const qreal ratio = devicePixelRatioF();
    const QPointF corner = cornerOnScreen();
    const QRectF place(corner, QSizeF(size()) * ratio);
    const bool framed = panel_.BorderStyle == 1;
    setAttribute(Qt::WA_OpaquePaintEvent,
                 !framed || QRectF(geometryAt(corner, ratio).framed).contains(place));
}

QPoint PanelWidget::panelPixel(QPointF position) const {
    const qreal ratio = devicePixelRatioF();
    const QPointF corner = cornerOnScreen();
    return geometryAt(corner, ratio).panelPixel(corner + position * ratio);
}

QPointF PanelWidget::pointOf(QPoint panelPixel) const {
    const qreal ratio = devicePixelRatioF();
    const QPointF corner = cornerOnScreen();
    const QRect pixels = geometryAt(corner, ratio).devicePixels(panelPixel);
    return (QRectF(pixels).center() - corner) / ratio;
}

void PanelWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QTransform toDevice = painter.deviceTransform();
    const PanelGeometry geometry = geometryAt({toDevice.dx(), toDevice.dy()}, toDevice.m11());
    const QColor ground = toQColor(panel_.BackColor());
    // What the bitmap leaves over shows the ground the panel stands on, so that
    // its frame lies close to it.
    if (panel_.BorderStyle != 1)
        painter.fillRect(rect(), ground);
    // From here on in device pixels.
    painter.setTransform(toDevice.inverted());
    if (panel_.BorderStyle == 1)
        painter.fillRect(geometry.framed, Qt::black);
    const Bitmap& shown = panel_.shown();
    painter.drawImage(geometry.bitmap, wrapped(shown));
    painter.setClipRect(geometry.bitmap);
    for (const LineControl* line : lines_)
        if (line->Visible)
            drawLine(painter, *line, shown, geometry);
    for (const Shape* shape : shapes_)
        if (shape->Visible)
            drawShape(painter, *shape, geometry);
}

}  // namespace quillon
