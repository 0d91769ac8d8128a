#include "app/Lab.h"

#include "engine/RunTimeError.h"

namespace quillon {

PictureBox& Lab::panel(Integer id) const {
    const std::array<PictureBox*, 6> panels{&pb1, &pb2, &pb3, &pb4, &pb5, &pb6};
    if (id < 1 || id > 6)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return *panels[static_cast<std::size_t>(id - 1)];
}

void Lab::ShowStatus(Integer i, const std::string& s) const {
    if (i < 0 || i > 2)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    Label& cell = *lbSTB[static_cast<std::size_t>(i)];
    cell.Caption = s;
    cell.Refresh();
}

void Lab::ClearChannelTags(Integer panelId) const {
    const Channel which = channelOfPanel(panelId);
    imagePanel(which).Tag.clear();
    spectrumPanel(which).Tag.clear();
    reconstructionPanel(which).Tag.clear();
}

}  // namespace quillon
