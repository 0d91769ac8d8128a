#pragma once

#include "app/Folders.h"
#include "engine/Desktop.h"

namespace quillon {

/// Makes the user's folders where they are missing and fills each new one with
/// the demonstration files that lie beside the program. Files go only into a
/// folder that is itself new: one that the user has emptied stays empty, and a
/// file that is there already is kept, unless it is empty. A new folder gets its
/// name when it is complete: a start that is killed or a disk that runs full in
/// the midst of it leaves no part of the files, and the next start begins anew.
///
/// The user is told before the first folder is made. A failure is told in a
/// dialog and ends the set-up; it never reaches the caller.
void setUpFolders(Desktop& desktop, const Folders& folders);

}  // namespace quillon
