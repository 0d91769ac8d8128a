#include "bench/interleaved.h"

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace quillon {
namespace {

/// What this thread has had of the processor. A clock on the wall would count the
/// waits too, and a long piece waits more often than a short one.
double threadMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

}  // namespace

void Interleaved::add(std::string name, std::function<void()> run, std::function<void()> prepare,
                      std::size_t every) {
    if (!prepare)
        prepare = [] {};
    pieces_.push_back({std::move(name), std::move(run), std::move(prepare), every, {}});
}

void Interleaved::measure(std::size_t rounds) {
    for (std::size_t round = 0; round < rounds; ++round) {
        for (Piece& piece : pieces_) {
            if (round % piece.every != 0)
                continue;
            piece.prepare();
            piece.run();
            piece.prepare();
            const double start = threadMicroseconds();
            piece.run();
            piece.microseconds.push_back(threadMicroseconds() - start);
        }
    }
}

double Interleaved::medianOf(const Piece& piece) {
    std::vector<double> times = piece.microseconds;
    if (times.empty())
        return 0;
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

double Interleaved::median(const std::string& name) const {
    for (const Piece& piece : pieces_)
        if (piece.name == name)
            return medianOf(piece);
    throw std::out_of_range(name);
}

void Interleaved::print() const {
    if (pieces_.empty())
        return;
    const double yardstick = medianOf(pieces_.front());
    std::printf("%-48s %9s %12s\n", "", "ratio", "median, us");
    for (const Piece& piece : pieces_) {
        const double time = medianOf(piece);
        std::printf("%-48s %9.3f %12.1f\n", piece.name.c_str(), time / yardstick, time);
    }
}

std::string processorName() {
    std::ifstream information("/proc/cpuinfo");
    for (std::string line; std::getline(information, line);)
        if (line.starts_with("model name"))
            return line.substr(line.find(':') + 2);
    return "unknown processor";
}

}  // namespace quillon
