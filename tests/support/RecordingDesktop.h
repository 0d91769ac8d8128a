#pragma once

#include <string>
#include <vector>

#include "engine/Desktop.h"
#include "tests/support/CallLog.h"
#include "tests/support/RecordingFiles.h"
#include "tests/support/RecordingServices.h"

namespace quillon {

/// A desktop without a screen: it records what the lab asks of it and gives the
/// answers that a test has queued. C:\Temp exists, as the folder TMP names.
class RecordingDesktop {
public:
    RecordingDesktop() { files.addFolder("C:\\Temp"); }
    RecordingDesktop(const RecordingDesktop&) = delete;
    RecordingDesktop& operator=(const RecordingDesktop&) = delete;

    CallLog calls;
    /// The lines of all calls in order.
    std::vector<std::string>& log = calls.lines;

    RecordingFiles files{calls};
    RecordingDialogs dialogs{calls};
    RecordingPictures pictures{calls, files};
    RecordingClipboard clipboard{calls};
    RecordingTextPainter text{calls};
    RecordingPrinter printer{calls};
    RecordingShell shell{calls};
    RecordingScreen screen{calls};
    RecordingEnvironment environment{calls, files};
    RecordingStringStore store{calls};

    Desktop& desktop() noexcept { return all_; }

private:
    Desktop all_{dialogs, pictures, clipboard,   text,  printer,
                 shell,   screen,   environment, store, files};
};

}  // namespace quillon
