#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/Lab.h"
#include "engine/Desktop.h"
#include "engine/Rnd.h"
#include "engine/RunTimeError.h"

namespace quillon {

// Services of a desktop on which nothing happens.

class NullDialogs : public Dialogs {
public:
    int messages = 0;
    std::string lastMessage;
    MessageAnswer messageBox(const std::string& text, const std::string& /*title*/,
                             MessageIcon /*icon*/, MessageButtons /*buttons*/) override {
        ++messages;
        lastMessage = text;
        return MessageAnswer::Ok;
    }
    std::optional<std::string> inputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                                        const std::string& /*preset*/) override {
        return std::nullopt;
    }
    void showOpen(FileDialog& /*dialog*/) override {
        throw RunTimeError(ErrorNumber::DialogCancelled);
    }
    void showSave(FileDialog& dialog) override { showOpen(dialog); }
};

/// A file whose path ends in "z" holds the empty picture; no other can be decoded,
/// so that most runs do without the transforms, which take a thousand times as
/// long as the reading.
class NullPictures : public Pictures {
public:
    Bitmap load(const std::string& path) override {
        if (!path.ends_with('z'))
            throw RunTimeError(ErrorNumber::InvalidPicture);
        return {};
    }
    void save(const Bitmap& /*picture*/, const std::string& /*path*/) override {}
};

class NullClipboard : public Clipboard {
public:
    void clear() override {}
    void setText(const std::string& /*text*/) override {}
    void setPicture(const Bitmap& /*picture*/) override {}
    bool hasPicture() override { return false; }
    Bitmap picture() override { throw RunTimeError(ErrorNumber::InvalidPicture); }
};

class NullText : public TextPainter {
public:
    void draw(Bitmap& /*canvas*/, int /*x*/, int /*y*/, const std::string& /*text*/, Font /*font*/,
              Single /*points*/, ColorValue /*color*/) override {}
    int width(const std::string& /*text*/, Font /*font*/, Single /*points*/) override { return 0; }
};

class NullPrinter : public Printer {
public:
    Integer orientation() override { return 1; }
    void setOrientation(Integer /*orientation*/) override {}
    Single pageWidth() override { return 0; }
    void setCurrentPosition(Single /*x*/, Single /*y*/) override {}
    void print(const std::string& /*text*/) override {}
    void paintPicture(const Bitmap& /*picture*/, Single /*x*/, Single /*y*/, Single /*width*/,
                      Single /*height*/) override {}
    void box(Single /*x*/, Single /*y*/, Single /*width*/, Single /*height*/) override {}
    void endDocument() override {}
};

class NullShell : public Shell {
public:
    Opening execute(const std::string& /*program*/, const std::string& /*parameters*/,
                    const std::string& /*directory*/) override {
        return Opening::Missing;
    }
    Opening openAddress(const std::string& /*address*/) override { return Opening::NoProgram; }
};

class NullScreen : public Screen {
public:
    void setMousePointer(Integer /*pointer*/) override {}
    void pendingEvents() override {}
    void beep() override {}
    ColorValue systemColor(SystemColor /*color*/) override { return kBlack; }
    void dragControl(Control& /*control*/) override {}
};

class NullEnvironment : public Environment {
public:
    std::string variable(const std::string& /*name*/) override { return {}; }
    std::string applicationDataFolder() override { return {}; }
    std::string programFolder() override { return {}; }
    std::string executableName() override { return {}; }
    std::string commandLine() override { return {}; }
    LocalTime now() override { return {}; }
    void printError(const std::string& /*text*/) override {}
};

class NullStore : public StringStore {
public:
    std::string read(const std::string& /*key*/, const std::string& /*name*/) override {
        return {};
    }
    void write(const std::string& /*key*/, const std::string& /*name*/,
               const std::string& /*value*/) override {}
    void writeNumber(const std::string& /*key*/, const std::string& /*name*/,
                     Long /*value*/) override {}
};

/// Every file holds the same bytes; one whose path ends in "x" does not exist.
class OneFile : public Files {
public:
    std::string bytes;
    bool isFolder(const std::string& /*path*/) override { return true; }
    bool isReadable(const std::string& path) override { return !path.ends_with('x'); }
    std::uint64_t length(const std::string& path) override { return read(path).size(); }
    void clearAttributes(const std::string& /*path*/) override {}
    void createFolder(const std::string& /*path*/) override {}
    void moveFolder(const std::string& /*from*/, const std::string& /*to*/) override {}
    void removeFolder(const std::string& /*path*/) override {}
    bool createFile(const std::string& /*path*/) override { return true; }
    std::vector<std::string> list(const std::string& /*folder*/,
                                  const std::string& /*patterns*/) override {
        return {};
    }
    void copy(const std::string& /*from*/, const std::string& /*to*/) override {}
    void remove(const std::string& /*path*/) override {}
    std::string read(const std::string& path) override {
        if (path.ends_with('x'))
            throw RunTimeError(ErrorNumber::FileNotFound);
        return bytes;
    }
    void write(const std::string& /*path*/, std::string_view /*bytes*/) override {}
    void setWriteManner(WriteManner /*wait*/) override {}
    void writePrivately(const std::string& /*path*/, std::string_view /*bytes*/) override {}
    std::int64_t lastWritten(const std::string& /*path*/) override { return 0; }
    std::unique_ptr<HeldFile> hold(const std::string& /*path*/) override { return nullptr; }
};

/// A lab without a window on a desktop where nothing happens.
class NullLab : public MaskPainter {
public:
    NullLab() {
        channel1.SetMessageLabel(cells[2]);
        channel1.SetCanvas(panels[0], panels[1], panels[2], 1);
        channel1.SetDimensionFFT(256);
        channel2.SetMessageLabel(cells[2]);
        channel2.SetCanvas(panels[3], panels[4], panels[5], 2);
        channel2.SetDimensionFFT(256);
    }
    void DrawMasks(Integer /*m*/) override {}

    NullDialogs dialogs;
    NullPictures pictures;
    NullClipboard clipboard;
    NullText text;
    NullPrinter printer;
    NullShell shell;
    NullScreen screen;
    NullEnvironment environment;
    NullStore store;
    OneFile files;
    Desktop desktop{dialogs, pictures, clipboard,   text,  printer,
                    shell,   screen,   environment, store, files};
    Rnd rnd;
    clComplexImage channel1{desktop, *this, rnd};
    clComplexImage channel2{desktop, *this, rnd};
    std::array<PictureBox, 6> panels{PictureBox("pb1", 256, 256), PictureBox("pb2", 256, 256),
                                     PictureBox("pb3", 256, 256), PictureBox("pb4", 256, 256),
                                     PictureBox("pb5", 256, 256), PictureBox("pb6", 256, 256)};
    PictureBox mem{"mem", 83, 42};
    PictureBox img{"img", 33, 35};
    std::array<Label, 3> cells{Label("lbSTB(0)"), Label("lbSTB(1)"), Label("lbSTB(2)")};
    Lab lab{.desktop = desktop,
            .folders = {.UserRoot = "C:\\Q\\",
                        .ImagePath = "C:\\Q\\Images\\",
                        .ScriptPath = "C:\\Q\\Scripts\\",
                        .DocPath = {},
                        .LibPath = {},
                        .LibPath2 = {}},
            .channel1 = channel1,
            .channel2 = channel2,
            .pb1 = panels[0],
            .pb2 = panels[1],
            .pb3 = panels[2],
            .pb4 = panels[3],
            .pb5 = panels[4],
            .pb6 = panels[5],
            .mem = mem,
            .img = img,
            .lbSTB = {&cells[0], &cells[1], &cells[2]},
            .dimmed = {}};
};

}  // namespace quillon
