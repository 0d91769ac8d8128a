#pragma once

#include <memory>
#include <utility>

#include "app/Main.h"
#include "desktop/FormWindow.h"
#include "desktop/QtDialogs.h"
#include "desktop/QtScreen.h"
#include "desktop/RunningSession.h"
#include "ui/Form1.h"

namespace quillon {

/// Brings up the main window and keeps it to the end of the program.
class LabWindow : public MainWindowOpener, public RunningSession {
public:
    /// @param owned dialogs that belong to the window once it is there; may be none
    /// @param browser where the tutorial's pane comes from
    LabWindow(Desktop& desktop, QtScreen& screen, QtDialogs* owned, BrowserSource browser = {})
        : desktop_(desktop), screen_(screen), owned_(owned), browser_(std::move(browser)) {}

    /// Before the opening: sessions are kept against an end without a closing, and
    /// one that has ended so is taken up.
    void keepSessions() { keepsSessions_ = true; }

    void openMainWindow(const Folders& folders) override;

    // RunningSession
    void stopWork() override;
    std::string keptIn() const override;
    bool writeSnapshot() override;
    void keepSession() noexcept override;
    void endSession(Ending ending) noexcept override;

    /// Only after openMainWindow was called, even if it has failed.
    Form1& form() { return *form_; }
    FormWindow& window() { return *window_; }
    /// True once the session is closed, also where it closed during its opening.
    bool isClosed() const { return form_ && form_->isUnloaded(); }
    bool isOpened() const { return window_ && window_->isVisible(); }

private:
    Desktop& desktop_;
    QtScreen& screen_;
    QtDialogs* owned_;
    BrowserSource browser_;
    bool keepsSessions_ = false;
    std::unique_ptr<Form1> form_;
    std::unique_ptr<FormWindow> window_;
};

}  // namespace quillon
