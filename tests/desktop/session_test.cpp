#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>

#include "desktop/Conversions.h"
#include "tests/desktop/OpenedWindow.h"

namespace quillon {
namespace {

const std::string kKey = "Software\\Brindlewood\\Quillon";

class Session : public OpenedWindow {
protected:
    std::string stored(const char* name) { return services.store.read(kKey, name); }
    void expectLaidOut() {
        const QWidget& area = *window().widgetOf(form());
        const QWidget& strip = widget("stb");
        EXPECT_EQ(strip.geometry().bottom(), area.rect().bottom());
        EXPECT_EQ(strip.width(), area.width());
        EXPECT_EQ(widget("frt1").size(), QSize(823, 569));
        const QPoint middle = widget("frt1").geometry().center();
        EXPECT_LE(std::abs(middle.x() - area.width() / 2), 1);
        EXPECT_LE(std::abs(middle.y() - area.height() / 2), 1);
    }
};

TEST_F(Session, TheFirstRunMakesTheUsersFoldersWithThePicturesAndTellsSo) {
    const QDir user(home.filePath(QStringLiteral("Quillon")));
    EXPECT_TRUE(user.exists(QStringLiteral("Images/Halvard-Image1.jpg")));
    EXPECT_TRUE(user.exists(QStringLiteral("Scripts")));
    ASSERT_EQ(recording.dialogs.messages.size(), 2U);
    EXPECT_EQ(recording.dialogs.messages[0].title, "Folder Setup");
    EXPECT_EQ(recording.dialogs.messages[1].title, "First Time Use");
    EXPECT_EQ(stored("GUIC"), "2");
}

TEST_F(Session, ASecondRunSaysNothing) {
    recording.dialogs.messages.clear();
    open();
    EXPECT_TRUE(recording.dialogs.messages.empty());
    EXPECT_TRUE(window().isVisible());
}

TEST_F(Session, ClosingTheWindowWritesTheSettingsAndEndsTheProgram) {
    window().move(123, 45);
    settle();
    EXPECT_EQ(stored("WNDO"), "");
    bool quit = false;
    const auto connection =
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, [&] { quit = true; });
    QMetaObject::invokeMethod(
        qApp, [this] { window().close(); }, Qt::QueuedConnection);
    EXPECT_EQ(QApplication::exec(), 0);
    QObject::disconnect(connection);
    EXPECT_TRUE(quit);
    EXPECT_TRUE(form().isUnloaded());
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(stored("WNDO"), "1845 675 12900 10500 0");
}

TEST_F(Session, TheWindowComesBackWhereItWas) {
    window().move(210, 90);
    settle();
    window().close();
    open();
    EXPECT_EQ(window().pos(), QPoint(210, 90));
    EXPECT_EQ(form().Left, 210 * 15);
    EXPECT_EQ(window().frameGeometry().size(), QSize(860, 700)) << "the size is not restored";
}

TEST_F(Session, AMaximisedWindowComesBackMaximised) {
    window().showMaximized();
    settle();
    EXPECT_EQ(form().WindowState, kWindowMaximised);
    window().close();
    open();
    EXPECT_TRUE(window().isMaximized());
    window().showNormal();
    settle();
    EXPECT_EQ(form().WindowState, kWindowNormal);
}

TEST_F(Session, AWindowThatWasMinimisedAtTheEndComesBackInItsNormalState) {
    window().showMinimized();
    settle();
    EXPECT_EQ(form().WindowState, kWindowMinimised);
    window().close();
    EXPECT_TRUE(stored("WNDO").ends_with(" 1")) << stored("WNDO");
    open();
    EXPECT_FALSE(window().isMinimized());
    EXPECT_EQ(form().WindowState, kWindowNormal);
    expectLaidOut();
}

TEST_F(Session, AWindowThatStartsMinimisedIsLaidOutWhenItIsRestored) {
    // A window manager may start a window so, whatever the program asks for.
    form().WindowState = kWindowMinimised;
    lab->window().hide();
    lab->window().show();
    EXPECT_TRUE(window().isMinimized());
    window().resize(1000, 800);
    settle();
    window().showNormal();
    settle();
    expectLaidOut();
}

TEST_F(Session, TheStateThatTheObjectAsksForIsTheWindows) {
    form().WindowState = kWindowMaximised;
    settle();
    EXPECT_TRUE(window().isMaximized());
    form().WindowState = kWindowNormal;
    settle();
    EXPECT_FALSE(window().isMaximized());
}

TEST_F(Session, ThePlaceThatTheObjectAsksForIsTheWindows) {
    form().Left = 300;
    form().Top = 450;
    form().Width = 600 * 15;
    settle();
    EXPECT_EQ(window().pos(), QPoint(20, 30));
    EXPECT_EQ(window().frameGeometry().width(), 600);
}

TEST_F(Session, ASecondRequestToCloseClosesNothingTwice) {
    window().close();
    services.store.write(kKey, "WNDO", "untouched");
    form().unload();
    EXPECT_EQ(stored("WNDO"), "untouched");
}

TEST_F(Session, ResizingRunsTheLayoutsRules) {
    for (const QSize size : {QSize(100, 100), QSize(860, 700), QSize(1500, 1000), QSize(4000, 3000),
                             QSize(300, 900)}) {
        window().resize(size);
        settle();
        expectLaidOut();
    }
}

TEST_F(Session, GarbageInEverySettingStillOpensTheWindow) {
    for (const char* name : {"WNDO", "GUIC", "FR", "LUT"})
        for (const char* value : {"", "x", "-1", "99999999999999999999", "1e400", "1 2 3 4",
                                  "1 2 3 4 5 6", "a b c d e", "\xFF\xFE"}) {
            services.store.write(kKey, name, value);
            open();
            EXPECT_TRUE(window().isVisible()) << name << " = " << value;
            services.store.write(kKey, name, "0");
        }
    EXPECT_TRUE(std::ranges::none_of(recording.dialogs.messages, [](const auto& message) {
        return message.text.starts_with("Error");
    }));
}

}  // namespace
}  // namespace quillon
