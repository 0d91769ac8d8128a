#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "engine/NativeFiles.h"
#include "engine/NativePaths.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

class NativeFolders : public testing::Test {
protected:
    std::string lab(const std::string& name) const { return labPath(folder.file(name)); }
    bool exists(const char* name) const { return fs::exists(folder.path() / name); }

    TemporaryFolder folder;
    NativeFiles files;
};

TEST_F(NativeFolders, AMovedFolderTakesItsFilesAlong) {
    fs::create_directories(folder.path() / "New Folder/sub");
    folder.write("New Folder/a.bmp", "a");
    folder.write("New Folder/sub/.hidden", "b");
    files.moveFolder(lab("new folder\\"), lab("Images\\"));
    EXPECT_EQ(folder.read("Images/a.bmp"), "a");
    EXPECT_EQ(folder.read("Images/sub/.hidden"), "b");
    EXPECT_FALSE(exists("New Folder"));
}

TEST_F(NativeFolders, AFolderIsMovedOverNothingThatIsThere) {
    fs::create_directories(folder.path() / "from");
    fs::create_directories(folder.path() / "empty");
    folder.write("from/a", "a");
    folder.write("file", "x");
    for (const char* there : {"empty", "empty\\", "EMPTY", "file", "from"})
        EXPECT_EQ(errorOf([&] { files.moveFolder(lab("from"), lab(there)); }),
                  ErrorNumber::PathFileAccessError)
            << there;
    EXPECT_EQ(folder.read("from/a"), "a");
    EXPECT_EQ(folder.read("file"), "x");
}

TEST_F(NativeFolders, OnlyAFolderIsMovedAndOnlyIntoOneThatIsThere) {
    folder.write("file", "x");
    fs::create_directories(folder.path() / "from");
    EXPECT_EQ(errorOf([&] { files.moveFolder(lab("file"), lab("to")); }),
              ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.moveFolder(lab("nowhere"), lab("to")); }),
              ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.moveFolder(lab("from"), lab("nowhere\\to")); }),
              ErrorNumber::PathNotFound);
    EXPECT_TRUE(exists("from"));
}

TEST_F(NativeFolders, ARemovedFolderGoesWithAllThatItHolds) {
    fs::create_directories(folder.path() / "Old/sub");
    fs::create_directories(folder.path() / "kept");
    folder.write("Old/a", "a");
    folder.write("Old/.hidden", "h");
    folder.write("Old/sub/b", "b");
    folder.write("kept/c", "c");
    fs::create_directory_symlink(folder.path() / "kept", folder.path() / "Old/link");
    ASSERT_EQ(::chmod(folder.file("Old/a").c_str(), 0444), 0);
    files.removeFolder(lab("old\\"));
    EXPECT_FALSE(exists("Old"));
    EXPECT_EQ(folder.read("kept/c"), "c");
}

TEST_F(NativeFolders, OnlyAFolderIsRemovedAsOne) {
    folder.write("file", "x");
    for (const char* name : {"file", "nowhere"})
        EXPECT_EQ(errorOf([&] { files.removeFolder(lab(name)); }), ErrorNumber::PathNotFound);
    EXPECT_TRUE(exists("file"));
}

TEST_F(NativeFolders, AReadOnlyFolderKeepsTheFoldersInIt) {
    fs::create_directories(folder.path() / "home/from");
    fs::permissions(folder.path() / "home", static_cast<fs::perms>(0555));
    const OrdinaryUser user(folder);
    if (!user.isBound())
        GTEST_SKIP() << "permissions do not bind this user";
    EXPECT_EQ(errorOf([&] { files.moveFolder(lab("home/from"), lab("home/to")); }),
              ErrorNumber::PathFileAccessError);
    EXPECT_EQ(errorOf([&] { files.removeFolder(lab("home/from")); }),
              ErrorNumber::PathFileAccessError);
    EXPECT_TRUE(exists("home/from"));
}

TEST_F(NativeFolders, AFileThatMayBeReadIsReadable) {
    folder.write("Cat.bmp", "x");
    folder.write("empty", "");
    folder.write("secret", "x");
    fs::create_directories(folder.path() / "sub");
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    ASSERT_EQ(::chmod(folder.file("Cat.bmp").c_str(), 0444), 0);
    ASSERT_EQ(::chmod(folder.file("secret").c_str(), 0), 0);
    EXPECT_TRUE(files.isReadable(lab("cat.bmp")));
    EXPECT_TRUE(files.isReadable(lab("empty")));
    for (const char* name : {"sub", "pipe", "nowhere", "Cat.bmp\\"})
        EXPECT_FALSE(files.isReadable(lab(name))) << name;
    EXPECT_FALSE(files.isReadable(lab("Cat.bmp") + std::string("\0x", 2)));
    const OrdinaryUser user(folder);
    if (!user.isBound())
        GTEST_SKIP() << "permissions do not bind this user";
    EXPECT_FALSE(files.isReadable(lab("secret")));
}

}  // namespace
}  // namespace quillon
