#pragma once

#include <QCursor>

#include "engine/Numbers.h"

namespace quillon {

/// The pointer of a control by its MousePointer and, for a custom one, its
/// MouseIcon; see engine/Control.h and ui/Controls.h for the numbers.
QCursor pointerOf(Integer mousePointer, Integer mouseIcon);

}  // namespace quillon
