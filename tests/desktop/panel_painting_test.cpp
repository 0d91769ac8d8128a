#include <gtest/gtest.h>

#include <QPainter>
#include <QPixmap>
#include <random>

#include "desktop/Conversions.h"
#include "desktop/PanelWidget.h"

namespace quillon {
namespace {

PixelWord wordAt(const QImage& image, QPoint at) {
    return static_cast<PixelWord>(image.pixel(at) & 0xFFFFFFU);
}

/// A panel of 16 by 16 pixels with a border, filled with noise, in a widget of
/// its own size on a ground of its own.
class PaintedPanel : public ::testing::Test {
protected:
    PaintedPanel() {
        std::cout << "seed " << kSeed << '\n';
        std::mt19937 random(kSeed);
        for (PixelWord& word : panel.bits())
            word = static_cast<PixelWord>(random() & 0xFFFFFF);
        widget.resize(18, 18);
    }

    /// What a screen of the given scale shows, with the widget at a corner in
    /// pixels of the window.
    QImage painted(double ratio, QPoint corner = {}) {
        const QSize room(60, 60);
        QImage image(room * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(kAround);
        widget.render(&image, corner, QRegion(), QWidget::RenderFlags());
        return image;
    }
    PanelGeometry geometryAt(double ratio, QPoint corner) const {
        return PanelGeometry::of(QPointF(corner) * ratio, widget.size(), ratio, {16, 16}, 1);
    }
    /// Every device pixel of the bitmap has the word of its panel pixel.
    void expectExact(const QImage& image, const PanelGeometry& geometry) {
        const QRect area = geometry.bitmap;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x) {
                const QPoint at = geometry.panelPixel(QPointF(x, y));
                ASSERT_EQ(wordAt(image, {x, y}), panel.shown().at(at.x(), at.y()))
                    << x << ", " << y;
            }
    }

    static constexpr unsigned kSeed = 20240202;
    static constexpr QColor kAround{1, 2, 3};
    PictureBox panel{"pb2", 18 * 15.F, 18 * 15.F, 1};
    PanelWidget widget{panel, nullptr};
};

TEST_F(PaintedPanel, ShowsTheBitmapsWordsAsTheyAreInsideABorderOfOnePixel) {
    const QImage image = painted(1);
    expectExact(image, geometryAt(1, {}));
    for (int i = 0; i < 18; ++i) {
        EXPECT_EQ(wordAt(image, {i, 0}), 0);
        EXPECT_EQ(wordAt(image, {0, i}), 0);
        EXPECT_EQ(wordAt(image, {i, 17}), 0);
        EXPECT_EQ(wordAt(image, {17, i}), 0);
    }
}

TEST_F(PaintedPanel, CoversAWholeNumberOfPixelsOfTheScreenAtEveryScale) {
    for (const double ratio : {1.25, 1.5, 1.75, 2.0, 2.25, 2.5, 3.0})
        for (const QPoint corner : {QPoint(0, 0), QPoint(7, 13), QPoint(5, 2)}) {
            SCOPED_TRACE(testing::Message() << ratio << " at " << corner.x() << ", " << corner.y());
            expectExact(painted(ratio, corner), geometryAt(ratio, corner));
        }
}

TEST_F(PaintedPanel, ShowsTheScreenLayerWhileThereIsOne) {
    panel.setAutoRedraw(false);
    panel.Box(2, 2, 9, 9, RGB(250, 0, 0), BoxStyle::Filled);
    ASSERT_NE(panel.shown(), panel.Image());
    expectExact(painted(1), geometryAt(1, {}));
    panel.Refresh();
    ASSERT_EQ(panel.shown(), panel.Image());
    expectExact(painted(1), geometryAt(1, {}));
}

TEST_F(PaintedPanel, AProfileLineIsTheExclusiveOrOfItsRow) {
    LineControl line("Line1(0)");
    line.X1 = 0;
    line.X2 = 16;
    line.Y1 = 5;
    line.Y2 = 5;
    widget.addLine(line);
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const PanelGeometry geometry = geometryAt(ratio, {});
        const QImage image = painted(ratio);
        for (int x = 0; x < 16; ++x) {
            EXPECT_EQ(wordAt(image, geometry.devicePixels({x, 5}).bottomRight()),
                      panel.Image().at(x, 5) ^ 0xFFFFFF);
            EXPECT_EQ(wordAt(image, geometry.devicePixels({x, 6}).topLeft()),
                      panel.Image().at(x, 6));
        }
    }
    line.Visible = false;
    expectExact(painted(1), geometryAt(1, {}));
}

TEST_F(PaintedPanel, ALineBeyondTheEdgeIsCutOff) {
    LineControl line("Line1(0)");
    line.X1 = -5;
    line.X2 = 40;
    line.Y1 = 40;
    line.Y2 = 40;
    widget.addLine(line);
    expectExact(painted(1), geometryAt(1, {}));
}

TEST_F(PaintedPanel, ARingIsARedLineAroundItsBox) {
    Shape ring("shp1(0)");
    ring.Left = 2.5F;
    ring.Top = 2.5F;
    ring.Width = 11;
    ring.Height = 11;
    widget.addShape(ring);
    const QImage image = painted(2);
    const PanelGeometry geometry = geometryAt(2, {});
    // The middle of each side: the line's pixels are half of two panel pixels.
    const auto isRed = [&](QPoint device) {
        const PixelWord word = wordAt(image, device);
        return word >> 16 > 200 && (word & 0xFFFF) == 0;
    };
    EXPECT_TRUE(isRed(geometry.devicePixels({8, 3}).topLeft()));
    EXPECT_TRUE(isRed(geometry.devicePixels({3, 8}).topLeft()));
    EXPECT_TRUE(isRed(geometry.devicePixels({8, 12}).bottomRight()));
    EXPECT_TRUE(isRed(geometry.devicePixels({12, 8}).bottomRight()));
    EXPECT_EQ(wordAt(image, geometry.devicePixels({8, 8}).topLeft()), panel.Image().at(8, 8));
    EXPECT_EQ(wordAt(image, geometry.devicePixels({1, 1}).topLeft()), panel.Image().at(1, 1));
    EXPECT_EQ(panel.shown(), panel.Image()) << "a ring is never in the bitmap";
}

TEST_F(PaintedPanel, ASolidDiscHidesWhatLiesUnderIt) {
    Shape disc("shp1(0)");
    disc.Left = 2.5F;
    disc.Top = 2.5F;
    disc.Width = 11;
    disc.Height = 11;
    disc.FillStyle = 0;
    disc.FillColor = kBlack;
    widget.addShape(disc);
    const QImage image = painted(1);
    const PanelGeometry geometry = geometryAt(1, {});
    EXPECT_EQ(wordAt(image, geometry.devicePixels({8, 8}).topLeft()), 0);
    EXPECT_EQ(wordAt(image, geometry.devicePixels({6, 10}).topLeft()), 0);
    disc.Visible = false;
    expectExact(painted(1), geometry);
}

TEST_F(PaintedPanel, ABorderlessPanelLargerThanItsBitmapShowsItsGround) {
    PictureBox box("pbh", 20 * 15.F, 10 * 15.F, 0);
    box.setBackColor(RGB(10, 20, 30));
    PanelWidget boxWidget(box, nullptr);
    boxWidget.resize(30, 10);
    QImage image(30, 10, QImage::Format_RGB32);
    boxWidget.render(&image);
    EXPECT_EQ(wordAt(image, {1, 5}), 0x0A141E);
    EXPECT_EQ(wordAt(image, {15, 5}), 0x0A141E);
}

TEST_F(PaintedPanel, FindsThePixelUnderAPointAndBack) {
    for (const QPoint at : {QPoint(0, 0), QPoint(15, 15), QPoint(-3, 20)})
        EXPECT_EQ(widget.panelPixel(widget.pointOf(at)), at);
    EXPECT_EQ(widget.panelPixel({1, 1}), QPoint(0, 0));
    EXPECT_EQ(widget.panelPixel({0, 0}), QPoint(-1, -1));
}

}  // namespace
}  // namespace quillon
