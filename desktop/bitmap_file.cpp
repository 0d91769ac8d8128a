#include "desktop/bitmap_file.h"

#include <cstdint>

namespace quillon {

namespace {

constexpr std::size_t kHeaderBytes = 54;
constexpr std::uint32_t kInfoHeaderBytes = 40;
constexpr std::uint32_t kOnePlaneOf24Bits = 24U << 16 | 1U;
constexpr std::uint32_t kUncompressed = 0;
constexpr std::uint32_t kDotsPerMetre = 3780;
constexpr std::uint32_t kNoColorTable = 0;

/// Lowest byte first.
void appendLittle32(std::string& bytes, std::uint32_t number) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(number >> shift & 0xFFU);
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
    const std::size_t rowBytes = (static_cast<std::size_t>(picture.width) * 3 + 3) / 4 * 4;
    std::string bytes =
        header(static_cast<std::uint32_t>(picture.width), static_cast<std::uint32_t>(height),
               static_cast<std::uint32_t>(rowBytes * height));
    bytes.resize(kHeaderBytes + rowBytes * height);
    for (std::size_t row = 0; row < height; ++row) {
        char* byte = bytes.data() + kHeaderBytes + (height - 1 - row) * rowBytes;
        for (const PixelWord word : picture.row(static_cast<int>(row))) {
            byte[0] = static_cast<char>(word);
            byte[1] = static_cast<char>(word >> 8);
            byte[2] = static_cast<char>(word >> 16);
            byte += 3;
        }
    }
    return bytes;
}

}  // namespace quillon
