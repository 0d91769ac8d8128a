#include <gtest/gtest.h>

#include <QFont>
#include <QLabel>
#include <QMenuBar>
#include <set>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"

namespace quillon {
namespace {

using TheWindow = OpenedWindow;

TEST_F(TheWindow, OpensWithBothSamplesTheirSpectraAndTheirReconstructions) {
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Quillon"));
    for (const PictureBox* image : {&form().pb1, &form().pb4}) {
        const std::set<PixelWord> greys(image->Image().words.begin(), image->Image().words.end());
        EXPECT_GT(greys.size(), 100U) << image->Name;
    }
    EXPECT_NE(form().pb1.Image(), form().pb4.Image());
    EXPECT_NE(form().pb2.Image(), form().pb5.Image());
    // The reconstruction of an unfiltered picture is the picture.
    int largest = 0;
    for (std::size_t i = 0; i < form().pb1.Image().words.size(); ++i)
        largest = std::max(largest, std::abs((form().pb1.Image().words[i] & 0xFF) -
                                             (form().pb3.Image().words[i] & 0xFF)));
    EXPECT_LE(largest, 2);
}

TEST_F(TheWindow, ShowsEveryPanelsPixelsAsTheyAre) {
    const QImage picture = window().grab().toImage();
    for (const char* name : {"pb1", "pb2", "pb3", "pb4", "pb5", "pb6"}) {
        PanelWidget& shown = panel(name);
        const auto& box = static_cast<const PictureBox&>(form().control(name));
        for (const QPoint at : {QPoint(0, 0), QPoint(255, 255), QPoint(100, 37)}) {
            const QPoint there = shown.mapTo(&window(), at + QPoint(1, 1));
            EXPECT_EQ(picture.pixel(there) & 0xFFFFFFU,
                      static_cast<unsigned>(box.Image().at(at.x(), at.y())))
                << name << " at " << at.x() << ", " << at.y();
        }
    }
}

TEST_F(TheWindow, HasAWidgetForEveryControlThatCanBeSeen) {
    for (const Control* control : form().controls()) {
        const ControlRow& row = form().rowOf(*control);
        const QWidget* found = window().findChild<QWidget*>(toQString(control->Name));
        const bool seen = row.kind == ControlKind::PictureBox || row.kind == ControlKind::Label ||
                          row.kind == ControlKind::Frame || row.kind == ControlKind::Image;
        EXPECT_EQ(found != nullptr, seen) << control->Name;
        if (found == nullptr)
            continue;
        EXPECT_EQ(found->toolTip(), toQString(row.toolTip)) << control->Name;
        EXPECT_EQ(found->isHidden(), !control->Visible.get()) << control->Name;
        EXPECT_EQ(found->geometry(), placeOf(*control)) << control->Name;
        const QWidget* parent = found->parentWidget();
        if (std::string_view(row.parent) != "Form1") {
            EXPECT_EQ(parent->objectName(), QString::fromLatin1(row.parent)) << control->Name;
        }
    }
}

TEST_F(TheWindow, ShowsTheHistogramsGreyRangeWhole) {
    form().mnuImg1a(10);
    const QLabel* range = window().findChild<QLabel*>(QStringLiteral("LHIST"));
    ASSERT_NE(range, nullptr);
    EXPECT_TRUE(range->text().startsWith(QStringLiteral("grayrange: ")));
    EXPECT_GE(range->width(), range->sizeHint().width());
    EXPECT_EQ(range->pos(), placeOf(form().LHIST).topLeft());
}

TEST_F(TheWindow, NamesEveryShownControlForAScreenReader) {
    for (const char* name :
         {"pb1",      "pb2",      "pb3",      "pb4",      "pb5",       "pb6",      "lbBR1(0)",
          "lbBR1(1)", "lbBR2(0)", "lbBR2(1)", "lbTAB(0)", "lbTAB(1)",  "lbTAB(2)", "btLUT",
          "imgDIM",   "frLUT",    "pbLUT",    "Label1",   "Label2(0)", "pbh",      "lbHIS",
          "LHIST",    "lbSTB(0)", "lbSTB(1)", "lbSTB(2)", "fr1",       "fr2",      "fr3"})
        EXPECT_FALSE(widget(name).accessibleName().isEmpty()) << name;
}

TEST_F(TheWindow, IsOf860By700PixelsWithItsFrame) {
    EXPECT_EQ(window().frameGeometry().size(), QSize(860, 700));
    EXPECT_EQ(form().Width, 860 * 15);
    EXPECT_EQ(form().Height, 700 * 15);
    const QWidget& area = *window().widgetOf(form());
    EXPECT_EQ(form().ScaleWidth(), static_cast<Single>(area.width() * 15));
    EXPECT_EQ(form().ScaleHeight(), static_cast<Single>(area.height() * 15));
}

TEST_F(TheWindow, LabelsFollowTheirControls) {
    auto& label = dynamic_cast<QLabel&>(widget("lbSTB(2)"));
    form().lbSTB(2).Caption = "Fran\xC3\xA7ois & <b>co</b>";
    form().lbSTB(2).ForeColor = RGB(1, 2, 3);
    form().lbSTB(2).FontBold = true;
    form().lbSTB(2).FontSize = 9;
    settle();
    EXPECT_EQ(label.text(), QStringLiteral("François & <b>co</b>"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.palette().color(label.foregroundRole()), QColor(1, 2, 3));
    EXPECT_TRUE(label.font().bold());
    EXPECT_EQ(label.font().pixelSize(), 12);
    EXPECT_TRUE(label.autoFillBackground());
    form().lbSTB(2).BackStyle = 0;
    settle();
    EXPECT_FALSE(label.autoFillBackground());
}

TEST_F(TheWindow, AStatusTextIsOnTheScreenBeforeTheRoutineThatWritesItReturns) {
    auto& label = dynamic_cast<QLabel&>(widget("lbSTB(2)"));
    // No event is taken between the two lines.
    form().ShowStatus(2, "in the midst of a computation");
    EXPECT_EQ(label.text(), QStringLiteral("in the midst of a computation"));
}

TEST_F(TheWindow, ControlsAppearAndGoWithTheirVisibility) {
    QWidget& selector = widget("frLUT");
    EXPECT_FALSE(selector.isVisible());
    form().frLUT.Visible = true;
    settle();
    EXPECT_TRUE(selector.isVisible());
    EXPECT_TRUE(widget("pbLUT").isVisible());
    form().frLUT.Visible = false;
    settle();
    EXPECT_FALSE(selector.isVisible());
}

TEST_F(TheWindow, ControlsMoveWithTheirPlace) {
    form().frLUT.Move(300, 450, 4170, 1620);
    settle();
    EXPECT_EQ(widget("frLUT").geometry(), QRect(20, 30, 278, 108));
}

TEST_F(TheWindow, APointerShowsWhatTheControlSays) {
    EXPECT_EQ(widget("btLUT").cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(widget("pb1").cursor().shape(), Qt::BitmapCursor);
    EXPECT_EQ(widget("pb3").cursor().shape(), Qt::ArrowCursor);
    form().pb3.MousePointer = kPointerFourArrows;
    settle();
    EXPECT_EQ(widget("pb3").cursor().shape(), Qt::SizeAllCursor);
    form().pb3.MousePointer = kPointerDefault;
    settle();
    EXPECT_EQ(widget("pb3").cursor().shape(), Qt::ArrowCursor);
}

}  // namespace
}  // namespace quillon
