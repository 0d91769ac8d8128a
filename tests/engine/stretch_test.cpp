#include "engine/stretch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>

#include "tests/support/TextPicture.h"

namespace quillon {
namespace {

using Rows = std::vector<std::string>;

/// How much of the target pixel's length lies on the source pixel, in units of
/// the source pixel divided by the target's length; an axis that does not shrink
/// has the weight 1 on the pixel under the centre.
std::int64_t slowWeight(int sourceIndex, int targetIndex, int source, int target) {
    if (target >= source)
        return sourceIndex == (2 * targetIndex + 1) * source / (2 * target) ? 1 : 0;
    const int begin = std::max(sourceIndex * target, targetIndex * source);
    const int end = std::min((sourceIndex + 1) * target, (targetIndex + 1) * source);
    return std::max(end - begin, 0);
}

Bitmap slowStretched(const Bitmap& source, int width, int height) {
    Bitmap target(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            std::int64_t sums[3] = {};
            std::int64_t total = 0;
            for (int j = 0; j < source.height; ++j) {
                for (int i = 0; i < source.width; ++i) {
                    const std::int64_t weight = slowWeight(i, x, source.width, width) *
                                                slowWeight(j, y, source.height, height);
                    total += weight;
                    for (int byte = 0; byte < 3; ++byte)
                        sums[byte] += weight * (source.at(i, j) >> 8 * byte & 0xFF);
                }
            }
            for (int byte = 0; byte < 3; ++byte)
                target.at(x, y) |= static_cast<PixelWord>((2 * sums[byte] + total) / (2 * total))
                                   << 8 * byte;
        }
    }
    return target;
}

TEST(Stretch, TheSameSizeIsTheSamePicture) {
    const Bitmap picture = randomPicture(37, 23, 41);
    EXPECT_EQ(stretched(picture, 37, 23), picture);
}

TEST(Stretch, EnlargingKeepsPixelsSquare) {
    EXPECT_EQ(textOf(stretched(pictureOf({"RG", "B#"}), 6, 4)),
              (Rows{"RRRGGG", "RRRGGG", "BBB###", "BBB###"}));
}

TEST(Stretch, EnlargingTakesThePixelUnderTheCentre) {
    // The centres lie at 0.3, 0.9, 1.5, 2.1 and 2.7 pixels of the source.
    EXPECT_EQ(textOf(stretched(pictureOf({"RGB"}), 5, 1)), (Rows{"RRGBB"}));
}

TEST(Stretch, ReducingAveragesTheAreaAndRoundsHalfUp) {
    const auto reduced = [](const std::vector<PixelWord>& words, int width) {
        Bitmap picture(static_cast<int>(words.size()), 1);
        picture.words = words;
        return stretched(picture, width, 1).words;
    };
    EXPECT_EQ(reduced({0x000000, 0xFFFFFF}, 1), (std::vector<PixelWord>{0x808080}));
    EXPECT_EQ(reduced({0x010203, 0x010204}, 1), (std::vector<PixelWord>{0x010204}));
    EXPECT_EQ(reduced({0, 0, 0, 1}, 1), (std::vector<PixelWord>{0}));
    // Each of the two covers one and a half pixels: 1.5 of 30 and 60, 0.5 of 60.
    EXPECT_EQ(reduced({30, 60, 90}, 2), (std::vector<PixelWord>{40, 80}));
}

TEST(Stretch, AFineCheckerboardReducesToEvenGreyWithoutFalseFrequencies) {
    Bitmap board(512, 512);
    for (int y = 0; y < 512; ++y)
        for (int x = 0; x < 512; ++x)
            board.at(x, y) = (x + y) % 2 == 0 ? 0xFFFFFF : 0;
    EXPECT_EQ(stretched(board, 256, 256), Bitmap(256, 256, 0x808080));
}

TEST(Stretch, AnEvenPictureStaysAsItIs) {
    for (const auto& [width, height] : {std::pair{3, 5}, {100, 2}, {40, 90}})
        EXPECT_EQ(stretched(Bitmap(31, 47, 0xFEFDFB), width, height),
                  Bitmap(width, height, 0xFEFDFB));
}

TEST(Stretch, EachAxisIsStretchedByItself) {
    // Reduced across, enlarged downward.
    EXPECT_EQ(textOf(stretched(pictureOf({".#.#", "RRBB"}), 2, 4)), (Rows{"--", "--", "RB", "RB"}));
}

TEST(Stretch, EveryStretchIsTheSlowOne) {
    constexpr unsigned kSeed = 42;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<int> side(1, 24);
    for (int round = 0; round < 400; ++round) {
        const Bitmap source =
            randomPicture(side(random), side(random), static_cast<unsigned>(random()));
        const int width = side(random);
        const int height = side(random);
        ASSERT_EQ(stretched(source, width, height), slowStretched(source, width, height))
            << source.width << 'x' << source.height << " to " << width << 'x' << height;
    }
}

TEST(Stretch, APartIsWhatTheWholeShowsThere) {
    const Bitmap source = randomPicture(29, 31, 43);
    for (const auto& [width, height] : {std::pair{13, 11}, {60, 50}, {60, 11}, {29, 31}}) {
        const Bitmap whole = stretched(source, width, height);
        const Bitmap part = stretchedPart(source, width, height, {4, 3, 7, 8});
        ASSERT_EQ(part.width, 7);
        ASSERT_EQ(part.height, 8);
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 7; ++x)
                ASSERT_EQ(part.at(x, y), whole.at(x + 4, y + 3));
    }
}

TEST(Stretch, NothingStretchedIsNothing) {
    EXPECT_TRUE(stretched({}, 4, 4).empty());
    EXPECT_TRUE(stretched(Bitmap(4, 4), 0, 4).empty());
    EXPECT_TRUE(stretched(Bitmap(4, 4), 4, -1).empty());
}

TEST(Stretch, TheSumsOfALargeWhitePictureDoNotOverflow) {
    EXPECT_EQ(stretched(Bitmap(8000, 6000, 0xFFFFFF), 256, 256), Bitmap(256, 256, 0xFFFFFF));
    EXPECT_EQ(stretched(Bitmap(200'000, 3, 0xFFFFFF), 1, 1), Bitmap(1, 1, 0xFFFFFF));
}

}  // namespace
}  // namespace quillon
