#pragma once

#include <QDialog>
#include <QPixmap>
#include <map>

#include "ui/frmAbout.h"

namespace quillon {

/// Shows the About box: fixed, in the middle of its owner, moved by a press
/// anywhere but on its button.
class AboutBox : public QDialog {
public:
    AboutBox(frmAbout& about, QWidget& owner);

    bool shows(const Control& control) const { return &control == &about_; }
    /// From now on the box follows the pointer, until the left button is up.
    void beginDrag();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void add(Label& label);
    void addButton();
    void press(Control& where, const QMouseEvent& event);
    void follow(const QMouseEvent& event);

    frmAbout& about_;
    QPixmap picture_;
    /// What stands for which control; the box itself is one.
    std::map<QObject*, Control*> controls_;
    bool dragging_ = false;
    QPoint pressedAt_;
    QPoint placeAtPress_;
};

}  // namespace quillon
