#pragma once

#include <QObject>
#include <QTimer>

#include "desktop/EndingSignals.h"

namespace quillon {

class DesktopApplication;
class RunningSession;

/// While it lives, the session does not end with the program unnoticed: its
/// closing runs when an error is handled by nobody, at a signal, when the desktop
/// ends all programs, and when the display goes and the toolkit leaves the
/// program by exit(). Once a minute the session is kept as it is, against an end
/// that leaves no time for a closing.
class SessionGuard : public QObject {
public:
    SessionGuard(DesktopApplication& application, RunningSession& session);
    SessionGuard(const SessionGuard&) = delete;
    SessionGuard& operator=(const SessionGuard&) = delete;
    ~SessionGuard() override;

private:
    void writeSnapshot();
    static void watchExit();
    /// Runs within exit().
    static void atExit();

    static SessionGuard* current_;

    DesktopApplication& application_;
    RunningSession& session_;
    EndingSignals signals_;
    QTimer snapshots_{this};
};

}  // namespace quillon
