#pragma once

#include <QWidget>

#include "engine/Control.h"

namespace quillon {

/// A box with its caption on the upper border. Without border the caption stays.
class FrameWidget : public QWidget {
public:
    FrameWidget(const Control& frame, QWidget* parent) : QWidget(parent), frame_(frame) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Control& frame_;
};

}  // namespace quillon
