#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

using Message = RecordingDialogs::Message;

const Message kFirstUse = {
    "Right-Mouse-Click at each image box to see its menu.\n\nScreen must be in 32-bit Color mode !",
    "First Time Use", MessageIcon::Information, MessageButtons::Ok};

class Opening : public FormFixture {
protected:
    /// Runs the opening; gives the desktop's calls, and of the controls the
    /// changes of those named, in their order, repeats drawn together.
    std::vector<std::string> openWatching(const std::vector<std::string>& controls) {
        RecordingWatcher watcher(desktop.log);
        form.watch(&watcher);
        for (Control* control : form.controls())
            control->watch(&watcher);
        desktop.log.clear();
        form.Form_Load();
        std::vector<std::string> wanted = {"store.read",           "host.",
                                           "screen.pendingEvents", "dialogs.",
                                           "pictures.load",        "environment.commandLine",
                                           "files.isFolder"};
        for (const std::string& name : controls)
            wanted.push_back("stale " + name);
        std::vector<std::string> steps = desktop.calls.of(wanted);
        steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
        form.watch(nullptr);
        for (Control* control : form.controls())
            control->watch(nullptr);
        return steps;
    }
    std::vector<std::string> loads() { return desktop.calls.of({"pictures.load"}); }
};

TEST_F(Opening, ItsStepsFollowInTheirFixedOrder) {
    form.ie5.Top = 500;
    const std::string key = "store.read(Software\\Brindlewood\\Quillon, ";
    const std::vector<std::string> steps = {
        "stale Form1",
        key + "PATH)",
        key + "WNDO)",
        key + "GUIC)",
        "stale lbTAB(0)",
        "stale pb2",
        "stale pb3",
        "stale pb5",
        "stale pb6",
        "stale pb3",
        "stale pb6",
        key + "FR)",
        key + "LUT)",
        "stale frt1",
        "stale shp1(0)",
        "stale shp1(1)",
        "stale lbTAB(0)",
        "stale lbHIS",
        "stale imgDIM",
        "stale pb1",
        "host.show()",
        "screen.pendingEvents()",
        "stale shp1(0)",
        "stale shp1(1)",
        "files.isFolder(" + folders.ImagePath + ")",
        "files.isFolder(" + folders.ScriptPath + ")",
        "environment.commandLine()",
        "pictures.load(" + sample1 + ")",
        "stale pb1",
        "pictures.load(" + sample2 + ")",
        "stale pb2",
        "stale pb3",
        "stale pb5",
        "stale pb6",
    };
    EXPECT_EQ(openWatching({"Form1", "frt1", "shp1", "lbTAB(0)", "lbHIS", "imgDIM", "pb1", "pb2",
                            "pb3", "pb5", "pb6"}),
              steps);
    EXPECT_EQ(form.frt1.Top, 500);
}

TEST_F(Opening, TheWindowIs860By700PixelsWhateverWasStored) {
    store("WNDO", "1500 750 30000 20000 0");
    open();
    EXPECT_EQ(form.Width, 860 * 15);
    EXPECT_EQ(form.Height, 700 * 15);
    EXPECT_EQ(form.Left, 1500);
    EXPECT_EQ(form.Top, 750);
}

TEST_F(Opening, TheWindowIsUpBeforeTheFirstPictureIsLoaded) {
    std::size_t loadedAtShow = 99;
    Integer stateAtShow = 99;
    store("WNDO", "1500 750 30000 20000 2");
    host.onShow = [&] {
        loadedAtShow = loads().size();
        stateAtShow = form.WindowState;
    };
    form.Form_Load();
    EXPECT_EQ(loadedAtShow, 0U);
    EXPECT_EQ(stateAtShow, kWindowMaximised);
    EXPECT_EQ(host.shows, 1);
    EXPECT_EQ(desktop.screen.yields, 1);
    EXPECT_EQ(loads().size(), 2U);
}

TEST_F(Opening, WhenTheWindowComesUpRingsLieOnTheCentreAndTheMirrorIsSet) {
    host.onShow = [&] {
        EXPECT_TRUE(form.lab.autoCalculate);
        for (Integer i = 0; i <= 1; ++i) {
            EXPECT_EQ(form.shp1(i).Left, 127.5F);
            EXPECT_EQ(form.shp1(i).Top, 127.5F);
        }
    };
    open();
    EXPECT_EQ(host.shows, 1);
    EXPECT_EQ(form.shp1(0).Left, 122.5F);
}

TEST_F(Opening, AWindowThatIsClosedWhileItOpensSavesOnceAndFinishesItsOpening) {
    desktop.screen.nextYields.push_back([&] { form.unload(); });
    form.Form_Load();
    EXPECT_TRUE(form.isUnloaded());
    EXPECT_EQ(host.unloads, 1);
    EXPECT_EQ(stored("WNDO"), "0 0 12900 10500 0");
    EXPECT_EQ(form.pb6.Tag, "!");
}

TEST_F(Opening, BothChannelsShowTheirSamplesWithSpectrumAndReconstruction) {
    open();
    EXPECT_EQ(form.pb1.Image(), discPicture());
    EXPECT_EQ(form.pb4.Image(), squaresPicture());
    EXPECT_EQ(form.pb3.Tag, "!");
    EXPECT_EQ(form.pb6.Tag, "!");
    EXPECT_NE(form.pb2.Image(), form.pb5.Image());
    EXPECT_GT(form.lab.channel1.spectrum()(0, 0).re, 0);
    EXPECT_GT(form.lab.channel2.spectrum()(0, 0).re, 0);
}

TEST_F(Opening, BothChannelsReportToTheOneMessageCell) {
    open();
    form.lab.channel1.Msg("from one");
    EXPECT_EQ(status(2), "from one");
    form.lab.channel2.Msg("from two");
    EXPECT_EQ(status(2), "from two");
}

TEST_F(Opening, PanelsCountAs256By256WhateverTheirScale) {
    form.pb1.Move(105, 240, 3030, 3030);
    open();
    EXPECT_EQ(form.pb1.ScaleWidth(), 200);
    EXPECT_EQ(form.panelW, 256);
    EXPECT_EQ(form.panelH, 256);
}

TEST_F(Opening, TheHelpLiesBesideTheProgram) {
    desktop.environment.program = "D:\\Lab";
    open();
    EXPECT_EQ(form.helpFile, "D:\\Lab\\Quillon.chm");
}

TEST_F(Opening, WhatCanBeClickedGetsTheHand) {
    open();
    std::vector<Control*> clickable = {
        &form.lbTAB(0), &form.lbTAB(1), &form.lbTAB(2), &form.lbHIS, &form.lbBR1(0), &form.lbBR1(1),
        &form.lbBR2(0), &form.lbBR2(1), &form.imgDIM,   &form.pbLUT, &form.btLUT,    &form.Label1};
    for (const Control* control : clickable) {
        EXPECT_EQ(control->MousePointer, kPointerCustom) << control->Name;
        EXPECT_EQ(control->MouseIcon, kMouseIconHand) << control->Name;
    }
}

TEST_F(Opening, ImagePanelsGetTheSecondPointerOfTheStore) {
    open();
    for (const PictureBox* panel : {&form.pb1, &form.pb4}) {
        EXPECT_EQ(panel->MousePointer, kPointerCustom);
        EXPECT_EQ(panel->MouseIcon, 2);
    }
    EXPECT_EQ(form.pb3.MousePointer, kPointerDefault);
}

TEST_F(Opening, AutoCalculateMirrorsItsEntry) {
    open();
    EXPECT_TRUE(form.lab.autoCalculate);
    Form1 other(desktop.desktop(), folders);
    other.menu(MenuArray::itmOpt, 4).Checked = false;
    other.Form_Load();
    EXPECT_FALSE(other.lab.autoCalculate);
}

TEST_F(Opening, AutoCalculateIsMirroredOnceMoreAtTheEnd) {
    // What a script's menu commands leave is what counts.
    host.onShow = [&] { form.menu(MenuArray::itmOpt, 4).Checked = false; };
    open();
    EXPECT_FALSE(form.lab.autoCalculate);
}

TEST_F(Opening, MissingFoldersAreNoticedImageThenScriptThenTheSamplesFail) {
    RecordingDesktop bare;
    bare.store.values = desktop.store.values;
    Form1 homeless(bare.desktop(), folders);
    EXPECT_THROW(homeless.Form_Load(), RunTimeError);
    const std::vector<Message> notices = {
        {"IMAGE FOLDER not found !", "", MessageIcon::None, MessageButtons::Ok},
        {"SCRIPT FOLDER not found !", "", MessageIcon::None, MessageButtons::Ok}};
    EXPECT_EQ(bare.dialogs.messages, notices);
    EXPECT_EQ(bare.calls.of({"pictures.load"}).size(), 1U);
}

TEST_F(Opening, AMissingSampleIsAFailureOfTheOpening) {
    desktop.files.remove(sample2);
    try {
        form.Form_Load();
        FAIL() << "the opening went on";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::FileNotFound);
    }
    EXPECT_EQ(host.shows, 1);
    EXPECT_EQ(loads().size(), 2U);
}

TEST_F(Opening, TheFirstRunIsToldAfterTheImagesHaveBeenComputed) {
    desktop.store.values.clear();
    std::string tagAtMessage;
    desktop.dialogs.onMessage = [&](const Message&) { tagAtMessage = form.pb6.Tag; };
    form.Form_Load();
    EXPECT_EQ(desktop.dialogs.messages, (std::vector<Message>{kFirstUse}));
    EXPECT_EQ(tagAtMessage, "!");
    EXPECT_EQ(form.guiColorIndex, 2);
}

TEST_F(Opening, TheSecondRunIsNotTold) {
    desktop.store.values.clear();
    form.Form_Load();
    Form1 second(desktop.desktop(), folders);
    desktop.dialogs.messages.clear();
    second.Form_Load();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(Opening, TheLastSessionsScriptIsNotReadAtTheStart) {
    desktop.files.addFile(folders.ScriptPath + "last.ftscr", "TITLE Last Images\r\n");
    desktop.log.clear();
    form.Form_Load();
    EXPECT_EQ(loads().size(), 2U);
    EXPECT_TRUE(desktop.calls.of({"files.length"}).empty());
}

class CommandLine : public Opening {
protected:
    /// Whether the opening took the line for a start script.
    bool startsScript(const std::string& line) {
        desktop.environment.arguments = line;
        Form1 started(desktop.desktop(), folders);
        desktop.log.clear();
        started.Form_Load();
        EXPECT_TRUE(desktop.dialogs.messages.empty()) << line;
        const bool samples = !loads().empty();
        EXPECT_EQ(loads().size(), samples ? 2U : 0U) << line;
        return !samples;
    }
};

TEST_F(CommandLine, AScriptWithBlanksInItsNameIsRunWithAndWithoutQuotes) {
    desktop.files.addFile("C:\\a b\\x.ftscr", "TITLE x\r\n");
    EXPECT_TRUE(startsScript("C:\\a b\\x.ftscr"));
    EXPECT_TRUE(startsScript("\"C:\\a b\\x.ftscr\""));
    EXPECT_TRUE(startsScript("C:\\\"a b\"\\x.ft\"scr"));
}

TEST_F(CommandLine, LettersBeyondAsciiAreKept) {
    desktop.files.addFile("C:\\\xC3\xA9t\xC3\xA9\\\xE6\xB3\xA2.ftscr", "TITLE x\r\n");
    EXPECT_TRUE(startsScript("C:\\\xC3\xA9t\xC3\xA9\\\xE6\xB3\xA2.ftscr"));
}

TEST_F(CommandLine, ANativePathIsTakenAsItIs) {
    desktop.files.addFile("/home/ada/my scripts/x.ftscr", "TITLE x\r\n");
    EXPECT_TRUE(startsScript("/home/ada/my scripts/x.ftscr"));
}

TEST_F(CommandLine, AnyCaseAndAnyPlaceOfTheExtensionCounts) {
    desktop.files.addFile("C:\\x.FtScR", "TITLE x\r\n");
    desktop.files.addFile("C:\\a.ftscr.txt", "TITLE x\r\n");
    EXPECT_TRUE(startsScript("C:\\x.FtScR"));
    EXPECT_TRUE(startsScript("C:\\a.ftscr.txt"));
}

TEST_F(CommandLine, APictureIsNotOpened) {
    desktop.pictures.add("C:\\cat.bmp", squaresPicture());
    EXPECT_FALSE(startsScript("C:\\cat.bmp"));
}

TEST_F(CommandLine, AMissingAnEmptyAndASecondScriptAreIgnoredWithoutAMessage) {
    desktop.files.addFile("C:\\x.ftscr", "TITLE x\r\n");
    desktop.files.addFile("C:\\empty.ftscr", "");
    EXPECT_FALSE(startsScript("C:\\missing.ftscr"));
    EXPECT_FALSE(startsScript("C:\\empty.ftscr"));
    EXPECT_FALSE(startsScript("C:\\x.ftscr C:\\x.ftscr"));
    EXPECT_FALSE(startsScript(""));
    EXPECT_FALSE(startsScript("\"\""));
    EXPECT_FALSE(startsScript("--help"));
    EXPECT_FALSE(startsScript("C:\\x_ftscr"));
}

class Closing : public OpenForm {};

TEST_F(Closing, SettingsAreSavedBeforeTheSessionScriptIsWrittenAndThenTheWindowGoes) {
    form.unload();
    EXPECT_EQ(desktop.calls.of({"store.", "files.write", "host."}),
              (std::vector<std::string>{
                  "store.write(Software\\Brindlewood\\Quillon, WNDO, 0 0 12900 10500 0)",
                  "store.write(Software\\Brindlewood\\Quillon, PATH, C:\\Quillon\\Quillon.exe)",
                  "files.write(" + folders.ScriptPath + "last.ftscr)", "host.unloaded()"}));
    EXPECT_TRUE(desktop.dialogs.messages.empty()) << "a closing window asks nothing";
    EXPECT_TRUE(form.isUnloaded());
}

TEST_F(Closing, AWindowClosesOnce) {
    form.unload();
    desktop.log.clear();
    form.unload();
    EXPECT_TRUE(desktop.log.empty());
    EXPECT_EQ(host.unloads, 1);
}

TEST_F(Closing, WithoutAHostTheClosingStillSaves) {
    form.setHost(nullptr);
    form.unload();
    EXPECT_EQ(stored("WNDO"), "0 0 12900 10500 0");
}

}  // namespace
}  // namespace quillon
