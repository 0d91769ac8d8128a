#include "engine/Control.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/RunTimeError.h"
#include "tests/support/RecordingWatcher.h"

namespace quillon {
namespace {

using Log = std::vector<std::string>;

TEST(Control, APropertyTellsTheWatcherOnlyWhenItsValueChanges) {
    Label label("lbSTB(2)");
    RecordingWatcher watcher;
    label.watch(&watcher);
    label.Caption = "text";
    label.Caption = "text";
    label.Visible = true;
    EXPECT_EQ(watcher.log, (Log{"stale lbSTB(2)"}));
    EXPECT_EQ(label.Caption.get(), "text");
}

TEST(Control, RefreshShowsTheControlNow) {
    Label label("lbSTB(2)");
    label.Refresh();
    RecordingWatcher watcher;
    label.watch(&watcher);
    label.Refresh();
    EXPECT_EQ(watcher.log, (Log{"showNow lbSTB(2)"}));
    label.watch(nullptr);
    label.Caption = "unseen";
    EXPECT_EQ(watcher.log.size(), 1U);
}

TEST(Control, AMoveMakesTheControlStaleOnce) {
    Label label("lbBR1");
    RecordingWatcher watcher;
    label.watch(&watcher);
    label.Move(1, 2, 3, 4);
    label.Move(1, 2, 3, 4);
    EXPECT_EQ(watcher.log, (Log{"stale lbBR1"}));
    EXPECT_EQ(label.Left, 1.0F);
    EXPECT_EQ(label.Top, 2.0F);
    EXPECT_EQ(label.Width, 3.0F);
    EXPECT_EQ(label.Height, 4.0F);
}

TEST(Control, AMoveToASizeBelowZeroChangesNothing) {
    Label label("lbBR1");
    label.Move(1, 2, 3, 4);
    for (const Single bad : {-1.0F, std::nanf("")}) {
        EXPECT_THROW(label.Move(9, 9, bad, 9), RunTimeError);
        EXPECT_THROW(label.Move(9, 9, 9, bad), RunTimeError);
    }
    EXPECT_EQ(label.Left, 1.0F);
    EXPECT_EQ(label.Width, 3.0F);
    label.Move(0, 0, 0, 0);
    EXPECT_EQ(label.Width, 0.0F);
}

TEST(Control, ABackColourTellsTheWatcherWhenItChanges) {
    Label label("lbBR1");
    RecordingWatcher watcher;
    label.watch(&watcher);
    EXPECT_EQ(label.BackColor(), kWhite);
    label.setBackColor(kWhite);
    label.setBackColor(kRed);
    EXPECT_EQ(label.BackColor(), kRed);
    EXPECT_EQ(watcher.log, (Log{"stale lbBR1"}));
}

}  // namespace
}  // namespace quillon
