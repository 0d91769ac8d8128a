#pragma once

#include <QWidget>

#include "engine/Control.h"

namespace quillon {

/// A box with its caption on the upper border. Without border the caption stays. It
/// ends before the controls that lie in its line, however long it is.
class FrameWidget : public QWidget {
public:
    FrameWidget(const Control& frame, QWidget* parent) : QWidget(parent), frame_(frame) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// How wide a caption may be.
    int captionRoom(int lineHeight) const;

    const Control& frame_;
};

}  // namespace quillon
