#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"

namespace quillon {

namespace {

constexpr Single kWindowWidth = 860 * kTwipsPerPixel;
constexpr Single kWindowHeight = 700 * kTwipsPerPixel;
constexpr Integer kAutoCalculateEntry = 4;
constexpr Integer kPanelSide = 256;
constexpr Single kPanelCentre = 127.5F;

/// Twice in the opening: a script may have run menu commands in between.
void mirrorAutoCalculate(Form1& form) {
    form.lab.autoCalculate = form.menu(MenuArray::itmOpt, kAutoCalculateEntry).Checked;
}

void givePointer(Control& control, Integer picture) {
    control.MousePointer = kPointerCustom;
    control.MouseIcon = picture;
}

void givePointers(Form1& form) {
    for (Integer i = 0; i <= 2; ++i)
        givePointer(form.lbTAB(i), kMouseIconHand);
    givePointer(form.lbHIS, kMouseIconHand);
    for (const Channel which : {Channel::One, Channel::Two})
        for (Integer i = 0; i <= 1; ++i)
            givePointer(form.lbBR(which, i), kMouseIconHand);
    givePointer(form.imgDIM, kMouseIconHand);
    givePointer(form.pbLUT, kMouseIconHand);
    givePointer(form.btLUT, kMouseIconHand);
    givePointer(form.Label1, kMouseIconHand);
    givePointer(form.pb1, kMouseIconDrawing);
    givePointer(form.pb4, kMouseIconDrawing);
}

void bindChannels(Form1& form) {
    Lab& lab = form.lab;
    lab.channel1.SetMessageLabel(form.lbSTB(2));
    lab.channel1.SetCanvas(form.pb1, form.pb2, form.pb3, 1);
    lab.channel1.SetDimensionFFT(kPanelSide);
    // Both channels report to the one status cell.
    lab.channel2.SetMessageLabel(form.lbSTB(2));
    lab.channel2.SetCanvas(form.pb4, form.pb5, form.pb6, 2);
    lab.channel2.SetDimensionFFT(kPanelSide);
}

void plainMessage(Dialogs& dialogs, const std::string& text) {
    dialogs.messageBox(text, "", MessageIcon::None, MessageButtons::Ok);
}

/// Notices only: the opening goes on without the folders.
void noticeMissingFolders(Desktop& desktop, const Folders& folders) {
    if (!FolderExists(desktop.files, folders.ImagePath))
        plainMessage(desktop.dialogs, "IMAGE FOLDER not found !");
    if (!FolderExists(desktop.files, folders.ScriptPath))
        plainMessage(desktop.dialogs, "SCRIPT FOLDER not found !");
}

/// The script that the command line names, empty where it names none. The whole
/// line is the name, so that blanks need no quotes. Anything but an existing
/// script is ignored without a message.
std::string startScript(Desktop& desktop) {
    std::string line = desktop.environment.commandLine();
    std::erase(line, '"');
    const bool script = upperCased(line).find(".FTSCR") != std::string::npos;
    return script && FileExists(desktop.files, line) ? line : std::string();
}

void showSamples(Lab& lab) {
    lab.channel1.LoadImageFile(lab.folders.ImagePath + "Halvard-Image1.jpg");
    lab.channel2.LoadImageFile(lab.folders.ImagePath + "Halvard-Image2.jpg");
    lab.channel1.CalculateAll();
    lab.channel2.CalculateAll();
}

}  // namespace

void Form1::Form_Load() {
    sessionScript.begin();
    Width = kWindowWidth;
    Height = kWindowHeight;
    ReadRegistry();
    mirrorAutoCalculate(*this);
    helpFile = desktop.environment.programFolder() + "\\Quillon.chm";
    frt1.Top = ie5.Top;
    panelW = toInteger(pb1.ScaleWidth());
    panelH = toInteger(pb1.ScaleHeight());
    for (const Channel which : {Channel::One, Channel::Two}) {
        ring(which).Left = kPanelCentre;
        ring(which).Top = kPanelCentre;
    }
    givePointers(*this);
    panelW = kPanelSide;
    panelH = kPanelSide;
    bindChannels(*this);
    // Shown before the first picture is loaded, so that the user sees the panels fill.
    if (host_ != nullptr)
        host_->show();
    desktop.screen.pendingEvents();
    SetFilterRings(5.0F);
    noticeMissingFolders(desktop, lab.folders);
    const std::string script = startScript(desktop);
    lab.runCommand([&] {
        if (!script.empty())
            ReadScript(script);
        else
            showSamples(lab);
    });
    mirrorAutoCalculate(*this);
    if (firstRun)
        desktop.dialogs.messageBox(
            "Right-Mouse-Click at each image box to see its menu.\n\n"
            "Screen must be in 32-bit Color mode !",
            "First Time Use", MessageIcon::Information, MessageButtons::Ok);
}

void Form1::Form_QueryUnload() {
    SaveRegistry();
    sessionScript.write("Last Images");
}

void Form1::unload() {
    // The closing itself lets no second closing in.
    if (unloaded_)
        return;
    unloaded_ = true;
    // The user is gone: a batch under way ends with its image in progress.
    bStopBatch = true;
    try {
        Form_QueryUnload();
    } catch (...) {
        // A closing that failed has closed nothing, so the window can be closed again.
        unloaded_ = false;
        throw;
    }
    if (host_ != nullptr)
        host_->unloaded();
}

}  // namespace quillon
