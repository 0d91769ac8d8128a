#include <gtest/gtest.h>

#include <memory>

#include "tests/support/FormFixture.h"

// Sessions that end without their closing, and the starts behind them.

namespace quillon {
namespace {

const std::string kRestored = "last session restored; spectrum edits, view and factor were not";

class SessionKeeping : public FormFixture {
protected:
    /// A program of its own over the same files.
    std::unique_ptr<Form1> start() {
        auto program = std::make_unique<Form1>(desktop.desktop(), folders);
        program->keepSessions();
        program->Form_Load();
        desktop.log.clear();
        return program;
    }
    /// One that has been at work: channel 2 shows the first sample behind a ring.
    std::unique_ptr<Form1> startAndWork() {
        auto program = start();
        work(*program);
        return program;
    }
    void work(Form1& program) {
        program.LoadPanelImage(4, sample1);
        program.mnuFT2a(11);
        program.SetFilterRing(1, 30);
    }
    /// As SIGKILL or a power cut does: nothing runs any more.
    static void kill(std::unique_ptr<Form1> program) { program.reset(); }

    bool showsTheWork(Form1& program) {
        return program.lab.channel1.file == sample1 && program.lab.channel2.file == sample1 &&
               program.lab.channel2.bHighpass;
    }
    bool showsTheSamples(Form1& program) {
        return program.lab.channel1.file == sample1 && program.lab.channel2.file == sample2 &&
               !program.lab.channel2.bHighpass && program.pb6.Tag == "!";
    }
    std::string statusOf(Form1& program) { return program.lbSTB(2).Caption; }
    std::string script(int number) {
        return folders.ScriptPath + "snapshot" + std::to_string(number) + ".ftscr";
    }
    std::string mark(int number) {
        return folders.ScriptPath + "snapshot" + std::to_string(number) + ".open";
    }
    bool isKept(int number) {
        return desktop.files.exists(script(number)) && desktop.files.exists(mark(number));
    }
};

TEST_F(SessionKeeping, KeepsNothingWhereNothingHasChanged) {
    const auto program = start();
    EXPECT_TRUE(program->writeSnapshot());
    EXPECT_TRUE(desktop.calls.of({"files."}).empty());
}

TEST_F(SessionKeeping, KeepsWhatHasChangedAndOnlyThen) {
    const auto program = startAndWork();
    EXPECT_TRUE(program->writeSnapshot());
    EXPECT_NE(desktop.files.bytesOf(script(1)).find("HIGHPASS\t30\r\n"), std::string::npos);
    EXPECT_TRUE(isKept(1));
    desktop.log.clear();
    EXPECT_TRUE(program->writeSnapshot());
    EXPECT_TRUE(desktop.calls.of({"files."}).empty());
    program->mnuFT2a(10);
    EXPECT_TRUE(program->writeSnapshot());
    EXPECT_NE(desktop.files.bytesOf(script(1)).find("LOWPASS"), std::string::npos);
}

TEST_F(SessionKeeping, WaitsWhileAltShowsItsPatchOnTheImage) {
    const auto program = startAndWork();
    program->KeyDown(kKeyAlt, kAltKey);
    program->MouseMove(program->pb2, 0, kAltKey, 60, 90);
    ASSERT_NE(program->pb1.Image(), discPicture());
    EXPECT_FALSE(program->writeSnapshot());
    EXPECT_FALSE(isKept(1));
    program->KeyUp(kKeyAlt, 0);
    EXPECT_TRUE(program->writeSnapshot());
    EXPECT_NE(desktop.files.bytesOf(script(1)).find("Halvard-Image1.jpg"), std::string::npos)
        << "the channel still shows its file";
}

TEST_F(SessionKeeping, ChangesNothingThatTheLabShows) {
    const auto program = startAndWork();
    program->ShowStatus(2, "text");
    const std::string file = program->lab.channel2.file;
    program->writeSnapshot();
    EXPECT_EQ(statusOf(*program), "text");
    EXPECT_EQ(program->lab.channel2.file, file);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(SessionKeeping, TakesUpWhatASnapshotKeptOfAKilledSession) {
    auto killed = startAndWork();
    killed->writeSnapshot();
    kill(std::move(killed));
    const auto next = start();
    EXPECT_TRUE(showsTheWork(*next));
    EXPECT_EQ(statusOf(*next), kRestored);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(SessionKeeping, BeginsAnewBehindAKilledSessionOfWhichNothingWasKept) {
    kill(startAndWork());
    const auto next = start();
    EXPECT_TRUE(showsTheSamples(*next));
    EXPECT_NE(statusOf(*next), kRestored);
}

TEST_F(SessionKeeping, TakesUpWhatAnErrorOrASignalEnded) {
    for (const Ending ending : {Ending::Failed, Ending::Interrupted}) {
        auto ended = startAndWork();
        ended->endSession(ending);
        EXPECT_NE(desktop.files.bytesOf(folders.ScriptPath + "last.ftscr").find("HIGHPASS"),
                  std::string::npos);
        kill(std::move(ended));
        auto next = start();
        EXPECT_TRUE(showsTheWork(*next));
        EXPECT_EQ(statusOf(*next), kRestored);
        next->unload();
    }
}

TEST_F(SessionKeeping, TakesUpTheLastMomentBeforeASignalAndNotTheLastSnapshot) {
    auto ended = start();
    ended->mnuFT1a(10);
    ended->writeSnapshot();
    work(*ended);
    ended->endSession(Ending::Interrupted);
    kill(std::move(ended));
    EXPECT_TRUE(showsTheWork(*start()));
}

TEST_F(SessionKeeping, BeginsAnewBehindAClosedSession) {
    for (const Ending ending : {Ending::Closed, Ending::DesktopClosed}) {
        auto ended = startAndWork();
        ended->writeSnapshot();
        ended->endSession(ending);
        EXPECT_FALSE(desktop.files.exists(script(1)));
        EXPECT_FALSE(desktop.files.exists(mark(1)));
        kill(std::move(ended));
        const auto next = start();
        EXPECT_TRUE(showsTheSamples(*next));
        EXPECT_NE(statusOf(*next), kRestored);
    }
}

TEST_F(SessionKeeping, BeginsAnewBehindTheExitOfAScript) {
    desktop.files.addFile("C:\\e.ftscr", "LOWPASS 7\r\nEXIT\r\n");
    auto ended = startAndWork();
    ended->writeSnapshot();
    ended->ReadScript("C:\\e.ftscr");
    kill(std::move(ended));
    EXPECT_TRUE(showsTheSamples(*start()));
}

TEST_F(SessionKeeping, BeginsAnewBehindADesktopThatHasClosedEverything) {
    auto ended = startAndWork();
    ended->writeSnapshot();
    ended->keepSession();
    EXPECT_FALSE(ended->isUnloaded());
    EXPECT_NE(desktop.files.bytesOf(folders.ScriptPath + "last.ftscr").find("HIGHPASS"),
              std::string::npos);
    EXPECT_TRUE(ended->writeSnapshot());
    kill(std::move(ended));
    EXPECT_TRUE(showsTheSamples(*start()));
}

TEST_F(SessionKeeping, GoesOnWhereTheDesktopHasNotClosedAfterAll) {
    auto ended = start();
    ended->keepSession();
    work(*ended);
    ended->writeSnapshot();
    kill(std::move(ended));
    EXPECT_TRUE(showsTheWork(*start()));
}

TEST_F(SessionKeeping, TakesTheMarkAwayBeforeItReadsTheScript) {
    auto killed = startAndWork();
    killed->writeSnapshot();
    kill(std::move(killed));
    bool marked = true;
    desktop.screen.onYield = [&] { marked = desktop.files.exists(mark(1)); };
    std::vector<bool> marks;
    desktop.files.addFile(script(1), "LOAD1 missing.bmp\r\n");
    desktop.dialogs.onMessage = [&](const RecordingDialogs::Message&) {
        marks.push_back(desktop.files.exists(mark(1)));
    };
    start();
    EXPECT_EQ(marks, std::vector<bool>{false});
}

TEST_F(SessionKeeping, TriesAScriptThatBringsTheProgramDownOnce) {
    auto killed = startAndWork();
    killed->writeSnapshot();
    kill(std::move(killed));
    {
        Form1 brokenDown(desktop.desktop(), folders);
        SessionKeeper keeper(brokenDown.lab);
        EXPECT_EQ(keeper.takeEndedSession(), script(1));
    }
    EXPECT_TRUE(showsTheSamples(*start()));
}

TEST_F(SessionKeeping, TakesUpAgainWhatIsKilledAtOnce) {
    auto killed = startAndWork();
    killed->writeSnapshot();
    kill(std::move(killed));
    kill(start());
    EXPECT_TRUE(showsTheWork(*start()));
}

TEST_F(SessionKeeping, LeavesALabThatRunsAlone) {
    const auto running = startAndWork();
    running->writeSnapshot();
    const auto second = startAndWork();
    EXPECT_TRUE(isKept(1));
    EXPECT_NE(statusOf(*second), kRestored);
    second->writeSnapshot();
    EXPECT_TRUE(isKept(1));
    EXPECT_TRUE(isKept(2));
    second->unload();
    EXPECT_TRUE(isKept(1));
    EXPECT_FALSE(desktop.files.exists(mark(2)));
}

TEST_F(SessionKeeping, TakesUpTheNewestOfSeveralAndForgetsTheOthers) {
    auto first = startAndWork();
    first->writeSnapshot();
    auto second = start();
    second->mnuFT1a(10);
    second->writeSnapshot();
    first->mnuFT2a(9);
    first->mnuFT2a(11);
    first->SetFilterRing(1, 30);
    first->InvertPanel(4, true);
    first->writeSnapshot();
    kill(std::move(first));
    kill(std::move(second));
    auto next = start();
    EXPECT_TRUE(showsTheWork(*next));
    EXPECT_TRUE(next->lab.channel2.GetInvert(0));
    EXPECT_FALSE(desktop.files.exists(mark(2)));
    EXPECT_TRUE(desktop.files.exists(script(2))) << "it can still be loaded by hand";
    next->unload();
    EXPECT_TRUE(showsTheSamples(*start()));
}

TEST_F(SessionKeeping, LeavesASessionForLaterWhereAScriptIsGiven) {
    auto killed = startAndWork();
    killed->writeSnapshot();
    kill(std::move(killed));
    desktop.files.addFile("C:\\s.ftscr", "TITLE given\r\n");
    desktop.environment.arguments = "C:\\s.ftscr";
    auto given = start();
    EXPECT_EQ(statusOf(*given), "given");
    EXPECT_TRUE(isKept(1));
    given->writeSnapshot();
    given->unload();
    EXPECT_TRUE(isKept(1));
    desktop.environment.arguments.clear();
    EXPECT_TRUE(showsTheWork(*start()));
}

TEST_F(SessionKeeping, KeepsTheSessionOfAGivenScriptToo) {
    desktop.files.addFile("C:\\s.ftscr", "LOAD1 " + sample1 + "\r\nBOTTOM\r\nLOAD1 " + sample1 +
                                             "\r\nHIGHPASS 30\r\n");
    desktop.environment.arguments = "C:\\s.ftscr";
    auto given = start();
    given->writeSnapshot();
    kill(std::move(given));
    desktop.environment.arguments.clear();
    EXPECT_TRUE(showsTheWork(*start()));
}

TEST_F(SessionKeeping, ShowsTheSamplesWhereTheSessionsPicturesAreGone) {
    desktop.pictures.add("C:\\stick\\a.bmp", squaresPicture());
    auto killed = start();
    killed->LoadPanelImage(1, "C:\\stick\\a.bmp");
    killed->writeSnapshot();
    kill(std::move(killed));
    desktop.files.remove("C:\\stick\\a.bmp");
    const auto next = start();
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.messages[0].title, "Script Error");
    EXPECT_TRUE(showsTheSamples(*next));
    EXPECT_NE(statusOf(*next), kRestored);
}

TEST_F(SessionKeeping, LeavesASessionAloneWhoseMarkWouldBringItBackForEver) {
    auto killed = startAndWork();
    killed->writeSnapshot();
    kill(std::move(killed));
    desktop.files.find(mark(1))->readOnly = true;
    EXPECT_TRUE(showsTheSamples(*start()));
}

TEST_F(SessionKeeping, WaitsForTheEndOfABatch) {
    const auto program = startAndWork();
    program->lab.channel1.bBatch = true;
    EXPECT_FALSE(program->writeSnapshot());
    EXPECT_FALSE(desktop.files.exists(script(1)));
    program->lab.channel1.bBatch = false;
    EXPECT_TRUE(program->writeSnapshot());
    EXPECT_TRUE(isKept(1));
}

TEST_F(SessionKeeping, KeepsWhatItHasWhereTheDiskIsFull) {
    auto program = startAndWork();
    program->writeSnapshot();
    const std::string before = desktop.files.bytesOf(script(1));
    desktop.files.diskFull = true;
    program->mnuFT2a(9);
    EXPECT_TRUE(program->writeSnapshot());
    EXPECT_EQ(desktop.files.bytesOf(script(1)), before);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    // Nothing takes the session of the closing either.
    program->unload();
    kill(std::move(program));
    desktop.files.diskFull = false;
    EXPECT_TRUE(showsTheWork(*start())) << "the snapshot is the last that there is";
}

TEST_F(SessionKeeping, IsNotDoneForAFormThatDoesNotAskForIt) {
    auto killed = startAndWork();
    killed->writeSnapshot();
    kill(std::move(killed));
    open();
    EXPECT_TRUE(showsTheSamples(form));
    form.mnuFT1a(10);
    form.writeSnapshot();
    EXPECT_TRUE(isKept(1));
    EXPECT_FALSE(desktop.files.exists(script(2)));
}

}  // namespace
}  // namespace quillon
