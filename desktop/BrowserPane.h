#pragma once

#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace quillon {

/// What shows the pages of the tutorial.
class BrowserPane {
public:
    virtual ~BrowserPane() = default;
    /// The pane's widget; its parent owns it.
    virtual QWidget& widget() = 0;
    /// Shows a page: an address of the web, or the path of a file as the lab
    /// writes it. A page that is not there shows as the pane shows such a page.
    virtual void navigate(const std::string& address) = 0;
};

/// Makes the pane inside a parent, when it is first to be seen.
using BrowserPaneMaker = std::function<std::unique_ptr<BrowserPane>(QWidget& parent)>;

/// A plain reader of pages without scripts. Addresses of the web open in the
/// user's own browser.
std::unique_ptr<BrowserPane> makeTextBrowserPane(QWidget& parent);

}  // namespace quillon
