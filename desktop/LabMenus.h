#pragma once

#include <QMenu>
#include <QMenuBar>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "ui/Form1.h"

namespace quillon {

/// The menu bar with its menus, built from the menu tables. What an entry shows
/// is read back from the entry's state at all times; a choice goes to the click
/// handler of its array.
class LabMenus {
public:
    /// @param opening called before any of the menus opens
    LabMenus(Form1& form, QMenuBar& bar, std::function<void()> opening);
    ~LabMenus();

    /// The menu that a title of the bar opens; throws RunTimeError
    /// SubscriptOutOfRange for a title without a menu.
    QMenu& menuOf(std::string_view title);

private:
    class EntryFace;

    QMenu* build(MenuArray array, const QString& name, const QString& title);
    void addEntry(QMenu& menu, MenuArray array, Integer index, const MenuEntryRow& row);

    Form1& form_;
    QMenuBar& bar_;
    std::function<void()> opening_;
    std::vector<std::unique_ptr<EntryFace>> faces_;
    struct Title {
        std::string_view name;
        QMenu* menu;
    };
    std::vector<Title> titles_;
};

}  // namespace quillon
