#include "engine/lut_selector.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

constexpr int kKnots = 17;
constexpr int kKnotSpacing = 16;
constexpr int kLastColumn = kLutSelectorWidth - 1;

using Scheme = std::array<PixelWord, kKnots>;

// The schemes' colours at columns 0, 16, 32 and so on to 240, and at 255.
constexpr std::array<Scheme, kLutSelectorRows - 1> kSchemes{{
    {{0x070328, 0x020262, 0x1B027E, 0x490097, 0x72009A, 0xA0009A, 0xBB0492, 0xCF1A78, 0xDE3836,
      0xEA5409, 0xF06C00, 0xF88B00, 0xFCA600, 0xFEC501, 0xFEDA0E, 0xFFEE5D, 0xFFF8CC}},
    {{0x000200, 0x00009C, 0x0000D8, 0x6700FC, 0xB301FA, 0xDF00F9, 0xF601E6, 0xFB00AC, 0xFA016B,
      0xFB0029, 0xF93C00, 0xFB5E00, 0xFA7C00, 0xFC9C00, 0xFABB00, 0xFBD900, 0xF9F900}},
    {{0x17001A, 0xD302FC, 0x8700FD, 0x3300FF, 0x001DFF, 0x006FFC, 0x00C2FD, 0x00FFEB, 0x00FF93,
      0x00FF46, 0x09FD00, 0x5CFE00, 0xADFF00, 0xFEFE03, 0xFDA800, 0xFC5300, 0xF30400}},
    {{0x0A062B, 0x6F0371, 0xEF00EA, 0x9C00E0, 0x2B00C0, 0x004FC7, 0x00BAEA, 0x00E5D2, 0x02A159,
      0x047100, 0x77B100, 0xE8F200, 0xEFAE02, 0xD43A00, 0xD12729, 0xE27D7B, 0xF9D2D3}},
    {{0x010000, 0x1F1000, 0x3D2001, 0x5B2F00, 0x783D00, 0x854C00, 0x8A5D00, 0x946C00, 0x9C7D00,
      0xA48B00, 0xAC9900, 0xB3A900, 0xBDB800, 0xC8CA22, 0xD6D75D, 0xE5E59B, 0xF4F5D6}},
    {{0x030000, 0x260100, 0x520101, 0x7B0000, 0xA40000, 0xD00000, 0xFA0100, 0xFF1F01, 0xFF4700,
      0xFE7000, 0xFF9C00, 0xFDC400, 0xFEED00, 0xFFFF1B, 0xFDFF58, 0xFDFF92, 0xFEFFD4}},
}};

constexpr int knotColumn(int knot) noexcept {
    return std::min(knot * kKnotSpacing, kLastColumn);
}

constexpr int component(PixelWord color, int shift) noexcept {
    return color >> shift & 0xFF;
}

/// The colour at `step` of `steps` on the straight way between two colours, each
/// component rounded to the nearest whole number.
constexpr PixelWord between(PixelWord first, PixelWord second, int step, int steps) noexcept {
    PixelWord color = 0;
    for (const int shift : {0, 8, 16}) {
        const int weighted =
            component(first, shift) * (steps - step) + component(second, shift) * step;
        color |= (2 * weighted + steps) / (2 * steps) << shift;
    }
    return color;
}

constexpr PixelWord colorAt(const Scheme& scheme, int column) noexcept {
    const int knot = std::min(column / kKnotSpacing, kKnots - 2);
    const int first = knotColumn(knot);
    const int second = knotColumn(knot + 1);
    return between(scheme[static_cast<std::size_t>(knot)],
                   scheme[static_cast<std::size_t>(knot) + 1], column - first, second - first);
}

constexpr PixelWord bandColor(int row, int column) noexcept {
    if (row == 0) {
        return column << 16 | column << 8 | column;
    }
    return colorAt(kSchemes[static_cast<std::size_t>(row) - 1], column);
}

}  // namespace

Bitmap lutSelectorPicture() {
    Bitmap picture(kLutSelectorWidth, kLutSelectorHeight);
    for (int y = 0; y < kLutSelectorHeight; ++y) {
        for (int x = 0; x < kLutSelectorWidth; ++x) {
            picture.at(x, y) = bandColor(y / kLutSelectorBandHeight, x);
        }
    }
    return picture;
}

}  // namespace quillon
