#include <cmath>

#include "engine/mFFTUTIL.h"

namespace quillon {

void NormalizeVector(std::span<Single, 3> v, Single s) {
    Double squares = 0;
    for (const Single component : v)
        squares += static_cast<Double>(component) * component;
    Double length = std::sqrt(squares);
    if (s != 0)
        length /= s;
    for (Single& component : v)
        component = length == 0 ? 0 : static_cast<Single>(component / length);
}

Single AngleBetween(std::span<Single, 3> a, std::span<Single, 3> b) {
    NormalizeVector(a, 0);
    NormalizeVector(b, 0);
    // The product is a Single: its rounding brings the cosine of most parallel
    // vectors back to 1, where a finer one would show a hundredth of a degree.
    Single product = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        product += a[i] * b[i];
    return static_cast<Single>(ArcCos(product));
}

Double ArcCos(Double x) noexcept {
    if (x >= 1)
        return 0;
    if (x <= -1)
        return 3.14159265358979;
    return std::atan(-x / std::sqrt(1 - x * x)) + 2 * std::atan(1.0);
}

}  // namespace quillon
