#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

/// The steps of the tabs in their order.
class TabSteps : public CommandFixture {
protected:
    TabSteps() {
        for (const char* title : kPanelMenus)
            form.menuTitle(title).watch(&watcher);
    }
    ~TabSteps() override {
        for (const char* title : kPanelMenus)
            form.menuTitle(title).watch(nullptr);
    }
    /// Whom a click touches, each as often as another one comes between.
    std::vector<std::string> touchedBy(Integer tab) {
        desktop.log.clear();
        form.Click(form.lbTAB(tab));
        std::vector<std::string> steps = desktop.log;
        steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
        return steps;
    }
    static constexpr const char* kPanelMenus[] = {"mnuImg1", "mnuFT1", "mnuNew1",
                                                  "mnuImg2", "mnuFT2", "mnuNew2"};
};

TEST_F(TabSteps, TheContentsTabSwitchesTheViewByItsNumberAlone) {
    for (const Integer view : {Integer{0}, Integer{1}}) {
        form.Click(form.lbTAB(0));
        form.frLUT.Visible = true;
        form.lab.viewTab = view;
        // It cannot be clicked by hand before the Tutorial is on show.
        EXPECT_EQ(touchedBy(2),
                  (std::vector<std::string>{"environment.programFolder()", "stale ie5"}))
            << "nothing else changes";
        EXPECT_EQ(form.lab.viewTab, 2);
        EXPECT_TRUE(form.frt1.Visible);
        EXPECT_TRUE(form.stb.Visible);
        EXPECT_TRUE(form.frLUT.Visible);
        EXPECT_FALSE(form.ie5.Visible);
        EXPECT_TRUE(form.lbTAB(0).FontBold);
    }
}

TEST_F(TabSteps, TheLabTabTakesThemInTheirFixedOrder) {
    form.Click(form.lbTAB(1));
    EXPECT_EQ(touchedBy(0),
              (std::vector<std::string>{"stale frt1", "stale stb", "stale ie5", "stale lbTAB(2)",
                                        "stale lbTAB(0)", "stale lbTAB(1)", "stale mnuImg1",
                                        "stale mnuFT1", "stale mnuNew1", "stale mnuImg2",
                                        "stale mnuFT2", "stale mnuNew2", "stale btLUT"}));
}

/// Remembers the view's number at the first change of any control.
class FirstLook : public ControlWatcher {
public:
    explicit FirstLook(const Lab& lab) : lab_(lab) {}
    Integer viewTab = -1;
    void stale(Control& /*control*/) override {
        if (viewTab < 0)
            viewTab = lab_.viewTab;
    }
    void showNow(Control& control) override { stale(control); }

private:
    const Lab& lab_;
};

TEST_F(TabSteps, TheViewsNumberChangesBeforeAnyControl) {
    for (const Integer tab : {Integer{1}, Integer{0}}) {
        FirstLook look(form.lab);
        for (Control* control : form.controls())
            control->watch(&look);
        form.Click(form.lbTAB(tab));
        EXPECT_EQ(look.viewTab, tab + 1);
        for (Control* control : form.controls())
            control->watch(nullptr);
    }
}

}  // namespace
}  // namespace quillon
