#pragma once

#include <QFile>
#include <QImage>
#include <QTest>
#include <QUrl>
#include <QVariant>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"
#include "tests/desktop/wait_until.h"

namespace quillon {

enum class PaneKind { Browser, Reader };

/// Whether the program is built with the browser.
extern const bool kHasBrowser;

/// The window with a pane of one kind, and pages that a test writes. The
/// browser's own properties are read by their names: the tests do not link it.
class PaneWindow : public OpenedWindow {
protected:
    void SetUp() override {}
    /// Opens the window; skips the test of the browser in a build without it.
    void openWith(PaneKind kind) {
        if (kind == PaneKind::Browser && !kHasBrowser)
            GTEST_SKIP() << "built without the browser";
        kind_ = kind;
        browser = kind == PaneKind::Browser ? makeBrowserPane : makeTextBrowserPane;
        open();
    }
    void showTutorial() { click(widget("lbTAB(1)")); }

    QString pathOf(const char* name) const { return home.filePath(QString::fromLatin1(name)); }
    void write(const char* name, const QByteArray& bytes) const {
        QFile file(pathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    /// A page whose first line is a link as large as a hand.
    void writePage(const char* name, const QByteArray& title, const QByteArray& link = "none.htm",
                   const QByteArray& rest = "") const {
        write(name, "<!doctype html><html><head><meta charset='utf-8'><title>" + title +
                        "</title></head><body style='margin:0' bgcolor='#204060'>"
                        "<p style='font-size:60px; margin:0'><a href='" +
                        link + "'>LINKLINKLINK</a></p>" + rest + "</body></html>");
    }
    /// Opens the window with the plain reader and follows the link of its page.
    void followInReader(const QByteArray& link) {
        openWith(PaneKind::Reader);
        writePage("first.htm", "First", link);
        showTutorial();
        navigate("first.htm");
        ASSERT_TRUE(waitForPage("First"));
        clickLink();
    }
    void navigate(const char* name) { form().ie5.Navigate2(toBytes(pathOf(name))); }

    QWidget& pane() { return widget("ie5"); }
    QUrl pageShown() {
        return pane().property(kind_ == PaneKind::Browser ? "url" : "source").toUrl();
    }
    QString titleShown() {
        return pane().property(kind_ == PaneKind::Browser ? "title" : "documentTitle").toString();
    }
    static bool wait(const std::function<bool()>& until) { return waitUntil(until); }
    /// What the page in the browser says to an expression of its language.
    QVariant ask(const QString& expression);
    /// Waits for a page, and with the browser for its picture: before the first one
    /// of a page the engine drops what the mouse does.
    bool waitForPage(const char* title) {
        return wait([&] {
            if (titleShown() != QString::fromLatin1(title))
                return false;
            return kind_ == PaneKind::Reader ||
                   (isDrawn() &&
                    pane().grab().toImage().pixelColor(pane().width() / 2, pane().height() - 50) ==
                        QColor(0x20, 0x40, 0x60));
        });
    }
    void clickLink() {
        press(pane(), {100, 50});
        release(pane(), {100, 50});
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window().windowHandle(), code, modifiers);
        settle();
    }

    PaneKind kind_ = PaneKind::Reader;

private:
    /// Whether the page in the browser has been drawn since it was first asked.
    bool isDrawn();
};

}  // namespace quillon
