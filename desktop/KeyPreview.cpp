#include "desktop/KeyPreview.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <utility>

#include "desktop/QtScreen.h"
#include "desktop/input_codes.h"

namespace quillon {

KeyPreview::KeyPreview(Form1& form, QWidget& window, QtScreen& screen)
    : form_(form), window_(window), screen_(screen) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeyPreview::inDark(const QWidget& widget) const {
    return dark_ != nullptr && (&widget == dark_ || dark_->isAncestorOf(&widget));
}

bool KeyPreview::takes(const QWidget& widget) const {
    if (widget.window() != &window_ || inDark(widget))
        return false;
    // What the control with the keyboard leaves over comes up to the window once
    // more; it has been seen already.
    const QWidget* focus = window_.focusWidget();
    return focus == nullptr || focus == &widget || !widget.isAncestorOf(focus);
}

bool KeyPreview::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<const QWidget*>(watched);
    if (widget == nullptr)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::KeyPress: {
            const auto& key = static_cast<const QKeyEvent&>(*event);
            if (!key.isAutoRepeat())
                releasedAhead_.erase(keyCode(key));
            if (key.key() != Qt::Key_Alt)
                releaseStrayAlt(key.modifiers());
            if (takes(*widget))
                press(key);
            break;
        }
        case QEvent::KeyRelease:
            return release(static_cast<const QKeyEvent&>(*event), *widget);
        case QEvent::MouseMove:
        case QEvent::MouseButtonPress:
            releaseStrayAlt(static_cast<const QMouseEvent&>(*event).modifiers());
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

bool KeyPreview::release(const QKeyEvent& event, const QWidget& widget) {
    // A held key repeats its press; the releases in between are the toolkit's own.
    if (event.isAutoRepeat())
        return false;
    const Integer code = keyCode(event);
    const bool held = isHeld(code);
    const bool ahead = releasedAhead_.erase(code) > 0;
    if (held) {
        held_.erase(code);
        form_.KeyUp(code, shiftState(event));
    }
    // The dark hands releases on itself: those of keys that went down in it.
    return inDark(widget) && (held || ahead);
}

bool KeyPreview::isHeld(Integer code) {
    // The profile follows the pointer also where Alt went down over a menu or
    // another program; its release is owed all the same.
    return held_.contains(code) || (code == kKeyAlt && form_.showsProfile());
}

void KeyPreview::releaseStrayAlt(Qt::KeyboardModifiers modifiers) {
    // Another program had the keyboard when Alt went up.
    if (modifiers.testFlag(Qt::AltModifier) || !isHeld(kKeyAlt))
        return;
    const QtScreen::InputWaits waits(screen_);
    held_.erase(kKeyAlt);
    form_.KeyUp(kKeyAlt, shiftState(modifiers));
}

void KeyPreview::releaseAll() {
    // The profile lines would stay, and the magnified patch would be transformed
    // as if it were the image.
    const QtScreen::InputWaits waits(screen_);
    std::set<Integer> held = std::exchange(held_, {});
    if (form_.showsProfile())
        held.insert(kKeyAlt);
    releasedAhead_.insert(held.begin(), held.end());
    for (const Integer code : held)
        form_.KeyUp(code, 0);
}

}  // namespace quillon
