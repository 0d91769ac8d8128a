#pragma once

#include <QApplication>
#include <deque>
#include <exception>
#include <functional>

#include "desktop/QtDialogs.h"
#include "ui/Ending.h"

namespace quillon {

class RunningSession;

/// The event loop, and the one place that every end of the program reaches which
/// no user has asked for. The closing of the session runs first, whatever the
/// program is at: a batch, a dialog, a menu.
class DesktopApplication : public QApplication {
public:
    DesktopApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
    bool event(QEvent* event) override;

    /// Runs `act` behind the event that is being delivered, and so behind the
    /// handler that is under way; at once where none is.
    static void afterDelivery(std::function<void()> act);
    /// Lets events in from within a handler: what they leave for later does not
    /// wait for that handler.
    class Interlude;

    /// An error that nobody handles: the user is told its number, its description
    /// and where the session is kept; the process ends with status 1.
    void endWith(std::exception_ptr error);
    /// The process ends with status 128 + `signal` and without a box.
    void endBySignal(int signal);
    /// Somebody has called exit() while the session runs; mostly the toolkit, whose
    /// display is gone. Nothing is asked of the display any more.
    void endAtExit();

    /// Whose closing runs; none before it starts and after it has gone.
    void setSession(RunningSession* session) { session_ = session; }
    /// A test takes the place of the end, and of the message before it.
    void setEnding(std::function<void(int status)> ending) { ending_ = std::move(ending); }
    void setDialogs(Dialogs& dialogs) { dialogs_ = &dialogs; }
    /// The message and the end as they are outside of tests.
    void resetEnding();

private:
    static DesktopApplication* current();
    void runWaiting();
    void fail(std::exception_ptr error);

    void tell(const std::exception_ptr& error);
    void endSession(Ending ending);

    /// How deep deliveries are nested, and what waits for the outermost one.
    int deliveries_ = 0;
    std::deque<std::function<void()>> waiting_;
    QtDialogs ownDialogs_;
    Dialogs* dialogs_ = &ownDialogs_;
    std::function<void(int status)> ending_;
    RunningSession* session_ = nullptr;
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
