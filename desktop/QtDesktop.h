#pragma once

#include "desktop/QtClipboard.h"
#include "desktop/QtDialogs.h"
#include "desktop/QtEnvironment.h"
#include "desktop/QtPictures.h"
#include "desktop/QtPrinter.h"
#include "desktop/QtScreen.h"
#include "desktop/QtShell.h"
#include "desktop/QtStringStore.h"
#include "desktop/QtTextPainter.h"
#include "engine/NativeFiles.h"

namespace quillon {

/// All services of the desktop the program runs on.
class QtDesktop {
public:
    explicit QtDesktop(FileDialogStyle fileDialogs = FileDialogStyle::Native)
        : dialogs(fileDialogs) {}
    QtDesktop(const QtDesktop&) = delete;
    QtDesktop& operator=(const QtDesktop&) = delete;

    NativeFiles files;
    QtDialogs dialogs;
    QtPictures pictures{files};
    QtClipboard clipboard;
    QtTextPainter text;
    QtPrinter printer;
    QtShell shell;
    QtScreen screen;
    QtEnvironment environment;
    QtStringStore store;

    Desktop desktop() {
        return {dialogs, pictures, clipboard,   text,  printer,
                shell,   screen,   environment, store, files};
    }
};

}  // namespace quillon
