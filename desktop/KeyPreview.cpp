#include "desktop/KeyPreview.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <utility>

#include "desktop/input_codes.h"

namespace quillon {

KeyPreview::KeyPreview(Form1& form, QWidget& window) : form_(form), window_(window) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeyPreview::takes(const QObject* watched) const {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (widget == nullptr || widget->window() != &window_)
        return false;
    if (part_ != nullptr && (widget == part_ || part_->isAncestorOf(widget)))
        return false;
    // What the control with the keyboard leaves over comes up to the window once
    // more; it has been seen already.
    const QWidget* focus = window_.focusWidget();
    return focus == nullptr || focus == widget || !widget->isAncestorOf(focus);
}

bool KeyPreview::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            if (takes(watched))
                press(static_cast<const QKeyEvent&>(*event));
            break;
        case QEvent::KeyRelease:
            if (takes(watched))
                release(static_cast<const QKeyEvent&>(*event));
            break;
        case QEvent::WindowDeactivate:
            if (watched == &window_)
                releaseAll();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void KeyPreview::press(const QKeyEvent& event) {
    const Integer code = keyCode(event);
    if (code != 0) {
        held_.insert(code);
        form_.KeyDown(code, shiftState(event));
    }
    if (const std::optional<Integer> letter = keyAscii(event))
        form_.KeyPress(*letter);
}

void KeyPreview::release(const QKeyEvent& event) {
    // A held key repeats its press; the releases in between are the toolkit's own.
    if (event.isAutoRepeat())
        return;
    const Integer code = keyCode(event);
    held_.erase(code);
    if (code != 0)
        form_.KeyUp(code, shiftState(event));
}

void KeyPreview::releaseAll() {
    // The release of a key that is held while the window loses the keyboard goes
    // to somebody else. Without this the profile lines would stay for good.
    for (const Integer code : std::exchange(held_, {}))
        form_.KeyUp(code, 0);
}

}  // namespace quillon
