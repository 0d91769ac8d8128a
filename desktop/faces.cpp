#include "desktop/faces.h"

#include <algorithm>

#include "desktop/Conversions.h"

namespace quillon {

PanelFace::PanelFace(Form1& form, HeldMouse& mouse, PictureBox& panel, PanelWidget& widget)
    : ControlFace(form, mouse, panel, widget), panel_(panel), panelWidget_(widget) {}

QPointF PanelFace::toControl(QPointF position) const {
    constexpr Integer kPixelScale = 3;
    if (panel_.ScaleMode != kPixelScale)
        return ControlFace::toControl(position);
    return panelWidget_.panelPixel(position);
}

void PanelFace::takeState() {
    ControlFace::takeState();
    panelWidget_.takePlace();
}

LabelFace::LabelFace(Form1& form, HeldMouse& mouse, Control& label, QLabel& widget,
                     Qt::Alignment alignment)
    : ControlFace(form, mouse, label, widget), label_(widget) {
    label_.setTextFormat(Qt::PlainText);
    label_.setAlignment(alignment);
}

void LabelFace::takeState() {
    const Control& state = control();
    label_.setText(toQString(state.Caption.get()));
    label_.setFont(toQFont(state.FontName, state.FontSize, state.FontBold));
    label_.setAutoFillBackground(state.BackStyle == 1);
    QPalette palette = label_.palette();
    palette.setColor(label_.backgroundRole(), toQColor(state.BackColor()));
    palette.setColor(label_.foregroundRole(), toQColor(state.ForeColor));
    label_.setPalette(palette);
    ControlFace::takeState();
    const auto* label = dynamic_cast<const Label*>(&state);
    if (label != nullptr && label->AutoSize)
        label_.resize(std::max(label_.width(), label_.sizeHint().width()), label_.height());
}

}  // namespace quillon
