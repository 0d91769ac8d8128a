#pragma once

#include <QWidget>
#include <vector>

#include "desktop/PanelGeometry.h"
#include "engine/PictureBox.h"
#include "ui/Controls.h"

namespace quillon {

/// Shows a panel's bitmap as it is, without a copy, and above it the rings and
/// lines that lie in the panel.
class PanelWidget : public QWidget {
public:
    PanelWidget(const PictureBox& panel, QWidget* parent);

    /// Controls to be drawn above the bitmap, later ones on top.
    void addShape(const Shape& shape) { shapes_.push_back(&shape); }
    void addLine(const LineControl& line) { lines_.push_back(&line); }

    /// To be called when the panel's place or size is another: where the panel paints
    /// every pixel of its place, the frame below it need not be painted with it.
    void takePlace();

    /// The panel pixel under a point of the widget.
    QPoint panelPixel(QPointF position) const;
    /// The middle of a panel pixel as a point of the widget.
    QPointF pointOf(QPoint panelPixel) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// @param corner the widget's upper left corner on the surface, in device pixels
    PanelGeometry geometryAt(QPointF corner, qreal ratio) const;
    QPointF cornerOnScreen() const;

    const PictureBox& panel_;
    std::vector<const Shape*> shapes_;
    std::vector<const LineControl*> lines_;
};

}  // namespace quillon
