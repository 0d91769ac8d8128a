#pragma once

#include <memory>

#include "desktop/BrowserPane.h"
#include "ui/Controls.h"

class QWidget;

namespace quillon {

/// Shows the tutorial's pane when the control is first visible, and sends it to
/// the page that was asked for last.
class BrowserFace : public ControlWatcher {
public:
    BrowserFace(Browser& browser, QWidget& parent, BrowserPaneMaker maker);
    BrowserFace(const BrowserFace&) = delete;
    BrowserFace& operator=(const BrowserFace&) = delete;
    ~BrowserFace() override;

    void stale(Control& control) override;
    void showNow(Control& control) override { stale(control); }

private:
    void makePane();

    Browser& browser_;
    QWidget& parent_;
    BrowserPaneMaker maker_;
    std::unique_ptr<BrowserPane> pane_;
    Long shownRequest_ = 0;
};

}  // namespace quillon
