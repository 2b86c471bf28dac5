// Rows of a document, from the host's bytes to packets in the file.
#pragma once

#include "formats/electricimage/session.h"

namespace Project {

// Writes one row of `pixelCount` interleaved pixels at `row`, packed when the session packs. Pixels
// of 4 bytes are turned in place from red, green, blue, alpha to the file's alpha, red, green,
// blue. One unit after the row must be readable: the search for runs looks there. Failures end in
// the session's result.
void EIWriteRow(EIContext& context, uint8_t* row, int32_t pixelCount);

} // namespace Project
