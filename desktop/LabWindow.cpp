#include "desktop/LabWindow.h"

#include <QGuiApplication>

#include "engine/NativePaths.h"

namespace quillon {

void LabWindow::openMainWindow(const Folders& folders) {
    form_ = std::make_unique<Form1>(desktop_, folders);
    if (keepsSessions_)
        form_->keepSessions();
    window_ = std::make_unique<FormWindow>(*form_, screen_, browser_);
    if (owned_ != nullptr)
        owned_->setOwner(window_.get());
    form_->Form_Load();
}

void LabWindow::stopWork() {
    if (form_)
        form_->stopWork();
}

std::string LabWindow::keptIn() const {
    return form_ ? shownPath(form_->sessionScript.path()) : std::string();
}

bool LabWindow::writeSnapshot() {
    const bool gesture = QGuiApplication::mouseButtons() != Qt::NoButton;
    if (gesture || screen_.isLettingEventsRun())
        return false;
    return !form_ || form_->writeSnapshot();
}

void LabWindow::keepSession() noexcept {
    if (form_)
        form_->keepSession();
}

void LabWindow::endSession(Ending ending) noexcept {
    if (form_)
        form_->endSession(ending);
}

}  // namespace quillon
