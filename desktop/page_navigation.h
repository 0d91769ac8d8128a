#pragma once

#include <QUrl>
#include <chrono>

namespace quillon {

// Where the pages of the pane may lead.

enum class Frame { Whole, Inner };

/// How a page is asked for.
enum class NavigationKind {
    /// By the lab itself.
    Asked,
    /// Back, forward, or the same page again.
    History,
    /// By a link: the user's click or one that a script makes.
    Link,
    /// By an answer that says that the page lies elsewhere.
    Redirect,
    /// By a form, a script or the page's own head.
    Other
};

enum class Chooser { User, Page };

struct Navigation {
    Frame frame = Frame::Whole;
    NavigationKind kind = NavigationKind::Asked;
    Chooser chooser = Chooser::Page;
};

enum class Verdict { Go, RunScript, Stay };

/// A page of the disk gets to the web, and a script of the lab is run, only by a
/// link that the user has chosen. For a redirect the chooser is that of the link
/// it began with. No page of the web reaches the disk.
Verdict verdictOn(const QUrl& from, const QUrl& to, const Navigation& how);

/// The press of a button or key that lets a link count as chosen by the user:
/// one link for each press, and soon after it.
class UserGesture {
public:
    using Time = std::chrono::steady_clock::time_point;
    /// Long enough for a page whose process is busy.
    static constexpr std::chrono::milliseconds kLasts{2000};

    void press(Time now) {
        last_ = now;
        open_ = true;
    }
    /// A button may be held for long; its release is when the link is followed.
    void release(Time now) { last_ = now; }
    /// Whether a link is the user's now. It is the only one of its press.
    bool take(Time now) {
        const bool chosen = open_ && now - last_ <= kLasts;
        open_ = false;
        return chosen;
    }

private:
    Time last_;
    bool open_ = false;
};

}  // namespace quillon
