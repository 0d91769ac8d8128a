#include <gtest/gtest.h>

#include <QDirIterator>
#include <QUdpSocket>
#include <QWidget>

#include "tests/desktop/PageServer.h"
#include "tests/desktop/PaneWindow.h"
#include "tests/desktop/UrlCatcher.h"

namespace quillon {
namespace {

/// What the user chooses in the browser, and what a page would like to choose.
class PaneChoice : public PaneWindow {
protected:
    void SetUp() override {
        openWith(PaneKind::Browser);
        server.page = "<title>Outside</title><body bgcolor='#204060'>";
    }
    void show(const char* name, const char* title) {
        showTutorial();
        navigate(name);
        ASSERT_TRUE(waitForPage(title));
    }
    /// A page that runs a script when it is there, and then says "Stayed".
    void writeBusyPage(const QByteArray& script, const QByteArray& link = "none.htm") {
        writePage("first.htm", "Waiting", link,
                  "<script>const link = document.querySelector('a');"
                  "addEventListener('load', () => {" +
                      script +
                      "setTimeout(() => { document.title = 'Stayed'; }, 200); });</script>");
    }
    void expectStayed() {
        show("first.htm", "Stayed");
        EXPECT_EQ(server.connections, 0);
        EXPECT_EQ(pageShown(), QUrl::fromLocalFile(pathOf("first.htm")));
        EXPECT_EQ(form().lab.viewTab, 2);
    }
    PageServer server;
};

TEST_F(PaneChoice, AChainOfRedirectsThatBeganWithAChosenLinkIsFollowed) {
    server.redirects = {{"/one", "/two"}, {"/two", "/"}};
    writePage("first.htm", "First", server.address("/one").toLatin1());
    show("first.htm", "First");
    clickLink();
    EXPECT_TRUE(waitForPage("Outside"));
    ASSERT_GE(server.requests.size(), 3);
    EXPECT_EQ(server.requests.mid(0, 3),
              (QList<QByteArray>{"GET /one HTTP/1.1", "GET /two HTTP/1.1", "GET / HTTP/1.1"}));
}

TEST_F(PaneChoice, AnAddressOfTheLinksIsFollowedThroughItsRedirect) {
    server.redirects = {{"/one", "/"}};
    showTutorial();
    form().ie5.Navigate2(server.address("/one").toStdString());
    EXPECT_TRUE(waitForPage("Outside"));
}

TEST_F(PaneChoice, AClickThatAScriptMakesLeadsNotToTheWeb) {
    writeBusyPage("setTimeout(() => link.click(), 20);", server.address().toLatin1());
    expectStayed();
}

TEST_F(PaneChoice, AClickThatAScriptMakesRunsNoScriptOfTheLab) {
    write("low.ftscr", "TOP\r\nLOWPASS 20\r\n");
    writeBusyPage("link.click();", "low.ftscr");
    expectStayed();
    EXPECT_FALSE(form().menu(MenuArray::mnuFT1a, 10).Checked);
    clickLink();
    EXPECT_TRUE(wait([&] { return form().lab.viewTab == 1; })) << "the user's click does";
}

TEST_F(PaneChoice, AWindowThatAScriptOpensIsNotShown) {
    writeBusyPage("window.open('" + server.address().toLatin1() + "');");
    expectStayed();
}

TEST_F(PaneChoice, ThePagesOwnHeadLeadsNotToTheWeb) {
    writeBusyPage(
        "document.head.insertAdjacentHTML('beforeend',"
        " '<meta http-equiv=refresh content=\"0; url=" +
        server.address().toLatin1() + "\">');");
    expectStayed();
}

TEST_F(PaneChoice, APressChoosesOneLinkAndTheNextPageNone) {
    writePage("second.htm", "Waiting", server.address().toLatin1(),
              "<script>addEventListener('load', () => {"
              "setTimeout(() => document.querySelector('a').click(), 20);"
              "setTimeout(() => { document.title = 'Stayed'; }, 200); });</script>");
    writePage("first.htm", "First", "second.htm");
    show("first.htm", "First");
    clickLink();
    EXPECT_TRUE(waitForPage("Stayed"));
    EXPECT_EQ(server.connections, 0);
}

TEST_F(PaneChoice, AKeyChoosesALinkToo) {
    writePage("first.htm", "First", server.address().toLatin1());
    show("first.htm", "First");
    key(Qt::Key_Tab);
    key(Qt::Key_Return);
    EXPECT_TRUE(waitForPage("Outside"));
}

TEST_F(PaneChoice, ALinkToWhatIsNoPageIsPassedOver) {
    const UrlCatcher catcher;
    writePage("first.htm", "First", "mailto:a@brindlewood.example",
              "<script>document.querySelector('a').onclick = () => { setTimeout(() => {"
              "document.title = 'Clicked'; }, 100); };</script>");
    show("first.htm", "First");
    clickLink();
    ASSERT_TRUE(waitForPage("Clicked"));
    EXPECT_EQ(pageShown(), QUrl::fromLocalFile(pathOf("first.htm")));
    EXPECT_EQ(catcher.opened, QList<QUrl>());
}

TEST_F(PaneChoice, APageOfTheDiskReadsNoOtherFile) {
    write("secret.txt", "secret");
    writePage("first.htm", "Waiting", "none.htm",
              "<script>const ask = how => how.then(() => 'read', () => 'refused');"
              "Promise.all([ask(fetch('secret.txt').then(r => r.text())),"
              " ask(new Promise((got, not) => { const r = new XMLHttpRequest();"
              "  r.onload = got; r.onerror = not; r.open('GET', 'secret.txt'); r.send(); }))])"
              ".then(said => { document.title = said.join(' '); });</script>");
    show("first.htm", "refused refused");
}

/// A page of the disk that asks a server of the real-time kind for its way out.
const char* const kCallingPage =
    "<script>(async () => { try {"
    "const call = new RTCPeerConnection({iceServers: [{urls: 'stun:127.0.0.1:%1'}]});"
    "call.createDataChannel('x'); await call.setLocalDescription(await call.createOffer());"
    "await new Promise(end => { call.onicegatheringstatechange = () => {"
    " if (call.iceGatheringState === 'complete') end(); }; setTimeout(end, 3000); });"
    "document.title = 'Called'; } catch (error) { document.title = error.name; } })();</script>";

TEST_F(PaneChoice, APageOfTheDiskHasNoChannelPastTheGuard) {
    QUdpSocket listener;
    ASSERT_TRUE(listener.bind(QHostAddress::LocalHost));
    writePage("first.htm", "Waiting", "none.htm",
              QString::fromLatin1(kCallingPage).arg(listener.localPort()).toLatin1());
    show("first.htm", "ReferenceError");
    EXPECT_FALSE(listener.hasPendingDatagrams());
    writePage("first.htm", "Waiting", "none.htm",
              "<script>document.title = typeof WebTransport;</script>");
    show("first.htm", "undefined");
}

TEST_F(PaneChoice, APageOfTheWebHasItsChannels) {
    server.page =
        "<body bgcolor='#204060'><script>document.title = typeof RTCPeerConnection;</script>";
    showTutorial();
    form().ie5.Navigate2(server.address().toStdString());
    EXPECT_TRUE(waitForPage("function"));
}

TEST_F(PaneChoice, WorkersObjectsAndStylesOfAPageOfTheDiskFetchNothingFromElsewhere) {
    const QByteArray there = server.address().toLatin1();
    writeBusyPage("const code = new Blob([\"importScripts('" + there + "a.js')\"]);" +
                  "try { new Worker(URL.createObjectURL(code)); } catch (e) {}"
                  "try { new Worker('" +
                  there +
                  "b.js'); } catch (e) {}"
                  "document.body.insertAdjacentHTML('beforeend', \"<object data='" +
                  there + "c'></object><embed src='" + there + "d'><div style='background: url(" +
                  there + "e.png)'>x</div><style>@import url(" + there +
                  "f.css); @font-face { font-family: F; src: url(" + there +
                  "g.woff) } p { font-family: F }</style><video poster='" + there +
                  "h.png'></video><svg><image href='" + there + "i.png'/></svg>\");");
    expectStayed();
    EXPECT_EQ(server.requests, QList<QByteArray>());
}

TEST_F(PaneChoice, WithoutTheEnginesFilesThePlainReaderTakesItsPlace) {
    const EnvironmentVariable lost("QTWEBENGINE_RESOURCES_PATH", pathOf("no such folder"));
    QWidget parent;
    EXPECT_EQ(makeWebPane(parent), nullptr);
}

/// Everything below a folder whose path tells of the engine.
QStringList enginesFilesIn(const QString& folder) {
    QStringList found;
    for (QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                           QDirIterator::Subdirectories);
         walk.hasNext();)
        if (walk.next().contains(QStringLiteral("WebEngine"), Qt::CaseInsensitive))
            found << walk.filePath();
    return found;
}

TEST_F(PaneChoice, NothingOfThePagesIsKeptInAnyFolderOfTheUser) {
    // A kept profile lies some folders down.
    ASSERT_TRUE(home.isValid() && QDir(home.path()).mkpath(QStringLiteral("a/b/QtWebEngine/c")));
    EXPECT_EQ(enginesFilesIn(home.path()).size(), 2) << "it would be found";
    ASSERT_TRUE(QDir(pathOf("a")).removeRecursively());
    writePage("first.htm", "First", "none.htm",
              "<script>localStorage.setItem('a', '1'); document.cookie = 'b=1; max-age=9999';"
              "</script>");
    server.page =
        "<body bgcolor='#204060'><script>localStorage.setItem('a', '1');"
        "document.cookie = 'b=1; max-age=9999'; document.title = 'Kept';</script>";
    show("first.htm", "First");
    form().ie5.Navigate2(server.address().toStdString());
    ASSERT_TRUE(waitForPage("Kept"));
    open();
    for (const QString& folder :
         {home.path(), qEnvironmentVariable("XDG_DATA_HOME"),
          qEnvironmentVariable("XDG_CACHE_HOME"), qEnvironmentVariable("XDG_CONFIG_HOME")})
        EXPECT_EQ(enginesFilesIn(folder), QStringList()) << folder.toStdString();
}

}  // namespace
}  // namespace quillon
