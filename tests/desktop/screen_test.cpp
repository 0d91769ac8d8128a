#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>

#include "desktop/Conversions.h"
#include "desktop/QtScreen.h"

namespace quillon {
namespace {

TEST(ScreenService, TheWaitPointerIsLaidOnceHoweverOftenItIsAskedFor) {
    {
        QtScreen screen;
        screen.setMousePointer(kPointerWait);
        screen.setMousePointer(kPointerWait);
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        screen.setMousePointer(kPointerDefault);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        screen.setMousePointer(kPointerDefault);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        screen.setMousePointer(kPointerWait);
    }
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << "the pointer outlived the lab";
}

TEST(ScreenService, PendingEventsAreTakenBeforeTheCallReturns) {
    bool arrived = false;
    QMetaObject::invokeMethod(
        qApp, [&] { arrived = true; }, Qt::QueuedConnection);
    QtScreen().pendingEvents();
    EXPECT_TRUE(arrived);
}

TEST(ScreenService, SystemColoursComeFromTheDesktopsPalette) {
    const QPalette before = QApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::Button, QColor(1, 2, 3));
    palette.setColor(QPalette::Dark, QColor(4, 5, 6));
    QApplication::setPalette(palette);
    EXPECT_EQ(QtScreen().systemColor(SystemColor::ButtonFace), RGB(1, 2, 3));
    EXPECT_EQ(QtScreen().systemColor(SystemColor::ButtonShadow), RGB(4, 5, 6));
    QApplication::setPalette(before);
}

TEST(ScreenService, AControlIsDraggedByTheWindow) {
    QtScreen screen;
    Label label("label");
    EXPECT_NO_THROW(screen.dragControl(label));
    Control* dragged = nullptr;
    screen.setDragger([&](Control& control) { dragged = &control; });
    screen.dragControl(label);
    EXPECT_EQ(dragged, &label);
}

}  // namespace
}  // namespace quillon
