#include <algorithm>
#include <cmath>

#include "engine/Pen.h"
#include "engine/PictureBox.h"

namespace quillon {

Pen PictureBox::pen(ColorValue color) const noexcept {
    return Pen{std::max<int>(DrawWidth, 1), DrawMode == kPenXor ? PenMode::Xor : PenMode::Copy,
               toPixelWord(color)};
}

void PictureBox::Line(Single x1, Single y1, Single x2, Single y2) {
    Line(x1, y1, x2, y2, ForeColor);
}

void PictureBox::Line(Single x1, Single y1, Single x2, Single y2, ColorValue color) {
    drawLine(canvas(), pen(color), toLong(x1), toLong(y1), toLong(x2), toLong(y2));
    drawn();
}

void PictureBox::Box(Single x1, Single y1, Single x2, Single y2, ColorValue color, BoxStyle style) {
    const auto [left, right] = std::minmax({toLong(x1), toLong(x2)});
    const auto [top, bottom] = std::minmax({toLong(y1), toLong(y2)});
    const auto draw = style == BoxStyle::Filled ? fillBox : outlineBox;
    draw(canvas(), pen(color), left, top, right, bottom);
    drawn();
}

void PictureBox::PSet(Single x, Single y) {
    PSet(x, y, ForeColor);
}

void PictureBox::PSet(Single x, Single y, ColorValue color) {
    drawDot(canvas(), pen(color), toLong(x), toLong(y));
    drawn();
}

void PictureBox::SetPixelV(Long x, Long y, ColorValue color) {
    // A lattice sets millions of points, nearly all of them off the panel.
    if (!image_.contains(x, y))
        return;
    canvas().at(x, y) = toPixelWord(color);
    drawn();
}

Long PictureBox::GetPixel(Long x, Long y) const noexcept {
    return image_.contains(x, y) ? toColorValue(shown().at(x, y)).value : -1;
}

void PictureBox::Polyline(std::span<const PanelPoint> points) {
    Bitmap& surface = canvas();
    for (std::size_t i = 1; i < points.size(); ++i)
        drawLine(surface, pen(ForeColor), points[i - 1].x, points[i - 1].y, points[i].x,
                 points[i].y);
    drawn();
}

void PictureBox::FillAroundEllipse(int left, int top, int right, int bottom, ColorValue color) {
    // Everything is doubled, so that pixel centres and the ellipse's centre are
    // whole numbers; the products stay exact in a Double for the sides allowed.
    const auto x1 = static_cast<Double>(left);
    const auto y1 = static_cast<Double>(top);
    const auto x2 = static_cast<Double>(right);
    const auto y2 = static_cast<Double>(bottom);
    const Double width = std::abs(x2 - x1);
    const Double height = std::abs(y2 - y1);
    Bitmap& surface = canvas();
    for (int y = 0; y < surface.height; ++y) {
        const Double down = (2.0 * y + 1.0 - (y1 + y2)) * width;
        for (int x = 0; x < surface.width; ++x) {
            const Double across = (2.0 * x + 1.0 - (x1 + x2)) * height;
            if (across * across + down * down >= width * width * height * height)
                surface.at(x, y) = toPixelWord(color);
        }
    }
    drawn();
}

}  // namespace quillon
