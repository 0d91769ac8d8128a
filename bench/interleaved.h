#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace quillon {

/// Measures pieces of work against each other in one process.
///
/// Every round runs each piece once, so whatever slows the machine down for a
/// while slows all of them, and the ratios of the medians hold on a busy machine
/// where absolute times do not. Times are the processor's time of this thread.
/// Before its measured run a piece runs once unmeasured, so that what it needs is
/// in the cache.
class Interleaved {
public:
    /// `prepare` runs before each run and is not measured. A piece that takes long
    /// may be measured only in every `every`-th round.
    void add(std::string name, std::function<void()> run, std::function<void()> prepare = {},
             std::size_t every = 1);

    void measure(std::size_t rounds);

    /// The median time of a piece in microseconds.
    double median(const std::string& name) const;

    /// A table with the ratio to the first piece and the medians.
    void print() const;

private:
    struct Piece {
        std::string name;
        std::function<void()> run;
        std::function<void()> prepare;
        std::size_t every;
        std::vector<double> microseconds;
    };

    static double medianOf(const Piece& piece);

    std::vector<Piece> pieces_;
};

/// The processor's name for itself.
std::string processorName();

}  // namespace quillon
