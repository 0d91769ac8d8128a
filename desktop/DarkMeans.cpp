#include "desktop/DarkMeans.h"

#include <QGuiApplication>

#include "desktop/x11_compositor.h"

namespace quillon {

DarkMeans darkMeansOf(const QString& platform, Compositor compositor) {
    if (platform == QStringLiteral("windows"))
        return DarkMeans::WindowOpacity;
    if (platform == QStringLiteral("xcb"))
        return compositor == Compositor::Running ? DarkMeans::WindowOpacity
                                                 : DarkMeans::PaintedScreen;
    return DarkMeans::PaintedChild;
}

DarkMeans darkMeansNow() {
    return darkMeansOf(QGuiApplication::platformName(),
                       x11CompositorRuns() ? Compositor::Running : Compositor::None);
}

}  // namespace quillon
