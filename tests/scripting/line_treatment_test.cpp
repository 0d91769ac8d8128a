#include <gtest/gtest.h>

#include "tests/scripting/ScriptBench.h"

// How a script's lines are taken apart.

namespace quillon {
namespace {

const std::string kImages = "C:\\Q\\Images\\";

TEST(ScriptLines, EndInCrLfOrALoneCrOrALoneLf) {
    const Lines both{"title one", "title two"};
    expectScripts({
        {"CR LF", "TITLE one\r\nTITLE two\r\n", both, "", ""},
        {"CR alone", "TITLE one\rTITLE two\r", both, "", ""},
        {"LF alone", "TITLE one\nTITLE two\n", both, "", ""},
        {"mixed ends",
         "TITLE one\rTITLE two\nTITLE three\r\nTITLE four",
         {"title one", "title two", "title three", "title four"},
         "",
         ""},
        {"no end behind the last line", "TITLE one\r\nTITLE two", both, "", ""},
        {"LF CR holds an empty line", "TITLE one\n\rTITLE two", both, "", ""},
        {"CR CR LF holds an empty line", "TITLE one\r\r\nTITLE two", both, "", ""},
        {"a lone CR at the end", "TITLE one\r\nTITLE two\r", both, "", ""},
    });
}

TEST(ScriptLines, WithoutACommandDoNothing) {
    expectScripts({
        {"empty file", "", {}, "", ""},
        {"line ends only", "\r\n\r\n\n\r", {}, "", ""},
        {"blanks only", "   \r\n ", {}, "", ""},
        {"a tab only", "\t\r\n", {}, "", ""},
        {"comment", "' TITLE one", {}, "", ""},
        {"comment behind blanks", "    'TITLE one\r\nTITLE two", {"title two"}, "", ""},
        {"an apostrophe alone", "'", {}, "", ""},
        {"unknown keyword", "REM TITLE one\r\nTITEL two\r\nTITLES three", {}, "", ""},
        {"keyword with a comma", "TITLE,one", {}, "", ""},
        {"a first word that ends in a point", "TITLE. one", {}, "", ""},
        {"no short forms", "TIT one\r\nLOW 3\r\nLOAD a.bmp\r\nINVERT\r\nSAVE x.bmp", {}, "", ""},
        {"numbers of the other panels",
         "LOAD2 a.bmp\r\nNEW2\r\nINVERT4\r\nINVERT0\r\nCONVOLVE3",
         {},
         "",
         ""},
    });
}

TEST(ScriptLines, LoseTheirOuterBlanksOnly) {
    expectScripts({
        {"blanks at both ends", "   TITLE one   ", {"title one"}, "", ""},
        {"blanks between", "TITLE     one  two", {"title one  two"}, "", ""},
        {"no trailing comment", "TITLE one 'two", {"title one 'two"}, "", ""},
        {"no trailing comment behind a file",
         "LOAD1 a.bmp 'cat",
         {stopFor(kImages + "a.bmp 'cat")},
         "",
         ""},
        {"text behind a number is ignored",
         "LOWPASS 20 'wide",
         {"FT1(10)", "ring(0, 20)"},
         "low=20",
         ""},
        {"a second number is ignored", "HIGHPASS 7 9", {"FT1(11)", "ring(0, 7)"}, "high=7", ""},
        {"a byte beyond ASCII is no blank", "TITLE\xC2\xA0one", {}, "", ""},
        {"vertical tab is no blank", "TITLE\vone", {}, "", ""},
    });
}

TEST(ScriptLines, HavePointsForCommasEverywhere) {
    expectScripts({
        {"decimal comma", "LOWPASS 12,5", {"FT1(10)", "ring(0, 12.5)"}, "low=12.5", ""},
        {"comma in a title", "TITLE Hello, world", {"title Hello. world"}, "", ""},
        {"comma in a file name",
         "LOAD1 a,bmp",
         {"load " + kImages + "a.bmp", "transform 1"},
         "file=a.bmp",
         ""},
        {"comma in a path to save to",
         "SAVE1 c:\\x,y\\out.bmp",
         {"save(1, c:\\x.y\\out.bmp)"},
         "",
         ""},
        {"a comma behind a comment's apostrophe changes nothing", "',TITLE one", {}, "", ""},
    });
}

TEST(ScriptLines, HaveBlanksForTabsAfterTheTrimming) {
    expectScripts({
        {"tab between keyword and argument", "TITLE\tone", {"title one"}, "", ""},
        {"tab before a number", "LOWPASS\t20", {"FT1(10)", "ring(0, 20)"}, "low=20", ""},
        {"tab inside a title", "TITLE one\ttwo", {"title one two"}, "", ""},
        {"an indented line's argument begins with its keyword",
         "\tTITLE one",
         {"title TITLE one"},
         "",
         ""},
        {"blanks before the tab make no difference", "  \tTITLE one", {"title TITLE one"}, "", ""},
        {"a blank behind the tab neither", "\t TITLE one", {"title TITLE one"}, "", ""},
        {"an indented number is read from its word",
         "\tLOWPASS 20",
         {"FT1(10)", "ring(0, 20)"},
         "low=20",
         ""},
        {"an indented file is not found",
         "\tLOAD1 a.bmp",
         {stopFor(kImages + "LOAD1 a.bmp")},
         "",
         ""},
        {"an indented comment is an unknown keyword",
         "\t'TITLE one\r\nTITLE two",
         {"title two"},
         "",
         ""},
        {"a closing tab empties the argument", "TITLE\t", {}, "", ""},
        {"a closing tab behind the argument goes", "TITLE one\t", {"title one"}, "", ""},
        {"an indented bare keyword", "\tTITLE", {"title TITLE"}, "", ""},
    });
}

TEST(ScriptLines, OfOneWordAreTheirOwnArgument) {
    expectScripts({
        {"bare title", "TITLE", {"title TITLE"}, "", ""},
        {"bare title keeps its case", "Title", {"title Title"}, "", ""},
        {"bare load", "LOAD1", {stopFor(kImages + "LOAD1")}, "", ""},
        {"bare save", "SAVE1", {"save(1, " + kImages + "SAVE1)"}, "", ""},
        {"bare save in lower case", "save3", {"save(3, " + kImages + "save3)"}, "", ""},
        {"bare radius", "LOWPASS", {"FT1(10)", "ring(0, 0)"}, "low=0", ""},
    });
}

TEST(ScriptLines, TakeKeywordsInAnyCaseAndKeepThatOfArguments) {
    expectScripts({
        {"lower case", "lowpass 20", {"FT1(10)", "ring(0, 20)"}, "low=20", ""},
        {"mixed case", "hIgHpAsS 20", {"FT1(11)", "ring(0, 20)"}, "high=20", ""},
        {"a file's case is kept",
         "Load1 BIG Cat.BMP",
         {"load " + kImages + "BIG Cat.BMP", "transform 1"},
         "file=BIG Cat.BMP",
         ""},
        {"a title's case is kept", "title HeLLo", {"title HeLLo"}, "", ""},
        {"letters beyond ASCII have no case", "\xC3\xA4TITLE one", {}, "", ""},
    });
}

TEST(ScriptLines, ReadNumbersByTheirLeadingPart) {
    const auto low = [](const std::string& word, const std::string& value) {
        return ScriptCase{
            "radius", "LOWPASS " + word, {"FT1(10)", "ring(0, " + value + ")"}, "low=" + value, ""};
    };
    expectScripts({
        low("abc", "0"),
        low("12.5.5", "12.5"),
        low(".5", "0.5"),
        low("5.", "5"),
        low("+5", "5"),
        low("1e1", "10"),
        low("1E1x", "10"),
        low("1d5", "1"),
        low("&H10", "0"),
        low("12px", "12"),
        low("-0", "0"),
        low("0x10", "0"),
        low("--5", "0"),
        low("\xD9\xA3", "0"),
        low("1e-60", "0"),
    });
}

TEST(ScriptLines, KeepBytesBeyondAscii) {
    ScriptBench bench;
    const std::string utf8 = "k\xC3\xA4tzchen.bmp";
    const std::string latin1 = "k\xE4tzchen.bmp";
    bench.desktop.pictures.add(kImages + utf8, Bitmap(4, 4, 0x808080));
    bench.desktop.pictures.add(kImages + latin1, Bitmap(4, 4, 0x404040));
    EXPECT_EQ(
        bench.run("TITLE \xC3\xA4\xFF\x80\r\nLOAD1 " + utf8 + "\r\nBOTTOM\r\nLOAD1 " + latin1),
        (Lines{"title \xC3\xA4\xFF\x80", "load " + kImages + utf8, "load " + kImages + latin1,
               "transform 1", "transform 2"}));
    EXPECT_EQ(bench.channel1.file, kImages + utf8);
    EXPECT_EQ(bench.channel2.file, kImages + latin1);
}

TEST(ScriptLines, TakeNulBytesAsAnyOther) {
    using namespace std::string_literals;
    expectScripts({
        {"NUL in a title", "TITLE a\0b"s, {"title a\0b"s}, "", ""},
        {"NUL in a keyword", "TI\0TLE a"s, {}, "", ""},
        {"NUL for a blank", "TITLE\0a"s, {}, "", ""},
        {"NULs only", std::string(1000, '\0'), {}, "", ""},
        {"NUL in a file name", "LOAD1 a\0.bmp"s, {stopFor(kImages + "a\0.bmp"s)}, "", ""},
        {"the end-of-text byte ends nothing",
         "TITLE a\x1A\r\nTITLE b",
         {"title a\x1A", "title b"},
         "",
         ""},
        {"a byte order mark hides the first keyword",
         "\xEF\xBB\xBFTITLE a\r\nTITLE b",
         {"title b"},
         "",
         ""},
    });
}

}  // namespace
}  // namespace quillon
