#pragma once

#include <string>

#include "app/Lab.h"

namespace quillon {

/// The title of every script that keeps a session.
inline constexpr const char* kSessionTitle = "Last Images";

/// The script that a session leaves behind: "last.ftscr" in the script folder. All
/// labs of a user write the same one, and of two at once the later closing wins.
class SessionScript {
public:
    explicit SessionScript(Lab& lab) : lab_(lab) {}

    std::string path() const { return lab_.folders.ScriptPath + "last.ftscr"; }

    /// The session begins: what stands there now belongs to a session before it.
    void begin();

    /// Writes the session. A script that came there since the beginning is another
    /// lab's, and is first kept as "earlier.ftscr". Throws RunTimeError where the
    /// one cannot be kept or the other not be written; both are then as before.
    void write(const std::string& title);

private:
    Lab& lab_;
    /// What stood there at the beginning, or what this lab has written since.
    std::string known_;
};

}  // namespace quillon
