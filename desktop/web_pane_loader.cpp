#include <QCoreApplication>
#include <QLibrary>
#include <QOpenGLContext>
#include <QString>
#include <QtGlobal>

#include "desktop/BrowserPane.h"
#include "desktop/WebPaneModule.h"
#include "desktop/web_engine.h"

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT QOpenGLContext* qt_gl_global_share_context();
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace quillon {

namespace {

/// The engine reads its flags when it starts. They are set for that moment alone,
/// so that no program which the lab starts later runs without its sandbox.
class FlagsAtStart {
public:
    explicit FlagsAtStart(const QByteArray& flags)
        : wasSet_(qEnvironmentVariableIsSet(kEngineFlagsVariable)),
          before_(qgetenv(kEngineFlagsVariable)) {
        qputenv(kEngineFlagsVariable, flags);
    }
    FlagsAtStart(const FlagsAtStart&) = delete;
    FlagsAtStart& operator=(const FlagsAtStart&) = delete;
    ~FlagsAtStart() {
        if (wasSet_)
            qputenv(kEngineFlagsVariable, before_);
        else
            qunsetenv(kEngineFlagsVariable);
    }

private:
    bool wasSet_;
    QByteArray before_;
};

/// While it is loaded the engine looks for the drawing context that the toolkit
/// makes at the program's start when it is told to, which would cost every
/// session. It takes one that was never opened for a machine without graphics.
void standInForGraphics() {
    if (qt_gl_global_share_context() == nullptr)
        qt_gl_set_global_share_context(new QOpenGLContext(QCoreApplication::instance()));
}

PaneModuleDoor moduleDoor() {
    standInForGraphics();
    // Never unloaded: the engine's threads live to the end of the process.
    QLibrary module(QCoreApplication::applicationDirPath() + u'/' +
                    QString::fromLatin1(kPaneModule));
    return reinterpret_cast<PaneModuleDoor>(module.resolve(kPaneModuleDoor));
}

}  // namespace

std::unique_ptr<BrowserPane> makeWebPane(QWidget& parent) {
    const std::string usersFlags = qgetenv(kEngineFlagsVariable).toStdString();
    const SystemUser user = systemUser();
    if (!sandboxIsUsable(usersFlags, user))
        return nullptr;
    const PaneModuleDoor door = moduleDoor();
    if (door == nullptr)
        return nullptr;
    const FlagsAtStart flags(QByteArray::fromStdString(engineFlags(usersFlags, user)));
    return std::unique_ptr<BrowserPane>(door(&parent));
}

std::unique_ptr<BrowserPane> makeBrowserPane(QWidget& parent) {
    if (auto pane = makeWebPane(parent))
        return pane;
    return makeTextBrowserPane(parent);
}

}  // namespace quillon
