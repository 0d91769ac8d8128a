#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/Control.h"
#include "scripting/FileListBox.h"

namespace quillon {

// Pictures for a pointer of kPointerCustom, by their number in the cursor store.
// The hand is kept apart from the store, in the control `hand`.
inline constexpr Integer kMouseIconHand = -1;    ///< whatever can be clicked
inline constexpr Integer kMouseIconDrawing = 2;  ///< image panels
inline constexpr Integer kMouseIconMasks = 4;    ///< FT panels under custom masks
inline constexpr Integer kMouseIconRing = 5;     ///< FT panels under a ring

/// A box with a caption on its upper border; without border (BorderStyle 0) the
/// caption stays.
class Frame : public Control {
public:
    using Control::Control;
};

/// One of a group of choices, of which one is on.
class OptionButton : public Control {
public:
    using Control::Control;
    Property<bool> Value{*this};
};

/// 1 checked, 0 unchecked.
class CheckBox : public Control {
public:
    using Control::Control;
    Property<Integer> Value{*this};
};

class CommandButton : public Control {
public:
    using Control::Control;
};

/// A small picture that acts as a button.
class ImageControl : public Control {
public:
    using Control::Control;
};

/// An outline or a filled circle above a panel, in panel pixels. Never part of
/// the panel's bitmap.
class Shape : public Control {
public:
    using Control::Control;
    /// 0 solid, 1 transparent.
    Property<Integer> FillStyle{*this, Integer{1}};
    Property<ColorValue> FillColor{*this, kBlack};
    Property<ColorValue> BorderColor{*this, kRed};
};

/// A straight line above a panel, drawn with the XOR pen, in panel pixels.
class LineControl : public Control {
public:
    using Control::Control;
    Property<Single> X1{*this};
    Property<Single> Y1{*this};
    Property<Single> X2{*this};
    Property<Single> Y2{*this};
    Property<ColorValue> BorderColor{*this, kWhite};
};

/// Ticks through the event loop while enabled.
class Timer : public Control {
public:
    explicit Timer(std::string name) : Control(std::move(name)) { Enabled = false; }
    /// In milliseconds.
    Property<Integer> Interval{*this, Integer{0}};
};

/// The pane that shows the tutorial. It keeps the last address asked for; the
/// desktop's pane follows when it exists.
class Browser : public Control {
public:
    using Control::Control;
    /// Address of the page asked for last, in the web or on the disk, with a count that rises at
    /// each request, so that the same page can be asked for again.
    Property<std::string> Address{*this};
    Property<Long> Requests{*this};
    /// The page on show: the one asked for last, or where links have led from it.
    /// Whoever shows the pane writes the latter.
    std::string Location;

    void Navigate2(const std::string& address) {
        Location = address;
        Address = address;
        Requests = Requests.get() + 1;
    }
};

/// One entry of a menu. A caption of "-" is a separator; its index counts. An
/// "&" stands before the letter of the access key.
class MenuItem : public Control {
public:
    using Control::Control;
    Property<bool> Checked{*this};

    bool separator() const { return Caption.get() == "-"; }
};

}  // namespace quillon
