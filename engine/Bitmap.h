#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/Color.h"

namespace quillon {

/// A rectangle of whole pixels: left and top inclusive, by width and height.
struct PixelArea {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// A picture: rows from the top, words 0x00RRGGBB, no padding between rows. A
/// picture of no size is the empty picture.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::vector<PixelWord> words;

    Bitmap() = default;
    Bitmap(int w, int h, PixelWord fill = 0)
        : width(w),
          height(h),
          words(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), fill) {}

    bool empty() const noexcept { return words.empty(); }
    bool contains(int x, int y) const noexcept {
        return x >= 0 && y >= 0 && x < width && y < height;
    }
    /// The word at (x, y), which must lie inside.
    PixelWord& at(int x, int y) noexcept { return words[index(x, y)]; }
    PixelWord at(int x, int y) const noexcept { return words[index(x, y)]; }
    std::span<PixelWord> row(int y) noexcept {
        return {words.data() + index(0, y), static_cast<std::size_t>(width)};
    }
    std::span<const PixelWord> row(int y) const noexcept {
        return {words.data() + index(0, y), static_cast<std::size_t>(width)};
    }

    friend bool operator==(const Bitmap&, const Bitmap&) = default;

private:
    std::size_t index(int x, int y) const noexcept {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(x);
    }
};

}  // namespace quillon
