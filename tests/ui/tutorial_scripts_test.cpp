#include <gtest/gtest.h>

#include "engine/RunTimeError.h"
#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

using enum MenuArray;

/// Scripts that a page of the tutorial leads to.
class TutorialScripts : public CommandFixture {
protected:
    TutorialScripts() {
        desktop.files.write(kLesson, "TOP\r\nLOWPASS 20\r\n");
        form.Click(form.lbTAB(1));
        desktop.log.clear();
    }
    void run() { form.RunTutorialScript(kLesson); }
    void expectLab() {
        EXPECT_EQ(form.lab.viewTab, 1);
        for (const Control* shown : std::initializer_list<const Control*>{
                 &form.frt1, &form.stb, &form.btLUT, &form.lbTAB(0), &form.lbTAB(1)})
            EXPECT_TRUE(shown->Visible) << shown->Name;
        EXPECT_FALSE(form.ie5.Visible);
    }
    static constexpr const char* kLesson = "C:\\lesson.ftscr";
};

TEST_F(TutorialScripts, TheLabIsShownBeforeTheScriptSetsItUp) {
    run();
    EXPECT_LT(placeOf("stale ie5"), placeOf("screen.setMousePointer(11)"));
    EXPECT_TRUE(form.menu(mnuFT1a, 10).Checked);
    expectLab();
}

/// A menu entry that cannot be shown any more.
class BrokenEntry : public ControlWatcher {
public:
    void stale(Control&) override { throw RunTimeError(ErrorNumber::DeviceIoError); }
    void showNow(Control& control) override { stale(control); }
};

TEST_F(TutorialScripts, AFailingResetOpensNoDialogInTheLab) {
    BrokenEntry broken;
    MenuItem& inverted = form.menu(mnuImg1a, 9);
    const auto breakIt = [&] {
        inverted.watch(nullptr);
        inverted.Checked = true;
        inverted.watch(&broken);
    };
    breakIt();
    EXPECT_NO_THROW(run());
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_FALSE(form.menu(mnuFT1a, 10).Checked) << "the script was not begun";
    expectLab();
    breakIt();
    EXPECT_THROW(form.ReadScript(kLesson), RunTimeError) << "the reset does fail";
    inverted.watch(nullptr);
}

TEST_F(TutorialScripts, ExitEndsTheSessionOnce) {
    desktop.files.write(kLesson, "EXIT\r\n");
    run();
    EXPECT_EQ(host.unloads, 1);
}

TEST_F(TutorialScripts, InTheDarksHoleTheyTurnTheLightOnAtOnce) {
    for (const bool fadedIn : {false, true}) {
        form.Click(form.lbTAB(1));
        form.Click(form.imgDIM);
        ASSERT_TRUE(form.dim.isLoaded());
        form.dim.Timer1_Timer();
        while (fadedIn && form.dim.Timer1.Enabled)
            form.dim.Timer1_Timer();
        run();
        EXPECT_FALSE(form.dim.isLoaded());
        EXPECT_EQ(form.Tag, "");
        expectLab();
    }
}

TEST_F(TutorialScripts, InTheDarksHoleTheyLeaveTheLampAndTheKeyAsTheyWere) {
    form.Click(form.imgDIM);
    form.dim.Timer1_Timer();
    run();
    desktop.log.clear();
    Integer letter = 'l';
    form.KeyPress(letter);
    EXPECT_EQ(std::ranges::count(desktop.log, "host.showOwned(frmDIM)"), 1);
    EXPECT_EQ(form.holeRect.Width, form.frt1.Width + 6 * 15) << "around the panels now";
}

}  // namespace
}  // namespace quillon
