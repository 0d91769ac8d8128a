#pragma once

#include <array>
#include <span>

#include "ui/ControlTable.h"
#include "ui/Controls.h"

namespace quillon {

/// What stays bright of the screen while the light is off, in twips from the
/// screen's upper left corner.
struct HoleRect {
    Single Left = 0;
    Single Top = 0;
    Single Width = 0;
    Single Height = 0;
    friend bool operator==(const HoleRect&, const HoleRect&) = default;
};

/// Whole pixels; `right` and `bottom` lie just outside.
struct PixelRect {
    Long left = 0;
    Long top = 0;
    Long right = 0;
    Long bottom = 0;
    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// All that the dark knows of the window it surrounds.
class DimmedForm {
public:
    virtual ~DimmedForm() = default;
    /// The dark has faded out: the window gets its own look back.
    virtual void LightOn() = 0;
    /// Shows a menu of the window: 0 scripts, 1 options, 2 help; none for any other i.
    virtual void ShowRemotePopup(Integer i) = 0;
    virtual void remoteKeyPress(Integer& KeyAscii) = 0;
    virtual void remoteKeyUp(Integer& KeyCode, Integer& Shift) = 0;
    /// Escape for a batch or a script that is running; false where none is.
    virtual bool remoteEscape() = 0;
};

/// What the dark asks of the window that shows it.
class DimHost {
public:
    virtual ~DimHost() = default;
    /// From now on the window can be seen through. It shows nothing until its
    /// first opacity, and keeps its opacity where it could be seen through before.
    virtual void setLayeredBit() = 0;
    /// The window's opacity, 0 transparent to 255 black. A window that cannot
    /// be seen through ignores it.
    virtual void setLayeredAlpha(Integer alpha) = 0;
    /// Makes the window cover the screen and tells its size by frmDIM::resized.
    virtual void maximise() = 0;
    /// The window is `whole` without `hole`: in the hole what lies below is seen
    /// and gets the clicks. Both in pixels from the screen's upper left corner.
    virtual void setWindowRegion(const PixelRect& whole, const PixelRect& hole) = 0;
    /// The window goes, and its host with it.
    virtual void unloaded() = 0;
};

/// The dark of "light off" as plain state: black over the whole screen but for
/// a hole around what is looked at, with a fade at both ends and a mini menu
/// above the hole.
class frmDIM : public Control {
public:
    static constexpr Integer kLabels = 4;

    /// `holeRect` is read at each resize.
    frmDIM(const HoleRect& holeRect, DimmedForm& form);

    /// The mini menu with its labels, the timer and the hand, as built.
    static std::span<const ControlRow> controlTable();

    Property<Integer> WindowState{*this};
    Frame fr{"fr"};
    /// 0 "Scripts", 1 "Options", 2 "Help", 3 "[x]".
    Label& lb(Integer i) { return lb_.at(static_cast<std::size_t>(i)); }
    Timer Timer1{"Timer1"};
    /// Holds the pointer that shows where no menu protects from leaving the dark.
    ImageControl hand{"hand"};

    /// The opacity, 0 transparent to 255 black; a step may carry it beyond.
    Long fadeAlpha = 0;
    /// Added at each tick.
    Integer fadeStep = 0;
    /// 1 fading in, 2 fading out.
    Integer fadeDirection = 0;

    /// Gets its window and starts the fade-in; nothing where it is loaded. The
    /// window outlives it to its end or calls abandoned().
    void load(DimHost& host);
    bool isLoaded() const noexcept { return host_ != nullptr; }
    /// Asks it to go: it fades out first, unless there is nothing to be seen.
    /// While it is asked already it is not asked again.
    void unload();
    /// Its window has gone without having been asked.
    void abandoned() noexcept;

    // Events. Sizes in twips.
    void resized(Single width, Single height);
    void Timer1_Timer();
    /// A press on the dark itself.
    void MouseDown(Integer Button);
    /// A label of the mini menu.
    void Click(Control& where);
    void KeyDown(Integer KeyCode);
    void KeyPress(Integer KeyAscii);
    void KeyUp(Integer KeyCode, Integer Shift);

private:
    enum class Answer { Goes, Cancelled };
    void setUp();
    void Form_Load();
    void Form_Resize();
    Answer Form_QueryUnload();

    const HoleRect& holeRect_;
    DimmedForm& form_;
    DimHost* host_ = nullptr;
    bool asked_ = false;
    std::array<Label, kLabels> lb_;
};

}  // namespace quillon
