#include "desktop/bitmap_file.h"

#include <cstdint>
#include <span>

namespace quillon {

namespace {

constexpr std::size_t kHeaderBytes = 54;
constexpr std::uint32_t kInfoHeaderBytes = 40;
constexpr std::uint32_t kOnePlaneOf24Bits = 24U << 16 | 1U;
constexpr std::uint32_t kUncompressed = 0;
constexpr std::uint32_t kDotsPerMetre = 3780;
constexpr std::uint32_t kNoColorTable = 0;

/// A file that says it has more is left to the toolkit, which checks it with care.
constexpr std::uint32_t kLongestSide = 8192;

// Numbers stand with their lowest byte first.

void putLittle32(char* bytes, std::uint32_t number) noexcept {
    bytes[0] = static_cast<char>(number);
    bytes[1] = static_cast<char>(number >> 8);
    bytes[2] = static_cast<char>(number >> 16);
    bytes[3] = static_cast<char>(number >> 24);
}

void putLittle64(char* bytes, std::uint64_t number) noexcept {
    putLittle32(bytes, static_cast<std::uint32_t>(number));
    putLittle32(bytes + 4, static_cast<std::uint32_t>(number >> 32));
}

std::uint32_t takeLittle32(const char* bytes) noexcept {
    const auto byte = [bytes](int i) {
        return std::uint32_t{static_cast<unsigned char>(bytes[i])};
    };
    return byte(0) | byte(1) << 8 | byte(2) << 16 | byte(3) << 24;
}

std::size_t bytesOfRow(std::size_t width) noexcept {
    return (width * 3 + 3) / 4 * 4;
}

void appendLittle32(std::string& bytes, std::uint32_t number) {
    char four[4];
    putLittle32(four, number);
    bytes.append(four, sizeof four);
}

/// Four pixels fill twelve bytes.
void putRow(std::span<const PixelWord> row, char* bytes) noexcept {
    const auto pixel = [&row](std::size_t x) {
        return static_cast<std::uint64_t>(row[x]) & 0xFFFFFFU;
    };
    std::size_t x = 0;
    for (; x + 4 <= row.size(); x += 4, bytes += 12) {
        putLittle64(bytes, pixel(x) | pixel(x + 1) << 24 | pixel(x + 2) << 48);
        putLittle32(bytes + 8, static_cast<std::uint32_t>(pixel(x + 2) >> 16 | pixel(x + 3) << 8));
    }
    for (; x < row.size(); ++x, bytes += 3) {
        bytes[0] = static_cast<char>(row[x]);
        bytes[1] = static_cast<char>(row[x] >> 8);
        bytes[2] = static_cast<char>(row[x] >> 16);
    }
}

void takeRow(const char* bytes, std::span<PixelWord> row) noexcept {
    const auto word = [](std::uint32_t number) {
        return static_cast<PixelWord>(number & 0xFFFFFFU);
    };
    std::size_t x = 0;
    for (; x + 4 <= row.size(); x += 4, bytes += 12) {
        const std::uint32_t first = takeLittle32(bytes);
        const std::uint32_t second = takeLittle32(bytes + 4);
        const std::uint32_t third = takeLittle32(bytes + 8);
        row[x] = word(first);
        row[x + 1] = word(first >> 24 | second << 8);
        row[x + 2] = word(second >> 16 | third << 16);
        row[x + 3] = word(third >> 8);
    }
    for (; x < row.size(); ++x, bytes += 3) {
        const char last[4] = {bytes[0], bytes[1], bytes[2], 0};
        row[x] = word(takeLittle32(last));
    }
}

std::string header(std::uint32_t width, std::uint32_t height, std::uint32_t pixelBytes) {
    std::string bytes = "BM";
    for (const std::uint32_t number : {static_cast<std::uint32_t>(kHeaderBytes) + pixelBytes, 0U,
                                       static_cast<std::uint32_t>(kHeaderBytes), kInfoHeaderBytes,
                                       width, height, kOnePlaneOf24Bits, kUncompressed, pixelBytes,
                                       kDotsPerMetre, kDotsPerMetre, kNoColorTable, kNoColorTable})
        appendLittle32(bytes, number);
    return bytes;
}

}  // namespace

std::string bitmapFile(const Bitmap& picture) {
    const auto height = static_cast<std::size_t>(picture.height);
    const std::size_t rowBytes = bytesOfRow(static_cast<std::size_t>(picture.width));
    std::string bytes =
        header(static_cast<std::uint32_t>(picture.width), static_cast<std::uint32_t>(height),
               static_cast<std::uint32_t>(rowBytes * height));
    bytes.reserve(kHeaderBytes + rowBytes * height);
    // Row by row through a short line: a long string would first be filled with zeros.
    std::string line(rowBytes, '\0');
    for (int row = picture.height - 1; row >= 0; --row) {
        putRow(picture.row(row), line.data());
        bytes += line;
    }
    return bytes;
}

Bitmap pictureOfUsualBitmap(std::string_view file) {
    if (file.size() < kHeaderBytes || !file.starts_with("BM"))
        return {};
    const auto number = [file](std::size_t at) { return takeLittle32(file.data() + at); };
    const std::uint32_t width = number(18);
    const std::uint32_t height = number(22);
    const bool usual = number(10) == kHeaderBytes && number(14) == kInfoHeaderBytes &&
                       number(26) == kOnePlaneOf24Bits && number(30) == kUncompressed &&
                       number(46) == kNoColorTable && number(50) == kNoColorTable;
    if (!usual || width - 1 >= kLongestSide || height - 1 >= kLongestSide)
        return {};
    const std::size_t rowBytes = bytesOfRow(width);
    if (file.size() < kHeaderBytes + rowBytes * height)
        return {};
    Bitmap picture(static_cast<int>(width), static_cast<int>(height));
    for (std::size_t row = 0; row < height; ++row)
        takeRow(file.data() + kHeaderBytes + (height - 1 - row) * rowBytes,
                picture.row(static_cast<int>(row)));
    return picture;
}

}  // namespace quillon
