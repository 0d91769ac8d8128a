#include "desktop/LabMenus.h"

#include <QAction>
#include <algorithm>
#include <utility>

#include "desktop/Conversions.h"
#include "engine/RunTimeError.h"

namespace quillon {

/// Keeps an action in step with its entry.
class LabMenus::EntryFace : public ControlWatcher {
public:
    EntryFace(MenuItem& item, QAction& action) : item_(item), action_(action) {
        action_.setObjectName(toQString(item.Name));
        item_.watch(this);
        takeState();
    }
    EntryFace(const EntryFace&) = delete;
    EntryFace& operator=(const EntryFace&) = delete;
    ~EntryFace() override { item_.watch(nullptr); }

    void stale(Control& /*control*/) override { takeState(); }
    void showNow(Control& /*control*/) override { takeState(); }

    void takeState() {
        if (!item_.separator())
            action_.setText(toQString(item_.Caption.get()));
        action_.setEnabled(item_.Enabled);
        action_.setVisible(item_.Visible);
        // Only a marked entry has a place for the mark, so that the toolkit does
        // not draw an empty box before all the others.
        action_.setCheckable(item_.Checked);
        action_.setChecked(item_.Checked);
    }

private:
    MenuItem& item_;
    QAction& action_;
};

LabMenus::LabMenus(Form1& form, QMenuBar& bar, std::function<void()> opening)
    : form_(form), bar_(bar), opening_(std::move(opening)) {
    for (const MenuTitleRow& row : menuTitles()) {
        QAction* action = nullptr;
        if (row.array >= 0) {
            QMenu* menu = build(static_cast<MenuArray>(row.array), toQString(row.name),
                                toQString(row.caption));
            titles_.push_back({row.name, menu});
            action = bar_.addMenu(menu);
        } else {
            action = bar_.addAction(toQString(row.caption));
        }
        faces_.push_back(std::make_unique<EntryFace>(form_.menuTitle(row.name), *action));
    }
}

LabMenus::~LabMenus() = default;

QMenu& LabMenus::menuOf(std::string_view title) {
    const auto found = std::ranges::find(titles_, title, &Title::name);
    if (found == titles_.end())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return *found->menu;
}

QMenu* LabMenus::build(MenuArray array, const QString& name, const QString& title) {
    auto* menu = new QMenu(title, &bar_);
    menu->setObjectName(name);
    QObject::connect(menu, &QMenu::aboutToShow, &bar_, [this] { opening_(); });
    Integer index = 0;
    for (const MenuEntryRow& row : menuEntries(array))
        addEntry(*menu, array, index++, row);
    return menu;
}

void LabMenus::addEntry(QMenu& menu, MenuArray array, Integer index, const MenuEntryRow& row) {
    QAction* action = nullptr;
    if (row.submenu >= 0) {
        const auto below = static_cast<MenuArray>(row.submenu);
        action =
            menu.addMenu(build(below, toQString(menuArrayName(below)), toQString(row.caption)));
    } else if (form_.menu(array, index).separator()) {
        action = menu.addSeparator();
    } else {
        action = menu.addAction(toQString(row.caption));
    }
    faces_.push_back(std::make_unique<EntryFace>(form_.menu(array, index), *action));
    EntryFace* face = faces_.back().get();
    if (row.submenu >= 0)
        return;
    QObject::connect(action, &QAction::triggered, &bar_, [this, array, index, face] {
        // The toolkit has turned the mark over; the entry's own state decides.
        face->takeState();
        form_.click(array, index);
    });
}

}  // namespace quillon
