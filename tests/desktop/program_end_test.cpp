#include <gtest/gtest.h>

#include <QDir>
#include <QStandardPaths>
#include <fstream>

#include "desktop/Conversions.h"
#include "engine/mFFTUTIL.h"
#include "tests/desktop/OpenedWindow.h"
#include "tests/desktop/RunningProgram.h"
#include "tests/support/SmallMount.h"

// The program itself, ended from outside.

namespace quillon {
namespace {

/// A home where the program has run before.
class ProgramEnd : public OpenedWindow {
protected:
    void SetUp() override {
        open();
        lab.reset();
        // No companion program is looked for on the web.
        services.store.write("Software\\Brindlewood\\Sorrel", "EXE",
                             toLabPath(QCoreApplication::applicationFilePath()));
        write("start.ftscr",
              "LOWPASS 20\r\nBOTTOM\r\nLOAD1 Halvard-Image1.jpg\r\nHIGHPASS 30\r\n"
              "SAVE1 " +
                  toBytes(ready) + "\r\n");
    }

    QString path(const char* name) { return home.filePath(QString::fromLatin1(name)); }
    void write(const char* name, const std::string& text) {
        std::ofstream(toBytes(path(name)), std::ios::binary) << text;
    }
    std::string read(const QString& file) {
        QFile source(file);
        return source.open(QIODevice::ReadOnly) ? source.readAll().toStdString() : std::string();
    }
    /// Starts the program with the script, and returns when it is at its work.
    void startProgram() {
        program.start({path("start.ftscr")});
        ASSERT_TRUE(program.waitForFile(ready)) << program.errors().toStdString();
    }

    const QString ready = home.filePath(QStringLiteral("ready.bmp"));
    const QString script = home.filePath(QStringLiteral("Quillon/Scripts/last.ftscr"));
    RunningProgram program;
};

class ProgramEndBySignal : public ProgramEnd, public ::testing::WithParamInterface<int> {};

TEST_P(ProgramEndBySignal, KeepsTheSessionAndReportsTheSignal) {
    startProgram();
    program.signal(GetParam());
    EXPECT_EQ(program.status(), 128 + GetParam()) << program.errors().toStdString();
    EXPECT_NE(read(script).find("HIGHPASS\t30\r\n"), std::string::npos) << read(script);
    EXPECT_NE(services.store.read("Software\\Brindlewood\\Quillon", "WNDO"), "");
}

INSTANTIATE_TEST_SUITE_P(Signals, ProgramEndBySignal, ::testing::Values(SIGTERM, SIGHUP, SIGINT));

TEST_F(ProgramEnd, BySignalIsMadeGoodByTheNextStartAndOnlyByThat) {
    startProgram();
    program.signal(SIGTERM);
    ASSERT_EQ(program.status(), 128 + SIGTERM);
    keepsSessions = true;
    open();
    EXPECT_TRUE(form().lab.channel2.bHighpass);
    EXPECT_EQ(FileNamePart(form().lab.channel2.file), "Halvard-Image1.jpg");
    EXPECT_TRUE(form().lbSTB(2).Caption.get().starts_with("last session restored"));
    window().close();
    settle();
    open();
    EXPECT_FALSE(form().lab.channel2.bHighpass);
    EXPECT_EQ(FileNamePart(form().lab.channel2.file), "Halvard-Image2.jpg");
}

TEST_F(ProgramEnd, ByAKillInTheMidstOfItsClosingLeavesWholeFiles) {
    write("start.ftscr",
          "NEW1\r\nBOTTOM\r\nLOAD1 Halvard-Image1.jpg\r\nSAVE1 " + toBytes(ready) + "\r\n");
    for (int round = 0; round < 4; ++round) {
        RunningProgram killed;
        QFile::remove(ready);
        killed.start({path("start.ftscr")});
        ASSERT_TRUE(killed.waitForFile(ready));
        killed.signal(SIGTERM);
        // Wherever this meets it.
        if (round > 0)
            killed.waitUntil([&] { return QFile::exists(script); });
        killed.signal(SIGKILL);
        killed.status();
        const std::string text = read(script);
        EXPECT_TRUE(text.empty() || text.ends_with("Halvard-Image1.jpg\r\n")) << text;
        const QDir pictures(path("Quillon/Images"));
        for (const QFileInfo& picture :
             pictures.entryInfoList({QStringLiteral("[0-9]*_[0-9]*.bmp")}))
            EXPECT_EQ(picture.size(), 54 + 3 * 256 * 256) << toBytes(picture.fileName());
    }
}

TEST_F(ProgramEnd, BySignalsInARowIsThatOfTheFirst) {
    startProgram();
    for (int i = 0; i < 20; ++i)
        program.signal(SIGTERM);
    EXPECT_EQ(program.status(), 128 + SIGTERM);
    EXPECT_NE(read(script).find("HIGHPASS\t30\r\n"), std::string::npos);
}

TEST_F(ProgramEnd, DoesNotWaitForTheMessageOfAScript) {
    write("start.ftscr", "SAVE1 " + toBytes(ready) + "\r\nLOAD1 missing.bmp\r\n");
    startProgram();
    program.signal(SIGTERM);
    EXPECT_EQ(program.status(), 128 + SIGTERM);
}

TEST_F(ProgramEnd, DuringTheMessageOfTheFirstStartLeavesNothing) {
    QDir(path("Quillon")).removeRecursively();
    program.set("XDG_CONFIG_HOME", path("empty"));
    program.start({});
    // The folder is there before the message asks for the other.
    ASSERT_TRUE(program.waitForFile(path("empty")));
    program.signal(SIGTERM);
    EXPECT_EQ(program.status(), 128 + SIGTERM);
    EXPECT_FALSE(QFile::exists(script));
}

TEST_F(ProgramEnd, ByAScriptHasStatus0) {
    write("start.ftscr", "LOAD1 Halvard-Image2.jpg\r\nEXIT\r\n");
    program.start({path("start.ftscr")});
    EXPECT_EQ(program.status(), 0);
    EXPECT_NE(read(script), "");
}

TEST_F(ProgramEnd, IsKeptAsFarAsItCanWhenTheDisplayGoes) {
    if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty())
        GTEST_SKIP() << "there is no Xvfb here to take away";
    QProcess server;
    server.start(QStringLiteral("Xvfb"),
                 {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                  QStringLiteral("0"), QStringLiteral("1280x1024x24")});
    ASSERT_TRUE(server.waitForReadyRead(60000)) << server.readAllStandardError().toStdString();
    program.set("QT_QPA_PLATFORM", QStringLiteral("xcb"));
    program.set("DISPLAY", u':' + QString::fromLatin1(server.readAllStandardOutput().trimmed()));
    startProgram();
    server.kill();
    ASSERT_TRUE(server.waitForFinished());
    EXPECT_EQ(program.status(), 1) << program.errors().toStdString();
    EXPECT_NE(read(script).find("HIGHPASS\t30\r\n"), std::string::npos) << read(script);
}

TEST_F(ProgramEnd, OnAFullDiskSaysWhereTheSessionIsKept) {
    const SmallMount disk(toBytes(path("Quillon/Scripts")));
    if (!disk.isMounted())
        GTEST_SKIP() << "no disk can be mounted here";
    QDir().mkpath(path("tmp"));
    program.set("TMP", path("tmp"));
    startProgram();
    disk.fill();
    program.signal(SIGTERM);
    EXPECT_EQ(program.status(), 128 + SIGTERM);
    EXPECT_EQ(read(script), "");
    const QString kept = path("tmp/quillon-session-1/last.ftscr");
    const std::string said = program.errors().toStdString();
    EXPECT_TRUE(
        said.ends_with("quillon: The session script cannot be written:\n" + toBytes(script) +
                       "\nDisk full\n\nThe session is kept here instead:\n" + toBytes(kept) + "\n"))
        << said;
    EXPECT_NE(read(kept).find("HIGHPASS\t30\r\n"), std::string::npos) << read(kept);
}

}  // namespace
}  // namespace quillon
