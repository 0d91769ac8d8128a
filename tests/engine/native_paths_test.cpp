#include "engine/NativePaths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "engine/RunTimeError.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

TEST(NativePaths, BackslashesBecomeSlashesAndBytesStay) {
    EXPECT_EQ(nativePath("\\home\\a\\my cat.bmp"), "/home/a/my cat.bmp");
    EXPECT_EQ(nativePath("/home/a/.config\\Quillon\\"), "/home/a/.config/Quillon/");
    EXPECT_EQ(nativePath("/home/a/x.ftscr"), "/home/a/x.ftscr");
    EXPECT_EQ(nativePath("\\tmp\\\xE9\xC3\xA9"), "/tmp/\xE9\xC3\xA9");
    EXPECT_EQ(nativePath(""), "");
}

TEST(NativePaths, ANativePathBecomesALabPathAndComesBack) {
    EXPECT_EQ(labPath("/home/a/x.bmp"), "\\home\\a\\x.bmp");
    EXPECT_EQ(nativePath(labPath("/home/a b/\xE9.bmp")), "/home/a b/\xE9.bmp");
}

TEST(NativePaths, APathIsShownAsTheDesktopWritesIt) {
    EXPECT_EQ(shownPath("\\home\\ada\\Quillon\\"), "/home/ada/Quillon/");
    EXPECT_EQ(shownPath("/home/ada/.config\\Quillon"), "/home/ada/.config/Quillon");
    EXPECT_EQ(shownPath("/home/ada/my cat.bmp"), "/home/ada/my cat.bmp");
    EXPECT_EQ(shownPath("cat.bmp"), "cat.bmp");
    EXPECT_EQ(shownPath(""), "");
}

TEST(NativePaths, ANameThatNoFileCanHaveIsShownAllTheSame) {
    EXPECT_EQ(shownPath(std::string("\\tmp\\\0x", 7)), std::string("/tmp/\0x", 7));
}

TEST(NativePaths, APathWithAZeroByteNamesNoFile) {
    for (auto* function : {&foundPath, &pathInFoundFolder}) {
        EXPECT_EQ(errorOf([&] { function(std::string("\\tmp\0x", 6)); }),
                  ErrorNumber::FileNotFound);
    }
}

TEST(NativePaths, TheFolderOfAPathIsWhatStandsBeforeTheLastSlash) {
    EXPECT_EQ(nativeFolder("/a/b"), "/a");
    EXPECT_EQ(nativeFolder("/b"), "/");
    EXPECT_EQ(nativeFolder("b"), ".");
    EXPECT_EQ(nativeFolder("a/b/"), "a/b");
}

class FoundPath : public testing::Test {
protected:
    std::string lab(const std::string& name) const { return labPath(folder.file(name)); }

    TemporaryFolder folder;
};

TEST_F(FoundPath, AnExactNameIsTakenBeforeASimilarOne) {
    folder.write("CAT.JPG", "1");
    folder.write("cat.jpg", "2");
    EXPECT_EQ(foundPath(lab("cat.jpg")), folder.file("cat.jpg"));
    EXPECT_EQ(foundPath(lab("CAT.JPG")), folder.file("CAT.JPG"));
}

TEST_F(FoundPath, EveryComponentIsFoundWithoutRegardToCase) {
    std::filesystem::create_directories(folder.path() / "Doc" / "En");
    folder.write("Doc/En/Summary.HTM", "x");
    EXPECT_EQ(foundPath(lab("doc\\en\\summary.htm")), folder.file("Doc/En/Summary.HTM"));
    EXPECT_EQ(foundPath(lab("DOC\\EN\\")), folder.file("Doc/En/"));
    EXPECT_EQ(foundPath(folder.file("doc/EN/summary.htm")), folder.file("Doc/En/Summary.HTM"));
}

TEST_F(FoundPath, OfSeveralSimilarNamesTheFirstInByteOrderIsTaken) {
    folder.write("cAT", "1");
    folder.write("Cat", "2");
    folder.write("caT", "3");
    EXPECT_EQ(foundPath(lab("CAT")), folder.file("Cat"));
}

TEST_F(FoundPath, WhatIsMissingStaysAsWrittenBehindWhatIsFound) {
    std::filesystem::create_directory(folder.path() / "Images");
    EXPECT_EQ(foundPath(lab("images\\New\\Out.bmp")), folder.file("Images/New/Out.bmp"));
}

TEST_F(FoundPath, OnlyAsciiLettersHaveACase) {
    folder.write("\xC3\xA9t\xC3\xA9.bmp", "x");
    EXPECT_EQ(foundPath(lab("\xC3\xA9T\xC3\xA9.BMP")), folder.file("\xC3\xA9t\xC3\xA9.bmp"));
    EXPECT_EQ(foundPath(lab("\xC3\x89t\xC3\x89.bmp")), folder.file("\xC3\x89t\xC3\x89.bmp"));
}

TEST_F(FoundPath, TheNameOfAPrivateFileIsTakenAsWritten) {
    std::filesystem::create_directory(folder.path() / "Cache");
    folder.write("Cache/TMP", "x");
    EXPECT_EQ(pathInFoundFolder(lab("cache\\tmp")), folder.file("Cache/tmp"));
    EXPECT_EQ(pathInFoundFolder("tmp"), "tmp");
}

}  // namespace
}  // namespace quillon
