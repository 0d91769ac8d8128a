#include "tests/support/RecordingServices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "engine/RunTimeError.h"

namespace quillon {
namespace {

/// "a, b, c", numbers in their shortest form.
template <class... Arguments>
std::string list(const Arguments&... arguments) {
    std::ostringstream text;
    const char* separator = "";
    ((text << separator << arguments, separator = ", "), ...);
    return text.str();
}

/// "service.call(a, b, c)"
template <class... Arguments>
std::string line(const char* call, const Arguments&... arguments) {
    return std::string(call) + "(" + list(arguments...) + ")";
}

std::string size(const Bitmap& picture) {
    return std::to_string(picture.width) + "x" + std::to_string(picture.height);
}

const char* name(Font font) {
    switch (font) {
        case Font::Arial:
            return "Arial";
        case Font::ArialNarrow:
            return "ArialNarrow";
        case Font::TimesNewRoman:
            return "TimesNewRoman";
    }
    return "unknown font";
}

/// Takes the next answer, or fails the test and gives `otherwise`.
template <class Answer>
Answer next(std::deque<Answer>& answers, const std::string& question, Answer otherwise) {
    if (answers.empty()) {
        ADD_FAILURE() << "no answer is queued for " << question;
        return otherwise;
    }
    Answer answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

void choose(FileDialog& dialog, const std::optional<RecordingDialogs::FileChoice>& choice) {
    if (!choice.has_value())
        throw RunTimeError(ErrorNumber::DialogCancelled);
    dialog.FileName = choice->fileName;
    dialog.FilterIndex = choice->filterIndex;
}

/// Characters of a UTF-8 text: all bytes but the continuing ones.
int characters(const std::string& text) {
    return static_cast<int>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    }));
}

}  // namespace

MessageAnswer RecordingDialogs::messageBox(const std::string& text, const std::string& title,
                                           MessageIcon icon, MessageButtons buttons) {
    const bool question = buttons == MessageButtons::YesNo;
    log_.add(
        line("dialogs.messageBox", text, title, static_cast<int>(icon), question ? "YesNo" : "Ok"));
    messages.push_back(Message{text, title, icon, buttons});
    if (onMessage)
        onMessage(Message(messages.back()));
    return question ? next(messageAnswers, text, MessageAnswer::No) : MessageAnswer::Ok;
}

std::optional<std::string> RecordingDialogs::inputBox(const std::string& prompt,
                                                      const std::string& title,
                                                      const std::string& preset) {
    log_.add(line("dialogs.inputBox", prompt, title, preset));
    inputs.push_back(Input{prompt, title, preset});
    return next(inputAnswers, prompt, std::optional<std::string>());
}

void RecordingDialogs::showOpen(FileDialog& dialog) {
    log_.add(line("dialogs.showOpen", dialog.DialogTitle, dialog.InitDir, dialog.FileName));
    opens.push_back(dialog);
    choose(dialog, next(openAnswers, "the open dialog", std::optional<FileChoice>()));
}

void RecordingDialogs::showSave(FileDialog& dialog) {
    log_.add(line("dialogs.showSave", dialog.DialogTitle, dialog.InitDir, dialog.FileName));
    saves.push_back(dialog);
    choose(dialog, next(saveAnswers, "the save dialog", std::optional<FileChoice>()));
}

void RecordingPictures::add(const std::string& path, const Bitmap& picture) {
    files_.addFile(path, "BM " + size(picture)).picture = picture;
}

void RecordingPictures::addUndecodable(const std::string& path) {
    files_.addFile(path, "no picture");
}

Bitmap RecordingPictures::load(const std::string& path) {
    log_.add(line("pictures.load", path));
    const RecordingFiles::File* file = files_.find(path);
    if (file == nullptr)
        throw RunTimeError(ErrorNumber::FileNotFound);
    if (!file->picture.has_value())
        throw RunTimeError(ErrorNumber::InvalidPicture);
    return *file->picture;
}

void RecordingPictures::save(const Bitmap& picture, const std::string& path) {
    log_.add(line("pictures.save", size(picture), path));
    if (picture.empty())
        throw RunTimeError(ErrorNumber::InvalidPicture);
    if (failingSaves.contains(path))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    files_.checkWritable(path);
    add(path, picture);
    saved.emplace_back(path, picture);
    manners.push_back(files_.writeManner);
}

void RecordingClipboard::clear() {
    log_.add("clipboard.clear()");
    text.reset();
    content.reset();
}

void RecordingClipboard::setText(const std::string& newText) {
    log_.add(line("clipboard.setText", newText));
    text = newText;
}

void RecordingClipboard::setPicture(const Bitmap& picture) {
    log_.add(line("clipboard.setPicture", size(picture)));
    content = picture;
}

bool RecordingClipboard::hasPicture() {
    log_.add("clipboard.hasPicture()");
    return content.has_value();
}

Bitmap RecordingClipboard::picture() {
    log_.add("clipboard.picture()");
    if (!content.has_value())
        throw RunTimeError(ErrorNumber::InvalidPicture);
    return *content;
}

void RecordingTextPainter::draw(Bitmap& canvas, int x, int y, const std::string& text, Font font,
                                Single points, ColorValue color) {
    log_.add(line("text.draw", x, y, text, name(font), points, color.value));
    texts.push_back(Text{text, x, y, font, points, color});
    const int right = x + kCharacterWidth * characters(text);
    for (int row = std::max(y, 0); row < std::min(y + kCharacterHeight, canvas.height); ++row)
        for (int column = std::max(x, 0); column < std::min(right, canvas.width); ++column)
            canvas.at(column, row) = toPixelWord(color);
}

int RecordingTextPainter::width(const std::string& text, Font font, Single points) {
    log_.add(line("text.width", text, name(font), points));
    return kCharacterWidth * characters(text);
}

void RecordingPrinter::record(const std::string& call, const std::string& arguments) {
    log_.add("printer." + call + "(" + arguments + ")");
    if (call == failingCall)
        throw RunTimeError(ErrorNumber::PrinterError);
}

Integer RecordingPrinter::orientation() {
    record("orientation", "");
    return currentOrientation;
}

void RecordingPrinter::setOrientation(Integer orientation) {
    record("setOrientation", std::to_string(orientation));
    currentOrientation = orientation;
}

Single RecordingPrinter::pageWidth() {
    record("pageWidth", "");
    return currentOrientation == 2 ? landscapeWidth : portraitWidth;
}

void RecordingPrinter::setCurrentPosition(Single x, Single y) {
    record("setCurrentPosition", list(x, y));
    x_ = x;
    y_ = y;
}

void RecordingPrinter::print(const std::string& text) {
    record("print", text);
    marks.push_back(Mark{"text", x_, y_, 0, 0, text, {}});
}

void RecordingPrinter::paintPicture(const Bitmap& picture, Single x, Single y, Single width,
                                    Single height) {
    record("paintPicture", list(size(picture), x, y, width, height));
    marks.push_back(Mark{"picture", x, y, width, height, "", picture});
}

void RecordingPrinter::box(Single x, Single y, Single width, Single height) {
    record("box", list(x, y, width, height));
    marks.push_back(Mark{"box", x, y, width, height, "", {}});
}

void RecordingPrinter::endDocument() {
    record("endDocument", "");
    ++documents;
}

Opening RecordingShell::outcomeOf(const std::string& what) const {
    const auto found = outcomes.find(what);
    return found == outcomes.end() ? Opening::Asked : found->second;
}

Opening RecordingShell::execute(const std::string& program, const std::string& parameters,
                                const std::string& directory) {
    log_.add(line("shell.execute", program, parameters, directory));
    calls.push_back(Call{program, parameters, directory});
    return outcomeOf(program);
}

Opening RecordingShell::openAddress(const std::string& address) {
    log_.add(line("shell.openAddress", address));
    addresses.push_back(address);
    return outcomeOf(address);
}

void RecordingScreen::setMousePointer(Integer pointer) {
    log_.add(line("screen.setMousePointer", pointer));
    pointers.push_back(pointer);
}

void RecordingScreen::pendingEvents() {
    log_.add("screen.pendingEvents()");
    ++yields;
    if (!nextYields.empty()) {
        const std::function<void()> event = std::move(nextYields.front());
        nextYields.pop_front();
        if (event)
            event();
    }
    if (onYield)
        onYield();
}

void RecordingScreen::beep() {
    log_.add("screen.beep()");
    ++beeps;
}

ColorValue RecordingScreen::systemColor(SystemColor color) {
    log_.add(line("screen.systemColor", static_cast<int>(color)));
    return colors.at(color);
}

void RecordingScreen::dragControl(Control& control) {
    log_.add(line("screen.dragControl", control.Name));
    dragged.push_back(control.Name);
    if (onDrag)
        onDrag(control);
}

std::string RecordingEnvironment::variable(const std::string& name) {
    log_.add(line("environment.variable", name));
    const auto found = variables.find(name);
    return found == variables.end() ? std::string() : found->second;
}

std::string RecordingEnvironment::applicationDataFolder() {
    log_.add("environment.applicationDataFolder()");
    files_.addFolder(dataFolder);
    return dataFolder;
}

std::string RecordingEnvironment::programFolder() {
    log_.add("environment.programFolder()");
    files_.addFolder(program);
    return program;
}

std::string RecordingEnvironment::executableName() {
    log_.add("environment.executableName()");
    return executable;
}

std::string RecordingEnvironment::commandLine() {
    log_.add("environment.commandLine()");
    return arguments;
}

LocalTime RecordingEnvironment::now() {
    log_.add("environment.now()");
    return time;
}

void RecordingEnvironment::printError(const std::string& text) {
    log_.add(line("environment.printError", text));
    errors.push_back(text);
}

std::string RecordingStringStore::read(const std::string& key, const std::string& name) {
    log_.add(line("store.read", key, name));
    const auto found = values.find({key, name});
    return found == values.end() ? std::string() : found->second;
}

void RecordingStringStore::write(const std::string& key, const std::string& name,
                                 const std::string& value) {
    log_.add(line("store.write", key, name, value));
    if (writable)
        values[{key, name}] = value;
}

void RecordingStringStore::writeNumber(const std::string& key, const std::string& name,
                                       Long value) {
    log_.add(line("store.writeNumber", key, name, std::to_string(value)));
    if (writable)
        values[{key, name}] = std::to_string(value);
}

}  // namespace quillon
