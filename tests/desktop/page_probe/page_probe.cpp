#include <QWebEnginePage>
#include <QWebEngineView>

#include "tests/desktop/page_probe/PageProbe.h"

extern "C" Q_DECL_EXPORT void quillonAskPage(QWidget* browser, const QString& expression,
                                             const std::function<void(const QVariant&)>& answer) {
    qobject_cast<QWebEngineView*>(browser)->page()->runJavaScript(expression, answer);
}
