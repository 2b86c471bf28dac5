// Runs of equal pixels: laying them down and finding them. Pixels are units of 1 to 4 bytes.
#pragma once

#include <cstdint>

namespace Project {

// Writes `count` pixels equal to `value` at `dest`. The function may write any bytes in the `room`
// bytes from `dest` on, of which it then owns only the first `count` pixels: a row is filled from
// its left to its right.
using RunFill = void (*)(uint8_t* dest, int32_t room, const uint8_t* value, int32_t count);
RunFill RunFiller(int unit);

// How pixels of one unit are compared. Both functions look at the pixels from `row` to `end`, a
// whole number of them and at least one.
struct RunFinder {
    // Pixels from `row` on that equal the first one.
    int32_t (*runLength)(const uint8_t* row, const uint8_t* end);
    // Pixels from `row` on that come before a pixel that equals its successor; the first one counts
    // in any case. The last pixel is compared with the unit after `end`, which must be readable.
    int32_t (*literalLength)(const uint8_t* row, const uint8_t* end);
};
const RunFinder& RunFinderFor(int unit);

// The same by plain loops over pixels: what the fast ones are held against.
const RunFinder& PlainRunFinderFor(int unit);
RunFill PlainRunFiller(int unit);

} // namespace Project
