#include <gtest/gtest.h>

#include <QDialog>
#include <QFileInfo>
#include <QTextBrowser>
#include <QTimer>

#include "desktop/QtShell.h"
#include "tests/desktop/PaneWindow.h"
#include "tests/desktop/UrlCatcher.h"
#include "ui/credits.h"

namespace quillon {
namespace {

/// A pane that only writes down where it is sent.
class RecordingPane : public BrowserPane {
public:
    RecordingPane(QWidget& parent, QList<QUrl>& pages)
        : widget_(new QWidget(&parent)), pages_(pages) {}
    RecordingPane(const RecordingPane&) = delete;
    RecordingPane& operator=(const RecordingPane&) = delete;
    ~RecordingPane() override { delete widget_; }
    QWidget& widget() override { return *widget_; }
    void navigate(const QUrl& page) override { pages_ << page; }
    QUrl page() const override { return pages_.isEmpty() ? QUrl() : pages_.back(); }
    QUrl localPage() const override { return {}; }

private:
    QPointer<QWidget> widget_;
    QList<QUrl>& pages_;
};

/// The Help menu under the mouse.
class HelpMenu : public PaneWindow {
protected:
    void SetUp() override {
        browser = [this](QWidget& parent) {
            return std::make_unique<RecordingPane>(parent, pages);
        };
        open();
    }
    /// Opens "Links" with the mouse and clicks one of its entries.
    void chooseLink(int index) {
        const QRect title = bar().actionGeometry(menu("mnu10").menuAction());
        whenPopup([&](QMenu& help) {
            QAction& links = entry("itm10(2)");
            ASSERT_NE(links.menu(), nullptr);
            QTest::mouseClick(&help, Qt::LeftButton, {}, help.actionGeometry(&links).center());
            QMenu& shown = *links.menu();
            ASSERT_TRUE(wait([&] { return shown.isVisible(); }));
            const std::string name = "itm10a(" + std::to_string(index) + ")";
            QTest::mouseClick(&shown, Qt::LeftButton, {},
                              shown.actionGeometry(&entry(name.c_str())).center());
        });
        QTest::mouseClick(&bar(), Qt::LeftButton, {}, title.center());
        settle();
    }
    static QUrl web(const char* address) { return QUrl(QString::fromLatin1(address)); }
    QList<QUrl> pages;
};

TEST_F(HelpMenu, ContentsAndUpdateAskTheDesktopAlone) {
    choose("mnu10", "itm10(0)");
    ASSERT_EQ(recording.shell.calls.size(), 1U);
    EXPECT_EQ(recording.shell.calls[0].program, "hh.exe");
    EXPECT_EQ(recording.shell.calls[0].parameters, form().helpFile + "::/en/index.html");
    choose("mnu10", "itm10(1)");
    EXPECT_EQ(recording.shell.addresses.back(), kProductPage);
    EXPECT_EQ(pages, QList<QUrl>());
    EXPECT_LT(form().lab.viewTab, 2);
}

TEST_F(HelpMenu, EveryLinkShowsItsPageInThePane) {
    const std::string library = form().lab.folders.LibPath;
    const auto applet = [&](const char* name) {
        QUrl page = QUrl::fromLocalFile(toNativePath(library + name));
        page.setFragment(QStringLiteral("en"));
        return page;
    };
    const std::pair<int, QUrl> links[] = {
        {0, web(kMakerPage)},        {1, web(kImageAuthorPage)},  {2, web(kTutorialAuthorPage)},
        {4, applet("Ondine1.html")}, {5, applet("Ondine2.html")}, {6, applet("Ondine3.html")},
        {9, web(kPaperReference)},
    };
    for (const auto& [index, page] : links) {
        click(widget("lbTAB(0)"));
        chooseLink(index);
        ASSERT_FALSE(pages.isEmpty()) << index;
        EXPECT_EQ(pages.back(), page) << index;
        EXPECT_EQ(form().lab.viewTab, 2);
        EXPECT_TRUE(pane().isVisible());
    }
}

TEST_F(HelpMenu, ThePaperOpensOutsideAndTheLabStays) {
    chooseLink(8);
    ASSERT_EQ(recording.shell.calls.size(), 1U);
    EXPECT_TRUE(recording.shell.calls[0].program.ends_with("Halvard_2007c.pdf"));
    EXPECT_EQ(pages, QList<QUrl>());
    EXPECT_TRUE(widget("frt1").isVisible());
}

TEST_F(HelpMenu, AboutIsShownByTheMouse) {
    bool seen = false;
    const QRect title = bar().actionGeometry(menu("mnu10").menuAction());
    whenPopup([&](QMenu& help) {
        QTimer::singleShot(0, qApp, [&] {
            QWidget* box = QApplication::activeModalWidget();
            ASSERT_NE(box, nullptr);
            seen = box->objectName() == QStringLiteral("frmAbout");
            box->close();
        });
        QTest::mouseClick(&help, Qt::LeftButton, {},
                          help.actionGeometry(&entry("itm10(4)")).center());
    });
    QTest::mouseClick(&bar(), Qt::LeftButton, {}, title.center());
    settle();
    EXPECT_TRUE(seen);
}

TEST_F(HelpMenu, ThePaneIsFirstSentToThePageThatItKept) {
    chooseLink(0);
    ASSERT_EQ(pages.size(), 2);
    EXPECT_TRUE(pages[0].path().endsWith(QStringLiteral("/doc/en/summary.htm")));
    EXPECT_EQ(pages[1], web(kMakerPage));
}

TEST_F(HelpMenu, TheHelpThatTheShellOpensIsDelivered) {
    for (const Integer language : {Integer{0}, Integer{1}}) {
        const UrlCatcher catcher;
        form().click(MenuArray::itmOpt1, language);
        recording.shell.calls.clear();
        choose("mnu10", "itm10(0)");
        ASSERT_EQ(recording.shell.calls.size(), 1U);
        QtShell().execute(recording.shell.calls[0].program, recording.shell.calls[0].parameters,
                          recording.shell.calls[0].directory);
        ASSERT_EQ(catcher.opened.size(), 1);
        const QString page = catcher.opened[0].toLocalFile();
        EXPECT_TRUE(page.endsWith(language == 0 ? QStringLiteral("/doc/help/en/index.html")
                                                : QStringLiteral("/doc/help/fr/index.html")))
            << page.toStdString();
        EXPECT_TRUE(QFileInfo(page).isFile()) << page.toStdString();
    }
}

TEST_F(HelpMenu, AMissingHelpIsSaidToBeMissing) {
    const UrlCatcher catcher;
    EXPECT_EQ(QtShell().execute("hh.exe", toLabPath(pathOf("none.chm")), "0"), Opening::Missing);
    EXPECT_TRUE(catcher.opened.isEmpty());
}

/// The window with the desktop's own shell.
class HelpMenuOnTheDesktop : public OpenedWindow {
protected:
    void SetUp() override {
        lab = std::make_unique<LabWindow>(onTheDesktop, services.screen, nullptr,
                                          BrowserSource{browser});
        Main(onTheDesktop, *lab);
        settle();
    }
    const UrlCatcher catcher;
    Desktop onTheDesktop{recording.dialogs, services.pictures,    services.clipboard,
                         services.text,     services.printer,     services.shell,
                         services.screen,   services.environment, services.store,
                         services.files};
};

TEST_F(HelpMenuOnTheDesktop, AReservedAddressIsNamedInTheStripAndOpensNothing) {
    // The start has asked for the companion program's page.
    const std::string before = form().lbSTB(2).Caption;
    EXPECT_EQ(before.find("reserved"), std::string::npos) << before;
    choose("mnu10", "itm10(1)");
    EXPECT_EQ(form().lbSTB(2).Caption.get(),
              std::string("this address is reserved for examples: ") + kProductPage);
    EXPECT_EQ(catcher.opened, QList<QUrl>());
    choose("mnuOpt", "itmOpt(4)");
    EXPECT_EQ(form().lbSTB(2).Caption.get(), before);
}

/// What both panes do with scripts that change the window below them, and with
/// the history of their first page.
class OpenedPane : public PaneWindow, public ::testing::WithParamInterface<PaneKind> {
protected:
    void SetUp() override { openWith(GetParam()); }
    void showLinkTo(const char* script) {
        writePage("first.htm", "First", script);
        showTutorial();
        navigate("first.htm");
        ASSERT_TRUE(waitForPage("First"));
    }
};

INSTANTIATE_TEST_SUITE_P(Kinds, OpenedPane, ::testing::Values(PaneKind::Browser, PaneKind::Reader),
                         [](const auto& kind) {
                             return kind.param == PaneKind::Browser ? "Browser" : "Reader";
                         });

TEST_P(OpenedPane, ByALinkOfTheLabGoesBackToTheStartPageThatItKept) {
    writePage("first.htm", "First");
    form().Click(form().lbTAB(1));
    navigate("first.htm");
    ASSERT_TRUE(waitForPage("First"));
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(
        wait([&] { return pageShown().path().endsWith(QStringLiteral("/doc/en/summary.htm")); }));
}

TEST_P(OpenedPane, AScriptThatEndsTheSessionMayTakeThePaneAway) {
    write("end.ftscr", "EXIT\r\n");
    showLinkTo("end.ftscr");
    clickLink();
    ASSERT_TRUE(wait([&] { return !window().isVisible(); }));
    lab.reset();
}

TEST_P(OpenedPane, ALinkChosenWhileAScriptRunsIsFollowedInItsMidst) {
    write("low.ftscr", "TOP\r\nLOWPASS 20\r\n");
    write("failing.ftscr", "TOP\r\nLOAD1 missing.bmp\r\n");
    int told = 0;
    recording.dialogs.onMessage = [&](const RecordingDialogs::Message&) {
        // The lab is on show; the user goes back to the lesson behind the message.
        if (++told > 1)
            return;
        showTutorial();
        writePage("second.htm", "Second", "low.ftscr");
        navigate("second.htm");
        ASSERT_TRUE(waitForPage("Second"));
        clickLink();
        ASSERT_TRUE(wait([&] { return form().lab.viewTab == 1; }));
    };
    showLinkTo("failing.ftscr");
    clickLink();
    ASSERT_TRUE(wait([&] { return told > 0 && form().lab.viewTab == 1; }));
    settle();
    recording.dialogs.onMessage = {};
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(widget("frt1").isVisible());
    EXPECT_FALSE(pane().isVisible());
}

TEST_P(OpenedPane, AMissingScriptIsToldOnce) {
    showLinkTo("missing.FTSCR");
    recording.dialogs.messages.clear();
    clickLink();
    ASSERT_TRUE(wait([&] { return form().lab.viewTab == 1; }));
    settle();
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_TRUE(recording.dialogs.messages[0].text.find("File not found") != std::string::npos)
        << recording.dialogs.messages[0].text;
    EXPECT_EQ(pageShown(), QUrl::fromLocalFile(pathOf("first.htm")));
}

TEST_P(OpenedPane, ItsRightClickMenuGoesBackAndForward) {
    writePage("second.htm", "Second");
    showLinkTo("second.htm");
    clickLink();
    ASSERT_TRUE(waitForPage("Second"));
    ASSERT_EQ(pane().contextMenuPolicy(), Qt::ActionsContextMenu);
    const QList<QAction*> actions = pane().actions();
    const auto at = [&](const char* text) -> QAction& {
        for (QAction* action : actions)
            if (action->text().remove(u'&') == QString::fromLatin1(text))
                return *action;
        throw std::invalid_argument(text);
    };
    EXPECT_FALSE(at("Forward").isEnabled());
    at("Back").trigger();
    ASSERT_TRUE(waitForPage("First"));
    EXPECT_TRUE(at("Forward").isEnabled());
    at("Forward").trigger();
    EXPECT_TRUE(waitForPage("Second"));
    EXPECT_FALSE(at("Copy").text().isEmpty());
}

class ReaderOfPages : public PaneWindow {};

TEST_F(ReaderOfPages, ShowsAMissingPageAsABlankOne) {
    followInReader("nowhere.htm");
    EXPECT_EQ(dynamic_cast<QTextBrowser&>(pane()).toPlainText(), QString());
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(waitForPage("First"));
}

TEST_F(ReaderOfPages, PassesOverALinkToWhatIsNoPage) {
    const UrlCatcher catcher;
    followInReader("mailto:a@brindlewood.example");
    EXPECT_EQ(titleShown(), QStringLiteral("First"));
    EXPECT_EQ(catcher.opened, QList<QUrl>());
}

}  // namespace
}  // namespace quillon
