#include <QDesktopServices>
#include <QTextBrowser>
#include <QUrl>

#include "desktop/BrowserPane.h"
#include "desktop/Conversions.h"

namespace quillon {

namespace {

bool isWebAddress(const QUrl& url) {
    return url.scheme() == QStringLiteral("http") || url.scheme() == QStringLiteral("https");
}

class TextBrowserPane : public BrowserPane {
public:
    explicit TextBrowserPane(QWidget& parent) : browser_(new QTextBrowser(&parent)) {
        browser_->setOpenExternalLinks(true);
    }

    QWidget& widget() override { return *browser_; }

    void navigate(const std::string& address) override {
        const QUrl url(toQString(address));
        if (isWebAddress(url))
            QDesktopServices::openUrl(url);
        else
            browser_->setSource(QUrl::fromLocalFile(toNativePath(address)),
                                QTextDocument::HtmlResource);
    }

private:
    QTextBrowser* browser_;
};

}  // namespace

std::unique_ptr<BrowserPane> makeTextBrowserPane(QWidget& parent) {
    return std::make_unique<TextBrowserPane>(parent);
}

}  // namespace quillon
