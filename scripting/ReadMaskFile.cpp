#include "scripting/ReadMaskFile.h"

#include <array>

#include "engine/NativePaths.h"
#include "engine/mFFTUTIL.h"
#include "scripting/script_text.h"

namespace quillon {

void ReadMaskFile(Lab& lab, Integer panel, const std::string& path) {
    Files& files = lab.desktop.files;
    if (!FileExists(files, path)) {
        lab.desktop.dialogs.messageBox("File not found:\n" + shownPath(path), "Script Error",
                                       MessageIcon::Exclamation, MessageButtons::Ok);
        return;
    }
    clComplexImage& channel = lab.channelOf(panel);
    LineReader lines(files.read(path));
    while (!lines.atEnd()) {
        const std::string line = withoutOuterBlanks(lines.next());
        if (isSilent(line))
            continue;
        const std::array<Integer, 4> corners = maskCorners(SplitWords(withPointsAndBlanks(line)));
        channel.AddMask(corners[0], corners[1], corners[2], corners[3]);
    }
}

}  // namespace quillon
