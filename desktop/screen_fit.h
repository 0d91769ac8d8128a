#pragma once

#include <QPoint>
#include <QRect>
#include <span>

namespace quillon {

/// A screen as a place for windows: all of it, and what panels leave free.
struct ScreenRoom {
    QRect whole;
    QRect free;
};

enum class ScreenFit { Fits, TooLarge };

struct PlaceOnScreen {
    QPoint topLeft;
    /// Whether the window is larger than what its screen has free.
    ScreenFit fit = ScreenFit::Fits;
};

/// Where a window, frame included, that was somewhere at the end of its last
/// session is to be now. It stays there as long as a hand can take it by its title
/// bar; otherwise its screen is gone, and it is moved into the nearest. A window
/// too large for its screen goes to that screen's corner. Without a screen it
/// stays as it is.
PlaceOnScreen placeOnScreen(const QRect& window, std::span<const ScreenRoom> screens);

}  // namespace quillon
