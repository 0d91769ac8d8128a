#pragma once

namespace quillon {

/// Whether a compositing manager runs on the X display that the program is shown
/// on; false on every other system.
bool x11CompositorRuns();

}  // namespace quillon
