#pragma once

#include <QObject>
#include <QPoint>
#include <vector>

#include "ui/Form1.h"

class QMouseEvent;
class QWidget;

namespace quillon {

class ControlFace;

/// The mouse over the window's controls. It hands presses, moves and releases on
/// to the window's object, and knows which control has the mouse while a button is
/// down: the one on which it was pressed.
///
/// Each press gets one release. Where something takes the mouse away before the
/// hand lets go (a dialog, a menu, another window, a hidden window or control) the
/// release is given at the last point that was delivered; the real one, should it
/// come later, does nothing, and neither does a move until the next press. A
/// handler that is under way returns first.
class HeldMouse : public QObject {
public:
    HeldMouse(Form1& form, QWidget& window);

    void press(ControlFace& face, const QMouseEvent& event);
    /// The second press of a double click. Where a double click has no action it is
    /// a press like any other. Else it is withheld, with its moves, until the pointer
    /// leaves the distance of a double click: then all of them are delivered and it is
    /// a drag. Let go before that, it is the double click's action.
    void doublePress(ControlFace& face, const QMouseEvent& event);
    void move(ControlFace& face, const QMouseEvent& event);
    void release(ControlFace& face, const QMouseEvent& event);

    /// What the held button drags until it is let go.
    void drag(ControlFace& dragged);
    /// The mouse has been taken away.
    void lose();
    /// Gives the release that is due, if any, at once.
    void settle();
    /// A face that goes.
    void forget(const ControlFace& face);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// An event of the mouse in the numbers of the window's object.
    struct Report {
        Integer button = 0;
        Integer shift = 0;
        Single x = 0;
        Single y = 0;
    };
    static Report reportOf(const ControlFace& face, const QMouseEvent& event, Integer button);

    void begin(ControlFace& face, const QMouseEvent& event);
    void deliverPress(const Report& report);
    void deliverMove(ControlFace& face, const Report& report);
    void deliverWithheld();
    void giveRelease(Qt::MouseButton button);
    bool takesMouse(const QObject& watched, const QEvent& event) const;

    Form1& form_;
    QWidget& window_;
    /// Has the mouse, until it got its release.
    ControlFace* face_ = nullptr;
    /// Which buttons hold it; none once the mouse is lost.
    Qt::MouseButtons held_;
    /// Began the gesture.
    Qt::MouseButton button_ = Qt::NoButton;
    bool lost_ = false;
    /// Let go over the control, it has been clicked.
    bool clickable_ = false;
    /// Of the last press, on the screen.
    QPoint pressedAt_;
    Report last_;
    ControlFace* dragged_ = nullptr;
    QPoint draggedFrom_;
    /// A second press and its moves.
    std::vector<Report> withheld_;
};

}  // namespace quillon
