#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tools/demonstrations/demonstrations.h"

// quillon-demonstrations FOLDER: draws the demonstration pictures into a folder.

int main(int argc, char** argv) {
    using namespace quillon::demonstrations;
    if (argc != 2) {
        std::fputs("usage: quillon-demonstrations FOLDER\n", stderr);
        return EXIT_FAILURE;
    }
    for (const Demonstration& demonstration : drawAll()) {
        const std::filesystem::path path = std::filesystem::path(argv[1]) / demonstration.name;
        std::ofstream file(path, std::ios::binary);
        file << bmpOf(demonstration.picture);
        if (!file.flush()) {
            std::fprintf(stderr, "quillon-demonstrations: cannot write %s\n",
                         path.string().c_str());
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
