#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QObject>
#include <deque>
#include <functional>
#include <string>

namespace quillon {

/// Answers the dialogs that really open, in the order in which the answers were
/// queued, each as soon as its own event loop runs. It waits for the dialog, so
/// events may run between a menu's click and the dialog that it opens. A dialog
/// that finds no answer fails the test and is closed, and so is one that its
/// answer leaves open.
class DialogAnswers : public QObject {
public:
    DialogAnswers();
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;
    /// Fails the test where a dialog has never opened.
    ~DialogAnswers() override;

    /// What a user does in the next dialog, which must be of the given kind.
    template <class Dialog>
    void next(std::function<void(Dialog&)> act) {
        answers_.push_back([act = std::move(act)](QDialog& dialog) {
            auto* opened = dynamic_cast<Dialog*>(&dialog);
            if (opened == nullptr)
                failOf(dialog, "another kind of dialog has opened");
            else
                act(*opened);
        });
    }
    /// The next dialog is a message with this text, title and icon; a click on
    /// the button ends it, behind what is done before.
    void nextMessage(
        const std::string& text, const std::string& title, QMessageBox::Icon icon,
        QMessageBox::StandardButton button, std::function<void()> before = [] {});

    bool empty() const { return answers_.empty(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void failOf(QDialog& dialog, const char* what);
    void answer(QDialog& dialog);

    std::deque<std::function<void(QDialog&)>> answers_;
};

}  // namespace quillon
