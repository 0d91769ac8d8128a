#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "desktop/BrowserPane.h"
#include "desktop/DarkMeans.h"
#include "ui/Form1.h"

class QMenuBar;

namespace quillon {

class AboutBox;
class ControlFace;
class DimWindow;
class HeldMouse;
class KeyPreview;
class LabMenus;
class QtScreen;

/// The window on the screen: it builds a widget for every control of the table
/// and the menus from theirs, and stands in for the window system at the
/// window's object. The object outlives it.
class FormWindow : public QWidget, public FormHost {
public:
    FormWindow(Form1& form, QtScreen& screen, BrowserSource browser);
    ~FormWindow() override;

    // FormHost
    void show() override;
    void popupMenu(std::string_view title) override;
    void showModal(dlgARRAY& dialog) override;
    void prepareDark() override;
    void showOwned(frmDIM& dim) override;
    void showModal(frmAbout& about) override;
    void unloaded() override;

    /// A test says how the dark is shown; otherwise the desktop decides.
    void setDarkMeans(DarkMeans means) { chosenDarkMeans_ = means; }

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

    void build(const ControlRow& row, Control& control, BrowserSource& browser);
    /// What ticks for a held [-] or [+].
    std::unique_ptr<ControlWatcher> heldControlsTimer(Timer& timer);
    QWidget& parentWidgetOf(const Control& control);
    void layOut();
    /// Screens come and go between two sessions: the window is where it can be seen.
    void keepOnScreens();
    void waitUntilSeen();
    /// Lets the window system go on until the condition holds. Some never get
    /// there, so there is a limit.
    void waitUntil(const std::function<bool()>& reached);
    /// Brings the window to the place, size and state of its object.
    void takePlace();
    /// Tells the object what the window system has made of the window.
    void tellPlace();
    void drag(Control& control);
    /// The dark has gone: the window is as it was before.
    void leaveDark();
    void leaveWholeScreen();

    Form1& form_;
    QtScreen& screen_;
    QMenuBar* bar_;
    QWidget* area_;
    std::unique_ptr<LabMenus> menus_;
    std::unique_ptr<HeldMouse> mouse_;
    std::unique_ptr<Surface> surface_;
    std::vector<std::unique_ptr<ControlFace>> faces_;
    std::vector<std::unique_ptr<ControlWatcher>> watchers_;
    std::unique_ptr<KeyPreview> keys_;
    /// While it is open.
    AboutBox* about_ = nullptr;
    /// What the window system was asked for last, in pixels, frame included.
    QRect asked_;
    bool frameKnown_ = false;

    std::optional<DarkMeans> chosenDarkMeans_;
    /// How the light went off last.
    DarkMeans darkMeans_ = DarkMeans::PaintedChild;
    /// The dark while it is there; a child of this window in the toolkit's sense.
    DimWindow* dimWindow_ = nullptr;
    Qt::WindowStates stateBeforeDark_;
    /// Shows the window where its size does not change at the end of the dark.
    QTimer brightAgain_;
};

}  // namespace quillon
