#include "desktop/TimerFace.h"

#include <utility>

namespace quillon {

TimerFace::TimerFace(Timer& timer, std::function<void()> tick, Pace pace)
    : timer_(&timer), tick_(std::move(tick)), pace_(std::move(pace)) {
    ticker_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&ticker_, &QTimer::timeout, [this] { this->tick(); });
    timer_->watch(this);
}

void TimerFace::release() {
    ticker_.stop();
    if (Timer* timer = std::exchange(timer_, nullptr))
        timer->watch(nullptr);
}

void TimerFace::stale(Control& /*control*/) {
    if (!timer_->Enabled) {
        ticker_.stop();
        return;
    }
    if (!ticker_.isActive()) {
        ticks_ = 0;
        start();
    }
}

void TimerFace::start() {
    ticker_.start(pace_ ? pace_(ticks_) : timer_->Interval);
}

void TimerFace::tick() {
    ++ticks_;
    // Anew at each tick: a late one does not bring the next one sooner.
    if (pace_)
        start();
    tick_();
}

}  // namespace quillon
