#include <gtest/gtest.h>

#include <QEvent>

#include "tests/desktop/OpenedWindow.h"

namespace quillon {
namespace {

/// Counts how often a widget is painted while it lives.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject* /*widget*/, QEvent* event) override {
        paintings += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int paintings = 0;
};

using PanelRepaint = OpenedWindow;

TEST_F(PanelRepaint, APanelIsPaintedWithoutTheFrameBelowIt) {
    settle();
    PaintCounter panel(widget("pb2"));
    PaintCounter frame(widget("fr2"));
    form().pb2.Cls();
    settle();
    EXPECT_EQ(panel.paintings, 1);
    EXPECT_EQ(frame.paintings, 0);
}

TEST_F(PanelRepaint, ANewCaptionPaintsTheFrame) {
    settle();
    PaintCounter frame(widget("fr2"));
    form().fr2.Caption = "Image 1 of 2 ...";
    settle();
    EXPECT_EQ(frame.paintings, 1);
}

}  // namespace
}  // namespace quillon
