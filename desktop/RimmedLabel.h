#pragma once

#include <QLabel>

#include "engine/PictureBox.h"

namespace quillon {

/// A line of text on a panel. Its letters have a rim in the panel's ground, so
/// that a bar of their own colour behind them does not swallow them.
class RimmedLabel : public QLabel {
public:
    RimmedLabel(const PictureBox& panel, QWidget* parent) : QLabel(parent), panel_(panel) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const PictureBox& panel_;
};

}  // namespace quillon
