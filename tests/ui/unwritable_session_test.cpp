#include <gtest/gtest.h>

#include "engine/NativePaths.h"
#include "engine/RunTimeError.h"
#include "tests/support/FormFixture.h"

// A session whose script cannot be written when it ends.

namespace quillon {
namespace {

using Message = RecordingDialogs::Message;

class UnwritableSession : public OpenForm {
protected:
    UnwritableSession() {
        form.NewPanelImage(1);
        form.lab.channel1.file.clear();
        form.pb1.PSet(100, 100, kWhite);
        form.lab.channel1.runFOURN(1, 0);
    }

    /// The ways in which a user ends the session.
    void exitEntry() { form.itmFile(5); }
    void closeBox() { form.unload(); }

    std::vector<Message> messages() { return desktop.dialogs.messages; }
    Message keptMessage(const std::string& why) {
        return {"The session script cannot be written:\n" + shownPath(script) + "\n" + why +
                    "\n\nThe session is kept here instead:\n" + shownPath(rescued),
                "Session", MessageIcon::Critical, MessageButtons::Ok};
    }
    Message lostMessage(const std::string& why) {
        return {"The session script cannot be written:\n" + shownPath(script) + "\n" + why +
                    "\n\nNor can it be kept in\nC:/Temp/\n" + why + "\n\nWhat was drawn is lost.",
                "Session", MessageIcon::Critical, MessageButtons::Ok};
    }

    const std::string script = folders.ScriptPath + "last.ftscr";
    const std::string rescueFolder = "C:\\Temp\\quillon-session-1\\";
    const std::string rescued = rescueFolder + "last.ftscr";
};

TEST_F(UnwritableSession, IsKeptUnderTmpWhichOneMessageSaysAndTheWindowCloses) {
    desktop.files.makeFolderReadOnly(folders.ScriptPath);
    exitEntry();
    EXPECT_EQ(messages(), (std::vector<Message>{keptMessage("Path/File access error")}));
    EXPECT_EQ(host.unloads, 1);
    EXPECT_TRUE(form.isUnloaded());
    EXPECT_NE(desktop.files.bytesOf(rescued).find("TITLE\tLast Images\r\n"), std::string::npos);
    EXPECT_TRUE(desktop.environment.errors.empty());
}

TEST_F(UnwritableSession, IsKeptInTheSameWayByTheCloseBoxAndByAScriptsExit) {
    desktop.files.makeFolderReadOnly(folders.ScriptPath);
    desktop.files.addFile("C:\\e.ftscr", "EXIT\r\nRNDPHASES\r\n");
    for (const bool byScript : {false, true}) {
        RecordingHost other(desktop.calls);
        Form1 second(desktop.desktop(), folders);
        second.setHost(&other);
        second.Form_Load();
        desktop.dialogs.messages.clear();
        if (byScript)
            second.ReadScript("C:\\e.ftscr");
        else
            second.unload();
        ASSERT_EQ(messages().size(), 1U) << byScript;
        EXPECT_EQ(messages()[0].title, "Session") << byScript;
        EXPECT_EQ(other.unloads, 1) << byScript;
    }
}

TEST_F(UnwritableSession, KeepsADrawnPictureBesideTheScriptThatNamesIt) {
    desktop.files.makeFolderReadOnly(folders.ScriptPath);
    desktop.files.makeFolderReadOnly(folders.ImagePath);
    const Bitmap drawn = form.pb1.Image();
    closeBox();
    EXPECT_EQ(messages().size(), 1U);
    Form1 next(desktop.desktop(), folders);
    next.Form_Load();
    next.ReadScript(rescued);
    EXPECT_EQ(next.pb1.Image(), drawn);
    EXPECT_TRUE(next.lab.channel1.file.starts_with(rescueFolder)) << next.lab.channel1.file;
    EXPECT_EQ(form.lab.folders.ImagePath, folders.ImagePath);
}

TEST_F(UnwritableSession, TakesAFolderUnderTmpThatNobodyHasMade) {
    desktop.files.makeFolderReadOnly(folders.ScriptPath);
    desktop.files.addFile("C:\\Temp\\quillon-session-1", "planted");
    desktop.files.addFile("C:\\Temp\\quillon-session-2\\last.ftscr", "an earlier one");
    closeBox();
    EXPECT_EQ(desktop.files.bytesOf("C:\\Temp\\quillon-session-2\\last.ftscr"), "an earlier one");
    EXPECT_TRUE(desktop.files.exists("C:\\Temp\\quillon-session-3\\last.ftscr"));
}

TEST_F(UnwritableSession, ThatCannotBeKeptUnderTmpEitherIsReportedAndTheWindowCloses) {
    desktop.files.diskFull = true;
    exitEntry();
    EXPECT_EQ(messages(), (std::vector<Message>{lostMessage("Disk full")}));
    EXPECT_EQ(desktop.environment.errors, std::vector<std::string>{messages()[0].text});
    EXPECT_EQ(host.unloads, 1);
}

TEST_F(UnwritableSession, ClosesOnceWhateverComesWhileTheMessageIsOnShow) {
    desktop.files.diskFull = true;
    desktop.dialogs.onMessage = [this](const Message&) {
        form.unload();
        form.itmFile(5);
        form.endSession(Ending::Interrupted);
    };
    closeBox();
    EXPECT_EQ(messages().size(), 1U);
    EXPECT_EQ(host.unloads, 1);
}

TEST_F(UnwritableSession, StillSavesTheSettings) {
    desktop.files.diskFull = true;
    form.Left = 300;
    closeBox();
    EXPECT_TRUE(stored("WNDO").starts_with("300 ")) << stored("WNDO");
}

TEST_F(UnwritableSession, IsReportedWithoutABoxWhereNobodyCanSeeOne) {
    desktop.files.makeFolderReadOnly(folders.ScriptPath);
    for (const Ending ending : {Ending::Interrupted, Ending::DesktopClosed}) {
        Form1 second(desktop.desktop(), folders);
        second.Form_Load();
        desktop.environment.errors.clear();
        desktop.dialogs.messages.clear();
        second.endSession(ending);
        EXPECT_TRUE(messages().empty());
        ASSERT_EQ(desktop.environment.errors.size(), 1U);
        EXPECT_NE(desktop.environment.errors[0].find("The session is kept here instead:"),
                  std::string::npos);
    }
}

TEST_F(UnwritableSession, OfAnErrorIsReportedInABox) {
    desktop.files.makeFolderReadOnly(folders.ScriptPath);
    form.endSession(Ending::Failed);
    EXPECT_EQ(messages(), (std::vector<Message>{keptMessage("Path/File access error")}));
    EXPECT_EQ(host.unloads, 0) << "the program ends, whatever its window does";
}

class EndedSession : public OpenForm {};

TEST_F(EndedSession, StopsHeldControlsAndABatchBeforeTheClosing) {
    for (const Ending ending :
         {Ending::Closed, Ending::DesktopClosed, Ending::Failed, Ending::Interrupted}) {
        Form1 second(desktop.desktop(), folders);
        second.Form_Load();
        second.Timer1.Enabled = true;
        second.endSession(ending);
        EXPECT_FALSE(second.Timer1.Enabled);
        EXPECT_TRUE(second.bStopBatch);
    }
}

TEST_F(EndedSession, WritesItsScriptHoweverItEnds) {
    const std::string script = folders.ScriptPath + "last.ftscr";
    for (const Ending ending :
         {Ending::Closed, Ending::DesktopClosed, Ending::Failed, Ending::Interrupted}) {
        Form1 second(desktop.desktop(), folders);
        second.Form_Load();
        desktop.files.addFile(script, "");
        second.endSession(ending);
        EXPECT_NE(desktop.files.bytesOf(script), "");
        second.endSession(ending);
    }
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_TRUE(desktop.environment.errors.empty());
}

TEST_F(FormFixture, AnOpeningThatIsInterruptedLeavesTheLastSessionsScript) {
    desktop.files.addFile(folders.ScriptPath + "last.ftscr", "TITLE of yesterday\r\n");
    host.onShow = [this] { form.endSession(Ending::Interrupted); };
    form.Form_Load();
    EXPECT_EQ(desktop.files.bytesOf(folders.ScriptPath + "last.ftscr"), "TITLE of yesterday\r\n");
}

TEST_F(FormFixture, AnOpeningThatFailedHasASessionAllTheSame) {
    desktop.pictures.addUndecodable(sample2);
    EXPECT_THROW(form.Form_Load(), RunTimeError);
    form.endSession(Ending::Interrupted);
    EXPECT_TRUE(desktop.files.exists(folders.ScriptPath + "last.ftscr"));
}

}  // namespace
}  // namespace quillon
