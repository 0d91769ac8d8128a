#include <gtest/gtest.h>

#include <QDir>
#include <QMessageBox>
#include <QTest>
#include <optional>

#include "desktop/Conversions.h"
#include "tests/desktop/AnsweredWindow.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/SmallMount.h"

// A session whose script the disk does not take, closed by its user.

namespace quillon {
namespace {

class UnwritableSessionInTheWindow : public AnsweredWindow {
protected:
    void SetUp() override {
        open();
        ASSERT_TRUE(QDir().mkpath(tmp));
        // A drawing that has no file.
        form().NewPanelImage(1);
        form().lab.channel1.file.clear();
        form().pb1.PSet(100, 100, kWhite);
        form().lab.channel1.runFOURN(1, 0);
    }

    void nextMessage(const std::string& why) {
        answers.nextMessage("The session script cannot be written:\n" + toBytes(script) + "\n" +
                                why + "\n\nThe session is kept here instead:\n" + toBytes(kept),
                            "Session", QMessageBox::Critical, QMessageBox::Ok,
                            [this] { EXPECT_TRUE(window().isVisible()); });
    }
    /// The session was read back, with its drawing.
    void expectKept() {
        const Bitmap drawn = form().pb1.Image();
        EXPECT_TRUE(answers.empty());
        EXPECT_FALSE(window().isVisible());
        EXPECT_TRUE(form().isUnloaded());
        open();
        form().ReadScript(toLabPath(kept));
        EXPECT_EQ(form().pb1.Image(), drawn);
    }

    /// Outside of the home, for another user.
    TemporaryFolder folder;
    const QString script = home.filePath(QStringLiteral("Quillon/Scripts/last.ftscr"));
    const QString tmp = home.filePath(QStringLiteral("tmp"));
    const QString kept = tmp + QStringLiteral("/quillon-session-1/last.ftscr");
    EnvironmentVariable temporaryFolder{"TMP", tmp};
};

class UnwritableSessionOnAFullDisk : public UnwritableSessionInTheWindow {
protected:
    void SetUp() override {
        UnwritableSessionInTheWindow::SetUp();
        disk.emplace(toBytes(home.filePath(QStringLiteral("Quillon/Scripts"))));
        if (!disk->isMounted())
            GTEST_SKIP() << "no disk can be mounted here";
        disk->fill();
    }
    std::optional<SmallMount> disk;
};

TEST_F(UnwritableSessionOnAFullDisk, IsKeptElsewhereByTheExitOfTheMenu) {
    nextMessage("Disk full");
    choose("mnuFile", "itmFile(5)");
    expectKept();
}

TEST_F(UnwritableSessionOnAFullDisk, IsKeptElsewhereByTheCloseBox) {
    nextMessage("Disk full");
    window().close();
    settle();
    expectKept();
}

TEST_F(UnwritableSessionOnAFullDisk, IsKeptElsewhereByAScriptsExit) {
    QFile source(tmp + QStringLiteral("/exit.ftscr"));
    ASSERT_TRUE(source.open(QIODevice::WriteOnly));
    source.write("EXIT\r\n");
    source.close();
    nextMessage("Disk full");
    ASSERT_TRUE(drop(panel("pb1"), {QUrl::fromLocalFile(source.fileName())}));
    settle();
    expectKept();
}

TEST_F(UnwritableSessionOnAFullDisk, ThatHoldsTmpTooIsReportedOnTheErrorOutputAndCloses) {
    const QString full = QFileInfo(script).path();
    const EnvironmentVariable there("TMP", full);
    const std::string text = "The session script cannot be written:\n" + toBytes(script) +
                             "\nDisk full\n\nNor can it be kept in\n" + toBytes(full) +
                             "/\nDisk full\n\nWhat was drawn is lost.";
    answers.nextMessage(text, "Session", QMessageBox::Critical, QMessageBox::Ok);
    ::testing::internal::CaptureStderr();
    window().close();
    settle();
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_TRUE(said.starts_with("quillon: " + text + "\n")) << said;
    EXPECT_FALSE(window().isVisible());
    EXPECT_TRUE(form().isUnloaded());
}

TEST_F(UnwritableSessionInTheWindow, IsKeptElsewhereWhereTheFolderIsOnlyRead) {
    const EnvironmentVariable there("TMP", toQString(folder.path().string()));
    const std::string elsewhere = folder.file("quillon-session-1/last.ftscr");
    answers.next<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(toBytes(box.text()),
                  "The session script cannot be written:\n" + toBytes(script) +
                      "\nPath/File access error\n\nThe session is kept here instead:\n" +
                      elsewhere);
        box.accept();
    });
    {
        const OrdinaryUser user(folder);
        ASSERT_TRUE(user.isBound());
        QFile::setPermissions(QFileInfo(script).path(), QFile::ReadOwner | QFile::ExeOwner);
        choose("mnuFile", "itmFile(5)");
    }
    QFile::setPermissions(QFileInfo(script).path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(answers.empty());
    EXPECT_FALSE(window().isVisible());
    EXPECT_TRUE(QFile::exists(toQString(elsewhere)));
}

}  // namespace
}  // namespace quillon
