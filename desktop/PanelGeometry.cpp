#include "desktop/PanelGeometry.h"

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

/// The first device pixel of `inner` ones in the middle of `outer` ones; at the
/// start where they do not fit.
int middle(double start, double outer, int inner, int border) {
    // Half a pixel left over goes to the far side, a hair of rounding error does not count.
    constexpr double kHair = 1e-6;
    const double room = std::max(0.0, outer - inner - 2.0 * border);
    return static_cast<int>(std::floor(start + room / 2 + kHair)) + border;
}

int factorOf(QSize widget, qreal ratio, QSize surface, int border) {
    const auto fit = [&](int outer, int inner) {
        constexpr double kHair = 1e-6;
        const int framed = inner + 2 * border;
        return framed > 0 ? static_cast<int>(std::floor(outer * ratio / framed + kHair)) : 1;
    };
    return std::max(
        1, std::min(fit(widget.width(), surface.width()), fit(widget.height(), surface.height())));
}

}  // namespace

PanelGeometry PanelGeometry::of(QPointF corner, QSize widget, qreal ratio, QSize surface,
                                int border) {
    PanelGeometry geometry;
    geometry.factor = factorOf(widget, ratio, surface, border);
    const QSize size = surface * geometry.factor;
    const int frame = border * geometry.factor;
    geometry.bitmap = {QPoint(middle(corner.x(), widget.width() * ratio, size.width(), frame),
                              middle(corner.y(), widget.height() * ratio, size.height(), frame)),
                       size};
    geometry.framed = geometry.bitmap.adjusted(-frame, -frame, frame, frame);
    return geometry;
}

QPoint PanelGeometry::panelPixel(QPointF device) const {
    const QPointF inside = (device - QPointF(bitmap.topLeft())) / factor;
    return {static_cast<int>(std::floor(inside.x())), static_cast<int>(std::floor(inside.y()))};
}

QRect PanelGeometry::devicePixels(QPoint panelPixel) const {
    return {bitmap.topLeft() + panelPixel * factor, QSize(factor, factor)};
}

}  // namespace quillon
