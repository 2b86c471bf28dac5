// The plain formats PGM ("P5"), PPM ("P6") and PAM ("P7"): a short text header, then the bytes of
// the rows.
#pragma once

#include "files/raw_file.h"
#include "pictures/picture.h"

#include <filesystem>
#include <memory>

namespace Host {

// kPnm is PGM for a grey picture and PPM for all others; it has no room for alpha. kPam has.
enum class PnmKind { kPnm, kPam };

// Takes the open file. One band of rows is in memory at a time.
std::unique_ptr<PictureSource> OpenPnm(RawFile file, const std::filesystem::path& path);

// Indexed pictures are written as RGB.
std::unique_ptr<PictureSink> CreatePnm(const std::filesystem::path& path, PnmKind kind);

} // namespace Host
