#pragma once

#include <QWidget>

namespace quillon {

/// The little lamp that turns the light off.
class LampWidget : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillon
