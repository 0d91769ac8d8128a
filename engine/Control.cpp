#include "engine/Control.h"

#include "engine/RunTimeError.h"

namespace quillon {

void Control::setBackColor(ColorValue color) {
    if (backColor_ == color)
        return;
    backColor_ = color;
    changed();
}

void Control::Refresh() {
    if (watcher_ != nullptr)
        watcher_->showNow(*this);
}

void Control::Move(Single left, Single top, Single width, Single height) {
    if (!(width >= 0 && height >= 0))
        throw RunTimeError(ErrorNumber::InvalidPropertyValue);
    bool moved = Left.take(left);
    moved |= Top.take(top);
    moved |= Width.take(width);
    moved |= Height.take(height);
    if (moved)
        changed();
}

void Control::changed() {
    if (watcher_ != nullptr)
        watcher_->stale(*this);
}

}  // namespace quillon
