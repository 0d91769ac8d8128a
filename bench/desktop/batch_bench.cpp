// A folder of pictures by the batch command of the open window: every file is
// read, decoded, transformed, drawn and painted, and three files are written.

#include <QDir>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <string>

#include "bench/desktop/BenchWindow.h"
#include "bench/interleaved.h"
#include "bench/pictures.h"
#include "desktop/Conversions.h"
#include "desktop/DesktopApplication.h"

namespace quillon {
namespace {

constexpr int kPictures = 200;
constexpr int kRuns = 5;

double seconds(std::chrono::steady_clock::duration time) {
    return std::chrono::duration<double>(time).count();
}

double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

QString makeFolder(BenchWindow& window, const QString& folder) {
    QDir().mkpath(folder);
    for (int i = 0; i < kPictures; ++i)
        window.services.pictures.save(
            pictureLike(i),
            toLabPath(folder + QStringLiteral("/picture%1.bmp").arg(i, 4, 10, QLatin1Char('0'))));
    return folder;
}

void run(const QString& folder) {
    BenchWindow window;
    FileListBox& list = window.form().File1;
    list.Pattern = "*.bmp";
    std::printf("%s\n%-24s %14s %14s\n", processorName().c_str(), "", "on the wall",
                "of processor");
    for (int i = 0; i < kRuns; ++i) {
        // A folder of its own for every run: its last run's outputs would be pictures too.
        const QString files = makeFolder(window, folder + QStringLiteral("/%1").arg(i));
        list.Path = toLabPath(files) + "\\";
        const double processor = processorSeconds();
        const auto start = std::chrono::steady_clock::now();
        window.form().RunBatch(list.Path);
        const double wall = seconds(std::chrono::steady_clock::now() - start);
        const double worked = processorSeconds() - processor;
        const QStringList written =
            QDir(files).entryList({QStringLiteral("*_batch?.bmp")}, QDir::Files);
        if (written.size() != 3 * kPictures)
            throw std::runtime_error("files are missing, so the figures mean nothing");
        std::printf("%-24s %14.0f %14.0f\n", "pictures a second", kPictures / wall,
                    kPictures / worked);
    }
}

}  // namespace
}  // namespace quillon

int main(int argc, char** argv) {
    const quillon::BenchHome home;
    const quillon::DesktopApplication application(argc, argv);
    quillon::run(home.path("batch"));
}
