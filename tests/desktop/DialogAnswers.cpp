#include "tests/desktop/DialogAnswers.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <utility>

#include "desktop/Conversions.h"

namespace quillon {

DialogAnswers::DialogAnswers() {
    qApp->installEventFilter(this);
}

DialogAnswers::~DialogAnswers() {
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " dialogs have never opened";
}

void DialogAnswers::nextMessage(const std::string& text, const std::string& title,
                                QMessageBox::Icon icon, QMessageBox::StandardButton button,
                                std::function<void()> before) {
    next<QMessageBox>([=, before = std::move(before)](QMessageBox& box) {
        EXPECT_EQ(toBytes(box.text()), text);
        EXPECT_EQ(toBytes(box.windowTitle()), title);
        EXPECT_EQ(box.icon(), icon);
        before();
        ASSERT_NE(box.button(button), nullptr);
        QTest::mouseClick(box.button(button), Qt::LeftButton);
    });
}

bool DialogAnswers::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show)
        if (auto* dialog = qobject_cast<QDialog*>(watched); dialog != nullptr && dialog->isModal())
            QTimer::singleShot(0, dialog, [this, dialog] { answer(*dialog); });
    return false;
}

void DialogAnswers::failOf(QDialog& dialog, const char* what) {
    const auto* message = qobject_cast<QMessageBox*>(&dialog);
    ADD_FAILURE() << what << ": " << toBytes(dialog.windowTitle()) << " "
                  << (message == nullptr ? "" : toBytes(message->text()));
}

void DialogAnswers::answer(QDialog& dialog) {
    if (answers_.empty()) {
        failOf(dialog, "nobody expected a dialog");
    } else {
        const auto act = std::move(answers_.front());
        answers_.pop_front();
        act(dialog);
        if (dialog.isVisible())
            failOf(dialog, "the dialog is still there");
    }
    if (dialog.isVisible())
        dialog.reject();
}

}  // namespace quillon
