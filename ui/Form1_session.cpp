#include <exception>
#include <utility>

#include "app/image_io.h"
#include "engine/mFFTUTIL.h"
#include "scripting/session_rescue.h"
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
    loadImageFile(lab, Channel::One, lab.folders.ImagePath + "Halvard-Image1.jpg");
    loadImageFile(lab, Channel::Two, lab.folders.ImagePath + "Halvard-Image2.jpg");
    lab.channel1.CalculateAll();
    lab.channel2.CalculateAll();
}

/// Sets a mark when it goes.
class MarkAtEnd {
public:
    explicit MarkAtEnd(bool& mark) : mark_(mark) {}
    MarkAtEnd(const MarkAtEnd&) = delete;
    MarkAtEnd& operator=(const MarkAtEnd&) = delete;
    ~MarkAtEnd() { mark_ = true; }

private:
    bool& mark_;
};

}  // namespace

void Form1::Form_Load() {
    // Also at the end of an opening that fails: its window is there and is used.
    const MarkAtEnd opened(opened_);
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
    lab.runCommand([this] { showFirstPictures(); });
    mirrorAutoCalculate(*this);
    if (firstRun)
        desktop.dialogs.messageBox(
            "Right-Mouse-Click at each image box to see its menu.\n\n"
            "Screen must be in 32-bit Color mode !",
            "First Time Use", MessageIcon::Information, MessageButtons::Ok);
}

void Form1::showFirstPictures() {
    if (const std::string script = startScript(desktop); !script.empty())
        return ReadScript(script);
    const std::string ended = keeper_ ? keeper_->takeEndedSession() : std::string();
    if (!ended.empty() && takeUp(ended))
        return;
    showSamples(lab);
    if (keeper_)
        keeper_->passOver();
}

/// False where the session has left nothing to show; why is in the dialogs of its script.
bool Form1::takeUp(const std::string& session) {
    ReadScript(session);
    if (lab.channel1.file.empty() && lab.channel2.file.empty())
        return false;
    // Kept anew at once, for this program may end like the last.
    keeper_->writeSnapshot();
    lab.reportNotDone("last session restored; spectrum edits, view and factor were not");
    return true;
}

void Form1::Form_QueryUnload() {
    SaveRegistry();
    sessionScript.write(kSessionTitle);
}

void Form1::unload() {
    // The closing itself lets no second closing in.
    if (unloaded_)
        return;
    endSession(Ending::Closed);
    if (host_ != nullptr)
        host_->unloaded();
}

void Form1::stopWork() {
    Timer1.Enabled = false;
    // Who closes the window does not wait for the rest of a folder: a batch under
    // way ends with its image in progress, and opens no folder behind the closed
    // window.
    bStopBatch = true;
}

void Form1::keepSession() noexcept {
    if (unloaded_ || !opened_)
        return;
    try {
        close(Ending::DesktopClosed);
    } catch (...) {
        // What could not even be said is no reason to keep the desktop waiting.
    }
}

void Form1::endSession(Ending ending) noexcept {
    if (std::exchange(unloaded_, true))
        return;
    try {
        stopWork();
        if (opened_ || ending == Ending::Closed)
            close(ending);
    } catch (...) {
        // The box could not be shown. A window that closes does close.
    }
}

bool Form1::writeSnapshot() {
    if (lab.channel1.bBatch || showsProfile())
        return false;
    if (keeper_ && opened_ && !unloaded_)
        keeper_->writeSnapshot();
    return true;
}

/// With Alt held an image panel may show the magnified patch: it is no image to be kept.
void Form1::takeOffProfile() noexcept {
    try {
        if (showsProfile())
            KeyUp(kKeyAlt, 0);
    } catch (...) {
        // The session is kept as it is.
    }
}

void Form1::close(Ending ending) {
    takeOffProfile();
    const SessionRescue::Result result = runClosing(ending);
    // Where nothing could be kept, the last snapshot is what there is.
    if (!keeper_ || result == SessionRescue::Result::Lost)
        return;
    if (isOrderly(ending))
        keeper_->close();
    else
        keeper_->leave();
}

SessionRescue::Result Form1::runClosing(Ending ending) {
    const std::string file1 = lab.channel1.file;
    const std::string file2 = lab.channel2.file;
    std::string why;
    try {
        Form_QueryUnload();
        return SessionRescue::Result::Kept;
    } catch (const std::exception& failure) {
        why = failure.what();
    }
    // A picture that was not written has left its name with the channel.
    if (!FileExists(desktop.files, lab.channel1.file))
        lab.channel1.file = file1;
    if (!FileExists(desktop.files, lab.channel2.file))
        lab.channel2.file = file2;
    const SessionRescue rescue = rescueSession(lab, sessionScript.path(), why);
    const bool seen = isSeen(ending);
    if (!seen || rescue.result == SessionRescue::Result::Lost)
        desktop.environment.printError(rescue.text);
    if (seen)
        desktop.dialogs.messageBox(rescue.text, "Session", MessageIcon::Critical,
                                   MessageButtons::Ok);
    return rescue.result;
}

}  // namespace quillon
