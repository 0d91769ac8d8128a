#include "tests/desktop/OpenedWindow.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <cmath>
#include <stdexcept>

#include "desktop/Conversions.h"

namespace quillon {

namespace {

/// The whole point whose pixel holds `at`.
QPoint whole(QPointF at) {
    return {static_cast<int>(std::floor(at.x())), static_cast<int>(std::floor(at.y()))};
}

/// A window that a test before has closed has asked the event loop to end, and no
/// dialog would open any more: forgotten when a loop has ended by it.
void forgetEarlierEnds() {
    QTimer end;
    QObject::connect(&end, &QTimer::timeout, qApp, [] { QCoreApplication::exit(); });
    end.start(0);
    QCoreApplication::exec();
}

}  // namespace

OpenedWindow::OpenedWindow(Questions questions)
    : desktop{questions == Questions::Real ? static_cast<Dialogs&>(services.dialogs)
                                           : recording.dialogs,
              services.pictures,
              services.clipboard,
              services.text,
              services.printer,
              recording.shell,
              services.screen,
              services.environment,
              services.store,
              services.files} {
    forgetEarlierEnds();
}

void OpenedWindow::open() {
    const bool real = &desktop.dialogs == &services.dialogs;
    services.dialogs.setOwner(nullptr);
    lab = std::make_unique<LabWindow>(desktop, services.screen, real ? &services.dialogs : nullptr,
                                      BrowserSource{browser, [this] {
                                                        ++paneTimeAsked;
                                                        return paneTime;
                                                    }});
    if (keepsSessions)
        lab->keepSessions();
    Main(desktop, *lab);
    settle();
    // A test before may have left the button down.
    if (QGuiApplication::mouseButtons().testFlag(Qt::LeftButton))
        QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, {}, {1, 1});
}

QWidget& OpenedWindow::widget(const char* name) {
    auto* found = window().findChild<QWidget*>(QString::fromLatin1(name));
    if (found == nullptr)
        throw std::invalid_argument(std::string("no widget is called ") + name);
    return *found;
}

PanelWidget& OpenedWindow::panel(const char* name) {
    return dynamic_cast<PanelWidget&>(widget(name));
}

void OpenedWindow::press(QWidget& widget, QPointF at, Qt::MouseButton button,
                         Qt::KeyboardModifiers modifiers) {
    QTest::mousePress(window().windowHandle(), button, modifiers,
                      widget.mapTo(&window(), whole(at)));
}

void OpenedWindow::move(QWidget& widget, QPointF at, Qt::KeyboardModifiers modifiers) {
    // mouseMove() knows no modifiers.
    QTest::mouseEvent(QTest::MouseMove, window().windowHandle(), Qt::NoButton, modifiers,
                      widget.mapTo(&window(), whole(at)));
}

void OpenedWindow::release(QWidget& widget, QPointF at, Qt::MouseButton button,
                           Qt::KeyboardModifiers modifiers) {
    QTest::mouseRelease(window().windowHandle(), button, modifiers,
                        widget.mapTo(&window(), whole(at)));
}

void OpenedWindow::click(QWidget& widget) {
    const QPointF middle = QRectF(widget.rect()).center();
    press(widget, middle);
    release(widget, middle);
    settle();
}

void OpenedWindow::doubleClick(QWidget& widget, QPointF at) {
    QTest::mouseDClick(window().windowHandle(), Qt::LeftButton, {},
                       widget.mapTo(&window(), whole(at)));
    settle();
}

void OpenedWindow::choose(const char* title, const char* entryName) {
    QMenu& opened = menu(title);
    const QRect place = bar().actionGeometry(opened.menuAction());
    whenPopup([&](QMenu& shown) {
        EXPECT_EQ(shown.objectName(), QString::fromLatin1(title));
        QTest::mouseClick(&shown, Qt::LeftButton, {},
                          shown.actionGeometry(&entry(entryName)).center());
    });
    QTest::mouseClick(&bar(), Qt::LeftButton, {}, place.center());
    settle();
}

void OpenedWindow::chooseOn(const char* panelName, const char* entryName) {
    whenPopup([=, this](QMenu& shown) {
        QTest::mouseClick(&shown, Qt::LeftButton, {},
                          shown.actionGeometry(&entry(entryName)).center());
    });
    press(panel(panelName), {100, 100}, Qt::RightButton);
    release(panel(panelName), {100, 100}, Qt::RightButton);
    settle();
}

bool OpenedWindow::drop(QWidget& target, const QList<QUrl>& urls) {
    QMimeData content;
    content.setUrls(urls);
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &content, Qt::LeftButton, {});
    enter.setAccepted(false);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent dropped({50, 50}, Qt::CopyAction, &content, Qt::LeftButton, {});
    QApplication::sendEvent(&target, &dropped);
    return dropped.isAccepted();
}

void OpenedWindow::settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
}

void OpenedWindow::whenPopup(std::function<void(QMenu&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            ADD_FAILURE() << "no menu has popped up";
        else
            act(*menu);
        if (menu != nullptr)
            menu->close();
    });
}

}  // namespace quillon
