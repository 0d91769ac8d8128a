// From the start of the process to the painted window, and the memory that it
// then has. The program measured is this one, started again: it does what the
// lab's own main() does.

#include <sys/wait.h>
#include <unistd.h>

#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/desktop/BenchWindow.h"
#include "bench/interleaved.h"
#include "desktop/DesktopApplication.h"

namespace quillon {
namespace {

constexpr int kStarts = 30;
constexpr const char* kBeTheProgram = "--window";

/// What a started program tells: times on the clock that all processes share, in
/// milliseconds, and the memory it has in the machine, in KiB.
struct Findings {
    double firstPaint = 0;
    double bothSamples = 0;
    double memory = 0;
};

double now() {
    return std::chrono::duration<double, std::milli>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double residentKibibytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmRSS:"))
            return std::strtod(line.c_str() + 6, nullptr);
    throw std::runtime_error("the system does not tell the memory of a process");
}

/// Notes when the first paint of a window has ended.
class FirstPaint : public QObject {
public:
    double time = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && !seen_ &&
            dynamic_cast<FormWindow*>(watched) != nullptr) {
            seen_ = true;
            // The event comes at the beginning; what is posted now runs behind it.
            QMetaObject::invokeMethod(
                this, [this] { time = now(); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    bool seen_ = false;
};

void beTheProgram(int& argc, char** argv) {
    DesktopApplication application(argc, argv);
    FirstPaint firstPaint;
    application.installEventFilter(&firstPaint);
    BenchWindow window;
    Findings findings;
    QTimer::singleShot(0, &application, [&] {
        findings.bothSamples = now();
        DesktopApplication::quit();
    });
    DesktopApplication::exec();
    findings.firstPaint = firstPaint.time;
    findings.memory = residentKibibytes();
    std::printf("%.3f %.3f %.0f\n", findings.firstPaint, findings.bothSamples, findings.memory);
}

/// Starts the program once; times count from the start.
Findings startOnce(const std::string& program) {
    int ends[2];
    if (::pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const double start = now();
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::execl(program.c_str(), program.c_str(), kBeTheProgram, nullptr);
        ::_exit(EXIT_FAILURE);
    }
    ::close(ends[1]);
    FILE* told = ::fdopen(ends[0], "r");
    Findings findings;
    const int count = std::fscanf(told, "%lf %lf %lf", &findings.firstPaint, &findings.bothSamples,
                                  &findings.memory);
    std::fclose(told);
    int status = 0;
    if (::waitpid(child, &status, 0) != child || status != 0 || count != 3 ||
        findings.firstPaint < start)
        throw std::runtime_error("the program did not show its window");
    findings.firstPaint -= start;
    findings.bothSamples -= start;
    return findings;
}

void print(const char* name, const std::vector<Findings>& all, double Findings::*value,
           double unit) {
    std::vector<double> values;
    for (const Findings& findings : all)
        values.push_back(findings.*value / unit);
    std::ranges::sort(values);
    std::printf("%-48s %9.1f %12.1f\n", name, values[values.size() / 2], values.front());
}

void run() {
    const BenchHome home;
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    // The first start makes the user's folders and brings the files into the cache.
    startOnce(program);
    std::vector<Findings> all;
    for (int i = 0; i < kStarts; ++i)
        all.push_back(startOnce(program));
    std::printf("%s\n%-48s %9s %12s\n", processorName().c_str(), "", "median", "least");
    print("start to the first painted window, ms", all, &Findings::firstPaint, 1);
    print("start to both samples painted, ms", all, &Findings::bothSamples, 1);
    print("memory with both samples, MiB", all, &Findings::memory, 1024);
}

}  // namespace
}  // namespace quillon

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == quillon::kBeTheProgram)
        quillon::beTheProgram(argc, argv);
    else
        quillon::run();
}
