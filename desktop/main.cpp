#include <QIcon>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "desktop/DesktopApplication.h"
#include "desktop/LabWindow.h"
#include "desktop/QtDesktop.h"
#include "desktop/SessionGuard.h"
#include "engine/Version.h"

int main(int argc, char** argv) {
    using namespace quillon;
    if (argc == 2 && std::string_view(argv[1]) == "--version") {
        std::printf("Quillon %s\n", kVersionText);
        return EXIT_SUCCESS;
    }
    DesktopApplication application(argc, argv);
    DesktopApplication::setWindowIcon(QIcon(QStringLiteral(":/quillon.png")));
    QtDesktop services;
    application.setDialogs(services.dialogs);
    Desktop desktop = services.desktop();
    LabWindow lab(desktop, services.screen, &services.dialogs);
    lab.keepSessions();
    const SessionGuard guard(application, lab);
    Main(desktop, lab);
    // A start that failed before its window leaves nothing to be used, and a
    // script may have closed the session already.
    if (lab.isClosed() || !lab.isOpened())
        return EXIT_SUCCESS;
    const int status = DesktopApplication::exec();
    // Whoever has ended the event loop past the window: nothing is lost.
    lab.endSession(Ending::DesktopClosed);
    return status;
}
