#include <gtest/gtest.h>

#include <QAccessible>
#include <QDir>
#include <QTextBrowser>

#include "tests/desktop/PaneWindow.h"
#include "tests/desktop/UrlCatcher.h"

namespace quillon {
namespace {

/// What both panes do alike.
class TutorialPane : public PaneWindow, public ::testing::WithParamInterface<PaneKind> {
protected:
    void SetUp() override {
        writePage("first.htm", "First", "second.htm");
        writePage("second.htm", "Second", "low pass.ftscr");
        write("low pass.ftscr", "TOP\r\nLOWPASS 20\r\n");
        openWith(GetParam());
    }
    void showFirst() {
        showTutorial();
        navigate("first.htm");
        ASSERT_TRUE(waitForPage("First"));
    }
    void followToSecond() {
        clickLink();
        ASSERT_TRUE(waitForPage("Second"));
    }
    bool paneIsThere() { return window().findChild<QWidget*>(QStringLiteral("ie5")) != nullptr; }
};

INSTANTIATE_TEST_SUITE_P(Kinds, TutorialPane,
                         ::testing::Values(PaneKind::Browser, PaneKind::Reader),
                         [](const auto& kind) {
                             return kind.param == PaneKind::Browser ? "Browser" : "Reader";
                         });

TEST_P(TutorialPane, IsMadeWhenItIsFirstSeenAndGoesStraightToTheLastPage) {
    EXPECT_FALSE(paneIsThere());
    form().itmOpt1(1);
    navigate("second.htm");
    navigate("first.htm");
    settle();
    EXPECT_FALSE(paneIsThere());
    showTutorial();
    ASSERT_TRUE(paneIsThere());
    EXPECT_TRUE(waitForPage("First"));
    EXPECT_TRUE(pane().isVisible());
    EXPECT_EQ(pane().geometry(), placeOf(form().ie5));
    QWidget* made = &pane();
    click(widget("lbTAB(0)"));
    EXPECT_FALSE(pane().isVisible());
    showTutorial();
    EXPECT_EQ(&pane(), made);
}

TEST_P(TutorialPane, IsTheKindAskedFor) {
    showTutorial();
    EXPECT_EQ(pane().inherits("QWebEngineView"), GetParam() == PaneKind::Browser);
    EXPECT_EQ(pane().inherits("QTextBrowser"), GetParam() == PaneKind::Reader);
}

TEST_P(TutorialPane, SaysItsNameToAScreenReader) {
    showTutorial();
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&pane());
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->text(QAccessible::Name), QStringLiteral("Tutorial"));
}

TEST_P(TutorialPane, FollowsALinkAndGoesBackAndForwardByTheKeyboard) {
    showFirst();
    followToSecond();
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(waitForPage("First"));
    key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_TRUE(waitForPage("Second"));
}

TEST_P(TutorialPane, GoesBackAndForwardByTheMouse) {
    showFirst();
    followToSecond();
    for (const auto& [button, title] :
         {std::pair(Qt::BackButton, "First"), std::pair(Qt::ForwardButton, "Second")}) {
        press(pane(), {200, 300}, button);
        release(pane(), {200, 300}, button);
        EXPECT_TRUE(waitForPage(title));
    }
}

TEST_P(TutorialPane, KeepsPageAndHistoryThroughTheLab) {
    showFirst();
    followToSecond();
    click(widget("lbTAB(0)"));
    showTutorial();
    EXPECT_EQ(pageShown(), QUrl::fromLocalFile(pathOf("second.htm")));
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(waitForPage("First"));
}

TEST_P(TutorialPane, LoadsThePageOfALanguageWhileItIsHidden) {
    showFirst();
    click(widget("lbTAB(0)"));
    form().itmOpt1(1);
    EXPECT_TRUE(
        wait([&] { return pageShown().path().endsWith(QStringLiteral("/doc/fr/sommaire.htm")); }));
    EXPECT_FALSE(pane().isVisible());
    EXPECT_EQ(form().lab.viewTab, 1);
}

TEST_P(TutorialPane, TheContentsTabLeadsToTheStartPageOfTheLanguage) {
    showFirst();
    click(widget("lbTAB(2)"));
    EXPECT_TRUE(
        wait([&] { return pageShown().path().endsWith(QStringLiteral("/doc/en/summary.htm")); }));
    EXPECT_TRUE(pane().isVisible());
    form().itmOpt1(1);
    navigate("first.htm");
    click(widget("lbTAB(2)"));
    EXPECT_TRUE(
        wait([&] { return pageShown().path().endsWith(QStringLiteral("/doc/fr/sommaire.htm")); }));
}

TEST_P(TutorialPane, ALanguageLeadsToTheSamePageThatALinkHasLedToAndBackToTheFormerOne) {
    ASSERT_TRUE(QDir(home.path()).mkpath(QStringLiteral("en")));
    ASSERT_TRUE(QDir(home.path()).mkpath(QStringLiteral("fr")));
    writePage("en/first.htm", "First", "second.htm");
    writePage("en/second.htm", "Second");
    writePage("fr/second.htm", "Deuxieme", "third.htm");
    writePage("fr/third.htm", "Troisieme");
    showTutorial();
    navigate("en/first.htm");
    ASSERT_TRUE(waitForPage("First"));
    followToSecond();
    form().click(MenuArray::itmOpt1, 1);
    ASSERT_TRUE(waitForPage("Deuxieme"));
    key(Qt::Key_Left, Qt::AltModifier);
    ASSERT_TRUE(waitForPage("Second"));
    key(Qt::Key_Left, Qt::AltModifier);
    ASSERT_TRUE(waitForPage("First"));
    // Back and forward count as the page on show, too: this one is in English alone.
    form().click(MenuArray::itmOpt1, 1);
    EXPECT_TRUE(
        wait([&] { return pageShown().path().endsWith(QStringLiteral("/doc/fr/sommaire.htm")); }));
}

TEST_P(TutorialPane, AsksForTheSamePageAgain) {
    showFirst();
    writePage("first.htm", "Changed");
    navigate("first.htm");
    EXPECT_TRUE(waitForPage("Changed"));
}

TEST_P(TutorialPane, HandsAScriptToTheLabAndShowsTheLab) {
    showFirst();
    followToSecond();
    ASSERT_FALSE(form().menu(MenuArray::mnuFT1a, 10).Checked);
    clickLink();
    ASSERT_TRUE(wait([&] { return form().lab.viewTab == 1; }));
    settle();
    EXPECT_TRUE(form().menu(MenuArray::mnuFT1a, 10).Checked);
    EXPECT_TRUE(form().lab.channel1.bLowpass);
    EXPECT_EQ(form().shp1(0).Height, 41);
    EXPECT_TRUE(widget("frt1").isVisible());
    EXPECT_FALSE(pane().isVisible());
    // The page that led there is there again.
    showTutorial();
    EXPECT_EQ(pageShown(), QUrl::fromLocalFile(pathOf("second.htm")));
}

TEST_P(TutorialPane, HasTheKeyboardWhenItAppearsAndTheWindowStillSeesEveryKey) {
    showFirst();
    QWidget* focus = window().focusWidget();
    ASSERT_NE(focus, nullptr);
    EXPECT_TRUE(focus == &pane() || pane().isAncestorOf(focus));
    // They recalculate in the Lab; here they belong to the page.
    for (const Qt::Key code : {Qt::Key_Return, Qt::Key_Space, Qt::Key_R}) {
        form().pb3.Tag = "3D";
        key(code);
        EXPECT_EQ(form().pb3.Tag, "3D");
    }
    key(Qt::Key_Escape);
    EXPECT_TRUE(form().bStopBatch);
}

TEST_P(TutorialPane, ALetterLIsALetter) {
    showFirst();
    form().ShowStatus(2, "kept");
    key(Qt::Key_L);
    key(Qt::Key_L, Qt::ShiftModifier);
    EXPECT_EQ(form().lbSTB(2).Caption.get(), "kept");
    EXPECT_NE(form().Tag, "DIM");
}

TEST_P(TutorialPane, GivesTheKeyboardBackToTheLab) {
    showFirst();
    click(widget("lbTAB(0)"));
    QWidget* focus = window().focusWidget();
    EXPECT_TRUE(focus == nullptr || (focus != &pane() && !pane().isAncestorOf(focus)));
    form().pb3.Tag = "3D";
    key(Qt::Key_Return);
    EXPECT_NE(form().pb3.Tag, "3D");
}

TEST_P(TutorialPane, FollowsTheWindowsSize) {
    showFirst();
    window().resize(1100, 800);
    settle();
    EXPECT_EQ(pane().geometry(), placeOf(form().ie5));
    EXPECT_EQ(pane().width(), window().width() - 12);
}

TEST_P(TutorialPane, AMissingPageIsThePanesOwnMatter) {
    showFirst();
    navigate("nowhere.htm");
    EXPECT_TRUE(wait([&] { return pageShown() == QUrl::fromLocalFile(pathOf("nowhere.htm")); }));
    EXPECT_TRUE(pane().isVisible());
    EXPECT_EQ(form().lab.viewTab, 2);
}

class PlainReader : public PaneWindow {};

TEST_F(PlainReader, SendsPagesOfTheWebToTheUsersBrowserAndKeepsItsOwn) {
    const UrlCatcher catcher;
    followInReader("https://www.brindlewood.example/a");
    recording.shell.outcomes["https://www.brindlewood.example/"] = Opening::Reserved;
    form().itm10a(0);
    // The start has asked for the companion program's page.
    EXPECT_EQ(recording.shell.addresses,
              (std::vector<std::string>{"https://www.brindlewood.example/products/Sorrel",
                                        "https://www.brindlewood.example/a",
                                        "https://www.brindlewood.example/"}));
    EXPECT_EQ(catcher.opened, QList<QUrl>()) << "past the shell";
    EXPECT_EQ(form().lbSTB(2).Caption.get(),
              "this address is reserved for examples: https://www.brindlewood.example/");
    EXPECT_EQ(titleShown(), QStringLiteral("First"));
}

TEST_F(PlainReader, ChangesTheLanguageOfItsOwnPageWhenAnotherHasOpenedOutside) {
    const UrlCatcher catcher;
    openWith(PaneKind::Reader);
    for (const char* language : {"en", "fr"})
        ASSERT_TRUE(QDir(home.path()).mkpath(QString::fromLatin1(language)));
    writePage("en/first.htm", "First");
    writePage("fr/first.htm", "Premiere");
    showTutorial();
    navigate("en/first.htm");
    ASSERT_TRUE(waitForPage("First"));
    form().ie5.Navigate2("https://127.0.0.1/");
    ASSERT_EQ(recording.shell.addresses.back(), "https://127.0.0.1/");
    form().click(MenuArray::itmOpt1, 1);
    EXPECT_TRUE(waitForPage("Premiere"));
}

}  // namespace
}  // namespace quillon
