#pragma once

#include <span>

#include "engine/Numbers.h"

namespace quillon {

enum class ControlKind { PictureBox, Label, Frame, Shape, Line, Timer, Image, FileList, Browser };

/// One control of the window as built. Positions and sizes in twips within the
/// parent, in pixels where the parent is a panel of pixel scale. An index of -1
/// is a control that is not part of an array.
struct ControlRow {
    const char* name;
    int index;
    ControlKind kind;
    const char* parent;  ///< "Form1" for the window itself
    Single left;
    Single top;
    Single width;
    Single height;
    const char* caption = "";
    const char* toolTip = "";
    bool visible = true;
    /// What a screen reader says where the caption does not tell enough.
    const char* accessibleName = "";
};

/// All controls, parents before their children, later siblings above earlier ones.
std::span<const ControlRow> controlTable();

/// The window's client area as designed, in twips.
inline constexpr Single kDesignWidth = 13515;
inline constexpr Single kDesignHeight = 9465;

}  // namespace quillon
