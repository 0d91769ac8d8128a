#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cmath>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"

// The floating box of grey levels, as a user opens, reads, drags and closes it.

namespace quillon {
namespace {

struct Request {
    const char* panel;
    const char* entry;
    const char* frame;
};

constexpr Request kRequests[] = {
    {"pb1", "mnuImg1a(10)", "fr1"},
    {"pb3", "mnuNew1a(7)", "fr3"},
    {"pb4", "mnuImg2a(10)", "fr4"},
    {"pb6", "mnuNew2a(7)", "fr6"},
};

class HistogramInTheWindow : public OpenedWindow {
protected:
    QWidget& box() { return widget("pbh"); }
    /// The middle of a pixel of the box: a grey level, and the row from the top.
    QPoint at(int level, int row) { return whole(pixel(panel("pbh"), level, row)); }
    static QPoint whole(QPointF point) {
        return {static_cast<int>(std::floor(point.x())), static_cast<int>(std::floor(point.y()))};
    }
    void drag(QPointF from, QPointF to, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = {}) {
        // In the frame's terms, because the box moves under the pointer.
        const QPointF origin = box().pos();
        press(box(), from, button, modifiers);
        move(widget("frt1"), origin + from + (to - from) / 2, modifiers);
        move(widget("frt1"), origin + to, modifiers);
        settle();
    }
    void letGo(Qt::MouseButton button = Qt::LeftButton) {
        release(box(), QRectF(box().rect()).center(), button);
        settle();
    }
    /// The words of a panel's pixels on the screen.
    Bitmap onScreen(const char* name) {
        const QImage picture = widget(name).grab().toImage();
        const auto& shown = dynamic_cast<const PictureBox&>(form().control(name)).shown();
        Bitmap words(shown.width, shown.height);
        for (int y = 0; y < words.height; ++y)
            for (int x = 0; x < words.width; ++x)
                words.at(x, y) = static_cast<PixelWord>(
                    picture.pixel(whole(pixel(panel(name), x, y))) & 0xFFFFFFU);
        return words;
    }
    void expectBarsOf(const char* name);
};

void HistogramInTheWindow::expectBarsOf(const char* name) {
    std::array<int, 256> counts{};
    for (const PixelWord word : onScreen(name).words)
        ++counts[static_cast<std::size_t>(word >> 16 & 0xFF)];
    const int top = std::ranges::max(counts);
    const Bitmap bars = onScreen("pbh");
    const PixelWord ink = toPixelWord(form().lab.guiColors[0]);
    // The range and the closing mark stand in the upper rows.
    const int first = widget("lbHIS").height() + 1;
    for (int level = 0; level < 256; ++level) {
        const auto height = std::lrint(100.0 * counts[static_cast<std::size_t>(level)] / top);
        for (int y = first; y < bars.height; ++y)
            ASSERT_EQ(bars.at(level, y) == ink, y >= bars.height - height)
                << name << " level " << level << " row " << y;
    }
}

TEST_F(HistogramInTheWindow, OpensOnTheFrameOfThePanelThatWasAskedAndShowsItsGreys) {
    EXPECT_FALSE(box().isVisible());
    for (const Request& asked : kRequests) {
        chooseOn(asked.panel, asked.entry);
        EXPECT_TRUE(box().isVisible());
        EXPECT_EQ(box().pos(), widget(asked.frame).pos() + QPoint(8, 16)) << asked.panel;
        EXPECT_EQ(widget("frt1").childAt(box().geometry().center()), &box()) << "on top";
        // The panel lies under the box, but what is counted is the panel.
        expectBarsOf(asked.panel);
    }
}

TEST_F(HistogramInTheWindow, OpensFromTheMenuBarToo) {
    choose("mnuNew2", "mnuNew2a(7)");
    EXPECT_EQ(box().pos(), widget("fr6").pos() + QPoint(8, 16));
    expectBarsOf("pb6");
}

TEST_F(HistogramInTheWindow, NoBarReachesTheGreyRangeOrTheClosingMark) {
    // Bars of full height at both ends, below the first letter and below the mark.
    Bitmap picture(256, 256, 0x0A0A0A);
    std::fill_n(picture.words.begin(), picture.words.size() / 2, PixelWord{0xF8F8F8});
    form().pb1.setPicture(picture);
    chooseOn("pb1", "mnuImg1a(10)");
    const Bitmap shown = onScreen("pbh");
    const PixelWord ink = toPixelWord(form().lab.guiColors[0]);
    for (const auto& [label, level] : {std::pair("LHIST", 10), std::pair("lbHIS", 248)}) {
        const QRect text = widget(label).geometry();
        ASSERT_TRUE(text.left() <= level && level <= text.right()) << label;
        const QRect letters = widget(label).fontMetrics().tightBoundingRect(QStringLiteral("g0[]"));
        EXPECT_LE(letters.height(), text.height()) << label;
        // A row of the ground parts the text from the bar.
        EXPECT_NE(shown.at(level, text.bottom() + 1), ink) << label;
        EXPECT_EQ(shown.at(level, shown.height - 100), ink);
    }
}

TEST_F(HistogramInTheWindow, KeepsItsBarsWhenTheSchemeIsChanged) {
    chooseOn("pb1", "mnuImg1a(10)");
    for (const Integer scheme : {Integer{0}, Integer{3}, Integer{4}}) {
        form().click(MenuArray::itmOpt0, scheme);
        settle();
        expectBarsOf("pb1");
    }
}

TEST_F(HistogramInTheWindow, FollowsADragAndStaysWithinThePanels) {
    chooseOn("pb1", "mnuImg1a(10)");
    const QPoint start = box().pos();
    drag({120, 50}, {220, 250});
    EXPECT_EQ(box().pos(), start + QPoint(100, 200));
    letGo();
    const QRect room = widget("frt1").rect();
    for (const QPoint way : {QPoint(-4000, -4000), QPoint(4000, -4000), QPoint(4000, 4000),
                             QPoint(-4000, 4000), QPoint(0, -90), QPoint(30, 0)}) {
        drag({120, 50}, QPointF(120, 50) + way);
        EXPECT_TRUE(room.contains(box().geometry())) << way.x() << ", " << way.y();
        if (way.x() > 1000) {
            EXPECT_EQ(box().geometry().right(), room.right());
        }
        if (way.y() > 1000) {
            EXPECT_EQ(box().geometry().bottom(), room.bottom());
        }
        if (way.x() < -1000) {
            EXPECT_EQ(box().x(), 0);
        }
        letGo();
    }
    const QPoint end = box().pos();
    move(box(), {10, 10});
    settle();
    EXPECT_EQ(box().pos(), end) << "the drag ends with the release";
    // A request puts it back onto the panel that is asked.
    chooseOn("pb1", "mnuImg1a(10)");
    EXPECT_EQ(box().pos(), start);
}

TEST_F(HistogramInTheWindow, IsDraggedByTheLeftButtonAlone) {
    chooseOn("pb1", "mnuImg1a(10)");
    const QPoint start = box().pos();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        drag({120, 50}, {220, 250}, button);
        EXPECT_EQ(box().pos(), start) << button;
        letGo(button);
    }
    for (const Qt::KeyboardModifier held :
         {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        drag({120, 50}, {220, 250}, Qt::LeftButton, held);
        EXPECT_EQ(box().pos(), start) << held;
        letGo();
    }
}

TEST_F(HistogramInTheWindow, TellsLevelAndPercentAtThePointerInItsToolTip) {
    chooseOn("pb1", "mnuImg1a(10)");
    for (const auto& [level, row, text] :
         {std::tuple(200, 16, "200 , 100%"), std::tuple(0, 115, "0 , 1%"),
          std::tuple(255, 66, "255 , 50%")}) {
        const QPoint point = at(level, row);
        move(box(), point);
        settle();
        QHelpEvent hover(QEvent::ToolTip, point, box().mapToGlobal(point));
        QApplication::sendEvent(&box(), &hover);
        EXPECT_EQ(QToolTip::text(), QString::fromLatin1(text));
        QToolTip::hideText();
    }
}

TEST_F(HistogramInTheWindow, ClosesByItsMarkWithAnyButtonAndOpensAgain) {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        chooseOn("pb3", "mnuNew1a(7)");
        ASSERT_TRUE(box().isVisible());
        QWidget& mark = widget("lbHIS");
        press(mark, QRectF(mark.rect()).center(), button);
        settle();
        EXPECT_TRUE(box().isVisible()) << "the release closes it";
        release(mark, QRectF(mark.rect()).center(), button);
        settle();
        EXPECT_FALSE(box().isVisible()) << button;
    }
}

}  // namespace
}  // namespace quillon
