#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

namespace quillon {

/// Takes the place of the desktop's handler of files and addresses.
class UrlCatcher : public QObject {
    Q_OBJECT
public:
    UrlCatcher() {
        for (const QString& scheme : schemes())
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~UrlCatcher() override {
        for (const QString& scheme : schemes())
            QDesktopServices::unsetUrlHandler(scheme);
    }
    QList<QUrl> opened;

public Q_SLOTS:
    void open(const QUrl& url) { opened << url; }

private:
    static QStringList schemes() {
        return {QStringLiteral("file"), QStringLiteral("http"), QStringLiteral("https")};
    }
};

}  // namespace quillon
