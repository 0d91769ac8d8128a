#pragma once

#include <functional>

#include "engine/Desktop.h"

namespace quillon {

class QtScreen : public Screen {
public:
    /// While one lives, what the user does waits through pendingEvents(): the next
    /// key belongs to what is about to open or close, not to what was there before.
    class InputWaits {
    public:
        explicit InputWaits(QtScreen& screen) : screen_(screen) { ++screen_.inputWaits_; }
        InputWaits(const InputWaits&) = delete;
        InputWaits& operator=(const InputWaits&) = delete;
        ~InputWaits() { --screen_.inputWaits_; }

    private:
        QtScreen& screen_;
    };

    ~QtScreen() override;
    void setMousePointer(Integer pointer) override;
    void pendingEvents() override;
    void beep() override;
    ColorValue systemColor(SystemColor color) override;
    void dragControl(Control& control) override;

    /// True within pendingEvents(): whatever runs now interrupts a computation.
    bool isLettingEventsRun() const noexcept { return eventRuns_ > 0; }

    /// Who drags a control with the mouse, set by the window.
    void setDragger(std::function<void(Control&)> dragger) { dragger_ = std::move(dragger); }

private:
    bool waiting_ = false;
    int eventRuns_ = 0;
    int inputWaits_ = 0;
    std::function<void(Control&)> dragger_;
};

}  // namespace quillon
