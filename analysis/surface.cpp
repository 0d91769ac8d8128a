#include <algorithm>
#include <cstdint>
#include <memory>
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
    std::span<PixelWord> words;
    /// Grey levels, 0 to 255.
    std::span<std::uint8_t> levels;
};

/// The panel columns of a row's points: half a pixel further left with each row,
/// rounded half to even. In every other row two points share a column.
struct Columns {
    Long left = 0;
    /// 1 in a row whose points all fall between two columns.
    Long between = 0;

    explicit Columns(Long row) : left(kLeftOfBackRow - (row + 1) / 2), between(row & 1) {}
    Long of(Long point) const noexcept {
        const Long column = left + point;
        return column + (column & between);
    }
};

/// The panel under a relief, with the highest row painted so far in each column,
/// or what lies below the panel.
struct Ground {
    std::span<PixelWord> canvas;
    Long width = 0;
    std::vector<Long> highest;
};

/// A row of points as vertical lines with their feet in panel row `foot`. Of two
/// that share a column the later one covers the other.
void paintRow(std::span<const PixelWord> words, std::span<const std::uint8_t> levels,
              Columns columns, Long foot, Ground& ground) {
    const Long width = ground.width;
    Long first = 0;
    Long last = static_cast<Long>(words.size());
    while (first < last && columns.of(first) < 0)
        ++first;
    while (first < last && columns.of(last - 1) >= width)
        --last;
    for (Long c = last - 1; c >= first; --c) {
        const auto point = static_cast<std::size_t>(c);
        const Long column = columns.of(c);
        Long& top = ground.highest[static_cast<std::size_t>(column)];
        const Long end = std::max<Long>(foot - halved(levels[point]), -1);
        if (end + 1 >= top)
            continue;
        const PixelWord word = words[point] & 0xFFFFFF;
        for (Long y = std::min(foot, top - 1); y > end; --y)
            ground.canvas[static_cast<std::size_t>(y * width + column)] = word;
        top = end + 1;
    }
}

/// Paints the relief of w by h points: each point a vertical line from its foot
/// upward, half a pixel high per grey level, without its upper end. Each row
/// stands half a pixel further left and down than the row behind.
///
/// Told back to front, later lines cover earlier ones. Feet never rise from one
/// row to the next, so the same picture comes front to back when each line only
/// paints above the highest row painted in its column, and each pixel is
/// written at most once.
void paintRelief(const Points& points, Long w, Long h, std::span<PixelWord> canvas,
                 Long canvasWidth, Long canvasHeight) {
    Ground ground{canvas, canvasWidth,
                  std::vector<Long>(static_cast<std::size_t>(canvasWidth), canvasHeight)};
    const auto length = static_cast<std::size_t>(w);
    for (Long r = h - 1; r >= 0; --r) {
        const std::size_t start = static_cast<std::size_t>(r) * length;
        paintRow(points.words.subspan(start, length), points.levels.subspan(start, length),
                 Columns(r), halved(2 * kTopOfBackRow + r), ground);
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
        // Every point is written before it is read, so none needs a first value.
        const auto words = std::make_unique_for_overwrite<PixelWord[]>(count);
        const auto levels = std::make_unique_for_overwrite<std::uint8_t[]>(count);
        const Points points{{words.get(), count}, {levels.get(), count}};
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
