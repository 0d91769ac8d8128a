#pragma once

#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>
#include <functional>
#include <memory>

#include "desktop/BrowserPane.h"

namespace quillon {

/// Keeps local pages local: what a page of the disk would fetch from elsewhere
/// is not fetched. A page of the web, which the user has chosen, fetches its own.
class RequestGuard : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

/// A page that goes to the web only where the lab or the user sends it, never by
/// a script of its own, and that hands scripts of the lab over instead of showing
/// them.
class LabPage : public QWebEnginePage {
public:
    LabPage(QWebEngineProfile* profile, std::function<void(const QUrl&)> onScript);

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;

private:
    bool mayGoTo(const QUrl& url, NavigationType type) const;

    std::function<void(const QUrl&)> onScript_;
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
    void navigate(const QUrl& page) override { view_->load(page); }

private:
    void restrict();
    void giveKeysAndMenu();

    RequestGuard guard_;
    QWebEngineProfile profile_;
    QPointer<QWebEngineView> view_;
};

}  // namespace quillon
