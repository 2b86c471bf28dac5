#include "pictures/picture_files.h"

#include "failure.h"
#include "files/buffered_file.h"
#include "pictures/png_codec.h"
#include "pictures/pnm.h"

#include <algorithm>
#include <array>
#include <string>

namespace Host {
namespace {

std::string LowerExtension(const std::filesystem::path& path)
{
    std::string extension = TextOf(path.extension());
    std::ranges::transform(extension, extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return extension;
}

} // namespace

std::unique_ptr<PictureSource> OpenPicture(const std::filesystem::path& path)
{
    RawFile file;
    Require(file.OpenToRead(path), TextOf(path));
    std::array<char, 2> magic = {};
    size_t count = magic.size();
    Require(file.ReadAt(0, magic.data(), count), TextOf(path));
    if (magic[0] == 'P' && magic[1] >= '5' && magic[1] <= '7')
        return OpenPnm(std::move(file), path);
    if (magic != std::array{'\x89', 'P'})
        throw Failure(TextOf(path) + " is not a picture that this program reads",
                      "Give it a PNG, PGM, PPM or PAM file; convert others first.",
                      kHostCannotRead);
    file.Close();
    return OpenPng(path);
}

std::unique_ptr<PictureSink> CreatePicture(const std::filesystem::path& path,
                                           const PictureOptions& options)
{
    const std::string extension = LowerExtension(path);
    if (extension == ".png")
        return CreatePng(path, options.compression);
    if (extension == ".ppm" || extension == ".pgm" || extension == ".pnm")
        return CreatePnm(path, PnmKind::kPnm);
    if (extension == ".pam")
        return CreatePnm(path, PnmKind::kPam);
    throw Failure("the extension of " + TextOf(path) +
                      " names no picture format that this program writes",
                  "Use .png, or .ppm, .pgm or .pam for plain pixels.", kHostBadMode);
}

} // namespace Host
