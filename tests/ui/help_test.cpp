#include <gtest/gtest.h>

#include <algorithm>

#include "engine/RunTimeError.h"
#include "tests/support/CommandFixture.h"
#include "ui/credits.h"

namespace quillon {
namespace {

using enum MenuArray;

class Help : public CommandFixture {
protected:
    using Call = RecordingShell::Call;
    void link(Integer index) { form.click(itm10a, index); }
    const std::string& page() { return form.ie5.Address; }
};

TEST_F(Help, TheContentsOpenTheHelpBesideTheProgramInItsViewer) {
    form.click(itm10, 0);
    EXPECT_EQ(desktop.shell.calls,
              (std::vector<Call>{{"hh.exe", "C:\\Quillon\\Quillon.chm::/en/index.html", "0"}}));
    EXPECT_EQ(form.lab.viewTab, 0) << "the viewer is another program";
}

TEST_F(Help, TheContentsOpenInTheLanguageInForce) {
    form.click(itmOpt1, 1);
    form.click(itm10, 0);
    form.click(itmOpt1, 0);
    form.click(itm10, 0);
    EXPECT_EQ(desktop.shell.calls,
              (std::vector<Call>{{"hh.exe", "C:\\Quillon\\Quillon.chm::/fr/index.html", "0"},
                                 {"hh.exe", "C:\\Quillon\\Quillon.chm::/en/index.html", "0"}}));
}

TEST_F(Help, ShowHelpLooksAtNoArgumentAndAtTheFileAsItIsNow) {
    form.helpFile = "D:\\Other\\Help.chm";
    for (const Integer id : {Integer{-1}, Integer{0}, Integer{77}})
        form.ShowHelp(id);
    EXPECT_EQ(desktop.shell.calls,
              (std::vector<Call>(3, Call{"hh.exe", "D:\\Other\\Help.chm::/en/index.html", "0"})));
}

TEST_F(Help, ACheckForAnUpdateOpensTheProductsPageInTheUsersBrowserAndFetchesNothing) {
    const Long requests = form.ie5.Requests;
    form.click(itm10, 1);
    EXPECT_EQ(desktop.shell.addresses,
              std::vector<std::string>{"https://www.brindlewood.example/products/Quillon"});
    EXPECT_EQ(form.ie5.Requests, requests);
    EXPECT_EQ(form.lab.viewTab, 0);
}

TEST_F(Help, TheSubMenuTheSeparatorAndAnIndexWithoutEntryDoNothing) {
    desktop.log.clear();
    for (const Integer index : {Integer{2}, Integer{3}, Integer{5}, Integer{-1}})
        form.click(itm10, index);
    EXPECT_TRUE(desktop.log.empty());
}

/// The steps since the log was cleared, each followed by none of its own kind.
std::vector<std::string> stepsOf(const std::vector<std::string>& log) {
    std::vector<std::string> steps = log;
    steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
    return steps;
}

TEST_F(Help, ATabTakesItsStepsInTheirFixedOrder) {
    for (const char* title : {"mnuImg1", "mnuFT1", "mnuNew1", "mnuImg2", "mnuFT2", "mnuNew2"})
        form.menuTitle(title).watch(&watcher);
    form.Click(form.btLUT);
    desktop.log.clear();
    form.Click(form.lbTAB(1));
    EXPECT_EQ(stepsOf(desktop.log),
              (std::vector<std::string>{
                  "stale frt1", "stale stb", "stale ie5", "stale lbTAB(2)", "stale lbTAB(1)",
                  "stale lbTAB(0)", "stale mnuImg1", "stale mnuFT1", "stale mnuNew1",
                  "stale mnuImg2", "stale mnuFT2", "stale mnuNew2", "stale btLUT", "stale frLUT"}));
}

TEST_F(Help, ALanguageIsCheckedThenStoredThenShown) {
    for (const Integer index : {Integer{0}, Integer{1}})
        form.menu(itmOpt1, index).watch(&watcher);
    desktop.log.clear();
    form.click(itmOpt1, 1);
    EXPECT_EQ(stepsOf(desktop.log),
              (std::vector<std::string>{"stale itmOpt1(0)", "stale itmOpt1(1)",
                                        "store.write(Software\\Brindlewood\\Quillon, FR, 1)",
                                        "files.length(C:\\Quillon\\doc\\fr\\sommaire.htm)",
                                        "environment.programFolder()", "stale ie5"}))
        << "the other entry loses its mark first";
}

struct Link {
    Integer index;
    const char* page;
};

/// What appears in the tutorial's pane.
const Link kLinks[] = {
    {0, "https://www.brindlewood.example/"},
    {1, "https://www.brindlewood.example/people/images"},
    {2, "https://www.brindlewood.example/people/tutorial"},
    {4, "C:\\Quillon\\Lib\\Ondine1.html#en"},
    {5, "C:\\Quillon\\Lib\\Ondine2.html#en"},
    {6, "C:\\Quillon\\Lib\\Ondine3.html#en"},
    {9, "https://doi.wren-journal.example/10.5555/wren.2007.halvard.c"},
};

TEST_F(Help, ALinkChosenInTheLabLeavesItAndShowsItsPage) {
    for (const Integer before : {Integer{0}, Integer{1}})
        for (const Link& chosen : kLinks) {
            form.Click(form.lbTAB(0));
            form.lab.viewTab = before;
            const Long requests = form.ie5.Requests;
            link(chosen.index);
            EXPECT_EQ(page(), chosen.page);
            EXPECT_EQ(form.ie5.Requests, requests + 1);
            EXPECT_EQ(form.lab.viewTab, 2);
            EXPECT_TRUE(form.ie5.Visible);
            EXPECT_FALSE(form.frt1.Visible);
        }
    EXPECT_TRUE(desktop.shell.calls.empty());
    EXPECT_TRUE(desktop.shell.addresses.empty());
}

TEST_F(Help, TheInteractivePagesOpenInTheLanguageInForce) {
    form.click(itmOpt1, 1);
    for (const Integer index : {Integer{4}, Integer{5}, Integer{6}}) {
        link(index);
        EXPECT_EQ(page(), "C:\\Quillon\\Lib\\Ondine" + std::to_string(index - 3) + ".html#fr");
    }
}

TEST_F(Help, ALinkChosenInTheTutorialOnlyChangesThePage) {
    form.Click(form.lbTAB(1));
    for (const Link& chosen : kLinks) {
        // The handler of the tabs would show it again.
        form.lbTAB(2).Visible = false;
        link(chosen.index);
        EXPECT_EQ(page(), chosen.page);
        EXPECT_EQ(form.lab.viewTab, 2);
        EXPECT_FALSE(form.lbTAB(2).Visible);
    }
}

TEST_F(Help, TheTutorialIsShownBeforeThePageIsAskedFor) {
    desktop.log.clear();
    link(0);
    EXPECT_LT(placeOf("stale frt1"), placeOf("stale ie5"));
    EXPECT_LT(placeOf("stale ie5"), placeOf("stale lbTAB(2)"));
    // Once for the sight of the pane, once for the address, once for the request.
    EXPECT_EQ(std::ranges::count(desktop.log, "stale ie5"), 3);
    EXPECT_EQ(desktop.log.back(), "stale ie5");
}

TEST_F(Help, ThePaperOpensInItsReaderAndDoesNotLeaveTheLab) {
    const Long requests = form.ie5.Requests;
    link(8);
    EXPECT_EQ(
        desktop.shell.calls,
        (std::vector<Call>{{"C:\\Quillon\\Doc\\Halvard_2007c.pdf", "", "C:\\Quillon\\Doc\\"}}));
    EXPECT_EQ(form.lab.viewTab, 0);
    EXPECT_TRUE(form.frt1.Visible);
    form.Click(form.lbTAB(1));
    link(8);
    EXPECT_EQ(form.lab.viewTab, 2);
    EXPECT_EQ(desktop.shell.calls.size(), 2U);
    EXPECT_EQ(form.ie5.Requests, requests);
}

TEST_F(Help, APaperThatIsNotThereIsSaidToBeMissing) {
    desktop.shell.outcomes["C:\\Quillon\\Doc\\Halvard_2007c.pdf"] = Opening::Missing;
    EXPECT_NO_THROW(link(8));
    EXPECT_EQ(desktop.shell.calls.size(), 1U);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(status(2), "the paper is not here");
}

/// A pane that breaks at every request.
class BrokenPane : public ControlWatcher {
public:
    void stale(Control& control) override {
        if (static_cast<Browser&>(control).Address.get().starts_with("https"))
            throw RunTimeError(ErrorNumber::DeviceIoError);
    }
    void showNow(Control&) override {}
};

TEST_F(Help, APageThatCannotBeShownIsSaidInTheStripAlone) {
    BrokenPane broken;
    form.ie5.watch(&broken);
    for (const Integer index : {Integer{0}, Integer{1}, Integer{2}, Integer{9}}) {
        EXPECT_NO_THROW(link(index)) << index;
        EXPECT_EQ(status(2), "not shown: Device I/O error");
    }
    EXPECT_EQ(form.lab.viewTab, 2) << "the view has changed before";
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    form.ie5.watch(nullptr);
}

TEST_F(Help, TheSeparatorsEndTheHandlerAfterItsFirstStep) {
    for (const Integer index : {Integer{3}, Integer{7}}) {
        form.Click(form.lbTAB(0));
        const Long requests = form.ie5.Requests;
        link(index);
        EXPECT_EQ(form.lab.viewTab, 2);
        EXPECT_EQ(form.ie5.Requests, requests);
    }
    EXPECT_TRUE(desktop.shell.calls.empty());
}

TEST_F(Help, AScriptOfAPageSetsUpTheLabAndShowsIt) {
    desktop.files.write("C:\\lesson.ftscr", "TOP\r\nLOWPASS 20\r\n");
    form.Click(form.lbTAB(1));
    form.RunTutorialScript("C:\\lesson.ftscr");
    EXPECT_TRUE(form.menu(mnuFT1a, 10).Checked);
    EXPECT_TRUE(channel(Channel::One).bLowpass);
    EXPECT_EQ(form.lab.viewTab, 1);
    EXPECT_TRUE(form.frt1.Visible);
    EXPECT_FALSE(form.ie5.Visible);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(Help, AScriptOfAPageThatFailsTellsSoAsAnyScriptDoes) {
    desktop.files.write("C:\\lesson.ftscr", "TOP\r\nLOAD1 missing.bmp\r\n");
    form.Click(form.lbTAB(1));
    form.RunTutorialScript("C:\\lesson.ftscr");
    EXPECT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(form.lab.viewTab, 1);
}

TEST(Credits, EveryPageLiesUnderADomainReservedForExamples) {
    for (const std::string page :
         {kMakerPage, kProductPage, kImageAuthorPage, kTutorialAuthorPage, kPaperReference}) {
        ASSERT_TRUE(page.starts_with("https://")) << page;
        const std::string host = page.substr(8, page.find('/', 8) - 8);
        EXPECT_TRUE(host.ends_with(".example")) << page;
    }
}

}  // namespace
}  // namespace quillon
