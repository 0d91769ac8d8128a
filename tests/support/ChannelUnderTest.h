#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "engine/PictureBox.h"
#include "engine/clComplexImage.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/RecordingWatcher.h"

namespace quillon {

/// Writes "DrawMasks(m)" into the log that it is given.
class RecordingMaskPainter : public MaskPainter {
public:
    explicit RecordingMaskPainter(std::vector<std::string>& log) : log_(log) {}
    void DrawMasks(Integer m) override { log_.push_back("DrawMasks(" + std::to_string(m) + ")"); }

private:
    std::vector<std::string>& log_;
};

/// A channel bound as the window binds channel 1, with everything that it asks
/// for in one log: services, the panels and the label shown, the masks painted.
class ChannelUnderTest {
public:
    ChannelUnderTest() {
        for (Control* control : {static_cast<Control*>(&pb1), static_cast<Control*>(&pb2),
                                 static_cast<Control*>(&pb3), static_cast<Control*>(&lbSTB)})
            control->watch(&watcher);
        channel.SetMessageLabel(lbSTB);
        channel.SetCanvas(pb1, pb2, pb3, 1);
        channel.SetDimensionFFT(256);
        channel.SetFTView(0, 1);
        log.clear();
    }

    RecordingDesktop desktop;
    std::vector<std::string>& log = desktop.log;
    RecordingWatcher watcher{log};
    RecordingMaskPainter masks{log};
    PictureBox pb1{"pb1", 256, 256};
    PictureBox pb2{"pb2", 256, 256};
    PictureBox pb3{"pb3", 256, 256};
    Label lbSTB{"lbSTB(2)"};
    Rnd rnd;
    clComplexImage channel{desktop.desktop(), masks, rnd};

    /// Puts grey levels on the image panel.
    void show(const std::function<int(int x, int y)>& grey) { lay(pb1, grey); }

    static void lay(PictureBox& panel, const std::function<int(int x, int y)>& grey) {
        Bitmap picture(256, 256);
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                picture.at(x, y) = grey(x, y) * 0x010101;
        panel.setPicture(picture);
    }

    /// The log without the lines that only tell that a picture went stale.
    std::vector<std::string> calls() const {
        std::vector<std::string> found;
        for (const std::string& line : log)
            if (!line.starts_with("stale"))
                found.push_back(line);
        return found;
    }

    /// How often a line stands in the log.
    long count(const std::string& line) const { return watcher.count(line); }
};

/// Grey levels that repeat from run to run: noise of the given seed.
inline std::function<int(int, int)> noise(std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<int> levels(256 * 256);
    for (int& level : levels)
        level = static_cast<int>(random() % 256);
    return [levels = std::move(levels)](int x, int y) {
        return levels[static_cast<std::size_t>(y * 256 + x)];
    };
}

/// Something like a photograph: soft shading, an outline, a texture.
inline int scene(int x, int y) {
    const int shading = (x + 2 * y) / 6;
    const bool inside = (x - 100) * (x - 100) + (y - 140) * (y - 140) < 60 * 60;
    return (shading + (inside ? 90 : 0) + (x * y) % 17) % 256;
}

}  // namespace quillon
