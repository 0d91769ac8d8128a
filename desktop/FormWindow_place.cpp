#include <QGuiApplication>
#include <QMenuBar>
#include <QResizeEvent>
#include <QScreen>
#include <vector>

#include "desktop/Conversions.h"
#include "desktop/DimWindow.h"
#include "desktop/FormWindow.h"
#include "desktop/screen_fit.h"

// Where the window is and how large. Its object counts the frame in, as the
// window system does for positions.

namespace quillon {

void FormWindow::layOut() {
    const int barHeight = bar_->heightForWidth(width());
    bar_->setGeometry(0, 0, width(), barHeight);
    area_->setGeometry(0, barHeight, width(), std::max(0, height() - barHeight));
    form_.resized(toTwips(area_->width()), toTwips(area_->height()));
}

void FormWindow::takePlace() {
    const QRect wanted = placeOf(form_);
    if (wanted.topLeft() != asked_.topLeft())
        move(wanted.topLeft());
    if (wanted.size() != asked_.size())
        resize(wanted.size() - (frameGeometry().size() - size()));
    asked_ = wanted;
    if (!isVisible())
        return;
    const Qt::WindowStates kept = windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    if (form_.WindowState == kWindowMinimised)
        setWindowState(kept | Qt::WindowMinimized);
    else if (form_.WindowState == kWindowMaximised)
        setWindowState(kept | Qt::WindowMaximized);
    else
        setWindowState(kept);
}

void FormWindow::keepOnScreens() {
    std::vector<ScreenRoom> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.push_back({screen->geometry(), screen->availableGeometry()});
    const QRect wanted = placeOf(form_);
    const PlaceOnScreen place = placeOnScreen(wanted, screens);
    // A window that was never put anywhere is placed by the window system.
    if (testAttribute(Qt::WA_Moved) && place.topLeft != wanted.topLeft()) {
        form_.Move(toTwips(place.topLeft.x()), toTwips(place.topLeft.y()), form_.Width,
                   form_.Height);
        takePlace();
    }
    if (place.fit == ScreenFit::TooLarge && form_.WindowState == kWindowNormal)
        form_.WindowState = kWindowMaximised;
}

void FormWindow::tellPlace() {
    const QRect frame = frameGeometry();
    // The frame is known only when the window system has put one around the
    // window; the size that was asked for counts it in.
    if (!frameKnown_ && frame.size() != size()) {
        frameKnown_ = true;
        if (windowState() == Qt::WindowNoState && asked_.isValid()) {
            resize(asked_.size() - (frame.size() - size()));
            return;
        }
    }
    asked_ = frame;
    form_.Move(toTwips(frame.x()), toTwips(frame.y()), toTwips(frame.width()),
               toTwips(frame.height()));
}

void FormWindow::resizeEvent(QResizeEvent* /*event*/) {
    layOut();
    if (isVisible())
        tellPlace();
    if (dimWindow_ != nullptr)
        dimWindow_->coverOwner();
    else if (!isFullScreen())
        // Out of the dark the window has its own size again, and is shown.
        setUpdatesEnabled(true);
}

void FormWindow::moveEvent(QMoveEvent* /*event*/) {
    if (isVisible())
        tellPlace();
}

void FormWindow::changeEvent(QEvent* event) {
    // The whole screen is the window's only in the dark, and none of its own states.
    if (event->type() == QEvent::WindowStateChange && !isFullScreen()) {
        if (isMinimized())
            form_.WindowState = kWindowMinimised;
        else if (isMaximized())
            form_.WindowState = kWindowMaximised;
        else
            form_.WindowState = kWindowNormal;
        // The rules of the layout let a minimised window be, and the size that it
        // comes back to may be the one it has already.
        const auto& change = static_cast<const QWindowStateChangeEvent&>(*event);
        if (change.oldState().testFlag(Qt::WindowMinimized) && !isMinimized())
            layOut();
    }
    QWidget::changeEvent(event);
}

}  // namespace quillon
