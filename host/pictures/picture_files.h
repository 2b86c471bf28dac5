// Picture files by name: PNG through the platform's codec, and the plain formats PGM, PPM and PAM.
#pragma once

#include "pictures/picture.h"

#include <filesystem>
#include <memory>

namespace Host {

struct PictureOptions {
    int compression = 1; // of PNG: 0 stores, 1 is fast, 9 is small
};

// Opens a picture of any of the formats, told by its first bytes. Throws Failure.
std::unique_ptr<PictureSource> OpenPicture(const std::filesystem::path& path);

// A sink for the format that the name's extension tells. Throws Failure for an extension that is
// none of them.
std::unique_ptr<PictureSink> CreatePicture(const std::filesystem::path& path,
                                           const PictureOptions& options);

} // namespace Host
