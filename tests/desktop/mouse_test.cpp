#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QUrl>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"

namespace quillon {
namespace {

class Mouse : public OpenedWindow {
protected:
    std::string cell(Integer index) { return form().lbSTB(index).Caption; }
};

TEST_F(Mouse, APanelHearsOfThePanelPixelUnderThePointer) {
    for (const QPoint at : {QPoint(0, 0), QPoint(255, 255), QPoint(17, 200)}) {
        move(panel("pb3"), pixel(panel("pb3"), at.x(), at.y()));
        EXPECT_TRUE(
            cell(1).starts_with("[" + std::to_string(at.x()) + "," + std::to_string(at.y()) + "]"))
            << cell(1);
    }
    EXPECT_NE(cell(0).find("[iFT]"), std::string::npos);
}

TEST_F(Mouse, ADragThatLeavesThePanelGoesOnAtThePanel) {
    press(panel("pb3"), pixel(panel("pb3"), 10, 10));
    move(panel("pb3"), pixel(panel("pb3"), -7, 300));
    EXPECT_TRUE(cell(1).starts_with("[-7,300]")) << cell(1);
    release(panel("pb3"), pixel(panel("pb3"), -7, 300));
}

TEST_F(Mouse, EveryMoveIsDeliveredByItself) {
    EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents));
    EXPECT_FALSE(QCoreApplication::testAttribute(Qt::AA_CompressTabletEvents));
}

TEST_F(Mouse, ARingFollowsADragOnTheSpectrumAndTheReconstructionWithIt) {
    form().click(MenuArray::mnuFT1a, 10);
    const Bitmap before = form().pb3.Image();
    PanelWidget& spectrum = panel("pb2");
    press(spectrum, pixel(spectrum, 128, 128));
    move(spectrum, pixel(spectrum, 128, 168));
    EXPECT_FLOAT_EQ(form().lab.channel1.filter_rad, 40);
    EXPECT_NE(form().pb3.Image(), before);
    move(spectrum, pixel(spectrum, 128, 178));
    EXPECT_FLOAT_EQ(form().lab.channel1.filter_rad, 50);
    release(spectrum, pixel(spectrum, 128, 178));
}

TEST_F(Mouse, ABandSpansAMaskAndItsMirrorImage) {
    form().click(MenuArray::mnuFT2a, 12);
    PanelWidget& spectrum = panel("pb5");
    press(spectrum, pixel(spectrum, 20, 30));
    move(spectrum, pixel(spectrum, 40, 60));
    release(spectrum, pixel(spectrum, 40, 60));
    EXPECT_EQ(form().lab.channel2.nmask, 2);
    EXPECT_EQ(form().lab.channel1.nmask, 0);
}

TEST_F(Mouse, ADoubleClickTransformsAndItsSecondReleaseReachesNobody) {
    form().click(MenuArray::mnuFT1a, 12);
    form().pb2.Tag = "stale";
    doubleClick(panel("pb2"), pixel(panel("pb2"), 50, 50));
    // The first click makes two masks, the second press and release none.
    EXPECT_EQ(form().lab.channel1.nmask, 2);
    // The forward transform has run.
    EXPECT_NE(form().pb2.Tag, "stale");
}

TEST_F(Mouse, ADoubleClickOnTheReconstructionReconstructs) {
    form().pb3.setBackColor(kBlack);
    const Bitmap wiped = form().pb3.Image();
    doubleClick(panel("pb3"), pixel(panel("pb3"), 50, 50));
    EXPECT_NE(form().pb3.Image(), wiped);
}

TEST_F(Mouse, AClickOnTheButtonShowsTheSelectorAndItsCrossHidesIt) {
    click(widget("btLUT"));
    EXPECT_TRUE(widget("frLUT").isVisible());
    click(widget("btLUT"));
    EXPECT_FALSE(widget("frLUT").isVisible());
    click(widget("btLUT"));
    click(widget("Label1"));
    EXPECT_FALSE(widget("frLUT").isVisible());
}

TEST_F(Mouse, AReleaseOffTheControlIsNoClick) {
    QWidget& button = widget("btLUT");
    press(button, {5, 5});
    release(button, {5, 200});
    settle();
    EXPECT_FALSE(widget("frLUT").isVisible());
}

TEST_F(Mouse, ARightClickIsNoClick) {
    press(widget("btLUT"), {5, 5}, Qt::RightButton);
    release(widget("btLUT"), {5, 5}, Qt::RightButton);
    settle();
    EXPECT_FALSE(widget("frLUT").isVisible());
}

TEST_F(Mouse, AClickOnABandOfTheSelectorChoosesItsColours) {
    click(widget("btLUT"));
    PanelWidget& bands = panel("pbLUT");
    const Bitmap before = form().pb2.Image();
    press(bands, pixel(bands, 100, 30));
    release(bands, pixel(bands, 100, 30));
    settle();
    EXPECT_NE(form().pb2.Image(), before);
    EXPECT_EQ(services.store.read("Software\\Brindlewood\\Quillon", "LUT"), "2")
        << "25 tenths, rounded to the even number";
}

TEST_F(Mouse, AHeldIntensityControlStepsByTheTimerUntilItIsLetGo) {
    QWidget& plus = widget("lbBR1(1)");
    const auto factor = [this] { return std::stof(form().lab.channel1.getIntFac()); };
    const float before = factor();
    press(plus, {5, 5});
    const float atPress = factor();
    EXPECT_GT(atPress, before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return factor() > atPress * 1.2F; }));
    EXPECT_TRUE(form().fr2.Caption.get().starts_with("Intensity Factor: "));
    release(plus, {5, 5});
    EXPECT_EQ(form().fr2.Caption.get(), "Fourier Transform");
    EXPECT_FALSE(form().Timer1.Enabled);
}

TEST_F(Mouse, TheSelectorFollowsThePointerWithinTheWindow) {
    click(widget("btLUT"));
    QWidget& frame = widget("frLUT");
    const QPoint start = frame.pos();
    press(frame, {40, 100});
    move(frame, {60, 130});
    settle();
    EXPECT_EQ(frame.pos(), start + QPoint(20, 30));
    EXPECT_EQ(form().frLUT.Left, static_cast<Single>(15 * (start.x() + 20)));
    // Always measured from the press, and never beyond the edges.
    move(frame, {-3000, -3000});
    settle();
    EXPECT_EQ(frame.pos(), QPoint(0, 0));
    move(frame, {3000, 3000});
    settle();
    EXPECT_EQ(frame.geometry().bottomRight(), frame.parentWidget()->rect().bottomRight());
    release(frame, {10, 10});
    const QPoint end = frame.pos();
    move(frame, {20, 20});
    settle();
    EXPECT_EQ(frame.pos(), end) << "the drag ends with the release";
}

TEST_F(Mouse, TheSelectorFollowsADragOfItsTitleToo) {
    click(widget("btLUT"));
    const QPoint start = widget("frLUT").pos();
    QWidget& title = widget("Label2(0)");
    press(title, {40, 5}, Qt::LeftButton, Qt::ShiftModifier);
    move(title, {60, 35});
    release(title, {60, 35});
    settle();
    EXPECT_EQ(widget("frLUT").pos(), start) << "no drag under a modifier";
    press(title, {40, 5});
    move(title, {60, 35});
    settle();
    EXPECT_EQ(widget("frLUT").pos(), start + QPoint(20, 30));
    EXPECT_EQ(title.parentWidget(), &widget("frLUT"));
    // The title has moved along with its selector.
    move(title, {30, -5});
    settle();
    EXPECT_EQ(widget("frLUT").pos(), start + QPoint(10, 20));
    release(title, {40, 5});
    move(title, {70, 70});
    settle();
    EXPECT_EQ(widget("frLUT").pos(), start + QPoint(10, 20));
}

TEST_F(Mouse, ADragWithAModifierMovesNothing) {
    click(widget("btLUT"));
    QWidget& frame = widget("frLUT");
    const QPoint start = frame.pos();
    press(frame, {40, 100}, Qt::LeftButton, Qt::ShiftModifier);
    move(frame, {60, 130});
    settle();
    EXPECT_EQ(frame.pos(), start);
    release(frame, {60, 130});
    press(frame, {40, 100}, Qt::RightButton);
    move(frame, {60, 130});
    settle();
    EXPECT_EQ(frame.pos(), start);
    release(frame, {60, 130}, Qt::RightButton);
}

TEST_F(Mouse, TheWindowFollowsADragOfItsBackground) {
    QWidget& ground = *window().widgetOf(form());
    const QPoint start = window().pos();
    const Single left = form().Left;
    press(ground, {500, 15});
    // The pointer's place on the screen tells the way; the window moves under it.
    move(ground, {530, 35});
    settle();
    EXPECT_EQ(window().pos(), start + QPoint(30, 20));
    EXPECT_EQ(form().Left, left + 30 * 15);
    release(ground, {500, 15});
}

TEST_F(Mouse, AReleaseOnTheBackgroundGivesTheWindowItsPointerBack) {
    QWidget& ground = *window().widgetOf(form());
    form().MousePointer = kPointerFourArrows;
    settle();
    EXPECT_EQ(ground.cursor().shape(), Qt::SizeAllCursor);
    press(ground, {500, 15}, Qt::MiddleButton);
    release(ground, {500, 15}, Qt::MiddleButton);
    settle();
    EXPECT_EQ(ground.cursor().shape(), Qt::ArrowCursor);
}

class Drops : public Mouse {
protected:
    QUrl picture(const char* name, QColor color) {
        const QString path = home.filePath(QString::fromLatin1(name));
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(color);
        EXPECT_TRUE(image.save(path, "BMP"));
        return QUrl::fromLocalFile(path);
    }
};

TEST_F(Drops, APictureDroppedOnAnImagePanelIsLoadedIntoItsChannel) {
    EXPECT_TRUE(drop(panel("pb4"), {picture("a b.bmp", QColor(9, 8, 7)),
                                    picture("ignored.bmp", QColor(1, 1, 1))}));
    EXPECT_EQ(form().pb4.Image(), Bitmap(256, 256, 0x090807));
    EXPECT_EQ(form().lab.channel2.file, toLabPath(home.filePath(QStringLiteral("a b.bmp"))));
    EXPECT_NE(form().pb1.Image(), form().pb4.Image());
}

TEST_F(Drops, OtherPanelsTakeNoFiles) {
    EXPECT_FALSE(panel("pb2").acceptDrops());
    EXPECT_FALSE(panel("pb3").acceptDrops());
    EXPECT_TRUE(panel("pb1").acceptDrops());
}

TEST_F(Drops, WhatIsNoFileIsNotTaken) {
    EXPECT_FALSE(drop(panel("pb1"), {}));
    EXPECT_FALSE(drop(panel("pb1"), {QUrl(QStringLiteral("https://a.example/x.bmp"))}));
}

}  // namespace
}  // namespace quillon
