#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QTimer>
#include <csignal>
#include <optional>

#include "desktop/Conversions.h"
#include "desktop/DesktopApplication.h"
#include "desktop/SessionGuard.h"
#include "tests/desktop/AnsweredWindow.h"

// Real signals to a program that is at its work. Only the very end of the process
// is the test's own.

namespace quillon {
namespace {

class EndingBySignal : public AnsweredWindow {
protected:
    void SetUp() override {
        open();
        application.setEnding([this](int status) {
            endings.push_back(status);
            keptAtTheEnd = isKept();
        });
        guard.emplace(application, *lab);
    }
    ~EndingBySignal() override {
        guard.reset();
        application.resetEnding();
    }

    bool isKept() { return QFile::exists(script); }
    /// The session was kept, and nobody was asked anything.
    void expectEnded(int status) {
        EXPECT_EQ(endings, std::vector<int>{status});
        EXPECT_TRUE(keptAtTheEnd);
        EXPECT_TRUE(form().isUnloaded());
    }

    DesktopApplication& application = *static_cast<DesktopApplication*>(qApp);
    const QString script = home.filePath(QStringLiteral("Quillon/Scripts/last.ftscr"));
    std::optional<SessionGuard> guard;
    std::vector<int> endings;
    bool keptAtTheEnd = false;
};

class EndingByEachSignal : public EndingBySignal, public ::testing::WithParamInterface<int> {};

TEST_P(EndingByEachSignal, KeepsTheSessionAndReportsTheSignal) {
    ::raise(GetParam());
    EXPECT_TRUE(endings.empty()) << "nothing is done in the handler itself";
    settle();
    expectEnded(128 + GetParam());
    EXPECT_NE(services.store.read("Software\\Brindlewood\\Quillon", "WNDO"), "");
}

INSTANTIATE_TEST_SUITE_P(Signals, EndingByEachSignal, ::testing::Values(SIGTERM, SIGHUP, SIGINT));

TEST_F(EndingBySignal, DoesNotWaitForAMessage) {
    answers.next<QMessageBox>([this](QMessageBox& box) {
        ::raise(SIGTERM);
        settle();
        expectEnded(128 + SIGTERM);
        EXPECT_TRUE(box.isVisible());
        box.accept();
    });
    desktop.dialogs.messageBox("", "", MessageIcon::None, MessageButtons::Ok);
}

TEST_F(EndingBySignal, DoesNotWaitForAFileDialog) {
    answers.next<QFileDialog>([this](QFileDialog& box) {
        ::raise(SIGHUP);
        settle();
        expectEnded(128 + SIGHUP);
        box.reject();
    });
    choose("mnuImg1", "mnuImg1a(2)");
}

TEST_F(EndingBySignal, DoesNotWaitForAMenu) {
    whenPopup([this](QMenu& menu) {
        ::raise(SIGINT);
        settle();
        expectEnded(128 + SIGINT);
        menu.close();
    });
    press(panel("pb1"), {100, 100}, Qt::RightButton);
    release(panel("pb1"), {100, 100}, Qt::RightButton);
    settle();
    EXPECT_FALSE(endings.empty());
}

TEST_F(EndingBySignal, ComesBetweenTwoImagesOfABatch) {
    answers.next<QFileDialog>([this](QFileDialog& box) {
        box.selectFile(home.filePath(QStringLiteral("Quillon/Images/Halvard-Image1.jpg")));
        static_cast<QDialog&>(box).accept();
    });
    answers.next<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    std::string captionAtTheEnd;
    application.setEnding([&](int status) {
        endings.push_back(status);
        keptAtTheEnd = isKept();
        captionAtTheEnd = form().fr1.Caption;
    });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (form().fr1.Caption.get() == "Batch Processing ..." && endings.empty())
            ::raise(SIGTERM);
    });
    timer.start(0);
    answers.next<QMessageBox>([](QMessageBox& box) { box.accept(); });
    choose("mnuFile", "itmFile(3)");
    expectEnded(128 + SIGTERM);
    EXPECT_EQ(captionAtTheEnd, "Batch Processing ...");
}

TEST_F(EndingBySignal, IsNotBrokenByASecondSignal) {
    ::raise(SIGTERM);
    ::raise(SIGTERM);
    ::raise(SIGINT);
    settle();
    ASSERT_FALSE(endings.empty());
    EXPECT_EQ(endings.front(), 128 + SIGTERM);
    EXPECT_TRUE(keptAtTheEnd);
}

TEST_F(EndingBySignal, ShowsNoBoxWhereTheSessionCannotBeKept) {
    ASSERT_TRUE(QFile::exists(QFileInfo(script).path()));
    ASSERT_TRUE(QDir().mkpath(script));
    ::testing::internal::CaptureStderr();
    ::raise(SIGTERM);
    settle();
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(endings, std::vector<int>{128 + SIGTERM});
    EXPECT_TRUE(
        said.starts_with("quillon: The session script cannot be written:\n" + toBytes(script)))
        << said;
}

TEST_F(EndingBySignal, LeavesTheSignalsAloneBehindTheSession) {
    guard.reset();
    struct sigaction now {};
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        ::sigaction(signal, nullptr, &now);
        EXPECT_EQ(now.sa_handler, SIG_DFL) << signal;
    }
}

TEST_F(EndingBySignal, LeavesAHangUpToAProgramThatWasStartedToOutliveIt) {
    guard.reset();
    const auto before = std::signal(SIGHUP, SIG_IGN);
    guard.emplace(application, *lab);
    ::raise(SIGHUP);
    settle();
    EXPECT_TRUE(endings.empty());
    ::raise(SIGTERM);
    settle();
    expectEnded(128 + SIGTERM);
    guard.reset();
    std::signal(SIGHUP, before);
}

}  // namespace
}  // namespace quillon
