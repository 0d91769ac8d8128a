#include "tests/desktop/PaneWindow.h"

#include <QElapsedTimer>
#include <QLibrary>
#include <memory>

#include "tests/desktop/page_probe/PageProbe.h"

namespace quillon {

#ifdef QUILLON_HAS_WEB_PANE
const bool kHasBrowser = true;
#else
const bool kHasBrowser = false;
#endif

QVariant PaneWindow::ask(const QString& expression) {
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

bool PaneWindow::isDrawn() {
    // The second frame begins when the first one has been drawn.
    return ask(QStringLiteral("(() => { const drawn = Symbol.for('drawn');"
                              " if (!(drawn in window)) { window[drawn] = false;"
                              "  requestAnimationFrame(() => requestAnimationFrame("
                              "   () => { window[drawn] = true; })); }"
                              " return window[drawn]; })()"))
        .toBool();
}

}  // namespace quillon
