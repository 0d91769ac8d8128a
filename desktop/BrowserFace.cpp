#include "desktop/BrowserFace.h"

#include <QWidget>
#include <utility>

#include "desktop/Conversions.h"
#include "ui/Form1.h"

namespace quillon {

BrowserFace::BrowserFace(Browser& browser, QWidget& parent, BrowserPaneMaker maker)
    : browser_(browser), parent_(parent), maker_(std::move(maker)) {
    browser_.watch(this);
}

BrowserFace::~BrowserFace() {
    browser_.watch(nullptr);
}

void BrowserFace::makePane() {
    pane_ = maker_(parent_);
    pane_->widget().setObjectName(toQString(browser_.Name));
    pane_->widget().setAccessibleName(QStringLiteral("Tutorial"));
    // Made last, but it lies below the controls made before it.
    pane_->widget().lower();
}

void BrowserFace::stale(Control& /*control*/) {
    if (!pane_) {
        // A pane that nobody has seen yet costs nothing: it goes straight to the
        // last page when it is made.
        if (!browser_.Visible)
            return;
        makePane();
    }
    pane_->widget().setGeometry(placeOf(browser_));
    pane_->widget().setVisible(browser_.Visible);
    if (shownRequest_ != browser_.Requests) {
        shownRequest_ = browser_.Requests;
        pane_->navigate(browser_.Address);
    }
}

}  // namespace quillon
