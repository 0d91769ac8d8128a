#pragma once

#include <QPointer>
#include <QWidget>

#include "engine/Desktop.h"

class QFileDialog;

namespace quillon {

/// Who draws the file dialogs: the desktop its own, where it has them, or the toolkit.
enum class FileDialogStyle { Native, Toolkit };

class QtDialogs : public Dialogs {
public:
    explicit QtDialogs(FileDialogStyle style = FileDialogStyle::Native) : style_(style) {}

    /// The window that the dialogs belong to from now on; none before the first one.
    void setOwner(QWidget* owner) { owner_ = owner; }

    MessageAnswer messageBox(const std::string& text, const std::string& title, MessageIcon icon,
                             MessageButtons buttons) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& preset) override;
    void showOpen(FileDialog& dialog) override;
    void showSave(FileDialog& dialog) override;

private:
    enum class Purpose { Open, Save };
    void prepare(QFileDialog& box, const FileDialog& dialog, Purpose purpose) const;
    /// Asks where there is a file of that name.
    bool mayBeWritten(const std::string& name, const QString& title);

    FileDialogStyle style_;
    QPointer<QWidget> owner_;
};

/// The filters "Name (*.a;*.b)|*.a;*.b|..." one by one, as the toolkit's file
/// dialog writes them: "Name (*.a *.b)".
QStringList toNameFilters(const std::string& filter);

}  // namespace quillon
