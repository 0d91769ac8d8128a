#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace quillon {

/// A fresh folder in the file system, removed with all it holds at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "quillon-").string();
        name.append(6, 'X');
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    /// The native path of a name in the folder.
    std::string file(const std::string& name) const { return (path_ / name).string(); }

    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }
    std::string read(const std::string& name) const {
        std::ifstream stream(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    std::filesystem::path path_;
};

}  // namespace quillon
