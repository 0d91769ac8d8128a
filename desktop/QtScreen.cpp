#include "desktop/QtScreen.h"

#include <QApplication>
#include <QPalette>
#include <QScopeGuard>

#include "desktop/Conversions.h"
#include "desktop/DesktopApplication.h"

namespace quillon {

QtScreen::~QtScreen() {
    setMousePointer(kPointerDefault);
}

void QtScreen::setMousePointer(Integer pointer) {
    // Computations that run inside one another each ask for the wait pointer and
    // for the normal one; the toolkit stacks its pointers, so at most one is laid.
    const bool wait = pointer == kPointerWait;
    if (wait == waiting_)
        return;
    waiting_ = wait;
    if (wait)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void QtScreen::pendingEvents() {
    const DesktopApplication::Interlude interlude;
    // One may begin within another, and a handler that fails ends both.
    ++eventRuns_;
    const auto counted = qScopeGuard([this] { --eventRuns_; });
    QCoreApplication::processEvents(inputWaits_ > 0 ? QEventLoop::ExcludeUserInputEvents
                                                    : QEventLoop::AllEvents);
}

void QtScreen::beep() {
    QApplication::beep();
}

ColorValue QtScreen::systemColor(SystemColor color) {
    const QPalette palette = QGuiApplication::palette();
    return toColorValue(
        palette.color(color == SystemColor::ButtonFace ? QPalette::Button : QPalette::Dark));
}

void QtScreen::dragControl(Control& control) {
    if (dragger_)
        dragger_(control);
}

}  // namespace quillon
