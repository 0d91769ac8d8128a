#include <QFile>
#include <QPixmap>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "desktop/Conversions.h"
#include "desktop/DesktopApplication.h"
#include "desktop/LabWindow.h"
#include "desktop/OffscreenPlatform.h"
#include "desktop/QtDesktop.h"
#include "engine/RunTimeError.h"
#include "tools/panel_shots.h"
#include "tools/picture_request.h"

// quillon-picture opens the window as the program does, with a script in force if
// one is named, takes the steps asked for, and writes what the window or its
// panels show as pictures.

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
    Opening execute(const std::string&, const std::string&, const std::string&) override {
        return Opening::Asked;
    }
    Opening openAddress(const std::string&) override { return Opening::Asked; }
};

/// The command line of the window is the script's name alone.
class PictureEnvironment : public QtEnvironment {
public:
    explicit PictureEnvironment(const QString& script) : script_(toBytes(script)) {}
    std::string commandLine() override { return script_; }

private:
    std::string script_;
};

bool write(const QImage& picture, const QString& file) {
    if (picture.save(file, "PNG"))
        return true;
    std::fprintf(stderr, "quillon-picture: cannot write %s\n", qPrintable(file));
    return false;
}

bool writePictures(LabWindow& lab, const PictureRequest& request) {
    if (request.shape == PictureShape::Window)
        return write(lab.window().grab().toImage(), request.target);
    if (request.shape == PictureShape::Row)
        return write(rowShot(lab.window(), lab.form(), request.row), request.target);
    for (Integer panel = 1; panel <= 6; ++panel)
        if (!write(panelShot(lab.window(), lab.form(), panel),
                   QStringLiteral("%1-%2.png").arg(request.target).arg(panel)))
            return false;
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const OffscreenPlatform platform;
    DesktopApplication application(argc, argv);
    const auto request = parsePictureRequest(QCoreApplication::arguments().mid(1));
    if (!request) {
        std::fputs(kPictureUsage, stderr);
        return EXIT_FAILURE;
    }
    // The window passes over a script that isn't there and shows the samples.
    if (!request->script.isEmpty() && !QFile::exists(request->script)) {
        std::fprintf(stderr, "quillon-picture: there is no %s\n", qPrintable(request->script));
        return EXIT_FAILURE;
    }
    WrittenDialogs dialogs;
    QuietShell shell;
    PictureEnvironment environment(request->script);
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
    for (const PictureStep& step : request->steps)
        takeStep(lab.form(), step);
    QCoreApplication::processEvents();
    return writePictures(lab, *request) ? EXIT_SUCCESS : EXIT_FAILURE;
}
