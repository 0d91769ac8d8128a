#pragma once

#include <string>

#include "app/Lab.h"

namespace quillon {

/// What became of a session whose own script could not be written.
struct SessionRescue {
    enum class Result { Kept, Lost };
    Result result = Result::Lost;
    /// What to say to the user: the script that failed and why, and where the
    /// session is now.
    std::string text;
};

/// Writes the session, script and pictures, into a new folder of its own under
/// TMP: "quillon-session-1", or the first number that is free, so that no earlier
/// rescue is overwritten and nobody can have planted a file there.
///
/// @param script the path that could not be written
/// @param why    the description of that failure
/// Never throws; a rescue that fails too is part of the text.
SessionRescue rescueSession(Lab& lab, const std::string& script, const std::string& why);

}  // namespace quillon
