#pragma once

#include <QObject>
#include <set>

#include "ui/Form1.h"

class QKeyEvent;
class QWidget;

namespace quillon {

/// The window's key preview: it sees every key of the window before any control
/// does, and hands it on as KeyDown, KeyPress and KeyUp.
class KeyPreview : public QObject {
public:
    KeyPreview(Form1& form, QWidget& window);

    /// A part of the window that has its keys to itself; nullptr for none.
    void leaveAlone(const QWidget* part) { part_ = part; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takes(const QObject* watched) const;
    void press(const QKeyEvent& event);
    void release(const QKeyEvent& event);
    void releaseAll();

    Form1& form_;
    QWidget& window_;
    const QWidget* part_ = nullptr;
    std::set<Integer> held_;
};

}  // namespace quillon
