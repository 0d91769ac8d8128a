#include "desktop/HeldMouse.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleHints>
#include <QWidget>
#include <utility>

#include "desktop/ControlFace.h"
#include "desktop/DesktopApplication.h"
#include "desktop/input_codes.h"

namespace quillon {

namespace {

/// Whether the keyboard has gone to a window that lies above this one without
/// taking its place: a click into the hole of the dark gives the dark the keyboard
/// back, while the hand goes on below it.
bool keyboardIsNextDoor(const QWidget& window) {
    const QWidget* active = QApplication::activeWindow();
    return active != nullptr && active->parentWidget() == &window && !active->isModal();
}

bool leavesDoubleClick(QPoint way) {
    const int reach = QGuiApplication::styleHints()->mouseDoubleClickDistance();
    return std::abs(way.x()) > reach || std::abs(way.y()) > reach;
}

}  // namespace

HeldMouse::HeldMouse(Form1& form, QWidget& window) : form_(form), window_(window) {
    QCoreApplication::instance()->installEventFilter(this);
}

HeldMouse::Report HeldMouse::reportOf(const ControlFace& face, const QMouseEvent& event,
                                      Integer button) {
    const QPointF at = face.toControl(event.position());
    return {button, shiftState(event.modifiers()), static_cast<Single>(at.x()),
            static_cast<Single>(at.y())};
}

void HeldMouse::begin(ControlFace& face, const QMouseEvent& event) {
    // Of an earlier press that is still held the release has been missed.
    if (lost_ || (face_ != nullptr && (face_ != &face || held_.testFlag(event.button()))))
        settle();
    // A further button makes an ordinary press of a withheld one.
    deliverWithheld();
    if (face_ == nullptr) {
        button_ = event.button();
        dragged_ = nullptr;
    }
    face_ = &face;
    held_ |= event.button();
    pressedAt_ = event.globalPosition().toPoint();
}

void HeldMouse::press(ControlFace& face, const QMouseEvent& event) {
    begin(face, event);
    clickable_ = event.button() == Qt::LeftButton;
    // All buttons that are down: a press of the right one beside another opens no menu.
    deliverPress(reportOf(face, event, buttonCodes(event.buttons() | event.button())));
}

void HeldMouse::doublePress(ControlFace& face, const QMouseEvent& event) {
    // The other buttons have no double click: two quick presses of the right one
    // open the menu twice.
    if (event.button() != Qt::LeftButton || !form_.hasDoubleClick(face.control())) {
        press(face, event);
        return;
    }
    begin(face, event);
    clickable_ = false;
    withheld_ = {reportOf(face, event, buttonCodes(event.buttons() | event.button()))};
}

void HeldMouse::deliverPress(const Report& report) {
    last_ = report;
    form_.MouseDown(face_->control(), report.button, report.shift, report.x, report.y);
}

void HeldMouse::deliverMove(ControlFace& face, const Report& report) {
    if (face_ == &face && !lost_)
        last_ = report;
    form_.MouseMove(face.control(), report.button, report.shift, report.x, report.y);
}

void HeldMouse::deliverWithheld() {
    const std::vector<Report> withheld = std::exchange(withheld_, {});
    if (withheld.empty())
        return;
    ControlFace& face = *face_;
    deliverPress(withheld.front());
    for (std::size_t i = 1; i < withheld.size() && face_ == &face && !lost_; ++i)
        deliverMove(face, withheld[i]);
}

void HeldMouse::move(ControlFace& face, const QMouseEvent& event) {
    // A button that is up again without a word has been let go elsewhere.
    held_ &= event.buttons();
    if (face_ != nullptr && !held_ && !lost_)
        settle();
    // What is down without a press on this control draws nothing on it.
    const Qt::MouseButtons buttons = face_ == &face ? held_ : Qt::NoButton;
    const QPoint at = event.globalPosition().toPoint();
    if (dragged_ != nullptr && buttons.testFlag(Qt::LeftButton)) {
        dragged_->dragBy(at - draggedFrom_);
        return;
    }
    const Report report = reportOf(face, event, buttonCodes(buttons));
    if (!withheld_.empty() && face_ == &face) {
        if (!leavesDoubleClick(at - pressedAt_)) {
            withheld_.push_back(report);
            return;
        }
        deliverWithheld();
    }
    deliverMove(face, report);
}

void HeldMouse::release(ControlFace& face, const QMouseEvent& event) {
    // A release that has been given already, or that nobody's press asks for.
    if (!held_.testFlag(event.button()))
        return;
    if (face_ != &face) {
        settle();
        return;
    }
    const bool clicked = clickable_ && event.button() == Qt::LeftButton &&
                         face.widget().rect().contains(event.position().toPoint());
    held_.setFlag(event.button(), false);
    dragged_ = nullptr;
    const Report up = reportOf(face, event, buttonCodes(event.button()));
    if (held_) {
        form_.MouseUp(face.control(), up.button, up.shift, up.x, up.y);
    } else {
        last_ = up;
        giveRelease(event.button());
    }
    if (clicked)
        form_.Click(face.control());
}

void HeldMouse::drag(ControlFace& dragged) {
    dragged_ = &dragged;
    draggedFrom_ = pressedAt_;
    dragged.beginDrag();
}

void HeldMouse::lose() {
    if (face_ == nullptr || lost_)
        return;
    lost_ = true;
    held_ = {};
    // Each tick behind a dialog could open the next one.
    form_.Timer1.Enabled = false;
    DesktopApplication::afterDelivery([self = QPointer(this)] {
        if (self != nullptr && self->lost_)
            self->settle();
    });
}

void HeldMouse::settle() {
    if (face_ != nullptr)
        giveRelease(button_);
}

void HeldMouse::giveRelease(Qt::MouseButton button) {
    ControlFace& face = *std::exchange(face_, nullptr);
    held_ = {};
    lost_ = false;
    dragged_ = nullptr;
    if (!std::exchange(withheld_, {}).empty())
        form_.DblClick(face.control());
    else
        form_.MouseUp(face.control(), buttonCodes(button), last_.shift, last_.x, last_.y);
}

void HeldMouse::forget(const ControlFace& face) {
    if (dragged_ == &face)
        dragged_ = nullptr;
    if (face_ != &face)
        return;
    face_ = nullptr;
    held_ = {};
    lost_ = false;
    withheld_.clear();
}

bool HeldMouse::eventFilter(QObject* watched, QEvent* event) {
    if (face_ != nullptr && !lost_ && takesMouse(*watched, *event))
        lose();
    return QObject::eventFilter(watched, event);
}

bool HeldMouse::takesMouse(const QObject& watched, const QEvent& event) const {
    const bool ofWindow = &watched == &window_;
    const bool ofControl = &watched == &face_->widget();
    switch (event.type()) {
        case QEvent::WindowBlocked:
            // A dialog opens.
            return ofWindow;
        case QEvent::WindowDeactivate:
            return ofWindow && !keyboardIsNextDoor(window_);
        case QEvent::WindowStateChange:
            return ofWindow && window_.isMinimized();
        case QEvent::Hide:
        case QEvent::UngrabMouse:
            return ofWindow || ofControl;
        case QEvent::Show: {
            const auto* shown = qobject_cast<const QWidget*>(&watched);
            return shown != nullptr && shown->windowType() == Qt::Popup;
        }
        case QEvent::ApplicationStateChange:
            return static_cast<const QApplicationStateChangeEvent&>(event).applicationState() !=
                   Qt::ApplicationActive;
        default:
            return false;
    }
}

}  // namespace quillon
