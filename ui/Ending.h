#pragma once

namespace quillon {

/// Why a session ends.
enum class Ending {
    /// The user closes the window, or a script says so.
    Closed,
    /// The desktop closes all programs: nobody answers a box any more.
    DesktopClosed,
    /// An error that nobody handles.
    Failed,
    /// A signal, or the display is gone: nobody can see a box.
    Interrupted
};

/// True where a box finds somebody to read it.
constexpr bool isSeen(Ending ending) noexcept {
    return ending == Ending::Closed || ending == Ending::Failed;
}

/// True where the next start begins anew; behind any other end it takes the
/// session up.
constexpr bool isOrderly(Ending ending) noexcept {
    return ending == Ending::Closed || ending == Ending::DesktopClosed;
}

}  // namespace quillon
