// What another decoder makes of a file, where the system has one.
#pragma once

#include "images/png/png_writer.h"

#include <optional>

namespace TestPNG {

// The samples of the planes that the file stands for, pixel by pixel; nothing without another decoder. Throws when that
// one takes the file for a bad one.
std::optional<Bytes> ReferenceSamples(const Bytes& file);

} // namespace TestPNG
