#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Bitmap.h"
#include "engine/Control.h"
#include "engine/Numbers.h"

namespace quillon {

// What the lab asks of the desktop it runs on. Each service is small and is
// implemented twice: with the toolkit for the window, and as a recording double
// for the tests. Paths in the lab have backslashes; the services turn them into
// native paths. On a POSIX system a path that begins with "/" is taken as it is.
// A service that fails throws RunTimeError, unless it says otherwise.

enum class MessageIcon : int {
    None = 0,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64
};
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

/// The common file dialog with what it keeps between openings.
struct FileDialog {
    /// Of the next opening alone; the empty one is the desktop's own.
    std::string DialogTitle;
    std::string FileName;
    std::string InitDir;
    /// "Name (*.a;*.b)|*.a;*.b|Other (*.c)|*.c"
    std::string Filter;
    /// Which filter was in force at the end, from 1.
    Integer FilterIndex = 1;

    /// Sets what every opening has of its own; what is not here stays from the last.
    void prepare(const std::string& folder, const std::string& filter,
                 const std::string& title = "") {
        DialogTitle = title;
        InitDir = folder;
        Filter = filter;
    }
};

class Dialogs {
public:
    virtual ~Dialogs() = default;
    /// Shows a message and waits for it. An empty title is the program's own.
    virtual MessageAnswer messageBox(const std::string& text, const std::string& title,
                                     MessageIcon icon, MessageButtons buttons) = 0;
    /// The text entered, nothing where the box was cancelled.
    virtual std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                                const std::string& preset) = 0;
    /// Show the dialog and set FileName and FilterIndex. A cancelled dialog
    /// throws RunTimeError DialogCancelled and leaves FileName as it was.
    virtual void showOpen(FileDialog& dialog) = 0;
    /// The name has the suffix that nameToSave() gives it before the user is asked
    /// whether a file of that name is to be replaced.
    virtual void showSave(FileDialog& dialog) = 0;
};

class Pictures {
public:
    virtual ~Pictures() = default;
    /// Decodes a BMP, GIF or JPEG file to words 0x00RRGGBB, the first frame of
    /// an animation, turned upright by its orientation tag; what is transparent
    /// lies on white. Throws FileNotFound (53) for a missing file and
    /// InvalidPicture (481) for one that cannot be decoded.
    virtual Bitmap load(const std::string& path) = 0;
    /// Writes a Windows bitmap of 24 bits a pixel, whole or not at all. Throws what
    /// Files::write() throws where it cannot, InvalidPicture for the empty picture.
    virtual void save(const Bitmap& picture, const std::string& path) = 0;
};

class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void clear() = 0;
    virtual void setText(const std::string& text) = 0;
    /// Puts the picture there in the desktop's own form and as PNG bytes.
    virtual void setPicture(const Bitmap& picture) = 0;
    /// True only for a picture that can be decoded, whatever the clipboard promises.
    virtual bool hasPicture() = 0;
    /// Throws InvalidPicture where there is none.
    virtual Bitmap picture() = 0;
};

class TextPainter {
public:
    virtual ~TextPainter() = default;
    virtual void draw(Bitmap& canvas, int x, int y, const std::string& text, Font font,
                      Single points, ColorValue color) = 0;
    /// Width of the text in pixels.
    virtual int width(const std::string& text, Font font, Single points) = 0;
};

/// A page under way. Lengths are twips on the page. Throws PrinterError (482)
/// where printing fails.
class Printer {
public:
    virtual ~Printer() = default;
    virtual Integer orientation() = 0;
    /// 1 portrait, 2 landscape.
    virtual void setOrientation(Integer orientation) = 0;
    virtual Single pageWidth() = 0;
    virtual void setCurrentPosition(Single x, Single y) = 0;
    /// One line of text at the current position.
    virtual void print(const std::string& text) = 0;
    virtual void paintPicture(const Bitmap& picture, Single x, Single y, Single width,
                              Single height) = 0;
    /// The outline of a black box.
    virtual void box(Single x, Single y, Single width, Single height) = 0;
    virtual void endDocument() = 0;
};

/// What became of something that another program was to open.
enum class Opening {
    /// A program has been asked to; nobody waits for it.
    Asked,
    /// The file or folder is not there.
    Missing,
    /// There is no program that opens it.
    NoProgram,
    /// The address is of a kind that leads nowhere by agreement; nobody was asked.
    Reserved
};

class Shell {
public:
    virtual ~Shell() = default;
    /// Opens the file that `program` names, without waiting. "explorer.exe",
    /// "notepad.exe" and "hh.exe" mean the desktop's own handler for folders, text
    /// files and the help. A document is never run.
    virtual Opening execute(const std::string& program, const std::string& parameters,
                            const std::string& directory) = 0;
    /// Opens an address in the user's browser, but none under a top-level domain that
    /// is reserved for examples and tests: it would show an error page at best.
    virtual Opening openAddress(const std::string& address) = 0;
};

/// System colours by the platform's index.
enum class SystemColor : int { ButtonFace = 15, ButtonShadow = 16 };

class Screen {
public:
    virtual ~Screen() = default;
    /// The pointer for the whole screen: kPointerWait or kPointerDefault.
    virtual void setMousePointer(Integer pointer) = 0;
    /// Lets the event loop run once.
    virtual void pendingEvents() = 0;
    virtual void beep() = 0;
    virtual ColorValue systemColor(SystemColor color) = 0;
    /// The window manager, or the control's own widget, drags the control until
    /// the left button is up; a control inside a parent stays within it.
    virtual void dragControl(Control& control) = 0;
};

/// A moment of local time.
struct LocalTime {
    int year = 0;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
};

class Environment {
public:
    virtual ~Environment() = default;
    /// The variable's value, empty where it is not set. "TMP" is always set for
    /// the lab: to its own private folder where the user has set none.
    virtual std::string variable(const std::string& name) = 0;
    /// The user's application-data folder, made if needed, without a closing backslash.
    virtual std::string applicationDataFolder() = 0;
    /// The folder of the program and its documents, without a closing backslash.
    virtual std::string programFolder() = 0;
    /// The program's name without extension.
    virtual std::string executableName() = 0;
    /// All arguments joined by one blank.
    virtual std::string commandLine() = 0;
    virtual LocalTime now() = 0;
    /// Writes a text and a line end to the standard error output, for what no box
    /// can say any more. Never throws.
    virtual void printError(const std::string& text) = 0;
};

/// The per-user string store.
class StringStore {
public:
    virtual ~StringStore() = default;
    /// The empty string for anything absent; never throws.
    virtual std::string read(const std::string& key, const std::string& name) = 0;
    /// A store that cannot be written remembers nothing; never throws. A number
    /// reads as its decimal text.
    virtual void write(const std::string& key, const std::string& name,
                       const std::string& value) = 0;
    virtual void writeNumber(const std::string& key, const std::string& name, Long value) = 0;
};

/// How much care a write takes. Careful: it comes back only when the file would
/// outlive a failure of the power, and a file of the same name in other letters is
/// the one that is replaced. Quick: it does neither, because a disk takes its time
/// and a folder may hold thousands of names; for files that can be made again.
enum class WriteManner { Careful, Quick };

/// A file that one running program holds against all others. It is let go with
/// the object, and with the program however that ends.
class HeldFile {
public:
    virtual ~HeldFile() = default;
};

/// Files and folders. Names are found without regard to case where the exact
/// name does not exist.
class Files {
public:
    virtual ~Files() = default;
    virtual bool isFolder(const std::string& path) = 0;
    /// True for a file, no folder, that the user may read. Never throws.
    virtual bool isReadable(const std::string& path) = 0;
    /// Length in bytes; throws FileNotFound where there is no such file.
    virtual std::uint64_t length(const std::string& path) = 0;
    /// Gives the owner write permission where the file is the user's own and lacks it.
    virtual void clearAttributes(const std::string& path) = 0;
    virtual void createFolder(const std::string& path) = 0;
    /// Gives a folder another name or place on the same disk, in one step. Throws
    /// PathFileAccessError where anything is at the new place already.
    virtual void moveFolder(const std::string& from, const std::string& to) = 0;
    /// Removes a folder with all that it holds, and links without what they lead to.
    virtual void removeFolder(const std::string& path) = 0;
    /// Makes an empty file; false where something of that name, in any case of
    /// letters, is there already. Of two programs at once one alone gets true.
    virtual bool createFile(const std::string& path) = 0;
    /// File names (no folders) in `folder` that match one of the patterns of a
    /// list such as "*.bmp;*.gif", in any case of letters, sorted by name. "*.*" is every file.
    virtual std::vector<std::string> list(const std::string& folder,
                                          const std::string& patterns) = 0;
    virtual void copy(const std::string& from, const std::string& to) = 0;
    virtual void remove(const std::string& path) = 0;
    /// The bytes of a file.
    virtual std::string read(const std::string& path) = 0;
    /// Writes a file whole or not at all; a new file is readable by the user's group as usual.
    virtual void write(const std::string& path, std::string_view bytes) = 0;
    /// How write() goes about it from now on; at the start it is careful.
    virtual void setWriteManner(WriteManner manner) = 0;
    /// Writes a file for a short while that nobody but the user may read, refusing
    /// to follow a link that somebody else has planted there. It waits for no disk.
    virtual void writePrivately(const std::string& path, std::string_view bytes) = 0;
    /// When the file was last written, to be compared with that of another file;
    /// throws FileNotFound where there is no such file.
    virtual std::int64_t lastWritten(const std::string& path) = 0;
    /// Holds a file, which is made, empty, where it is missing. Nothing where
    /// another holds it, or where it cannot be held at all.
    virtual std::unique_ptr<HeldFile> hold(const std::string& path) = 0;
};

/// All services together. The lab keeps references to them for its whole life.
struct Desktop {
    Dialogs& dialogs;
    Pictures& pictures;
    Clipboard& clipboard;
    TextPainter& text;
    Printer& printer;
    Shell& shell;
    Screen& screen;
    Environment& environment;
    StringStore& store;
    Files& files;
};

}  // namespace quillon
