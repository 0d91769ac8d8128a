#pragma once

#include <QLabel>

#include "desktop/ControlFace.h"
#include "desktop/PanelWidget.h"

namespace quillon {

/// A panel and what lies in it.
class PanelFace : public ControlFace {
public:
    PanelFace(Form1& form, HeldMouse& mouse, PictureBox& panel, PanelWidget& widget);

    /// Whole panel pixels where the panel counts in pixels, else twips.
    QPointF toControl(QPointF position) const override;

protected:
    void takeState() override;

private:
    const PictureBox& panel_;
    PanelWidget& panelWidget_;
};

/// A line of text on a flat ground.
class LabelFace : public ControlFace {
public:
    /// @param alignment within the label's place
    LabelFace(Form1& form, HeldMouse& mouse, Control& label, QLabel& widget,
              Qt::Alignment alignment);

protected:
    void takeState() override;

private:
    QLabel& label_;
};

/// A ring or a line above a panel: a change of it repaints the panel.
class OverlayFace : public ControlWatcher {
public:
    OverlayFace(Control& overlay, QWidget& panel) : overlay_(overlay), panel_(panel) {
        overlay_.watch(this);
    }
    OverlayFace(const OverlayFace&) = delete;
    OverlayFace& operator=(const OverlayFace&) = delete;
    ~OverlayFace() override { overlay_.watch(nullptr); }

    void stale(Control& /*control*/) override { panel_.update(); }
    void showNow(Control& /*control*/) override { panel_.repaint(); }

private:
    Control& overlay_;
    QWidget& panel_;
};

}  // namespace quillon
