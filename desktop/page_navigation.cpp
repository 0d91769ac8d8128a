#include "desktop/page_navigation.h"

#include "desktop/page_links.h"

namespace quillon {

namespace {

Verdict goIf(bool allowed) {
    return allowed ? Verdict::Go : Verdict::Stay;
}

bool isPage(const QUrl& url) {
    return url.isLocalFile() || isWebAddress(url);
}

}  // namespace

Verdict verdictOn(const QUrl& from, const QUrl& to, const Navigation& how) {
    const bool fromWeb = isWebAddress(from);
    const bool chosen = how.chooser == Chooser::User;
    if (how.frame == Frame::Inner)
        return goIf(fromWeb ? !to.isLocalFile() : !isWebAddress(to) && !isScript(to));
    if (isScript(to))
        return how.kind == NavigationKind::Link && chosen && from.isLocalFile() ? Verdict::RunScript
                                                                                : Verdict::Stay;
    if (how.kind == NavigationKind::Asked || how.kind == NavigationKind::History)
        return Verdict::Go;
    if (how.kind == NavigationKind::Link && !isPage(to))
        return Verdict::Stay;
    if (fromWeb)
        return goIf(!to.isLocalFile());
    return goIf(!isWebAddress(to) || (chosen && how.kind != NavigationKind::Other));
}

}  // namespace quillon
