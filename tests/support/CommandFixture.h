#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/FormFixture.h"
#include "tests/support/slow_drawing.h"

namespace quillon {

/// An opened form whose controls write into the desktop's log too, with a few
/// questions that the tests of its commands ask.
class CommandFixture : public OpenForm {
protected:
    CommandFixture() {
        for (Control* control : form.controls())
            control->watch(&watcher);
    }
    ~CommandFixture() override {
        for (Control* control : form.controls())
            control->watch(nullptr);
    }

    clComplexImage& channel(Channel which) { return form.lab.channel(which); }
    PictureBox& image(Channel which) { return form.lab.imagePanel(which); }
    PictureBox& spectrum(Channel which) { return form.lab.spectrumPanel(which); }
    PictureBox& reconstruction(Channel which) { return form.lab.reconstructionPanel(which); }

    /// Transforms since the log was cleared: a forward run counts with its inverse as two.
    long transforms() const {
        return std::ranges::count(desktop.log, "screen.setMousePointer(11)");
    }
    /// How often a control was shown at once since the log was cleared.
    long shown(const Control& control) const {
        return std::ranges::count(desktop.log, "showNow " + control.Name);
    }
    /// Where a line stands in the log for the first time; its size where it does not.
    std::size_t placeOf(const std::string& line) const {
        return static_cast<std::size_t>(std::ranges::find(desktop.log, line) - desktop.log.begin());
    }
    void clickFilter(Channel which, Integer index) {
        form.click(which == Channel::One ? MenuArray::mnuFT1a : MenuArray::mnuFT2a, index);
    }

    RecordingWatcher watcher{desktop.log};
    static constexpr Channel kBoth[] = {Channel::One, Channel::Two};
};

using slow::rolled;

/// Pixels of which two pictures of one size differ.
inline long differingPixels(const Bitmap& a, const Bitmap& b) {
    if (a.words.size() != b.words.size())
        return -1;
    long count = 0;
    for (std::size_t i = 0; i < a.words.size(); ++i)
        count += a.words[i] != b.words[i] ? 1 : 0;
    return count;
}

}  // namespace quillon
