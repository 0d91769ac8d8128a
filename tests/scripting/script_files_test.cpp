#include <fcntl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "engine/NativeFiles.h"
#include "engine/NativePaths.h"
#include "scripting/ReadScript.h"
#include "scripting/WriteScript.h"
#include "scripting/script_commands.h"
#include "tests/scripting/ScriptBench.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/error_of.h"

// Scripts and mask files on a real disk.

namespace quillon {
namespace {

/// How many files the process has open.
int openFiles() {
    constexpr int kMoreThanAnyTestOpens = 1024;
    int count = 0;
    for (int descriptor = 0; descriptor < kMoreThanAnyTestOpens; ++descriptor)
        count += ::fcntl(descriptor, F_GETFD) != -1 ? 1 : 0;
    return count;
}

class ScriptFiles : public ::testing::Test {
protected:
    /// The message that the run of a script's text ends with, empty for none.
    std::string run(const std::string& text) {
        folder.write("test.ftscr", text);
        bench.desktop.dialogs.messages.clear();
        ReadScript(lab, bench.host, lab.folders.ScriptPath + "test.ftscr");
        const auto& messages = bench.desktop.dialogs.messages;
        return messages.empty() ? std::string() : messages.back().text;
    }
    /// What lies in the folder, hidden files too.
    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            found.push_back(entry.path().filename().string());
        std::ranges::sort(found);
        return found;
    }

    TemporaryFolder folder;
    NativeFiles files;
    ScriptBench bench;
    RecordingDesktop& services = bench.desktop;
    Desktop desktop{
        services.dialogs, services.pictures, services.clipboard,   services.text,  services.printer,
        services.shell,   services.screen,   services.environment, services.store, files};
    Folders folders{.UserRoot = labPath(folder.file("")),
                    .ImagePath = labPath(folder.file("")),
                    .ScriptPath = labPath(folder.file("")),
                    .DocPath = "",
                    .LibPath = "",
                    .LibPath2 = ""};
    Lab lab{.desktop = desktop,
            .folders = folders,
            .channel1 = bench.channel1,
            .channel2 = bench.channel2,
            .pb1 = bench.lab.pb1,
            .pb2 = bench.lab.pb2,
            .pb3 = bench.lab.pb3,
            .pb4 = bench.lab.pb4,
            .pb5 = bench.lab.pb5,
            .pb6 = bench.lab.pb6,
            .mem = bench.lab.mem,
            .img = bench.lab.img,
            .lbSTB = bench.lab.lbSTB,
            .dimmed = {}};
};

TEST_F(ScriptFiles, AreNeverLeftOpenHoweverTheReadingEnds) {
    folder.write("good.ftmsk", "1 2 3 4\r\n");
    folder.write("bad.ftmsk", "1 2 3 4\r\n5 6\r\n");
    std::string tooMany;
    for (int i = 0; i < 1001; ++i)
        tooMany += "1 2 3 4\n";
    folder.write("many.ftmsk", tooMany);
    std::filesystem::create_directory(folder.path() / "folder.ftmsk");
    const int before = openFiles();
    EXPECT_EQ(run("MASK good.ftmsk\r\nLOWPASS 7"), "");
    EXPECT_EQ(run("LOAD1 no.bmp"),
              "File not found:\n" + shownPath(lab.folders.ImagePath) + "no.bmp");
    EXPECT_EQ(run("MASK"), "Error in Read Script: [MASK]Subscript out of range");
    EXPECT_EQ(run("MASK 2\r\n1 2 3 4"), "Error in Read Script: [MASK]Input past end of file");
    EXPECT_EQ(run("MASK bad.ftmsk"), "Error in Read Script: [MASK]Subscript out of range");
    EXPECT_EQ(run("MASK many.ftmsk"), "Error in Read Script: [MASK]Subscript out of range");
    EXPECT_EQ(run("MASK folder.ftmsk"),
              "File not found:\n" + shownPath(lab.folders.ScriptPath) + "folder.ftmsk");
    bench.host.failing = "opt(7)";
    EXPECT_EQ(run("RNDPHASES"), "Error in Read Script: [RNDPHASES]Overflow");
    bench.host.failing = "opt(3)";
    EXPECT_EQ(errorOf([&] { run("TITLE a"); }), ErrorNumber::Overflow);
    bench.host.failing.clear();
    ReadScript(lab, bench.host, lab.folders.ScriptPath + "folder.ftmsk");
    EXPECT_EQ(bench.desktop.dialogs.messages.back().text,
              "Error in Read Script: []Path/File access error");
    EXPECT_EQ(openFiles(), before);
}

TEST_F(ScriptFiles, CanBeReplacedWhileTheirOwnScriptStillRuns) {
    // An editor that saves while a script shows its dialog finds no file held.
    bench.desktop.dialogs.onMessage = [&](const RecordingDialogs::Message&) {
        folder.write("test.ftscr", "LOWPASS 3");
    };
    run("MASK no.ftmsk\r\nHIGHPASS 9");
    EXPECT_EQ(bench.state(Channel::One), "high=9") << "the script as it was runs to its end";
    EXPECT_EQ(folder.read("test.ftscr"), "LOWPASS 3");
}

TEST_F(ScriptFiles, AreWrittenWithCarriageReturnsAndNothingBesideThem) {
    bench.channel1.file = "C:\\k\xE4tz.bmp";
    bench.channel1.SetFilterFT(4);
    bench.channel1.AddMask(1, 2, 3, 4);
    const int before = openFiles();
    WriteScript(lab, lab.folders.ScriptPath + "out.ftscr", "T");
    EXPECT_EQ(folder.read("out.ftscr"),
              "TITLE\tT\r\nLOAD1\tC:\\k\xE4tz.bmp\r\nMASK\t1\r\n    \t1 2 3 4\r\n");
    EXPECT_EQ(names(), std::vector<std::string>{"out.ftscr"});
    EXPECT_EQ(openFiles(), before);
}

TEST_F(ScriptFiles, AreWrittenWholeOrNotAtAll) {
    folder.write("out.ftscr", "TITLE\told\r\n");
    bench.channel1.file = "a";
    bench.channel1.SetFilterFT(4);
    for (int i = 0; i < 200; ++i)
        bench.channel1.AddMask(1, 2, 3, 4);
    const int before = openFiles();
    {
        const SmallDisk disk(512);
        EXPECT_NE(errorOf([&] { WriteScript(lab, lab.folders.ScriptPath + "out.ftscr", "T"); }),
                  ErrorNumber{});
        bench.desktop.dialogs.answerInput("T");
        SaveScriptCommand(lab, lab.folders.ScriptPath + "new.ftscr");
    }
    EXPECT_EQ(folder.read("out.ftscr"), "TITLE\told\r\n");
    EXPECT_EQ(names(), std::vector<std::string>{"out.ftscr"}) << "half a script is no script";
    EXPECT_TRUE(bench.desktop.dialogs.messages.empty());
    EXPECT_EQ(openFiles(), before);
}

}  // namespace
}  // namespace quillon
