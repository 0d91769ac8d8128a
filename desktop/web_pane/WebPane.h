#pragma once

#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>
#include <functional>
#include <memory>

#include "desktop/BrowserPane.h"
#include "desktop/page_navigation.h"

namespace quillon {

/// Keeps local pages local: what a page of the disk would fetch from elsewhere
/// is not fetched. A page of the web, which the user has chosen, fetches its own.
class RequestGuard : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

/// Sees the presses in a pane's widget, and in those that the engine puts into
/// it, before the page does.
class GestureWatch : public QObject {
public:
    explicit GestureWatch(QWidget& pane);
    /// Whether a link that is followed now is the user's; true once for each press.
    bool take() { return gesture_.take(std::chrono::steady_clock::now()); }

protected:
    bool eventFilter(QObject* seen, QEvent* event) override;

private:
    UserGesture gesture_;
};

/// A page that goes to the web only where the lab or the user sends it, never by
/// a script of its own, and that hands scripts of the lab over instead of showing
/// them.
class LabPage : public QWebEnginePage {
public:
    LabPage(QWebEngineProfile* profile, GestureWatch& gestures,
            std::function<void(const QUrl&)> onScript);

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;

private:
    /// Who has sent the page to where it is asked to go.
    Chooser chooserOf(NavigationKind kind);

    GestureWatch& gestures_;
    std::function<void(const QUrl&)> onScript_;
    /// Of the navigation under way, for the redirects that it meets.
    Chooser underWay_ = Chooser::Page;
};

/// The browser: pages as their authors made them, scripts of theirs included.
/// It keeps nothing on the disk.
class WebPane : public BrowserPane {
public:
    explicit WebPane(QWidget& parent);
    WebPane(const WebPane&) = delete;
    WebPane& operator=(const WebPane&) = delete;
    ~WebPane() override;

    QWidget& widget() override { return *view_; }
    void navigate(const QUrl& page) override;
    QUrl page() const override { return page_; }
    QUrl localPage() const override { return localPage_; }

private:
    void restrict();
    void withholdChannels();
    void followLoads(QWebEnginePage& page);
    void followBreakdowns(QWebEnginePage& page);
    void take(const QUrl& page);
    void giveKeysAndMenu();

    RequestGuard guard_;
    QWebEngineProfile profile_;
    QPointer<QWebEngineView> view_;
    QUrl page_;
    QUrl localPage_;
    enum class FirstLoad { NotBegun, UnderWay, Over };
    FirstLoad firstLoad_ = FirstLoad::NotBegun;
    /// Asked for during the first load.
    QUrl next_;
};

}  // namespace quillon
