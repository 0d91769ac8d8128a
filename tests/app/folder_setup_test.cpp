#include "app/folder_setup.h"

#include <gtest/gtest.h>

#include "engine/RunTimeError.h"
#include "tests/support/RecordingDesktop.h"

namespace quillon {
namespace {

using Message = RecordingDialogs::Message;

class FolderSetup : public ::testing::Test {
protected:
    FolderSetup() {
        desktop.files.addFile("C:\\Quillon\\Images\\Halvard-Image1.jpg", "one");
        desktop.files.addFile("C:\\Quillon\\Images\\rings.gif", "rings");
        desktop.files.addFile("C:\\Quillon\\Images\\README", "no extension");
        desktop.files.addFile("C:\\Quillon\\Scripts\\swap.ftscr", "swap");
        desktop.files.addFolder("C:\\Users\\Student\\Data");
    }

    void setUp() { setUpFolders(desktop.desktop(), folders); }
    bool has(const std::string& path) { return desktop.files.exists(path); }

    RecordingDesktop desktop;
    const Folders folders = deriveFolders(desktop.environment);
    const std::string root = "C:\\Users\\Student\\Quillon\\";
};

TEST_F(FolderSetup, AFirstRunTellsTheUserOnceAndFillsThreeFolders) {
    setUp();
    const std::vector<Message> told = {
        {"The following user folder will be created:\nC:/Users/Student/Quillon/\n\n"
         "Demo Image Files will be copied to:\nC:/Users/Student/Quillon/Images/",
         "Folder Setup", MessageIcon::Information, MessageButtons::Ok}};
    EXPECT_EQ(desktop.dialogs.messages, told);
    EXPECT_EQ(desktop.files.bytesOf(root + "Images\\Halvard-Image1.jpg"), "one");
    EXPECT_EQ(desktop.files.bytesOf(root + "Images\\rings.gif"), "rings");
    EXPECT_EQ(desktop.files.bytesOf(root + "Images\\README"), "no extension");
    EXPECT_EQ(desktop.files.bytesOf(root + "Scripts\\swap.ftscr"), "swap");
}

TEST_F(FolderSetup, TheUserIsToldBeforeTheFirstFolderIsMadeAndTheWaitPointerComesAfterIt) {
    setUp();
    const std::vector<std::string> steps = {
        "dialogs.messageBox(" + desktop.dialogs.messages.at(0).text + ", Folder Setup, 64, Ok)",
        "files.createFolder(" + root + ")",
        "screen.setMousePointer(11)",
        "files.createFolder(" + root + ".unfinished-Images\\)",
        "files.copy(C:\\Quillon\\Images\\Halvard-Image1.jpg, " + root +
            ".unfinished-Images\\Halvard-Image1.jpg)",
        "files.copy(C:\\Quillon\\Images\\README, " + root + ".unfinished-Images\\README)",
        "files.copy(C:\\Quillon\\Images\\rings.gif, " + root + ".unfinished-Images\\rings.gif)",
        "files.moveFolder(" + root + ".unfinished-Images\\, " + root + "Images\\)",
        "files.createFolder(" + root + ".unfinished-Scripts\\)",
        "files.copy(C:\\Quillon\\Scripts\\swap.ftscr, " + root + ".unfinished-Scripts\\swap.ftscr)",
        "files.moveFolder(" + root + ".unfinished-Scripts\\, " + root + "Scripts\\)",
        "screen.setMousePointer(0)"};
    EXPECT_EQ(desktop.calls.of({"dialogs.", "files.createFolder", "files.copy", "files.moveFolder",
                                "files.removeFolder", "screen."}),
              steps);
}

TEST_F(FolderSetup, ASecondRunNeitherTellsNorCopies) {
    setUp();
    desktop.dialogs.messages.clear();
    desktop.log.clear();
    setUp();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_TRUE(desktop.calls.of({"files.createFolder", "files.copy"}).empty());
}

TEST_F(FolderSetup, AFolderThatTheUserHasEmptiedStaysEmpty) {
    setUp();
    desktop.files.remove(root + "Images\\rings.gif");
    setUp();
    EXPECT_FALSE(has(root + "Images\\rings.gif"));
}

TEST_F(FolderSetup, AMissingImageFolderIsFilledWithoutADialog) {
    desktop.files.addFolder(root);
    desktop.files.addFolder(root + "Scripts");
    setUp();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_TRUE(has(root + "Images\\rings.gif"));
    EXPECT_FALSE(has(root + "Scripts\\swap.ftscr"));
}

TEST_F(FolderSetup, AMissingScriptFolderIsFilledWithoutTouchingTheImages) {
    desktop.files.addFolder(root + "Images");
    setUp();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_TRUE(has(root + "Scripts\\swap.ftscr"));
    EXPECT_FALSE(has(root + "Images\\rings.gif"));
}

TEST_F(FolderSetup, AProgramWithoutDemonstrationFilesLeavesTheNewFoldersEmpty) {
    desktop.environment.program = "C:\\Bare";
    setUp();
    EXPECT_TRUE(desktop.files.isFolder(root + "Images"));
    EXPECT_TRUE(desktop.files.isFolder(root + "Scripts"));
    EXPECT_EQ(desktop.dialogs.messages.size(), 1U);
}

/// A disk on which a folder turns out to hold files as soon as it is made.
class HauntedFiles : public RecordingFiles {
public:
    using RecordingFiles::RecordingFiles;
    void createFolder(const std::string& path) override {
        RecordingFiles::createFolder(path);
        if (path.ends_with("\\.unfinished-Images\\")) {
            addFile(path + "Halvard-Image1.jpg", "the user's own").readOnly = true;
            addFile(path + "RINGS.GIF", "");
        }
    }
};

TEST_F(FolderSetup, AFileThatIsThereAlreadyIsKeptUnlessItIsEmpty) {
    HauntedFiles files(desktop.calls);
    files.addFile("C:\\Quillon\\Images\\Halvard-Image1.jpg", "one");
    files.addFile("C:\\Quillon\\Images\\rings.gif", "rings");
    files.addFolder("C:\\Users\\Student");
    const Desktop& all = desktop.desktop();
    Desktop haunted{all.dialogs, all.pictures, all.clipboard,   all.text,  all.printer,
                    all.shell,   all.screen,   all.environment, all.store, files};
    setUpFolders(haunted, folders);
    EXPECT_EQ(files.bytesOf(root + "Images\\Halvard-Image1.jpg"), "the user's own");
    EXPECT_EQ(files.bytesOf(root + "Images\\rings.gif"), "rings");
    EXPECT_FALSE(files.find(root + "Images\\Halvard-Image1.jpg")->readOnly)
        << "the look at a file makes it writable";
}

TEST_F(FolderSetup, AReadOnlyHomeIsToldWithAStopIconAndThePointerIsNormalAgain) {
    desktop.files.makeFolderReadOnly("C:\\Users\\Student");
    setUp();
    ASSERT_EQ(desktop.dialogs.messages.size(), 2U);
    EXPECT_EQ(desktop.dialogs.messages[0].title, "Folder Setup");
    EXPECT_EQ(desktop.dialogs.messages[1],
              (Message{"Error: Path/File access error", "Userfolder Error", MessageIcon::Critical,
                       MessageButtons::Ok}));
    EXPECT_EQ(desktop.calls.of({"screen.", "dialogs.messageBox(Error"}),
              (std::vector<std::string>{
                  "screen.setMousePointer(0)",
                  "dialogs.messageBox(Error: Path/File access error, Userfolder Error, 16, Ok)"}));
}

TEST_F(FolderSetup, AFullDiskEndsTheSetUpAtTheFirstFailure) {
    desktop.files.addFolder(root);
    desktop.files.diskFull = true;
    setUp();
    EXPECT_EQ(desktop.dialogs.messages,
              (std::vector<Message>{{"Error: Disk full", "Userfolder Error", MessageIcon::Critical,
                                     MessageButtons::Ok}}));
    EXPECT_EQ(desktop.screen.pointers, (std::vector<Integer>{kPointerWait, kPointerDefault}));
    EXPECT_FALSE(desktop.files.isFolder(root + "Scripts"));
}

TEST_F(FolderSetup, ADemonstrationFileThatCannotBeReadEndsTheSetUp) {
    desktop.files.unreadable.insert("C:\\Quillon\\Images\\README");
    setUp();
    ASSERT_EQ(desktop.dialogs.messages.size(), 2U);
    EXPECT_EQ(desktop.dialogs.messages[1].text, "Error: Path/File access error");
    EXPECT_FALSE(desktop.files.isFolder(root + "Images"));
    EXPECT_FALSE(desktop.files.isFolder(root + "Scripts"));
}

TEST_F(FolderSetup, ASetUpThatFailsLeavesNoHalfFilledFolderBehind) {
    desktop.files.unreadable.insert("C:\\Quillon\\Images\\README");
    setUp();
    EXPECT_FALSE(desktop.files.isFolder(root + "Images"));
    EXPECT_FALSE(desktop.files.isFolder(root + ".unfinished-Images"));
    desktop.files.unreadable.clear();
    setUp();
    EXPECT_EQ(desktop.files.bytesOf(root + "Images\\README"), "no extension");
    EXPECT_TRUE(has(root + "Scripts\\swap.ftscr"));
}

TEST_F(FolderSetup, AHalfFilledFolderOfAStartThatWasKilledIsBegunAnew) {
    desktop.files.addFile(root + ".unfinished-Images\\Halvard-Image1.jpg", "of an earlier version");
    desktop.files.addFile(root + ".unfinished-Images\\half", "o");
    setUp();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(desktop.files.bytesOf(root + "Images\\Halvard-Image1.jpg"), "one");
    EXPECT_TRUE(has(root + "Images\\rings.gif"));
    EXPECT_FALSE(has(root + "Images\\half"));
    EXPECT_FALSE(desktop.files.isFolder(root + ".unfinished-Images"));
}

}  // namespace
}  // namespace quillon
