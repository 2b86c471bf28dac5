// The yardstick: a decoder and an encoder for 24 bits as one would write them first, a byte at a
// time, with the same calls to the host and the same chunks of rows.
#pragma once

#include "formats/lean_host.h"

namespace Bench {

void PlainOpen(LeanHost& host);
void PlainSave(LeanHost& host, int width, int height);

// What a save takes on this host when nobody looks at the pixels: rows come in and go out in
// packets of the greatest length, through the same calls. No encoder of photos is faster.
void BareSave(LeanHost& host, int width, int height);

} // namespace Bench
