#pragma once

#include <string>

#include "ui/Ending.h"

namespace quillon {

/// The session as far as the end of the program knows of it. Before its window
/// is built and after it has ended there is nothing to do, and each call returns
/// at once.
class RunningSession {
public:
    virtual ~RunningSession() = default;
    /// Held controls and a batch go on no more.
    virtual void stopWork() = 0;
    /// The script that keeps the session at its end, as a user reads its path;
    /// empty where there is no session.
    virtual std::string keptIn() const = 0;
    /// Keeps the session of this moment. False where the lab is in the midst of
    /// something, so that a moment later is better.
    virtual bool writeSnapshot() = 0;
    /// Writes what the closing writes; the session goes on.
    virtual void keepSession() noexcept = 0;
    /// Runs the closing.
    virtual void endSession(Ending ending) noexcept = 0;
};

}  // namespace quillon
