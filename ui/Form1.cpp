#include "ui/Form1.h"

#include <algorithm>
#include <array>

#include "engine/RunTimeError.h"
#include "engine/lut_selector.h"

namespace quillon {

namespace {

std::string indexedName(std::string_view name, int index) {
    return index < 0 ? std::string(name) : std::string(name) + "(" + std::to_string(index) + ")";
}

/// The six panels and the button of the colour schemes have a border of one
/// pixel; the histogram box has none, so that its 256 columns fit.
Integer borderOf(std::string_view name) {
    const bool panel =
        name.size() == 3 && name.starts_with("pb") && name[2] >= '1' && name[2] <= '6';
    return panel || name == "btLUT" ? 1 : 0;
}

std::unique_ptr<Control> makeControl(const ControlRow& row) {
    const std::string name = indexedName(row.name, row.index);
    switch (row.kind) {
        case ControlKind::PictureBox:
            return std::make_unique<PictureBox>(name, row.width, row.height, borderOf(row.name));
        case ControlKind::Label:
            return std::make_unique<Label>(name);
        case ControlKind::Frame:
            return std::make_unique<Frame>(name);
        case ControlKind::Shape:
            return std::make_unique<Shape>(name);
        case ControlKind::Line:
            return std::make_unique<LineControl>(name);
        case ControlKind::Timer:
            return std::make_unique<Timer>(name);
        case ControlKind::Image:
            return std::make_unique<ImageControl>(name);
        case ControlKind::FileList:
            return std::make_unique<FileListBox>(name);
        case ControlKind::Browser:
            return std::make_unique<Browser>(name);
    }
    throw RunTimeError(ErrorNumber::TypeMismatch);
}

}  // namespace

struct Form1::Parts {
    struct Entry {
        const ControlRow* row;
        std::unique_ptr<Control> control;
    };
    std::vector<Entry> controls;
    std::array<std::vector<std::unique_ptr<MenuItem>>, kMenuArrayCount> menus;
    std::vector<std::unique_ptr<MenuItem>> titles;
    Rnd rnd;
    clComplexImage channel1;
    clComplexImage channel2;

    Parts(Desktop& desktop, MaskPainter& masks)
        : channel1(desktop, masks, rnd), channel2(desktop, masks, rnd) {
        for (const ControlRow& row : controlTable())
            controls.push_back({&row, place(row)});
        for (int array = 0; array < kMenuArrayCount; ++array)
            buildMenu(static_cast<MenuArray>(array));
        for (const MenuTitleRow& row : menuTitles()) {
            auto title = std::make_unique<MenuItem>(row.name);
            title->Caption = row.caption;
            title->Enabled = row.array >= 0;
            titles.push_back(std::move(title));
        }
    }

private:
    static std::unique_ptr<Control> place(const ControlRow& row) {
        auto control = makeControl(row);
        control->Move(row.left, row.top, row.width, row.height);
        control->Caption = row.caption;
        control->ToolTipText = row.toolTip;
        control->Visible = row.visible;
        if (row.kind == ControlKind::Frame && std::string_view(row.name).size() == 3)
            control->BorderStyle = 1;
        if (auto* line = dynamic_cast<LineControl*>(control.get())) {
            line->X1 = row.left;
            line->X2 = row.left + row.width;
            line->Y1 = row.top;
            line->Y2 = row.top;
        }
        return control;
    }

    void buildMenu(MenuArray array) {
        auto& items = menus[static_cast<std::size_t>(array)];
        for (const MenuEntryRow& row : menuEntries(array)) {
            auto item = std::make_unique<MenuItem>(
                indexedName(menuArrayName(array), static_cast<int>(items.size())));
            item->Caption = row.caption;
            item->Checked = row.mark == StartMark::Checked;
            item->Visible = row.sight == StartSight::Shown;
            items.push_back(std::move(item));
        }
    }
};

Form1::Form1(Desktop& desktop_, const Folders& folders)
    : Control("Form1"),
      parts_(std::make_unique<Parts>(desktop_, *this)),
      desktop(desktop_),
      mem(find<PictureBox>("mem")),
      img(find<PictureBox>("img")),
      frt1(find<Frame>("frt1")),
      fr1(find<Frame>("fr1")),
      fr2(find<Frame>("fr2")),
      fr3(find<Frame>("fr3")),
      fr4(find<Frame>("fr4")),
      fr5(find<Frame>("fr5")),
      fr6(find<Frame>("fr6")),
      pb1(find<PictureBox>("pb1")),
      pb2(find<PictureBox>("pb2")),
      pb3(find<PictureBox>("pb3")),
      pb4(find<PictureBox>("pb4")),
      pb5(find<PictureBox>("pb5")),
      pb6(find<PictureBox>("pb6")),
      pbh(find<PictureBox>("pbh")),
      lbHIS(find<Label>("lbHIS")),
      LHIST(find<Label>("LHIST")),
      Timer1(find<Timer>("Timer1")),
      File1(find<FileListBox>("File1")),
      ie5(find<Browser>("ie5")),
      btLUT(find<PictureBox>("btLUT")),
      imgDIM(find<ImageControl>("imgDIM")),
      frLUT(find<Frame>("frLUT")),
      pbLUT(find<PictureBox>("pbLUT")),
      Label1(find<Label>("Label1")),
      stb(find<PictureBox>("stb")),
      lab{.desktop = desktop_,
          .folders = folders,
          .channel1 = parts_->channel1,
          .channel2 = parts_->channel2,
          .pb1 = pb1,
          .pb2 = pb2,
          .pb3 = pb3,
          .pb4 = pb4,
          .pb5 = pb5,
          .pb6 = pb6,
          .mem = mem,
          .img = img,
          .lbSTB = {&find<Label>("lbSTB", 0), &find<Label>("lbSTB", 1), &find<Label>("lbSTB", 2)},
          .dimmed = [this] { return Tag == "DIM"; },
          .profiling = [this] { return Line1(0).Visible || Line1(1).Visible; }} {
    mem.setAutoRedraw(true);
    mem.AutoSize = true;
    img.setAutoRedraw(true);
    img.setBackColor(kRed);
    // What a transform reads before the first picture, and around one that is
    // smaller than the panel, is black.
    for (PictureBox* image : {&pb1, &pb4}) {
        image->setBackColor(kBlack);
        image->DrawWidth = 2;
    }
    Timer1.Interval = 10;
    File1.Pattern = "*.bmp;*.gif;*.jpg";
    pbh.FontName = Font::ArialNarrow;
    pbh.setAutoRedraw(true);
    Label2(0).FontBold = true;
    // No scheme paints the ground of these: they lie on that of their box.
    for (Label* label : {&Label1, &Label2(0), &LHIST, &lbHIS})
        label->BackStyle = 0;
    LHIST.AutoSize = true;
    lbTAB(0).FontBold = true;
    lbTAB(0).FontSize = 9;
    lbTAB(1).FontSize = 8;
    lbTAB(2).FontSize = 8;
    pbLUT.setPicture(lutSelectorPicture());
    btLUT.setAutoRedraw(true);
}

Form1::~Form1() = default;

Control& Form1::control(std::string_view name, int index) {
    const auto& all = parts_->controls;
    const auto found = std::ranges::find_if(all, [&](const Parts::Entry& entry) {
        return entry.row->name == name && entry.row->index == index;
    });
    if (found == all.end())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return *found->control;
}

std::vector<Control*> Form1::controls() const {
    std::vector<Control*> all;
    for (const Parts::Entry& entry : parts_->controls)
        all.push_back(entry.control.get());
    return all;
}

const ControlRow& Form1::rowOf(const Control& child) const {
    const auto& all = parts_->controls;
    const auto found = std::ranges::find_if(
        all, [&](const Parts::Entry& entry) { return entry.control.get() == &child; });
    if (found == all.end())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return *found->row;
}

Control* Form1::parentOf(const Control& child) {
    const std::string_view parent = rowOf(child).parent;
    return parent == "Form1" ? static_cast<Control*>(this) : &control(parent);
}

MenuItem& Form1::menu(MenuArray array, Integer index) {
    auto& items = parts_->menus[static_cast<std::size_t>(array)];
    if (index < 0 || static_cast<std::size_t>(index) >= items.size())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return *items[static_cast<std::size_t>(index)];
}

MenuItem& Form1::menuTitle(std::string_view name) {
    for (const auto& title : parts_->titles)
        if (title->Name == name)
            return *title;
    throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
}

Frame& Form1::frame(Integer panel) {
    return find<Frame>("fr" + std::to_string(panel));
}

}  // namespace quillon
