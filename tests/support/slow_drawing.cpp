#include "tests/support/slow_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quillon::slow {

namespace {

/// The whole number nearest to start + difference * step / steps, the smaller
/// one of two.
Long nearest(Long start, Long difference, Long step, Long steps) {
    const long double exact = static_cast<long double>(difference) *
                              static_cast<long double>(step) / static_cast<long double>(steps);
    return start + static_cast<Long>(std::ceil(exact - 0.5L));
}

Integer steps(Single side, Single step) {
    return toInteger(10.0 * toInteger(side / (step == 0 ? Single{1} : step)));
}

}  // namespace

void dot(Bitmap& picture, PanelPoint at, int pen, PixelWord ink) {
    for (int i = 0; i < pen * pen; ++i) {
        const int x = at.x - pen / 2 + i % pen;
        const int y = at.y - pen / 2 + i / pen;
        if (picture.contains(x, y))
            picture.at(x, y) = ink;
    }
}

void line(Bitmap& picture, PanelPoint from, PanelPoint to, int pen, PixelWord ink) {
    const Long dx = to.x - from.x;
    const Long dy = to.y - from.y;
    const Long steps = std::max(std::abs(dx), std::abs(dy));
    if (steps == 0 && pen > 1)
        dot(picture, from, pen, ink);
    for (Long step = 0; step < steps; ++step)
        dot(picture, {nearest(from.x, dx, step, steps), nearest(from.y, dy, step, steps)}, pen,
            ink);
}

Bitmap lattice(int width, int height, const LatticeBasis& basis) {
    Bitmap picture(width, height);
    const Single ax = basis.p1.x - basis.p0.x;
    const Single ay = basis.p1.y - basis.p0.y;
    const Single bx = basis.p2.x - basis.p0.x;
    const Single by = basis.p2.y - basis.p0.y;
    const Integer n1 = steps(static_cast<Single>(width), std::fmax(std::fabs(bx), std::fabs(ax)));
    const Integer n2 = steps(static_cast<Single>(height), std::fmax(std::fabs(by), std::fabs(ay)));
    for (int i = -n1; i <= n1; ++i)
        for (int j = -n2; j <= n2; ++j) {
            const Single alongX = basis.p0.x + static_cast<Single>(i) * ax;
            const Single alongY = basis.p0.y + static_cast<Single>(i) * ay;
            const Single px = alongX + static_cast<Single>(j) * bx;
            const Single py = alongY + static_cast<Single>(j) * by;
            if (px < 0 || py < 0)
                continue;
            const auto x = static_cast<int>(std::nearbyint(px));
            const auto y = static_cast<int>(std::nearbyint(py));
            if (picture.contains(x, y))
                picture.at(x, y) = 0xFFFFFF;
        }
    return picture;
}

Bitmap rolled(const Bitmap& picture, int dx, int dy) {
    Bitmap moved(picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            moved.at((x + dx + picture.width) % picture.width,
                     (y + dy + picture.height) % picture.height) = picture.at(x, y);
    return moved;
}

}  // namespace quillon::slow
