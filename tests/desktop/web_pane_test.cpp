#include <gtest/gtest.h>

#include <QProcess>

#include "desktop/page_links.h"
#include "desktop/web_engine.h"
#include "tests/desktop/PageServer.h"
#include "tests/desktop/PaneWindow.h"
#include "tests/support/OrdinaryUser.h"

namespace quillon {
namespace {

TEST(PageLinks, AScriptIsALocalFileOfItsEnding) {
    const auto script = [](const char* address) {
        return isScript(QUrl(QString::fromLatin1(address)));
    };
    EXPECT_TRUE(script("file:///a/b%20c.ftscr"));
    EXPECT_TRUE(script("file:///a/b.FtScr#part"));
    EXPECT_FALSE(script("file:///a/b.ftscr.htm"));
    EXPECT_FALSE(script("https://www.brindlewood.example/b.ftscr"));
}

TEST(PageLinks, TheWebIsHttpWithOrWithoutS) {
    EXPECT_TRUE(isWebAddress(QUrl(QStringLiteral("http://a.example/"))));
    EXPECT_TRUE(isWebAddress(QUrl(QStringLiteral("https://a.example/"))));
    EXPECT_FALSE(isWebAddress(QUrl(QStringLiteral("file:///a"))));
    EXPECT_FALSE(isWebAddress(QUrl(QStringLiteral("C:\\Quillon\\doc\\en\\summary.htm"))));
}

TEST(EngineFlags, SwitchTheSandboxOffForRootAlone) {
    EXPECT_EQ(engineFlags("", SystemUser::Root), "--no-sandbox");
    EXPECT_EQ(engineFlags("", SystemUser::Ordinary), "");
}

TEST(EngineFlags, KeepTheUsersOwn) {
    EXPECT_EQ(engineFlags("--a --b=1", SystemUser::Root), "--a --b=1 --no-sandbox");
    EXPECT_EQ(engineFlags("--a --no-sandbox --b", SystemUser::Root), "--a --no-sandbox --b");
    EXPECT_EQ(engineFlags("--a --b=1", SystemUser::Ordinary), "--a --b=1");
    const EnvironmentVariable off("QTWEBENGINE_DISABLE_SANDBOX", QStringLiteral("1"));
    EXPECT_EQ(engineFlags("--a", SystemUser::Root), "--a");
}

TEST(Sandbox, IsNoQuestionForRootNorForAUserWhoHasSwitchedItOff) {
    EXPECT_TRUE(sandboxIsUsable("", SystemUser::Root));
    EXPECT_TRUE(sandboxIsUsable("--no-sandbox", SystemUser::Ordinary));
    EXPECT_EQ(sandboxIsUsable("", SystemUser::Ordinary), namespacesAreAllowed());
    const EnvironmentVariable off("QTWEBENGINE_DISABLE_SANDBOX", QStringLiteral("1"));
    EXPECT_TRUE(sandboxIsUsable("", SystemUser::Ordinary));
}

TEST(SystemUser, IsRootForRootAlone) {
    QProcess id;
    id.start(QStringLiteral("id"), {QStringLiteral("-u")});
    ASSERT_TRUE(id.waitForFinished());
    const bool root = id.readAllStandardOutput().trimmed() == "0";
    EXPECT_EQ(systemUser(), root ? SystemUser::Root : SystemUser::Ordinary);
}

TEST(SystemUser, IsOrdinaryForWhoHasGivenUpBeingRoot) {
    const TemporaryFolder folder;
    const OrdinaryUser user(folder);
    ASSERT_TRUE(user.isBound());
    EXPECT_EQ(systemUser(), SystemUser::Ordinary);
}

TEST(SystemUser, WhoIsOrdinaryGetsNoEngineWithoutItsSandbox) {
    const TemporaryFolder folder;
    const OrdinaryUser user(folder);
    ASSERT_TRUE(user.isBound());
    if (namespacesAreAllowed())
        GTEST_SKIP() << "the sandbox can be set up here";
    const EnvironmentVariable none(kEngineFlagsVariable);
    QWidget parent;
    EXPECT_EQ(makeWebPane(parent), nullptr);
}

TEST(Sandbox, NeedsNamespacesThatTheSystemGivesOrRefuses) {
    const int asTheSystemTool = QProcess::execute(
        QStringLiteral("unshare"),
        {QStringLiteral("--user"), QStringLiteral("--pid"), QStringLiteral("--net"),
         QStringLiteral("--fork"), QStringLiteral("true")});
    EXPECT_EQ(namespacesAreAllowed(), asTheSystemTool == 0);
}

TEST(TheProgram, IsNotLinkedWithTheEngine) {
    QProcess list;
    list.start(QStringLiteral("ldd"),
               {QCoreApplication::applicationDirPath() + QStringLiteral("/quillon")});
    ASSERT_TRUE(list.waitForFinished());
    const QByteArray libraries = list.readAllStandardOutput();
    EXPECT_TRUE(libraries.contains("libQt6Widgets"));
    EXPECT_FALSE(libraries.contains("WebEngine"));
    EXPECT_FALSE(libraries.contains("libQt6Quick"));
}

class WebPane : public PaneWindow {
protected:
    void SetUp() override { openWith(PaneKind::Browser); }
    void show(const char* name, const char* title) {
        showTutorial();
        navigate(name);
        ASSERT_TRUE(waitForPage(title));
    }
    PageServer server;
};

TEST_F(WebPane, RunsTheScriptsOfAPageAndShowsPicturesBesideIt) {
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(QColor(250, 10, 20));
    ASSERT_TRUE(picture.save(pathOf("picture.png")));
    writePage("first.htm", "Waiting", "none.htm",
              "<img id='p' src='picture.png' style='display:block; width:100px; height:100px'>"
              "<script>addEventListener('load', () => {"
              "document.title = 'Ran ' + document.getElementById('p').naturalWidth; });</script>");
    show("first.htm", "Ran 8");
    EXPECT_TRUE(
        wait([&] { return pane().grab().toImage().pixelColor(50, 120) == QColor(250, 10, 20); }));
}

TEST_F(WebPane, LeavesTheUsersFlagsOfTheEngineAsTheyWere) {
    for (const char* flags : {"", "--force-color-profile=srgb"}) {
        const EnvironmentVariable own(kEngineFlagsVariable, QString::fromLatin1(flags));
        QWidget parent;
        EXPECT_NE(makeWebPane(parent), nullptr);
        EXPECT_EQ(qgetenv(kEngineFlagsVariable), flags);
    }
    const EnvironmentVariable none(kEngineFlagsVariable);
    QWidget parent;
    EXPECT_NE(makeWebPane(parent), nullptr);
    EXPECT_FALSE(qEnvironmentVariableIsSet(kEngineFlagsVariable));
}

TEST_F(WebPane, WithoutTheEnginesProgramThePlainReaderTakesItsPlace) {
    const EnvironmentVariable lost("QTWEBENGINEPROCESS_PATH", pathOf("no such program"));
    QWidget parent;
    EXPECT_EQ(makeWebPane(parent), nullptr);
    EXPECT_TRUE(makeBrowserPane(parent)->widget().inherits("QTextBrowser"));
}

/// Tries every way a page has to fetch something, then says so in its title.
QByteArray curiousPage(const PageServer& server) {
    const QByteArray there = server.address().toLatin1();
    const QByteArray socket = "ws://127.0.0.1:" + QByteArray::number(server.port()) + "/";
    return "<link rel='stylesheet' href='" + there + "a.css'><link rel='prefetch' href='" + there +
           "b'><link rel='preconnect' href='" + there + "'><link rel='icon' href='" + there +
           "c.ico'><img src='" + there + "d.png'><iframe src='" + there +
           "e'></iframe><audio src='" + there + "f.ogg'></audio><script src='" + there +
           "g.js'></script><script>const ways = ["
           "fetch('" +
           there +
           "h', {mode: 'no-cors'}),"
           "new Promise(end => { const r = new XMLHttpRequest(); r.onloadend = end;"
           "  r.open('GET', '" +
           there +
           "i'); r.send(); }),"
           "new Promise(end => { const s = new WebSocket('" +
           socket +
           "');"
           "  s.onclose = end; s.onopen = () => s.close(); }),"
           "new Promise(end => { const s = new EventSource('" +
           there +
           "j');"
           "  s.onerror = () => { s.close(); end(); }; })];"
           "navigator.sendBeacon('" +
           there +
           "k', 'x');"
           "addEventListener('load', () => Promise.allSettled(ways).then("
           "() => { document.title = 'Tried'; }));</script>";
}

TEST_F(WebPane, APageOfTheDiskFetchesNothingFromElsewhere) {
    writePage("first.htm", "Waiting", "none.htm", curiousPage(server));
    show("first.htm", "Tried");
    EXPECT_EQ(server.connections, 0);
    EXPECT_EQ(server.requests, QList<QByteArray>());
}

TEST_F(WebPane, APageOfTheDiskDoesNotGoToTheWebByItself) {
    writePage("first.htm", "Waiting", "none.htm",
              "<form id='f' action='" + server.address().toLatin1() +
                  "form'></form><script>addEventListener('load', () => {"
                  "location = '" +
                  server.address().toLatin1() +
                  "'; setTimeout(() => { document.getElementById('f').submit();"
                  "setTimeout(() => { document.title = 'Stayed'; }, 50); }, 50); });</script>");
    show("first.htm", "Stayed");
    EXPECT_EQ(server.connections, 0);
    EXPECT_EQ(pageShown(), QUrl::fromLocalFile(pathOf("first.htm")));
}

TEST_F(WebPane, ALinkThatTheUserChoosesLeadsToTheWebWithAllItsParts) {
    writePage("first.htm", "First", server.address().toLatin1());
    show("first.htm", "First");
    EXPECT_EQ(server.connections, 0);
    clickLink();
    ASSERT_TRUE(wait([&] { return titleShown() == QStringLiteral("Outside"); }));
    EXPECT_TRUE(wait([&] { return server.requests.contains("GET /picture.png HTTP/1.1"); }));
    EXPECT_EQ(server.requests.front(), "GET / HTTP/1.1");
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(waitForPage("First"));
}

TEST_F(WebPane, ALinkThatAsksForAWindowOfItsOwnIsFollowedInThePane) {
    writePage("first.htm", "First", "second.htm' target='_blank");
    writePage("second.htm", "Second");
    show("first.htm", "First");
    clickLink();
    EXPECT_TRUE(waitForPage("Second"));
}

TEST_F(WebPane, AnAddressOfTheLinksIsShownInThePane) {
    showTutorial();
    form().ie5.Navigate2(server.address().toStdString());
    ASSERT_TRUE(wait([&] { return titleShown() == QStringLiteral("Outside"); }));
    EXPECT_EQ(pageShown(), QUrl(server.address()));
}

TEST_F(WebPane, APageOfTheWebCannotRunAScriptOfTheDisk) {
    write("low.ftscr", "TOP\r\nLOWPASS 20\r\n");
    server.page =
        "<body style='margin:0' bgcolor='#204060'><p style='font-size:60px; margin:0'>"
        "<a id='a' href='file://" +
        pathOf("low.ftscr").toUtf8() +
        "'>LINKLINKLINK</a></p><script>let count = 0;"
        "document.getElementById('a').onclick = () => { setTimeout(() => {"
        "document.title = 'Clicked'; }, 100); };document.title = 'Outside';</script>";
    showTutorial();
    form().ie5.Navigate2(server.address().toStdString());
    ASSERT_TRUE(waitForPage("Outside"));
    clickLink();
    ASSERT_TRUE(waitForPage("Clicked"));
    EXPECT_EQ(form().lab.viewTab, 2);
    EXPECT_FALSE(form().menu(MenuArray::mnuFT1a, 10).Checked);
}

}  // namespace
}  // namespace quillon
