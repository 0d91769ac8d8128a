#include <algorithm>
#include <cstdint>

#include "engine/Desktop.h"
#include "engine/PictureBox.h"
#include "engine/RunTimeError.h"

namespace quillon {
namespace {

/// The indices first to last, last exclusive, of a copy along one axis that lie
/// on both the source and the panel: index i goes from sourceStart + i to
/// targetStart + i.
struct Range {
    std::int64_t first = 0;
    std::int64_t last = 0;
};

Range clip(std::int64_t length, std::int64_t sourceStart, std::int64_t sourceSide,
           std::int64_t targetStart, std::int64_t targetSide) {
    return {std::max({std::int64_t{0}, -sourceStart, -targetStart}),
            std::min({length, sourceSide - sourceStart, targetSide - targetStart})};
}

void copyRow(std::span<const PixelWord> from, std::span<PixelWord> to, RasterOperation operation) {
    if (operation == RasterOperation::SourceCopy)
        std::ranges::copy(from, to.begin());
    else
        std::ranges::transform(from, to.begin(), [](PixelWord word) { return ~word & 0xFFFFFF; });
}

void requirePicture(const Bitmap& picture) {
    if (picture.empty())
        throw RunTimeError(ErrorNumber::InvalidPicture);
}

/// The part of an area, counted from its own corner, that lies on a canvas; all
/// zero where there is none.
PixelArea visiblePart(PixelArea area, const Bitmap& canvas) {
    const Range across = clip(area.width, 0, area.width, area.left, canvas.width);
    const Range down = clip(area.height, 0, area.height, area.top, canvas.height);
    if (across.first >= across.last || down.first >= down.last)
        return {};
    return {static_cast<int>(across.first), static_cast<int>(down.first),
            static_cast<int>(across.last - across.first), static_cast<int>(down.last - down.first)};
}

}  // namespace

const Bitmap& PictureBox::steady(const Bitmap& source, Bitmap& kept) const {
    if (&source != &image_ && &source != &layer_)
        return source;
    kept = source;
    return kept;
}

void PictureBox::BitBlt(PixelArea area, const Bitmap& source, int sourceLeft, int sourceTop,
                        RasterOperation operation) {
    Bitmap kept;
    const Bitmap& from = steady(source, kept);
    Bitmap& to = canvas();
    const Range columns = clip(area.width, sourceLeft, from.width, area.left, to.width);
    const Range rows = clip(area.height, sourceTop, from.height, area.top, to.height);
    if (columns.first < columns.last) {
        const auto width = static_cast<std::size_t>(columns.last - columns.first);
        for (std::int64_t i = rows.first; i < rows.last; ++i)
            copyRow(from.row(static_cast<int>(sourceTop + i))
                        .subspan(static_cast<std::size_t>(sourceLeft + columns.first), width),
                    to.row(static_cast<int>(area.top + i))
                        .subspan(static_cast<std::size_t>(area.left + columns.first), width),
                    operation);
    }
    drawn();
}

void PictureBox::PaintPicture(const Bitmap& source, Single x, Single y, RasterOperation operation) {
    requirePicture(source);
    BitBlt({toLong(x), toLong(y), source.width, source.height}, source, 0, 0, operation);
}

void PictureBox::PaintPictureStretched(const Bitmap& source, PixelArea target) {
    requirePicture(source);
    const PixelArea window = visiblePart(target, image_);
    if (window.width == 0)
        return;
    if (target.width == source.width && target.height == source.height) {
        BitBlt(target, source, 0, 0);
        return;
    }
    const Bitmap part = stretchedPart(source, target.width, target.height, window);
    BitBlt({target.left + window.left, target.top + window.top, part.width, part.height}, part, 0,
           0);
}

void PictureBox::StretchArea(PixelArea target, const Bitmap& source, PixelArea part) {
    if (part.width <= 0 || part.height <= 0)
        return;
    Bitmap kept;
    const Bitmap& from = steady(source, kept);
    Bitmap& to = canvas();
    const PixelArea window = visiblePart(target, to);
    for (int y = window.top; y < window.top + window.height; ++y) {
        const std::int64_t row =
            std::int64_t{part.top} + nearestPixel(y, part.height, target.height);
        if (row < 0 || row >= from.height)
            continue;
        const auto source_ = from.row(static_cast<int>(row));
        const auto target_ = to.row(target.top + y);
        for (int x = window.left; x < window.left + window.width; ++x) {
            const std::int64_t column =
                std::int64_t{part.left} + nearestPixel(x, part.width, target.width);
            if (column >= 0 && column < from.width)
                target_[static_cast<std::size_t>(target.left + x)] =
                    source_[static_cast<std::size_t>(column)];
        }
    }
    drawn();
}

void PictureBox::InvertPicture() {
    setPicture(Image());
    if (!Picture().empty())
        PaintPicture(Picture(), 0, 0, RasterOperation::NotSourceCopy);
}

void PictureBox::TextOut(TextPainter& painter, int x, int y, const std::string& text) {
    Bitmap& surface = canvas();
    painter.draw(surface, x, y, text, FontName, FontSize, ForeColor);
    // A toolkit's painter may leave its own mark in the top byte, which would
    // turn every grey value negative.
    for (PixelWord& word : surface.words)
        word &= 0xFFFFFF;
    drawn();
}

}  // namespace quillon
