#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <string>

#include "engine/NumberText.h"
#include "engine/mFFTUTIL.h"

namespace quillon {
namespace {

using Vector = std::array<Single, 3>;

constexpr double kDegree = 0.017453292519943278;
constexpr float kSingleEpsilon = std::numeric_limits<float>::epsilon();

TEST(Vectors, NormalizingGivesTheLengthOne) {
    Vector v{3, 0, 4};
    NormalizeVector(v, 0);
    EXPECT_EQ(v, (Vector{0.6F, 0, 0.8F}));
}

TEST(Vectors, NormalizingToALengthGivesThatLength) {
    Vector v{3, 4, 0};
    NormalizeVector(v, 10);
    EXPECT_EQ(v, (Vector{6, 8, 0}));
}

TEST(Vectors, ANegativeLengthTurnsTheVectorRound) {
    Vector v{3, 4, 0};
    NormalizeVector(v, -5);
    EXPECT_EQ(v, (Vector{-3, -4, 0}));
}

TEST(Vectors, AZeroVectorStaysZero) {
    Vector v{};
    NormalizeVector(v, 0);
    EXPECT_EQ(v, Vector{});
    NormalizeVector(v, 7);
    EXPECT_EQ(v, Vector{});
}

TEST(Vectors, TheAngleLeavesBothVectorsNormalized) {
    Vector a{0, 2, 0};
    Vector b{-5, 0, 0};
    EXPECT_NEAR(AngleBetween(a, b), std::numbers::pi / 2, kSingleEpsilon);
    EXPECT_EQ(a, (Vector{0, 1, 0}));
    EXPECT_EQ(b, (Vector{-1, 0, 0}));
}

TEST(Vectors, TheAngleHasNoSign) {
    Vector a{1, 0, 0};
    Vector b{1, 1, 0};
    const Single angle = AngleBetween(a, b);
    EXPECT_EQ(fixedText(angle / kDegree, 2), "45.00");
    EXPECT_EQ(AngleBetween(b, a), angle);
    Vector below{1, -1, 0};
    EXPECT_EQ(AngleBetween(a, below), angle);
}

TEST(Vectors, EqualVectorsAreAtNoAngleAndOppositeOnesAtAHalfTurn) {
    Vector a{3, 4, 0};
    Vector b{3, 4, 0};
    EXPECT_EQ(AngleBetween(a, b), 0.0F);
    Vector c{3, 4, 0};
    Vector opposite{-6, -8, 0};
    EXPECT_EQ(AngleBetween(c, opposite), 3.14159265358979F);
}

TEST(Vectors, MostParallelVectorsShowNoAngleAtAll) {
    int shown = 0;
    for (int x = 1; x < 256; ++x) {
        for (int y = 1; y < 256; ++y) {
            Vector a{static_cast<Single>(x), static_cast<Single>(y), 0};
            Vector b{static_cast<Single>(2 * x), static_cast<Single>(2 * y), 0};
            shown += fixedText(AngleBetween(a, b) / kDegree, 2) == "0.00" ? 0 : 1;
        }
    }
    // A sum of products in Double would show a hundredth of a degree for nearly half of them.
    EXPECT_LT(shown, 255 * 255 / 5);
}

TEST(Vectors, AZeroVectorNeedsNoGuardAndReadsAsARightAngle) {
    Vector zero{};
    Vector b{3, 4, 0};
    const Single angle = AngleBetween(zero, b);
    EXPECT_EQ(fixedText(angle / kDegree, 2), "90.00");
    EXPECT_EQ(zero, Vector{});
}

TEST(Vectors, AnglesAgreeWithTheTangentFormula) {
    constexpr unsigned kSeed = 4711;
    std::mt19937 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    std::uniform_int_distribution<int> component(-255, 255);
    for (int i = 0; i < 20000; ++i) {
        const double ax = component(random);
        const double ay = component(random);
        const double bx = component(random);
        const double by = component(random);
        if ((ax == 0 && ay == 0) || (bx == 0 && by == 0))
            continue;
        Vector a{static_cast<Single>(ax), static_cast<Single>(ay), 0};
        Vector b{static_cast<Single>(bx), static_cast<Single>(by), 0};
        const double expected = std::atan2(std::fabs(ax * by - ay * bx), ax * bx + ay * by);
        // Four components, two products and a sum are rounded; the arc cosine
        // magnifies that by the inverse sine, and near 0 and pi by a root.
        const double rounding = 4 * static_cast<double>(kSingleEpsilon);
        const double bound =
            std::min(std::sqrt(2 * rounding), rounding / std::max(std::sin(expected), 1e-9)) +
            expected * static_cast<double>(kSingleEpsilon);
        ASSERT_NEAR(AngleBetween(a, b), expected, bound)
            << ax << "," << ay << " " << bx << "," << by;
    }
}

TEST(ArcCos, CosinesBeyondOneCountAsOne) {
    EXPECT_EQ(ArcCos(1), 0);
    EXPECT_EQ(ArcCos(1.5), 0);
    EXPECT_EQ(ArcCos(-1), 3.14159265358979);
    EXPECT_EQ(ArcCos(-2), 3.14159265358979);
}

TEST(ArcCos, CosinesBetweenGiveTheirAngle) {
    EXPECT_EQ(ArcCos(0), 2 * std::atan(1.0));
    for (int i = -999; i < 1000; ++i) {
        const double x = i / 1000.0;
        EXPECT_NEAR(ArcCos(x), std::acos(x), 8 * std::numeric_limits<double>::epsilon()) << x;
    }
}

}  // namespace
}  // namespace quillon
