#include <gtest/gtest.h>

#include <QLabel>
#include <QPointer>

#include "tests/desktop/BrowserWindow.h"
#include "tests/desktop/PageServer.h"
#include "tests/desktop/UrlCatcher.h"

// What happens when a page takes the browser's process with it.

namespace quillon {
namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;

/// A browser whose pages break down when the test says so. It writes down where it
/// is sent.
class BreakablePane : public BrowserPane {
public:
    BreakablePane(QWidget& parent, QList<QUrl>& pages)
        : widget_(new QLabel(&parent)), pages_(pages) {}
    BreakablePane(const BreakablePane&) = delete;
    BreakablePane& operator=(const BreakablePane&) = delete;
    ~BreakablePane() override { delete widget_; }
    QWidget& widget() override { return *widget_; }
    void navigate(const QUrl& page) override { pages_ << page; }
    QUrl page() const override { return pages_.isEmpty() ? QUrl() : pages_.back(); }
    QUrl localPage() const override { return page(); }

private:
    QPointer<QWidget> widget_;
    QList<QUrl>& pages_;
};

class PaneRestart : public PaneWindow {
protected:
    void SetUp() override {
        browser = [this](QWidget& parent) {
            auto made = std::make_unique<BreakablePane>(parent, pages);
            shown = made.get();
            return made;
        };
        open();
        writePage("first.htm", "First");
        showTutorial();
        navigate("first.htm");
        pages.clear();
        pages << first;
    }
    void breakDown() {
        shown->onBroken();
        settle();
    }
    bool isReader() { return pane().inherits("QTextBrowser"); }

    const QUrl first = QUrl::fromLocalFile(pathOf("first.htm"));
    QList<QUrl> pages;
    BreakablePane* shown = nullptr;
};

TEST_F(PaneRestart, ABreakdownShowsThePageAgainInTheSamePane) {
    breakDown();
    EXPECT_FALSE(isReader());
    EXPECT_EQ(pages, (QList<QUrl>{first, first}));
}

TEST_F(PaneRestart, ASecondOneWithinAMinuteMakesRoomForThePlainReader) {
    breakDown();
    paneTime += minutes(1) - milliseconds(1);
    breakDown();
    ASSERT_TRUE(isReader());
    EXPECT_EQ(pageShown(), first);
    EXPECT_TRUE(pane().isVisible());
    EXPECT_EQ(pane().geometry(), placeOf(form().ie5));
}

TEST_F(PaneRestart, OneAMinuteIsRecoveredFromHoweverOften) {
    for (int i = 0; i < 5; ++i) {
        breakDown();
        EXPECT_FALSE(isReader()) << i;
        paneTime += minutes(1);
    }
    EXPECT_EQ(pages, QList<QUrl>(6, first));
}

TEST_F(PaneRestart, ABreakdownThatIsToldTwiceCountsOnceForTheReader) {
    breakDown();
    shown->onBroken();
    shown->onBroken();
    settle();
    ASSERT_TRUE(isReader());
    EXPECT_EQ(pageShown(), first);
    EXPECT_FALSE(pane().actions().at(0)->isEnabled()) << "there is nothing to go back to";
}

TEST_F(PaneRestart, BeforeAnyPageItShowsTheOneThatWasAskedFor) {
    pages.clear();
    breakDown();
    EXPECT_EQ(pages, QList<QUrl>{first});
}

/// The same with the browser itself, whose process really ends.
class BrowserRestart : public BrowserWindow {
protected:
    void SetUp() override {
        BrowserWindow::SetUp();
        server.page = "<title>Outside</title><body bgcolor='#204060'>";
    }
    void show(const char* name, const char* title) {
        showTutorial();
        navigate(name);
        ASSERT_TRUE(waitForPage(title));
    }
    void crash() {
        const int before = paneTimeAsked;
        pane().setProperty("url", QUrl(QStringLiteral("chrome://crash")));
        EXPECT_TRUE(wait([&] { return paneTimeAsked > before; }));
    }
    bool becomesReader() {
        if (!wait([&] { return pane().inherits("QTextBrowser"); }))
            return false;
        kind_ = PaneKind::Reader;
        return true;
    }
    /// Waits until a page answers, from a process of its own, and its picture is there.
    bool comesBack(const char* title) {
        return wait([&] {
                   return ask(QStringLiteral("document.title")) == QString::fromLatin1(title);
               }) &&
               waitForPage(title);
    }
    PageServer server;
};

TEST_F(BrowserRestart, ACrashedPageIsThereAgainWithItsHistoryAndItsKeyboard) {
    writePage("second.htm", "Second", "third.htm");
    writePage("third.htm", "Third");
    writePage("first.htm", "First", "second.htm");
    show("first.htm", "First");
    clickLink();
    ASSERT_TRUE(waitForPage("Second"));
    crash();
    ASSERT_TRUE(comesBack("Second"));
    EXPECT_TRUE(pane().inherits("QWebEngineView"));
    QWidget* focus = window().focusWidget();
    EXPECT_TRUE(focus != nullptr && (focus == &pane() || pane().isAncestorOf(focus)));
    clickLink();
    ASSERT_TRUE(waitForPage("Third"));
    key(Qt::Key_Left, Qt::AltModifier);
    ASSERT_TRUE(waitForPage("Second"));
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(waitForPage("First"));
}

TEST_F(BrowserRestart, ASecondCrashWithinAMinuteLeavesTheReaderOnThePageThatWasOnShow) {
    writePage("second.htm", "Second");
    writePage("first.htm", "First", "second.htm");
    show("first.htm", "First");
    clickLink();
    ASSERT_TRUE(waitForPage("Second"));
    crash();
    ASSERT_TRUE(comesBack("Second"));
    crash();
    ASSERT_TRUE(becomesReader());
    EXPECT_EQ(titleShown(), QStringLiteral("Second"));
    EXPECT_TRUE(pane().isVisible());
    EXPECT_EQ(pane().geometry(), placeOf(form().ie5));
}

TEST_F(BrowserRestart, ACrashAMinuteLaterIsRecoveredFromToo) {
    writePage("first.htm", "First");
    show("first.htm", "First");
    crash();
    ASSERT_TRUE(comesBack("First"));
    paneTime += minutes(1);
    crash();
    ASSERT_TRUE(comesBack("First"));
    EXPECT_TRUE(pane().inherits("QWebEngineView"));
}

TEST_F(BrowserRestart, APageOfTheWebComesBackButNeverOpensOutside) {
    const UrlCatcher catcher;
    writePage("first.htm", "First");
    show("first.htm", "First");
    form().ie5.Navigate2(server.address().toStdString());
    ASSERT_TRUE(waitForPage("Outside"));
    crash();
    ASSERT_TRUE(comesBack("Outside"));
    crash();
    ASSERT_TRUE(becomesReader());
    EXPECT_EQ(titleShown(), QStringLiteral("First")) << "the last page of the disk";
    EXPECT_EQ(catcher.opened, QList<QUrl>());
}

}  // namespace
}  // namespace quillon
