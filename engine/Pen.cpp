#include "engine/Pen.h"

#include <algorithm>
#include <cstdlib>

namespace quillon {
namespace {

struct Quotient {
    std::int64_t whole = 0;
    std::int64_t remainder = 0;
};

/// steps * rise / run without an overflow on the way, for 0 <= rise <= run < 2^62.
Quotient multiplyAndDivide(std::int64_t steps, std::int64_t rise, std::int64_t run) noexcept {
    Quotient result;
    const auto addRise = [&result, run](std::int64_t amount) {
        result.remainder += amount;
        if (result.remainder >= run) {
            result.remainder -= run;
            ++result.whole;
        }
    };
    for (int bit = 62; bit >= 0; --bit) {
        result.whole *= 2;
        addRise(result.remainder);
        if ((steps >> bit & 1) != 0)
            addRise(rise);
    }
    return result;
}

/// The points of a line that can touch a canvas, one after another.
class LineWalk {
public:
    std::int64_t x = 0;
    std::int64_t y = 0;

    LineWalk(const Bitmap& canvas, const Pen& pen, std::int64_t x1, std::int64_t y1,
             std::int64_t x2, std::int64_t y2) noexcept
        : x(x1), y(y1), stepX_(x2 < x1 ? -1 : 1), stepY_(y2 < y1 ? -1 : 1) {
        const std::int64_t lengthX = std::abs(x2 - x1);
        const std::int64_t lengthY = std::abs(y2 - y1);
        steep_ = lengthY > lengthX;
        run_ = 2 * std::max(lengthX, lengthY);
        rise_ = 2 * std::min(lengthX, lengthY);
        const std::int64_t start = steep_ ? y1 : x1;
        const std::int64_t direction = steep_ ? stepY_ : stepX_;
        const std::int64_t side = steep_ ? canvas.height : canvas.width;
        // The first and the last coordinate at which the pen reaches the canvas.
        const std::int64_t low = -pen.after();
        const std::int64_t high = side - 1 + pen.before();
        const std::int64_t first = direction > 0 ? low - start : start - high;
        const std::int64_t last = direction > 0 ? high - start : start - low;
        step_ = std::max<std::int64_t>(first, 0);
        end_ = std::min(last + 1, run_ / 2);
        skipToFirst(start, direction);
    }

    bool inside() const noexcept { return step_ < end_; }

    void next() noexcept {
        ++step_;
        (steep_ ? y : x) += steep_ ? stepY_ : stepX_;
        error_ += rise_;
        if (error_ >= run_) {
            error_ -= run_;
            (steep_ ? x : y) += steep_ ? stepX_ : stepY_;
        }
    }

private:
    void skipToFirst(std::int64_t start, std::int64_t direction) noexcept {
        if (!inside())
            return;
        const std::int64_t across = steep_ ? stepX_ : stepY_;
        Quotient offset;
        if (step_ > 0)
            offset = multiplyAndDivide(step_, rise_, run_);
        // Half a step more rounds to the nearest pixel; on the way right or down
        // a tie must stay on the smaller coordinate, so it is a little less.
        error_ = offset.remainder + run_ / 2 - (across > 0 ? 1 : 0);
        if (error_ >= run_) {
            error_ -= run_;
            ++offset.whole;
        }
        (steep_ ? y : x) = start + direction * step_;
        (steep_ ? x : y) += across * offset.whole;
    }

    std::int64_t stepX_;
    std::int64_t stepY_;
    bool steep_ = false;
    /// Twice the longer and twice the shorter side of the line.
    std::int64_t run_ = 0;
    std::int64_t rise_ = 0;
    std::int64_t error_ = 0;
    std::int64_t step_ = 0;
    std::int64_t end_ = 0;
};

void drawThinLine(Bitmap& canvas, const Pen& pen, LineWalk walk) noexcept {
    for (; walk.inside(); walk.next()) {
        if (walk.x >= 0 && walk.x < canvas.width && walk.y >= 0 && walk.y < canvas.height)
            pen.touch(canvas.at(static_cast<int>(walk.x), static_cast<int>(walk.y)));
    }
}

/// At each step only what the pen newly covers is touched. Since both
/// coordinates only ever go one way, a pixel that the pen has left never returns.
void drawWideLine(Bitmap& canvas, const Pen& pen, LineWalk walk) noexcept {
    if (!walk.inside())
        return;
    drawDot(canvas, pen, walk.x, walk.y);
    std::int64_t oldX = walk.x;
    std::int64_t oldY = walk.y;
    for (walk.next(); walk.inside(); walk.next()) {
        std::int64_t left = walk.x - pen.before();
        std::int64_t right = walk.x + pen.after();
        const std::int64_t top = walk.y - pen.before();
        const std::int64_t bottom = walk.y + pen.after();
        if (walk.x != oldX) {
            const std::int64_t column = walk.x > oldX ? right-- : left++;
            fillBox(canvas, pen, column, top, column, bottom);
        }
        if (walk.y != oldY) {
            const std::int64_t row = walk.y > oldY ? bottom : top;
            fillBox(canvas, pen, left, row, right, row);
        }
        oldX = walk.x;
        oldY = walk.y;
    }
}

}  // namespace

void drawDot(Bitmap& canvas, const Pen& pen, std::int64_t x, std::int64_t y) noexcept {
    fillBox(canvas, pen, x - pen.before(), y - pen.before(), x + pen.after(), y + pen.after());
}

void drawLine(Bitmap& canvas, const Pen& pen, std::int64_t x1, std::int64_t y1, std::int64_t x2,
              std::int64_t y2) noexcept {
    const LineWalk walk(canvas, pen, x1, y1, x2, y2);
    if (pen.width <= 1)
        drawThinLine(canvas, pen, walk);
    else if (x1 == x2 && y1 == y2)
        drawDot(canvas, pen, x1, y1);
    else
        drawWideLine(canvas, pen, walk);
}

void fillBox(Bitmap& canvas, const Pen& pen, std::int64_t left, std::int64_t top,
             std::int64_t right, std::int64_t bottom) noexcept {
    left = std::max<std::int64_t>(left, 0);
    top = std::max<std::int64_t>(top, 0);
    right = std::min<std::int64_t>(right, canvas.width - 1);
    bottom = std::min<std::int64_t>(bottom, canvas.height - 1);
    if (left > right)
        return;
    for (std::int64_t y = top; y <= bottom; ++y) {
        const auto row = canvas.row(static_cast<int>(y));
        for (std::int64_t x = left; x <= right; ++x)
            pen.touch(row[static_cast<std::size_t>(x)]);
    }
}

void outlineBox(Bitmap& canvas, const Pen& pen, std::int64_t left, std::int64_t top,
                std::int64_t right, std::int64_t bottom) noexcept {
    // The outer edge of the border, and the hole inside it, which may be empty.
    const std::int64_t outerLeft = left - pen.before();
    const std::int64_t outerTop = top - pen.before();
    const std::int64_t outerRight = right + pen.after();
    const std::int64_t outerBottom = bottom + pen.after();
    const std::int64_t holeLeft = left + pen.after() + 1;
    const std::int64_t holeTop = top + pen.after() + 1;
    const std::int64_t holeRight = right - pen.before() - 1;
    const std::int64_t holeBottom = bottom - pen.before() - 1;
    if (holeLeft > holeRight || holeTop > holeBottom) {
        fillBox(canvas, pen, outerLeft, outerTop, outerRight, outerBottom);
        return;
    }
    fillBox(canvas, pen, outerLeft, outerTop, outerRight, holeTop - 1);
    fillBox(canvas, pen, outerLeft, holeTop, holeLeft - 1, holeBottom);
    fillBox(canvas, pen, holeRight + 1, holeTop, outerRight, holeBottom);
    fillBox(canvas, pen, outerLeft, holeBottom + 1, outerRight, outerBottom);
}

}  // namespace quillon
