#pragma once

#include <QObject>
#include <QPoint>
#include <QPointF>

#include "engine/Control.h"
#include "ui/Form1.h"

class QDropEvent;
class QMouseEvent;
class QWidget;

namespace quillon {

/// Keeps a widget in step with the control it shows, and hands the mouse's
/// events on to the window's object as plain numbers. One for each control that
/// can be seen.
///
/// A changed property only marks the face; the widget follows when the event
/// loop next runs, or at once where the control is refreshed. So a computation
/// that draws pixel by pixel costs no more than its drawing.
class ControlFace : public QObject, public ControlWatcher {
public:
    ControlFace(Form1& form, Control& control, QWidget& widget);
    ~ControlFace() override;

    void stale(Control& control) override;
    void showNow(Control& control) override;

    Control& control() const noexcept { return control_; }
    QWidget& widget() const noexcept { return widget_; }

    /// From now on the widget follows the pointer within its parent, until the
    /// left button is up.
    void beginDrag();

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// The point of an event in the control's own units.
    virtual QPointF toControl(QPointF position) const;
    /// Brings the widget to the control's state.
    virtual void takeState();
    /// Shows the control's pointer over the widget.
    void takePointer();
    /// Moves what is dragged by the pointer's way since the press.
    virtual void dragBy(QPoint way);
    /// Where that is now.
    virtual QPoint placeOfDragged() const;
    QPoint placeAtPress() const noexcept { return placeAtPress_; }

private:
    void followState();
    void press(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    /// Files come over the control: asks the lab once whether it takes them.
    void enterDrag(const QDropEvent& event);
    /// Says to the source what becomes of its files here: they are copied, or refused.
    void answerDrag(QDropEvent& event) const;
    void drop(QDropEvent& event);

    Form1& form_;
    Control& control_;
    QWidget& widget_;
    bool marked_ = false;
    bool pressed_ = false;
    bool dragging_ = false;
    bool wantsDrag_ = false;
    QPoint pressedAt_;
    QPoint placeAtPress_;
    Integer pointer_ = kPointerDefault;
    Integer icon_ = 0;
};

}  // namespace quillon
