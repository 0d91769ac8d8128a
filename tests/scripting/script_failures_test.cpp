#include <gtest/gtest.h>

#include <random>

#include "engine/RunTimeError.h"
#include "tests/scripting/ScriptBench.h"
#include "tests/support/error_of.h"

// Failures of a script, and scripts that nobody wrote.

namespace quillon {
namespace {

const std::string kLoadA = "load C:\\Q\\Images\\a.bmp";

TEST(ScriptFailures, OfACommandEndTheRunWithOneMessage) {
    ScriptBench bench;
    bench.desktop.pictures.addUndecodable("C:\\Q\\Images\\bad.jpg");
    EXPECT_EQ(bench.run("CONVOLVE1\r\nload1 bad.jpg\r\nTITLE a"),
              (Lines{"load C:\\Q\\Images\\bad.jpg", failure("LOAD1", "Invalid picture")}));
    EXPECT_EQ(bench.channel1.file, "C:\\Q\\Images\\bad.jpg");
    EXPECT_EQ(
        bench.desktop.dialogs.messages,
        (std::vector<RecordingDialogs::Message>{{"Error in Read Script: [LOAD1]Invalid picture", "",
                                                 MessageIcon::None, MessageButtons::Ok}}));
}

TEST(ScriptFailures, LeaveOutTheWholeClosingStage) {
    expectScripts({
        {"the channel is not recomputed",
         "LOAD1 a.bmp\r\nINVERT1\r\nCONVOLVE1\r\nEXIT\r\nMASK",
         {kLoadA, "FT1(12)", failure("MASK", "Subscript out of range")},
         "file=a.bmp masks=",
         ""},
        {"the keyword is the last line's, a comment does not count",
         "LOAD1 a.bmp\r\n'comment\r\n\r\nMask 1",
         {kLoadA, "FT1(12)", failure("MASK", "Input past end of file")},
         "file=a.bmp masks=",
         ""},
    });
}

TEST(ScriptFailures, InTheClosingStageEndItThere) {
    ScriptBench bench;
    bench.host.failing = "deconvolve(1)";
    EXPECT_EQ(bench.run("DECONVOLVE2\r\nDECONVOLVE1\r\nRNDPHASES\r\nTOP"),
              (Lines{"opt(7)", "deconvolve(1)", failure("TOP", "Overflow")}))
        << "the keyword is that of the last line read";
    bench.host.failing = "unload()";
    EXPECT_EQ(bench.run("EXIT\r\nCONVOLVE1\r\n\tTITLE"),
              (Lines{"title TITLE", "unload()", failure("TITLE", "Overflow")}));
    bench.host.failing = "invert(1)";
    EXPECT_EQ(bench.run("LOAD1 a.bmp\r\nINVERT1\r\nBOTTOM\r\nLOAD1 b.jpg"),
              (Lines{kLoadA, "load C:\\Q\\Images\\b.jpg", "transform 1", "mark(1)", "invert(1)",
                     failure("LOAD1", "Overflow")}));
}

TEST(ScriptFailures, OfALineOfTabsHaveNoKeyword) {
    ScriptBench bench;
    bench.host.failing = "convolve(1)";
    EXPECT_EQ(bench.run("CONVOLVE1\r\n\t\t"), (Lines{"convolve(1)", failure("", "Overflow")}));
}

TEST(ScriptFailures, OfAFileThatCannotBeOpenedHaveNoKeyword) {
    ScriptBench bench;
    const Lines before{"unmark(1)", "unmark(4)", "unmark(2)", "unmark(5)",
                       "unmark(3)", "unmark(6)", "opt(12)",   "opt(3)"};
    bench.desktop.log.clear();
    ReadScript(bench.lab, bench.host, "C:\\Q\\Scripts\\no.ftscr");
    Lines expected = before;
    expected.insert(expected.end(), {"files.read(C:\\Q\\Scripts\\no.ftscr)"});
    EXPECT_EQ(Lines(bench.desktop.log.begin(), bench.desktop.log.begin() + 9), expected)
        << "the reset comes first";
    ASSERT_EQ(bench.desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(bench.desktop.dialogs.messages[0].text, "Error in Read Script: []File not found");

    bench.run("LOWPASS 3");
    bench.desktop.files.unreadable.insert(bench.scriptFile);
    EXPECT_EQ(bench.desktop.dialogs.messages.size(), 1U);
    ReadScript(bench.lab, bench.host, bench.scriptFile);
    EXPECT_EQ(bench.desktop.dialogs.messages[1].text,
              "Error in Read Script: []Path/File access error");
}

TEST(ScriptFailures, OfTheResetReachTheCaller) {
    ScriptBench bench;
    bench.host.failing = "opt(3)";
    bench.desktop.files.addFile(bench.scriptFile, "TITLE a");
    EXPECT_EQ(errorOf([&] { ReadScript(bench.lab, bench.host, bench.scriptFile); }),
              ErrorNumber::Overflow);
    EXPECT_TRUE(bench.desktop.dialogs.messages.empty());
}

TEST(ScriptFailures, AreNoneForNumbersAndKeywordsThatCannotBeRead) {
    expectScripts({{"nothing fails",
                    "LOWPASS x\r\nFROBNICATE 7\r\nHIGHPASS\r\nMASK 0\r\n,,,\r\n. . .",
                    {"FT1(10)", "ring(0, 0)", "FT1(11)", "ring(0, 0)", "FT1(12)"},
                    "masks=",
                    ""}});
}

TEST(ScriptsNobodyWrote, TenMegabytesOfBytesDoNothingOrSaySo) {
    const unsigned seed = 20240309;
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::string bytes(10'000'000, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    ScriptBench bench;
    bench.run(bytes);
    EXPECT_LE(bench.desktop.dialogs.messages.size(), 1U);
}

TEST(ScriptsNobodyWrote, TenMegabytesInOneLineAreOneLine) {
    for (const char* filling : {"x", "x ", " ", "\t", ",", "'"}) {
        std::string line = "\tTITLE ";
        while (line.size() < 10'000'000)
            line += filling;
        ScriptBench bench;
        bench.run(line + "\r\nBOTTOM\r\nLOWPASS 4");
        EXPECT_EQ(bench.state(Channel::Two), "low=4") << '"' << filling << '"';
    }
}

TEST(ScriptsNobodyWrote, AHundredThousandLinesAreAllRead) {
    std::string script;
    for (int i = 0; i < 100'000; ++i)
        script += i % 2 == 0 ? "INVERT1\r\n" : "' comment " + std::to_string(i) + "\r\n";
    ScriptBench bench;
    EXPECT_EQ(bench.run(script + "LOWPASS 4"), (Lines{"FT1(10)", "ring(0, 4)"}));
}

}  // namespace
}  // namespace quillon
