#include <QCoreApplication>
#include <QScreen>
#include <utility>

#include "desktop/DimWindow.h"
#include "desktop/FormWindow.h"
#include "desktop/KeyPreview.h"

// The window while the light is off.

namespace quillon {

void FormWindow::prepareDark() {
    // Their own releases will go to the dark.
    keys_->releaseAll();
    if (dimWindow_ != nullptr)
        return;
    darkMeans_ = chosenDarkMeans_ ? *chosenDarkMeans_ : darkMeansNow();
    if (darkMeans_ != DarkMeans::PaintedChild)
        return;
    stateBeforeDark_ = windowState();
    brightAgain_.stop();
    // The bright window is not seen on the whole screen, neither now nor when
    // the light goes on: in a dark room that would be a flash.
    setUpdatesEnabled(false);
    setWindowState(windowState() | Qt::WindowFullScreen);
    waitUntil([this] { return size() == screen()->size(); });
    // The panels stand where they will stay.
    QCoreApplication::sendPostedEvents();
}

void FormWindow::showOwned(frmDIM& dim) {
    if (dimWindow_ == nullptr) {
        dimWindow_ = new DimWindow(dim, *this, darkMeans_, [this] { leaveDark(); });
        keys_->leaveAlone(dimWindow_);
        dim.load(*dimWindow_);
        setUpdatesEnabled(true);
    }
    // It may have gone again while it was loaded.
    if (dimWindow_ != nullptr)
        dimWindow_->appear();
}

void FormWindow::leaveDark() {
    if (dimWindow_ == nullptr)
        return;
    keys_->leaveAlone(nullptr);
    // Deleted later: it may be in the midst of the event that ended it.
    std::exchange(dimWindow_, nullptr)->deleteLater();
    setFocus();
    if (darkMeans_ == DarkMeans::PaintedChild)
        leaveWholeScreen();
    activateWindow();
}

void FormWindow::leaveWholeScreen() {
    constexpr int kLimitMilliseconds = 500;
    setUpdatesEnabled(false);
    brightAgain_.start(kLimitMilliseconds);
    setWindowState(stateBeforeDark_);
}

}  // namespace quillon
