#pragma once

#include "engine/Numbers.h"

namespace quillon {

/// A word of a bitmap, 0x00RRGGBB: blue in the lowest byte. The top byte is
/// always 0.
using PixelWord = Long;

/// A colour as drawing calls and properties take it, 0x00BBGGRR: red in the
/// lowest byte. A type of its own, so that it cannot be taken for a PixelWord.
struct ColorValue {
    Long value = 0;
    friend constexpr bool operator==(ColorValue, ColorValue) = default;
};

/// A colour value from its three components, each 0 or more; above 255 counts
/// as 255.
constexpr ColorValue RGB(Long red, Long green, Long blue) noexcept {
    const auto cap = [](Long component) { return component > 255 ? 255 : component; };
    return ColorValue{cap(red) | cap(green) << 8 | cap(blue) << 16};
}

/// The two byte orders exchange red and blue; the exchange is its own inverse.
constexpr Long exchangeRedAndBlue(Long color) noexcept {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

constexpr PixelWord toPixelWord(ColorValue color) noexcept {
    return exchangeRedAndBlue(color.value);
}

constexpr ColorValue toColorValue(PixelWord word) noexcept {
    return ColorValue{exchangeRedAndBlue(word)};
}

inline constexpr ColorValue kBlack{0x000000};
inline constexpr ColorValue kWhite{0xFFFFFF};
inline constexpr ColorValue kRed{0x0000FF};
inline constexpr ColorValue kGreen{0x00FF00};
inline constexpr ColorValue kBlue{0xFF0000};

}  // namespace quillon
