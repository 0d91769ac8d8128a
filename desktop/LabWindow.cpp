#include "desktop/LabWindow.h"

namespace quillon {

void LabWindow::openMainWindow(const Folders& folders) {
    form_ = std::make_unique<Form1>(desktop_, folders);
    window_ = std::make_unique<FormWindow>(*form_, screen_, browser_);
    if (owned_ != nullptr)
        owned_->setOwner(window_.get());
    form_->Form_Load();
}

}  // namespace quillon
