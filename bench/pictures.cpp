#include "bench/pictures.h"

#include <algorithm>
#include <cstdint>
#include <random>

namespace quillon {

Bitmap pictureLike(int number) {
    std::mt19937 random(static_cast<std::uint32_t>(number) + 1);
    const int middle = 100 + number % 50;
    Bitmap picture(256, 256);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) {
            const int dx = x - middle;
            const bool inside = dx * dx + (y - 140) * (y - 140) < 60 * 60;
            const int grain = static_cast<int>(random() % 7);
            const int grey = (x + 2 * y) / 6 + (inside ? 90 : 0) + (x * y) % 17 + grain;
            picture.at(x, y) = std::min(grey, 255) * 0x010101;
        }
    return picture;
}

}  // namespace quillon
