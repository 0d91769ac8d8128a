#pragma once

#include <QApplication>
#include <exception>
#include <functional>

#include "desktop/QtDialogs.h"

namespace quillon {

/// The event loop, and the one place that an error reaches which nobody handles:
/// the user is told its number and its description, and the process ends with
/// status 1 without the closing of the session.
class DesktopApplication : public QApplication {
public:
    DesktopApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Tells the error and ends the process.
    void endWith(std::exception_ptr error);

    /// A test takes the place of the end, and of the message before it.
    void setEnding(std::function<void(int status)> ending) { ending_ = std::move(ending); }
    void setDialogs(Dialogs& dialogs) { dialogs_ = &dialogs; }
    /// The message and the end as they are outside of tests.
    void resetEnding();

private:
    QtDialogs ownDialogs_;
    Dialogs* dialogs_ = &ownDialogs_;
    std::function<void(int status)> ending_;
    bool telling_ = false;
};

}  // namespace quillon
