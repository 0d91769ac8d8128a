#include "desktop/QtShell.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "desktop/Conversions.h"

namespace quillon {

namespace {

void openFile(const QString& path) {
    QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

/// The help as a page, in the same folder as the compiled help.
QString helpPage(const QString& compiledHelp) {
    return QFileInfo(compiledHelp).path() + QStringLiteral("/doc/help/index.html");
}

}  // namespace

void QtShell::execute(const std::string& program, const std::string& parameters,
                      const std::string& directory) {
    const QString target = toNativePath(parameters);
#ifdef Q_OS_WIN
    QProcess::startDetached(toQString(program), QProcess::splitCommand(target),
                            toNativePath(directory));
#else
    if (program == "explorer.exe" || program == "notepad.exe") {
        openFile(target);
    } else if (program == "hh.exe") {
        // No viewer of compiled help is to be counted on here; the same help
        // lies beside it as pages.
        openFile(helpPage(target));
    } else if (const QString file = toNativePath(program);
               QFileInfo(file).isFile() && !QFileInfo(file).isExecutable()) {
        openFile(file);
    } else {
        QProcess::startDetached(file, QProcess::splitCommand(toQString(parameters)),
                                toNativePath(directory));
    }
#endif
}

void QtShell::openAddress(const std::string& address) {
    QDesktopServices::openUrl(QUrl(toQString(address), QUrl::TolerantMode));
}

}  // namespace quillon
