#include "desktop/ExportDialog.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/Conversions.h"
#include "desktop/input_codes.h"
#include "desktop/title_width.h"

namespace quillon {

namespace {

void paint(QWidget& widget, const Control& control) {
    QPalette palette = widget.palette();
    for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Button})
        palette.setColor(ground, toQColor(control.BackColor()));
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(text, toQColor(control.ForeColor));
    widget.setPalette(palette);
}

}  // namespace

ExportDialog::ExportDialog(dlgARRAY& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog) {
    setObjectName(toQString(dialog_.Name));
    setWindowTitle(toQString(dialog_.Caption.get()));
    setAccessibleName(windowTitle());
    if (parent != nullptr)
        setWindowIcon(parent->windowIcon());
    paint(*this, dialog_);
    installEventFilter(this);

    auto* column = new QVBoxLayout(this);
    column->addStrut(widthForTitle(*this));
    for (Integer i = 0; i < dlgARRAY::kOptions; ++i) {
        auto* button = new QRadioButton(this);
        show(*button, dialog_.op(i));
        button->setChecked(dialog_.op(i).Value);
        connect(button, &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                dialog_.Click(dialog_.op(i));
        });
        column->addWidget(button);
    }
    column->addSpacing(column->spacing());
    for (Integer i = 0; i < dlgARRAY::kChecks; ++i) {
        auto* box = new QCheckBox(this);
        show(*box, dialog_.Check1(i));
        box->setChecked(dialog_.Check1(i).Value != 0);
        connect(box, &QCheckBox::toggled, this, [this, i] { dialog_.Click(dialog_.Check1(i)); });
        column->addWidget(box);
    }
    column->addSpacing(column->spacing());
    auto* button = new QPushButton(this);
    show(*button, dialog_.OKButton);
    button->setDefault(true);
    connect(button, &QPushButton::clicked, this, [this] {
        dialog_.Click(dialog_.OKButton);
        follow();
    });
    column->addWidget(button);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void ExportDialog::show(QAbstractButton& button, const Control& control) {
    button.setObjectName(toQString(control.Name));
    button.setText(toQString(control.Caption.get()));
    button.setAccessibleName(button.text());
    button.setFont(toQFont(control.FontName, control.FontSize, control.FontBold));
    paint(button, control);
    button.installEventFilter(this);
}

bool ExportDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        // Before any control sees it, so that Enter is OK on every one of them.
        if (const auto letter = keyAscii(static_cast<const QKeyEvent&>(*event)))
            dialog_.KeyPress(*letter);
        follow();
        if (!dialog_.Visible)
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

void ExportDialog::follow() {
    if (!dialog_.Visible)
        accept();
}

}  // namespace quillon
