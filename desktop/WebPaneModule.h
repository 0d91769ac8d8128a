#pragma once

#include "desktop/BrowserPane.h"

namespace quillon {

// The door of the module with the browser, quillon_pane, which lies beside the
// program. The module is built only where the engine's library is there, and is
// loaded only when a pane is first wanted: linked to the program, the engine
// would double the memory of a session that never opens the tutorial.

inline constexpr const char* kPaneModule = "quillon_pane";
inline constexpr const char* kPaneModuleDoor = "quillonMakeWebPane";
/// Makes the pane in a parent; nullptr where the engine cannot start here.
using PaneModuleDoor = BrowserPane* (*)(QWidget* parent);

}  // namespace quillon
