#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillon::demonstrations {

/// The side of every demonstration picture, that of a panel, so that a panel
/// shows the picture pixel for pixel.
inline constexpr int kSide = 256;

/// A grey picture of 256 by 256 bytes, 0 black to 255 white, rows from the top.
class GreyPicture {
public:
    std::uint8_t& at(int x, int y) { return greys_[indexOf(x, y)]; }
    std::uint8_t at(int x, int y) const { return greys_[indexOf(x, y)]; }

private:
    static std::size_t indexOf(int x, int y) {
        return static_cast<std::size_t>(y) * kSide + static_cast<std::size_t>(x);
    }
    std::vector<std::uint8_t> greys_ = std::vector<std::uint8_t>(kSide * kSide, 0);
};

/// The nearest grey of a value on the scale 0 to 255, cut off at both ends.
std::uint8_t greyOf(double value);

/// A picture from a function of the pixel that gives values on the scale 0 to 255.
template <class Function>
GreyPicture drawn(Function value) {
    GreyPicture picture;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            picture.at(x, y) = greyOf(value(x, y));
    return picture;
}

/// As drawn, but each pixel is the mean of 8 by 8 points spread over it, so that
/// slanting and round edges are smooth. The function takes the point, pixel
/// (x, y) reaching from x - 0.5 to x + 0.5.
template <class Function>
GreyPicture drawnSmooth(Function value) {
    constexpr int kPoints = 8;
    return drawn([&](int x, int y) {
        double sum = 0;
        for (int i = 0; i < kPoints; ++i)
            for (int j = 0; j < kPoints; ++j)
                sum += value(x + (i + 0.5) / kPoints - 0.5, y + (j + 0.5) / kPoints - 0.5);
        return sum / (kPoints * kPoints);
    });
}

/// The bytes of a BMP file of 8 bits a pixel with the ramp of greys as its table.
std::string bmpOf(const GreyPicture& picture);

/// The picture in the bytes of a PGM file (P5) of 256 by 256 bytes without a
/// comment; none if they are anything else.
std::optional<GreyPicture> pictureOfPgm(const std::string& bytes);

}  // namespace quillon::demonstrations
