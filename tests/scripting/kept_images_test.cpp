#include <gtest/gtest.h>

#include "app/image_io.h"
#include "engine/RunTimeError.h"
#include "scripting/SessionScript.h"
#include "scripting/WriteScript.h"
#include "tests/scripting/ScriptBench.h"
#include "tests/support/TextPicture.h"
#include "tests/support/error_of.h"

// Scripts and snapshots of images that no file holds.

namespace quillon {
namespace {

const std::string kImages = "C:\\Q\\Images\\";
const std::string kPath = "C:\\Q\\Scripts\\out.ftscr";
const std::string kSnapshot = "C:\\Q\\Scripts\\snapshot.ftscr";

class KeptImages : public ::testing::Test {
protected:
    KeptImages() {
        bench.desktop.environment.time = {2026, 11, 15, 1, 12};
        loadImageFile(bench.lab, Channel::One, kImages + "a.bmp");
        loadImageFile(bench.lab, Channel::Two, kImages + "b.jpg");
    }
    std::string write() {
        WriteScript(bench.lab, kPath, "T");
        return bench.desktop.files.bytesOf(kPath);
    }
    std::string snapshot() {
        writeSnapshot(bench.lab, kSnapshot, "S");
        return bench.desktop.files.bytesOf(kSnapshot);
    }
    void dot(Channel which, Single x) { bench.lab.imagePanel(which).PSet(x, 50, kWhite); }
    std::vector<std::string> stamped() { return bench.desktop.files.list(kImages, "1115*.bmp"); }
    using Names = std::vector<std::string>;

    ScriptBench bench;
    clComplexImage& one = bench.channel1;
    clComplexImage& two = bench.channel2;
    const std::string plainScript =
        "TITLE\tT\r\nLOAD1\t" + kImages + "a.bmp\r\nBOTTOM\r\nLOAD1\t" + kImages + "b.jpg\r\n";
};

TEST_F(KeptImages, AnImageThatShowsItsFileIsWrittenAsThatFile) {
    EXPECT_EQ(write(), plainScript);
    dot(Channel::One, 60);
    bench.pb1.PSet(60, 50, kBlack);
    EXPECT_EQ(write(), plainScript) << "what was drawn is gone again";
    EXPECT_TRUE(stamped().empty());
}

TEST_F(KeptImages, EachPictureOfAMinuteGetsItsOwnFile) {
    dot(Channel::One, 60);
    const Bitmap first = bench.pb1.Image();
    const std::string script = write();
    EXPECT_EQ(script, "TITLE\tT\r\nLOAD1\t" + kImages + "111526_0112t.bmp\r\nBOTTOM\r\nLOAD1\t" +
                          kImages + "b.jpg\r\n");
    EXPECT_EQ(write(), script) << "the same picture keeps its file";
    dot(Channel::One, 70);
    EXPECT_NE(write().find("111526_0112_2t.bmp"), std::string::npos);
    EXPECT_EQ(stamped(), (Names{"111526_0112_2t.bmp", "111526_0112t.bmp"}));
    EXPECT_EQ(bench.desktop.pictures.load(kImages + "111526_0112t.bmp"), first);
    EXPECT_EQ(bench.desktop.pictures.load(kImages + "111526_0112_2t.bmp"), bench.pb1.Image());
    EXPECT_EQ(one.file, kImages + "a.bmp") << "a reload reads what it read before";
}

TEST_F(KeptImages, AnImageThatIsKeptIsWrittenWithoutItsInversion) {
    one.SetInvert(0, true);
    bench.pb1.InvertPicture();
    EXPECT_NE(write().find("a.bmp\r\nINVERT1\r\n"), std::string::npos);
    dot(Channel::One, 60);
    bench.pb1.PSet(61, 50, kRed);
    EXPECT_EQ(write().find("INVERT1"), std::string::npos);
    EXPECT_EQ(bench.desktop.pictures.load(kImages + "111526_0112t.bmp"), bench.pb1.Image());
}

TEST_F(KeptImages, SnapshotsLeaveOnePictureOfEachChannel) {
    for (int i = 0; i < 20; ++i) {
        dot(Channel::One, static_cast<Single>(60 + i));
        dot(Channel::Two, static_cast<Single>(160 + i));
        bench.desktop.environment.time.minute = 12 + i;
        snapshot();
    }
    EXPECT_EQ(stamped(), (Names{"111526_0131b.bmp", "111526_0131t.bmp"}));
    EXPECT_EQ(bench.desktop.pictures.load(kImages + "111526_0131t.bmp"), bench.pb1.Image());
    EXPECT_EQ(one.file, kImages + "a.bmp");
}

TEST_F(KeptImages, ASnapshotTakesNoPictureAwayFromAScript) {
    dot(Channel::One, 60);
    snapshot();
    write();
    dot(Channel::One, 61);
    snapshot();
    endSnapshots(bench.lab);
    EXPECT_EQ(stamped(), Names{"111526_0112t.bmp"}) << "the script names it, the snapshot is gone";
    EXPECT_NE(bench.desktop.files.bytesOf(kPath).find("111526_0112t.bmp"), std::string::npos);
}

TEST_F(KeptImages, ASnapshotTakesNoPictureAwayThatAChannelHasLoaded) {
    dot(Channel::One, 60);
    snapshot();
    LoadPanelImage(bench.lab, 4, kImages + "111526_0112t.bmp");
    dot(Channel::One, 61);
    snapshot();
    dot(Channel::Two, 62);
    snapshot();
    endSnapshots(bench.lab);
    EXPECT_EQ(stamped(), Names{"111526_0112t.bmp"});
}

TEST_F(KeptImages, ASnapshotThatCannotBeWrittenKeepsThePicturesOfTheOneBefore) {
    dot(Channel::One, 60);
    snapshot();
    bench.desktop.files.find(kSnapshot)->readOnly = true;
    dot(Channel::One, 61);
    EXPECT_EQ(errorOf([&] { snapshot(); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(stamped(), (Names{"111526_0112_2t.bmp", "111526_0112t.bmp"}));
    bench.desktop.files.find(kSnapshot)->readOnly = false;
    snapshot();
    EXPECT_EQ(stamped(), Names{"111526_0112_2t.bmp"});
}

TEST_F(KeptImages, ASnapshotOfAChannelWithoutAFileGivesItNone) {
    two.file.clear();
    bench.lab.pb4.Tag = "!";
    EXPECT_NE(snapshot().find("BOTTOM\r\nLOAD1\t" + kImages + "111526_0112b.bmp\r\n"),
              std::string::npos);
    EXPECT_EQ(two.file, "");
    write();
    EXPECT_EQ(two.file, kImages + "111526_0112b.bmp") << "a script does";
    endSnapshots(bench.lab);
    EXPECT_EQ(stamped(), Names{"111526_0112b.bmp"});
}

TEST_F(KeptImages, ASnapshotNoticesThatAFileIsGone) {
    bench.desktop.files.remove(kImages + "a.bmp");
    EXPECT_NE(snapshot().find("LOAD1\t" + kImages + "111526_0112t.bmp\r\n"), std::string::npos);
    EXPECT_EQ(bench.desktop.pictures.load(kImages + "111526_0112t.bmp"), bench.pb1.Image());
}

TEST_F(KeptImages, AnImageIsTriedAgainAfterASavingThatFailed) {
    one.file.clear();
    bench.pb1.Tag = "!";
    bench.desktop.files.diskFull = true;
    EXPECT_EQ(errorOf([&] { write(); }), ErrorNumber::DiskFull);
    bench.desktop.files.diskFull = false;
    EXPECT_NE(write().find("LOAD1\t" + kImages + "111526_0112t.bmp\r\n"), std::string::npos);
    EXPECT_EQ(bench.desktop.pictures.load(kImages + "111526_0112t.bmp"), bench.pb1.Image());
}

TEST_F(KeptImages, AnImageUnderTheNameOfAnUnreadableFileIsKept) {
    dot(Channel::One, 60);
    const Bitmap drawn = bench.pb1.Image();
    bench.desktop.pictures.addUndecodable(kImages + "broken.bmp");
    bench.run("LOAD1 broken.bmp");
    ASSERT_EQ(one.file, kImages + "broken.bmp");
    EXPECT_NE(write().find("LOAD1\t" + kImages + "111526_0112t.bmp\r\n"), std::string::npos);
    EXPECT_EQ(bench.desktop.pictures.load(kImages + "111526_0112t.bmp"), drawn);
}

TEST_F(KeptImages, APasteThatCannotWriteItsFileLosesNoImage) {
    dot(Channel::One, 60);
    const Bitmap drawn = bench.pb1.Image();
    bench.desktop.clipboard.content = randomPicture(20, 20, 4);
    bench.desktop.pictures.failingSaves.insert("C:\\Temp\\clipboard.bmp");
    try {
        PasteImage(bench.lab, 1);
    } catch (const RunTimeError&) {
        // However it is reported.
    }
    write();
    EXPECT_EQ(bench.desktop.pictures.load(kImages + "111526_0112t.bmp"), drawn);
}

TEST_F(KeptImages, TheClipboardsFileIsNoPlaceForAnImage) {
    bench.desktop.pictures.add("C:\\Temp\\clipboard.bmp", randomPicture(20, 20, 4));
    LoadPanelImage(bench.lab, 1, "C:/temp/clipboard.BMP");
    EXPECT_NE(write().find("111526_0112t.bmp"), std::string::npos);
}

TEST_F(KeptImages, ContentsDifferWhereAScriptWould) {
    const SessionContent before = sessionContent(bench.lab);
    EXPECT_EQ(sessionContent(bench.lab), before);
    EXPECT_TRUE(before.pictures[0].empty());
    dot(Channel::Two, 60);
    const SessionContent drawn = sessionContent(bench.lab);
    EXPECT_NE(drawn, before);
    EXPECT_EQ(drawn.pictures[1], bench.lab.pb4.Image());
    dot(Channel::Two, 61);
    EXPECT_NE(sessionContent(bench.lab), drawn);
    bench.lab.pb4.PSet(61, 50, kBlack);
    EXPECT_EQ(sessionContent(bench.lab), drawn);
    one.SetFilterFT(2);
    EXPECT_NE(sessionContent(bench.lab), drawn);
    one.NoFilterFT();
    EXPECT_EQ(sessionContent(bench.lab), drawn);
    one.SetInvert(2, true);
    EXPECT_NE(sessionContent(bench.lab), drawn);
}

TEST_F(KeptImages, ContentsLookAtNoFile) {
    dot(Channel::Two, 60);
    bench.desktop.log.clear();
    sessionContent(bench.lab);
    EXPECT_TRUE(bench.desktop.log.empty());
}

TEST_F(KeptImages, AnEarlierScriptThatCannotBeKeptIsNotWrittenOver) {
    SessionScript script(bench.lab);
    script.begin();
    bench.desktop.files.addFile(script.path(), "of the other lab");
    bench.desktop.files.addFile("C:\\Q\\Scripts\\earlier.ftscr", "old").readOnly = true;
    EXPECT_EQ(errorOf([&] { script.write("T"); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(bench.desktop.files.bytesOf(script.path()), "of the other lab");
}

}  // namespace
}  // namespace quillon
