#pragma once

#include "engine/Numbers.h"

namespace quillon {

// Mouse buttons and the state of the modifier keys, by the platform's numbers.
// Tests are by equality: Shift and Ctrl together are neither.
inline constexpr Integer kLeftButton = 1;
inline constexpr Integer kRightButton = 2;
inline constexpr Integer kMiddleButton = 4;
inline constexpr Integer kShiftKey = 1;
inline constexpr Integer kCtrlKey = 2;
inline constexpr Integer kAltKey = 4;

// States of a window.
inline constexpr Integer kWindowNormal = 0;
inline constexpr Integer kWindowMinimised = 1;
inline constexpr Integer kWindowMaximised = 2;

// Keys by their codes.
inline constexpr Integer kKeyShift = 16;
inline constexpr Integer kKeyCtrl = 17;
inline constexpr Integer kKeyAlt = 18;
inline constexpr Integer kKeyEscape = 27;

// Keys by what they type.
inline constexpr Integer kAsciiEnter = 13;
inline constexpr Integer kAsciiSpace = 32;
inline constexpr Integer kAsciiUpperL = 76;
inline constexpr Integer kAsciiLowerL = 108;
inline constexpr Integer kAsciiLowerR = 114;

}  // namespace quillon
