#include <gtest/gtest.h>

#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

constexpr const char* kPanelMenus[] = {"mnuImg1", "mnuFT1", "mnuNew1",
                                       "mnuImg2", "mnuFT2", "mnuNew2"};
constexpr const char* kMarkers[] = {"mnuDUM1", "mnuDUM2", "mnuDUM3"};
constexpr const char* kOtherMenus[] = {"mnuFile", "mnuSCR", "mnuOpt", "mnu10"};

class Views : public OpenForm {
protected:
    void tab(Integer index) { form.Click(form.lbTAB(index)); }
};

TEST_F(Views, BeforeTheFirstClickTheLabIsShownUnderNumberZero) {
    EXPECT_EQ(form.lab.viewTab, 0);
    EXPECT_TRUE(form.frt1.Visible);
    EXPECT_TRUE(form.btLUT.Visible);
    EXPECT_FALSE(form.ie5.Visible);
    EXPECT_FALSE(form.lbTAB(2).Visible);
    EXPECT_TRUE(form.lbTAB(0).FontBold);
}

TEST_F(Views, TheTutorialHidesLabStripButtonAndPanelMenus) {
    form.Click(form.btLUT);
    tab(1);
    EXPECT_EQ(form.lab.viewTab, 2);
    EXPECT_FALSE(form.frt1.Visible);
    EXPECT_FALSE(form.stb.Visible);
    EXPECT_TRUE(form.ie5.Visible);
    EXPECT_TRUE(form.lbTAB(2).Visible);
    EXPECT_FALSE(form.btLUT.Visible);
    EXPECT_FALSE(form.frLUT.Visible);
    for (const char* title : kPanelMenus)
        EXPECT_FALSE(form.menuTitle(title).Visible) << title;
    for (const char* title : kOtherMenus)
        EXPECT_TRUE(form.menuTitle(title).Visible) << title;
    // They part the menus of the channels from each other and from the rest.
    for (const char* marker : kMarkers)
        EXPECT_FALSE(form.menuTitle(marker).Visible) << marker;
}

TEST_F(Views, TheLabComesBackWhole) {
    form.Click(form.btLUT);
    tab(1);
    tab(0);
    EXPECT_EQ(form.lab.viewTab, 1);
    EXPECT_TRUE(form.frt1.Visible);
    EXPECT_TRUE(form.stb.Visible);
    EXPECT_FALSE(form.ie5.Visible);
    EXPECT_FALSE(form.lbTAB(2).Visible);
    EXPECT_TRUE(form.btLUT.Visible);
    EXPECT_FALSE(form.frLUT.Visible) << "the selector stays closed";
    for (const char* title : kPanelMenus)
        EXPECT_TRUE(form.menuTitle(title).Visible) << title;
    for (const char* marker : kMarkers)
        EXPECT_TRUE(form.menuTitle(marker).Visible) << marker;
}

TEST_F(Views, AClickOnTheLabTabLeavesAnOpenSelectorOpen) {
    form.Click(form.btLUT);
    tab(0);
    EXPECT_TRUE(form.frLUT.Visible);
}

TEST_F(Views, TheTabInForceIsBoldAndOnePointLarger) {
    for (const Integer chosen : {Integer{1}, Integer{0}, Integer{1}}) {
        tab(chosen);
        const auto other = static_cast<Integer>(1 - chosen);
        EXPECT_TRUE(form.lbTAB(chosen).FontBold);
        EXPECT_EQ(form.lbTAB(chosen).FontSize, 9);
        EXPECT_FALSE(form.lbTAB(other).FontBold);
        EXPECT_EQ(form.lbTAB(other).FontSize, 8);
    }
}

TEST_F(Views, ATabKeepsTheBrowsersPage) {
    const Long requests = form.ie5.Requests;
    tab(1);
    tab(0);
    tab(1);
    EXPECT_EQ(form.ie5.Requests, requests);
}

TEST_F(Views, TheContentsTabGoesToTheStartPageAndChangesNothingElse) {
    tab(1);
    form.ie5.Navigate2("https://www.brindlewood.example/");
    const Long requests = form.ie5.Requests;
    tab(2);
    EXPECT_EQ(form.lab.viewTab, 2);
    EXPECT_EQ(form.ie5.Address.get(), "C:\\Quillon\\doc\\en\\summary.htm");
    EXPECT_EQ(form.ie5.Requests, requests + 1);
    EXPECT_TRUE(form.lbTAB(1).FontBold);
    form.itmOpt1(1);
    tab(2);
    EXPECT_EQ(form.ie5.Address.get(), "C:\\Quillon\\doc\\fr\\sommaire.htm");
}

TEST_F(Views, ALanguageIsCheckedStoredAndShownAtOnceInWhicheverView) {
    const Long requests = form.ie5.Requests;
    form.itmOpt1(1);
    EXPECT_TRUE(form.menu(MenuArray::itmOpt1, 1).Checked);
    EXPECT_FALSE(form.menu(MenuArray::itmOpt1, 0).Checked);
    EXPECT_EQ(stored("FR"), "1");
    EXPECT_TRUE(form.lab.frenchTutorial);
    EXPECT_EQ(form.ie5.Address.get(), "C:\\Quillon\\doc\\fr\\sommaire.htm");
    EXPECT_EQ(form.ie5.Requests, requests + 1);
    EXPECT_EQ(form.lab.viewTab, 0);
    EXPECT_FALSE(form.ie5.Visible);
    form.itmOpt1(0);
    EXPECT_TRUE(form.menu(MenuArray::itmOpt1, 0).Checked);
    EXPECT_FALSE(form.menu(MenuArray::itmOpt1, 1).Checked);
    EXPECT_EQ(stored("FR"), "0");
    EXPECT_FALSE(form.lab.frenchTutorial);
    EXPECT_EQ(form.ie5.Address.get(), "C:\\Quillon\\doc\\en\\summary.htm");
}

TEST_F(Views, TheSameLanguageAgainLoadsItsPageAgain) {
    const Long requests = form.ie5.Requests;
    form.itmOpt1(0);
    EXPECT_EQ(form.ie5.Requests, requests + 1);
}

}  // namespace
}  // namespace quillon
