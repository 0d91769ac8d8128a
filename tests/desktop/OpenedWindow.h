#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QList>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QUrl>
#include <QWidget>
#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "desktop/LabWindow.h"
#include "desktop/PanelWidget.h"
#include "desktop/QtDesktop.h"
#include "tests/desktop/EnvironmentVariable.h"
#include "tests/support/RecordingDesktop.h"

namespace quillon {

/// The whole program's window in a home of its own, opened as the program opens
/// it. Dialogs are recorded, unless the test answers the real ones, and so is
/// the starting of other programs; every other service is the real one.
class OpenedWindow : public ::testing::Test {
protected:
    enum class Questions { Recorded, Real };
    explicit OpenedWindow(Questions questions = Questions::Recorded);
    void SetUp() override { open(); }

    /// Opens the window; the first one is closed without its session's closing.
    void open();

    Form1& form() { return lab->form(); }
    FormWindow& window() { return lab->window(); }
    QWidget& widget(const char* name);
    PanelWidget& panel(const char* name);
    QMenuBar& bar() { return *window().findChild<QMenuBar*>(); }
    QMenu& menu(const char* title) {
        return *window().findChild<QMenu*>(QString::fromLatin1(title));
    }
    /// An entry by its name with its index: "itmOpt(4)".
    QAction& entry(const char* name) {
        return *window().findChild<QAction*>(QString::fromLatin1(name));
    }

    // Real events of the window system.
    void press(QWidget& widget, QPointF at, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = {});
    void move(QWidget& widget, QPointF at, Qt::KeyboardModifiers modifiers = {});
    void release(QWidget& widget, QPointF at, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers modifiers = {});
    void click(QWidget& widget);
    void doubleClick(QWidget& widget, QPointF at);
    /// Opens a title of the menu bar with the mouse and clicks an entry of its menu.
    void choose(const char* title, const char* entryName);
    /// Opens a panel's menu with the right button and clicks an entry of it.
    void chooseOn(const char* panelName, const char* entryName);
    /// Drops files on a widget; false where the widget did not want them.
    bool drop(QWidget& target, const QList<QUrl>& urls);
    /// The middle of a panel pixel as a point of the panel's widget.
    QPointF pixel(PanelWidget& panel, int x, int y) { return panel.pointOf({x, y}); }

    /// Lets the window catch up with what its object says.
    void settle();
    /// Calls `act` while the next pop-up menu is open.
    void whenPopup(std::function<void(QMenu&)> act);

    QTemporaryDir home;
    EnvironmentVariable homeFolder{"HOME", home.path()};
    EnvironmentVariable settings{"XDG_CONFIG_HOME", home.filePath(QStringLiteral(".config"))};
    EnvironmentVariable caches{"XDG_CACHE_HOME", home.filePath(QStringLiteral(".cache"))};
    EnvironmentVariable temporary{"TMP"};
    RecordingDesktop recording;
    QtDesktop services{FileDialogStyle::Toolkit};
    Desktop desktop;
    /// The tutorial's pane of the next opening.
    BrowserPaneMaker browser = makeTextBrowserPane;
    /// Whether the next opening keeps its session and takes up one that was not closed.
    bool keepsSessions = false;
    /// The time by which that pane is restarted; it stands still unless a test moves it.
    std::chrono::steady_clock::time_point paneTime;
    /// How often it was asked for: once for each breakdown.
    int paneTimeAsked = 0;
    std::unique_ptr<LabWindow> lab;
};

}  // namespace quillon
