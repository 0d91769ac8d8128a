#pragma once

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/histogram.h"
#include "app/Lab.h"
#include "engine/Control.h"
#include "engine/Desktop.h"
#include "engine/PictureBox.h"
#include "engine/clComplexImage.h"
#include "scripting/ScriptHost.h"
#include "scripting/SessionKeeper.h"
#include "scripting/SessionScript.h"
#include "scripting/session_rescue.h"
#include "ui/ControlTable.h"
#include "ui/Controls.h"
#include "ui/Ending.h"
#include "ui/MenuTable.h"
#include "ui/dlgARRAY.h"
#include "ui/frmAbout.h"
#include "ui/frmDIM.h"
#include "ui/platform_numbers.h"

namespace quillon {

/// The one scheme (GUI Colors) whose frames have no border.
inline constexpr Integer kDarkGreyScheme = 4;

/// What the window's object asks of the window that shows it.
class FormHost {
public:
    virtual ~FormHost() = default;
    /// Makes the window visible, in the state that WindowState tells.
    virtual void show() = 0;
    /// Shows the menu that a title of the bar opens ("mnuImg1") at the pointer and
    /// waits for the choice, which comes through the click handler.
    virtual void popupMenu(std::string_view title) = 0;
    /// Shows the export dialog over the window and waits until it is hidden or
    /// its close box is pressed.
    virtual void showModal(dlgARRAY& dialog) = 0;
    /// The light is about to go off. Where no window can lay itself over the
    /// others with a hole in it, this one fills the screen first, so that the
    /// dark painted over it leaves nothing bright.
    virtual void prepareDark() = 0;
    /// Shows the dark above this window and gives it the keyboard, without
    /// waiting; loads it where it isn't loaded yet.
    virtual void showOwned(frmDIM& dim) = 0;
    /// Shows the About box over the window and waits until it is closed.
    virtual void showModal(frmAbout& about) = 0;
    /// The window goes and the process ends when the running handler returns.
    virtual void unloaded() = 0;
};

/// The window as a plain object: its controls, its menus, the two channels, and
/// one method for each event. It needs no toolkit; a test or the headless tool
/// drives it as the window does.
///
/// Bodies lie by subject in ui/Form1_*.cpp.
class Form1 : public Control, public MaskPainter, public ScriptHost, public DimmedForm {
public:
    Form1(Desktop& desktop, const Folders& folders);
    ~Form1() override;

    // --- The window itself. The host writes back what the window system tells.
    Property<Integer> WindowState{*this, kWindowNormal};
    /// The client area, in twips.
    Single ScaleWidth() const noexcept { return scaleWidth_; }
    Single ScaleHeight() const noexcept { return scaleHeight_; }
    /// Sets the client area and runs the resize rules.
    void resized(Single scaleWidth, Single scaleHeight);
    void setHost(FormHost* host) noexcept { host_ = host; }

    // --- Controls and menus, by name and index.
    Control& control(std::string_view name, int index = -1);
    std::vector<Control*> controls() const;
    MenuItem& menu(MenuArray array, Integer index);
    /// A title of the menu bar: "mnuImg1".
    MenuItem& menuTitle(std::string_view name);
    const ControlRow& rowOf(const Control& child) const;
    Control* parentOf(const Control& child);

private:
    /// The controls, the menus and the two channels. First among the members,
    /// because all that follows refers to them.
    struct Parts;
    std::unique_ptr<Parts> parts_;

    template <class Kind>
    Kind& find(std::string_view name, int index = -1) {
        return static_cast<Kind&>(control(name, index));
    }

public:
    Desktop& desktop;
    PictureBox& mem;
    PictureBox& img;
    Frame& frt1;
    Frame& fr1;
    Frame& fr2;
    Frame& fr3;
    Frame& fr4;
    Frame& fr5;
    Frame& fr6;
    PictureBox& pb1;
    PictureBox& pb2;
    PictureBox& pb3;
    PictureBox& pb4;
    PictureBox& pb5;
    PictureBox& pb6;
    PictureBox& pbh;
    Label& lbHIS;
    Label& LHIST;
    Timer& Timer1;
    FileListBox& File1;
    Browser& ie5;
    PictureBox& btLUT;
    ImageControl& imgDIM;
    Frame& frLUT;
    PictureBox& pbLUT;
    Label& Label1;
    PictureBox& stb;
    Label& lbSTB(Integer i) { return find<Label>("lbSTB", i); }
    Label& lbTAB(Integer i) { return find<Label>("lbTAB", i); }
    Label& lbBR1(Integer i) { return find<Label>("lbBR1", i); }
    Label& lbBR2(Integer i) { return find<Label>("lbBR2", i); }
    Label& Label2(Integer i) { return find<Label>("Label2", i); }
    Shape& shp1(Integer i) { return find<Shape>("shp1", i); }
    LineControl& Line1(Integer i) { return find<LineControl>("Line1", i); }
    /// Frame of a panel, 1 to 6.
    Frame& frame(Integer panel);
    /// "[-]" and "[+]" of a channel.
    Label& lbBR(Channel which, Integer i) { return which == Channel::One ? lbBR1(i) : lbBR2(i); }
    Shape& ring(Channel which) { return shp1(which == Channel::One ? 0 : 1); }

    /// What the rooms below the window share with it.
    Lab lab;

    /// What to export of a spectrum; one dialog for both channels.
    dlgARRAY exportDialog{lab.guiColors, [this](dlgARRAY& dialog) {
                              if (host_ != nullptr)
                                  host_->showModal(dialog);
                          }};

    // --- The light (Form1_light.cpp)
    /// What stays bright while the light is off; LightOff writes it.
    HoleRect holeRect;
    frmDIM dim{holeRect, *this};
    void LightOn() override;
    /// Shows the scripts (0), options (1) or help menu (2) at the pointer, without
    /// the entries that make no sense in the dark; no menu for any other i.
    void ShowRemotePopup(Integer i) override;

    // --- Session (Form1_session.cpp, Form1_settings.cpp)
    /// The opening, in its fixed order, up to the first-use message.
    void Form_Load();
    /// The closing: settings, then the session script. Throws what the script's
    /// writing throws.
    void Form_QueryUnload();
    /// Ends the session as its user wishes and lets the window go.
    void unload() override;
    bool isUnloaded() const noexcept { return unloaded_; }
    /// Held controls and a batch go on no more.
    void stopWork();
    /// Before the opening: a session that ended without its closing is taken up, and
    /// this one is kept against such an end. Without the call neither is done.
    void keepSessions() { keeper_ = std::make_unique<SessionKeeper>(lab); }
    /// Keeps the session of this moment where anything has changed. False while a panel
    /// shows a picture that is not the user's: one of a batch, or Alt's magnified patch.
    bool writeSnapshot();
    /// Writes what the closing writes, and the session goes on. Nobody is asked,
    /// and a failure is said on the standard error output.
    void keepSession() noexcept;
    /// Ends the session without a word to the host: stops the work and runs the
    /// closing, once. A closing that cannot write its script saves the session
    /// under TMP and says so, in a box where somebody can see it, else on the
    /// standard error output. Never throws. An opening that was interrupted has
    /// no session yet, and the script of the one before stays.
    void endSession(Ending ending) noexcept;
    void ReadRegistry();
    void SaveRegistry();
    /// Runs a script. What fails in it is told by its own dialogs.
    void ReadScript(const std::string& path);
    /// Writes what the window shows as a script with a title.
    void WriteScript(const std::string& path, const std::string& title);
    SessionScript sessionScript{lab};
    bool firstRun = false;
    std::string helpFile;
    Integer panelW = 0;
    Integer panelH = 0;

    // --- Layout, colours, status (Form1_layout.cpp, Form1_colors.cpp)
    /// Puts the strip on the lower edge and centres the block of panels. A size
    /// that would be negative leaves its control as it was; nothing is reported.
    void Form_Resize();
    void ShowStatus(Integer i, const std::string& s) { lab.ShowStatus(i, s); }
    void ShowPointer(Integer X, Integer Y, const std::string& s);
    /// Takes the five colours of a scheme, the last three only where they are not
    /// 0, and paints the window's parts with the first two.
    void ApplyGuiColors(ColorValue c0, ColorValue c1, ColorValue c2, ColorValue c3, ColorValue c4);
    /// Both rings, or that of channel 1 (c = 0) or 2 (any other c), and with each
    /// its channel's radius. R in panel pixels; the diameter becomes odd, so R is
    /// rounded up to the next half.
    void SetFilterRings(Single R);
    void SetFilterRing(Integer c, Single R) override;
    void ClearChannelTags(Integer p) { lab.ClearChannelTags(p); }
    Integer guiColorIndex = 0;

    // --- Colour scheme selector (Form1_lut.cpp)
    /// Takes a row of the selector (0 to 6) into both channels without a redraw;
    /// any other row leaves them as they are. Row 0 is the exact grey ramp.
    void SelectLutRow(Integer row);
    /// Sixteen samples of a table of 256 colours at the left edge.
    void DrawLutButton(PictureBox& pb, std::span<const Long> c);

    // --- Intensity controls (Form1_intensity.cpp)
    /// Both channels' factors in the captions of the FT frames, while a control is held.
    void ShowIntensityFactor();
    /// One step of what Timer1.Tag names.
    void Timer1_Timer();
    /// How many steps the held control has made at its press.
    Integer stepsAtPress() const;

    // --- Events. X and Y are pixels in panels of pixel scale, else twips.
    void MouseDown(Control& where, Integer Button, Integer Shift, Single X, Single Y);
    void MouseMove(Control& where, Integer Button, Integer Shift, Single X, Single Y);
    void MouseUp(Control& where, Integer Button, Integer Shift, Single X, Single Y);
    void Click(Control& where);
    /// Whether a double click has an action there; elsewhere its second press is a
    /// press like any other.
    bool hasDoubleClick(const Control& where) const;
    void DblClick(Control& where);
    void KeyDown(Integer KeyCode, Integer Shift);
    void KeyUp(Integer KeyCode, Integer Shift);
    void KeyPress(Integer KeyAscii);
    void remoteKeyPress(Integer& KeyAscii) override { KeyPress(KeyAscii); }
    void remoteKeyUp(Integer& KeyCode, Integer& Shift) override { KeyUp(KeyCode, Shift); }
    bool remoteEscape() override;
    /// Whether a line of the profile shows, which means that Alt's release is yet
    /// to come.
    bool showsProfile();
    /// Files dropped on an image panel.
    /// Whether files that are dropped there do something: the first of them counts,
    /// and it must be a picture or a script that can be read.
    bool takesDrop(const Control& where, const std::vector<std::string>& files);
    void OLEDragDrop(Control& where, const std::vector<std::string>& files);

    // --- Menus (Form1_menus.cpp): a choice of the user, and the click handlers by
    // Index that it runs and scripts run too.
    void click(MenuArray array, Integer Index);
    void mnuImg1a(Integer Index) { imageMenu(Channel::One, Index); }
    void mnuImg2a(Integer Index) { imageMenu(Channel::Two, Index); }
    void mnuFT1a(Integer Index) override { spectrumMenu(Channel::One, Index); }
    void mnuFT2a(Integer Index) override { spectrumMenu(Channel::Two, Index); }
    void mnuNew1a(Integer Index) { reconstructionMenu(Channel::One, Index); }
    void mnuNew2a(Integer Index) { reconstructionMenu(Channel::Two, Index); }
    void mnuImg1b(Integer Index);
    void mnuImg2b(Integer Index);
    void itmFile(Integer Index) override;
    void itmSCR(Integer Index);
    void itmOpt(Integer Index) override;
    void itmOpt0(Integer Index);
    void itmOpt1(Integer Index);
    void itm10(Integer Index);
    void itm10a(Integer Index);

    // --- Filters and masks (Form1_filters.cpp, Form1_filter_editing.cpp)
    void DrawMasks(Integer m) override;
    void ApplyFilterChoice(Integer id, Integer m);
    void DrawLowPassMask(Integer id, PictureBox& pb);
    /// Rubber band of the FT panels: moving and fixed corner.
    Single bandX = 0;
    Single bandY = 0;
    Single bandStartX = 0;
    Single bandStartY = 0;

    // --- Image input and output, handed on to app/.
    void LoadPanelImage(Integer panel, const std::string& file);
    void ReloadImage(Integer panel);
    void NewPanelImage(Integer panel) override;
    void SavePanelImage(Integer panel, const std::string& file) override;
    void CopyPanelImage(Integer panel);
    void PasteImage(Integer panel);
    void InvertPanel(Integer panel, bool on) override;
    void PrintPanel(Integer panel);

    // --- Commands of the menus, by subject
    void SwapPhasesCommand();
    void RandomizePhasesCommand();
    void RandomizeMagnitudesCommand();
    void DiscardPhasesCommand();
    void DiscardMagnitudesCommand();
    /// Combine the two stored spectra into channel 1 for a target below 4, else
    /// into channel 2; where that fails the target stays as it was.
    void ConvolveSpectra(Integer target) override;
    void DeconvolveSpectra(Integer target) override;
    void getGray(Long c, Integer& g) const noexcept { quillon::getGray(c, g); }
    /// Counts the grey levels that a panel shows and shows them in the histogram
    /// box. Throws DivisionByZero for a panel without a pixel.
    void getHistogram(PictureBox& pb);
    /// The last request's percentages of the tallest level.
    const Histogram& histogram() const noexcept { return histogram_; }
    void LoadScriptCommand(const std::string& file);
    void SaveScriptCommand(const std::string& file);
    void EditScriptCommand();
    /// No filter, no inverted panel, magnitude view, recalculate.
    void ResetForScript();
    void markInvertEntry(Integer panel, EntryMark mark) override;
    void BatchCommand();
    /// Runs the files that File1 lists; the folder ends in a backslash.
    void RunBatch(const std::string& folder);
    void GridPatternCommand(Integer p);
    /// Opens the help in the platform's viewer and does not wait; id is not used.
    void ShowHelp(Integer id);
    /// A script that a page of the tutorial leads to: the light goes on, the lab is
    /// shown, and the script sets it up like one of the menu.
    void RunTutorialScript(const std::string& path);
    /// Opens a page of the web in the user's own browser.
    void OpenWebAddress(const std::string& address);
    /// Rolls a panel's picture with wrap-around from the copy in `mem`, by dx and
    /// dy pixels, and shows it. Both lie within one panel size.
    void ShiftPanel(Single dx, Single dy, PictureBox& pb);

    // --- Drawing tools (Form1_image_panels.cpp, Form1_drawing.cpp)
    /// End of the last stroke segment, and where the button went down.
    Single strokeLastX = 0;
    Single strokeLastY = 0;
    Single strokeStartX = 0;
    Single strokeStartY = 0;
    /// One table for both channels: lattice[0][0] is the count of points set, 0
    /// to 3; cells 1 to 3 of the rows hold x and y of P0, P1 and P2.
    std::array<std::array<Single, 4>, 2> lattice{};
    /// For panel id p: x and y of the press, then x and y of the latest move.
    std::array<std::array<Integer, 4>, 7> dragXY{};
    /// The last grid pattern code entered.
    std::string gridCode;
    void DrawStrokeTo(PictureBox& pb, Single X, Single Y);
    void DrawLatticePoints(PictureBox& pb);

    /// The image panel moved by the keyboard whose transform waits for a key's release.
    Integer pendingShiftPanel = 0;
    /// The batch stops after the image in progress.
    bool bStopBatch = false;
    bool batchRunning = false;

private:
    void showFirstPictures();
    bool takeUp(const std::string& session);
    void close(Ending ending);
    void takeOffProfile() noexcept;
    /// What became of the session, here or under TMP.
    SessionRescue::Result runClosing(Ending ending);
    void WriteDefaultSettings();
    void paintScheme();
    void askIntensityFactor(Channel which);
    enum class LutRedraw { No, Yes };
    void takeLutRow(Integer row, LutRedraw redraw);

    // Handlers of one kind of control each; Form1_events.cpp tells which event goes where.
    void imagePanelMouseDown(Channel which, Integer Button, Integer Shift, Single X, Single Y);
    void imagePanelMouseMove(Channel which, Integer Button, Integer Shift, Single X, Single Y);
    void imagePanelMouseUp(Channel which, Integer Button, Integer Shift, Single X, Single Y);
    void spectrumPanelMouseDown(Channel which, Integer Button, Integer Shift, Single X, Single Y);
    void spectrumPanelMouseMove(Channel which, Integer Button, Integer Shift, Single X, Single Y);
    void spectrumPanelMouseUp(Channel which, Integer Button, Integer Shift, Single X, Single Y);
    void reconstructionPanelMouseDown(Channel which, Integer Button, Integer Shift, Single X,
                                      Single Y);
    void reconstructionPanelMouseMove(Channel which, Integer Button, Integer Shift, Single X,
                                      Single Y);
    void reconstructionPanelMouseUp(Channel which, Integer Button, Integer Shift, Single X,
                                    Single Y);
    void intensityMouseDown(Channel which, Integer index, Integer Button);
    void intensityMouseUp(Channel which);
    void selectorMouseUp(Single Y);
    void dragOnLeftPress(Control& dragged, Integer Button, Integer Shift);
    void DrawHistogram();
    void histogramMouseMove(Single X, Single Y);
    void tabClick(Integer Index) override;
    void showAbout();
    void followLink(Integer Index);
    /// Makes the room dark around the panels or, in the Tutorial view, around the page.
    void LightOff();
    void darken();
    /// Where the hole reckons the client area to begin, in twips on the screen.
    struct ClientCorner {
        Single left;
        Single top;
    };
    ClientCorner clientCorner() const;
    HoleRect holeAroundPanels() const;
    HoleRect holeAroundTutorial() const;
    void takeDropped(Channel which, const std::string& file);
    void CopyData(Channel which);
    void ShowProfile(Integer panel, Single x, Single y);

    /// Runs the click handler of a menu.
    void choose(MenuArray array, Integer Index);
    // Click handlers of the panel menus, one for both channels.
    void imageMenu(Channel which, Integer Index);
    void spectrumMenu(Channel which, Integer Index);
    void reconstructionMenu(Channel which, Integer Index);
    void chooseFilter(Channel which, Integer Index);
    void chooseView(Integer Index);
    void viewFolder(const std::string& folder);
    void repaintLowPassMasks();
    /// Moves the histogram box onto the frame of the panel that was asked.
    void placeHistogram(Integer panel);
    /// Shows a panel's menu at the pointer; the release of the press is eaten.
    void popupPanelMenu(std::string_view title);
    /// "[x,y]  M=grey" of what a panel shows, in the pointer cell.
    void showGrey(const PictureBox& panel, Single X, Single Y);
    void drawingMenu(Channel which, Integer Index);
    void wipeForLattice(Channel which);
    void setLatticeInks(Channel which);
    void beginLattice(Channel which, Single X, Single Y);
    void setLatticePoint(Channel which, Single X, Single Y);
    void stretchLattice(PictureBox& pb, Single X, Single Y);
    void ShowLatticeReadout(Single X, Single Y);
    void beginRoll(Integer panel, Single X, Single Y);
    void rollTo(Integer panel, Single X, Single Y);
    void rollByKey(Channel which, Integer KeyCode);
    void showProfileLines(bool visible);
    void followRing(Channel which, Single X, Single Y);
    void stretchBand(Channel which, Single X, Single Y);
    void addMaskPair(Channel which, Single X, Single Y);

    FormHost* host_ = nullptr;
    Single scaleWidth_ = kDesignWidth;
    Single scaleHeight_ = kDesignHeight;
    /// None where sessions are not kept.
    std::unique_ptr<SessionKeeper> keeper_;
    /// The opening is over: the panels show what a closing can keep.
    bool opened_ = false;
    bool unloaded_ = false;
    /// Scripts under way: a script may lead to another.
    int scriptsRunning_ = 0;
    Histogram histogram_;
    /// The next release belongs to a press that opened a menu or to the second
    /// press of a double click, and reaches no handler.
    bool releaseEaten_ = false;
};

}  // namespace quillon
