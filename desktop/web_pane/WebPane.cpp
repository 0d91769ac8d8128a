#include "desktop/web_pane/WebPane.h"

#include <QShortcut>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>
#include <utility>

#include "desktop/page_links.h"

namespace quillon {

void RequestGuard::interceptRequest(QWebEngineUrlRequestInfo& request) {
    // Where a page itself goes has been decided at its navigation.
    if (request.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame)
        return;
    const QString scheme = request.requestUrl().scheme();
    const bool fromHere = scheme == QStringLiteral("file") || scheme == QStringLiteral("data") ||
                          scheme == QStringLiteral("blob");
    if (!fromHere && !isWebAddress(request.firstPartyUrl()))
        request.block(true);
}

LabPage::LabPage(QWebEngineProfile* profile, std::function<void(const QUrl&)> onScript)
    : QWebEnginePage(profile), onScript_(std::move(onScript)) {
    // There is one pane and no second window: a link that asks for one is followed
    // here, if the user has chosen it.
    connect(
        this, &QWebEnginePage::newWindowRequested, this,
        [this](QWebEngineNewWindowRequest& request) {
            if (request.isUserInitiated() &&
                acceptNavigationRequest(request.requestedUrl(), NavigationTypeLinkClicked, true))
                setUrl(request.requestedUrl());
        });
}

bool LabPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    if (!isMainFrame)
        return !isWebAddress(url) || isWebAddress(this->url());
    if (!isScript(url))
        return mayGoTo(url, type);
    if (type == NavigationTypeLinkClicked && this->url().isLocalFile())
        onScript_(url);
    return false;
}

bool LabPage::mayGoTo(const QUrl& url, NavigationType type) const {
    switch (type) {
        case NavigationTypeTyped:  // the lab itself
        case NavigationTypeBackForward:
        case NavigationTypeReload:
            return true;
        case NavigationTypeLinkClicked:
            return url.isLocalFile() || isWebAddress(url);
        default:
            return isWebAddress(url) == isWebAddress(this->url());
    }
}

WebPane::WebPane(QWidget& parent) : view_(new QWebEngineView(&parent)) {
    restrict();
    auto* page = new LabPage(&profile_, [this](const QUrl& script) {
        if (onScript)
            onScript(script);
    });
    view_->setPage(page);
    page->setParent(view_);
    QObject::connect(page, &QWebEnginePage::renderProcessTerminated, view_,
                     [this](QWebEnginePage::RenderProcessTerminationStatus status) {
                         if (status != QWebEnginePage::NormalTerminationStatus && onBroken)
                             onBroken();
                     });
    giveKeysAndMenu();
}

WebPane::~WebPane() {
    // Before its profile.
    delete view_;
}

void WebPane::restrict() {
    // A profile without a name keeps nothing on the disk.
    profile_.setUrlRequestInterceptor(&guard_);
    profile_.setSpellCheckEnabled(false);
    QWebEngineSettings& settings = *profile_.settings();
    settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    settings.setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
    settings.setAttribute(QWebEngineSettings::DnsPrefetchEnabled, false);
    settings.setAttribute(QWebEngineSettings::HyperlinkAuditingEnabled, false);
    settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
}

void WebPane::giveKeysAndMenu() {
    const auto onKeys = [this](const QKeySequence& keys, QWebEnginePage::WebAction action) {
        auto* shortcut = new QShortcut(keys, view_);
        // Of the whole window while the pane is on show: a page from elsewhere has
        // a new process and a new widget, and the keyboard may not be there yet.
        shortcut->setContext(Qt::WindowShortcut);
        QObject::connect(shortcut, &QShortcut::activated, view_,
                         [this, action] { view_->triggerPageAction(action); });
    };
    onKeys(Qt::ALT | Qt::Key_Left, QWebEnginePage::Back);
    onKeys(Qt::ALT | Qt::Key_Right, QWebEnginePage::Forward);
    view_->setContextMenuPolicy(Qt::ActionsContextMenu);
    for (const QWebEnginePage::WebAction action : {QWebEnginePage::Back, QWebEnginePage::Forward,
                                                   QWebEnginePage::Reload, QWebEnginePage::Copy})
        view_->addAction(view_->pageAction(action));
}

}  // namespace quillon
