#pragma once

#include <span>

#include "engine/Numbers.h"

namespace quillon {

/// The menu arrays, each with one click handler that takes the entry's Index.
enum class MenuArray : int {
    mnuImg1a,
    mnuImg1b,
    mnuFT1a,
    mnuNew1a,
    mnuImg2a,
    mnuImg2b,
    mnuFT2a,
    mnuNew2a,
    itmFile,
    itmSCR,
    itmOpt,
    itmOpt0,
    itmOpt1,
    itm10,
    itm10a,
};
inline constexpr int kMenuArrayCount = 15;

enum class StartMark { Plain, Checked };
enum class StartSight { Shown, Hidden };

/// One entry as built: its caption ("-" is a separator), whether it is checked
/// and visible at start, and the array it opens as a sub-menu, if any.
struct MenuEntryRow {
    const char* caption;
    StartMark mark = StartMark::Plain;
    StartSight sight = StartSight::Shown;
    int submenu = -1;
};

/// The entries of an array, by Index from 0.
std::span<const MenuEntryRow> menuEntries(MenuArray array);
/// The array's name: "mnuFT1a".
const char* menuArrayName(MenuArray array);

/// One title on the menu bar. Disabled titles are the bars that divide it.
struct MenuTitleRow {
    const char* name;     ///< "mnuImg1"
    const char* caption;  ///< "Image"
    int array;            ///< the MenuArray it opens, -1 for a divider
};

/// The titles from left to right.
std::span<const MenuTitleRow> menuTitles();

}  // namespace quillon
