#pragma once

#include <QString>
#include <QStringList>

#include "tests/desktop/PaneWindow.h"

namespace quillon {

/// The window with the browser in its pane, whose pages a test can question.
class BrowserWindow : public PaneWindow {
protected:
    void SetUp() override { openWith(PaneKind::Browser); }
    /// Sends the browser to a file and waits for all that belongs to its page.
    bool showFile(const QString& path) {
        form().ie5.Navigate2(toBytes(path));
        return waitForFile(path);
    }
    bool waitForFile(const QString& path) {
        const QString wanted = QStringLiteral("complete ") + QUrl::fromLocalFile(path).path();
        return wait([&] {
            return ask(QStringLiteral(
                           "document.readyState + ' ' + decodeURIComponent(location.pathname)"))
                       .toString() == wanted;
        });
    }
    /// Addresses of the page's pictures that are not there.
    QStringList missingPictures() {
        return ask(QStringLiteral("[...document.images].filter(i => i.naturalWidth === 0)"
                                  ".map(i => i.src)"))
            .toStringList();
    }
};

/// What pages have written to the browser's console since this was made: errors
/// and warnings of their scripts, and what could not be loaded.
class ConsoleCatcher {
public:
    ConsoleCatcher() : before_(qInstallMessageHandler(take)) { lines().clear(); }
    ConsoleCatcher(const ConsoleCatcher&) = delete;
    ConsoleCatcher& operator=(const ConsoleCatcher&) = delete;
    ~ConsoleCatcher() { qInstallMessageHandler(before_); }

    static QStringList& lines() {
        static QStringList caught;
        return caught;
    }

private:
    static void take(QtMsgType /*type*/, const QMessageLogContext& context, const QString& text) {
        if (context.category != nullptr && qstrcmp(context.category, "js") == 0)
            lines() << text;
    }
    QtMessageHandler before_;
};

}  // namespace quillon
