#include "scripting/WriteScript.h"

#include <gtest/gtest.h>

#include "engine/RunTimeError.h"
#include "tests/scripting/ScriptBench.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

const std::string kImages = "C:\\Q\\Images\\";
const std::string kPath = "C:\\Q\\Scripts\\out.ftscr";

class WriteScripts : public ::testing::Test {
protected:
    WriteScripts() { bench.desktop.environment.time = {2026, 11, 15, 1, 12}; }
    std::string write(const std::string& title = "T") {
        WriteScript(bench.lab, kPath, title);
        return bench.desktop.files.bytesOf(kPath);
    }
    ScriptBench bench;
    clComplexImage& one = bench.channel1;
    clComplexImage& two = bench.channel2;
};

TEST_F(WriteScripts, OfEmptyChannelsAreEmptyFiles) {
    one.SetFilterFT(2);
    one.SetInvert(0, true);
    EXPECT_EQ(write(), "") << "a channel without a file writes nothing at all";
    EXPECT_EQ(bench.desktop.pictures.saved.size(), 0U);
}

TEST_F(WriteScripts, BeginWithTitleAndFileOfChannel1) {
    one.file = "C:\\a b\\x.bmp";
    EXPECT_EQ(write(), "TITLE\tT\r\nLOAD1\tC:\\a b\\x.bmp\r\n");
}

TEST_F(WriteScripts, OfChannel2AloneHaveNoTitle) {
    two.file = "C:\\x.bmp";
    EXPECT_EQ(write(), "BOTTOM\r\nLOAD1\tC:\\x.bmp\r\n");
}

TEST_F(WriteScripts, HoldTheLinesOfAChannelInAFixedOrder) {
    one.file = "a";
    two.file = "b";
    for (clComplexImage* channel : {&one, &two}) {
        channel->SetFilterFT(4);
        channel->AddMask(30, 40, 10, 20);
        channel->AddMask(-5, 0, 300, 7);
        channel->bLowpass = true;
        channel->bHighpass = true;
        channel->filter_rad = 33;
        for (Integer kind = 0; kind < 3; ++kind)
            channel->SetInvert(kind, true);
    }
    const std::string lines =
        "INVERT1\r\nLOWPASS\t33\r\nHIGHPASS\t33\r\nMASK\t2\r\n    \t10 20 30 40\r\n"
        "    \t-5 0 300 7\r\nINVERT2\r\nINVERT3\r\n";
    EXPECT_EQ(write(), "TITLE\tT\r\nLOAD1\ta\r\n" + lines + "BOTTOM\r\nLOAD1\tb\r\n" + lines);
}

TEST_F(WriteScripts, RoundTheRadiusToAWholeNumberThatTheReaderHolds) {
    one.file = "a";
    one.SetFilterFT(2);
    for (const auto& [radius, text] :
         std::vector<std::pair<Single, std::string>>{{12.5F, "12"},
                                                     {13.5F, "14"},
                                                     {0.5F, "0"},
                                                     {20.5F, "20"},
                                                     {33, "33"},
                                                     {32767, "32767"}}) {
        one.filter_rad = radius;
        EXPECT_EQ(write(), "TITLE\tT\r\nLOAD1\ta\r\nLOWPASS\t" + text + "\r\n");
    }
    one.bHighpass = true;
    one.SetInvert(2, true);
    two.file = "b";
    for (const auto& [radius, text] : std::vector<std::pair<Single, std::string>>{
             {32767.6F, "32767"}, {40000, "32767"}, {3e38F, "32767"}, {-40000, "-32768"}}) {
        one.filter_rad = radius;
        EXPECT_EQ(write(), "TITLE\tT\r\nLOAD1\ta\r\nLOWPASS\t" + text + "\r\nHIGHPASS\t" + text +
                               "\r\nINVERT3\r\nBOTTOM\r\nLOAD1\tb\r\n")
            << "what no script can hold is cut, and the rest is written";
    }
}

TEST_F(WriteScripts, WriteEmptyMasksAsMaskZero) {
    one.file = "a";
    one.SetFilterFT(4);
    EXPECT_EQ(write(), "TITLE\tT\r\nLOAD1\ta\r\nMASK\t0\r\n");
}

TEST_F(WriteScripts, TakeTheirOwnNameForAnEmptyTitle) {
    one.file = "a";
    EXPECT_EQ(write(""), "TITLE\tout.ftscr\r\nLOAD1\ta\r\n");
    EXPECT_EQ(write("a, b"), "TITLE\ta, b\r\nLOAD1\ta\r\n") << "a comma stays in the file";
}

TEST_F(WriteScripts, KeepBytesBeyondAscii) {
    one.file = "C:\\k\xC3\xA4tz\xE4.bmp";
    EXPECT_EQ(write("\xFF\x80"), "TITLE\t\xFF\x80\r\nLOAD1\tC:\\k\xC3\xA4tz\xE4.bmp\r\n");
}

TEST_F(WriteScripts, FirstSaveAPictureThatHasNoFileUnderTheStamp) {
    bench.pb1.Tag = "!";
    bench.lab.pb4.Tag = "!";
    bench.pb1.setPicture(Bitmap(256, 256, 0x112233));
    EXPECT_EQ(write(), "TITLE\tT\r\nLOAD1\t" + kImages + "111526_0112t.bmp\r\nBOTTOM\r\nLOAD1\t" +
                           kImages + "111526_0112b.bmp\r\n");
    ASSERT_EQ(bench.desktop.pictures.saved.size(), 2U);
    EXPECT_EQ(bench.desktop.pictures.saved[0].first, kImages + "111526_0112t.bmp");
    EXPECT_EQ(bench.desktop.pictures.saved[0].second, Bitmap(256, 256, 0x112233));
    EXPECT_EQ(one.file, kImages + "111526_0112t.bmp");
    EXPECT_EQ(two.file, kImages + "111526_0112b.bmp");

    bench.desktop.environment.time.minute = 13;
    write();
    EXPECT_EQ(bench.desktop.pictures.saved.size(), 2U) << "the second time there is a file";
}

TEST_F(WriteScripts, PadTheStampWithZeros) {
    bench.desktop.environment.time = {2005, 3, 9, 8, 5};
    bench.pb1.Tag = "!";
    write();
    EXPECT_EQ(one.file, kImages + "030905_0805t.bmp");
}

TEST_F(WriteScripts, NeedBothATagAndNoFileForACompanion) {
    one.file = "a";
    bench.pb1.Tag = "!";
    write();
    EXPECT_TRUE(bench.desktop.pictures.saved.empty());
    EXPECT_EQ(two.file, "");
}

TEST_F(WriteScripts, SaveCompanionsUnderFixedNamesForOneTitleOnly) {
    bench.pb1.Tag = "!";
    bench.lab.pb4.Tag = "!";
    WriteScript(bench.lab, kPath, "last.ftscr");
    EXPECT_EQ(one.file, kImages + "last1.bmp");
    EXPECT_EQ(two.file, kImages + "last2.bmp");
    one.file.clear();
    WriteScript(bench.lab, "C:\\Q\\Scripts\\last.ftscr", "");
    EXPECT_EQ(one.file, kImages + "111526_0112t.bmp") << "the title decides, not the path";
}

TEST_F(WriteScripts, ThatCannotBeWrittenLeaveTheOldFileAndTheNewCompanions) {
    bench.desktop.files.addFile(kPath, "old");
    bench.desktop.files.find(kPath)->readOnly = true;
    bench.pb1.Tag = "!";
    EXPECT_EQ(errorOf([&] { write(); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(bench.desktop.files.bytesOf(kPath), "old");
    EXPECT_EQ(one.file, kImages + "111526_0112t.bmp");
    bench.desktop.files.diskFull = true;
    bench.lab.pb4.Tag = "!";
    EXPECT_EQ(errorOf([&] { write(); }), ErrorNumber::DiskFull);
    EXPECT_EQ(two.file, kImages + "111526_0112b.bmp") << "the name comes before the saving";
}

TEST_F(WriteScripts, ReplaceAnOldFileWhole) {
    bench.desktop.files.addFile(kPath, std::string(10'000, 'x'));
    one.file = "a";
    EXPECT_EQ(write(), "TITLE\tT\r\nLOAD1\ta\r\n");
}

}  // namespace
}  // namespace quillon
