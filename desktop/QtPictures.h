#pragma once

#include "engine/Desktop.h"

namespace quillon {

/// Pictures from and to files. What a file holds is told from its content, never
/// from its name.
class QtPictures : public Pictures {
public:
    explicit QtPictures(Files& files);
    Bitmap load(const std::string& path) override;
    void save(const Bitmap& picture, const std::string& path) override;

private:
    Files& files_;
};

}  // namespace quillon
