#pragma once

#include <QApplication>
#include <deque>
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

    /// Runs `act` behind the event that is being delivered, and so behind the
    /// handler that is under way; at once where none is.
    static void afterDelivery(std::function<void()> act);
    /// Lets events in from within a handler: what they leave for later does not
    /// wait for that handler.
    class Interlude;

    /// Tells the error and ends the process.
    void endWith(std::exception_ptr error);

    /// A test takes the place of the end, and of the message before it.
    void setEnding(std::function<void(int status)> ending) { ending_ = std::move(ending); }
    void setDialogs(Dialogs& dialogs) { dialogs_ = &dialogs; }
    /// The message and the end as they are outside of tests.
    void resetEnding();

private:
    static DesktopApplication* current();
    void runWaiting();
    void fail(std::exception_ptr error);

    /// How deep deliveries are nested, and what waits for the outermost one.
    int deliveries_ = 0;
    std::deque<std::function<void()>> waiting_;
    QtDialogs ownDialogs_;
    Dialogs* dialogs_ = &ownDialogs_;
    std::function<void(int status)> ending_;
    bool telling_ = false;
};

class DesktopApplication::Interlude {
public:
    Interlude();
    Interlude(const Interlude&) = delete;
    Interlude& operator=(const Interlude&) = delete;
    ~Interlude();

private:
    DesktopApplication* application_;
    int deliveries_ = 0;
    std::deque<std::function<void()>> waiting_;
};

}  // namespace quillon
