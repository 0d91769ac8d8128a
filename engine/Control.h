#pragma once

#include <string>
#include <utility>

#include "engine/Color.h"
#include "engine/Numbers.h"

namespace quillon {

class Control;

/// Whoever shows a control. It outlives its registration at the control.
class ControlWatcher {
public:
    virtual ~ControlWatcher() = default;
    /// A property or the bitmap changed: the picture on the screen is stale and
    /// is painted when the event loop next runs.
    virtual void stale(Control& control) = 0;
    /// Show the control now, also in the midst of a computation.
    virtual void showNow(Control& control) = 0;
};

/// A value that belongs to a control. Assigning a different value makes the
/// control stale; assigning the same value does nothing.
template <class Value>
class Property {
public:
    explicit Property(Control& owner, Value start = Value{})
        : owner_(owner), value_(std::move(start)) {}
    Property(const Property&) = delete;

    Property& operator=(Value value);
    Property& operator=(const Property& other) { return *this = other.value_; }
    operator const Value&() const noexcept { return value_; }
    const Value& get() const noexcept { return value_; }

private:
    friend class Control;
    /// Takes the value without a word to the owner; tells whether it is another.
    bool take(Value value) {
        if (value_ == value)
            return false;
        value_ = std::move(value);
        return true;
    }

    Control& owner_;
    Value value_;
};

enum class Font : int { Arial, ArialNarrow, TimesNewRoman };

// Pointer shapes, by the platform's numbers.
inline constexpr Integer kPointerDefault = 0;
inline constexpr Integer kPointerArrow = 1;
inline constexpr Integer kPointerWait = 11;
inline constexpr Integer kPointerFourArrows = 15;
inline constexpr Integer kPointerCustom = 99;

/// What every control of a window has, as plain state. Positions and sizes are
/// in twips (15 to the pixel) within the parent, but in pixels for the shapes
/// and lines that lie in a panel of pixel scale.
class Control {
public:
    explicit Control(std::string name) : Name(std::move(name)) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    /// The control's name with its index, if it has one: "lbSTB(2)".
    const std::string Name;

    /// Free text. "!" marks computed content, "3D" a surface.
    std::string Tag;

    Property<std::string> Caption{*this};
    Property<std::string> ToolTipText{*this};
    Property<bool> Visible{*this, true};
    Property<bool> Enabled{*this, true};
    Property<Single> Left{*this};
    Property<Single> Top{*this};
    Property<Single> Width{*this};
    Property<Single> Height{*this};
    Property<ColorValue> ForeColor{*this, kBlack};
    Property<Integer> BorderStyle{*this};
    Property<Integer> BackStyle{*this, Integer{1}};
    Property<Integer> MousePointer{*this};
    /// Number of the picture of the cursor store that a pointer of 99 shows.
    Property<Integer> MouseIcon{*this};
    Property<Font> FontName{*this, Font::Arial};
    Property<bool> FontBold{*this};
    Property<Single> FontSize{*this, 8.25F};

    ColorValue BackColor() const noexcept { return backColor_; }
    /// A panel that gets a ground forgets what was drawn on it.
    virtual void setBackColor(ColorValue color);

    /// Shows the control as it now stands.
    virtual void Refresh();

    /// Left, Top, Width and Height in one step: the control is stale once. A width or height below
    /// 0 throws RunTimeError InvalidPropertyValue and changes nothing.
    void Move(Single left, Single top, Single width, Single height);

    void watch(ControlWatcher* watcher) noexcept { watcher_ = watcher; }

    /// Tells whoever shows the control that it has changed. Properties call it.
    virtual void changed();

protected:
    ColorValue backColor_ = kWhite;

private:
    ControlWatcher* watcher_ = nullptr;
};

template <class Value>
Property<Value>& Property<Value>::operator=(Value value) {
    if (take(std::move(value)))
        owner_.changed();
    return *this;
}

/// A line of text.
class Label : public Control {
public:
    using Control::Control;
    /// The label is shown as wide as its text where that is wider than Width.
    Property<bool> AutoSize{*this};
};

}  // namespace quillon
