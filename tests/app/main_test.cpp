#include "app/Main.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "engine/RunTimeError.h"
#include "tests/support/RecordingDesktop.h"

namespace quillon {
namespace {

using Message = RecordingDialogs::Message;

class RecordingOpener : public MainWindowOpener {
public:
    explicit RecordingOpener(CallLog& log) : log_(log) {}
    std::function<void()> onOpen;
    Folders folders;

    void openMainWindow(const Folders& given) override {
        log_.add("opener.openMainWindow()");
        folders = given;
        if (onOpen)
            onOpen();
    }

private:
    CallLog& log_;
};

class MainRoutine : public ::testing::Test {
protected:
    RecordingDesktop desktop;
    RecordingOpener opener{desktop.calls};
    const std::string root = "C:\\Users\\Student\\Quillon\\";

    void run() { Main(desktop.desktop(), opener); }
    Message failure(const std::string& description) {
        return {"Error: " + description + "\n\nScreen must be in 32-bit Color mode !", "",
                MessageIcon::None, MessageButtons::Ok};
    }
};

TEST_F(MainRoutine, FoldersSetUpWindowAndProbeFollowOneAnother) {
    run();
    const std::vector<std::string> steps = {
        "environment.applicationDataFolder()",
        "files.createFolder(" + root + ")",
        "files.moveFolder(" + root + ".unfinished-Images\\, " + root + "Images\\)",
        "files.moveFolder(" + root + ".unfinished-Scripts\\, " + root + "Scripts\\)",
        "opener.openMainWindow()",
        "store.read(Software\\Brindlewood\\Sorrel, EXE)",
        "shell.openAddress(https://www.brindlewood.example/products/Sorrel)"};
    EXPECT_EQ(desktop.calls.of({"environment.applicationData", "files.createFolder(" + root + ")",
                                "files.moveFolder", "opener.", "store.", "shell."}),
              steps);
}

TEST_F(MainRoutine, TheWindowGetsTheFolders) {
    run();
    EXPECT_EQ(opener.folders.ImagePath, root + "Images\\");
    EXPECT_EQ(opener.folders.LibPath2, "C:\\Quillon\\Lib\\");
}

TEST_F(MainRoutine, AFailedSetUpDoesNotKeepTheWindowFromOpening) {
    desktop.files.makeFolderReadOnly("C:\\Users\\Student");
    run();
    EXPECT_EQ(desktop.dialogs.messages.back().title, "Userfolder Error");
    EXPECT_EQ(desktop.calls.of({"opener."}).size(), 1U);
    EXPECT_EQ(desktop.shell.addresses.size(), 1U);
}

TEST_F(MainRoutine, AFailureInTheOpeningIsToldAndSkipsTheProbe) {
    desktop.files.addFolder(root + "Images");
    desktop.files.addFolder(root + "Scripts");
    opener.onOpen = [] { throw RunTimeError(ErrorNumber::FileNotFound); };
    run();
    EXPECT_EQ(desktop.dialogs.messages, (std::vector<Message>{failure("File not found")}));
    EXPECT_TRUE(desktop.shell.addresses.empty());
    EXPECT_TRUE(desktop.calls.of({"store."}).empty());
}

TEST_F(MainRoutine, TheClosingSentenceStandsBehindAnyFailure) {
    desktop.files.addFolder(root + "Images");
    desktop.files.addFolder(root + "Scripts");
    opener.onOpen = [] { throw std::runtime_error("out of memory"); };
    run();
    EXPECT_EQ(desktop.dialogs.messages, (std::vector<Message>{failure("out of memory")}));
}

}  // namespace
}  // namespace quillon
