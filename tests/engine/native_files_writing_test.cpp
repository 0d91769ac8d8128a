#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "engine/NativeFiles.h"
#include "engine/NativePaths.h"
#include "engine/RunTimeError.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/error_of.h"

// Stands before the system's own: it counts, then does the same.
namespace {
int diskWaits = 0;
}
extern "C" int fsync(int descriptor) {
    ++diskWaits;
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

namespace quillon {
namespace {

class Mask {
public:
    explicit Mask(mode_t mask) : before_(::umask(mask)) {}
    Mask(const Mask&) = delete;
    Mask& operator=(const Mask&) = delete;
    ~Mask() { ::umask(before_); }

private:
    mode_t before_;
};

class NativeFilesWriting : public testing::Test {
protected:
    std::string lab(const std::string& name) const { return labPath(folder.file(name)); }

    ErrorNumber errorOfWrite(const std::string& name) {
        return errorOf([&] { files.write(lab(name), "new"); });
    }
    ErrorNumber errorOfPrivateWrite(const std::string& name) {
        return errorOf([&] { files.writePrivately(lab(name), "new"); });
    }
    mode_t rightsOf(const std::string& name) const {
        struct stat status {};
        return ::stat(folder.file(name).c_str(), &status) == 0 ? status.st_mode & 0777U : 0U;
    }
    /// Entries of the folder, hidden ones too: a failed write leaves none behind.
    std::ptrdiff_t entries() const {
        return std::distance(std::filesystem::directory_iterator(folder.path()),
                             std::filesystem::directory_iterator());
    }

    TemporaryFolder folder;
    NativeFiles files;
};

TEST_F(NativeFilesWriting, AFileHoldsTheBytesThatAreWritten) {
    const std::string bytes("line\r\n\0\xE9\x1A", 9);
    files.write(lab("caf\xC3\xA9 1.txt"), bytes);
    EXPECT_EQ(folder.read("caf\xC3\xA9 1.txt"), bytes);
    files.write(lab("caf\xC3\xA9 1.txt"), "");
    EXPECT_EQ(folder.read("caf\xC3\xA9 1.txt"), "");
    EXPECT_EQ(entries(), 1);
}

TEST_F(NativeFilesWriting, AFileOfAnotherCaseIsTheSameFile) {
    folder.write("Last.ftscr", "old");
    files.write(lab("LAST.FTSCR"), "new");
    EXPECT_EQ(folder.read("Last.ftscr"), "new");
    EXPECT_EQ(entries(), 1);
}

TEST_F(NativeFilesWriting, ANameOfTheGreatestLengthCanBeWritten) {
    const std::string name(255, 'n');
    files.write(lab(name), "x");
    EXPECT_EQ(folder.read(name), "x");
    EXPECT_EQ(errorOfWrite(name + "n"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(entries(), 1);
}

TEST_F(NativeFilesWriting, ANewFileHasTheUsualRights) {
    const Mask mask(027);
    files.write(lab("new"), "x");
    EXPECT_EQ(rightsOf("new"), 0640U);
}

TEST_F(NativeFilesWriting, AnExistingFileKeepsItsRights) {
    const Mask mask(022);
    for (const mode_t rights : {0600U, 0664U, 0755U}) {
        folder.write("old", "x");
        ASSERT_EQ(::chmod(folder.file("old").c_str(), rights), 0);
        files.write(lab("old"), "y");
        EXPECT_EQ(rightsOf("old"), rights);
        EXPECT_EQ(folder.read("old"), "y");
    }
}

TEST_F(NativeFilesWriting, ALinkStillLeadsToTheFileThatIsWritten) {
    std::filesystem::create_directory(folder.path() / "elsewhere");
    folder.write("elsewhere/real", "old");
    std::filesystem::create_symlink("elsewhere/real", folder.path() / "inner");
    std::filesystem::create_symlink(folder.path() / "inner", folder.path() / "outer");
    files.write(lab("outer"), "new");
    EXPECT_EQ(folder.read("elsewhere/real"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "outer"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "inner"));
}

TEST_F(NativeFilesWriting, ALinkThatLeadsNowhereGetsItsFile) {
    std::filesystem::create_symlink("later", folder.path() / "link");
    files.write(lab("link"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link"));
    EXPECT_EQ(folder.read("later"), "new");
}

TEST_F(NativeFilesWriting, LinksInACircleAreAnError) {
    std::filesystem::create_symlink("b", folder.path() / "a");
    std::filesystem::create_symlink("a", folder.path() / "b");
    EXPECT_EQ(errorOfWrite("a"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(entries(), 2);
}

TEST_F(NativeFilesWriting, WhatIsNoFileIsNotReplaced) {
    std::filesystem::create_directory(folder.path() / "sub");
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOfWrite("sub"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOfWrite("sub\\"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOfWrite("pipe"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.write("/dev/null", "x"); }), ErrorNumber::PathFileAccessError);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_EQ(errorOf([&] { files.write("", "x"); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(entries(), 2);
}

TEST_F(NativeFilesWriting, AMissingFolderAndAFileInPlaceOfAFolderAreNoPath) {
    folder.write("file", "x");
    EXPECT_EQ(errorOfWrite("no\\where"), ErrorNumber::PathNotFound);
    EXPECT_EQ(errorOfWrite("file\\x"), ErrorNumber::PathNotFound);
    EXPECT_EQ(errorOfPrivateWrite("no\\where"), ErrorNumber::PathNotFound);
    EXPECT_EQ(entries(), 1);
}

TEST_F(NativeFilesWriting, AWriteProtectedFileStaysAsItWas) {
    folder.write("old", "x");
    ASSERT_EQ(::chmod(folder.file("old").c_str(), 0444), 0);
    EXPECT_EQ(errorOfWrite("old"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(folder.read("old"), "x");
    EXPECT_EQ(entries(), 1);
}

TEST_F(NativeFilesWriting, AnotherOwnersFileThatTheUserMayNotWriteStaysAsItWas) {
    folder.write("old", "x");
    ASSERT_EQ(::chmod(folder.file("old").c_str(), 0644), 0);
    const OrdinaryUser user(folder);
    struct stat status {};
    ASSERT_EQ(::stat(folder.file("old").c_str(), &status), 0);
    if (!user.isBound() || status.st_uid == ::geteuid())
        GTEST_SKIP() << "no other owner's file to be had";
    EXPECT_EQ(errorOfWrite("old"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(folder.read("old"), "x");
}

TEST_F(NativeFilesWriting, ADiskThatRunsFullLeavesTheOldFileWholeAndNothingElse) {
    folder.write("old", "the old bytes");
    const std::string large(100000, 'x');
    {
        const SmallDisk disk(8192);
        EXPECT_EQ(errorOf([&] { files.write(lab("old"), large); }), ErrorNumber::DiskFull);
        EXPECT_EQ(errorOf([&] { files.write(lab("new"), large); }), ErrorNumber::DiskFull);
        EXPECT_EQ(errorOf([&] { files.writePrivately(lab("tmp"), large); }), ErrorNumber::DiskFull);
    }
    EXPECT_EQ(folder.read("old"), "the old bytes");
    EXPECT_EQ(entries(), 1);
}

TEST_F(NativeFilesWriting, AQuickWriteWaitsForNoDisk) {
    diskWaits = 0;
    files.write(lab("file"), "first");
    EXPECT_EQ(diskWaits, 2) << "for the bytes, and for the name in its folder";
    files.setWriteManner(WriteManner::Quick);
    files.write(lab("file"), "second");
    EXPECT_EQ(diskWaits, 2);
    EXPECT_EQ(files.read(lab("file")), "second");
    files.setWriteManner(WriteManner::Careful);
    files.write(lab("file"), "third");
    EXPECT_EQ(diskWaits, 4);
}

TEST_F(NativeFilesWriting, AQuickWriteTakesTheNameAsWrittenInTheFolderThatIsFound) {
    files.createFolder(lab("Folder"));
    files.write(lab("Folder\\name"), "old");
    files.setWriteManner(WriteManner::Quick);
    files.write(lab("FOLDER\\NAME"), "new");
    EXPECT_EQ(files.read(lab("Folder\\name")), "old");
    EXPECT_EQ(files.read(lab("Folder\\NAME")), "new");
    files.write(lab("Folder\\name"), "newer");
    EXPECT_EQ(files.read(lab("Folder\\name")), "newer");
}

TEST_F(NativeFilesWriting, APrivateFileIsThereForAMomentAndWaitsForNoDisk) {
    diskWaits = 0;
    files.writePrivately(lab("file"), "bytes");
    EXPECT_EQ(diskWaits, 0);
    EXPECT_EQ(files.read(lab("file")), "bytes");
}

TEST_F(NativeFilesWriting, APrivateFileIsForTheUserAlone) {
    const Mask mask(0);
    files.writePrivately(lab("tmp"), "new");
    EXPECT_EQ(folder.read("tmp"), "new");
    EXPECT_EQ(rightsOf("tmp"), 0600U);
}

TEST_F(NativeFilesWriting, APrivateFileTakesThePlaceOfAnOpenOne) {
    folder.write("tmp", "left from the last time");
    ASSERT_EQ(::chmod(folder.file("tmp").c_str(), 0666), 0);
    std::filesystem::create_hard_link(folder.path() / "tmp", folder.path() / "other name");
    files.writePrivately(lab("tmp"), "new");
    EXPECT_EQ(folder.read("tmp"), "new");
    EXPECT_EQ(rightsOf("tmp"), 0600U);
    // Whoever had laid hands on the old file reads nothing of the new one.
    EXPECT_EQ(folder.read("other name"), "left from the last time");
}

TEST_F(NativeFilesWriting, APrivateFileDoesNotFollowAPlantedLink) {
    folder.write("victim", "precious");
    std::filesystem::create_symlink("victim", folder.path() / "tmp");
    std::filesystem::create_symlink("nowhere", folder.path() / "dangling");
    EXPECT_EQ(errorOfPrivateWrite("tmp"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOfPrivateWrite("dangling"), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(folder.read("victim"), "precious");
    EXPECT_EQ(entries(), 3);
}

TEST_F(NativeFilesWriting, APrivateFileIsNotWrittenUnderASimilarName) {
    folder.write("TMP", "another's");
    files.writePrivately(lab("tmp"), "new");
    EXPECT_EQ(folder.read("TMP"), "another's");
    EXPECT_EQ(folder.read("tmp"), "new");
}

TEST_F(NativeFilesWriting, ACopyIsAnOrdinaryFileOfTheSameBytes) {
    const Mask mask(022);
    std::filesystem::create_directory(folder.path() / "Images");
    folder.write("Master.JPG", "picture");
    ASSERT_EQ(::chmod(folder.file("Master.JPG").c_str(), 0444), 0);
    files.copy(lab("master.jpg"), lab("images\\Master.JPG"));
    EXPECT_EQ(folder.read("Images/Master.JPG"), "picture");
    EXPECT_EQ(rightsOf("Images/Master.JPG"), 0644U);
    EXPECT_EQ(errorOf([&] { files.copy(lab("nowhere"), lab("x")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorOf([&] { files.copy(lab("Master.JPG"), lab("no\\x")); }),
              ErrorNumber::PathNotFound);
}

}  // namespace
}  // namespace quillon
