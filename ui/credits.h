#pragma once

namespace quillon {

// Who made the program, and the pages that its menus lead to. Nobody is named
// but the maker: the others stand there by what they did. The pages lie under a
// domain that is reserved for examples.

inline constexpr const char* kProductTitle = "Quillon";
inline constexpr const char* kEditionName = "Classroom Edition";

inline constexpr const char* kMaker = "Brindlewood";
inline constexpr const char* kMakerSite = "www.brindlewood.example";
inline constexpr const char* kProgrammer = "Lab programmer";
inline constexpr const char* kImageAuthor = "Co-author (images)";
inline constexpr const char* kTutorialAuthor = "Co-author (tutorial)";

inline constexpr const char* kMakerPage = "https://www.brindlewood.example/";
inline constexpr const char* kProductPage = "https://www.brindlewood.example/products/Quillon";
inline constexpr const char* kImageAuthorPage = "https://www.brindlewood.example/people/images";
inline constexpr const char* kTutorialAuthorPage =
    "https://www.brindlewood.example/people/tutorial";
/// The paper's lasting address at its publisher.
inline constexpr const char* kPaperReference =
    "https://doi.wren-journal.example/10.5555/wren.2007.halvard.c";

/// The paper itself, in the folder of the documents.
inline constexpr const char* kPaperFile = "Halvard_2007c.pdf";

}  // namespace quillon
