#pragma once

#include <QTemporaryDir>
#include <QWidget>
#include <memory>
#include <optional>

#include "desktop/LabWindow.h"
#include "desktop/OffscreenPlatform.h"
#include "desktop/PanelWidget.h"
#include "desktop/QtDesktop.h"
#include "fuzz/NullLab.h"

namespace quillon {

/// Says Yes to every question.
class AgreeingDialogs : public NullDialogs {
public:
    MessageAnswer messageBox(const std::string& text, const std::string& title, MessageIcon icon,
                             MessageButtons buttons) override {
        NullDialogs::messageBox(text, title, icon, buttons);
        return MessageAnswer::Yes;
    }
};

/// A home that is gone with its object, with all of the program's folders in it.
/// Make it before the application object.
class BenchHome {
public:
    BenchHome();
    QString path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

private:
    QTemporaryDir folder_;
    std::optional<OffscreenPlatform> platform_;
};

/// The program's services, but no dialog waits for a user and no other program
/// is started.
class BenchDesktop {
public:
    AgreeingDialogs dialogs;
    NullShell shell;
    QtDesktop services{FileDialogStyle::Toolkit};
    Desktop desktop{
        dialogs, services.pictures, services.clipboard,   services.text,  services.printer,
        shell,   services.screen,   services.environment, services.store, services.files};
};

/// The program's window, opened as the program opens it, with both samples.
class BenchWindow : public BenchDesktop {
public:
    BenchWindow();

    Form1& form() { return lab_.form(); }
    FormWindow& window() { return lab_.window(); }
    PanelWidget& panel(const char* name);
    /// A panel's pixel as a point of the window.
    QPoint place(PanelWidget& panel, QPoint pixel);
    /// Lets the window catch up with what its object says.
    static void settle();

private:
    LabWindow lab_{desktop, services.screen, nullptr};
};

}  // namespace quillon
