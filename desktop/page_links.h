#pragma once

#include <QUrl>

namespace quillon {

// What a link of a page leads to.

/// A page of the web.
inline bool isWebAddress(const QUrl& url) {
    return url.scheme() == QStringLiteral("http") || url.scheme() == QStringLiteral("https");
}

/// A script beside the pages: it is for the lab, not for the browser.
inline bool isScript(const QUrl& url) {
    return url.isLocalFile() && url.path().endsWith(QStringLiteral(".ftscr"), Qt::CaseInsensitive);
}

}  // namespace quillon
