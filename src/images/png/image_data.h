// The image data of a PNG file, inflated piece by piece. What is undone of it while it still lies
// in the processor's cache needn't be read from memory again.
//
// Fails where zlib's uncompress would: for data that isn't deflated, that is cut, that holds more
// than the header says, or whose checksum is wrong. Less than that is no failure; what is missing
// is 0.
#pragma once

#include "images/png/adler_sum.h"

#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <span>

namespace Kesto {

class PNGImageData {
public:
    // The deflated bytes stay the caller's and where they are. `size` is how many inflated ones the
    // header tells of. Throws a CError when there is no data at all.
    PNGImageData(std::span<const std::byte> deflated, std::size_t size);
    ~PNGImageData();
    PNGImageData(const PNGImageData&) = delete;
    PNGImageData& operator=(const PNGImageData&) = delete;

    // Fills `room` with the next bytes; of all calls together, `size` at most. Throws a CError.
    void Read(std::span<std::uint8_t> room);

    // To be called when `size` bytes were read. Throws a CError unless the data ends there.
    void End();

private:
    void Inflate(std::span<std::uint8_t> room);
    bool TakeStep();

    z_stream fStream{};
    std::span<const std::byte> fLater; // what the stream hasn't been given yet
    std::size_t fLeft;                 // to be read
    bool fHasEnded = false;
    AdlerSum fSum;
};

} // namespace Kesto
