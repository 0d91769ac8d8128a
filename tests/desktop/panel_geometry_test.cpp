#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "desktop/PanelGeometry.h"

namespace quillon {
namespace {

constexpr QSize kWidget{258, 258};
constexpr QSize kSurface{256, 256};

PanelGeometry panelAt(QPointF corner, qreal ratio) {
    return PanelGeometry::of(corner, kWidget, ratio, kSurface, 1);
}

TEST(PanelGeometryRule, OnAPlainScreenAPanelPixelIsAPixelInsideTheBorder) {
    const PanelGeometry geometry = panelAt({10, 20}, 1);
    EXPECT_EQ(geometry.factor, 1);
    EXPECT_EQ(geometry.bitmap, QRect(11, 21, 256, 256));
    EXPECT_EQ(geometry.framed, QRect(10, 20, 258, 258));
}

TEST(PanelGeometryRule, OnADenseScreenAPanelPixelIsASquareOfPixels) {
    const PanelGeometry geometry = panelAt({20, 40}, 2);
    EXPECT_EQ(geometry.factor, 2);
    EXPECT_EQ(geometry.bitmap, QRect(22, 42, 512, 512));
    EXPECT_EQ(geometry.framed, QRect(20, 40, 516, 516));
}

TEST(PanelGeometryRule, AtAScaleInBetweenThePanelStandsInTheMiddleOfItsPlace) {
    const PanelGeometry geometry = panelAt({0, 0}, 1.5);
    EXPECT_EQ(geometry.factor, 1);
    // 387 pixels of room, 258 of them taken.
    EXPECT_EQ(geometry.framed, QRect(64, 64, 258, 258));
    EXPECT_EQ(panelAt({0, 0}, 2.5).factor, 2);
    EXPECT_EQ(panelAt({0, 0}, 0.5).factor, 1) << "never less than a pixel";
}

TEST(PanelGeometryRule, WithoutABorderTheBitmapFillsTheWidget) {
    const PanelGeometry geometry = PanelGeometry::of({5, 5}, {256, 70}, 1, {256, 70}, 0);
    EXPECT_EQ(geometry.bitmap, QRect(5, 5, 256, 70));
    EXPECT_EQ(geometry.framed, geometry.bitmap);
}

TEST(PanelGeometryRule, ABitmapTooLargeForItsPlaceBeginsAtTheCorner) {
    EXPECT_EQ(PanelGeometry::of({5, 5}, {10, 10}, 1, {30, 30}, 0).bitmap, QRect(5, 5, 30, 30));
    EXPECT_EQ(PanelGeometry::of({5, 5}, {10, 10}, 1, {0, 0}, 0).bitmap.width(), 0);
}

TEST(PanelGeometryRule, ThePanelPixelUnderAPointIsTheOneWhosePixelsHoldIt) {
    constexpr unsigned kSeed = 20240201;
    std::cout << "seed " << kSeed << '\n';
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<double> corner(0, 300);
    for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25, 3.0}) {
        for (int trial = 0; trial < 50; ++trial) {
            const PanelGeometry geometry = panelAt({corner(random), corner(random)}, ratio);
            const QPoint pixel(static_cast<int>(random() % 256), static_cast<int>(random() % 256));
            const QRect covered = geometry.devicePixels(pixel);
            EXPECT_EQ(covered.size(), QSize(geometry.factor, geometry.factor));
            EXPECT_TRUE(geometry.bitmap.contains(covered));
            for (const QPoint device : {covered.topLeft(), covered.bottomRight()}) {
                EXPECT_EQ(geometry.panelPixel(device), pixel);
                EXPECT_EQ(geometry.panelPixel(QPointF(device) + QPointF(0.99, 0.99)), pixel);
            }
        }
    }
}

TEST(PanelGeometryRule, OffTheBitmapTheCountGoesOn) {
    const PanelGeometry geometry = panelAt({0, 0}, 2);
    EXPECT_EQ(geometry.panelPixel({1.9, 2}), QPoint(-1, 0));
    EXPECT_EQ(geometry.panelPixel({-20, 600}), QPoint(-11, 299));
    EXPECT_EQ(geometry.panelPixel({514, 0}), QPoint(256, -1));
}

}  // namespace
}  // namespace quillon
