#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"
#include "engine/spectrum_passes.h"

namespace quillon {

namespace {

// The back row starts at (60, 90) on the panel.
constexpr Long kLeftOfBackRow = 60;
constexpr Long kTopOfBackRow = 90;

/// Every point of the spectrum as the panel shows it, w points a row.
struct Points {
    std::vector<PixelWord> words;
    /// Grey levels, 0 to 255.
    std::vector<std::uint8_t> levels;
};

/// Paints the relief of w by h points: each point a vertical line from its foot
/// upward, half a pixel high per grey level, without its upper
/// end. Each row stands half a pixel further left and down than the row behind.
///
/// Told back to front, later lines cover earlier ones. Feet never rise from one
/// row to the next, so the same picture comes front to back when each line only
/// paints above the highest row painted in its column, and each pixel is
/// written at most once.
void paintRelief(const Points& points, Long w, Long h, std::span<PixelWord> canvas,
                 Long canvasWidth, Long canvasHeight) {
    std::vector<Long> highest(static_cast<std::size_t>(canvasWidth), canvasHeight);
    for (Long r = h - 1; r >= 0; --r) {
        const Long sy = halved(2 * kTopOfBackRow + r);
        for (Long c = w - 1; c >= 0; --c) {
            const Long sx = halved(2 * (kLeftOfBackRow + c) - r);
            if (sx < 0 || sx >= canvasWidth)
                continue;
            const auto point = static_cast<std::size_t>(r * w + c);
            Long& top = highest[static_cast<std::size_t>(sx)];
            const Long end = std::max<Long>(sy - halved(points.levels[point]), -1);
            for (Long y = std::min(sy, top - 1); y > end; --y)
                canvas[static_cast<std::size_t>(y * canvasWidth + sx)] =
                    points.words[point] & 0xFFFFFF;
            top = std::min(top, end + 1);
        }
    }
}

}  // namespace

void clComplexImage::draw3DFT() {
    if (ifacSqrt == 0.0F)
        ifacSqrt = 1.0F;
    try {
        const SpectrumLook look = spectrumLook(bInvert[1]);
        if (!spectrumPasses.measure(ftData, nfftX, nfftY, look))
            return;
        const std::size_t count = static_cast<std::size_t>(nfftX) * static_cast<std::size_t>(nfftY);
        Points points{std::vector<PixelWord>(count), std::vector<std::uint8_t>(count)};
        spectrumPasses.paint(look, ftIndex, points.words);
        spectrumPasses.paintLevels(look, points.levels);
        PictureBox& panel = bound(pbNEW);
        panel.Cls();
        paintRelief(points, nfftX, nfftY, panel.bits(), panel.Image().width, panel.Image().height);
        panel.Refresh();
        panel.Tag = "3D";
    } catch (const RunTimeError& error) {
        desktop_.dialogs.messageBox("Error in Draw3DFT: " + error.description(), "",
                                    MessageIcon::None, MessageButtons::Ok);
    }
}

}  // namespace quillon
