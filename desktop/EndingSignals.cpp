#include "desktop/EndingSignals.h"

#ifdef Q_OS_UNIX

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <utility>

namespace quillon {

namespace {

/// The end of the pipe that the handler writes to. A handler may do little more
/// than write, so the work is done where the other end is read.
std::atomic<int> writingEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void handle(int signal) {
    const int before = errno;
    const auto number = static_cast<unsigned char>(signal);
    // A full pipe has enough signals in it.
    [[maybe_unused]] const ssize_t written = ::write(writingEnd, &number, 1);
    errno = before;
}

/// nohup starts a program that is to outlive its terminal. SIGINT is different: a
/// shell ignores it for whatever it starts in the background, but an interrupt
/// that is then sent to the program by its number is meant.
bool isToBeIgnored(int signal, const struct sigaction& before) {
    return signal == SIGHUP && before.sa_handler == SIG_IGN;
}

}  // namespace

EndingSignals::EndingSignals(std::function<void(int)> received) : received_(std::move(received)) {
    if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readSignals(); });
    writingEnd = pipe_[1];
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        struct sigaction action {};
        action.sa_handler = handle;
        action.sa_flags = SA_RESTART;
        ::sigaction(kSignals[i], &action, &before_[i]);
        if (isToBeIgnored(kSignals[i], before_[i]))
            ::sigaction(kSignals[i], &before_[i], nullptr);
    }
}

EndingSignals::~EndingSignals() {
    if (notifier_ == nullptr)
        return;
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        ::sigaction(kSignals[i], &before_[i], nullptr);
    notifier_.reset();
    ::close(pipe_[0]);
    ::close(pipe_[1]);
}

void EndingSignals::readSignals() {
    unsigned char number = 0;
    while (::read(pipe_[0], &number, 1) == 1)
        received_(number);
}

}  // namespace quillon

#else

namespace quillon {

EndingSignals::EndingSignals(std::function<void(int)> /*received*/) {}
EndingSignals::~EndingSignals() = default;

}  // namespace quillon

#endif
