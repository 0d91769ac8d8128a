#pragma once

#include "tests/desktop/DialogAnswers.h"
#include "tests/desktop/OpenedWindow.h"

namespace quillon {

/// The whole program's window with its real dialogs. Those of the first start
/// have been answered.
class AnsweredWindow : public OpenedWindow {
protected:
    AnsweredWindow() : OpenedWindow(Questions::Real) {
        for (const char* title : {"Folder Setup", "First Time Use"})
            answers.next<QMessageBox>([title](QMessageBox& box) {
                EXPECT_EQ(box.windowTitle(), QString::fromLatin1(title));
                box.accept();
            });
    }

    DialogAnswers answers;
};

}  // namespace quillon
