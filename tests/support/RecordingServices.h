#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/Desktop.h"
#include "tests/support/RecordingFiles.h"

namespace quillon {

// Recording doubles of the services of engine/Desktop.h, all but the files.
// Every call appends one line "service.call(argument, argument)" to the log that
// all doubles of a RecordingDesktop share, and leaves a typed record.

class RecordingDialogs : public Dialogs {
public:
    struct Message {
        std::string text;
        std::string title;
        MessageIcon icon = MessageIcon::None;
        MessageButtons buttons = MessageButtons::Ok;
        friend bool operator==(const Message&, const Message&) = default;
    };
    struct Input {
        std::string prompt;
        std::string title;
        std::string preset;
        friend bool operator==(const Input&, const Input&) = default;
    };
    struct FileChoice {
        std::string fileName;
        Integer filterIndex = 1;
    };

    explicit RecordingDialogs(CallLog& log) : log_(log) {}

    /// What was shown, in order. The file dialogs are kept as they were opened.
    std::vector<Message> messages;
    std::vector<Input> inputs;
    std::vector<FileDialog> opens;
    std::vector<FileDialog> saves;

    /// Answers, taken from the front. A question, an input box or a file dialog
    /// that finds no answer fails the test and counts as No or as cancelled; a
    /// message with an OK button alone needs none.
    std::deque<MessageAnswer> messageAnswers;
    std::deque<std::optional<std::string>> inputAnswers;
    std::deque<std::optional<FileChoice>> openAnswers;
    std::deque<std::optional<FileChoice>> saveAnswers;

    void answerInput(std::string text) { inputAnswers.emplace_back(std::move(text)); }
    void cancelInput() { inputAnswers.emplace_back(std::nullopt); }
    void answerOpen(std::string path, Integer filterIndex = 1) {
        openAnswers.emplace_back(FileChoice{std::move(path), filterIndex});
    }
    void cancelOpen() { openAnswers.emplace_back(std::nullopt); }
    void answerSave(std::string path, Integer filterIndex = 1) {
        saveAnswers.emplace_back(FileChoice{std::move(path), filterIndex});
    }
    void cancelSave() { saveAnswers.emplace_back(std::nullopt); }

    /// Called while a message is on show.
    std::function<void(const Message&)> onMessage;

    MessageAnswer messageBox(const std::string& text, const std::string& title, MessageIcon icon,
                             MessageButtons buttons) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                        const std::string& preset) override;
    void showOpen(FileDialog& dialog) override;
    void showSave(FileDialog& dialog) override;

private:
    CallLog& log_;
};

/// Pictures are files of the RecordingFiles that hold a bitmap: a file without
/// one cannot be decoded. A bitmap that was saved can be loaded again.
class RecordingPictures : public Pictures {
public:
    RecordingPictures(CallLog& log, RecordingFiles& files) : log_(log), files_(files) {}

    /// What was saved, in order, with the path as given.
    std::vector<std::pair<std::string, Bitmap>> saved;
    /// How each of them was written.
    std::vector<WriteManner> manners;
    /// Paths, as given, that save() refuses with PathFileAccessError.
    std::set<std::string> failingSaves;

    /// Puts a picture there, or a file that cannot be decoded.
    void add(const std::string& path, const Bitmap& picture);
    void addUndecodable(const std::string& path);

    Bitmap load(const std::string& path) override;
    void save(const Bitmap& picture, const std::string& path) override;

private:
    CallLog& log_;
    RecordingFiles& files_;
};

class RecordingClipboard : public Clipboard {
public:
    explicit RecordingClipboard(CallLog& log) : log_(log) {}

    std::optional<std::string> text;
    std::optional<Bitmap> content;

    void clear() override;
    void setText(const std::string& newText) override;
    void setPicture(const Bitmap& picture) override;
    bool hasPicture() override;
    Bitmap picture() override;

private:
    CallLog& log_;
};

/// Every character is a solid block of kCharacterWidth by kCharacterHeight pixels.
class RecordingTextPainter : public TextPainter {
public:
    static constexpr int kCharacterWidth = 6;
    static constexpr int kCharacterHeight = 8;
    struct Text {
        std::string text;
        int x = 0;
        int y = 0;
        Font font = Font::Arial;
        Single points = 0;
        ColorValue color;
        friend bool operator==(const Text&, const Text&) = default;
    };

    explicit RecordingTextPainter(CallLog& log) : log_(log) {}

    std::vector<Text> texts;

    void draw(Bitmap& canvas, int x, int y, const std::string& text, Font font, Single points,
              ColorValue color) override;
    int width(const std::string& text, Font font, Single points) override;

private:
    CallLog& log_;
};

class RecordingPrinter : public Printer {
public:
    struct Mark {
        /// "text", "picture" or "box".
        std::string kind;
        Single x = 0;
        Single y = 0;
        Single width = 0;
        Single height = 0;
        std::string text;
        Bitmap picture;
    };

    explicit RecordingPrinter(CallLog& log) : log_(log) {}

    /// What stands on the pages, in order.
    std::vector<Mark> marks;
    Integer currentOrientation = 1;
    Single portraitWidth = 11906;
    Single landscapeWidth = 16838;
    int documents = 0;
    /// The call of this name ("print", "paintPicture", ...) throws PrinterError.
    std::string failingCall;

    Integer orientation() override;
    void setOrientation(Integer orientation) override;
    Single pageWidth() override;
    void setCurrentPosition(Single x, Single y) override;
    void print(const std::string& text) override;
    void paintPicture(const Bitmap& picture, Single x, Single y, Single width,
                      Single height) override;
    void box(Single x, Single y, Single width, Single height) override;
    void endDocument() override;

private:
    void record(const std::string& call, const std::string& arguments);

    CallLog& log_;
    Single x_ = 0;
    Single y_ = 0;
};

class RecordingShell : public Shell {
public:
    struct Call {
        std::string program;
        std::string parameters;
        std::string directory;
        friend bool operator==(const Call&, const Call&) = default;
    };

    explicit RecordingShell(CallLog& log) : log_(log) {}

    std::vector<Call> calls;
    std::vector<std::string> addresses;
    /// What becomes of a program, by its name, or of an address. What has no
    /// outcome here is opened.
    std::map<std::string, Opening> outcomes;

    Opening execute(const std::string& program, const std::string& parameters,
                    const std::string& directory) override;
    Opening openAddress(const std::string& address) override;

private:
    Opening outcomeOf(const std::string& what) const;

    CallLog& log_;
};

class RecordingScreen : public Screen {
public:
    explicit RecordingScreen(CallLog& log) : log_(log) {}

    /// Every pointer that was set, in order.
    std::vector<Integer> pointers;
    int yields = 0;
    int beeps = 0;
    /// Names of the controls that were dragged.
    std::vector<std::string> dragged;
    std::map<SystemColor, ColorValue> colors = {
        {SystemColor::ButtonFace, RGB(240, 240, 240)},
        {SystemColor::ButtonShadow, RGB(160, 160, 160)},
    };

    /// What happens at the next yields: one entry for each, taken from the front.
    std::deque<std::function<void()>> nextYields;
    /// What happens at every yield, after that.
    std::function<void()> onYield;
    /// Moves the control as a user would.
    std::function<void(Control&)> onDrag;

    void setMousePointer(Integer pointer) override;
    void pendingEvents() override;
    void beep() override;
    ColorValue systemColor(SystemColor color) override;
    void dragControl(Control& control) override;

private:
    CallLog& log_;
};

class RecordingEnvironment : public Environment {
public:
    RecordingEnvironment(CallLog& log, RecordingFiles& files) : log_(log), files_(files) {}

    std::map<std::string, std::string> variables = {{"TMP", "C:\\Temp"}};
    std::string dataFolder = "C:\\Users\\Student\\Data";
    std::string program = "C:\\Quillon";
    std::string executable = "Quillon";
    std::string arguments;
    LocalTime time{2024, 3, 9, 8, 5};
    /// What was written to the standard error output.
    std::vector<std::string> errors;

    std::string variable(const std::string& name) override;
    std::string applicationDataFolder() override;
    std::string programFolder() override;
    std::string executableName() override;
    std::string commandLine() override;
    LocalTime now() override;
    void printError(const std::string& text) override;

private:
    CallLog& log_;
    RecordingFiles& files_;
};

class RecordingStringStore : public StringStore {
public:
    explicit RecordingStringStore(CallLog& log) : log_(log) {}

    /// By key and name; a number by its text.
    std::map<std::pair<std::string, std::string>, std::string> values;
    bool writable = true;

    std::string read(const std::string& key, const std::string& name) override;
    void write(const std::string& key, const std::string& name, const std::string& value) override;
    void writeNumber(const std::string& key, const std::string& name, Long value) override;

private:
    CallLog& log_;
};

}  // namespace quillon
