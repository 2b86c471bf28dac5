// PNG pictures through the platform's own codec.
#pragma once

#include "pictures/picture.h"

#include <filesystem>
#include <memory>

namespace Host {

// Reads the header now and the pixels at the first row. Grey and palette pictures of any depth come
// as 8 bits; a grey or palette picture with transparency comes as RGB with alpha; 16 bits a channel
// are rounded to 8.
std::unique_ptr<PictureSource> OpenPng(const std::filesystem::path& path);

// `compression` as in PictureOptions; a codec that has no such choice takes its own.
std::unique_ptr<PictureSink> CreatePng(const std::filesystem::path& path, int compression);

} // namespace Host
