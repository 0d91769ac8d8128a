#include "app/Lab.h"

#include <utility>

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

void Lab::reportNotDone(const std::string& what) {
    const std::string shown = lbSTB[2]->Caption;
    if (notDone.report.empty() || shown != notDone.report)
        notDone.covered = shown;
    notDone.report = what;
    ShowStatus(2, what);
}

void Lab::beginCommand() {
    const NotDone before = std::exchange(notDone, NotDone{});
    if (!before.report.empty() && lbSTB[2]->Caption.get() == before.report)
        ShowStatus(2, before.covered);
}

void Lab::keepReport() {
    if (!notDone.report.empty() && lbSTB[2]->Caption.get() != notDone.report)
        reportNotDone(notDone.report);
}

void Lab::showFileName(Integer panelId) {
    const Channel which = channelOfPanel(panelId);
    const std::string& name = channel(which).sfile;
    namedPanel = panelId;
    if (panelId == spectrumPanelId(which))
        lbSTB[0]->Caption = " [FT] " + name;
    else
        lbSTB[0]->Caption = name + (panelId == imagePanelId(which) ? " " : " [iFT] ");
}

void Lab::fileLoaded(Channel which) {
    if (namedPanel != 0 && channelOfPanel(namedPanel) == which)
        showFileName(namedPanel);
}

void Lab::ClearChannelTags(Integer panelId) const {
    const Channel which = channelOfPanel(panelId);
    imagePanel(which).Tag.clear();
    spectrumPanel(which).Tag.clear();
    reconstructionPanel(which).Tag.clear();
}

}  // namespace quillon
