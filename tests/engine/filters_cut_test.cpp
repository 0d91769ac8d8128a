#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "engine/fourn.h"
#include "engine/spectrum_cut.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/flat_array.h"

namespace quillon {
namespace {

/// Test of one pixel against the filter in force, as it is told.
bool isCut(const clComplexImage& channel, Long x, Long y) {
    if (channel.bRing) {
        const double dx = x - static_cast<double>(channel.filter_xm);
        const double dy = y - static_cast<double>(channel.filter_ym);
        const auto d2 = static_cast<Single>(std::pow(dx, 2.0) + std::pow(dy, 2.0));
        const Single r2 = channel.filter_rad * channel.filter_rad;
        if ((channel.bLowpass && d2 >= r2) || (channel.bHighpass && d2 <= r2))
            return true;
    }
    if (channel.bMask)
        for (Integer i = 0; i < channel.nmask; ++i) {
            std::array<Single, 4> mask{};
            channel.GetMask(i, mask);
            const auto column = static_cast<Single>(x);
            const auto row = static_cast<Single>(y);
            if (mask[0] <= column && column <= mask[2] && mask[1] <= row && row <= mask[3])
                return true;
        }
    return false;
}

/// The real parts that come back when each cut cell is zeroed one by one.
std::vector<Single> slowReconstruction(const clComplexImage& channel) {
    std::vector<Single> data(kFlatLength);
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v) {
            data[realPart(u, v)] = channel.spectrum()(u, v).re / 65536.0F;
            data[imaginaryPart(u, v)] = channel.spectrum()(u, v).im / 65536.0F;
        }
    for (Long x = 0; x < 256; ++x)
        for (Long y = 0; y < 256; ++y)
            if (isCut(channel, x, y)) {
                const FtIndexCell cell = channel.spectrumIndex()(x, y);
                data[realPart(cell.u, cell.v)] = 0;
                data[imaginaryPart(cell.u, cell.v)] = 0;
            }
    const Long nn[] = {0, 256, 256};
    fourn(data, nn, 2, -1);
    std::vector<Single> reconstruction;
    for (Long y = 0; y < 256; ++y)
        for (Long x = 0; x < 256; ++x)
            reconstruction.push_back(data[realPart(x, y)]);
    return reconstruction;
}

class SpectrumFilter : public testing::Test {
protected:
    SpectrumFilter() {
        lab.show(scene);
        channel.CalculateAll();
    }

    std::vector<Single> reconstruction() const {
        std::vector<Single> values;
        for (Long y = 0; y < 256; ++y)
            for (Long x = 0; x < 256; ++x)
                values.push_back(channel.reconstruction()(x, y).re);
        return values;
    }

    void expectTheSlowCut() {
        channel.runFOURN(0);
        EXPECT_EQ(reconstruction(), slowReconstruction(channel));
    }

    double mean() const {
        double sum = 0;
        for (const Single value : reconstruction())
            sum += value;
        return sum / 65536;
    }

    ChannelUnderTest lab;
    clComplexImage& channel = lab.channel;
};

TEST_F(SpectrumFilter, ACircleCutsPixelByPixelOfThePanel) {
    for (const int mode : {2, 3})
        for (const Single radius : {0.0F, 0.5F, 0.70710677F, 0.7071068F, 5.0F, 12.5F, 20.0F, 90.5F,
                                    127.5F, 180.0F, 181.0F, 500.0F}) {
            SCOPED_TRACE(testing::Message() << "mode " << mode << ", radius " << radius);
            channel.SetFilterFT(static_cast<Integer>(mode));
            channel.SetFilterRad(radius);
            expectTheSlowCut();
        }
}

TEST_F(SpectrumFilter, APointOnTheCircleIsCutByBoth) {
    SpectrumCut low;
    low.addRing(RingSide::Outside, 127, 127, 25);
    SpectrumCut high;
    high.addRing(RingSide::Inside, 127, 127, 25);
    EXPECT_TRUE(low.contains(130, 131));
    EXPECT_TRUE(high.contains(130, 131));
    EXPECT_TRUE(low.contains(127, 122));
    EXPECT_TRUE(high.contains(127, 122));
    EXPECT_FALSE(low.contains(130, 130));
    EXPECT_TRUE(high.contains(130, 130));
    EXPECT_TRUE(low.contains(131, 131));
    EXPECT_FALSE(high.contains(131, 131));
    channel.SetFilterFT(2);
    channel.SetFilterRad(5);
    channel.filter_xm = channel.filter_ym = 127;
    expectTheSlowCut();
    channel.SetFilterFT(3);
    expectTheSlowCut();
}

TEST_F(SpectrumFilter, TheCircleIsRoundTheMiddleAndNotRoundTheZeroFrequency) {
    channel.SetFilterFT(2);
    channel.SetFilterRad(1);
    channel.runFOURN(0);
    // The four pixels round (127.5, 127.5) stay, the zero frequency among them.
    EXPECT_NEAR(mean(), channel.spectrum()(0, 0).re / 65536, 0.01);
    SpectrumCut cut;
    cut.addRing(RingSide::Outside, 127.5F, 127.5F, 1);
    for (Long x = 120; x < 136; ++x)
        for (Long y = 120; y < 136; ++y)
            EXPECT_EQ(cut.contains(x, y), !((x == 127 || x == 128) && (y == 127 || y == 128)));
}

TEST_F(SpectrumFilter, ALowPassOfNoRadiusCutsEverythingAndThePanelKeepsItsPicture) {
    const Bitmap before = lab.pb3.Image();
    channel.SetFilterFT(2);
    channel.SetFilterRad(0);
    lab.log.clear();
    channel.runFOURN(0);
    EXPECT_EQ(lab.pb3.Image(), before);
    EXPECT_EQ(lab.count("showNow pb3"), 0);
    for (const Single value : reconstruction())
        ASSERT_EQ(value, 0);
}

TEST_F(SpectrumFilter, AHighPassOfNoRadiusCutsNothing) {
    const std::vector<Single> whole = reconstruction();
    channel.SetFilterFT(3);
    channel.SetFilterRad(0);
    channel.runFOURN(0);
    EXPECT_EQ(reconstruction(), whole);
    // Unless a pixel lies exactly on the centre.
    channel.filter_xm = channel.filter_ym = 127;
    channel.runFOURN(0);
    EXPECT_NEAR(mean(), 0, 0.001);
}

TEST_F(SpectrumFilter, ARingWithoutASideCutsNothing) {
    const std::vector<Single> whole = reconstruction();
    channel.SetFilterRad(5);
    channel.bRing = true;
    channel.runFOURN(0);
    EXPECT_EQ(reconstruction(), whole);
}

TEST_F(SpectrumFilter, ASideWithoutTheRingCutsNothing) {
    const std::vector<Single> whole = reconstruction();
    channel.SetFilterRad(5);
    channel.bFilter = channel.bLowpass = true;
    channel.runFOURN(0);
    EXPECT_EQ(reconstruction(), whole);
}

TEST_F(SpectrumFilter, ARingAndMasksTogetherCutWhatEitherCuts) {
    channel.SetFilterFT(2);
    channel.SetFilterRad(30);
    channel.bMask = true;
    channel.AddMask(120, 100, 160, 125);
    expectTheSlowCut();
}

TEST_F(SpectrumFilter, ARadiusWhoseSquareOverflowsCountsAsNone) {
    channel.SetFilterFT(2);
    channel.SetFilterRad(1e30F);
    channel.runFOURN(0);
    for (const Single value : reconstruction())
        ASSERT_EQ(value, 0);
}

TEST_F(SpectrumFilter, ARectangleOverTheZeroFrequencyTakesTheMeanAway) {
    EXPECT_GT(mean(), 50);
    channel.SetFilterFT(4);
    channel.AddMask(127, 127, 127, 127);
    expectTheSlowCut();
    EXPECT_NEAR(mean(), 0, 0.001);
    channel.NoFilterFT();
    channel.runFOURN(0);
    EXPECT_GT(mean(), 50);
}

TEST_F(SpectrumFilter, AnEmptyMaskListCutsNothing) {
    const std::vector<Single> whole = reconstruction();
    channel.SetFilterFT(4);
    channel.runFOURN(0);
    EXPECT_EQ(reconstruction(), whole);
}

TEST_F(SpectrumFilter, AThousandRectanglesCutLikeTestsOfEveryPixel) {
    constexpr std::uint32_t kSeed = 4711;
    SCOPED_TRACE(testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    const auto coordinate = [&random] { return static_cast<Integer>(random() % 320) - 32; };
    channel.SetFilterFT(4);
    for (int i = 0; i < 1000; ++i) {
        const int x = coordinate();
        const int y = coordinate();
        channel.AddMask(static_cast<Integer>(x), static_cast<Integer>(y),
                        static_cast<Integer>(x + static_cast<int>(random() % 9) - 4),
                        static_cast<Integer>(y + static_cast<int>(random() % 9) - 4));
    }
    expectTheSlowCut();
}

TEST(SpectrumCutOfRectangles, OfAnyHeightIsThatOfTestsOfEveryPixel) {
    constexpr std::uint32_t kSeed = 815;
    SCOPED_TRACE(testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    const auto coordinate = [&random] {
        return static_cast<Integer>(static_cast<int>(random() % 320) - 32);
    };
    for (const std::size_t count : {1U, 1U, 2U, 3U, 5U, 20U}) {
        std::vector<MaskRectangle> rectangles(count);
        for (MaskRectangle& rectangle : rectangles) {
            const auto [left, right] = std::minmax({coordinate(), coordinate()});
            const auto [top, bottom] = std::minmax({coordinate(), coordinate()});
            rectangle = {left, top, right, bottom};
        }
        SpectrumCut cut;
        cut.addRectangles(rectangles);
        for (Long x = 0; x < 256; ++x)
            for (Long y = 0; y < 256; ++y)
                ASSERT_EQ(cut.contains(x, y), std::ranges::any_of(rectangles,
                                                                  [&](const MaskRectangle& r) {
                                                                      return r.left <= x &&
                                                                             x <= r.right &&
                                                                             r.top <= y &&
                                                                             y <= r.bottom;
                                                                  }))
                    << x << ", " << y;
    }
}

TEST(SpectrumCutOfRectangles, OfEveryHeightCutsEachOfItsRows) {
    for (Integer top = 0; top < 256; top = static_cast<Integer>(top + 17))
        for (Integer bottom = top; bottom < 256; ++bottom) {
            SpectrumCut cut;
            cut.addRectangles(std::array{MaskRectangle{9, top, 9, bottom}});
            for (Long y = 0; y < 256; ++y)
                ASSERT_EQ(cut.contains(9, y), top <= y && y <= bottom) << top << ".." << bottom;
        }
}

TEST(SpectrumCutOfARing, AnywhereIsThatOfTestsOfEveryPixel) {
    constexpr std::uint32_t kSeed = 816;
    SCOPED_TRACE(testing::Message() << "seed " << kSeed);
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<Single> place(-60, 316);
    std::uniform_real_distribution<Single> length(0, 300);
    constexpr Single kNone = std::numeric_limits<Single>::quiet_NaN();
    struct Circle {
        Single x, y, radius;
    };
    std::vector<Circle> circles = {{127.5F, 127.5F, 0}, {127, 127, 25},     {0, 0, 5},
                                   {255, 255, 5},       {-40, 300, 3},      {1e30F, 3, 9},
                                   {kNone, 3, 9},       {3, kNone, 9},      {127.5F, -1, 1},
                                   {64, 64, 1e18F},     {128, 1e-30F, 100}, {0.5F, 400, 300}};
    for (int i = 0; i < 30; ++i)
        circles.push_back({place(random), std::round(place(random)), length(random)});
    for (const Circle& circle : circles)
        for (const RingSide side : {RingSide::Outside, RingSide::Inside}) {
            const Single r2 = circle.radius * circle.radius;
            SpectrumCut cut;
            cut.addRing(side, circle.x, circle.y, r2);
            for (Long x = 0; x < 256; ++x)
                for (Long y = 0; y < 256; ++y) {
                    const double dx = x - static_cast<double>(circle.x);
                    const double dy = y - static_cast<double>(circle.y);
                    const auto d2 = static_cast<Single>(dx * dx + dy * dy);
                    ASSERT_EQ(cut.contains(x, y), side == RingSide::Outside ? d2 >= r2 : d2 <= r2)
                        << x << ", " << y << " of " << circle.x << ", " << circle.y << ", r "
                        << circle.radius;
                }
        }
}

/// A cut of many shapes, with its cells as the index tells them pixel by pixel.
void expectCellsOfTheIndex(const SpectrumIndex& index) {
    SpectrumCut cut;
    cut.addRing(RingSide::Inside, 40, 200, 900);
    cut.addRectangles(std::array{MaskRectangle{0, 0, 0, 255}, MaskRectangle{100, 50, 200, 130},
                                 MaskRectangle{255, 255, 255, 255}});
    CellBits expected{};
    for (Long x = 0; x < std::min(index.xBound() + 1, 256); ++x)
        for (Long y = 0; y < std::min(index.yBound() + 1, 256); ++y)
            if (cut.contains(x, y)) {
                const auto [u, v] = index(x, y);
                std::uint8_t& eight =
                    expected.at(static_cast<std::size_t>(v)).at(static_cast<std::size_t>(u) / 8);
                eight = static_cast<std::uint8_t>(eight | 1U << u % 8);
            }
    EXPECT_EQ(cut.cells(index), expected);
}

TEST(SpectrumCutCells, AreThoseThatTheIndexTells) {
    SpectrumIndex index;
    EXPECT_EQ(SpectrumCut().cells(index), CellBits{});
    expectCellsOfTheIndex(index);
    index.allocate(256, 256);
    expectCellsOfTheIndex(index);
    index.note(40000);
    expectCellsOfTheIndex(index);
    index.noteAll();
    expectCellsOfTheIndex(index);
    index.allocate(64, 32);
    index.noteAll();
    expectCellsOfTheIndex(index);
}

TEST_F(SpectrumFilter, RectanglesAtEveryEdgeOfAWordAndOfThePanelCutTheirBorders) {
    for (const Integer left : std::initializer_list<Integer>{-5, 0, 1, 63, 64, 127, 200, 255, 256})
        for (const Integer right :
             std::initializer_list<Integer>{-1, 0, 62, 63, 64, 128, 191, 192, 255, 300}) {
            if (left > right)
                continue;
            SCOPED_TRACE(testing::Message() << left << " to " << right);
            SpectrumCut cut;
            cut.addRectangles(std::array{MaskRectangle{left, 3, right, 250}});
            for (Long x = 0; x < 256; ++x) {
                ASSERT_EQ(cut.contains(x, 3), left <= x && x <= right);
                ASSERT_EQ(cut.contains(x, 250), left <= x && x <= right);
                ASSERT_FALSE(cut.contains(x, 2));
                ASSERT_FALSE(cut.contains(x, 251));
            }
        }
    SpectrumCut all;
    all.addRectangles(std::array{MaskRectangle{-100, -100, 1000, 1000}});
    EXPECT_TRUE(all.contains(0, 0));
    EXPECT_TRUE(all.contains(255, 255));
}

TEST_F(SpectrumFilter, OfASpectrumThatWasNotDrawnCutsOnlyItsZeroFrequency) {
    ChannelUnderTest fresh;
    fresh.show(scene);
    fresh.channel.SetFilterFT(2);
    fresh.channel.SetFilterRad(5);
    fresh.channel.bBatch = true;
    // With a view that shows nothing the index is there but all zero, so every
    // pixel stands for the zero frequency.
    fresh.channel.SetFTView(9, 1);
    fresh.channel.CalculateAll();
    double sum = 0;
    double size = 0;
    for (Long x = 0; x < 256; ++x)
        for (Long y = 0; y < 256; ++y) {
            sum += fresh.channel.reconstruction()(x, y).re;
            size += std::abs(fresh.channel.reconstruction()(x, y).re);
        }
    EXPECT_NEAR(sum / 65536, 0, 0.001);
    EXPECT_GT(size / 65536, 10) << "all other frequencies are still there";
}

TEST_F(SpectrumFilter, NeverShowsOnTheSpectrum) {
    const Bitmap before = lab.pb2.Image();
    channel.SetFilterFT(2);
    channel.SetFilterRad(5);
    channel.CalculateAll();
    EXPECT_EQ(lab.pb2.Image(), before);
    EXPECT_NE(lab.pb3.Image().words, std::vector<PixelWord>(65536, 0));
}

}  // namespace
}  // namespace quillon
