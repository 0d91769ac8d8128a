#pragma once

#include <QElapsedTimer>
#include <QLibrary>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

#include "tests/desktop/PaneWindow.h"
#include "tests/desktop/page_probe/PageProbe.h"

namespace quillon {

/// The window with the browser in its pane, whose pages a test can question.
class BrowserWindow : public PaneWindow {
protected:
    void SetUp() override { openWith(PaneKind::Browser); }
    /// What the page says to an expression of its language.
    QVariant ask(const QString& expression) {
        static const auto door = reinterpret_cast<ProbeDoor>(QLibrary::resolve(
            QCoreApplication::applicationDirPath() + u'/' + QString::fromLatin1(kProbeModule),
            kProbeDoor));
        // A page that makes room for another one never answers; the other one does,
        // when it is asked again.
        constexpr int kPatienceMilliseconds = 1000;
        const auto answer = std::make_shared<QVariant>();
        QElapsedTimer sinceAsked;
        EXPECT_TRUE(wait([&] {
            if (!sinceAsked.isValid() || sinceAsked.hasExpired(kPatienceMilliseconds)) {
                door(&pane(), expression, [answer](const QVariant& said) { *answer = said; });
                sinceAsked.start();
            }
            return answer->isValid();
        })) << expression.toStdString();
        return *answer;
    }
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
