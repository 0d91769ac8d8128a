#include <cstdlib>
#include <exception>

#include "app/mREGISTRY.h"
#include "app/not_done.h"
#include "engine/NumberText.h"
#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"
#include "ui/credits.h"
#include "ui/frmAbout.h"
#include "ui/setting_names.h"
#include "ui/tutorial_pages.h"

namespace quillon {

namespace {

constexpr Integer kFrench = 1;
constexpr Integer kLabTab = 0;
constexpr Integer kTutorialTab = 1;
constexpr Integer kContentsTab = 2;
constexpr Integer kLabView = 1;
constexpr Integer kTutorialView = 2;
constexpr Integer kPaperLink = 8;

constexpr const char* kNoBrowser = "no browser opens the page";

Integer otherOfPair(Integer index) {
    return static_cast<Integer>(std::abs(index - 1));
}

Language languageOf(const Lab& lab) {
    return lab.frenchTutorial ? Language::French : Language::English;
}

/// The start page of the tutorial in its language.
std::string startPage(const Lab& lab) {
    return startPage(lab.desktop.environment.programFolder(), languageOf(lab));
}

}  // namespace

void Form1::itmOpt1(Integer Index) {
    menu(MenuArray::itmOpt1, otherOfPair(Index)).Checked = false;
    menu(MenuArray::itmOpt1, Index).Checked = true;
    SaveRegistryString(desktop.store, kSettingsKey, kLanguageSetting, plainText(Index));
    lab.frenchTutorial = Index == kFrench;
    // At once, whichever view is shown.
    const std::string page = sameInLanguage(desktop.files, ie5.Location, languageOf(lab));
    ie5.Navigate2(page.empty() ? startPage(lab) : page);
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
    // The markers go with the menus that they part.
    for (const char* title : {"mnuImg1", "mnuFT1", "mnuNew1", "mnuImg2", "mnuFT2", "mnuNew2",
                              "mnuDUM1", "mnuDUM2", "mnuDUM3"})
        menuTitle(title).Visible = inLab;
    btLUT.Visible = inLab;
    if (inTutorial)
        frLUT.Visible = false;
}

void Form1::RunTutorialScript(const std::string& path) {
    // Who leaves the tutorial by a link in the dark's hole gets the light back at
    // once: in the Lab the hole would lie wrong.
    if (dim.isLoaded()) {
        dim.fadeAlpha = 0;
        dim.unload();
    }
    lab.runCommand([&] { LoadScriptCommand(path); });
}

void Form1::ShowHelp(Integer /*id*/) {
    reportUnopened(lab, desktop.shell.execute("hh.exe", helpPage(helpFile, languageOf(lab)), "0"),
                   "the help is not here", "no program shows the help");
}

void Form1::itm10(Integer Index) {
    switch (Index) {
        case 0:
            ShowHelp(0);
            break;
        case 1:
            // Nothing is fetched or compared: the user reads the page.
            OpenWebAddress(kProductPage);
            break;
        case 4:
            showAbout();
            break;
        default:
            break;
    }
}

void Form1::OpenWebAddress(const std::string& address) {
    // A link of a page comes here too, and is a command of its own.
    lab.runCommand([&] {
        const Opening outcome = OpenInBrowser(desktop.shell, address);
        if (outcome == Opening::Reserved)
            lab.reportNotDone("this address is reserved for examples: " + address);
        else
            reportUnopened(lab, outcome, "the page is not here", kNoBrowser);
    });
}

void Form1::showAbout() {
    frmAbout about(desktop.screen);
    about.Form_Load();
    if (host_ != nullptr)
        host_->showModal(about);
}

void Form1::itm10a(Integer Index) {
    try {
        // The page appears in the tutorial's pane; the paper opens outside.
        if (Index != kPaperLink && lab.viewTab < kTutorialView)
            tabClick(kTutorialTab);
        followLink(Index);
    } catch (const std::exception& error) {
        // The view stays as far as it has come.
        lab.reportNotDone(std::string("not shown: ") + error.what());
    }
}

void Form1::followLink(Integer Index) {
    switch (Index) {
        case 0:
            ie5.Navigate2(kMakerPage);
            break;
        case 1:
            ie5.Navigate2(kImageAuthorPage);
            break;
        case 2:
            ie5.Navigate2(kTutorialAuthorPage);
            break;
        case 4:
        case 5:
        case 6:
            ie5.Navigate2(interactivePage(lab.folders.LibPath, Index - 3, languageOf(lab)));
            break;
        case kPaperLink:
            reportUnopened(
                lab,
                desktop.shell.execute(lab.folders.DocPath + kPaperFile, "", lab.folders.DocPath),
                "the paper is not here", "no program shows the paper");
            break;
        case 9:
            ie5.Navigate2(kPaperReference);
            break;
        default:
            break;
    }
}

}  // namespace quillon
