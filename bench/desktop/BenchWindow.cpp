#include "bench/desktop/BenchWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <cmath>
#include <stdexcept>

namespace quillon {

BenchHome::BenchHome() {
    qputenv("HOME", folder_.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", path(".config").toUtf8());
    qputenv("XDG_CACHE_HOME", path(".cache").toUtf8());
    qputenv("XDG_RUNTIME_DIR", folder_.path().toUtf8());
    qunsetenv("TMP");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    platform_.emplace();
}

BenchWindow::BenchWindow() {
    Main(desktop, lab_);
    settle();
}

PanelWidget& BenchWindow::panel(const char* name) {
    auto* found = window().findChild<PanelWidget*>(QString::fromLatin1(name));
    if (found == nullptr)
        throw std::invalid_argument(name);
    return *found;
}

QPoint BenchWindow::place(PanelWidget& panel, QPoint pixel) {
    const QPointF at = panel.pointOf(pixel);
    return panel.mapTo(&window(), QPoint(static_cast<int>(std::floor(at.x())),
                                         static_cast<int>(std::floor(at.y()))));
}

void BenchWindow::settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

}  // namespace quillon
