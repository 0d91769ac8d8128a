#pragma once

#include <string>

#include "app/Lab.h"
#include "scripting/ScriptHost.h"

namespace quillon {

// The commands of the Scripts menu. An empty file name shows the dialog. A failure
// ends a command at once, and the strip says what was not done and why; a cancelled
// file dialog ends it without a word.

/// Shows the panels and runs a script.
void LoadScriptCommand(Lab& lab, ScriptHost& host, const std::string& file);

/// Asks for a title and writes a script. A cancelled title is an empty one.
void SaveScriptCommand(Lab& lab, const std::string& file);

/// Opens a script in the desktop's text editor, without waiting for it. The
/// dialog offers the name that the last dialog left.
void EditScriptCommand(Lab& lab);

}  // namespace quillon
