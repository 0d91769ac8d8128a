#include <gtest/gtest.h>

#include "engine/RunTimeError.h"
#include "scripting/ReadMaskFile.h"
#include "tests/scripting/ScriptBench.h"
#include "tests/support/error_of.h"

// MASK in its three forms, and mask files.

namespace quillon {
namespace {

const std::string kScripts = "C:\\Q\\Scripts\\";
const Lines kMasks{"FT1(12)"};

TEST(ScriptMasks, OfACountReadThatManyRowsBehindTheLine) {
    expectScripts({
        {"one row", "MASK 1\r\n10 20 30 40", kMasks, "masks=10,20,30,40", ""},
        {"two rows", "MASK 2\r\n1 2 3 4\r\n5 6 7 8\r\n", kMasks, "masks=1,2,3,4;5,6,7,8", ""},
        {"the line behind the rows is a command",
         "MASK 1\r\n1 2 3 4\r\nTITLE a",
         {"FT1(12)", "title a"},
         "masks=1,2,3,4",
         ""},
        {"2.5 is two rows", "MASK 2.5\r\n1 2 3 4\r\n5 6 7 8\r\n9 9 9 9", kMasks,
         "masks=1,2,3,4;5,6,7,8", ""},
        {"3.5 is four rows", "MASK 3.5\r\n1 1 1 1\r\n2 2 2 2\r\n3 3 3 3\r\n4 4 4 4\r\n5 5 5 5",
         kMasks, "masks=1,1,1,1;2,2,2,2;3,3,3,3;4,4,4,4", ""},
        {"0.5 is no row", "MASK 0.5\r\n1 2 3 4", kMasks, "masks=", ""},
        {"0.3 is no row", "MASK ,3\r\nTITLE a", {"FT1(12)", "title a"}, "masks=", ""},
        {"bottom section", "BOTTOM\r\nMASK 1\r\n1 2 3 4", {"FT2(12)"}, "", "masks=1,2,3,4"},
        {"a second line replaces the first",
         "MASK 1\r\n1 2 3 4\r\nMASK 1\r\n5 6 7 8",
         {"FT1(12)", "FT1(12)"},
         "masks=5,6,7,8",
         ""},
        {"one line for each section",
         "MASK 1\r\n1 2 3 4\r\nBOTTOM\r\nMASK 1\r\n5 6 7 8",
         {"FT1(12)", "FT2(12)"},
         "masks=1,2,3,4",
         "masks=5,6,7,8"},
        {"a filter behind the masks forgets them",
         "MASK 1\r\n1 2 3 4\r\nLOWPASS 9",
         {"FT1(12)", "FT1(10)", "ring(0, 9)"},
         "low=9",
         ""},
        {"further words on the line are ignored", "MASK 1 row\r\n1 2 3 4", kMasks, "masks=1,2,3,4",
         ""},
        {"an exponent counts", "MASK 1e0\r\n1 2 3 4", kMasks, "masks=1,2,3,4", ""},
        {"a file's name that begins with a digit is a count", "MASK 1ring.ftmsk\r\n1 2 3 4", kMasks,
         "masks=1,2,3,4", ""},
    });
}

TEST(ScriptMasks, RowsAreFourNumbersInAnyLayout) {
    const auto row = [](const std::string& text, const std::string& masks) {
        return ScriptCase{"row", "MASK 1\r\n" + text, kMasks, "masks=" + masks, ""};
    };
    expectScripts({
        row("   10   20  30 40   ", "10,20,30,40"),
        row("    \t10 20\t30\t\t40", "10,20,30,40"),
        row("10,5 20 30 40", "10,20,30,40"),
        row("11,5 20.5 30,51 40.49", "12,20,31,40"),
        row("10.50000001 11.4999999999 30.5000000001 40", "11,11,31,40"),
        row("10 20 30 40 50 'five", "10,20,30,40"),
        row("30 40 10 20", "10,20,30,40"),
        row("-5 -6 300 32767", "-5,-6,300,32767"),
        row("a b c d", "0,0,0,0"),
        row("1a 2b 3c 4d", "1,2,3,4"),
        row("1e1 2e1 3e1 4e1", "10,20,30,40"),
        row("-32768 32767.4 0 -0", "-32768,0,0,32767"),
        row("'10 20 30 40", "0,20,30,40"),
        row("TITLE 20 30 40", "0,20,30,40"),
    });
}

TEST(ScriptMasks, OfZeroAreSelectedAndStayEmpty) {
    expectScripts({
        {"MASK 0", "MASK 0\r\n1 2 3 4", kMasks, "masks=", ""},
        {"tab", "MASK\t0", kMasks, "masks=", ""},
        {"indented", "\tMASK 0", kMasks, "masks=", ""},
        {"further words", "MASK 0 1 2", kMasks, "masks=", ""},
        {"after rows", "MASK 1\r\n1 2 3 4\r\nMASK 0", {"FT1(12)", "FT1(12)"}, "masks=", ""},
    });
}

TEST(ScriptMasks, OfAnythingElseAreAFile) {
    const auto missing = [](const std::string& path) { return Lines{"FT1(12)", warnFor(path)}; };
    expectScripts({
        {"bare name", "MASK two.ftmsk", kMasks, "masks=1,2,3,4;5,6,7,8", ""},
        {"path", "MASK c:\\q\\scripts\\TWO.ftmsk", kMasks, "masks=1,2,3,4;5,6,7,8", ""},
        {"bottom", "BOTTOM\r\nMASK two.ftmsk", {"FT2(12)"}, "", "masks=1,2,3,4;5,6,7,8"},
        {"missing", "MASK no.ftmsk", missing(kScripts + "no.ftmsk"), "masks=", ""},
        {"the lines behind a missing file still run",
         "MASK no.ftmsk\r\nTITLE a",
         {"FT1(12)", warnFor(kScripts + "no.ftmsk"), "title a"},
         "masks=",
         ""},
        {"0.0 is a name", "MASK 0.0", missing(kScripts + "0.0"), "masks=", ""},
        {"00 is a name", "MASK 00", missing(kScripts + "00"), "masks=", ""},
        {"+0 is a name", "MASK +0", missing(kScripts + "+0"), "masks=", ""},
        {"0.ftmsk is a name", "MASK 0.ftmsk", missing(kScripts + "0.ftmsk"), "masks=", ""},
        {"a negative number is a name", "MASK -3", missing(kScripts + "-3"), "masks=", ""},
        {"a name with blanks", "MASK my rings.ftmsk", missing(kScripts + "my rings.ftmsk"),
         "masks=", ""},
        {"a name with a digit behind its folder", "MASK " + kScripts + "3rings.ftmsk",
         missing(kScripts + "3rings.ftmsk"), "masks=", ""},
        {"the section's folder is that of the scripts", "MASK a.bmp", missing(kScripts + "a.bmp"),
         "masks=", ""},
        {"indented", "\tMASK two.ftmsk", missing(kScripts + "MASK two.ftmsk"), "masks=", ""},
        {"a native path", "MASK /Q/two.ftmsk", missing("/Q/two.ftmsk"), "masks=", ""},
    });
}

TEST(ScriptMasks, OfABadCountOrRowEndTheRun) {
    const auto fails = [](const std::string& script, const char* description,
                          const std::string& masks) {
        return ScriptCase{
            description, script, {"FT1(12)", failure("MASK", description)}, "masks=" + masks, ""};
    };
    const char* subscript = "Subscript out of range";
    const char* pastEnd = "Input past end of file";
    const char* overflow = "Overflow";
    expectScripts({
        fails("MASK", subscript, ""),
        fails("mask\t", subscript, ""),
        fails("MASK 3rings.ftmsk", pastEnd, ""),
        fails("MASK 2\r\n1 2 3 4", pastEnd, "1,2,3,4"),
        fails("MASK 2\r\n1 2 3 4\r\n", pastEnd, "1,2,3,4"),
        fails("MASK 1\r\n1 2 3", subscript, ""),
        fails("MASK 1\r\n\r\n1 2 3 4", subscript, ""),
        fails("MASK 2\r\n1 2 3 4\r\n'comment\r\n5 6 7 8", subscript, "1,2,3,4"),
        fails("MASK 1\r\n1 2 3 40000", overflow, ""),
        fails("MASK 1\r\n32767,5 2 3 4", overflow, ""),
        fails("MASK 1\r\n-32769 2 3 4", overflow, ""),
        fails("MASK 1\r\n1e99 2 3 4", overflow, ""),
        fails("MASK 1\r\n70000", overflow, ""),
        fails("MASK 40000\r\n1 2 3 4", overflow, ""),
        fails("MASK 32767,5\r\n1 2 3 4", overflow, ""),
        fails("MASK 1e40\r\n1 2 3 4", overflow, ""),
    });
}

TEST(ScriptMasks, NamesOfRowsAreNoKeywordOfTheErrorMessage) {
    expectScripts({{"row",
                    "MASK 2\r\nTITLE 2 3 4\r\nLOAD1",
                    {"FT1(12)", failure("MASK", "Subscript out of range")},
                    "masks=0,2,3,4",
                    ""}});
}

TEST(ScriptMasks, FitAThousandInTheList) {
    std::string rows;
    for (int i = 0; i < 1001; ++i)
        rows += "1 2 3 4\r\n";
    ScriptBench bench;
    EXPECT_EQ(bench.run("MASK 1000\r\n" + rows), kMasks);
    EXPECT_EQ(bench.channel1.nmask, 1000);
    EXPECT_EQ(bench.run("MASK 1001\r\n" + rows).back(), failure("MASK", "Subscript out of range"));
    EXPECT_EQ(bench.channel1.nmask, 1000);
}

/// A mask file's text on a channel that is set to custom masks.
class MaskFiles : public ::testing::Test {
protected:
    std::string read(const std::string& text, Integer panel = 1) {
        bench.desktop.files.addFile(kScripts + "m.ftmsk", text);
        const Channel which = channelOfPanel(panel);
        bench.lab.channel(which).SetFilterFT(4);
        ReadMaskFile(bench.lab, panel, kScripts + "m.ftmsk");
        return bench.state(which);
    }
    ScriptBench bench;
};

TEST_F(MaskFiles, HoldOneRectangleALine) {
    EXPECT_EQ(read("1 2 3 4\r\n5\t6\t7\t8"), "masks=1,2,3,4;5,6,7,8");
    EXPECT_EQ(read("1 2 3 4\r5 6 7 8\n9 9 9 9"), "masks=1,2,3,4;5,6,7,8;9,9,9,9");
    EXPECT_EQ(read("10,5 20 30 40"), "masks=10,20,30,40");
    EXPECT_EQ(read("10,50000001 20 30 40"), "masks=11,20,30,40");
    EXPECT_EQ(read("30 40 10 20 50 60"), "masks=10,20,30,40");
}

TEST_F(MaskFiles, KnowCommentsAndEmptyLines) {
    EXPECT_EQ(read("' masks\r\n\r\n   \r\n  'x\r\n 1 2 3 4 \r\n"), "masks=1,2,3,4");
    EXPECT_EQ(read("' only comments\r\n'1 2 3 4"), "masks=");
}

TEST_F(MaskFiles, TakeATabBeforeAnApostropheForARow) {
    EXPECT_EQ(errorOf([&] { read("\t' masks"); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { read("\t"); }), ErrorNumber::SubscriptOutOfRange);
}

TEST_F(MaskFiles, GoToTheChannelOfThePanel) {
    for (const Integer panel : std::initializer_list<Integer>{1, 2, 3, 4, 5, 6}) {
        EXPECT_EQ(read("1 2 3 4", panel), "masks=1,2,3,4");
        EXPECT_EQ(bench.lab.channel(panel < 4 ? Channel::Two : Channel::One).nmask,
                  panel < 4 ? 0 : 1);
    }
}

TEST_F(MaskFiles, AddToTheListAndRecomputeNothing) {
    read("1 2 3 4");
    bench.desktop.log.clear();
    ReadMaskFile(bench.lab, 1, kScripts + "two.ftmsk");
    EXPECT_EQ(bench.state(Channel::One), "masks=1,2,3,4;1,2,3,4;5,6,7,8");
    for (const std::string& line : bench.desktop.log)
        EXPECT_TRUE(line.starts_with("files.")) << line;
}

TEST_F(MaskFiles, KeepTheRowsBeforeABadOne) {
    EXPECT_EQ(errorOf([&] { read("1 2 3 4\r\n5 6 7\r\n9 9 9 9"); }),
              ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(bench.state(Channel::One), "masks=1,2,3,4");
    EXPECT_EQ(errorOf([&] { read("5 6 7 8\r\n5 6 7 32768"); }), ErrorNumber::Overflow);
    EXPECT_EQ(bench.state(Channel::One), "masks=5,6,7,8");
}

TEST_F(MaskFiles, FailAtTheThousandAndFirstRow) {
    std::string rows;
    for (int i = 0; i < 1001; ++i)
        rows += "1 2 3 4\n";
    EXPECT_EQ(errorOf([&] { read(rows); }), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(bench.channel1.nmask, 1000);
}

TEST_F(MaskFiles, ThatAreMissingOrEmptyGiveOneDialogWithAnExclamationMark) {
    bench.desktop.files.addFile(kScripts + "empty.ftmsk", "");
    for (const std::string& path : {kScripts + "empty.ftmsk", kScripts + "no.ftmsk"}) {
        bench.desktop.dialogs.messages.clear();
        ReadMaskFile(bench.lab, 1, path);
        EXPECT_EQ(bench.desktop.dialogs.messages,
                  (std::vector<RecordingDialogs::Message>{{"File not found:\n" + shownPath(path),
                                                           "Script Error", MessageIcon::Exclamation,
                                                           MessageButtons::Ok}}));
    }
}

TEST_F(MaskFiles, ThatFailAreReportedByTheScriptWithTheKeywordMask) {
    bench.desktop.files.addFile(kScripts + "bad.ftmsk", "1 2 3 4\r\n5 6");
    EXPECT_EQ(bench.run("MASK bad.ftmsk\r\nTITLE a"),
              (Lines{"FT1(12)", failure("MASK", "Subscript out of range")}));
    EXPECT_EQ(bench.state(Channel::One), "masks=1,2,3,4");
    bench.desktop.files.addFile(kScripts + "locked.ftmsk", "1 2 3 4");
    bench.desktop.files.unreadable.insert(kScripts + "locked.ftmsk");
    EXPECT_EQ(bench.run("MASK locked.ftmsk").back(), failure("MASK", "Path/File access error"));
}

}  // namespace
}  // namespace quillon
