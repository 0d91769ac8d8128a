#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "engine/Control.h"

namespace quillon {

/// Records what controls tell whoever shows them: "stale NAME", "showNow NAME".
/// Given the log of a RecordingDesktop it writes there, so that the order among
/// services and controls can be seen.
class RecordingWatcher : public ControlWatcher {
public:
    RecordingWatcher() = default;
    explicit RecordingWatcher(std::vector<std::string>& sharedLog) : log(sharedLog) {}
    RecordingWatcher(const RecordingWatcher&) = delete;
    RecordingWatcher& operator=(const RecordingWatcher&) = delete;

private:
    std::vector<std::string> own_;

public:
    std::vector<std::string>& log = own_;
    /// Called at every showNow, to look at what is shown at that moment.
    std::function<void(Control&)> onShow;

    void stale(Control& control) override { log.push_back("stale " + control.Name); }
    void showNow(Control& control) override {
        log.push_back("showNow " + control.Name);
        if (onShow)
            onShow(control);
    }

    long count(const std::string& line) const {
        return static_cast<long>(std::count(log.begin(), log.end(), line));
    }
};

}  // namespace quillon
