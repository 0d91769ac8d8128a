#include "scripting/batch.h"

#include <exception>
#include <utility>

#include "app/image_io.h"
#include "app/image_source.h"
#include "app/not_done.h"
#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

constexpr const char* kTitle = "Batch Processing";
constexpr const char* kFilter =
    "Images (*.bmp;*.gif;*.jpg)|*.bmp;*.gif;*.jpg|JPG Images (*.jpg)|*.jpg|"
    "GIF Images (*.gif)|*.gif|BMP Images (*.bmp)|*.bmp";

constexpr const char* kRefusal = "not begun: one batch at a time";

constexpr Integer kViewImageFolder = 0;
constexpr Single kRestingSize = 15;
/// The border of a panel on both sides, in twips.
constexpr Single kBorders = 30;

/// No failure stops a batch: what a step was to do stays undone.
template <class Step>
void skipFailure(Step step) {
    try {
        step();
    } catch (const std::exception&) {
        // The next step runs.
    }
}

void choosePattern(FileListBox& list, Integer filterIndex) {
    switch (filterIndex) {
        case 1:
            list.Pattern = "*.bmp;*.gif;*.jpg";
            break;
        case 2:
            list.Pattern = "*.jpg";
            break;
        case 3:
            list.Pattern = "*.gif";
            break;
        case 4:
            list.Pattern = "*.bmp";
            break;
        default:
            break;
    }
}

/// While it lives, files are written quickly. The pictures of a batch can be made
/// again, and waiting for the disk takes ten times as long as making one.
class QuickWrites {
public:
    explicit QuickWrites(Files& files) : files_(files) {
        files_.setWriteManner(WriteManner::Quick);
    }
    QuickWrites(const QuickWrites&) = delete;
    QuickWrites& operator=(const QuickWrites&) = delete;
    ~QuickWrites() { files_.setWriteManner(WriteManner::Careful); }

private:
    Files& files_;
};

/// While it lives, a batch is under way.
class UnderWay {
public:
    explicit UnderWay(bool& running) : running_(running) { running_ = true; }
    UnderWay(const UnderWay&) = delete;
    UnderWay& operator=(const UnderWay&) = delete;
    ~UnderWay() { running_ = false; }

private:
    bool& running_;
};

/// Whether a batch has to be left; says so.
bool refuse(Lab& lab, const BatchWindow& window) {
    if (window.running)
        lab.reportNotDone(kRefusal);
    return window.running;
}

/// A batch under way, from the answer Yes on.
class BatchRun {
public:
    BatchRun(Lab& lab, ScriptHost& host, const BatchWindow& window, std::string folder)
        : lab_(lab), host_(host), window_(window), folder_(std::move(folder)) {}

    void run();

private:
    void processAll();
    void process(std::size_t i);
    enum class Decoded { No, Yes };
    void takeImage(const std::string& path, Decoded decoded);
    void makeMontage(const std::string& path);
    void finish();
    template <class Save>
    void write(Save save) {
        const QuickWrites quick(lab_.desktop.files);
        skipFailure(save);
    }
    void yield() {
        skipFailure([&] { lab_.desktop.screen.pendingEvents(); });
    }

    Lab& lab_;
    ScriptHost& host_;
    const BatchWindow& window_;
    const std::string folder_;
    /// The picture decoded last, empty before the first. Apart from `img`, which
    /// is cleared for the montage of each image.
    Bitmap decoded_;
    Integer counter_ = 0;
};

void BatchRun::run() {
    lab_.desktop.screen.setMousePointer(kPointerWait);
    lab_.pb3.Cls();
    lab_.channel1.bBatch = true;
    const std::string caption1 = window_.fr1.Caption;
    const std::string caption2 = window_.fr2.Caption;
    const std::string caption3 = window_.fr3.Caption;
    window_.fr1.Caption = std::string(kTitle) + " ...";
    window_.fr3.Caption = "FT Surface";
    window_.bStopBatch = false;
    processAll();
    window_.bStopBatch = false;
    skipFailure([&] {
        lab_.img.setPicture(Bitmap{});
        lab_.img.Move(0, 0, kRestingSize, kRestingSize);
    });
    window_.fr1.Caption = caption1;
    window_.fr2.Caption = caption2;
    window_.fr3.Caption = caption3;
    lab_.channel1.bBatch = false;
    finish();
}

void BatchRun::processAll() {
    for (std::size_t i = 0; i < window_.File1.List.size(); ++i) {
        process(i);
        skipFailure([&] { counter_ = toInteger(counter_ + 1); });
        yield();
        // Only here: the image in progress is always finished and counted.
        if (window_.bStopBatch)
            return;
    }
}

void BatchRun::process(std::size_t i) {
    const std::string path = folder_ + window_.File1.List[i];
    for (PictureBox* panel : {&lab_.pb1, &lab_.pb2, &lab_.pb3})
        panel->Cls();
    Decoded decoded = Decoded::No;
    try {
        decoded_ = lab_.desktop.pictures.load(path);
        decoded = Decoded::Yes;
    } catch (const std::exception& error) {
        lab_.reportNotDone(whyNotLoaded(lab_.desktop.files, path, error));
    }
    window_.fr2.Caption = "Image " + std::to_string(i + 1) + " of " +
                          std::to_string(window_.File1.List.size()) + " ...";
    takeImage(path, decoded);
    skipFailure([&] { lab_.channel1.runFOURN(1, 0); });
    // Whatever command the user gave meanwhile, its report is to be read.
    lab_.keepReport();
    yield();
    write([&] { host_.SavePanelImage(2, path + "_batch1.bmp"); });
    skipFailure([&] { lab_.channel1.draw3DFT(); });
    write([&] { host_.SavePanelImage(3, path + "_batch2.bmp"); });
    makeMontage(path);
}

void BatchRun::takeImage(const std::string& path, Decoded decoded) {
    // Where no picture was ever decoded, the empty one shows: the panel's former
    // picture has no business under a file's name.
    skipFailure([&] {
        if (decoded_.empty())
            lab_.pb1.setPicture(Bitmap{});
        else
            paintStretched(lab_.pb1, decoded_);
    });
    lab_.channel1.file = path;
    lab_.channel1.nmask = 0;
    if (decoded == Decoded::Yes)
        noteFileShown(lab_, Channel::One, Placing::Stretched);
    else
        noteImageWithoutFile(lab_, Channel::One);
    lab_.ClearChannelTags(1);
    yield();
}

void BatchRun::makeMontage(const std::string& path) {
    PictureBox& img = lab_.img;
    skipFailure([&] { img.Move(0, 0, 3 * lab_.pb1.Width - kBorders, lab_.pb1.Height); });
    skipFailure([&] { img.setBackColor(lab_.pb3.BackColor()); });
    skipFailure([&] { img.setPicture(Bitmap{}); });
    // 257 pixels apart, with a margin of one.
    skipFailure([&] { img.PaintPicture(lab_.pb1.Image(), 1, 1); });
    skipFailure([&] { img.PaintPicture(lab_.pb2.Image(), 258, 1); });
    skipFailure([&] { img.PaintPicture(lab_.pb3.Image(), 515, 1); });
    const std::string montage = path + "_batch3.bmp";
    write([&] {
        try {
            lab_.desktop.pictures.save(img.Image(), montage);
        } catch (const std::exception& error) {
            lab_.reportNotDone(whyNotSaved(lab_.desktop.files, montage, error));
        }
    });
}

void BatchRun::finish() {
    skipFailure([&] { lab_.desktop.screen.setMousePointer(kPointerDefault); });
    skipFailure([&] {
        lab_.desktop.dialogs.messageBox(std::to_string(counter_) + " images processed.", kTitle,
                                        MessageIcon::Information, MessageButtons::Ok);
    });
    // Back from the surface to the last image's reconstruction.
    skipFailure([&] { lab_.channel1.runFOURN(0, 0); });
    // The image folder shows, even where the batch ran in another.
    skipFailure([&] { host_.itmFile(kViewImageFolder); });
}

void askAndRun(Lab& lab, ScriptHost& host, const BatchWindow& window, const std::string& folder) {
    FileListBox& list = window.File1;
    list.List = lab.desktop.files.list(list.Path, list.Pattern);
    const MessageAnswer answer = lab.desktop.dialogs.messageBox(
        "Start creating FT images for " + std::to_string(list.List.size()) +
            " files? \n\n(interrupt with ESC key)",
        kTitle, MessageIcon::Question, MessageButtons::YesNo);
    if (answer == MessageAnswer::Yes)
        BatchRun(lab, host, window, folder).run();
}

}  // namespace

void BatchCommand(Lab& lab, ScriptHost& host, const BatchWindow& window) {
    if (refuse(lab, window))
        return;
    const UnderWay underWay(window.running);
    std::string folder;
    try {
        lab.ComFile.FileName.clear();
        lab.ComFile.prepare(lab.folders.ImagePath, kFilter,
                            "Select File Type and 1 Image for FT Batch Processing");
        lab.desktop.dialogs.showOpen(lab.ComFile);
        lab.desktop.screen.pendingEvents();
        folder = FolderPart(lab.ComFile.FileName);
        if (!FolderExists(lab.desktop.files, folder))
            throw RunTimeError(ErrorNumber::PathNotFound);
        window.File1.Path = folder;
        choosePattern(window.File1, lab.ComFile.FilterIndex);
        askAndRun(lab, host, window, folder);
    } catch (const std::exception& error) {
        if (!isCancelled(error))
            lab.reportNotDone(whyNotListed(folder, error));
    }
}

void RunBatch(Lab& lab, ScriptHost& host, const BatchWindow& window, const std::string& folder) {
    if (refuse(lab, window))
        return;
    const UnderWay underWay(window.running);
    askAndRun(lab, host, window, folder);
}

}  // namespace quillon
