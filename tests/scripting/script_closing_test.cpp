#include <gtest/gtest.h>

#include "tests/scripting/ScriptBench.h"

// What waits for the end of a script.

namespace quillon {
namespace {

const std::string kLoadA = "load C:\\Q\\Images\\a.bmp";
const std::string kLoadB = "load C:\\Q\\Images\\b.jpg";

TEST(ScriptInverts, FollowTheTransformOfTheirChannelInTheOrderOfThePanels) {
    expectScripts({
        {"image",
         "LOAD1 a.bmp\r\nINVERT1",
         {kLoadA, "transform 1", "mark(1)", "invert(1)"},
         "file=a.bmp invert=1",
         ""},
        {"before the load",
         "INVERT1\r\nLOAD1 a.bmp",
         {kLoadA, "transform 1", "mark(1)", "invert(1)"},
         "file=a.bmp invert=1",
         ""},
        {"all three, in any order",
         "LOAD1 a.bmp\r\nINVERT3\r\nINVERT1\r\nINVERT2",
         {kLoadA, "transform 1", "mark(1)", "invert(1)", "mark(2)", "invert(2)", "mark(3)",
          "invert(3)"},
         "file=a.bmp invert=123",
         ""},
        {"bottom",
         "BOTTOM\r\nLOAD1 a.bmp\r\nINVERT2\r\nINVERT3",
         {kLoadA, "transform 2", "mark(5)", "invert(5)", "mark(6)", "invert(6)"},
         "",
         "file=a.bmp invert=23"},
        {"both channels, each behind its transform",
         "LOAD1 a.bmp\r\nINVERT1\r\nBOTTOM\r\nLOAD1 b.jpg\r\nINVERT1",
         {kLoadA, kLoadB, "transform 1", "mark(1)", "invert(1)", "transform 2", "mark(4)",
          "invert(4)"},
         "file=a.bmp invert=1",
         "file=b.jpg invert=1"},
        {"twice is once",
         "LOAD1 a.bmp\r\nINVERT2\r\nINVERT2",
         {kLoadA, "transform 1", "mark(2)", "invert(2)"},
         "file=a.bmp invert=2",
         ""},
        {"no file, no invert", "INVERT1\r\nINVERT2\r\nINVERT3", {}, "", ""},
        {"a file in the other channel is no help",
         "LOAD1 a.bmp\r\nBOTTOM\r\nINVERT1",
         {kLoadA, "transform 1"},
         "file=a.bmp",
         ""},
        {"a new image has no file", "NEW1\r\nINVERT1", {"FT1(9)", "new(1)"}, "", ""},
    });
}

TEST(ScriptDeferred, CommandsRunInAFixedOrderAndOnce) {
    const Lines all{"unload()",    "opt(7)",        "opt(8)",       "convolve(1)",
                    "convolve(4)", "deconvolve(1)", "deconvolve(4)"};
    expectScripts({
        {"EXIT", "EXIT", {"unload()"}, "", ""},
        {"RNDPHASES", "RNDPHASES", {"opt(7)"}, "", ""},
        {"RNDMODULI", "RNDMODULI", {"opt(8)"}, "", ""},
        {"CONVOLVE1", "CONVOLVE1", {"convolve(1)"}, "", ""},
        {"CONVOLVE2", "CONVOLVE2", {"convolve(4)"}, "", ""},
        {"DECONVOLVE1", "DECONVOLVE1", {"deconvolve(1)"}, "", ""},
        {"DECONVOLVE2", "DECONVOLVE2", {"deconvolve(4)"}, "", ""},
        {"the section does not matter", "BOTTOM\r\nCONVOLVE1", {"convolve(1)"}, "", ""},
        {"all, backwards",
         "DECONVOLVE2\r\nDECONVOLVE1\r\nCONVOLVE2\r\nCONVOLVE1\r\nRNDMODULI\r\nRNDPHASES\r\nEXIT",
         all, "", ""},
        {"all, twice",
         "EXIT\r\nRNDPHASES\r\nRNDMODULI\r\nCONVOLVE1\r\nCONVOLVE2\r\nDECONVOLVE1\r\n"
         "DECONVOLVE2\r\nexit\r\nrndphases\r\nrndmoduli\r\nconvolve1\r\nconvolve2\r\n"
         "deconvolve1\r\ndeconvolve2",
         all, "", ""},
        {"CONVOLVE1 twice", "CONVOLVE1\r\nCONVOLVE1", {"convolve(1)"}, "", ""},
        {"behind the transforms and inverts",
         "CONVOLVE2\r\nLOAD1 a.bmp\r\nINVERT1",
         {kLoadA, "transform 1", "mark(1)", "invert(1)", "convolve(4)"},
         "file=a.bmp invert=1",
         ""},
        {"arguments are ignored", "CONVOLVE1 2", {"convolve(1)"}, "", ""},
    });
}

TEST(ScriptDeferred, ExitWaitsForTheRestOfTheScriptButRunsFirst) {
    expectScripts({
        {"in the first line",
         "EXIT\r\nTITLE a\r\nLOAD1 a.bmp\r\nSAVE1 x.bmp\r\nCONVOLVE1",
         {"title a", kLoadA, "save(1, C:\\Q\\Images\\x.bmp)", "transform 1", "unload()",
          "convolve(1)"},
         "file=a.bmp",
         ""},
    });
}

TEST(ScriptClosing, RecomputesEveryChannelThatHoldsAFile) {
    for (const std::string script : {"", "' a comment only", "\r\n  \r\n'x\r\n"}) {
        ScriptBench bench;
        bench.run("LOAD1 a.bmp\r\nBOTTOM\r\nLOAD1 b.jpg");
        EXPECT_EQ(bench.run(script), (Lines{"transform 1", "transform 2"}));
    }
}

TEST(ScriptClosing, EmptiesTheTagsBeforeItTransforms) {
    ScriptBench bench;
    bench.run("LOAD1 a.bmp\r\nBOTTOM\r\nLOAD1 b.jpg");
    bench.pb3.Tag = "3D";
    bench.pb6.Tag = "3D";
    bench.channel2.file.clear();
    bench.run("");
    EXPECT_EQ(bench.pb3.Tag, "!") << "a surface gives way to the reconstruction";
    EXPECT_EQ(bench.pb6.Tag, "3D") << "a channel without a file is left alone";
}

TEST(ScriptClosing, LetsNoEventsInOfItsOwnAccord) {
    ScriptBench bench;
    bench.run(
        "TITLE a\r\nLOAD1 a.bmp\r\nNEW1\r\nLOWPASS 4\r\nHIGHPASS 4\r\nMASK two.ftmsk\r\n"
        "INVERT1\r\nINVERT2\r\nINVERT3\r\nSAVE1 x.bmp\r\nBOTTOM\r\nMASK 0\r\nRNDPHASES\r\n"
        "CONVOLVE1\r\nDECONVOLVE2\r\nEXIT");
    EXPECT_TRUE(bench.desktop.dialogs.messages.empty());
    EXPECT_EQ(bench.desktop.screen.yields, 0);
}

TEST(ScriptClosing, KeepsNothingForTheNextRun) {
    ScriptBench bench;
    bench.run("BOTTOM\r\nLOAD1 a.bmp\r\nINVERT2\r\nCONVOLVE1");
    EXPECT_EQ(bench.run("LOWPASS 4"), (Lines{"FT1(10)", "ring(0, 4)", "transform 2"}));
}

TEST(ScriptClosing, FollowsAMissingImageToo) {
    const std::string missing = stopFor("C:\\Q\\Images\\no.bmp");
    expectScripts({
        {"alone", "LOAD1 no.bmp", {missing}, "", ""},
        {"the lines behind it are not read",
         "LOAD1 no.bmp\r\nTITLE a\r\nBOTTOM\r\nLOAD1 a.bmp",
         {missing},
         "",
         ""},
        {"what waited still runs",
         "CONVOLVE1\r\nLOAD1 a.bmp\r\nINVERT1\r\nBOTTOM\r\nLOAD1 no.bmp\r\nCONVOLVE2",
         {kLoadA, missing, "transform 1", "mark(1)", "invert(1)", "convolve(1)"},
         "file=a.bmp invert=1",
         ""},
        {"EXIT before it", "EXIT\r\nLOAD1 no.bmp", {missing, "unload()"}, "", ""},
        {"EXIT behind it", "LOAD1 no.bmp\r\nEXIT", {missing}, "", ""},
        {"a folder is no image", "LOAD1 C:\\Q\\Images\\", {stopFor("C:\\Q\\Images\\")}, "", ""},
    });
}

TEST(ScriptClosing, TakesAnEmptyImageFileForAMissingOne) {
    ScriptBench bench;
    bench.desktop.files.addFile("C:\\Q\\Images\\empty.bmp", "");
    EXPECT_EQ(bench.run("LOAD1 empty.bmp\r\nTITLE a"),
              (Lines{stopFor("C:\\Q\\Images\\empty.bmp")}));
}

TEST(ScriptReset, TakesTheFiltersOffThenTheInvertsThenShowsMagnitudes) {
    ScriptBench bench;
    bench.channel1.SetFilterFT(2);
    bench.channel2.SetFilterFT(4);
    for (const Channel which : {Channel::One, Channel::Two})
        for (Integer kind = 0; kind < 3; ++kind)
            bench.lab.channel(which).SetInvert(kind, true);
    bench.desktop.log.clear();
    ResetForScript(bench.lab, bench.host);
    EXPECT_EQ(bench.desktop.log,
              (Lines{"FT1(9)", "FT2(9)", "unmark(1)", "unmark(4)", "unmark(2)", "unmark(5)",
                     "unmark(3)", "unmark(6)", "opt(12)", "opt(3)"}));
    EXPECT_EQ(bench.state(Channel::One), "");
    EXPECT_EQ(bench.state(Channel::Two), "");
}

TEST(ScriptReset, LeavesAChannelWithoutFilterUnfiltered) {
    ScriptBench bench;
    bench.channel2.SetFilterFT(3);
    bench.desktop.log.clear();
    ResetForScript(bench.lab, bench.host);
    EXPECT_EQ(bench.desktop.log.front(), "FT2(9)");
    EXPECT_EQ(bench.desktop.log[1], "unmark(1)");
}

TEST(ScriptReset, LeavesThePixelsOfAnInvertedImage) {
    ScriptBench bench;
    bench.pb1.setPicture(Bitmap(256, 256, 0x123456));
    bench.channel1.SetInvert(0, true);
    ResetForScript(bench.lab, bench.host);
    EXPECT_EQ(bench.pb1.Image(), Bitmap(256, 256, 0x123456));
}

TEST(ScriptFilterMode, OfAnyOtherNumberDoesNothing) {
    ScriptBench bench;
    bench.desktop.log.clear();
    for (const Integer mode : std::initializer_list<Integer>{-1, 0, 5, 32767})
        SetFilterMode(bench.lab, bench.host, 1, mode, 7);
    EXPECT_TRUE(bench.desktop.log.empty());
}

/// A window whose filter entries are marked and do nothing else.
class MarkingHost : public RecordingScriptHost {
public:
    using RecordingScriptHost::RecordingScriptHost;
    void mnuFT1a(Integer /*Index*/) override {}
    void mnuFT2a(Integer /*Index*/) override {}
};

TEST(ScriptFilterMode, OfCustomMasksEmptiesTheListAndTheOthersLeaveIt) {
    ScriptBench bench;
    MarkingHost host(bench.desktop.calls, bench.lab);
    for (const Integer panel : std::initializer_list<Integer>{1, 4})
        for (const Integer mode : std::initializer_list<Integer>{1, 2, 3, 4}) {
            clComplexImage& channel = bench.lab.channelOf(panel);
            channel.nmask = 0;
            channel.AddMask(1, 2, 3, 4);
            SetFilterMode(bench.lab, host, panel, mode, 7);
            EXPECT_EQ(channel.nmask, mode == 4 ? 0 : 1) << mode;
        }
}

TEST(ScriptFilterMode, TakesAnyPanelOfTheChannel) {
    for (const Integer panel : std::initializer_list<Integer>{1, 2, 3, 4, 5, 6}) {
        ScriptBench bench;
        bench.desktop.log.clear();
        SetFilterMode(bench.lab, bench.host, panel, 3, 7);
        EXPECT_EQ(bench.desktop.log,
                  (panel < 4 ? Lines{"FT1(11)", "ring(0, 7)"} : Lines{"FT2(11)", "ring(1, 7)"}));
    }
}

TEST(ScriptApplyInvert, MarksTheEntryThenInvertsThePanelOfTheChannel) {
    for (const Integer panel : std::initializer_list<Integer>{1, 4})
        for (const Integer kind : std::initializer_list<Integer>{1, 2, 3}) {
            ScriptBench bench;
            bench.desktop.log.clear();
            ApplyInvert(bench.host, panel, kind);
            const std::string id = std::to_string(panel == 1 ? kind : kind + 3);
            EXPECT_EQ(bench.desktop.log, (Lines{"mark(" + id + ")", "invert(" + id + ")"}));
        }
}

}  // namespace
}  // namespace quillon
