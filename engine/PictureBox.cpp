#include "engine/PictureBox.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "engine/Pen.h"

namespace quillon {
namespace {

/// `picture` at the top left of `ground`, as far as both reach.
void lay(const Bitmap& picture, Bitmap& ground) {
    const int height = std::min(picture.height, ground.height);
    const auto width = static_cast<std::size_t>(std::min(picture.width, ground.width));
    for (int y = 0; y < height; ++y)
        std::ranges::copy(picture.row(y).first(width), ground.row(y).begin());
}

/// One word all over: one row, and copies of it, which go many words at a time.
void paintGround(Bitmap& bitmap, PixelWord word) {
    if (bitmap.empty())
        return;
    const auto first = bitmap.row(0);
    std::ranges::fill(first, word);
    for (int y = 1; y < bitmap.height; ++y)
        std::ranges::copy(first, bitmap.row(y).begin());
}

/// Pixels that the border takes of each axis.
Single borders(Integer borderStyle) {
    return borderStyle == 1 ? 2.0F : 0.0F;
}

int surfaceSide(Single twips, Integer borderStyle) {
    return std::max<Long>(toLong(twips / kTwipsPerPixel - borders(borderStyle)), 0);
}

/// How many of n bytes there are in words; whole words and bytes of the next.
struct ByteCount {
    std::size_t words = 0;
    /// The bits of the last, partly copied word; 0 where all are whole.
    Long lastMask = 0;
    Long bytes = 0;
};

ByteCount countBytes(Long n, std::size_t wordsThere) {
    const std::size_t bytes =
        std::min(static_cast<std::size_t>(std::max<Long>(n, 0)), wordsThere * sizeof(PixelWord));
    ByteCount count;
    count.words = bytes / sizeof(PixelWord);
    count.lastMask = (Long{1} << 8 * (bytes % sizeof(PixelWord))) - 1;
    count.bytes = static_cast<Long>(bytes);
    return count;
}

void copyBytes(std::span<const PixelWord> from, std::span<PixelWord> to, ByteCount count) {
    std::ranges::copy(from.first(count.words), to.begin());
    // The lowest bytes of a word come first.
    if (count.lastMask != 0)
        to[count.words] =
            (to[count.words] & ~count.lastMask) | (from[count.words] & count.lastMask);
}

}  // namespace

PictureBox::PictureBox(std::string name, Single width, Single height, Integer borderStyle)
    : Control(std::move(name)) {
    BorderStyle = borderStyle;
    Width = width;
    Height = height;
}

PictureBox::PictureBox(std::string name, int scaleWidth, int scaleHeight)
    : PictureBox(std::move(name), static_cast<Single>(scaleWidth) * kTwipsPerPixel,
                 static_cast<Single>(scaleHeight) * kTwipsPerPixel, Integer{0}) {}

void PictureBox::setPicture(Bitmap picture) {
    picture_ = std::move(picture);
    if (AutoSize && !picture_.empty()) {
        const Single border = borders(BorderStyle);
        Move(Left, Top, (static_cast<Single>(picture_.width) + border) * kTwipsPerPixel,
             (static_cast<Single>(picture_.height) + border) * kTwipsPerPixel);
    }
    layPicture();
    drawn();
}

void PictureBox::setBackColor(ColorValue color) {
    backColor_ = color;
    layPicture();
    drawn();
}

void PictureBox::Cls() {
    if (autoRedraw_)
        layPicture();
    else
        layer_ = {};
    drawn();
}

void PictureBox::Refresh() {
    layer_ = {};
    Control::Refresh();
}

void PictureBox::changed() {
    fitSurface();
    Control::changed();
}

Long PictureBox::GetBitmapBits(Long n, std::span<PixelWord> words) const {
    const ByteCount count = countBytes(n, std::min(words.size(), image_.words.size()));
    copyBytes(image_.words, words, count);
    return count.bytes;
}

void PictureBox::SetBitmapBits(Long n, std::span<const PixelWord> words) {
    layer_ = {};
    copyBytes(words, image_.words, countBytes(n, std::min(words.size(), image_.words.size())));
    drawn();
}

void PictureBox::PaintBitmapBits(Long n, const std::function<void(std::span<PixelWord>)>& paint) {
    const std::size_t count = static_cast<std::size_t>(n) / sizeof(PixelWord);
    if (count <= image_.words.size()) {
        paint(std::span(image_.words).first(count));
        layer_ = {};
        drawn();
        return;
    }
    std::vector<PixelWord> words(count);
    paint(words);
    SetBitmapBits(n, words);
}

Bitmap& PictureBox::canvas() {
    if (autoRedraw_) {
        layer_ = {};
        return image_;
    }
    if (layer_.empty())
        layer_ = image_;
    return layer_;
}

void PictureBox::drawn() {
    Control::changed();
}

void PictureBox::layPicture() {
    layer_ = {};
    if (picture_.width < image_.width || picture_.height < image_.height)
        paintGround(image_, toPixelWord(backColor_));
    lay(picture_, image_);
}

void PictureBox::fitSurface() {
    const int width = surfaceSide(Width, BorderStyle);
    const int height = surfaceSide(Height, BorderStyle);
    if (width == image_.width && height == image_.height)
        return;
    const Bitmap old = std::exchange(image_, Bitmap(width, height));
    layPicture();
    lay(old, image_);
}

}  // namespace quillon
