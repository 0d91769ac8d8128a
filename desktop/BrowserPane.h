#pragma once

#include <QUrl>
#include <chrono>
#include <functional>
#include <memory>

class QWidget;

namespace quillon {

/// What shows the pages of the tutorial.
class BrowserPane {
public:
    virtual ~BrowserPane() = default;
    /// The pane's widget; its parent owns it too.
    virtual QWidget& widget() = 0;
    /// Shows a page, of a file or of the web. A page that is not there shows as
    /// the pane shows such a page.
    virtual void navigate(const QUrl& page) = 0;

    /// The page of the disk or of the web that is or was shown last; none before
    /// the first.
    virtual QUrl page() const = 0;
    /// The same, of the disk alone.
    virtual QUrl localPage() const = 0;

    /// Called when the user has chosen a link of a local page to a script; the
    /// page stays.
    std::function<void(const QUrl& script)> onScript;
    /// Called for a page of the web by a pane that shows none itself.
    std::function<void(const QUrl& address)> onWebAddress;
    /// Called when another page is shown, whoever has chosen it.
    std::function<void(const QUrl& page)> onPage;
    /// Called when the pane has broken down and shows nothing any more. It works
    /// again from the next page on that it is sent to.
    std::function<void()> onBroken;
};

/// Makes the pane inside a parent, when it is first to be seen.
using BrowserPaneMaker = std::function<std::unique_ptr<BrowserPane>(QWidget& parent)>;

/// The time by which restarts of a pane are counted.
using PaneClock = std::function<std::chrono::steady_clock::time_point()>;

/// A plain reader of pages without scripts. Addresses of the web open in the
/// user's own browser.
std::unique_ptr<BrowserPane> makeTextBrowserPane(QWidget& parent);

/// A full browser, from the module that is loaded when one is first wanted:
/// nothing of the engine is in the process before. Nothing where the module or
/// the engine is not there or cannot work here.
std::unique_ptr<BrowserPane> makeWebPane(QWidget& parent);

/// The full browser, or the plain reader where that is not to be had.
std::unique_ptr<BrowserPane> makeBrowserPane(QWidget& parent);

/// Where a window gets the tutorial's pane from.
struct BrowserSource {
    BrowserPaneMaker make = makeBrowserPane;
    PaneClock now = std::chrono::steady_clock::now;
};

}  // namespace quillon
