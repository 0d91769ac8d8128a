#pragma once

#include <QObject>
#include <set>

#include "ui/Form1.h"

class QKeyEvent;
class QWidget;

namespace quillon {

class QtScreen;

/// The window's key preview: it sees every key of the window before any control
/// does, and hands it on as KeyDown, KeyPress and KeyUp. Each key that went down
/// is released once: by its own release, whichever widget of the program has the
/// keyboard by then, or before, when something takes the keyboard away.
class KeyPreview : public QObject {
public:
    KeyPreview(Form1& form, QWidget& window, QtScreen& screen);

    /// The dark, which has its keys to itself; nullptr while the light is on.
    void leaveAlone(const QWidget* dark) { dark_ = dark; }

    /// Releases what is held, because the keyboard goes elsewhere.
    void releaseAll();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takes(const QWidget& widget) const;
    bool inDark(const QWidget& widget) const;
    void press(const QKeyEvent& event);
    /// Whether the release ends here.
    bool release(const QKeyEvent& event, const QWidget& widget);
    bool isHeld(Integer code);
    void releaseStrayAlt(Qt::KeyboardModifiers modifiers);

    Form1& form_;
    QWidget& window_;
    QtScreen& screen_;
    const QWidget* dark_ = nullptr;
    std::set<Integer> held_;
    /// Keys whose own release is yet to come, though they have been released.
    std::set<Integer> releasedAhead_;
};

}  // namespace quillon
