#include "desktop/QtShell.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>
#include <string_view>

#include "desktop/Conversions.h"

#ifdef Q_OS_WIN
#include <QProcess>
#endif

namespace quillon {

namespace {

Opening open(const QUrl& what) {
    return QDesktopServices::openUrl(what) ? Opening::Asked : Opening::NoProgram;
}

Opening openFile(const QString& path) {
    return QFileInfo::exists(path) ? open(QUrl::fromLocalFile(path)) : Opening::Missing;
}

/// Whether a host is in one of the top-level domains that nobody can register. A
/// full name ends in a point.
bool isReserved(QString host) {
    if (host.endsWith(u'.'))
        host.chop(1);
    const QString domain = host.section(u'.', -1).toLower();
    return domain == QStringLiteral("example") || domain == QStringLiteral("invalid") ||
           domain == QStringLiteral("test");
}

/// A page of the compiled help ("Quillon.chm::/en/index.html") as a file: the same
/// pages lie beside the compiled help. Without a page the one that offers the
/// languages.
QString helpPage(const std::string& asked) {
    constexpr std::string_view kPageMark = "::/";
    const auto mark = asked.find(kPageMark);
    const std::string page =
        mark == std::string::npos ? "index.html" : asked.substr(mark + kPageMark.size());
    return QFileInfo(toNativePath(asked.substr(0, mark))).path() + QStringLiteral("/doc/help/") +
           toQString(page);
}

}  // namespace

Opening QtShell::execute(const std::string& program, const std::string& parameters,
                         [[maybe_unused]] const std::string& directory) {
#ifdef Q_OS_WIN
    if (program.ends_with(".exe")) {
        const QString target = toNativePath(parameters);
        const QString folder = toNativePath(directory);
        return QProcess::startDetached(toQString(program), QProcess::splitCommand(target),
                                       QFileInfo(folder).isDir() ? folder : QString())
                   ? Opening::Asked
                   : Opening::NoProgram;
    }
#else
    // No viewer of compiled help is to be counted on here; the same help lies
    // beside it as pages.
    if (program == "hh.exe")
        return openFile(helpPage(parameters));
    if (program == "explorer.exe" || program == "notepad.exe")
        return openFile(toNativePath(parameters));
#endif
    // A document is never run, though on some disks every file may be.
    const QString file = toNativePath(program);
    return QFileInfo(file).isFile() ? openFile(file) : Opening::Missing;
}

Opening QtShell::openAddress(const std::string& address) {
    const QUrl page(toQString(address), QUrl::TolerantMode);
    return isReserved(page.host()) ? Opening::Reserved : open(page);
}

}  // namespace quillon
