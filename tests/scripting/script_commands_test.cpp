#include "scripting/script_commands.h"

#include <gtest/gtest.h>

#include "tests/scripting/ScriptBench.h"

namespace quillon {
namespace {

const std::string kScripts = "C:\\Q\\Scripts\\";
const std::string kFilter = "Quillon Script Files (*.ftscr)|*.ftscr";

class ScriptCommands : public ::testing::Test {
protected:
    ScriptCommands() {
        bench.desktop.files.addFile(kScripts + "s.ftscr", "LOWPASS 3");
        bench.lab.ComFile.FileName = "C:\\last.bmp";
        bench.desktop.log.clear();
    }
    bool asked(const std::string& line) const {
        return std::ranges::find(bench.desktop.log, line) != bench.desktop.log.end();
    }
    void expectNothingSaid() { EXPECT_TRUE(bench.desktop.dialogs.messages.empty()); }
    ScriptBench bench;
    RecordingDialogs& dialogs = bench.desktop.dialogs;
};

TEST_F(ScriptCommands, LoadAsksForAScriptAndRunsIt) {
    dialogs.answerOpen(kScripts + "s.ftscr");
    LoadScriptCommand(bench.lab, bench.host, "");
    ASSERT_EQ(dialogs.opens.size(), 1U);
    EXPECT_EQ(dialogs.opens[0].FileName, "");
    EXPECT_EQ(dialogs.opens[0].InitDir, kScripts);
    EXPECT_EQ(dialogs.opens[0].Filter, kFilter);
    EXPECT_EQ(bench.desktop.screen.yields, 1);
    EXPECT_EQ(bench.state(Channel::One), "low=3");
    EXPECT_FALSE(asked("tab(0)"));
}

TEST_F(ScriptCommands, LoadOfANameAsksNothing) {
    LoadScriptCommand(bench.lab, bench.host, kScripts + "s.ftscr");
    EXPECT_TRUE(dialogs.opens.empty());
    EXPECT_EQ(bench.desktop.screen.yields, 0);
    EXPECT_EQ(bench.state(Channel::One), "low=3");
}

TEST_F(ScriptCommands, LoadShowsThePanelsFromTheTutorialOnly) {
    for (const Integer view : std::initializer_list<Integer>{0, 1, 2}) {
        bench.lab.viewTab = view;
        bench.desktop.log.clear();
        LoadScriptCommand(bench.lab, bench.host, kScripts + "s.ftscr");
        EXPECT_EQ(bench.desktop.log.front() == "tab(0)", view == 2) << view;
    }
}

TEST_F(ScriptCommands, ThatAreCancelledDoNothing) {
    dialogs.cancelOpen();
    LoadScriptCommand(bench.lab, bench.host, "");
    dialogs.cancelOpen();
    EditScriptCommand(bench.lab);
    dialogs.cancelSave();
    SaveScriptCommand(bench.lab, "");
    expectNothingSaid();
    EXPECT_TRUE(dialogs.inputs.empty()) << "no title is asked for";
    EXPECT_TRUE(bench.desktop.shell.calls.empty());
    EXPECT_EQ(bench.state(Channel::One), "");
    EXPECT_FALSE(asked("opt(12)"));
}

TEST_F(ScriptCommands, LoadSaysInTheStripAloneThatItsResetFailed) {
    bench.host.failing = "opt(3)";
    LoadScriptCommand(bench.lab, bench.host, kScripts + "s.ftscr");
    expectNothingSaid();
    EXPECT_EQ(bench.message(), "not loaded: Overflow");
    EXPECT_EQ(bench.state(Channel::One), "");
}

TEST_F(ScriptCommands, SaveAsksForANameThenForATitle) {
    bench.channel1.file = "a";
    dialogs.answerSave(kScripts + "new");
    dialogs.answerInput("Two slits");
    SaveScriptCommand(bench.lab, "");
    ASSERT_EQ(dialogs.saves.size(), 1U);
    EXPECT_EQ(dialogs.saves[0].FileName, "");
    EXPECT_EQ(dialogs.saves[0].InitDir, kScripts);
    EXPECT_EQ(dialogs.saves[0].Filter, kFilter);
    EXPECT_EQ(bench.desktop.screen.yields, 1);
    EXPECT_EQ(
        dialogs.inputs,
        (std::vector<RecordingDialogs::Input>{{"Please enter title", "Script Description", ""}}));
    EXPECT_EQ(bench.desktop.files.bytesOf(kScripts + "new"), "TITLE\tTwo slits\r\nLOAD1\ta\r\n")
        << "no extension is added";
}

TEST_F(ScriptCommands, SaveTakesTheScriptsNameForACancelledTitle) {
    bench.channel1.file = "a";
    dialogs.cancelInput();
    SaveScriptCommand(bench.lab, kScripts + "new.ftscr");
    EXPECT_TRUE(dialogs.saves.empty());
    EXPECT_EQ(bench.desktop.files.bytesOf(kScripts + "new.ftscr"),
              "TITLE\tnew.ftscr\r\nLOAD1\ta\r\n");
}

TEST_F(ScriptCommands, SaveSaysInTheStripAloneThatItCannotWrite) {
    bench.desktop.files.diskFull = true;
    dialogs.answerInput("x");
    SaveScriptCommand(bench.lab, kScripts + "new.ftscr");
    expectNothingSaid();
    EXPECT_EQ(bench.message(), "not saved: the disk is full");
    EXPECT_FALSE(bench.desktop.files.exists(kScripts + "new.ftscr"));
}

TEST_F(ScriptCommands, EditOpensTheEditorOnTheChosenScript) {
    dialogs.answerOpen(kScripts + "s.ftscr");
    EditScriptCommand(bench.lab);
    ASSERT_EQ(dialogs.opens.size(), 1U);
    EXPECT_EQ(dialogs.opens[0].FileName, "C:\\last.bmp") << "the last dialog's name is offered";
    EXPECT_EQ(dialogs.opens[0].InitDir, kScripts);
    EXPECT_EQ(dialogs.opens[0].Filter, kFilter);
    EXPECT_EQ(bench.desktop.screen.yields, 1);
    EXPECT_EQ(bench.desktop.shell.calls,
              (std::vector<RecordingShell::Call>{{"notepad.exe", kScripts + "s.ftscr", kScripts}}));
    EXPECT_EQ(bench.state(Channel::One), "") << "the script does not run";
    bench.desktop.shell.outcomes["notepad.exe"] = Opening::NoProgram;
    dialogs.answerOpen(kScripts + "s.ftscr");
    EditScriptCommand(bench.lab);
    expectNothingSaid();
    EXPECT_EQ(bench.message(), "no program opens the script");
    bench.desktop.shell.outcomes["notepad.exe"] = Opening::Missing;
    dialogs.answerOpen(kScripts + "s.ftscr");
    EditScriptCommand(bench.lab);
    EXPECT_EQ(bench.message(), "file not found: s.ftscr");
}

}  // namespace
}  // namespace quillon
