#pragma once

#include <QObject>
#include <QPoint>
#include <QPointF>

#include "engine/Control.h"
#include "ui/Form1.h"

class QDropEvent;
class QWidget;

namespace quillon {

class HeldMouse;

/// Keeps a widget in step with the control it shows, and hands the mouse's
/// events on. One for each control that can be seen.
///
/// A changed property only marks the face; the widget follows when the event
/// loop next runs, or at once where the control is refreshed. So a computation
/// that draws pixel by pixel costs no more than its drawing.
class ControlFace : public QObject, public ControlWatcher {
public:
    ControlFace(Form1& form, HeldMouse& mouse, Control& control, QWidget& widget);
    ~ControlFace() override;

    void stale(Control& control) override;
    void showNow(Control& control) override;

    Control& control() const noexcept { return control_; }
    QWidget& widget() const noexcept { return widget_; }

    /// The point of an event in the control's own units.
    virtual QPointF toControl(QPointF position) const;
    /// A drag begins where the widget is now.
    void beginDrag() { placeAtPress_ = placeOfDragged(); }
    /// Moves what is dragged by the pointer's way since then, within its parent.
    virtual void dragBy(QPoint way);

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// Brings the widget to the control's state.
    virtual void takeState();
    /// Shows the control's pointer over the widget.
    void takePointer();
    /// Where what is dragged is now.
    virtual QPoint placeOfDragged() const;
    QPoint placeAtPress() const noexcept { return placeAtPress_; }

private:
    void followState();
    /// Files come over the control: asks the lab once whether it takes them.
    void enterDrag(const QDropEvent& event);
    /// Says to the source what becomes of its files here: they are copied, or refused.
    void answerDrag(QDropEvent& event) const;
    void drop(QDropEvent& event);

    Form1& form_;
    HeldMouse& mouse_;
    Control& control_;
    QWidget& widget_;
    bool marked_ = false;
    bool wantsDrag_ = false;
    QPoint placeAtPress_;
    Integer pointer_ = kPointerDefault;
    Integer icon_ = 0;
};

}  // namespace quillon
