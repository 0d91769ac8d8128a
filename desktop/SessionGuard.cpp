#include "desktop/SessionGuard.h"

#include <QThread>
#include <cstdlib>

#include "desktop/DesktopApplication.h"
#include "desktop/RunningSession.h"

namespace quillon {

namespace {

constexpr int kSnapshotMilliseconds = 60'000;
constexpr int kRetryMilliseconds = 500;

}  // namespace

SessionGuard* SessionGuard::current_ = nullptr;

SessionGuard::SessionGuard(DesktopApplication& application, RunningSession& session)
    : application_(application),
      session_(session),
      signals_([this](int signal) { application_.endBySignal(signal); }) {
    application_.setSession(&session_);
    // The desktop may still be told to stay, so the window does not go yet.
    connect(&application_, &QGuiApplication::commitDataRequest, this,
            [this] { session_.keepSession(); });
    snapshots_.setObjectName(QStringLiteral("snapshots"));
    snapshots_.setSingleShot(true);
    connect(&snapshots_, &QTimer::timeout, this, [this] { writeSnapshot(); });
    snapshots_.start(kSnapshotMilliseconds);
    current_ = this;
    // Behind the opening, which has made use of all that a closing needs.
    QTimer::singleShot(0, this, watchExit);
}

SessionGuard::~SessionGuard() {
    current_ = nullptr;
    application_.setSession(nullptr);
}

void SessionGuard::watchExit() {
    // What was built last goes first at the exit. The closing needs what the toolkit
    // has built on the way, so it is put in front of that time and again.
    std::atexit(atExit);
}

void SessionGuard::writeSnapshot() {
    watchExit();
    snapshots_.start(session_.writeSnapshot() ? kSnapshotMilliseconds : kRetryMilliseconds);
}

void SessionGuard::atExit() {
    // Another thread's exit() meets the lab in the midst of its work.
    if (current_ != nullptr && QThread::currentThread() == current_->thread())
        current_->application_.endAtExit();
}

}  // namespace quillon
