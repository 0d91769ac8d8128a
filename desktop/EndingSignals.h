#pragma once

#include <QtGlobal>
#include <functional>

#ifdef Q_OS_UNIX
#include <signal.h>

#include <QSocketNotifier>
#include <array>
#include <memory>
#endif

namespace quillon {

/// While it lives, the signals by which a system asks a program to end, SIGTERM,
/// SIGHUP and SIGINT, come through the event loop, also through the one of a
/// dialog or a menu. Only one object lives at a time. A system without signals
/// has none of this.
class EndingSignals {
public:
    /// @param received called with the number of a signal, outside of the signal's
    ///                 handler; every signal calls it
    explicit EndingSignals(std::function<void(int)> received);
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;
    ~EndingSignals();

#ifdef Q_OS_UNIX
private:
    static constexpr std::array<int, 3> kSignals{SIGTERM, SIGHUP, SIGINT};

    void readSignals();

    std::function<void(int)> received_;
    std::array<int, 2> pipe_{-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
    std::array<struct sigaction, kSignals.size()> before_{};
#endif
};

}  // namespace quillon
