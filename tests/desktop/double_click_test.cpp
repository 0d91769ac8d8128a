#include <gtest/gtest.h>

#include <QStyleHints>
#include <QTest>
#include <array>
#include <utility>

#include "desktop/Conversions.h"
#include "desktop/DarkMeans.h"
#include "tests/desktop/OpenedWindow.h"

// Two quick presses in one place: the second is a press like any other, but on
// the panels where a double click transforms.

namespace quillon {
namespace {

class DoubleClicks : public OpenedWindow {
protected:
    /// A press so soon behind a release that the toolkit takes it for the second
    /// of a double click.
    void pressAgain(QWidget& on, QPointF at) {
        QTest::lastMouseTimestamp -= QGuiApplication::styleHints()->mouseDoubleClickInterval();
        press(on, at);
    }
    void quickClicks(QWidget& on, QPointF at, int count) {
        for (int i = 0; i < count; ++i) {
            i == 0 ? press(on, at) : pressAgain(on, at);
            release(on, at);
        }
        settle();
    }
    int reach() { return QGuiApplication::styleHints()->mouseDoubleClickDistance(); }
    std::uint64_t forward(Channel which) { return form().lab.channel(which).spectrum().revision(); }
};

TEST_F(DoubleClicks, AQuickSecondStrokeIsDrawn) {
    PanelWidget& image = panel("pb1");
    press(image, pixel(image, 40, 50));
    release(image, pixel(image, 40, 50));
    const Bitmap dotted = form().pb1.Image();
    pressAgain(image, pixel(image, 40, 50));
    move(image, pixel(image, 120, 90));
    EXPECT_NE(form().pb1.Image(), dotted);
    EXPECT_EQ(form().pb1.Image().at(80, 70) & 0xFF, 0xFF);
    release(image, pixel(image, 120, 90));
    EXPECT_EQ(form().pb1.Picture(), form().pb1.Image());
}

TEST_F(DoubleClicks, AQuickSecondLatticePointCounts) {
    form().click(MenuArray::mnuImg2b, 1);
    PanelWidget& image = panel("pb4");
    press(image, pixel(image, 40, 50));
    release(image, pixel(image, 40, 50));
    pressAgain(image, pixel(image, 40, 50));
    move(image, pixel(image, 60, 50));
    release(image, pixel(image, 60, 50));
    EXPECT_EQ(form().lattice[0][0], 3);
    EXPECT_EQ(form().lattice[0][3], 60);
}

TEST_F(DoubleClicks, AQuickSecondPressOfAnIntensityControlSteps) {
    form().lab.channel1.SetScale(0);
    quickClicks(widget("lbBR1(1)"), {5, 5}, 3);
    EXPECT_EQ(form().lab.channel1.getIntFac(), "136.8 (linear)");
    EXPECT_FALSE(form().Timer1.Enabled);
    EXPECT_EQ(form().fr2.Caption.get(), "Fourier Transform");
}

TEST_F(DoubleClicks, AQuickSecondClickOfTheSelectorsButtonHidesIt) {
    quickClicks(widget("btLUT"), {5, 5}, 2);
    EXPECT_FALSE(widget("frLUT").isVisible());
    quickClicks(widget("btLUT"), {5, 5}, 3);
    EXPECT_TRUE(widget("frLUT").isVisible());
}

TEST_F(DoubleClicks, AQuickSecondDragMovesTheSelectorTheHistogramAndTheWindow) {
    form().frLUT.Visible = true;
    form().click(MenuArray::mnuImg1a, 10);
    settle();
    QWidget* const ground = window().widgetOf(form());
    const std::pair<QWidget*, QPointF> boxes[] = {
        {&widget("frLUT"), {40, 100}}, {&widget("pbh"), {50, 50}}, {ground, {500, 15}}};
    for (const auto& [box, where] : boxes) {
        QWidget& moved = box == ground ? window() : *box;
        const QPoint start = moved.pos();
        press(*box, where);
        release(*box, where);
        pressAgain(*box, where);
        move(*box, where + QPointF(8, 9));
        settle();
        EXPECT_EQ(moved.pos(), start + QPoint(8, 9)) << toBytes(box->objectName());
        release(*box, where);
    }
}

TEST_F(DoubleClicks, TransformWhenTheButtonIsUpAgain) {
    const struct {
        const char* name;
        Channel channel;
    } spectra[] = {{"pb2", Channel::One}, {"pb5", Channel::Two}};
    for (const auto& [name, channel] : spectra) {
        PanelWidget& spectrum = panel(name);
        const QPointF at = pixel(spectrum, 50, 50);
        press(spectrum, at);
        release(spectrum, at);
        const auto before = forward(channel);
        pressAgain(spectrum, at);
        EXPECT_EQ(forward(channel), before) << "it may still become a drag";
        release(spectrum, at);
        EXPECT_GT(forward(channel), before) << name;
    }
}

TEST_F(DoubleClicks, WithholdTheSecondPressAndItsMovesFromTheMasks) {
    form().click(MenuArray::mnuFT1a, 12);
    PanelWidget& spectrum = panel("pb2");
    const QPointF at = pixel(spectrum, 50, 50);
    press(spectrum, at);
    release(spectrum, at);
    ASSERT_EQ(form().lab.channel1.nmask, 2);
    const auto before = forward(Channel::One);
    const Bitmap shown = form().pb2.shown();
    pressAgain(spectrum, at);
    move(spectrum, at + QPointF(reach(), -reach()));
    EXPECT_EQ(form().pb2.shown(), shown) << "no blue box";
    release(spectrum, at + QPointF(reach(), -reach()));
    EXPECT_EQ(form().lab.channel1.nmask, 2);
    EXPECT_GT(forward(Channel::One), before) << "the double click's action";
}

TEST_F(DoubleClicks, BecomeADragWhereThePointerLeavesTheirDistance) {
    form().click(MenuArray::mnuFT1a, 12);
    PanelWidget& spectrum = panel("pb2");
    press(spectrum, pixel(spectrum, 50, 50));
    release(spectrum, pixel(spectrum, 50, 50));
    const auto before = forward(Channel::One);
    pressAgain(spectrum, pixel(spectrum, 50, 50));
    for (int x = 51; x <= 90; ++x)
        move(spectrum, pixel(spectrum, x, 70));
    release(spectrum, pixel(spectrum, 90, 70));
    ASSERT_EQ(form().lab.channel1.nmask, 4) << "a mask and its mirror image";
    std::array<Single, 4> mask{};
    form().lab.channel1.GetMask(2, mask);
    EXPECT_EQ(mask, (std::array<Single, 4>{50, 50, 90, 70})) << "from the press's own point";
    EXPECT_EQ(forward(Channel::One), before) << "and no double click";
    // All outlines are there: the panel shows what a fresh paint of it shows.
    const Bitmap shown = form().pb2.shown();
    form().lab.channel1.RedrawFT(1, 0);
    EXPECT_EQ(form().pb2.shown(), shown);
}

TEST_F(DoubleClicks, RollAReconstructionByTheWholeWayOfTheDrag) {
    PanelWidget& rolled = panel("pb3");
    const Bitmap before = form().pb3.Image();
    press(rolled, pixel(rolled, 50, 50));
    release(rolled, pixel(rolled, 50, 50));
    pressAgain(rolled, pixel(rolled, 50, 50));
    move(rolled, pixel(rolled, 51, 50));
    move(rolled, pixel(rolled, 70, 60));
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            ASSERT_EQ(form().pb3.Image().at((x + 20) % 256, (y + 10) % 256), before.at(x, y));
    EXPECT_EQ(form().pb3.MousePointer, kPointerFourArrows);
    release(rolled, pixel(rolled, 70, 60));
    EXPECT_EQ(form().pb3.MousePointer, kPointerDefault);
}

TEST_F(DoubleClicks, TakenAwayInTheMidstRunTheirActionOnce) {
    PanelWidget& spectrum = panel("pb2");
    const QPointF at = pixel(spectrum, 50, 50);
    press(spectrum, at);
    release(spectrum, at);
    pressAgain(spectrum, at);
    const auto before = forward(Channel::One);
    QEvent gone(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&window(), &gone);
    const auto after = forward(Channel::One);
    EXPECT_GT(after, before);
    release(spectrum, at);
    EXPECT_EQ(forward(Channel::One), after);
}

TEST_F(DoubleClicks, AFurtherButtonMakesAnOrdinaryPressOfTheSecondOne) {
    form().click(MenuArray::mnuFT1a, 12);
    PanelWidget& spectrum = panel("pb2");
    const QPointF at = pixel(spectrum, 50, 50);
    press(spectrum, at);
    release(spectrum, at);
    pressAgain(spectrum, at);
    press(spectrum, at, Qt::MiddleButton);
    release(spectrum, at, Qt::MiddleButton);
    EXPECT_EQ(form().lab.channel1.nmask, 4);
    release(spectrum, at);
    EXPECT_EQ(form().lab.channel1.nmask, 6) << "each button has its release";
}

TEST_F(DoubleClicks, OnTheDarkAreTwoPresses) {
    window().setDarkMeans(DarkMeans::PaintedScreen);
    click(widget("imgDIM"));
    ASSERT_TRUE(form().dim.isLoaded());
    form().dim.Timer1.Enabled = false;
    auto* dark = window().findChild<QWidget*>(QStringLiteral("frmDIM"));
    ASSERT_NE(dark, nullptr);
    form().dim.fr.Visible = false;
    form().dim.fadeAlpha = 255;
    QTest::mousePress(dark->windowHandle(), Qt::LeftButton, {}, {3, 3});
    EXPECT_EQ(form().dim.fadeAlpha, 255);
    form().dim.Timer1_Timer();
    EXPECT_EQ(form().dim.fadeAlpha, 215);
    QTest::mouseRelease(dark->windowHandle(), Qt::LeftButton, {}, {3, 3});
    QTest::lastMouseTimestamp -= QGuiApplication::styleHints()->mouseDoubleClickInterval();
    QTest::mousePress(dark->windowHandle(), Qt::LeftButton, {}, {3, 3});
    EXPECT_EQ(form().dim.fadeAlpha, 255) << "a request anew";
    QTest::mouseRelease(dark->windowHandle(), Qt::LeftButton, {}, {3, 3});
}

}  // namespace
}  // namespace quillon
