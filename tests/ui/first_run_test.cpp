#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>

#include "app/Main.h"
#include "engine/NativeFiles.h"
#include "engine/NativePaths.h"
#include "tests/support/FormFixture.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TinyDisk.h"

// First and later runs on real folders in a temporary home.

namespace quillon {
namespace {

namespace fs = std::filesystem;

class FirstRun : public ::testing::Test, protected MainWindowOpener {
protected:
    FirstRun() {
        fs::create_directories(place.path() / "home" / ".config");
        fs::create_directories(place.path() / "program" / "Images");
        fs::create_directories(place.path() / "program" / "Scripts");
        place.write("program/Images/Halvard-Image1.jpg", "first sample");
        place.write("program/Images/Halvard-Image2.jpg", "second sample");
        place.write("program/Images/Caf\xC3\xA9 noir.gif", "a name beyond ASCII");
        place.write("program/Scripts/swap.ftscr", "TITLE Swap\r\n");
        desktop.environment.dataFolder = labPath(place.file("home/.config"));
        desktop.environment.program = labPath(place.file("program"));
        // The recording double decodes; the files themselves are real.
        desktop.pictures.add(images() + "Halvard-Image1.jpg", discPicture());
        desktop.pictures.add(images() + "Halvard-Image2.jpg", squaresPicture());
    }
    ~FirstRun() override {
        std::error_code ignored;
        fs::permissions(place.path() / "home", fs::perms::owner_all, ignored);
    }

    void openMainWindow(const Folders& folders) override {
        form = std::make_unique<Form1>(native, folders);
        form->setHost(&host);
        form->Form_Load();
    }
    void run() {
        desktop.dialogs.messages.clear();
        Main(native, *this);
    }
    std::string images() const { return labPath(place.file("home/Quillon/Images/")); }
    std::vector<std::string> titles() {
        std::vector<std::string> found;
        for (const auto& message : desktop.dialogs.messages)
            found.push_back(message.title.empty() ? message.text : message.title);
        return found;
    }

    TemporaryFolder place;
    RecordingDesktop desktop;
    NativeFiles files;
    Desktop native{
        desktop.dialogs, desktop.pictures, desktop.clipboard,   desktop.text,  desktop.printer,
        desktop.shell,   desktop.screen,   desktop.environment, desktop.store, files};
    RecordingHost host{desktop.calls};
    std::unique_ptr<Form1> form;
};

TEST_F(FirstRun, TheUsersFoldersLieVisibleInTheHomeWithTheDemonstrationFiles) {
    run();
    EXPECT_EQ(titles(), (std::vector<std::string>{"Folder Setup", "First Time Use"}));
    EXPECT_EQ(place.read("home/Quillon/Images/Halvard-Image1.jpg"), "first sample");
    EXPECT_EQ(place.read("home/Quillon/Images/Caf\xC3\xA9 noir.gif"), "a name beyond ASCII");
    EXPECT_EQ(place.read("home/Quillon/Scripts/swap.ftscr"), "TITLE Swap\r\n");
    EXPECT_EQ(form->pb4.Image(), squaresPicture());
}

TEST_F(FirstRun, TheSecondRunLeavesEverythingAsTheUserHasIt) {
    run();
    form->unload();
    fs::remove(place.path() / "home/Quillon/Scripts/swap.ftscr");
    place.write("home/Quillon/Images/Halvard-Image1.jpg", "mine");
    run();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_FALSE(fs::exists(place.path() / "home/Quillon/Scripts/swap.ftscr"));
    EXPECT_EQ(place.read("home/Quillon/Images/Halvard-Image1.jpg"), "mine");
}

TEST_F(FirstRun, AnImageFolderThatIsGoneIsFilledAgainWithoutADialog) {
    run();
    fs::remove_all(place.path() / "home/Quillon/Images");
    run();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(place.read("home/Quillon/Images/Halvard-Image2.jpg"), "second sample");
}

TEST_F(FirstRun, AFolderInAnotherCaseIsTheSameFolder) {
    fs::create_directories(place.path() / "home" / "quillon" / "images");
    fs::create_directories(place.path() / "home" / "quillon" / "SCRIPTS");
    run();
    EXPECT_EQ(titles(), (std::vector<std::string>{"First Time Use"}));
    EXPECT_FALSE(fs::exists(place.path() / "home" / "Quillon"));
    EXPECT_TRUE(fs::is_empty(place.path() / "home" / "quillon" / "images"));
}

TEST_F(FirstRun, WhatIsCopiedFromAReadOnlyProgramTheUserMayChange) {
    fs::permissions(place.path() / "program/Scripts/swap.ftscr", fs::perms::owner_read);
    run();
    struct stat status {};
    ASSERT_EQ(::stat(place.file("home/Quillon/Scripts/swap.ftscr").c_str(), &status), 0);
    EXPECT_NE(status.st_mode & S_IWUSR, 0U);
}

TEST_F(FirstRun, AReadOnlyHomeIsToldAndTheWindowStands) {
    const auto readOnly = static_cast<fs::perms>(0555);
    fs::permissions(place.path() / "home", readOnly);
    const OrdinaryUser user(place);
    if (!user.isBound())
        GTEST_SKIP() << "permissions do not bind this user";
    run();
    const std::vector<std::string> told = titles();
    ASSERT_GE(told.size(), 4U);
    EXPECT_EQ(told[0], "Folder Setup");
    EXPECT_EQ(told[1], "Userfolder Error");
    EXPECT_EQ(told[2], "IMAGE FOLDER not found !");
    EXPECT_EQ(told[3], "SCRIPT FOLDER not found !");
    EXPECT_EQ(host.shows, 1);
    EXPECT_FALSE(fs::exists(place.path() / "home" / "Quillon"));
}

TEST_F(FirstRun, ADiskThatRunsFullInMidCopyLeavesNothingThatCountsAndTheNextStartHasAll) {
    const std::string large(300000, 'p');
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        place.write(std::string("program/Images/") + name, large);
    fs::create_directories(place.path() / "home/Quillon");
    const TinyDisk disk(place.file("home/Quillon"), 750000);
    if (!disk.isMounted())
        GTEST_SKIP() << "this user may mount no disk";
    run();
    const std::vector<std::string> told = titles();
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told[0], "Userfolder Error");
    EXPECT_EQ(desktop.dialogs.messages[0].text, "Error: Disk full");
    EXPECT_TRUE(fs::is_empty(place.path() / "home/Quillon"));

    ASSERT_TRUE(disk.resize(2000000));
    run();
    EXPECT_EQ(titles(), std::vector<std::string>{});
    for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        EXPECT_TRUE(place.read(std::string("home/Quillon/Images/") + name) == large) << name;
    EXPECT_EQ(place.read("home/Quillon/Scripts/swap.ftscr"), "TITLE Swap\r\n");
    EXPECT_FALSE(fs::exists(place.path() / "home/Quillon/.unfinished-Images"));
}

TEST_F(FirstRun, AStartScriptWithBlanksAndAccentsIsFoundOnTheRealDisk) {
    run();
    fs::create_directories(place.path() / "home" / "mes s\xC3\xA9rie s");
    const std::string script = place.file("home/mes s\xC3\xA9rie s/\xC3\xA9 1.FtScr");
    place.write("home/mes s\xC3\xA9rie s/\xC3\xA9 1.FtScr", "TITLE x\r\n");
    for (const std::string& line : {script, "\"" + script + "\"", labPath(script)}) {
        desktop.environment.arguments = line;
        desktop.log.clear();
        run();
        EXPECT_TRUE(desktop.calls.of({"pictures.load"}).empty()) << line;
        EXPECT_TRUE(desktop.dialogs.messages.empty()) << line;
    }
}

}  // namespace
}  // namespace quillon
