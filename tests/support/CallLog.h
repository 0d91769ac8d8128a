#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// The calls of all recording doubles in the order in which they came, each as
/// "service.call(argument, argument)".
class CallLog {
public:
    std::vector<std::string> lines;

    void add(std::string line) { lines.push_back(std::move(line)); }
    void clear() { lines.clear(); }

    /// The lines that begin with one of the prefixes ("dialogs.", "screen.beep").
    std::vector<std::string> of(const std::vector<std::string>& prefixes) const {
        std::vector<std::string> found;
        for (const std::string& line : lines) {
            if (std::any_of(prefixes.begin(), prefixes.end(), [&line](const std::string& prefix) {
                    return line.starts_with(prefix);
                }))
                found.push_back(line);
        }
        return found;
    }
};

}  // namespace quillon
