#include "desktop/whole_picture.h"

#include <cstdint>
#include <cstdlib>

namespace quillon {

namespace {

/// Reads forward through bytes; past the end every byte is 0 and `ended` is true.
class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) noexcept : bytes_(bytes) {}

    bool ended() const noexcept { return ended_; }
    std::uint32_t byte() noexcept {
        if (at_ >= bytes_.size()) {
            ended_ = true;
            return 0;
        }
        return static_cast<unsigned char>(bytes_[at_++]);
    }
    void skip(std::uint64_t count) noexcept {
        if (count > bytes_.size() - at_) {
            at_ = bytes_.size();
            ended_ = true;
        } else {
            at_ += count;
        }
    }
    std::uint32_t little16() noexcept {
        const std::uint32_t low = byte();
        return low | byte() << 8;
    }
    std::uint32_t little32() noexcept {
        const std::uint32_t low = little16();
        return low | little16() << 16;
    }
    std::uint32_t big16() noexcept {
        const std::uint32_t high = byte();
        return high << 8 | byte();
    }

private:
    std::string_view bytes_;
    std::size_t at_ = 0;
    bool ended_ = false;
};

/// The marker that ends a run of coded data; a 0xFF in the data is followed by 0
/// or is a restart marker.
std::uint32_t skipCodedData(ByteReader& reader) noexcept {
    while (!reader.ended()) {
        if (reader.byte() != 0xFF)
            continue;
        std::uint32_t marker = reader.byte();
        while (marker == 0xFF)
            marker = reader.byte();
        if (marker != 0 && (marker < 0xD0 || marker > 0xD7))
            return marker;
    }
    return 0;
}

bool isWholeJpeg(ByteReader reader) noexcept {
    constexpr std::uint32_t kEndOfImage = 0xD9;
    reader.skip(2);
    // What stands between two segments is passed over like coded data.
    std::uint32_t marker = skipCodedData(reader);
    while (!reader.ended() && marker != kEndOfImage) {
        const std::uint32_t length = reader.big16();
        if (length < 2)
            return false;
        reader.skip(length - 2);
        marker = skipCodedData(reader);
    }
    return !reader.ended();
}

/// Blocks of up to 255 bytes, each after its length, up to one of length 0.
void skipBlocks(ByteReader& reader) noexcept {
    while (const std::uint32_t length = reader.byte())
        reader.skip(length);
}

/// Bytes of a colour table whose flags hold its presence and size.
std::uint32_t colorTableBytes(std::uint32_t flags) noexcept {
    return (flags & 0x80) != 0 ? 3U << ((flags & 7) + 1) : 0;
}

bool isWholeGif(ByteReader reader) noexcept {
    constexpr std::uint32_t kImage = 0x2C;
    constexpr std::uint32_t kExtension = 0x21;
    reader.skip(10);
    const std::uint32_t screenFlags = reader.byte();
    reader.skip(2 + colorTableBytes(screenFlags));
    while (!reader.ended()) {
        const std::uint32_t kind = reader.byte();
        if (kind == kExtension) {
            reader.skip(1);
            skipBlocks(reader);
        } else if (kind == kImage) {
            reader.skip(8);
            const std::uint32_t imageFlags = reader.byte();
            // One byte more than the table: the size of the first codes.
            reader.skip(colorTableBytes(imageFlags) + 1);
            skipBlocks(reader);
            return !reader.ended();
        } else {
            return false;
        }
    }
    return false;
}

struct BitmapHeader {
    std::uint64_t width = 0;
    std::uint64_t height = 0;
    std::uint64_t bitsPerPixel = 0;
    std::uint32_t compression = 0;
};

constexpr std::uint32_t kRunLength8 = 1;
constexpr std::uint32_t kRunLength4 = 2;

BitmapHeader readBitmapHeader(ByteReader& reader) noexcept {
    constexpr std::uint32_t kOldestHeaderSize = 12;
    BitmapHeader header;
    if (reader.little32() == kOldestHeaderSize) {
        header.width = reader.little16();
        header.height = reader.little16();
        reader.skip(2);
        header.bitsPerPixel = reader.little16();
    } else {
        header.width = reader.little32();
        // A negative height only says that the rows come from the top.
        header.height = static_cast<std::uint64_t>(
            std::abs(static_cast<std::int64_t>(static_cast<std::int32_t>(reader.little32()))));
        reader.skip(2);
        header.bitsPerPixel = reader.little16();
        header.compression = reader.little32();
    }
    return header;
}

/// Runs are pairs of bytes up to the pair 0, 1. The pair 0, n is followed by n
/// pixels as they are, filled up to an even number of bytes; 0, 2 by a step.
bool runsEnd(ByteReader reader, std::uint32_t compression) noexcept {
    while (!reader.ended()) {
        if (reader.byte() != 0) {
            reader.skip(1);
            continue;
        }
        const std::uint32_t code = reader.byte();
        if (code == 1)
            return !reader.ended();
        const std::uint32_t codeBytes = compression == kRunLength8 ? code : (code + 1) / 2;
        reader.skip(code == 2 ? 2 : (codeBytes + 1) / 2 * 2);
    }
    return false;
}

bool isWholeBitmap(std::string_view bytes) noexcept {
    ByteReader reader(bytes);
    reader.skip(10);
    const std::uint32_t pixelsAt = reader.little32();
    const BitmapHeader header = readBitmapHeader(reader);
    if (reader.ended() || header.width > INT32_MAX || pixelsAt > bytes.size())
        return false;
    const std::string_view pixels = bytes.substr(pixelsAt);
    if (header.compression == kRunLength8 || header.compression == kRunLength4)
        return runsEnd(ByteReader(pixels), header.compression);
    const std::uint64_t rowBytes = (header.width * header.bitsPerPixel + 31) / 32 * 4;
    return rowBytes * header.height <= pixels.size();
}

}  // namespace

bool isWholePicture(std::string_view bytes) noexcept {
    if (bytes.starts_with("BM"))
        return isWholeBitmap(bytes);
    if (bytes.starts_with("GIF8"))
        return isWholeGif(ByteReader(bytes));
    if (bytes.starts_with("\xFF\xD8"))
        return isWholeJpeg(ByteReader(bytes));
    return false;
}

}  // namespace quillon
