#pragma once

#include <string>

#include "app/Lab.h"
#include "engine/Control.h"
#include "scripting/FileListBox.h"
#include "scripting/ScriptHost.h"

namespace quillon {

/// The parts of the window that a batch works with: the frames of channel 1's
/// panels, whose captions tell how far it is, and what asks it to stop.
struct BatchWindow {
    FileListBox& File1;
    Control& fr1;
    Control& fr2;
    Control& fr3;
    bool& bStopBatch;
    /// A batch is under way: a second one would replace its list.
    bool& running;
};

/// Asks for one image as a sample of a folder and a file type, then runs the
/// folder. A cancelled dialog ends it without a word; for any failure before the run
/// the strip says why. While a batch is under way, from its dialog on, a second one
/// does not begin; the message cell says so.
void BatchCommand(Lab& lab, ScriptHost& host, const BatchWindow& window);

/// Runs every file of File1's pattern in File1's folder through channel 1, in
/// the order of the names, after a question. `folder` is put before the names
/// and ends in a backslash. Beside each file come its spectrum
/// ("_batch1.bmp"), the surface ("_batch2.bmp") and the three panels side by
/// side ("_batch3.bmp"); the file's own name stays whole before these.
///
/// Every step that fails is skipped: an unreadable file gets the pictures of the
/// one before it and counts as processed. Of the files that could not be read or
/// written the strip names the last. bStopBatch ends the run after the
/// image in progress. Does not begin either while a batch is under way. Throws
/// RunTimeError where the folder cannot be listed.
void RunBatch(Lab& lab, ScriptHost& host, const BatchWindow& window, const std::string& folder);

}  // namespace quillon
