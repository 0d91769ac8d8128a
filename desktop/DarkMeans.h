#pragma once

#include <QString>

namespace quillon {

/// How the dark of "light off" comes onto the screen. All three show the same:
/// black but for the hole, fading as one, with clicks in the hole going to what
/// lies below.
enum class DarkMeans {
    /// A window over the whole screen with a mask that leaves the hole out; the
    /// window system fades it.
    WindowOpacity,
    /// The same window where nobody fades it: it paints the screen as it was
    /// when the light went off, under ever more black.
    PaintedScreen,
    /// The main window fills the screen, and the dark is painted over it by a
    /// child. For systems that tell no place of windows or lay none above others.
    PaintedChild,
};

enum class Compositor { Running, None };

/// The means for a platform of the toolkit ("xcb", "windows", "wayland", ...).
DarkMeans darkMeansOf(const QString& platform, Compositor compositor);

/// The means for the desktop as it is now: a compositor may come and go.
DarkMeans darkMeansNow();

}  // namespace quillon
