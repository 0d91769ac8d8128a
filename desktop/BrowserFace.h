#pragma once

#include <QObject>
#include <chrono>
#include <memory>
#include <optional>

#include "desktop/BrowserPane.h"
#include "ui/Controls.h"

class QWidget;

namespace quillon {

class Form1;

/// Shows the tutorial's pane when the control is first visible, and sends it to
/// the page that was asked for last. Where links lead from there is written back to
/// the control. A script that a page leads to goes to the window's object.
class BrowserFace : public QObject, public ControlWatcher {
public:
    BrowserFace(Form1& form, Browser& browser, QWidget& parent, BrowserSource source);
    BrowserFace(const BrowserFace&) = delete;
    BrowserFace& operator=(const BrowserFace&) = delete;
    ~BrowserFace() override;

    void stale(Control& control) override;
    void showNow(Control& control) override { stale(control); }

private:
    void take(std::unique_ptr<BrowserPane> pane);
    void followState();
    /// A pane that has broken down shows its page again; it does so once a minute.
    void recover();
    /// A pane that breaks down sooner than that makes room for the plain reader,
    /// which shows the page of the disk that was on show.
    void replaceBroken();

    Form1& form_;
    Browser& browser_;
    QWidget& parent_;
    BrowserSource source_;
    std::unique_ptr<BrowserPane> pane_;
    Long shownRequest_ = 0;
    std::optional<std::chrono::steady_clock::time_point> restarted_;
};

}  // namespace quillon
