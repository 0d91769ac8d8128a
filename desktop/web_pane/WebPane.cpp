#include "desktop/web_pane/WebPane.h"

#include <QChildEvent>
#include <QShortcut>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
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
    if (scheme == QStringLiteral("data") || scheme == QStringLiteral("blob"))
        return;
    // A page of the disk shows pictures, styles and scripts beside it; what other
    // files say is not for its scripts.
    if (scheme == QStringLiteral("file"))
        request.block(request.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeXhr);
    else if (!isWebAddress(request.firstPartyUrl()))
        request.block(true);
}

GestureWatch::GestureWatch(QWidget& pane) : QObject(&pane) {
    pane.installEventFilter(this);
    for (QWidget* part : pane.findChildren<QWidget*>())
        part->installEventFilter(this);
}

bool GestureWatch::eventFilter(QObject* seen, QEvent* event) {
    const auto now = std::chrono::steady_clock::now();
    switch (event->type()) {
        case QEvent::ChildAdded:
            // A page from elsewhere comes with a new widget.
            if (QObject* part = static_cast<QChildEvent*>(event)->child(); part->isWidgetType())
                part->installEventFilter(this);
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::TouchBegin:
            gesture_.press(now);
            break;
        case QEvent::MouseButtonRelease:
        case QEvent::TouchEnd:
            gesture_.release(now);
            break;
        default:
            break;
    }
    return QObject::eventFilter(seen, event);
}

namespace {

NavigationKind kindOf(QWebEnginePage::NavigationType type) {
    switch (type) {
        case QWebEnginePage::NavigationTypeTyped:
            return NavigationKind::Asked;
        case QWebEnginePage::NavigationTypeBackForward:
        case QWebEnginePage::NavigationTypeReload:
            return NavigationKind::History;
        case QWebEnginePage::NavigationTypeLinkClicked:
            return NavigationKind::Link;
        case QWebEnginePage::NavigationTypeRedirect:
            return NavigationKind::Redirect;
        default:
            return NavigationKind::Other;
    }
}

}  // namespace

LabPage::LabPage(QWebEngineProfile* profile, GestureWatch& gestures,
                 std::function<void(const QUrl&)> onScript)
    : QWebEnginePage(profile), gestures_(gestures), onScript_(std::move(onScript)) {
    // There is one pane and no second window: a link that asks for one is followed
    // here, if the user has chosen it.
    connect(
        this, &QWebEnginePage::newWindowRequested, this,
        [this](QWebEngineNewWindowRequest& request) {
            if (request.isUserInitiated() &&
                acceptNavigationRequest(request.requestedUrl(), NavigationTypeLinkClicked, true))
                setUrl(request.requestedUrl());
        });
    connect(this, &QWebEnginePage::loadFinished, this, [this] { underWay_ = Chooser::Page; });
}

Chooser LabPage::chooserOf(NavigationKind kind) {
    if (kind == NavigationKind::Redirect)
        return underWay_;
    const bool chosen = gestures_.take();
    // What the lab asks for has been chosen from its menu.
    return chosen || kind == NavigationKind::Asked ? Chooser::User : Chooser::Page;
}

bool LabPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    Navigation how{isMainFrame ? Frame::Whole : Frame::Inner, kindOf(type), Chooser::Page};
    if (isMainFrame)
        how.chooser = chooserOf(how.kind);
    const Verdict verdict = verdictOn(this->url(), url, how);
    if (verdict == Verdict::RunScript)
        onScript_(url);
    else if (verdict == Verdict::Go && isMainFrame)
        // Only what has gone to the web may be sent on there.
        underWay_ = isWebAddress(url) ? how.chooser : Chooser::Page;
    return verdict == Verdict::Go;
}

WebPane::WebPane(QWidget& parent) : view_(new QWebEngineView(&parent)) {
    restrict();
    auto* page = new LabPage(&profile_, *new GestureWatch(*view_), [this](const QUrl& script) {
        if (onScript)
            onScript(script);
    });
    view_->setPage(page);
    page->setParent(view_);
    followLoads(*page);
    followBreakdowns(*page);
    giveKeysAndMenu();
}

void WebPane::followLoads(QWebEnginePage& page) {
    QObject::connect(&page, &QWebEnginePage::urlChanged, view_, [this](const QUrl& url) {
        take(url);
        if (onPage)
            onPage(url);
    });
    QObject::connect(&page, &QWebEnginePage::loadFinished, view_, [this] {
        if (std::exchange(firstLoad_, FirstLoad::Over) == FirstLoad::UnderWay && next_.isValid())
            view_->load(next_);
    });
}

void WebPane::followBreakdowns(QWebEnginePage& page) {
    QObject::connect(&page, &QWebEnginePage::renderProcessTerminated, view_,
                     [this](QWebEnginePage::RenderProcessTerminationStatus status) {
                         if (status == QWebEnginePage::NormalTerminationStatus)
                             return;
                         // The load under way ends with the process, and a page that
                         // waits for its end would wait for ever.
                         if (firstLoad_ == FirstLoad::UnderWay && next_.isValid())
                             take(next_);
                         firstLoad_ = FirstLoad::Over;
                         if (onBroken)
                             onBroken();
                     });
}

void WebPane::take(const QUrl& page) {
    if (page.isLocalFile())
        localPage_ = page;
    if (page.isLocalFile() || isWebAddress(page))
        page_ = page;
}

void WebPane::navigate(const QUrl& page) {
    take(page);
    // The page that the pane has kept since the start is its first one, even where
    // a link opens the pane: it is not given up half loaded, so that "back" leads
    // to it.
    if (firstLoad_ == FirstLoad::UnderWay) {
        next_ = page;
        return;
    }
    if (firstLoad_ == FirstLoad::NotBegun)
        firstLoad_ = page.isLocalFile() ? FirstLoad::UnderWay : FirstLoad::Over;
    view_->load(page);
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
    settings.setAttribute(QWebEngineSettings::WebRTCPublicInterfacesOnly, true);
    settings.setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
    settings.setAttribute(QWebEngineSettings::DnsPrefetchEnabled, false);
    settings.setAttribute(QWebEngineSettings::HyperlinkAuditingEnabled, false);
    settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
    settings.setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    withholdChannels();
}

void WebPane::withholdChannels() {
    // These go out past the guard of the requests.
    QWebEngineScript script;
    script.setSourceCode(
        QStringLiteral("if (!/^https?:$/.test(location.protocol))"
                       " for (const name of ['RTCPeerConnection', 'webkitRTCPeerConnection',"
                       " 'WebTransport']) delete globalThis[name];"));
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(QWebEngineScript::MainWorld);
    script.setRunsOnSubFrames(true);
    profile_.scripts()->insert(script);
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
