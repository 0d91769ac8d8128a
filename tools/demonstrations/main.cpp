#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tools/demonstrations/demonstrations.h"

// quillon-demonstrations FOLDER CUP.pgm: draws the demonstration pictures into a
// folder, among them those made of the photograph of a cup.

namespace {

using namespace quillon::demonstrations;

std::string readWhole(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool write(const std::filesystem::path& folder, const std::vector<Demonstration>& pictures) {
    for (const Demonstration& demonstration : pictures) {
        const std::filesystem::path path = folder / demonstration.name;
        std::ofstream file(path, std::ios::binary);
        file << bmpOf(demonstration.picture);
        if (!file.flush()) {
            std::fprintf(stderr, "quillon-demonstrations: cannot write %s\n",
                         path.string().c_str());
            return false;
        }
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: quillon-demonstrations FOLDER CUP.pgm\n", stderr);
        return EXIT_FAILURE;
    }
    const auto cup = pictureOfPgm(readWhole(argv[2]));
    if (!cup) {
        std::fprintf(stderr, "quillon-demonstrations: %s is no PGM file of 256 by 256 greys\n",
                     argv[2]);
        return EXIT_FAILURE;
    }
    const bool isWritten = write(argv[1], drawAll()) && write(argv[1], drawFromPhotograph(*cup));
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}
