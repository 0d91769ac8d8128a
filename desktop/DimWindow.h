#pragma once

#include <QPixmap>
#include <QRegion>
#include <QWidget>
#include <array>
#include <functional>

#include "desktop/DarkMeans.h"
#include "desktop/TimerFace.h"
#include "ui/frmDIM.h"

class QLabel;

namespace quillon {

/// Shows the dark: a window over the screen, or a child over the whole main
/// window, as the means ask for. Either has the hole cut out, so that what lies
/// below is seen there and gets the clicks.
class DimWindow : public QWidget, public DimHost, public ControlWatcher {
public:
    /// @param owner the main window
    /// @param gone  called when the dark has gone; the caller then deletes this
    DimWindow(frmDIM& dim, QWidget& owner, DarkMeans means, std::function<void()> gone);
    ~DimWindow() override;

    /// Comes to the front and takes the keyboard.
    void appear();
    /// Covers the main window anew, as a child, after that has changed its size.
    void coverOwner();

    // DimHost
    void setLayeredBit() override;
    void setLayeredAlpha(Integer alpha) override;
    void maximise() override;
    void setWindowRegion(const PixelRect& whole, const PixelRect& hole) override;
    void unloaded() override;

    // ControlWatcher
    void stale(Control& control) override;
    void showNow(Control& control) override { stale(control); }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    bool isChild() const noexcept { return means_ == DarkMeans::PaintedChild; }
    void buildMenu();
    /// The dark's controls are left to the next window.
    void release();
    void cover();
    /// Of the dark on the screen.
    QPoint origin() const;
    /// Whoever gets the keyboard while the light is off, by a click in the hole
    /// or at the end of a dialog, gives it back to the dark.
    void keepKeyboard();
    void takeKeyboard();
    void takeState();
    void cutHole();
    void showAlpha(Integer alpha);

    frmDIM& dim_;
    QWidget& owner_;
    const DarkMeans means_;
    std::function<void()> gone_;
    TimerFace timer_;
    QWidget* menu_ = nullptr;
    std::array<QLabel*, frmDIM::kLabels> labels_{};
    /// The screen as it was, for PaintedScreen.
    QPixmap screen_;
    QRect whole_;
    QRect hole_;
    bool released_ = false;
    bool layered_ = false;
    /// What is shown, 0 to 255.
    Integer alpha_ = 255;
};

}  // namespace quillon
