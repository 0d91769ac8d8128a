#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <string_view>
#include <vector>

#include "desktop/BrowserPane.h"
#include "ui/Form1.h"

class QMenuBar;

namespace quillon {

class BrowserFace;
class ControlFace;
class KeyPreview;
class LabMenus;
class QtScreen;

/// The window on the screen: it builds a widget for every control of the table
/// and the menus from theirs, and stands in for the window system at the
/// window's object. The object outlives it.
class FormWindow : public QWidget, public FormHost {
public:
    FormWindow(Form1& form, QtScreen& screen, BrowserPaneMaker browser = makeTextBrowserPane);
    ~FormWindow() override;

    // FormHost
    void show() override;
    void popupMenu(std::string_view title) override;
    void showModal(dlgARRAY& dialog) override;
    void unloaded() override;

    /// The widget of a control; nullptr for a control that cannot be seen.
    QWidget* widgetOf(const Control& control) const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// The client area, which stands for the window's object: what it is told to
    /// be, the window becomes.
    class Surface;
    class TimerFace;

    void build(const ControlRow& row, Control& control, BrowserPaneMaker& browser);
    QWidget& parentWidgetOf(const Control& control);
    void layOut();
    void waitUntilSeen();
    /// Brings the window to the place, size and state of its object.
    void takePlace();
    /// Tells the object what the window system has made of the window.
    void tellPlace();
    void drag(Control& control);

    Form1& form_;
    QtScreen& screen_;
    QMenuBar* bar_;
    QWidget* area_;
    std::unique_ptr<LabMenus> menus_;
    std::unique_ptr<Surface> surface_;
    std::vector<std::unique_ptr<ControlFace>> faces_;
    std::vector<std::unique_ptr<ControlWatcher>> watchers_;
    std::unique_ptr<KeyPreview> keys_;
    /// What the window system was asked for last, in pixels, frame included.
    QRect asked_;
    bool frameKnown_ = false;
};

}  // namespace quillon
