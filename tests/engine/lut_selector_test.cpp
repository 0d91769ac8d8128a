#include "engine/lut_selector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace quillon {
namespace {

struct GivenColors {
    int column;
    std::array<PixelWord, 6> rows;
};

// What each scheme has at every sixteenth column, scheme by scheme from band 1.
constexpr std::array<GivenColors, 17> kGiven{{
    {0, {{0x070328, 0x000200, 0x17001A, 0x0A062B, 0x010000, 0x030000}}},
    {16, {{0x020262, 0x00009C, 0xD302FC, 0x6F0371, 0x1F1000, 0x260100}}},
    {32, {{0x1B027E, 0x0000D8, 0x8700FD, 0xEF00EA, 0x3D2001, 0x520101}}},
    {48, {{0x490097, 0x6700FC, 0x3300FF, 0x9C00E0, 0x5B2F00, 0x7B0000}}},
    {64, {{0x72009A, 0xB301FA, 0x001DFF, 0x2B00C0, 0x783D00, 0xA40000}}},
    {80, {{0xA0009A, 0xDF00F9, 0x006FFC, 0x004FC7, 0x854C00, 0xD00000}}},
    {96, {{0xBB0492, 0xF601E6, 0x00C2FD, 0x00BAEA, 0x8A5D00, 0xFA0100}}},
    {112, {{0xCF1A78, 0xFB00AC, 0x00FFEB, 0x00E5D2, 0x946C00, 0xFF1F01}}},
    {128, {{0xDE3836, 0xFA016B, 0x00FF93, 0x02A159, 0x9C7D00, 0xFF4700}}},
    {144, {{0xEA5409, 0xFB0029, 0x00FF46, 0x047100, 0xA48B00, 0xFE7000}}},
    {160, {{0xF06C00, 0xF93C00, 0x09FD00, 0x77B100, 0xAC9900, 0xFF9C00}}},
    {176, {{0xF88B00, 0xFB5E00, 0x5CFE00, 0xE8F200, 0xB3A900, 0xFDC400}}},
    {192, {{0xFCA600, 0xFA7C00, 0xADFF00, 0xEFAE02, 0xBDB800, 0xFEED00}}},
    {208, {{0xFEC501, 0xFC9C00, 0xFEFE03, 0xD43A00, 0xC8CA22, 0xFFFF1B}}},
    {224, {{0xFEDA0E, 0xFABB00, 0xFDA800, 0xD12729, 0xD6D75D, 0xFDFF58}}},
    {240, {{0xFFEE5D, 0xFBD900, 0xFC5300, 0xE27D7B, 0xE5E59B, 0xFDFF92}}},
    {255, {{0xFFF8CC, 0xF9F900, 0xF30400, 0xF9D2D3, 0xF4F5D6, 0xFEFFD4}}},
}};

PixelWord bandAt(const Bitmap& picture, int row, int column) {
    return picture.at(column, row * 10 + 5);
}

TEST(LutSelector, ThePictureIs256By70) {
    const Bitmap picture = lutSelectorPicture();
    EXPECT_EQ(picture.width, 256);
    EXPECT_EQ(picture.height, 70);
}

TEST(LutSelector, EverySchemeGoesThroughItsGivenColours) {
    const Bitmap picture = lutSelectorPicture();
    for (const GivenColors& given : kGiven) {
        for (int row = 1; row <= 6; ++row) {
            EXPECT_EQ(bandAt(picture, row, given.column),
                      given.rows[static_cast<std::size_t>(row) - 1])
                << "row " << row << ", column " << given.column;
        }
    }
}

TEST(LutSelector, BetweenTheGivenColumnsTheColourRunsStraight) {
    const Bitmap picture = lutSelectorPicture();
    for (std::size_t knot = 0; knot + 1 < kGiven.size(); ++knot) {
        const int first = kGiven[knot].column;
        const int second = kGiven[knot + 1].column;
        for (int row = 1; row <= 6; ++row) {
            for (int column = first; column <= second; ++column) {
                for (const int shift : {0, 8, 16}) {
                    const auto component = [&](int at) {
                        return bandAt(picture, row, at) >> shift & 0xFF;
                    };
                    const double way = static_cast<double>(column - first) / (second - first);
                    const double exact = std::lerp(component(first), component(second), way);
                    EXPECT_LE(std::abs(component(column) - exact), 0.5)
                        << "row " << row << ", column " << column << ", shift " << shift;
                }
            }
        }
    }
}

TEST(LutSelector, TheTopBandIsTheGreyRamp) {
    const Bitmap picture = lutSelectorPicture();
    for (int column = 0; column < 256; ++column) {
        EXPECT_EQ(bandAt(picture, 0, column), 0x010101 * column) << "column " << column;
    }
}

TEST(LutSelector, EveryBandIsUniformFromTopToBottom) {
    const Bitmap picture = lutSelectorPicture();
    for (int y = 0; y < picture.height; ++y) {
        EXPECT_TRUE(std::ranges::equal(picture.row(y), picture.row(y / 10 * 10 + 5)))
            << "line " << y;
    }
}

}  // namespace
}  // namespace quillon
