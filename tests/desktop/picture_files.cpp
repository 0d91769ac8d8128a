#include "tests/desktop/picture_files.h"

namespace quillon {

namespace {

void little16(std::string& bytes, unsigned value) {
    bytes += static_cast<char>(value & 0xFF);
    bytes += static_cast<char>(value >> 8 & 0xFF);
}

void little32(std::string& bytes, unsigned value) {
    little16(bytes, value & 0xFFFF);
    little16(bytes, value >> 16);
}

void color(std::string& bytes, PixelWord word) {
    bytes += static_cast<char>(word & 0xFF);
    bytes += static_cast<char>(word >> 8 & 0xFF);
    bytes += static_cast<char>(word >> 16 & 0xFF);
}

std::string bmpFile(const std::string& header, const std::string& table,
                    const std::string& pixels) {
    std::string bytes = "BM";
    const auto before = static_cast<unsigned>(14 + header.size() + table.size());
    little32(bytes, before + static_cast<unsigned>(pixels.size()));
    little32(bytes, 0);
    little32(bytes, before);
    return bytes + header + table + pixels;
}

std::string bmpHeader(int width, int height, int bits, int compression, int colors, int size = 40) {
    std::string bytes;
    little32(bytes, static_cast<unsigned>(size));
    little32(bytes, static_cast<unsigned>(width));
    little32(bytes, static_cast<unsigned>(height));
    little16(bytes, 1);
    little16(bytes, static_cast<unsigned>(bits));
    little32(bytes, static_cast<unsigned>(compression));
    little32(bytes, 0);
    little32(bytes, 2835);
    little32(bytes, 2835);
    little32(bytes, static_cast<unsigned>(colors));
    little32(bytes, 0);
    return bytes;
}

std::string colorTable(const std::vector<PixelWord>& colors) {
    std::string bytes;
    for (const PixelWord word : colors) {
        color(bytes, word);
        bytes += '\0';
    }
    return bytes;
}

/// Codes of the GIF without any compression: each index as it is, with the
/// decoder's table emptied often enough that the codes stay three bits wide.
std::string gifCodes(const std::vector<int>& indices) {
    constexpr int kClear = 4;
    constexpr int kEnd = 5;
    constexpr int kCodeBits = 3;
    std::string data;
    unsigned pending = 0;
    int bits = 0;
    const auto put = [&](int code) {
        pending |= static_cast<unsigned>(code) << bits;
        for (bits += kCodeBits; bits >= 8; bits -= 8) {
            data += static_cast<char>(pending & 0xFF);
            pending >>= 8;
        }
    };
    for (std::size_t i = 0; i < indices.size(); ++i) {
        if (i % 2 == 0)
            put(kClear);
        put(indices[i]);
    }
    put(kEnd);
    if (bits > 0)
        data += static_cast<char>(pending & 0xFF);
    std::string blocks = "\x02";
    for (std::size_t at = 0; at < data.size(); at += 255) {
        const std::string block = data.substr(at, 255);
        blocks += static_cast<char>(block.size());
        blocks += block;
    }
    return blocks + '\0';
}

}  // namespace

std::string indexedBmp(int width, int height, int bits, const std::vector<int>& indices,
                       const std::vector<PixelWord>& colors) {
    std::string pixels;
    for (int y = height - 1; y >= 0; --y) {
        std::string row(static_cast<std::size_t>((width * bits + 31) / 32 * 4), '\0');
        for (int x = 0; x < width; ++x) {
            const int index = indices[static_cast<std::size_t>(y * width + x)];
            char& byte = row[static_cast<std::size_t>(x * bits / 8)];
            byte = static_cast<char>(byte | index << (8 - bits - x * bits % 8));
        }
        pixels += row;
    }
    return bmpFile(bmpHeader(width, height, bits, 0, static_cast<int>(colors.size())),
                   colorTable(colors), pixels);
}

std::string directBmp(const Bitmap& picture, int bits) {
    std::string pixels;
    for (int y = picture.height - 1; y >= 0; --y) {
        std::string row;
        for (const PixelWord word : picture.row(y)) {
            color(row, word);
            // What lies in the fourth byte has no meaning.
            if (bits == 32)
                row += '\x5A';
        }
        row.resize((row.size() + 3) / 4 * 4);
        pixels += row;
    }
    return bmpFile(bmpHeader(picture.width, picture.height, bits, 0, 0), "", pixels);
}

std::string alphaBmp(int width, int height, const std::vector<std::uint32_t>& argb) {
    constexpr int kBitFields = 3;
    std::string header = bmpHeader(width, height, 32, kBitFields, 0, 108);
    for (const unsigned mask : {0xFF0000U, 0xFF00U, 0xFFU, 0xFF000000U})
        little32(header, mask);
    header.resize(108);
    std::string pixels;
    for (int y = height - 1; y >= 0; --y)
        for (int x = 0; x < width; ++x)
            little32(pixels, argb[static_cast<std::size_t>(y * width + x)]);
    return bmpFile(header, "", pixels);
}

std::string runLengthBmp() {
    // Two rows of four, from below: four of colour 1; then 2, 0, 2 as they are
    // and one of colour 1.
    const std::string pixels{4, 1, 0, 0, 0, 3, 2, 0, 2, 0, 1, 1, 0, 0, 0, 1};
    constexpr int kRunLength8 = 1;
    return bmpFile(bmpHeader(4, 2, 8, kRunLength8, 3), colorTable({0x000000, 0xFF0000, 0x0000FF}),
                   pixels);
}

std::string gif(int width, int height, const std::vector<PixelWord>& colors,
                const std::vector<GifFrame>& frames) {
    std::string bytes = "GIF89a";
    little16(bytes, static_cast<unsigned>(width));
    little16(bytes, static_cast<unsigned>(height));
    bytes += '\xF1';
    bytes += std::string(2, '\0');
    for (std::size_t i = 0; i < 4; ++i) {
        const PixelWord word = i < colors.size() ? colors[i] : 0;
        bytes += static_cast<char>(word >> 16 & 0xFF);
        bytes += static_cast<char>(word >> 8 & 0xFF);
        bytes += static_cast<char>(word & 0xFF);
    }
    for (const GifFrame& frame : frames) {
        bytes += "\x21\xF9\x04";
        bytes += frame.transparent ? '\x09' : '\x04';
        little16(bytes, 10);
        bytes += '\x03';
        bytes += '\0';
        bytes += '\x2C';
        little32(bytes, 0);
        little16(bytes, static_cast<unsigned>(width));
        little16(bytes, static_cast<unsigned>(height));
        bytes += '\0';
        bytes += gifCodes(frame.indices);
    }
    return bytes + '\x3B';
}

std::string withOrientation(const std::string& jpeg, int orientation) {
    std::string tag("Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0", 25);
    tag += static_cast<char>(orientation);
    tag += std::string(6, '\0');
    std::string segment = "\xFF\xE1";
    segment += '\0';
    segment += static_cast<char>(tag.size() + 2);
    return jpeg.substr(0, 2) + segment + tag + jpeg.substr(2);
}

}  // namespace quillon
