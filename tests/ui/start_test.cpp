#include <gtest/gtest.h>

#include <memory>

#include "app/Main.h"
#include "tests/support/FormFixture.h"

// The whole start, from Main to the open window.

namespace quillon {
namespace {

using Message = RecordingDialogs::Message;

class FormOpener : public MainWindowOpener {
public:
    FormOpener(Desktop& desktop, RecordingHost& host) : desktop_(desktop), host_(host) {}
    std::unique_ptr<Form1> form;

    void openMainWindow(const Folders& folders) override {
        form = std::make_unique<Form1>(desktop_, folders);
        form->setHost(&host_);
        form->Form_Load();
    }

private:
    Desktop& desktop_;
    RecordingHost& host_;
};

class Start : public ::testing::Test {
protected:
    Start() {
        desktop.pictures.add("C:\\Quillon\\Images\\Halvard-Image1.jpg", discPicture());
        desktop.pictures.add("C:\\Quillon\\Images\\Halvard-Image2.jpg", squaresPicture());
        desktop.files.addFile("C:\\Quillon\\Scripts\\swap.ftscr", "TITLE Swap\r\n");
        desktop.files.addFolder("C:\\Users\\Student\\Data");
    }
    Form1& run() {
        opener = std::make_unique<FormOpener>(desktop.desktop(), host);
        desktop.dialogs.messages.clear();
        desktop.log.clear();
        Main(desktop.desktop(), *opener);
        return *opener->form;
    }
    std::vector<std::string> titles() {
        std::vector<std::string> found;
        for (const Message& message : desktop.dialogs.messages)
            found.push_back(message.title.empty() ? message.text : message.title);
        return found;
    }

    RecordingDesktop desktop;
    RecordingHost host{desktop.calls};
    std::unique_ptr<FormOpener> opener;
};

TEST_F(Start, AFirstRunMakesTheFoldersShowsTheSamplesAndTellsOfTheMenus) {
    Form1& form = run();
    EXPECT_EQ(titles(), (std::vector<std::string>{"Folder Setup", "First Time Use"}));
    EXPECT_EQ(form.pb1.Image(), discPicture());
    EXPECT_EQ(form.pb6.Tag, "!");
    EXPECT_TRUE(desktop.files.exists("C:\\Users\\Student\\Quillon\\Scripts\\swap.ftscr"));
    EXPECT_EQ(desktop.shell.addresses.size(), 1U);
}

TEST_F(Start, ASecondRunSaysNothingAndCopiesNothing) {
    run().unload();
    run();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_TRUE(desktop.calls.of({"files.copy", "files.createFolder"}).empty());
}

TEST_F(Start, ADeletedSettingsKeyMakesTheNextStartAFirstRunAgain) {
    run().unload();
    desktop.store.values.clear();
    run();
    EXPECT_EQ(titles(), (std::vector<std::string>{"First Time Use"}));
}

TEST_F(Start, APathAmongLostSettingsKeepsTheDefaultsAway) {
    run().unload();
    for (const char* name : {"WNDO", "GUIC", "FR", "LUT"})
        desktop.store.values.erase({kSettingsKey, name});
    Form1& form = run();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(form.guiColorIndex, 0);
}

TEST_F(Start, AReadOnlyHomeIsToldAtEachPlaceAndTheWindowStandsAndWorks) {
    desktop.files.makeFolderReadOnly("C:\\Users\\Student");
    Form1& form = run();
    EXPECT_EQ(titles(), (std::vector<std::string>{
                            "Folder Setup", "Userfolder Error", "IMAGE FOLDER not found !",
                            "SCRIPT FOLDER not found !",
                            "Error: File not found\n\nScreen must be in 32-bit Color mode !"}));
    EXPECT_EQ(host.shows, 1);
    EXPECT_TRUE(desktop.shell.addresses.empty()) << "the probe is skipped";
    form.Click(form.btLUT);
    EXPECT_TRUE(form.frLUT.Visible);
    form.unload();
    EXPECT_EQ(titles().back(), "Session") << "the session script cannot be written";
    EXPECT_EQ(host.unloads, 1);
}

TEST_F(Start, AnUnreadableSampleLeavesTheShownWindowUsable) {
    run().unload();
    desktop.pictures.addUndecodable("C:\\Users\\Student\\Quillon\\Images\\Halvard-Image2.jpg");
    Form1& form = run();
    EXPECT_EQ(
        desktop.dialogs.messages,
        (std::vector<Message>{{"Error: Invalid picture\n\nScreen must be in 32-bit Color mode !",
                               "", MessageIcon::None, MessageButtons::Ok}}));
    EXPECT_EQ(form.pb1.Image(), discPicture()) << "the first sample was laid before the failure";
    EXPECT_EQ(form.pb3.Tag, "") << "nothing was computed";
    form.lab.channel1.CalculateAll();
    EXPECT_EQ(form.pb3.Tag, "!");
}

}  // namespace
}  // namespace quillon
