#include "desktop/QtDialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "app/save_name.h"
#include "desktop/Conversions.h"
#include "desktop/title_width.h"
#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

const QString kProgramTitle = QStringLiteral("Quillon");

QMessageBox::Icon toIcon(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

/// Only behind everything else that lays the box out anew.
void widenForTitle(QMessageBox& box) {
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(widthForTitle(box), 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
}

/// Shows the dialog; throws where it is cancelled.
std::string chosenFile(QFileDialog& box) {
    if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty())
        throw RunTimeError(ErrorNumber::DialogCancelled);
    QString name = box.selectedFiles().constFirst();
    // In the toolkit's own dialog what is written in its line counts, whatever its
    // list has marked.
    if (const auto* line = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        line != nullptr && box.acceptMode() == QFileDialog::AcceptSave && !line->text().isEmpty())
        name = box.directory().absoluteFilePath(line->text());
    return toLabPath(QDir::cleanPath(name));
}

/// The index of the filter in force, from 1.
Integer chosenFilter(const QFileDialog& box, const FileDialog& dialog) {
    const qsizetype chosen = toNameFilters(dialog.Filter).indexOf(box.selectedNameFilter());
    return chosen < 0 ? dialog.FilterIndex : static_cast<Integer>(chosen + 1);
}

}  // namespace

QStringList toNameFilters(const std::string& filter) {
    QStringList filters;
    const QStringList parts = toQString(filter).split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // The description names the patterns too; the dialog writes them itself.
        const QString description = parts[i].section(QStringLiteral(" ("), 0, 0);
        QString patterns = parts[i + 1];
        patterns.replace(u';', u' ');
        filters << QStringLiteral("%1 (%2)").arg(description, patterns);
    }
    return filters;
}

MessageAnswer QtDialogs::messageBox(const std::string& text, const std::string& title,
                                    MessageIcon icon, MessageButtons buttons) {
    QMessageBox box(owner_);
    box.setTextFormat(Qt::PlainText);
    box.setText(toQString(text));
    box.setWindowTitle(title.empty() ? kProgramTitle : toQString(title));
    box.setIcon(toIcon(icon));
    if (buttons == MessageButtons::Ok) {
        box.setStandardButtons(QMessageBox::Ok);
        widenForTitle(box);
        box.exec();
        return MessageAnswer::Ok;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    // The Escape key and the close box mean No.
    box.setEscapeButton(QMessageBox::No);
    widenForTitle(box);
    return box.exec() == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}

std::optional<std::string> QtDialogs::inputBox(const std::string& prompt, const std::string& title,
                                               const std::string& preset) {
    QInputDialog box(owner_);
    box.setWindowTitle(title.empty() ? kProgramTitle : toQString(title));
    box.setLabelText(toQString(prompt));
    box.setTextValue(toQString(preset));
    // The box takes its own limits from its layout, so the line edit is what widens it.
    if (auto* edit = box.findChild<QLineEdit*>())
        edit->setMinimumWidth(widthForTitle(box));
    if (box.exec() != QDialog::Accepted)
        return std::nullopt;
    return toBytes(box.textValue());
}

void QtDialogs::showOpen(FileDialog& dialog) {
    QFileDialog box(owner_);
    prepare(box, dialog, Purpose::Open);
    dialog.FileName = chosenFile(box);
    dialog.FilterIndex = chosenFilter(box, dialog);
}

void QtDialogs::showSave(FileDialog& dialog) {
    QFileDialog box(owner_);
    prepare(box, dialog, Purpose::Save);
    // The dialog's own question would be about the name without its suffix.
    box.setOption(QFileDialog::DontConfirmOverwrite);
    while (true) {
        const std::string typed = chosenFile(box);
        const std::string name = nameToSave(typed, dialog.Filter, chosenFilter(box, dialog));
        if (mayBeWritten(name, box.windowTitle())) {
            dialog.FileName = name;
            dialog.FilterIndex = chosenFilter(box, dialog);
            return;
        }
        box.selectFile(toNativePath(name));
    }
}

void QtDialogs::prepare(QFileDialog& box, const FileDialog& dialog, Purpose purpose) const {
    box.setOption(QFileDialog::DontUseNativeDialog, style_ == FileDialogStyle::Toolkit);
    box.setAcceptMode(purpose == Purpose::Open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    box.setFileMode(purpose == Purpose::Open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (!dialog.DialogTitle.empty())
        box.setWindowTitle(toQString(dialog.DialogTitle));
    const QStringList filters = toNameFilters(dialog.Filter);
    if (!filters.isEmpty()) {
        box.setNameFilters(filters);
        if (dialog.FilterIndex >= 1 && dialog.FilterIndex <= filters.size())
            box.selectNameFilter(filters[dialog.FilterIndex - 1]);
    }
    const QString folder = toNativePath(dialog.InitDir);
    const bool placed = !folder.isEmpty() && QDir(folder).exists();
    if (placed)
        box.setDirectory(folder);
    // Of the last file the name is offered; its path would lead the dialog away
    // from the folder where it is to start.
    if (!dialog.FileName.empty())
        box.selectFile(placed ? toQString(FileNamePart(dialog.FileName))
                              : toNativePath(dialog.FileName));
}

bool QtDialogs::mayBeWritten(const std::string& name, const QString& title) {
    // Found as the lab's own writing finds it: in any case of letters.
    const QFileInfo present(toNativePath(name));
    if (!present.isFile())
        return true;
    QMessageBox question(owner_);
    question.setTextFormat(Qt::PlainText);
    question.setWindowTitle(title);
    question.setIcon(QMessageBox::Warning);
    question.setText(
        QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(present.fileName()));
    question.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    question.setDefaultButton(QMessageBox::No);
    question.setEscapeButton(QMessageBox::No);
    widenForTitle(question);
    return question.exec() == QMessageBox::Yes;
}

}  // namespace quillon
