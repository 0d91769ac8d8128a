#pragma once

#include <QKeyEvent>
#include <optional>

#include "engine/Numbers.h"

namespace quillon {

// The toolkit's buttons and keys as the platform's numbers.

/// 1 left, 2 right, 4 middle; the sum of those that are held.
Integer buttonCodes(Qt::MouseButtons buttons);

/// 1 Shift, 2 Ctrl, 4 Alt; the sum of those that are held.
Integer shiftState(Qt::KeyboardModifiers modifiers);

/// The state with the event's own key in it: held at its press, no longer at its release.
Integer shiftState(const QKeyEvent& event);

/// The code of a key, 0 for one that the lab has no number for.
Integer keyCode(const QKeyEvent& event);

/// The character that a key press types, nothing where it types none.
std::optional<Integer> keyAscii(const QKeyEvent& event);

}  // namespace quillon
