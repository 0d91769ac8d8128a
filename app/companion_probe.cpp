#include "app/companion_probe.h"

#include "app/mREGISTRY.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

void probeCompanion(Desktop& desktop) {
    const std::string program = GetRegistryString(desktop.store, kCompanionKey, "EXE");
    if (!FileExists(desktop.files, program))
        OpenInBrowser(desktop.shell, kCompanionPage);
}

}  // namespace quillon
