#pragma once

#include <string>

#include "app/Lab.h"
#include "engine/Numbers.h"
#include "scripting/ScriptHost.h"

namespace quillon {

// Scripts (.ftscr) set up both channels: images, filters, inverted panels, saved
// panels, and whole-session commands at the end. Panel ids below 4 mean channel
// 1, from 4 on channel 2.

/// Runs a script, from the neutral state of ResetForScript on. Commands run as
/// they are read, but inverts, EXIT and the combining commands wait for the end:
/// then each channel that has a file is recomputed and inverted, and the others
/// follow in a fixed order, each once. What a script saves is hence what the
/// panels show before that.
///
/// A missing image ends the reading with one dialog, and the waiting commands
/// still run. Any other failure ends the run at once with "Error in Read Script:
/// [KEYWORD]description". Only the failures of ResetForScript reach the caller.
void ReadScript(Lab& lab, ScriptHost& host, const std::string& path);

/// Brings both channels to a neutral state: no filter, no invert flag and mark,
/// magnitude view; then everything is recalculated. The image panels keep their
/// pixels, so a picture that was inverted stays so.
void ResetForScript(Lab& lab, ScriptHost& host);

/// Chooses a filter as the FT menu does: 1 none, 2 low-pass, 3 high-pass, both
/// with the given radius laid over the menu's own, 4 custom masks, the list
/// emptied. Any other mode does nothing.
void SetFilterMode(Lab& lab, ScriptHost& host, Integer panel, Integer mode, Single radius);

/// Checks "Invert Image" of a channel's panel and inverts it: kind 1 image, 2
/// FT, 3 reconstruction.
void ApplyInvert(ScriptHost& host, Integer panel, Integer kind);

}  // namespace quillon
