#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <functional>

namespace quillon {

/// Runs of the real program in a home of their own, each with a script that ends
/// it at once. It has run before, as far as its settings show, so that no message
/// waits for a user.
class ProgramRun {
public:
    ProgramRun() {
        QDir(home_.path()).mkpath(QStringLiteral("Quillon"));
        write("end.ftscr", "EXIT\r\n");
        write("config/Brindlewood/Quillon.conf", "[General]\nPATH=x\n");
    }

    QString path(const char* name) const { return home_.filePath(QString::fromLatin1(name)); }
    /// Writes a file of the home, with the folders above it.
    void write(const char* name, const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// The toolkit's platform, as QT_QPA_PLATFORM names it.
    QString platform = QStringLiteral("offscreen");
    /// What the program's process does before it becomes the program.
    std::function<void()> before;

    /// Runs it to its end.
    void run() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), home_.path());
        for (const char* folder : {"config", "cache", "data"})
            environment.insert(QStringLiteral("XDG_%1_HOME").arg(QLatin1String(folder)).toUpper(),
                               path(folder));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
        QProcess program;
        program.setProcessEnvironment(environment);
        program.setChildProcessModifier(before);
        program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/quillon"),
                      {path("end.ftscr")});
        ASSERT_TRUE(program.waitForFinished(120000));
        exitStatus = program.exitStatus();
        exitCode = program.exitCode();
    }

    QProcess::ExitStatus exitStatus = QProcess::NormalExit;
    /// The status of the program, or the signal that killed it.
    int exitCode = 0;

private:
    QTemporaryDir home_;
};

}  // namespace quillon
