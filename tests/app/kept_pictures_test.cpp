#include "app/KeptPictures.h"

#include <gtest/gtest.h>

#include "app/Lab.h"
#include "engine/RunTimeError.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/TextPicture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

class Kept : public ::testing::Test {
protected:
    Kept() { recording.files.addFolder("C:\\I"); }

    std::string keep(const Bitmap& picture, KeepFor time = KeepFor::Good,
                     Channel which = Channel::One) {
        return kept.keep(desktop, which, picture, {"C:\\I\\stamp", "t.bmp"}, time);
    }
    bool isThere(const std::string& file) { return recording.files.exists(file); }

    RecordingDesktop recording;
    Desktop desktop = recording.desktop();
    KeptPictures kept;
    const Bitmap first = randomPicture(8, 8, 1);
    const Bitmap second = randomPicture(8, 8, 2);
    const Bitmap third = randomPicture(8, 8, 3);
};

TEST_F(Kept, PicturesAreNeverWrittenOverAnOlderFile) {
    recording.files.addFile("C:\\I\\stampt.bmp", "");
    recording.files.addFile("C:\\I\\STAMP_2T.BMP", "old");
    recording.files.addFolder("C:\\I\\stamp_3t.bmp");
    EXPECT_EQ(keep(first), "C:\\I\\stamp_4t.bmp");
    EXPECT_EQ(recording.pictures.load("C:\\I\\stamp_4t.bmp"), first);
    EXPECT_EQ(recording.files.bytesOf("C:\\I\\stampt.bmp"), "");
    EXPECT_EQ(recording.files.bytesOf("C:\\I\\STAMP_2T.BMP"), "old");
}

TEST_F(Kept, ThePictureThatWasKeptLastIsNotWrittenAgain) {
    EXPECT_EQ(keep(first), "C:\\I\\stampt.bmp");
    EXPECT_EQ(keep(first), "C:\\I\\stampt.bmp");
    EXPECT_EQ(keep(first, KeepFor::Good, Channel::Two), "C:\\I\\stamp_2t.bmp")
        << "each channel has its own";
    EXPECT_EQ(keep(second), "C:\\I\\stamp_3t.bmp");
    EXPECT_EQ(recording.pictures.saved.size(), 3U);
}

TEST_F(Kept, APictureIsWrittenAnewForAnotherFolderAndUnderAnotherKindOfName) {
    recording.files.addFolder("C:\\J");
    keep(first);
    EXPECT_EQ(kept.keep(desktop, Channel::One, first, {"C:\\J\\stamp", "t.bmp"}, KeepFor::Good),
              "C:\\J\\stampt.bmp");
    EXPECT_EQ(kept.keep(desktop, Channel::One, first, {"C:\\J\\last1", ".bmp"}, KeepFor::Good),
              "C:\\J\\last1.bmp");
}

TEST_F(Kept, APictureThatIsGoneOrWrittenOverIsWrittenAnew) {
    const std::string gone = keep(first);
    recording.files.remove(gone);
    EXPECT_EQ(keep(first), gone);
    recording.pictures.add(gone, second);
    EXPECT_EQ(keep(first), "C:\\I\\stamp_2t.bmp");
    EXPECT_EQ(recording.pictures.load(gone), second);
}

TEST_F(Kept, APictureThatCannotBeWrittenLeavesNoFileBehind) {
    recording.pictures.failingSaves.insert("C:\\I\\stampt.bmp");
    EXPECT_EQ(errorOf([&] { keep(first); }), ErrorNumber::PathFileAccessError);
    EXPECT_FALSE(isThere("C:\\I\\stampt.bmp"));
    recording.pictures.failingSaves.clear();
    EXPECT_EQ(keep(first), "C:\\I\\stampt.bmp");
}

TEST_F(Kept, AFullDiskIsReported) {
    recording.files.diskFull = true;
    EXPECT_EQ(errorOf([&] { keep(first); }), ErrorNumber::DiskFull);
}

TEST_F(Kept, PicturesOfSnapshotsGoWhenTheNextNamesThemNoMore) {
    const std::string one = keep(first, KeepFor::Snapshot);
    kept.removeUnnamed(desktop, {one});
    const std::string two = keep(second, KeepFor::Snapshot);
    EXPECT_TRUE(isThere(one)) << "the snapshot on the disk still names it";
    kept.removeUnnamed(desktop, {two});
    EXPECT_FALSE(isThere(one));
    EXPECT_TRUE(isThere(two));
    kept.removeUnnamed(desktop, {});
    EXPECT_FALSE(isThere(two));
}

TEST_F(Kept, ManySnapshotsLeaveOnePicture) {
    for (unsigned seed = 10; seed < 40; ++seed)
        kept.removeUnnamed(desktop, {keep(randomPicture(8, 8, seed), KeepFor::Snapshot)});
    EXPECT_EQ(desktop.files.list("C:\\I", "*.bmp").size(), 1U);
}

TEST_F(Kept, WhatALastingScriptNamesStays) {
    const std::string one = keep(first, KeepFor::Snapshot);
    EXPECT_EQ(keep(first, KeepFor::Good), one);
    const std::string two = keep(second, KeepFor::Good);
    EXPECT_EQ(keep(second, KeepFor::Snapshot), two);
    kept.removeUnnamed(desktop, {keep(third, KeepFor::Snapshot)});
    kept.removeUnnamed(desktop, {});
    EXPECT_TRUE(isThere(one));
    EXPECT_TRUE(isThere(two));
}

TEST_F(Kept, WhatSomebodyHasLoadedStays) {
    const std::string one = keep(first, KeepFor::Snapshot);
    kept.spare("/home/ada/I/STAMPT.bmp");
    const std::string two = keep(second, KeepFor::Snapshot);
    const std::string three = keep(third, KeepFor::Snapshot);
    kept.spare(two);
    kept.removeUnnamed(desktop, {});
    EXPECT_TRUE(isThere(one)) << "by another path of the same file";
    EXPECT_TRUE(isThere(two));
    EXPECT_FALSE(isThere(three));
}

TEST_F(Kept, WhatSomebodyHasWrittenOverStays) {
    const std::string one = keep(first, KeepFor::Snapshot);
    recording.pictures.add(one, second);
    kept.removeUnnamed(desktop, {});
    EXPECT_EQ(recording.pictures.load(one), second);
}

TEST_F(Kept, APictureThatCannotBeRemovedIsLeftInSilence) {
    const std::string one = keep(first, KeepFor::Snapshot);
    recording.files.find(one)->readOnly = true;
    kept.removeUnnamed(desktop, {});
    EXPECT_TRUE(isThere(one));
}

}  // namespace
}  // namespace quillon
