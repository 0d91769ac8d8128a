#pragma once

#include <QDialog>

#include "ui/dlgARRAY.h"

class QAbstractButton;

namespace quillon {

/// Shows the export dialog. Its choices live in the window's own object, which
/// outlives it; the widgets only show them and hand clicks and keys on.
class ExportDialog : public QDialog {
public:
    ExportDialog(dlgARRAY& dialog, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Gives a button the name, the caption, the letters and the colours of its control.
    void show(QAbstractButton& button, const Control& control);
    /// Ends where the object has been hidden.
    void follow();

    dlgARRAY& dialog_;
};

}  // namespace quillon
