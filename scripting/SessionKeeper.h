#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/Lab.h"
#include "engine/Desktop.h"
#include "scripting/WriteScript.h"

namespace quillon {

/// Keeps a session against an end that nobody has asked for. Beside the session
/// script it has a snapshot, "snapshot1.ftscr", and a mark, "snapshot1.open": as
/// long as the program runs it holds the mark, so a mark that nobody holds is
/// that of a session that ended without its closing. Labs that run at once have
/// numbers of their own. A session of which nothing was kept leaves no file.
///
/// Nothing here throws: a folder that cannot be written keeps no snapshot.
class SessionKeeper {
public:
    explicit SessionKeeper(Lab& lab) : lab_(lab) {}

    /// The script of the session that ended last without its closing; empty where
    /// there is none. Its mark is gone behind the call, before anybody reads the
    /// script, so that one that brings the program down does so only once. The
    /// marks of other such sessions go too; their scripts stay until a lab takes
    /// their number.
    std::string takeEndedSession();

    /// What is on the screen now can be had again without a snapshot.
    void passOver() { kept_ = sessionContent(lab_); }
    /// Writes the snapshot where anything differs from the last one.
    void writeSnapshot();
    /// The session was closed: the snapshot and its mark go.
    void close();
    /// The session was not closed, though its script was written: the next start
    /// is to take it up.
    void leave();

private:
    std::string path(int number, const char* ending) const;
    std::string takeNewest();
    /// Takes a number, once.
    bool begin();
    void write();

    Lab& lab_;
    int number_ = 0;
    std::unique_ptr<HeldFile> mark_;
    /// What the last snapshot holds.
    std::optional<SessionContent> kept_;
};

}  // namespace quillon
