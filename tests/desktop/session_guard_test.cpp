#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QSessionManager>
#include <QTimer>
#include <cstddef>
#include <optional>
#include <vector>

#include "desktop/Conversions.h"
#include "desktop/DesktopApplication.h"
#include "desktop/SessionGuard.h"
#include "tests/desktop/OpenedWindow.h"

// What goes on beside the lab while it runs, and the end that the desktop orders.

namespace quillon {
namespace {

class GuardedSession : public OpenedWindow {
protected:
    void SetUp() override {
        ASSERT_EQ(QGuiApplication::mouseButtons(), Qt::NoButton) << "an earlier test's press";
        keepsSessions = true;
        open();
        recording.dialogs.messages.clear();
        application.setEnding([this](int status) { endings.push_back(status); });
        guard.emplace(application, *lab);
    }
    ~GuardedSession() override {
        guard.reset();
        application.resetEnding();
    }

    void work() { form().mnuFT1a(10); }
    bool isWritten(const char* name) {
        return QFile::exists(
            home.filePath(QStringLiteral("Quillon/Scripts/%1").arg(QString::fromLatin1(name))));
    }
    QTimer& timer() { return *guard->findChild<QTimer*>(QStringLiteral("snapshots")); }
    /// Lets the minute be over.
    void elapse() {
        timer().start(0);
        settle();
    }

    DesktopApplication& application = *static_cast<DesktopApplication*>(qApp);
    std::optional<SessionGuard> guard;
    std::vector<int> endings;
};

constexpr int kMinute = 60'000;

TEST_F(GuardedSession, IsKeptOnceAMinute) {
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(timer().interval(), kMinute);
    work();
    EXPECT_FALSE(isWritten("snapshot1.ftscr"));
    elapse();
    EXPECT_TRUE(isWritten("snapshot1.ftscr"));
    EXPECT_TRUE(timer().isActive());
    EXPECT_EQ(timer().interval(), kMinute);
}

TEST_F(GuardedSession, IsKeptASmallWhileAfterAGesture) {
    work();
    press(panel("pb1"), {100, 100});
    elapse();
    EXPECT_FALSE(isWritten("snapshot1.ftscr"));
    EXPECT_LT(timer().interval(), 1000);
    release(panel("pb1"), {100, 100});
    elapse();
    EXPECT_TRUE(isWritten("snapshot1.ftscr"));
    EXPECT_EQ(timer().interval(), kMinute);
}

TEST_F(GuardedSession, IsNotKeptInTheMidstOfAComputation) {
    work();
    timer().start(0);
    desktop.screen.pendingEvents();
    EXPECT_FALSE(isWritten("snapshot1.ftscr"));
    elapse();
    EXPECT_TRUE(isWritten("snapshot1.ftscr"));
}

TEST_F(GuardedSession, IsWrittenWhenTheDesktopAsksAndGoesOn) {
    // Nobody but the toolkit makes one, and nobody here looks into it.
    alignas(QSessionManager) std::byte manager[sizeof(QSessionManager)]{};
    Q_EMIT application.commitDataRequest(*reinterpret_cast<QSessionManager*>(manager));
    EXPECT_TRUE(isWritten("last.ftscr"));
    EXPECT_NE(services.store.read("Software\\Brindlewood\\Quillon", "WNDO"), "");
    EXPECT_FALSE(form().isUnloaded());
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(recording.dialogs.messages.empty());
}

TEST_F(GuardedSession, EndsWithStatus0WhenTheDesktopEndsTheProgram) {
    QMetaObject::invokeMethod(
        qApp,
        [] {
            QEvent quit(QEvent::Quit);
            QCoreApplication::sendEvent(qApp, &quit);
        },
        Qt::QueuedConnection);
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(form().isUnloaded());
    EXPECT_TRUE(isWritten("last.ftscr"));
    EXPECT_TRUE(endings.empty());
}

TEST_F(GuardedSession, AsksNothingOfADesktopThatEndsTheProgram) {
    ASSERT_TRUE(QDir().mkpath(home.filePath(QStringLiteral("Quillon/Scripts/last.ftscr"))));
    ::testing::internal::CaptureStderr();
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    EXPECT_NE(::testing::internal::GetCapturedStderr().find("The session is kept here instead:"),
              std::string::npos);
    EXPECT_TRUE(recording.dialogs.messages.empty());
    EXPECT_TRUE(form().isUnloaded());
}

TEST_F(GuardedSession, IsTakenUpBehindAKillWithItsPanels) {
    form().LoadPanelImage(4, form().lab.channel1.file);
    form().mnuFT2a(11);
    form().SetFilterRing(1, 30);
    form().lab.channel2.runFOURN(0, 0);
    form().InvertPanel(5, true);
    elapse();
    std::vector<Bitmap> before;
    for (Integer panel = 1; panel <= 6; ++panel)
        before.push_back(form().lab.panel(panel).Image());
    guard.reset();
    open();
    for (Integer panel = 1; panel <= 6; ++panel)
        EXPECT_EQ(form().lab.panel(panel).Image(), before[static_cast<std::size_t>(panel - 1)])
            << panel;
    EXPECT_EQ(form().lbSTB(2).Caption.get(),
              "last session restored; spectrum edits, view and factor were not");
    EXPECT_TRUE(recording.dialogs.messages.empty());
}

TEST_F(GuardedSession, SaysInTheStripsOwnWidthThatItWasTakenUp) {
    work();
    elapse();
    guard.reset();
    open();
    auto& cell = dynamic_cast<QLabel&>(widget("lbSTB(2)"));
    EXPECT_LE(cell.fontMetrics().horizontalAdvance(cell.text()) + cell.indent(), cell.width());
}

TEST_F(GuardedSession, LeavesTheSamplesToTheNextStartBehindItsClosing) {
    work();
    elapse();
    window().close();
    settle();
    EXPECT_FALSE(isWritten("snapshot1.ftscr"));
    EXPECT_FALSE(isWritten("snapshot1.open"));
}

}  // namespace
}  // namespace quillon
