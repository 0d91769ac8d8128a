#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <csignal>
#include <functional>

namespace quillon {

/// The program itself, as a process of its own, in the home of the test. Killed at
/// the end of the test where it still runs.
class RunningProgram {
public:
    explicit RunningProgram(const QString& platform = QStringLiteral("offscreen"))
        : environment_(QProcessEnvironment::systemEnvironment()) {
        environment_.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram() {
        process_.kill();
        process_.waitForFinished();
    }

    void set(const char* variable, const QString& value) {
        environment_.insert(QString::fromLatin1(variable), value);
    }
    void start(const QStringList& arguments) {
        process_.setProcessEnvironment(environment_);
        process_.start(QCoreApplication::applicationDirPath() + QStringLiteral("/quillon"),
                       arguments);
        ASSERT_TRUE(process_.waitForStarted());
    }
    /// Waits until the program has made a file; false where it has ended without.
    bool waitForFile(const QString& path) {
        return waitUntil([&] { return QFile::exists(path); });
    }
    bool waitUntil(const std::function<bool()>& reached) {
        const QDeadlineTimer limit(kLimitMilliseconds);
        while (!reached() && !limit.hasExpired() && process_.state() == QProcess::Running)
            process_.waitForFinished(kStepMilliseconds);
        return reached();
    }
    void signal(int number) {
        // Process 0 would be the whole group of this one.
        if (const auto process = static_cast<pid_t>(process_.processId()); process > 0)
            ::kill(process, number);
    }
    /// The status with which it ends; -1 where something has killed it or it runs on.
    int status() {
        const bool ended = process_.waitForFinished(kLimitMilliseconds);
        return ended && process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
    }
    QByteArray errors() { return process_.readAllStandardError(); }

private:
    static constexpr int kLimitMilliseconds = 60000;
    static constexpr int kStepMilliseconds = 10;

    QProcessEnvironment environment_;
    QProcess process_;
};

}  // namespace quillon
