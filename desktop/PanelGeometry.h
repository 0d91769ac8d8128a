#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>

namespace quillon {

/// Where the pixels of a panel lie among those of the screen. A panel pixel
/// covers a whole number of device pixels each way, whatever the screen's scale:
/// pixels of uneven width would show a false moire in a lesson about frequencies.
/// Where the scale leaves room over, the picture stands in the middle.
struct PanelGeometry {
    /// Device pixels to the panel pixel, at least 1.
    int factor = 1;
    /// What the bitmap covers, in device pixels from the corner of the screen or
    /// surface that the panel is painted on.
    QRect bitmap;
    /// The bitmap with its border.
    QRect framed;

    /// @param corner  the widget's upper left corner in device pixels; need not be whole
    /// @param widget  the widget's size in pixels of the window
    /// @param ratio   device pixels to a pixel of the window
    /// @param surface the bitmap's size in panel pixels
    /// @param border  the border's width in panel pixels
    static PanelGeometry of(QPointF corner, QSize widget, qreal ratio, QSize surface, int border);

    /// The panel pixel that covers a point in device pixels; off the bitmap the
    /// count goes on beyond its edges.
    QPoint panelPixel(QPointF device) const;
    /// The device pixels that a panel pixel covers; the inverse of panelPixel.
    QRect devicePixels(QPoint panelPixel) const;
};

}  // namespace quillon
