#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "engine/NativeFiles.h"
#include "engine/NativePaths.h"
#include "engine/RunTimeError.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// Files that must be new.
class NativeFilesCreating : public testing::Test {
protected:
    std::string lab(const std::string& name) const { return labPath(folder.file(name)); }

    TemporaryFolder folder;
    NativeFiles files;
};

TEST_F(NativeFilesCreating, ANewFileIsEmptyAndCanBeWritten) {
    EXPECT_TRUE(files.createFile(lab("a.bmp")));
    EXPECT_EQ(files.length(lab("a.bmp")), 0U);
    files.write(lab("a.bmp"), "bytes");
    EXPECT_EQ(folder.read("a.bmp"), "bytes");
}

TEST_F(NativeFilesCreating, WhateverBearsTheNameStaysAsItIs) {
    folder.write("a.bmp", "old");
    folder.write("Big.BMP", "big");
    std::filesystem::create_directory(folder.path() / "c.bmp");
    std::filesystem::create_symlink("nowhere", folder.path() / "d.bmp");
    for (const char* name : {"a.bmp", "A.bmp", "big.bmp", "c.bmp", "d.bmp"})
        EXPECT_FALSE(files.createFile(lab(name))) << name;
    EXPECT_EQ(folder.read("a.bmp"), "old");
    EXPECT_EQ(folder.read("Big.BMP"), "big");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "nowhere"));
}

TEST_F(NativeFilesCreating, OneAloneOfSeveralAtOnceGetsAName) {
    constexpr int kNames = 100;
    constexpr int kLabs = 4;
    std::atomic<int> created = 0;
    std::vector<std::thread> labs;
    for (int i = 0; i < kLabs; ++i)
        labs.emplace_back([&] {
            NativeFiles own;
            for (int name = 0; name < kNames; ++name)
                created += own.createFile(lab("x" + std::to_string(name))) ? 1 : 0;
        });
    for (std::thread& each : labs)
        each.join();
    EXPECT_EQ(created, kNames);
}

TEST_F(NativeFilesCreating, AMissingFolderAndOneThatRefusesAreErrors) {
    EXPECT_EQ(errorOf([&] { files.createFile(lab("no") + "\\a.bmp"); }), ErrorNumber::PathNotFound);
    const OrdinaryUser user(folder);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    EXPECT_EQ(errorOf([&] { files.createFile(lab("a.bmp")); }), ErrorNumber::PathFileAccessError);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
}

}  // namespace
}  // namespace quillon
