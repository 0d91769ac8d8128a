#include <gtest/gtest.h>

#include <QFileInfo>
#include <initializer_list>
#include <numeric>

#include "desktop/Conversions.h"
#include "desktop/DesktopApplication.h"
#include "tests/desktop/OpenedWindow.h"
#include "tests/support/slow_drawing.h"

namespace quillon {
namespace {

constexpr PixelWord kWhiteWord = 0xFFFFFF;
constexpr PixelWord kRedWord = 0xFF0000;
constexpr PixelWord kGreenWord = 0x00FF00;
constexpr int kFreehandPen = 2;

/// The tools of the Drawing menus at work in the opened window: what real mouse
/// events leave on the panels, beside the plain loops.
class DrawingTools : public OpenedWindow {
protected:
    void SetUp() override {
        OpenedWindow::SetUp();
        // The first start has told of its folders.
        recording.dialogs.messages.clear();
    }
    PanelWidget& imageWidget(Channel which) { return panel(which == Channel::One ? "pb1" : "pb4"); }
    PictureBox& image(Channel which) { return form().lab.imagePanel(which); }
    void choose(Channel which, Integer tool) {
        form().click(which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b, tool);
        settle();
    }
    void pressAt(PanelWidget& on, PanelPoint at, Qt::MouseButton button = Qt::LeftButton) {
        press(on, pixel(on, at.x, at.y), button);
    }
    void moveTo(PanelWidget& on, PanelPoint at) { move(on, pixel(on, at.x, at.y)); }
    void releaseAt(PanelWidget& on, PanelPoint at, Qt::MouseButton button = Qt::LeftButton) {
        release(on, pixel(on, at.x, at.y), button);
    }
    void drag(PanelWidget& on, PanelPoint from, PanelPoint to) {
        pressAt(on, from);
        moveTo(on, to);
        releaseAt(on, to);
    }
    /// The zero frequency of a channel's spectrum is the sum of its picture.
    void expectTransformed(Channel which) {
        const std::vector<PixelWord>& words = image(which).Image().words;
        const double sum =
            std::accumulate(words.begin(), words.end(), 0.0,
                            [](double total, PixelWord word) { return total + (word & 0xFF); });
        EXPECT_NEAR(form().lab.channel(which).spectrum()(0, 0).re, sum, sum * 1e-5);
    }
    static constexpr Channel kBoth[] = {Channel::One, Channel::Two};
};

TEST_F(DrawingTools, AStrokeFollowsEveryMoveAlsoOffThePanelAndBack) {
    const PanelPoint way[] = {{20, 30},  {90, 41},   {300, 120}, {200, 290},
                              {60, 200}, {-40, 180}, {-5, -9},   {255, 0}};
    for (const Channel which : kBoth) {
        choose(which, 0);
        PanelWidget& widget = imageWidget(which);
        Bitmap expected = image(which).Image();
        PanelPoint last = way[0];
        pressAt(widget, last);
        slow::line(expected, last, last, kFreehandPen, kWhiteWord);
        EXPECT_EQ(image(which).Image(), expected) << "the press leaves a dot";
        for (const PanelPoint at : std::span(way).subspan(1)) {
            moveTo(widget, at);
            slow::line(expected, last, at, kFreehandPen, kWhiteWord);
            ASSERT_EQ(image(which).Image(), expected) << at.x << ", " << at.y;
            last = at;
        }
        releaseAt(widget, last);
        EXPECT_EQ(image(which).Picture(), expected) << "committed, without a further dot";
        expectTransformed(which);
    }
}

TEST_F(DrawingTools, AClickLeavesADotAndAMoveWithoutAButtonNothing) {
    choose(Channel::One, 0);
    PanelWidget& widget = panel("pb1");
    Bitmap expected = form().pb1.Image();
    moveTo(widget, {100, 100});
    moveTo(widget, {120, 100});
    EXPECT_EQ(form().pb1.Image(), expected);
    pressAt(widget, {40, 60});
    releaseAt(widget, {40, 60});
    slow::dot(expected, {40, 60}, kFreehandPen, kWhiteWord);
    EXPECT_EQ(form().pb1.Picture(), expected);
    expectTransformed(Channel::One);
}

TEST_F(DrawingTools, TwoDragsSpanALatticeUnderTheirRubberBands) {
    for (const Channel which : kBoth) {
        choose(which, 1);
        PanelWidget& widget = imageWidget(which);
        pressAt(widget, {100, 80});
        moveTo(widget, {180, 200});
        moveTo(widget, {109, 83});
        Bitmap band(256, 256);
        slow::line(band, {100, 80}, {109, 83}, 1, kRedWord);
        EXPECT_EQ(image(which).shown(), band);
        EXPECT_EQ(form().lbSTB(2).Caption.get(), "a=9.5");
        releaseAt(widget, {109, 83});
        pressAt(widget, {200, 20});
        moveTo(widget, {97, 92});
        slow::line(band, {100, 80}, {97, 92}, 1, kGreenWord);
        EXPECT_EQ(image(which).shown(), band);
        EXPECT_EQ(form().lbSTB(2).Caption.get(), "a=9.5, b=12.4, angle=85.60 deg");
        releaseAt(widget, {97, 92});
        EXPECT_EQ(image(which).Picture(),
                  slow::lattice(256, 256, {{100, 80}, {109, 83}, {97, 92}}));
        EXPECT_EQ(image(which).Image(), image(which).Picture());
        EXPECT_FALSE(image(which).hasScreenLayer());
        expectTransformed(which);
    }
}

TEST_F(DrawingTools, ALatticesVectorsMayEndOffThePanel) {
    choose(Channel::Two, 1);
    PanelWidget& widget = panel("pb4");
    drag(widget, {20, 30}, {-17, 50});
    drag(widget, {20, 30}, {40, 290});
    EXPECT_EQ(form().pb4.Picture(), slow::lattice(256, 256, {{20, 30}, {-17, 50}, {40, 290}}));
    expectTransformed(Channel::Two);
}

TEST_F(DrawingTools, AFourthPointByTheMiddleButtonEndsTheProgramWithItsError) {
    auto& application = *static_cast<DesktopApplication*>(qApp);
    std::vector<int> endings;
    application.setDialogs(recording.dialogs);
    application.setEnding([&endings](int status) { endings.push_back(status); });
    choose(Channel::Two, 1);
    PanelWidget& widget = panel("pb4");
    drag(widget, {20, 30}, {36, 33});
    drag(widget, {20, 30}, {25, 52});
    pressAt(widget, {50, 50}, Qt::MiddleButton);
    EXPECT_TRUE(endings.empty()) << "the press of that button does not start over";
    releaseAt(widget, {50, 50}, Qt::MiddleButton);
    application.resetEnding();
    EXPECT_EQ(endings, std::vector<int>{1});
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(recording.dialogs.messages[0].text,
              "Run-time error '9':\nSubscript out of range\nThe program closes.");
}

TEST_F(DrawingTools, ADragRollsAnImageAroundItsEdgesAlsoFromBeyondThem) {
    const PanelPoint way[] = {{103, 120}, {90, 140}, {255, 0}, {-40, 300}, {330, -50}, {60, 70}};
    for (const Channel which : kBoth) {
        choose(which, 2);
        PanelWidget& widget = imageWidget(which);
        const Bitmap before = image(which).Image();
        pressAt(widget, {100, 120});
        for (const PanelPoint at : way) {
            moveTo(widget, at);
            ASSERT_EQ(image(which).Image(), slow::rolled(before, at.x - 100, at.y - 120))
                << at.x << ", " << at.y;
        }
        releaseAt(widget, way[5]);
        EXPECT_EQ(image(which).Picture(), slow::rolled(before, -40, -50));
        expectTransformed(which);
    }
}

TEST_F(DrawingTools, ADragRollsAReconstructionUntilItIsDrawnAgain) {
    for (const char* name : {"pb3", "pb6"}) {
        PanelWidget& widget = panel(name);
        PictureBox& box = name[2] == '3' ? form().pb3 : form().pb6;
        const Bitmap before = box.Image();
        pressAt(widget, {10, 20});
        EXPECT_EQ(widget.cursor().shape(), Qt::SizeAllCursor);
        for (const PanelPoint at : std::initializer_list<PanelPoint>{{50, 15}, {-9, 270}}) {
            moveTo(widget, at);
            ASSERT_EQ(box.Image(), slow::rolled(before, at.x - 10, at.y - 20)) << name;
        }
        releaseAt(widget, {-9, 270});
        settle();
        EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
        EXPECT_EQ(box.Image(), slow::rolled(before, -19, 250)) << "the release changes nothing";
        doubleClick(widget, pixel(widget, 50, 50));
        EXPECT_EQ(box.Image(), before);
    }
}

TEST_F(DrawingTools, AGridPatternComesInByTheRealClipboard) {
    for (const Channel which : kBoth) {
        recording.dialogs.answerInput("G10-3,1 1");
        choose(which, 3);
        Bitmap expected(256, 256);
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                expected.at(x, y) = (x % 13 < 3) == (y % 13 < 3) ? kWhiteWord : 0;
        EXPECT_EQ(image(which).Image(), expected);
        EXPECT_EQ(image(which).Picture(), expected);
        ASSERT_TRUE(services.clipboard.hasPicture());
        EXPECT_EQ(services.clipboard.picture(), expected);
        EXPECT_TRUE(form().lab.channel(which).file.ends_with("\\clipboard.bmp"));
        EXPECT_EQ(form().lab.channel(which).mDraw, 2) << "the tool is None (Shift)";
        expectTransformed(which);
    }
    EXPECT_TRUE(recording.dialogs.messages.empty());
}

}  // namespace
}  // namespace quillon
