#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

using Words = std::vector<std::string>;

TEST(PathHelpers, AddBackslashAddsOneUnlessThereIsOne) {
    EXPECT_EQ(AddBackslash("C:\\Quillon"), "C:\\Quillon\\");
    EXPECT_EQ(AddBackslash("C:\\Quillon\\"), "C:\\Quillon\\");
    EXPECT_EQ(AddBackslash(""), "\\");
}

TEST(PathHelpers, FileNamePartIsWhatStandsBehindTheLastBackslash) {
    EXPECT_EQ(FileNamePart("C:\\Images\\my cat.bmp"), "my cat.bmp");
    EXPECT_EQ(FileNamePart("abc"), "abc");
    EXPECT_EQ(FileNamePart("a\\b\\"), "");
    EXPECT_EQ(FileNamePart("\\b"), "b");
    EXPECT_EQ(FileNamePart(""), "");
}

TEST(PathHelpers, FolderPartReachesToTheLastBackslash) {
    EXPECT_EQ(FolderPart("C:\\Images\\cat.bmp"), "C:\\Images\\");
    EXPECT_EQ(FolderPart("a\\b\\"), "a\\b\\");
    EXPECT_EQ(FolderPart("\\b"), "\\");
    EXPECT_EQ(FolderPart("abc"), "abc");
    EXPECT_EQ(FolderPart(""), "");
}

TEST(PathHelpers, FolderPartGoesOneLevelUpFromAFolder) {
    EXPECT_EQ(AddBackslash(FolderPart("C:\\Users\\a\\AppData\\Roaming")),
              "C:\\Users\\a\\AppData\\");
}

TEST(PathHelpers, ThePathsThatAreGivenStayAsTheyAre) {
    const std::string path = "C:\\Images";
    AddBackslash(path);
    FileNamePart(path);
    FolderPart(path);
    EXPECT_EQ(path, "C:\\Images");
}

TEST(PathHelpers, NonAsciiBytesInPathsAreKept) {
    EXPECT_EQ(FileNamePart("C:\\\xC3\xA9t\xC3\xA9\\\xE9.bmp"), "\xE9.bmp");
    EXPECT_EQ(FolderPart("C:\\\xC3\xA9t\xC3\xA9\\\xE9.bmp"), "C:\\\xC3\xA9t\xC3\xA9\\");
}

TEST(FileExists, AFileOfOneByteExistsAndAnEmptyOneDoesNot) {
    RecordingDesktop desktop;
    desktop.files.addFile("C:\\a.bmp", "x");
    desktop.files.addFile("C:\\empty.bmp", "");
    EXPECT_TRUE(FileExists(desktop.files, "C:\\a.bmp"));
    EXPECT_FALSE(FileExists(desktop.files, "C:\\empty.bmp"));
}

TEST(FileExists, AMissingFileAndAFolderAndNoPathAreNoFiles) {
    RecordingDesktop desktop;
    desktop.files.addFolder("C:\\Images");
    EXPECT_FALSE(FileExists(desktop.files, "C:\\nowhere.bmp"));
    EXPECT_FALSE(FileExists(desktop.files, "C:\\Images"));
    desktop.log.clear();
    EXPECT_FALSE(FileExists(desktop.files, ""));
    EXPECT_TRUE(desktop.log.empty());
}

TEST(FileExists, TheFileBecomesWritableBeforeItsLengthIsLookedAt) {
    RecordingDesktop desktop;
    desktop.files.addFile("C:\\a.bmp", "x").readOnly = true;
    desktop.files.addFile("C:\\empty.bmp", "").readOnly = true;
    EXPECT_TRUE(FileExists(desktop.files, "C:\\a.bmp"));
    EXPECT_FALSE(FileExists(desktop.files, "C:\\empty.bmp"));
    EXPECT_FALSE(desktop.files.find("C:\\a.bmp")->readOnly);
    EXPECT_FALSE(desktop.files.find("C:\\empty.bmp")->readOnly);
    EXPECT_EQ(desktop.log,
              (Words{"files.clearAttributes(C:\\a.bmp)", "files.length(C:\\a.bmp)",
                     "files.clearAttributes(C:\\empty.bmp)", "files.length(C:\\empty.bmp)"}));
}

/// Files none of which can be asked for anything.
class FailingFiles : public RecordingFiles {
public:
    using RecordingFiles::RecordingFiles;
    bool isFolder(const std::string&) override { throw RunTimeError(ErrorNumber::DeviceIoError); }
    std::uint64_t length(const std::string&) override {
        throw RunTimeError(ErrorNumber::DeviceIoError);
    }
};

TEST(FileExists, AnyFailureMeansThatThereIsNoFile) {
    CallLog log;
    FailingFiles files(log);
    files.addFile("C:\\a.bmp", "x");
    EXPECT_FALSE(FileExists(files, "C:\\a.bmp"));
}

TEST(FolderExists, AFolderExistsWithAndWithoutAClosingBackslash) {
    RecordingDesktop desktop;
    desktop.files.addFile("C:\\Images\\a.bmp", "x");
    EXPECT_TRUE(FolderExists(desktop.files, "C:\\Images"));
    EXPECT_TRUE(FolderExists(desktop.files, "C:\\Images\\"));
    EXPECT_FALSE(FolderExists(desktop.files, "C:\\Scripts\\"));
}

TEST(FolderExists, APlainFileIsFoundTooUnlessThePathIsClosedAsAFoldersIs) {
    RecordingDesktop desktop;
    desktop.files.addFile("C:\\Images\\a.bmp", "x");
    desktop.files.addFile("C:\\Images\\empty", "");
    EXPECT_TRUE(FolderExists(desktop.files, "C:\\Images\\a.bmp"));
    EXPECT_TRUE(FolderExists(desktop.files, "C:\\Images\\empty"));
    EXPECT_FALSE(FolderExists(desktop.files, "C:\\Images\\a.bmp\\"));
    EXPECT_FALSE(FolderExists(desktop.files, "C:\\Images\\b.bmp"));
}

TEST(FolderExists, AnyFailureMeansThatThereIsNoFolder) {
    CallLog log;
    FailingFiles files(log);
    EXPECT_FALSE(FolderExists(files, "C:\\"));
}

TEST(OpenInBrowser, TheAddressGoesToTheUsersBrowser) {
    RecordingDesktop desktop;
    const std::string page = "https://www.brindlewood.example/products/Sorrel";
    EXPECT_EQ(OpenInBrowser(desktop.shell, page), Opening::Asked);
    EXPECT_EQ(desktop.shell.addresses, Words{page});
    desktop.shell.outcomes[page] = Opening::NoProgram;
    EXPECT_EQ(OpenInBrowser(desktop.shell, page), Opening::NoProgram);
}

class FailingShell : public RecordingShell {
public:
    using RecordingShell::RecordingShell;
    Opening openAddress(const std::string& address) override {
        RecordingShell::openAddress(address);
        throw RunTimeError(ErrorNumber::FileNotFound);
    }
};

TEST(OpenInBrowser, AFailureMeansThatThereIsNoBrowser) {
    CallLog log;
    FailingShell shell(log);
    EXPECT_EQ(OpenInBrowser(shell, "https://www.brindlewood.example/"), Opening::NoProgram);
    EXPECT_EQ(shell.addresses.size(), 1U);
}

TEST(WithoutOuterBlanks, OnlyBlanksGoAndOnlyAtTheEnds) {
    EXPECT_EQ(withoutOuterBlanks("  a  b "), "a  b");
    EXPECT_EQ(withoutOuterBlanks("a"), "a");
    EXPECT_EQ(withoutOuterBlanks("\ta\n "), "\ta\n");
    EXPECT_EQ(withoutOuterBlanks("   "), "");
    EXPECT_EQ(withoutOuterBlanks(""), "");
}

TEST(UpperCased, OnlyAsciiLettersChange) {
    EXPECT_EQ(upperCased("azAZ09_@[`{"), "AZAZ09_@[`{");
    EXPECT_EQ(upperCased("k\xC3\xA4\xE4"), "K\xC3\xA4\xE4");
    EXPECT_EQ(upperCased(""), "");
}

TEST(SplitWords, TwoLettersAmongBlanksAreTwoWordsAndOneLetterIsOne) {
    EXPECT_EQ(SplitWords("  a   b  "), (Words{"a", "b"}));
    EXPECT_EQ(SplitWords("a b"), (Words{"a", "b"}));
    EXPECT_EQ(SplitWords("a"), Words{"a"});
    EXPECT_EQ(SplitWords("   a"), Words{"a"});
}

TEST(SplitWords, ATextWithoutWordsIsOneEmptyWord) {
    EXPECT_EQ(SplitWords(""), Words{""});
    EXPECT_EQ(SplitWords("     "), Words{""});
}

TEST(SplitWords, OnlyTheBlankParts) {
    EXPECT_EQ(SplitWords("a\tb c\r"), (Words{"a\tb", "c\r"}));
    // A byte A0 is a letter's second half in one code and a hard blank in
    // another; it never parts words.
    EXPECT_EQ(SplitWords("\xC3\xA0 x"), (Words{"\xC3\xA0", "x"}));
}

TEST(SplitWords, ALineOfMoreWordsThanAnIntegerCountsIsNoError) {
    std::string text;
    for (int i = 0; i < 40000; ++i)
        text += "w ";
    EXPECT_EQ(SplitWords(text).size(), 40000U);
}

TEST(AppendWord, TheArrayGrowsWhenTheCounterPassesItsUpperBound) {
    Long counter = -1;
    Words words(1);
    AppendWord(counter, words, "first");
    EXPECT_EQ(counter, 0);
    EXPECT_EQ(words, Words{"first"});
    AppendWord(counter, words, "second");
    EXPECT_EQ(counter, 1);
    EXPECT_EQ(words, (Words{"first", "second"}));
}

TEST(AppendWord, ARoomyArrayKeepsItsSize) {
    Long counter = 0;
    Words words{"a", "b", "c"};
    AppendWord(counter, words, "B");
    EXPECT_EQ(counter, 1);
    EXPECT_EQ(words, (Words{"a", "B", "c"}));
}

TEST(AppendWord, ACounterThatEndsBelowZeroIsASubscriptError) {
    Long counter = -2;
    Words words(1);
    EXPECT_EQ(errorOf([&] { AppendWord(counter, words, "word"); }),
              ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(words, Words{""});
}

TEST(ReadWholeFile, EveryByteIsOneCharacter) {
    RecordingDesktop desktop;
    const std::string bytes("a\0b\r\n\x1A\xFF\xE9", 8);
    desktop.files.addFile("C:\\data", bytes);
    EXPECT_EQ(ReadWholeFile(desktop.files, "C:\\data"), bytes);
}

TEST(ReadWholeFile, AMissingFileGivesAnEmptyString) {
    RecordingDesktop desktop;
    EXPECT_EQ(ReadWholeFile(desktop.files, "C:\\nowhere"), "");
}

TEST(ReadWholeFile, AnEmptyFileRaisesASubscriptError) {
    RecordingDesktop desktop;
    desktop.files.addFile("C:\\empty", "");
    EXPECT_EQ(errorOf([&] { ReadWholeFile(desktop.files, "C:\\empty"); }),
              ErrorNumber::SubscriptOutOfRange);
}

TEST(ReadWholeFile, AFileThatCannotBeReadIsAnError) {
    RecordingDesktop desktop;
    desktop.files.addFile("C:\\secret", "x");
    desktop.files.unreadable.insert("C:\\secret");
    EXPECT_THROW(ReadWholeFile(desktop.files, "C:\\secret"), RunTimeError);
    CallLog log;
    FailingFiles failing(log);
    EXPECT_THROW(ReadWholeFile(failing, "C:\\secret"), RunTimeError);
}

}  // namespace
}  // namespace quillon
