#include <QFileInfo>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QQuickWindow>

#include "desktop/WebPaneModule.h"
#include "desktop/web_pane/WebPane.h"

// The door of the module.

namespace quillon {

namespace {

/// The engine runs each page in a process of its own, and ends this one where it
/// does not find the program for it.
bool processIsThere() {
#ifdef Q_OS_WIN
    const QString name = QStringLiteral("/QtWebEngineProcess.exe");
#else
    const QString name = QStringLiteral("/QtWebEngineProcess");
#endif
    const QString named = qEnvironmentVariable("QTWEBENGINEPROCESS_PATH");
    const QString usual = QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) + name;
    return QFileInfo::exists(named.isEmpty() ? usual : named);
}

/// It ends this process too where it does not find the files it is made of.
bool resourcesAreThere() {
    const QString named = qEnvironmentVariable("QTWEBENGINE_RESOURCES_PATH");
    const QString usual = QLibraryInfo::path(QLibraryInfo::DataPath) + QStringLiteral("/resources");
    return QFileInfo::exists((named.isEmpty() ? usual : named) +
                             QStringLiteral("/qtwebengine_resources.pak"));
}

/// Pages are drawn by the processor: they are texts and small pictures, and the
/// lab's window stays what it was. With the graphics processor the window system
/// would have to make it anew, and every panel would pass through a texture.
void chooseDrawing() {
    // The toolkit takes the choice once, before the first pane.
    static bool chosen = false;
    if (!chosen)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    chosen = true;
}

/// What the engine says of itself at its start is not for the user's terminal.
class QuietStart {
public:
    QuietStart() {
        QLoggingCategory::setFilterRules(
            QStringLiteral("default.warning=false\nqt.webenginecontext=false"));
    }
    QuietStart(const QuietStart&) = delete;
    QuietStart& operator=(const QuietStart&) = delete;
    ~QuietStart() { QLoggingCategory::setFilterRules(QString()); }
};

}  // namespace

}  // namespace quillon

extern "C" Q_DECL_EXPORT quillon::BrowserPane* quillonMakeWebPane(QWidget* parent) {
    using namespace quillon;
    if (!processIsThere() || !resourcesAreThere())
        return nullptr;
    chooseDrawing();
    const QuietStart quiet;
    return new WebPane(*parent);
}
