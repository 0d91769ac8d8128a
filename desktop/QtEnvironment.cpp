#include "desktop/QtEnvironment.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <csignal>
#include <cstdio>

#include "desktop/Conversions.h"

namespace quillon {

namespace {

/// A folder of the lab's own among the user's caches. Nobody else may look into
/// it, so nobody can plant a file there.
QString privateTemporaryFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                           QStringLiteral("/quillon");
    QDir().mkpath(folder);
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return folder;
}

/// A file that lies in the program's folder and nowhere else.
bool holdsTheProgramsFiles(const QDir& folder) {
    return folder.exists(QStringLiteral("Images/Halvard-Image1.jpg"));
}

QString findProgramFolder() {
    const QDir beside(QCoreApplication::applicationDirPath());
    if (holdsTheProgramsFiles(beside))
        return beside.path();
    // Installed: <prefix>/bin/quillon and <prefix>/share/quillon.
    const QDir shared(QDir::cleanPath(beside.filePath(QStringLiteral("../share/quillon"))));
    if (holdsTheProgramsFiles(shared))
        return shared.path();
    // Built: the program lies a few folders deep in the source tree.
    QDir above = beside;
    for (int level = 0; level < 4 && above.cdUp(); ++level)
        if (holdsTheProgramsFiles(above))
            return above.path();
    return beside.path();
}

}  // namespace

std::string QtEnvironment::variable(const std::string& name) {
    const QString value = qEnvironmentVariable(name.c_str());
    if (name != "TMP")
        return toBytes(value);
    // Names are appended to this one after a backslash, so it has the lab's form.
    return toLabPath(value.isEmpty() ? privateTemporaryFolder() : QDir::cleanPath(value));
}

std::string QtEnvironment::applicationDataFolder() {
#ifdef Q_OS_WIN
    const QString folder = qEnvironmentVariable("APPDATA");
#else
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
#endif
    QDir().mkpath(folder);
    return toLabPath(QDir::cleanPath(folder));
}

std::string QtEnvironment::programFolder() {
    return toLabPath(findProgramFolder());
}

std::string QtEnvironment::executableName() {
    return toBytes(QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName());
}

std::string QtEnvironment::commandLine() {
    return toBytes(QCoreApplication::arguments().mid(1).join(u' '));
}

LocalTime QtEnvironment::now() {
    const QDateTime moment = QDateTime::currentDateTime();
    const QDate date = moment.date();
    const QTime time = moment.time();
    return {date.year(), date.month(), date.day(), time.hour(), time.minute()};
}

void QtEnvironment::printError(const std::string& text) {
#ifdef SIGPIPE
    // Nobody may be reading any more, and the program still has a file to write.
    void (*before)(int) = std::signal(SIGPIPE, SIG_IGN);
#endif
    std::fprintf(stderr, "quillon: %s\n", text.c_str());
    std::fflush(stderr);
#ifdef SIGPIPE
    std::signal(SIGPIPE, before);
#endif
}

}  // namespace quillon
