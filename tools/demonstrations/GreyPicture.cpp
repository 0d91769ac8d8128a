#include "tools/demonstrations/GreyPicture.h"

#include <algorithm>
#include <cmath>

namespace quillon::demonstrations {

namespace {

// The two headers of a BMP file and the table of 256 colours, in bytes.
constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kPictureHeader = 40;
constexpr std::uint32_t kTable = 256 * 4;
constexpr std::uint32_t kPixels = kSide * kSide;

void append(std::string& bytes, std::uint32_t number, int width) {
    for (int i = 0; i < width; ++i)
        bytes.push_back(static_cast<char>(number >> (8 * i) & 0xFF));
}

}  // namespace

std::uint8_t greyOf(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

std::string bmpOf(const GreyPicture& picture) {
    std::string bytes = "BM";
    append(bytes, kFileHeader + kPictureHeader + kTable + kPixels, 4);
    append(bytes, 0, 4);
    append(bytes, kFileHeader + kPictureHeader + kTable, 4);
    append(bytes, kPictureHeader, 4);
    append(bytes, kSide, 4);
    append(bytes, kSide, 4);
    append(bytes, 1, 2);  // planes
    append(bytes, 8, 2);  // bits a pixel
    append(bytes, 0, 4);  // not compressed
    append(bytes, kPixels, 4);
    append(bytes, 2835, 4);  // 72 dots an inch, in dots a metre
    append(bytes, 2835, 4);
    append(bytes, 256, 4);  // colours in the table
    append(bytes, 0, 4);    // all of them matter
    for (std::uint32_t grey = 0; grey < 256; ++grey)
        append(bytes, grey * 0x010101, 4);
    // Rows lie in the file from the lowest upward.
    for (int y = kSide - 1; y >= 0; --y)
        for (int x = 0; x < kSide; ++x)
            bytes.push_back(static_cast<char>(picture.at(x, y)));
    return bytes;
}

std::optional<GreyPicture> pictureOfPgm(const std::string& bytes) {
    const std::string head = "P5\n256 256\n255\n";
    if (!bytes.starts_with(head) || bytes.size() != head.size() + kPixels)
        return std::nullopt;
    GreyPicture picture;
    auto byte = bytes.begin() + static_cast<std::ptrdiff_t>(head.size());
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            picture.at(x, y) = static_cast<std::uint8_t>(*byte++);
    return picture;
}

}  // namespace quillon::demonstrations
