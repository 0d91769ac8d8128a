#include "desktop/title_width.h"

#include <QFontMetrics>

namespace quillon {

int widthForTitle(const QDialog& dialog) {
    constexpr int kIconAndButtons = 120;
    QFont bold = dialog.font();
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(dialog.windowTitle()) + kIconAndButtons;
}

}  // namespace quillon
