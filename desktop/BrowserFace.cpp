#include "desktop/BrowserFace.h"

#include <QUrl>
#include <QWidget>
#include <utility>

#include "desktop/Conversions.h"
#include "desktop/page_links.h"
#include "ui/Form1.h"
#include "ui/tutorial_pages.h"

namespace quillon {

namespace {

/// A page that the engine cannot show ends it again at once, and that must come to
/// an end.
constexpr std::chrono::minutes kBetweenRestarts{1};

/// The page of an address as the lab writes it: one of the web, or a file's path.
QUrl pageOf(const std::string& address) {
    const QUrl url(toQString(address));
    if (isWebAddress(url))
        return url;
    const PageAddress page = pageAddress(address);
    QUrl local = QUrl::fromLocalFile(toNativePath(page.file));
    if (!page.place.empty())
        local.setFragment(toQString(page.place));
    return local;
}

/// The other way round.
std::string addressOf(const QUrl& page) {
    if (!page.isLocalFile())
        return toBytes(page.toString());
    return PageAddress{toLabPath(page.toLocalFile()), toBytes(page.fragment())}.text();
}

}  // namespace

BrowserFace::BrowserFace(Form1& form, Browser& browser, QWidget& parent, BrowserSource source)
    : form_(form), browser_(browser), parent_(parent), source_(std::move(source)) {
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
    pane_->onPage = [this](const QUrl& page) { browser_.Location = addressOf(page); };
    // Both come in the midst of the pane's own work; what follows may take long,
    // and may take the pane away.
    pane_->onScript = [this](const QUrl& script) {
        QMetaObject::invokeMethod(
            this, [this, script] { form_.RunTutorialScript(toLabPath(script.toLocalFile())); },
            Qt::QueuedConnection);
    };
    pane_->onBroken = [this, broken = pane_.get()] {
        const auto unlessReplaced = [this, broken] {
            if (pane_.get() == broken)
                recover();
        };
        QMetaObject::invokeMethod(this, unlessReplaced, Qt::QueuedConnection);
    };
}

void BrowserFace::stale(Control& /*control*/) {
    // A pane that nobody has seen yet costs nothing: it goes straight to the last
    // page when it is made.
    if (!pane_ && !browser_.Visible)
        return;
    if (!pane_)
        take(source_.make(parent_));
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
        // The plain reader keeps its page where the one asked for opens outside.
        browser_.Location = addressOf(pane_->page());
    }
}

void BrowserFace::recover() {
    const auto now = source_.now();
    if (restarted_ && now - *restarted_ < kBetweenRestarts)
        return replaceBroken();
    restarted_ = now;
    const QUrl page = pane_->page();
    pane_->navigate(page.isValid() ? page : pageOf(browser_.Address));
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
