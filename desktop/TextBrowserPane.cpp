#include <QAction>
#include <QMouseEvent>
#include <QPointer>
#include <QTextBrowser>

#include "desktop/BrowserPane.h"
#include "desktop/page_links.h"

namespace quillon {

namespace {

/// The toolkit's reader goes back and forward by the keyboard alone; here the
/// buttons of the mouse do it too.
class PageReader : public QTextBrowser {
public:
    explicit PageReader(QWidget& parent) : QTextBrowser(&parent) {
        setContextMenuPolicy(Qt::ActionsContextMenu);
        auto* back = new QAction(tr("Back"), this);
        auto* forward = new QAction(tr("Forward"), this);
        back->setEnabled(false);
        forward->setEnabled(false);
        connect(back, &QAction::triggered, this, &QTextBrowser::backward);
        connect(forward, &QAction::triggered, this, &QTextBrowser::forward);
        connect(this, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
        connect(this, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
        auto* copy = new QAction(tr("Copy"), this);
        copy->setEnabled(false);
        connect(copy, &QAction::triggered, this, &QTextEdit::copy);
        connect(this, &QTextEdit::copyAvailable, copy, &QAction::setEnabled);
        addActions({back, forward, copy});
    }

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::BackButton)
            backward();
        else if (event->button() == Qt::ForwardButton)
            forward();
        else
            QTextBrowser::mouseReleaseEvent(event);
    }
};

class TextBrowserPane : public BrowserPane {
public:
    explicit TextBrowserPane(QWidget& parent) : reader_(new PageReader(parent)) {
        reader_->setOpenLinks(false);
        QObject::connect(reader_, &QTextBrowser::anchorClicked, reader_,
                         [this](const QUrl& link) { follow(link); });
        QObject::connect(reader_, &QTextBrowser::sourceChanged, reader_, [this](const QUrl& page) {
            if (onPage)
                onPage(page);
        });
    }
    TextBrowserPane(const TextBrowserPane&) = delete;
    TextBrowserPane& operator=(const TextBrowserPane&) = delete;
    ~TextBrowserPane() override { delete reader_; }

    QWidget& widget() override { return *reader_; }

    void navigate(const QUrl& page) override {
        if (isWebAddress(page)) {
            if (onWebAddress)
                onWebAddress(page);
        } else if (reader_->source() == page) {
            reader_->reload();
        } else {
            reader_->setSource(page, QTextDocument::HtmlResource);
        }
    }
    QUrl page() const override { return reader_->source(); }
    QUrl localPage() const override { return reader_->source(); }

private:
    void follow(const QUrl& link) {
        const QUrl target = reader_->source().resolved(link);
        if (isScript(target)) {
            if (onScript)
                onScript(target);
        } else if (target.isLocalFile() || isWebAddress(target)) {
            navigate(target);
        }
    }

    QPointer<PageReader> reader_;
};

}  // namespace

std::unique_ptr<BrowserPane> makeTextBrowserPane(QWidget& parent) {
    return std::make_unique<TextBrowserPane>(parent);
}

}  // namespace quillon
