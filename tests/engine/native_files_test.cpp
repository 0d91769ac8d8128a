#include "engine/NativeFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include "engine/NativeErrors.h"
#include "engine/NativePaths.h"
#include "engine/mFFTUTIL.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

using Names = std::vector<std::string>;

mode_t rightsOf(const std::string& native) {
    struct stat status {};
    return ::stat(native.c_str(), &status) == 0 ? status.st_mode & 07777U : 0U;
}

class NativeFilesTest : public testing::Test {
protected:
    std::string lab(const std::string& name) const { return labPath(folder.file(name)); }

    TemporaryFolder folder;
    NativeFiles files;
};

TEST_F(NativeFilesTest, AFolderIsAFolderWithAndWithoutAClosingBackslash) {
    std::filesystem::create_directory(folder.path() / "My Images");
    folder.write("file", "x");
    EXPECT_TRUE(files.isFolder(lab("My Images")));
    EXPECT_TRUE(files.isFolder(lab("my images\\")));
    EXPECT_FALSE(files.isFolder(lab("file")));
    EXPECT_FALSE(files.isFolder(lab("file\\")));
    EXPECT_FALSE(files.isFolder(lab("nowhere")));
    EXPECT_FALSE(files.isFolder(""));
}

TEST_F(NativeFilesTest, ALengthIsThatOfTheFileInBytes) {
    folder.write("Data.bin", std::string("a\0b", 3));
    folder.write("empty", "");
    EXPECT_EQ(files.length(lab("data.BIN")), 3U);
    EXPECT_EQ(files.length(lab("empty")), 0U);
}

TEST_F(NativeFilesTest, WhatIsNoFileHasNoLength) {
    std::filesystem::create_directory(folder.path() / "sub");
    folder.write("file", "x");
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    for (const char* name : {"nowhere", "nowhere\\x", "sub", "file\\x", "pipe"})
        EXPECT_EQ(errorOf([&] { files.length(lab(name)); }), ErrorNumber::FileNotFound) << name;
    EXPECT_EQ(errorOf([&] { files.length(""); }), ErrorNumber::FileNotFound);
}

TEST_F(NativeFilesTest, AllBytesOfAFileAreRead) {
    std::string bytes;
    for (int i = 0; i < 70000; ++i)
        bytes += static_cast<char>(i * 7);
    folder.write("b\xC3\xA9 b.bin", bytes);
    EXPECT_EQ(files.read(lab("b\xC3\xA9 b.bin")), bytes);
    folder.write("empty", "");
    EXPECT_EQ(files.read(lab("empty")), "");
}

TEST_F(NativeFilesTest, ReadingTellsAMissingFileFromAMissingFolder) {
    EXPECT_EQ(errorOf([&] { files.read(lab("nowhere")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorOf([&] { files.read(lab("no\\where")); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(errorOf([&] { files.read("c:\\x\\out.bmp"); }), ErrorNumber::PathNotFound);
}

TEST_F(NativeFilesTest, WhatHasNoEndIsNotRead) {
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { files.read(lab("pipe")); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.read("\\dev\\zero"); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.read(lab("")); }), ErrorNumber::PathFileAccessError);
}

TEST_F(NativeFilesTest, AFileThatTheUserMayNotReadIsAnAccessError) {
    const OrdinaryUser user(folder);
    if (!user.isBound())
        GTEST_SKIP() << "permissions do not bind this user";
    folder.write("secret", "x");
    ASSERT_EQ(::chmod(folder.file("secret").c_str(), 0), 0);
    EXPECT_EQ(errorOf([&] { files.read(lab("secret")); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(files.length(lab("secret")), 1U);
}

TEST_F(NativeFilesTest, ListsAreSortedWithoutRegardToCaseAndLeaveFoldersOut) {
    for (const char* name :
         {"b.bmp", "A.BMP", "c.Bmp", "C.bmp", "\xC3\xA9.bmp", "cat.jpg", "x.bmp.txt"})
        folder.write(name, "x");
    std::filesystem::create_directory(folder.path() / "folder.bmp");
    EXPECT_EQ(files.list(lab(""), "*.bmp"),
              (Names{"A.BMP", "b.bmp", "C.bmp", "c.Bmp", "\xC3\xA9.bmp"}));
    EXPECT_EQ(files.list(lab(""), "*.BMP;*.gif;*.JPG"),
              (Names{"A.BMP", "b.bmp", "C.bmp", "c.Bmp", "cat.jpg", "\xC3\xA9.bmp"}));
}

TEST_F(NativeFilesTest, TheListOfAllFilesHasThoseWithoutAPointButNoHiddenOnes) {
    for (const char* name : {"README", "a.b.c", ".hidden", "name with blanks.jpg"})
        folder.write(name, "x");
    EXPECT_EQ(files.list(lab(""), "*.*"), (Names{"a.b.c", "name with blanks.jpg", "README"}));
}

TEST_F(NativeFilesTest, PatternsKnowStarsAndSingleCharacters) {
    for (const char* name : {"aaz", "az", "acz", "a\xC3\xA9z", "azaz", "z"})
        folder.write(name, "x");
    EXPECT_EQ(files.list(lab(""), "a?z"), (Names{"aaz", "acz", "a\xC3\xA9z"}));
    EXPECT_EQ(files.list(lab(""), "a*az"), (Names{"aaz", "azaz"}));
    EXPECT_EQ(files.list(lab(""), "*a*"), (Names{"aaz", "acz", "az", "azaz", "a\xC3\xA9z"}));
    EXPECT_EQ(files.list(lab(""), "Z;az;AZ"), (Names{"az", "z"}));
    EXPECT_EQ(files.list(lab(""), ""), Names{});
    EXPECT_EQ(files.list(lab(""), "?"), Names{"z"});
}

TEST_F(NativeFilesTest, AListFollowsLinksToFilesAndLeavesPipesOut) {
    folder.write("real.bmp", "x");
    std::filesystem::create_symlink("real.bmp", folder.path() / "link.bmp");
    std::filesystem::create_symlink("gone.bmp", folder.path() / "dangling.bmp");
    ASSERT_EQ(::mkfifo(folder.file("pipe.bmp").c_str(), 0600), 0);
    EXPECT_EQ(files.list(lab(""), "*.bmp"), (Names{"link.bmp", "real.bmp"}));
}

TEST_F(NativeFilesTest, TheListOfAMissingFolderIsAnError) {
    folder.write("file", "x");
    EXPECT_EQ(errorOf([&] { files.list(lab("nowhere"), "*.*"); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(errorOf([&] { files.list(lab("file"), "*.*"); }), ErrorNumber::PathNotFound);
    std::filesystem::create_directory(folder.path() / "Images");
    EXPECT_EQ(files.list(lab("images\\"), "*.*"), Names{});
}

TEST_F(NativeFilesTest, AFolderIsMadeInAFolderThatIsThere) {
    files.createFolder(lab("Quillon\\"));
    files.createFolder(lab("quillon\\Images"));
    EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "Quillon" / "Images"));
}

TEST_F(NativeFilesTest, AFolderIsNotMadeTwiceNorInNothingNorInAFile) {
    folder.write("file", "x");
    files.createFolder(lab("Images"));
    EXPECT_EQ(errorOf([&] { files.createFolder(lab("IMAGES\\")); }),
              ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.createFolder(lab("file")); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.createFolder(lab("no\\where")); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(errorOf([&] { files.createFolder(lab("file\\x")); }), ErrorNumber::PathNotFound);
}

TEST_F(NativeFilesTest, AReadOnlyFolderRefusesFilesAndFolders) {
    const OrdinaryUser user(folder);
    if (!user.isBound())
        GTEST_SKIP() << "permissions do not bind this user";
    folder.write("old", "x");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    EXPECT_EQ(errorOf([&] { files.createFolder(lab("new")); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.write(lab("new"), "x"); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.write(lab("old"), "y"); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.remove(lab("old")); }), ErrorNumber::PathFileAccessError);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(folder.read("old"), "x");
}

TEST_F(NativeFilesTest, AFileIsRemovedAndALinkWithoutItsFile) {
    folder.write("Old.txt", "x");
    folder.write("kept", "y");
    std::filesystem::create_symlink("kept", folder.path() / "link");
    files.remove(lab("old.TXT"));
    files.remove(lab("link"));
    EXPECT_EQ(files.list(lab(""), "*"), Names{"kept"});
}

TEST_F(NativeFilesTest, WhatCannotBeRemovedIsAnError) {
    std::filesystem::create_directory(folder.path() / "sub");
    folder.write("protected", "x");
    ASSERT_EQ(::chmod(folder.file("protected").c_str(), 0444), 0);
    EXPECT_EQ(errorOf([&] { files.remove(lab("nowhere")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorOf([&] { files.remove(lab("no\\where")); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(errorOf([&] { files.remove(lab("sub")); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.remove(lab("protected")); }), ErrorNumber::PathFileAccessError);
    EXPECT_EQ(folder.read("protected"), "x");
}

TEST_F(NativeFilesTest, ClearingTheAttributesLetsTheOwnerWriteAndNobodyElse) {
    folder.write("a.bmp", "x");
    ASSERT_EQ(::chmod(folder.file("a.bmp").c_str(), 0444), 0);
    EXPECT_TRUE(FileExists(files, lab("A.bmp")));
    EXPECT_EQ(rightsOf(folder.file("a.bmp")), 0644U);
    ASSERT_EQ(::chmod(folder.file("a.bmp").c_str(), 0750), 0);
    EXPECT_TRUE(FileExists(files, lab("a.bmp")));
    EXPECT_EQ(rightsOf(folder.file("a.bmp")), 0750U);
}

TEST_F(NativeFilesTest, AnEmptyFileBecomesWritableThoughItCountsAsMissing) {
    folder.write("empty", "");
    ASSERT_EQ(::chmod(folder.file("empty").c_str(), 0400), 0);
    EXPECT_FALSE(FileExists(files, lab("empty")));
    EXPECT_EQ(rightsOf(folder.file("empty")), 0600U);
}

TEST_F(NativeFilesTest, AnotherOwnersFileIsLeftAloneAndStillExists) {
    folder.write("a.bmp", "x");
    if (::chown(folder.file("a.bmp").c_str(), 12345, static_cast<gid_t>(-1)) != 0)
        GTEST_SKIP() << "only root can give a file away";
    ASSERT_EQ(::chmod(folder.file("a.bmp").c_str(), 0444), 0);
    EXPECT_TRUE(FileExists(files, lab("a.bmp")));
    EXPECT_EQ(rightsOf(folder.file("a.bmp")), 0444U);
    const OrdinaryUser user(folder);
    EXPECT_TRUE(FileExists(files, lab("a.bmp")));
    EXPECT_EQ(rightsOf(folder.file("a.bmp")), 0444U);
}

TEST_F(NativeFilesTest, FoldersAndMissingFilesHaveNoAttributesToClear) {
    std::filesystem::create_directory(folder.path() / "sub");
    ASSERT_EQ(::chmod(folder.file("sub").c_str(), 0555), 0);
    EXPECT_FALSE(FileExists(files, lab("sub")));
    EXPECT_EQ(rightsOf(folder.file("sub")), 0555U);
    EXPECT_EQ(errorOf([&] { files.clearAttributes(lab("nowhere")); }), ErrorNumber::FileNotFound);
}

TEST_F(NativeFilesTest, APathWithAZeroByteIsNoFile) {
    folder.write("a", "x");
    const std::string path = lab("a") + std::string("\0b", 2);
    EXPECT_FALSE(FileExists(files, path));
    EXPECT_FALSE(FolderExists(files, path));
    EXPECT_EQ(errorOf([&] { files.write(path, "y"); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(folder.read("a"), "x");
}

TEST(NativeErrors, TheSystemsErrorsBecomeThoseThatUsersKnow) {
    const TemporaryFolder folder;
    const std::string file = folder.file("x");
    const auto numberOf = [&](int code) { return systemError(code, file).number(); };
    EXPECT_EQ(numberOf(ENOENT), ErrorNumber::FileNotFound);
    EXPECT_EQ(systemError(ENOENT, folder.file("no/x")).number(), ErrorNumber::PathNotFound);
    EXPECT_EQ(numberOf(ENOSPC), ErrorNumber::DiskFull);
    EXPECT_EQ(numberOf(EDQUOT), ErrorNumber::DiskFull);
    EXPECT_EQ(numberOf(EIO), ErrorNumber::DeviceIoError);
    EXPECT_EQ(numberOf(EBUSY), ErrorNumber::PermissionDenied);
    for (const int code : {EACCES, EPERM, EROFS, EISDIR, EEXIST, ELOOP, ENAMETOOLONG, EMFILE})
        EXPECT_EQ(numberOf(code), ErrorNumber::PathFileAccessError) << code;
    EXPECT_EQ(systemError(ENOSPC, file).description(), "Disk full");
    EXPECT_EQ(systemError(EACCES, file).description(), "Path/File access error");
}

}  // namespace
}  // namespace quillon
