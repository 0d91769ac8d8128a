#include <QPixmap>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "desktop/Conversions.h"
#include "desktop/DesktopApplication.h"
#include "desktop/LabWindow.h"
#include "desktop/QtDesktop.h"
#include "engine/RunTimeError.h"

// quillon-picture OUT.png [SCRIPT]: opens the window as the program does, with a
// script in force if one is named, and writes what it shows as a picture.

namespace {

using namespace quillon;

/// Nobody is there to answer: what a dialog would say goes to the standard error
/// output, and whatever it asks is left open.
class WrittenDialogs : public Dialogs {
public:
    MessageAnswer messageBox(const std::string& text, const std::string& title,
                             MessageIcon /*icon*/, MessageButtons buttons) override {
        std::fprintf(stderr, "%s%s%s\n", title.c_str(), title.empty() ? "" : ": ", text.c_str());
        return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::No;
    }
    std::optional<std::string> inputBox(const std::string&, const std::string&,
                                        const std::string&) override {
        return std::nullopt;
    }
    void showOpen(FileDialog&) override { throw RunTimeError(ErrorNumber::DialogCancelled); }
    void showSave(FileDialog&) override { throw RunTimeError(ErrorNumber::DialogCancelled); }
};

/// A picture starts nothing.
class QuietShell : public Shell {
public:
    void execute(const std::string&, const std::string&, const std::string&) override {}
    void openAddress(const std::string&) override {}
};

/// The command line of the window is what follows the picture's name.
class PictureEnvironment : public QtEnvironment {
public:
    std::string commandLine() override {
        return toBytes(QCoreApplication::arguments().mid(2).join(u' '));
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: quillon-picture OUT.png [SCRIPT]\n");
        return EXIT_FAILURE;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    DesktopApplication application(argc, argv);
    WrittenDialogs dialogs;
    QuietShell shell;
    PictureEnvironment environment;
    QtDesktop services;
    application.setDialogs(dialogs);
    Desktop desktop{
        dialogs, services.pictures, services.clipboard, services.text,  services.printer,
        shell,   services.screen,   environment,        services.store, services.files};
    LabWindow lab(desktop, services.screen, nullptr);
    Main(desktop, lab);
    QCoreApplication::processEvents();
    if (!lab.isOpened()) {
        std::fprintf(stderr, "quillon-picture: there is no window to draw\n");
        return EXIT_FAILURE;
    }
    const QString file = QCoreApplication::arguments().at(1);
    if (!lab.window().grab().save(file, "PNG")) {
        std::fprintf(stderr, "quillon-picture: cannot write %s\n", argv[1]);
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
