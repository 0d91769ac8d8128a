#include "desktop/pointers.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include "engine/Control.h"
#include "ui/Controls.h"

namespace quillon {

namespace {

constexpr int kSide = 32;

/// A black line with a white rim, to be seen on every picture.
void drawRimmed(QPainter& painter, const QPainterPath& path) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.setPen(QPen(Qt::black, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
}

QPixmap emptyPicture() {
    QPixmap picture(kSide, kSide);
    picture.fill(Qt::transparent);
    return picture;
}

/// A pencil whose tip is the point.
QCursor drawingPointer() {
    QPixmap picture = emptyPicture();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath body;
    body.addPolygon(QPolygonF({{1.5, 30.5}, {4, 23}, {20, 7}, {25, 12}, {9, 28}}));
    body.closeSubpath();
    painter.setPen(QPen(Qt::white, 3));
    painter.drawPath(body);
    painter.setBrush(QColor(250, 205, 70));
    painter.setPen(QPen(Qt::black, 1));
    painter.drawPath(body);
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygonF({{1.5, 30.5}, {2.8, 26.5}, {5.5, 29.2}}));
    painter.drawLine(QPointF(17, 10), QPointF(22, 15));
    painter.end();
    return QCursor(picture, 1, 30);
}

/// A small cross at the point, beside it the figure that a drag makes.
QCursor figurePointer(const QPainterPath& figure) {
    QPixmap picture = emptyPicture();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath cross;
    cross.moveTo(7.5, 1.5);
    cross.lineTo(7.5, 13.5);
    cross.moveTo(1.5, 7.5);
    cross.lineTo(13.5, 7.5);
    drawRimmed(painter, cross);
    drawRimmed(painter, figure);
    painter.end();
    return QCursor(picture, 7, 7);
}

QCursor masksPointer() {
    QPainterPath figure;
    figure.addRect(QRectF(13.5, 15.5, 14, 10));
    return figurePointer(figure);
}

QCursor ringPointer() {
    QPainterPath figure;
    figure.addEllipse(QRectF(14.5, 14.5, 13, 13));
    return figurePointer(figure);
}

}  // namespace

QCursor pointerOf(Integer mousePointer, Integer mouseIcon) {
    switch (mousePointer) {
        case kPointerWait:
            return Qt::WaitCursor;
        case kPointerFourArrows:
            return Qt::SizeAllCursor;
        case kPointerCustom:
            break;
        default:
            return Qt::ArrowCursor;
    }
    switch (mouseIcon) {
        case kMouseIconDrawing:
            return drawingPointer();
        case kMouseIconMasks:
            return masksPointer();
        case kMouseIconRing:
            return ringPointer();
        default:
            return Qt::PointingHandCursor;
    }
}

}  // namespace quillon
