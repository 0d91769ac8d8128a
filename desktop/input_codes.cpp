#include "desktop/input_codes.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

struct KeyRow {
    int key;
    Integer code;
};

// clang-format off
constexpr KeyRow kKeys[] = {
    {Qt::Key_Backspace,   8}, {Qt::Key_Tab,      9}, {Qt::Key_Backtab,  9},
    {Qt::Key_Return,     13}, {Qt::Key_Enter,   13},
    {Qt::Key_Shift,      16}, {Qt::Key_Control, 17}, {Qt::Key_Alt,     18},
    {Qt::Key_Pause,      19}, {Qt::Key_CapsLock,20}, {Qt::Key_Escape,  27},
    {Qt::Key_Space,      32}, {Qt::Key_PageUp,  33}, {Qt::Key_PageDown,34},
    {Qt::Key_End,        35}, {Qt::Key_Home,    36},
    {Qt::Key_Left,       37}, {Qt::Key_Up,      38}, {Qt::Key_Right,   39}, {Qt::Key_Down, 40},
    {Qt::Key_Insert,     45}, {Qt::Key_Delete,  46},
};
// clang-format on

constexpr Integer kFirstFunctionKey = 112;

Integer modifierBit(int key) {
    switch (key) {
        case Qt::Key_Shift:
            return 1;
        case Qt::Key_Control:
            return 2;
        case Qt::Key_Alt:
            return 4;
        default:
            return 0;
    }
}

}  // namespace

Integer buttonCodes(Qt::MouseButtons buttons) {
    int codes = 0;
    if (buttons.testFlag(Qt::LeftButton))
        codes |= 1;
    if (buttons.testFlag(Qt::RightButton))
        codes |= 2;
    if (buttons.testFlag(Qt::MiddleButton))
        codes |= 4;
    return static_cast<Integer>(codes);
}

Integer shiftState(Qt::KeyboardModifiers modifiers) {
    int state = 0;
    if (modifiers.testFlag(Qt::ShiftModifier))
        state |= 1;
    if (modifiers.testFlag(Qt::ControlModifier))
        state |= 2;
    if (modifiers.testFlag(Qt::AltModifier))
        state |= 4;
    return static_cast<Integer>(state);
}

Integer shiftState(const QKeyEvent& event) {
    // Whether a key's own event already counts the key differs between systems.
    const int others = shiftState(event.modifiers()) & ~modifierBit(event.key());
    const bool held = event.type() == QEvent::KeyPress;
    return static_cast<Integer>(held ? others | modifierBit(event.key()) : others);
}

Integer keyCode(const QKeyEvent& event) {
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return static_cast<Integer>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<Integer>(kFirstFunctionKey + key - Qt::Key_F1);
    const auto* const found = std::ranges::find(kKeys, key, &KeyRow::key);
    return found == std::end(kKeys) ? Integer{0} : found->code;
}

std::optional<Integer> keyAscii(const QKeyEvent& event) {
    // With Alt a letter is a command to the window, not a letter.
    if (event.modifiers().testFlag(Qt::AltModifier) || event.text().isEmpty())
        return std::nullopt;
    const char16_t letter = event.text().at(0).unicode();
    // The keypad's Enter and the main one type the same.
    if (letter == u'\n')
        return Integer{13};
    if (letter > 0xFF)
        return std::nullopt;
    return static_cast<Integer>(letter);
}

}  // namespace quillon
