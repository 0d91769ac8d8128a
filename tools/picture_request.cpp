#include "tools/picture_request.h"

#include <array>
#include <cstddef>

namespace quillon {

const char* const kPictureUsage =
    "usage: quillon-picture [STEP...] OUT.png [SCRIPT]            the window\n"
    "       quillon-picture [STEP...] --row 1|2 OUT.png [SCRIPT]  a channel's three panels\n"
    "       quillon-picture [STEP...] --panels PREFIX [SCRIPT]    PREFIX-1.png to PREFIX-6.png\n"
    "steps, taken after the script in the order given:\n"
    "  --menu ARRAY:INDEX           a menu entry, such as itmOpt:14\n"
    "  --drag PANEL:X1,Y1,X2,Y2     a drag with the left button\n"
    "  --profile PANEL:X,Y          the Alt key over a point of panel 2 or 5\n"
    "  --intensity CHANNEL:FACTOR   the intensity factor of a spectrum\n";

namespace {

constexpr Integer kAltCode = 18;

/// "word:number,number...": the word and the numbers behind it.
struct Argument {
    QString head;
    std::vector<Single> values;
};

std::optional<Argument> argumentOf(const QString& text, std::size_t count) {
    const qsizetype colon = text.indexOf(u':');
    if (colon < 1)
        return std::nullopt;
    Argument argument{text.left(colon), {}};
    for (const QString& word : text.mid(colon + 1).split(u',')) {
        bool isNumber = false;
        argument.values.push_back(word.toFloat(&isNumber));
        if (!isNumber)
            return std::nullopt;
    }
    if (argument.values.size() != count)
        return std::nullopt;
    return argument;
}

std::optional<MenuArray> arrayOfName(const QString& name) {
    for (int i = 0; i < kMenuArrayCount; ++i)
        if (name == QLatin1String(menuArrayName(static_cast<MenuArray>(i))))
            return static_cast<MenuArray>(i);
    return std::nullopt;
}

/// The head as a number from 1 to `last`; 0 if it is none.
Integer ordinal(const Argument& argument, int last) {
    const int value = argument.head.toInt();
    return value >= 1 && value <= last ? static_cast<Integer>(value) : Integer{0};
}

std::optional<PictureStep> menuStep(const QString& text) {
    const auto argument = argumentOf(text, 1);
    const auto array = argument ? arrayOfName(argument->head) : std::nullopt;
    if (!array || argument->values[0] < 0 ||
        argument->values[0] >= static_cast<Single>(menuEntries(*array).size()))
        return std::nullopt;
    return MenuStep{*array, static_cast<Integer>(argument->values[0])};
}

std::optional<PictureStep> dragStep(const QString& text) {
    const auto argument = argumentOf(text, 4);
    const Integer panel = argument ? ordinal(*argument, 6) : Integer{0};
    if (panel == 0)
        return std::nullopt;
    const auto& at = argument->values;
    return DragStep{panel, at[0], at[1], at[2], at[3]};
}

std::optional<PictureStep> profileStep(const QString& text) {
    const auto argument = argumentOf(text, 2);
    const Integer panel = argument ? ordinal(*argument, 6) : Integer{0};
    if (panel != 2 && panel != 5)
        return std::nullopt;
    return ProfileStep{panel, argument->values[0], argument->values[1]};
}

std::optional<PictureStep> intensityStep(const QString& text) {
    const auto argument = argumentOf(text, 1);
    const Integer channel = argument ? ordinal(*argument, 2) : Integer{0};
    if (channel == 0)
        return std::nullopt;
    return IntensityStep{channel, argument->values[0]};
}

struct StepRow {
    const char* option;
    std::optional<PictureStep> (*read)(const QString&);
};

constexpr std::array<StepRow, 4> kSteps = {{
    {"--menu", menuStep},
    {"--drag", dragStep},
    {"--profile", profileStep},
    {"--intensity", intensityStep},
}};

const StepRow* stepRowOf(const QString& option) {
    for (const StepRow& row : kSteps)
        if (option == QLatin1String(row.option))
            return &row;
    return nullptr;
}

/// Takes an option with its value into the request; false if it makes no sense.
bool takeOption(PictureRequest& request, const QString& option, const QString& value) {
    if (const StepRow* row = stepRowOf(option)) {
        const auto step = row->read(value);
        if (step)
            request.steps.push_back(*step);
        return step.has_value();
    }
    if (option == QLatin1String("--row")) {
        request.shape = PictureShape::Row;
        request.row = static_cast<Integer>(value.toInt());
        return request.row == 1 || request.row == 2;
    }
    if (option == QLatin1String("--panels")) {
        request.shape = PictureShape::Panels;
        request.target = value;
        return true;
    }
    return false;
}

void drag(Form1& form, const DragStep& step) {
    PictureBox& panel = form.lab.panel(step.panel);
    form.MouseDown(panel, kLeftButton, 0, step.fromX, step.fromY);
    form.MouseMove(panel, kLeftButton, 0, step.toX, step.toY);
    form.MouseUp(panel, kLeftButton, 0, step.toX, step.toY);
}

void showProfile(Form1& form, const ProfileStep& step) {
    form.KeyDown(kAltCode, kAltKey);
    form.MouseMove(form.lab.panel(step.panel), 0, kAltKey, step.x, step.y);
}

}  // namespace

std::optional<PictureRequest> parsePictureRequest(const QStringList& words) {
    PictureRequest request;
    QStringList names;
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (!words[i].startsWith(QLatin1String("--"))) {
            names.append(words[i]);
            continue;
        }
        if (i + 1 == words.size() || !takeOption(request, words[i], words[i + 1]))
            return std::nullopt;
        ++i;
    }
    if (request.target.isEmpty()) {
        if (names.isEmpty())
            return std::nullopt;
        request.target = names.takeFirst();
    }
    // The whole rest is the script's name, blanks included, as at the window.
    request.script = names.join(u' ');
    return request;
}

void takeStep(Form1& form, const PictureStep& step) {
    if (const auto* menu = std::get_if<MenuStep>(&step))
        form.click(menu->array, menu->index);
    else if (const auto* stroke = std::get_if<DragStep>(&step))
        drag(form, *stroke);
    else if (const auto* profile = std::get_if<ProfileStep>(&step))
        showProfile(form, *profile);
    else if (const auto* intensity = std::get_if<IntensityStep>(&step))
        form.lab.channel(intensity->channel == 1 ? Channel::One : Channel::Two)
            .setIntFac(intensity->factor);
}

}  // namespace quillon
