#include "tools/demonstrations/demonstrations.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quillon::demonstrations {
namespace {

const std::filesystem::path kSources(QUILLON_SOURCES);

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Every picture, those that are made of the photograph of a cup included.
std::vector<Demonstration> drawEverything() {
    std::vector<Demonstration> pictures = drawAll();
    const auto cup = pictureOfPgm(bytesOf(kSources / "assets" / "sources" / "cup.pgm"));
    EXPECT_TRUE(cup);
    if (cup)
        for (Demonstration& made : drawFromPhotograph(*cup))
            pictures.push_back(std::move(made));
    return pictures;
}

TEST(Demonstrations, ThePicturesThatAreDeliveredAreThoseThatAreDrawn) {
    for (const Demonstration& demonstration : drawEverything())
        EXPECT_TRUE(bytesOf(kSources / "Images" / demonstration.name) ==
                    bmpOf(demonstration.picture))
            << demonstration.name << " differs from what quillon-demonstrations draws";
}

TEST(Demonstrations, EveryBitmapThatIsDeliveredIsDrawn) {
    std::set<std::string> drawn;
    for (const Demonstration& demonstration : drawEverything())
        EXPECT_TRUE(drawn.insert(demonstration.name).second) << demonstration.name << " twice";
    for (const auto& entry : std::filesystem::directory_iterator(kSources / "Images")) {
        if (entry.path().extension() != ".bmp")
            continue;
        EXPECT_TRUE(drawn.contains(entry.path().filename().string())) << entry.path();
    }
    EXPECT_GE(drawn.size(), 15U);
}

TEST(Demonstrations, ValuesAreRoundedToGreysAndCutOff) {
    EXPECT_EQ(greyOf(-3), 0);
    EXPECT_EQ(greyOf(127.4), 127);
    EXPECT_EQ(greyOf(127.5), 128);
    EXPECT_EQ(greyOf(300), 255);
}

TEST(Demonstrations, ASmoothPixelIsTheMeanOverItsArea) {
    const GreyPicture half = drawnSmooth([](double x, double) { return x < 10 ? 0.0 : 200.0; });
    EXPECT_EQ(half.at(9, 0), 0);
    EXPECT_EQ(half.at(10, 0), 100) << "the pixel reaches from 9.5 to 10.5";
    EXPECT_EQ(half.at(11, 0), 200);
}

TEST(Demonstrations, OnlyAGreyPictureOfTheRightSizeIsReadFromAPgmFile) {
    const std::string head = "P5\n256 256\n255\n";
    std::string bytes = head + std::string(65536, '\x09');
    bytes[head.size() + 256] = '\x63';
    const auto picture = pictureOfPgm(bytes);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->at(0, 1), 0x63) << "rows from the top";
    EXPECT_EQ(picture->at(1, 1), 9);
    EXPECT_FALSE(pictureOfPgm(""));
    EXPECT_FALSE(pictureOfPgm(head + std::string(65535, '\x09')));
    EXPECT_FALSE(pictureOfPgm("P5\n255 256\n255\n" + std::string(65536, '\x09')));
}

TEST(Demonstrations, ABitmapHoldsItsRowsFromTheLowestUpward) {
    const std::string bytes = bmpOf(drawn([](int x, int y) { return y == 0 ? 255.0 - x : 7.0; }));
    ASSERT_EQ(bytes.size(), 54U + 1024U + 65536U);
    EXPECT_EQ(bytes.substr(0, 2), "BM");
    EXPECT_EQ(bytes[1078], 7) << "the lowest row comes first";
    EXPECT_EQ(static_cast<unsigned char>(bytes[bytes.size() - 256]), 255) << "the highest last";
    EXPECT_EQ(static_cast<unsigned char>(bytes[54 + 4 * 9]), 9) << "entry 9 of the table is grey 9";
}

}  // namespace
}  // namespace quillon::demonstrations
