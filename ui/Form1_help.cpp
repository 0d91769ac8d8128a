#include <cstdlib>

#include "app/mREGISTRY.h"
#include "engine/NumberText.h"
#include "ui/Form1.h"
#include "ui/setting_names.h"

namespace quillon {

namespace {

constexpr Integer kFrench = 1;
constexpr Integer kContentsTab = 2;
constexpr Integer kLabView = 1;
constexpr Integer kTutorialView = 2;

Integer otherOfPair(Integer index) {
    return static_cast<Integer>(std::abs(index - 1));
}

/// The start page of the tutorial in its language.
std::string startPage(const Lab& lab) {
    return lab.desktop.environment.programFolder() +
           (lab.frenchTutorial ? "\\doc\\fr\\sommaire.htm" : "\\doc\\en\\summary.htm");
}

}  // namespace

void Form1::itmOpt1(Integer Index) {
    menu(MenuArray::itmOpt1, otherOfPair(Index)).Checked = false;
    menu(MenuArray::itmOpt1, Index).Checked = true;
    SaveRegistryString(desktop.store, kSettingsKey, kLanguageSetting, plainText(Index));
    lab.frenchTutorial = Index == kFrench;
    // At once, whichever view is shown.
    ie5.Navigate2(startPage(lab));
}

void Form1::tabClick(Integer Index) {
    if (Index == kContentsTab) {
        lab.viewTab = kTutorialView;
        ie5.Navigate2(startPage(lab));
        return;
    }
    // The browser keeps its page: no tab but the contents sends it anywhere.
    lab.viewTab = static_cast<Integer>(Index + 1);
    const bool inLab = lab.viewTab == kLabView;
    const bool inTutorial = lab.viewTab == kTutorialView;
    frt1.Visible = inLab;
    stb.Visible = inLab;
    ie5.Visible = inTutorial;
    lbTAB(2).Visible = inTutorial;
    lbTAB(Index).FontBold = true;
    lbTAB(Index).FontSize = 9;
    lbTAB(otherOfPair(Index)).FontBold = false;
    lbTAB(otherOfPair(Index)).FontSize = 8;
    for (const char* title : {"mnuImg1", "mnuFT1", "mnuNew1", "mnuImg2", "mnuFT2", "mnuNew2"})
        menuTitle(title).Visible = inLab;
    btLUT.Visible = inLab;
    if (inTutorial)
        frLUT.Visible = false;
}

}  // namespace quillon
