#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "tools/demonstrations/demonstrations.h"

// The properties of the pictures on which their lessons build.

namespace quillon::demonstrations {
namespace {

GreyPicture named(const std::vector<Demonstration>& pictures, const std::string& name) {
    const auto found = std::find_if(pictures.begin(), pictures.end(),
                                    [&](const Demonstration& one) { return one.name == name; });
    EXPECT_NE(found, pictures.end()) << name;
    return found == pictures.end() ? GreyPicture() : found->picture;
}

GreyPicture named(const std::string& name) {
    static const std::vector<Demonstration> pictures = drawAll();
    return named(pictures, name);
}

int around(const GreyPicture& picture, int x, int y) {
    return picture.at((x + 2 * kSide) % kSide, (y + 2 * kSide) % kSide);
}

template <class Act>
void forEachPixel(Act act) {
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            act(x, y);
}

/// The area that is lit, in whole pixels' worth, between the two greys.
double litArea(const GreyPicture& picture, double dark, double light) {
    double sum = 0;
    forEachPixel([&](int x, int y) { sum += (picture.at(x, y) - dark) / (light - dark); });
    return sum;
}

void expectLattice(const std::string& name, int ax, int ay, int bx, int by) {
    const GreyPicture picture = named(name);
    int points = 0;
    forEachPixel([&](int x, int y) {
        points += picture.at(x, y) == 255 ? 1 : 0;
        ASSERT_EQ(picture.at(x, y), around(picture, x + ax, y + ay)) << name << x << ',' << y;
        ASSERT_EQ(picture.at(x, y), around(picture, x + bx, y + by)) << name << x << ',' << y;
    });
    EXPECT_EQ(points, kSide * kSide / std::abs(ax * by - ay * bx)) << name;
    EXPECT_EQ(picture.at(0, 0), 255) << name;
}

TEST(LessonPictures, LatticesMeetThemselvesAcrossTheBorders) {
    expectLattice("lattice-rectangular.bmp", 32, 0, 0, 8);
    expectLattice("lattice-oblique.bmp", 16, 0, 8, 16);
    expectLattice("lattice-of-fish.bmp", 32, 0, 16, 32);
}

TEST(LessonPictures, TheFishFitsBetweenThePointsOfItsLattice) {
    const GreyPicture fish = named("fish.bmp");
    forEachPixel([&](int x, int y) {
        const bool isInCell = std::abs(x - 128) < 16 && std::abs(y - 128) < 16;
        ASSERT_TRUE(isInCell || fish.at(x, y) == 0) << x << ',' << y;
    });
    EXPECT_EQ(fish.at(128, 128), 255);
    EXPECT_LT(fish.at(121, 127), 128) << "the eye";
}

TEST(LessonPictures, StarsHaveTheAreaOfTheirOutline) {
    const auto area = [](int points, double outer, double inner) {
        return points * outer * inner * std::sin(std::numbers::pi / points);
    };
    EXPECT_NEAR(litArea(named("triangle.bmp"), 40, 215), area(3, 72, 36), 10);
    EXPECT_NEAR(litArea(named("star.bmp"), 40, 215), area(5, 72, 28), 10);
    const GreyPicture star = named("star.bmp");
    EXPECT_EQ(star.at(128, 60), 215) << "a point stands upward";
    EXPECT_EQ(star.at(128, 188), 40);
}

TEST(LessonPictures, TheTurnedLetterIsAsLargeAsTheUprightOne) {
    const double upright = litArea(named("letter.bmp"), 40, 215);
    EXPECT_NEAR(upright, 20 * 96 + 40 * 20 + 28 * 20, 4) << "edges are whole greys";
    EXPECT_NEAR(litArea(named("letter-turned.bmp"), 40, 215), upright, 10);
}

TEST(LessonPictures, TheCornerDiscIsEvenAndThePairOddAboutItsMean) {
    const GreyPicture disc = named("corner-disc.bmp");
    const GreyPicture pair = named("corner-pair.bmp");
    forEachPixel([&](int x, int y) {
        ASSERT_EQ(disc.at(x, y), around(disc, -x, -y)) << x << ',' << y;
        ASSERT_EQ(pair.at(x, y) - 128, 128 - around(pair, -x, -y)) << x << ',' << y;
    });
    EXPECT_EQ(disc.at(0, 0), 255);
    EXPECT_EQ(pair.at(14, 0), 228);
}

TEST(LessonPictures, SamplingKeepsOnePixelOfSixteen) {
    const GreyPicture rings = named("rings.bmp");
    const GreyPicture sampled = named("rings-sampled.bmp");
    forEachPixel([&](int x, int y) {
        ASSERT_EQ(sampled.at(x, y), x % 4 == 0 && y % 4 == 0 ? rings.at(x, y) : 0) << x << ',' << y;
    });
}

TEST(LessonPictures, TheGreyBandsHaveTheWidthsThatTheHistogramShows) {
    const GreyPicture bands = named("grey-bands.bmp");
    std::array<int, 256> columns{};
    for (int x = 0; x < kSide; ++x)
        ++columns[bands.at(x, 100)];
    EXPECT_EQ(columns[40], 16);
    EXPECT_EQ(columns[80], 32);
    EXPECT_EQ(columns[120], 64);
    EXPECT_EQ(columns[160], 96);
    EXPECT_EQ(columns[200], 48);
}

/// A stand-in for the photograph: a slope with a bright block.
GreyPicture sketch() {
    return drawn([](int x, int y) {
        return x >= 100 && x < 140 && y >= 60 && y < 90 ? 250.0 : 60.0 + x / 4.0 + y / 8.0;
    });
}

TEST(ChangedPhotographs, ThePictureTakenTwiceIsTheWeightedSumOfBothExposures) {
    const GreyPicture cup = sketch();
    const auto pictures = drawFromPhotograph(cup);
    const GreyPicture dots = named(pictures, "two-dots.bmp");
    const GreyPicture twice = named(pictures, "cup-twice.bmp");
    EXPECT_EQ(dots.at(0, 0), 255);
    EXPECT_EQ(dots.at(28, 12), 153);
    forEachPixel([&](int x, int y) {
        ASSERT_NEAR(twice.at(x, y),
                    (255 * around(cup, x, y) + 153 * around(cup, x - 28, y - 12)) / 408.0, 0.5001)
            << x << ',' << y;
    });
}

TEST(ChangedPhotographs, TheStripesAreAWaveWithItsOvertone) {
    const GreyPicture cup = sketch();
    const GreyPicture striped = named(drawFromPhotograph(cup), "cup-striped.bmp");
    double wave = 0, overtone = 0;
    forEachPixel([&](int x, int y) {
        const double added = striped.at(x, y) - (40 + cup.at(x, y) * 175 / 255.0);
        const double turn = 2 * std::numbers::pi * (36 * x + 20 * y) / kSide;
        wave += added * std::cos(turn) * 2 / (kSide * kSide);
        overtone += added * std::cos(2 * turn) * 2 / (kSide * kSide);
    });
    EXPECT_NEAR(wave, 28, 0.2);
    EXPECT_NEAR(overtone, 10, 0.2);
}

TEST(ChangedPhotographs, TheGrainHasTheSpreadOfTwentyFiveGreys) {
    const GreyPicture even = drawn([](int, int) { return 128; });
    const GreyPicture noisy = named(drawFromPhotograph(even), "cup-noisy.bmp");
    double sum = 0, squares = 0;
    forEachPixel([&](int x, int y) {
        const double error = noisy.at(x, y) - (40 + 128 * 175 / 255.0);
        sum += error;
        squares += error * error;
    });
    constexpr double kPixels = kSide * kSide;
    EXPECT_NEAR(sum / kPixels, 0, 0.5);
    EXPECT_NEAR(std::sqrt(squares / kPixels), 25, 0.5);
}

TEST(ChangedPhotographs, BlurKeepsEvenGreysAndRoundsOffAnEdge) {
    const GreyPicture half = drawn([](int x, int) { return x < 128 ? 0.0 : 200.0; });
    const GreyPicture blurred = named(drawFromPhotograph(half), "cup-blurred.bmp");
    EXPECT_EQ(blurred.at(60, 60), 0);
    EXPECT_EQ(blurred.at(200, 60), 200);
    EXPECT_EQ(blurred.at(120, 60), 0) << "the spot reaches less than five pixels";
    EXPECT_GT(blurred.at(126, 60), 20);
    EXPECT_LT(blurred.at(128, 60), 180);
}

TEST(ChangedPhotographs, AFileThatIsNoPictureOfPanelSizeIsRefused) {
    const std::string head = "P5\n256 256\n255\n";
    std::string bytes = head + std::string(65536, 'a');
    ASSERT_TRUE(pictureOfPgm(bytes));
    EXPECT_EQ(pictureOfPgm(bytes)->at(255, 255), 'a');
    EXPECT_FALSE(pictureOfPgm(bytes + 'a'));
    bytes.pop_back();
    EXPECT_FALSE(pictureOfPgm(bytes));
    EXPECT_FALSE(pictureOfPgm("P5\n# made by hand\n256 256\n255\n" + std::string(65536, 'a')));
    EXPECT_FALSE(pictureOfPgm(""));
}

TEST(ChangedPhotographs, RowsOfAFileAreReadFromTheTop) {
    std::string pixels(65536, '\0');
    pixels[1] = 'b';
    pixels[256] = 'c';
    const auto picture = pictureOfPgm("P5\n256 256\n255\n" + pixels);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->at(1, 0), 'b');
    EXPECT_EQ(picture->at(0, 1), 'c');
}

}  // namespace
}  // namespace quillon::demonstrations
