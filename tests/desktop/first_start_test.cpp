#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDir>
#include <csignal>

#include "tests/desktop/ProgramRun.h"

// The first start of the real program, killed in its midst.

namespace quillon {
namespace {

/// Kills the program as it writes a file of more bytes.
void dieOfLargeFiles() {
    // The first pictures are smaller than that, the others larger.
    constexpr rlim_t kBetweenTwoPictures = 60000;
    const rlimit size{kBetweenTwoPictures, kBetweenTwoPictures};
    ::setrlimit(RLIMIT_FSIZE, &size);
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    std::signal(SIGXFSZ, SIG_DFL);
}

QStringList namesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

/// The demonstration files beside the program.
QStringList masters(const char* folder) {
    QDir above(QCoreApplication::applicationDirPath());
    while (!above.exists(QStringLiteral("Images/Halvard-Image1.jpg")) && above.cdUp()) {
    }
    return namesIn(above.filePath(QString::fromLatin1(folder)));
}

TEST(FirstStart, KilledInMidCopyLeavesNothingThatCountsAndTheNextStartHasAll) {
    ProgramRun program;
    program.before = dieOfLargeFiles;
    program.run();
    EXPECT_EQ(program.exitStatus, QProcess::CrashExit);
    EXPECT_EQ(program.exitCode, SIGXFSZ);
    EXPECT_FALSE(QDir(program.path("Quillon/Images")).exists());
    EXPECT_FALSE(QDir(program.path("Quillon/Scripts")).exists());
    EXPECT_FALSE(namesIn(program.path("Quillon/.unfinished-Images")).isEmpty())
        << "it died before it copied anything";

    program.before = {};
    program.run();
    EXPECT_EQ(program.exitStatus, QProcess::NormalExit);
    EXPECT_EQ(program.exitCode, 0);
    for (const char* folder : {"Images", "Scripts"}) {
        ASSERT_FALSE(masters(folder).isEmpty());
        const QStringList there = namesIn(program.path("Quillon/") + QString::fromLatin1(folder));
        for (const QString& name : masters(folder))
            EXPECT_TRUE(there.contains(name)) << folder << "/" << name.toStdString();
    }
    EXPECT_FALSE(QDir(program.path("Quillon/.unfinished-Images")).exists());
}

}  // namespace
}  // namespace quillon
