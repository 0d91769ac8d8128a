#include <gtest/gtest.h>

#include "tests/scripting/ScriptBench.h"

// What each keyword does.

namespace quillon {
namespace {

const std::string kImages = "C:\\Q\\Images\\";

TEST(ScriptSections, BeginWithTheTopOneAndChangeAtEachSectionLine) {
    const Lines low1{"FT1(10)", "ring(0, 9)"};
    const Lines low2{"FT2(10)", "ring(1, 9)"};
    expectScripts({
        {"no section line", "LOWPASS 9", low1, "low=9", ""},
        {"TOP", "TOP\r\nLOWPASS 9", low1, "low=9", ""},
        {"BOTTOM", "BOTTOM\r\nLOWPASS 9", low2, "", "low=9"},
        {"BOTTOM before TOP",
         "BOTTOM\r\nLOWPASS 9\r\nTOP\r\nLOWPASS 9",
         {"FT2(10)", "ring(1, 9)", "FT1(10)", "ring(0, 9)"},
         "low=9",
         "low=9"},
        {"twice the same", "BOTTOM\r\nBOTTOM\r\nLOWPASS 9", low2, "", "low=9"},
        {"back and forth", "TOP\r\nBOTTOM\r\nTOP\r\nLOWPASS 9", low1, "low=9", ""},
        {"an argument changes nothing", "BOTTOM 1 TOP\r\nLOWPASS 9", low2, "", "low=9"},
        {"lower case", "bottom\r\nLOWPASS 9", low2, "", "low=9"},
    });
}

TEST(ScriptTitle, StandsInTheMessageCell) {
    expectScripts({
        {"words", "TITLE Two slits", {"title Two slits"}, "", ""},
        {"the last one stands", "TITLE a\r\nTITLE b", {"title a", "title b"}, "", ""},
        {"in the bottom section too", "BOTTOM\r\nTITLE a", {"title a"}, "", ""},
    });
    ScriptBench bench;
    bench.run("TITLE Two slits");
    EXPECT_EQ(bench.cells[2].Caption.get(), "Two slits");
}

TEST(ScriptTitle, IsOverwrittenByTheClosingTransforms) {
    ScriptBench bench;
    bench.run("TITLE Two slits\r\nLOAD1 a.bmp");
    EXPECT_EQ(bench.cells[2].Caption.get(), "");
}

TEST(ScriptLoad, TakesABareNameFromTheImageFolderAndAPathAsItStands) {
    const auto loaded = [](const std::string& path) {
        return Lines{"load " + path, "transform 1"};
    };
    expectScripts({
        {"bare name", "LOAD1 a.bmp", loaded(kImages + "a.bmp"), "file=a.bmp", ""},
        {"name with blanks", "LOAD1   Big Cat.bmp  ", loaded(kImages + "Big Cat.bmp"),
         "file=Big Cat.bmp", ""},
        {"path", "LOAD1 c:\\q\\images\\b.jpg", loaded("c:\\q\\images\\b.jpg"), "file=b.jpg", ""},
        {"native path",
         "LOAD1 c:/q/images/b.jpg",
         {stopFor(kImages + "c:/q/images/b.jpg")},
         "",
         ""},
        {"relative path", "LOAD1 Images\\a.bmp", {stopFor("Images\\a.bmp")}, "", ""},
        {"quotes are part of the name",
         "LOAD1 \"a.bmp\"",
         {stopFor(kImages + "\"a.bmp\"")},
         "",
         ""},
        {"bottom section",
         "BOTTOM\r\nLOAD1 a.bmp",
         {"load " + kImages + "a.bmp", "transform 2"},
         "",
         "file=a.bmp"},
        {"the same in both",
         "LOAD1 a.bmp\r\nBOTTOM\r\nLOAD1 a.bmp",
         {"load " + kImages + "a.bmp", "load " + kImages + "a.bmp", "transform 1", "transform 2"},
         "file=a.bmp",
         "file=a.bmp"},
        {"bottom first is still transformed last",
         "BOTTOM\r\nLOAD1 b.jpg\r\nTOP\r\nLOAD1 a.bmp",
         {"load " + kImages + "b.jpg", "load " + kImages + "a.bmp", "transform 1", "transform 2"},
         "file=a.bmp",
         "file=b.jpg"},
        {"twice in a section",
         "LOAD1 a.bmp\r\nLOAD1 b.jpg",
         {"load " + kImages + "a.bmp", "load " + kImages + "b.jpg", "transform 1"},
         "file=b.jpg",
         ""},
    });
}

TEST(ScriptLoad, TakesAWholePathOfAPosixSystemInEitherForm) {
    for (const std::string path : {"/home/a b/cat.bmp", "\\home\\a b\\cat.bmp"}) {
        ScriptBench bench;
        bench.desktop.pictures.add("\\home\\a b\\cat.bmp", Bitmap(4, 4, 0x808080));
        EXPECT_EQ(bench.run("LOAD1 " + path), (Lines{"load " + path, "transform 1"}));
        EXPECT_EQ(bench.channel1.file, path);
    }
}

TEST(ScriptLoad, LaysThePictureUnscaledAtTheTopLeft) {
    ScriptBench bench;
    bench.run("LOAD1 a.bmp");
    EXPECT_EQ(bench.pb1.Image().at(3, 3), 0xF0F0F0);
    EXPECT_EQ(bench.pb1.Image().at(15, 11), 0x202020);
    EXPECT_EQ(bench.pb1.Image().at(16, 12), 0);
    EXPECT_EQ(bench.channel1.sfile, "a.bmp");
}

TEST(ScriptNew, SwitchesTheFilterOffAndEmptiesThePanel) {
    expectScripts({
        {"top", "NEW1", {"FT1(9)", "new(1)"}, "", ""},
        {"bottom", "BOTTOM\r\nNEW1", {"FT2(9)", "new(4)"}, "", ""},
        {"an argument means nothing", "NEW1 a.bmp", {"FT1(9)", "new(1)"}, "", ""},
        {"a filter before it goes",
         "LOWPASS 9\r\nNEW1",
         {"FT1(10)", "ring(0, 9)", "FT1(9)", "new(1)"},
         "",
         ""},
        {"a file stays and is transformed",
         "LOAD1 a.bmp\r\nNEW1",
         {"load " + kImages + "a.bmp", "FT1(9)", "new(1)", "transform 1"},
         "file=a.bmp",
         ""},
    });
}

TEST(ScriptFilters, ChooseTheMenuEntryThenLayTheRadiusOverIt) {
    expectScripts({
        {"low-pass", "LOWPASS 33", {"FT1(10)", "ring(0, 33)"}, "low=33", ""},
        {"high-pass", "HIGHPASS 33", {"FT1(11)", "ring(0, 33)"}, "high=33", ""},
        {"bottom low-pass", "BOTTOM\r\nLOWPASS 3", {"FT2(10)", "ring(1, 3)"}, "", "low=3"},
        {"bottom high-pass", "BOTTOM\r\nHIGHPASS 3", {"FT2(11)", "ring(1, 3)"}, "", "high=3"},
        {"the last one stands",
         "LOWPASS 3\r\nHIGHPASS 4",
         {"FT1(10)", "ring(0, 3)", "FT1(11)", "ring(0, 4)"},
         "high=4",
         ""},
        {"both channels",
         "LOWPASS 3\r\nBOTTOM\r\nHIGHPASS 4",
         {"FT1(10)", "ring(0, 3)", "FT2(11)", "ring(1, 4)"},
         "low=3",
         "high=4"},
        {"masks after a radius",
         "LOWPASS 3\r\nMASK 0",
         {"FT1(10)", "ring(0, 3)", "FT1(12)"},
         "masks=",
         ""},
        {"a negative radius is handed on", "LOWPASS -3", {"FT1(10)", "ring(0, -3)"}, "low=-3", ""},
    });
}

TEST(ScriptSaves, RunAsTheyAreRead) {
    expectScripts({
        {"image", "SAVE1 out.bmp", {"save(1, " + kImages + "out.bmp)"}, "", ""},
        {"spectrum", "SAVE2 out.bmp", {"save(2, " + kImages + "out.bmp)"}, "", ""},
        {"reconstruction", "SAVE3 out.bmp", {"save(3, " + kImages + "out.bmp)"}, "", ""},
        {"bottom",
         "BOTTOM\r\nSAVE1 a\r\nSAVE2 b\r\nSAVE3 c",
         {"save(4, " + kImages + "a)", "save(5, " + kImages + "b)", "save(6, " + kImages + "c)"},
         "",
         ""},
        {"path", "SAVE1 c:\\x\\out.bmp", {"save(1, c:\\x\\out.bmp)"}, "", ""},
        {"native path", "SAVE2 /tmp/out 1.bmp", {"save(2, /tmp/out 1.bmp)"}, "", ""},
        {"before the transform of the picture loaded above",
         "LOAD1 a.bmp\r\nLOWPASS 5\r\nSAVE2 out.bmp\r\nSAVE3 out.bmp",
         {"load " + kImages + "a.bmp", "FT1(10)", "ring(0, 5)", "save(2, " + kImages + "out.bmp)",
          "save(3, " + kImages + "out.bmp)", "transform 1"},
         "file=a.bmp low=5",
         ""},
        {"a closing tab leaves the bare folder", "SAVE1\t", {"save(1, " + kImages + ")"}, "", ""},
    });
}

}  // namespace
}  // namespace quillon
