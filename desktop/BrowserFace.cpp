#include "desktop/BrowserFace.h"

#include <QUrl>
#include <QWidget>
#include <utility>

#include "desktop/Conversions.h"
#include "desktop/page_links.h"
#include "ui/Form1.h"

namespace quillon {

namespace {

/// The page of an address as the lab writes it: one of the web, or a file's path.
QUrl pageOf(const std::string& address) {
    const QUrl url(toQString(address));
    return isWebAddress(url) ? url : QUrl::fromLocalFile(toNativePath(address));
}

}  // namespace

BrowserFace::BrowserFace(Form1& form, Browser& browser, QWidget& parent, BrowserPaneMaker maker)
    : form_(form), browser_(browser), parent_(parent), maker_(std::move(maker)) {
    browser_.watch(this);
}

BrowserFace::~BrowserFace() {
    browser_.watch(nullptr);
}

void BrowserFace::take(std::unique_ptr<BrowserPane> pane) {
    pane_ = std::move(pane);
    pane_->widget().setObjectName(toQString(browser_.Name));
    pane_->widget().setAccessibleName(QStringLiteral("Tutorial"));
    // Made last, but it lies below the controls made before it.
    pane_->widget().lower();
    pane_->onWebAddress = [this](const QUrl& address) {
        form_.OpenWebAddress(toBytes(address.toString(QUrl::FullyEncoded)));
    };
    // Both come in the midst of the pane's own work; what follows may take long,
    // and may take the pane away.
    pane_->onScript = [this](const QUrl& script) {
        QMetaObject::invokeMethod(
            this, [this, script] { form_.RunTutorialScript(toLabPath(script.toLocalFile())); },
            Qt::QueuedConnection);
    };
    pane_->onBroken = [this] {
        QMetaObject::invokeMethod(
            this, [this] { replaceBroken(); }, Qt::QueuedConnection);
    };
}

void BrowserFace::stale(Control& /*control*/) {
    // A pane that nobody has seen yet costs nothing: it goes straight to the last
    // page when it is made.
    if (!pane_ && !browser_.Visible)
        return;
    if (!pane_)
        take(maker_(parent_));
    followState();
}

void BrowserFace::followState() {
    QWidget& widget = pane_->widget();
    widget.setGeometry(placeOf(browser_));
    const bool appears = browser_.Visible && widget.isHidden();
    widget.setVisible(browser_.Visible);
    // Arrows and page keys read on at once.
    if (appears)
        widget.setFocus();
    if (shownRequest_ != browser_.Requests) {
        shownRequest_ = browser_.Requests;
        pane_->navigate(pageOf(browser_.Address));
    }
}

void BrowserFace::replaceBroken() {
    const QUrl page = pane_->localPage();
    take(makeTextBrowserPane(parent_));
    followState();
    // Not the page asked for last: that may lie in the web, and the reader would
    // open the user's own browser unasked.
    if (page.isLocalFile())
        pane_->navigate(page);
}

}  // namespace quillon
