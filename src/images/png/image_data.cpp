#include "images/png/image_data.h"

#include "foundation/errors/exceptions.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Kesto {

namespace {

[[noreturn]] void ThrowMemoryError()
{
    throw CError("$$$/Kesto/CPNGDecoder/Error/MemoryError=PNG Decoder Memory Error.");
}

// A number as the stream stores it.
std::uint32_t BigEndian(const Bytef* bytes)
{
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
           std::uint32_t{bytes[2]} << 8 | bytes[3];
}

} // namespace

PNGImageData::PNGImageData(std::span<const std::byte> deflated, std::size_t size)
    : fLater(deflated), fLeft(size)
{
    if (deflated.empty() || inflateInit(&fStream) != Z_OK)
        ThrowMemoryError();
    inflateValidate(&fStream, 0); // our own sum is several times as fast
}

PNGImageData::~PNGImageData()
{
    inflateEnd(&fStream);
}

void PNGImageData::Read(std::span<std::uint8_t> room)
{
    fLeft -= room.size();
    Inflate(room);
    std::ranges::fill(room.last(fStream.avail_out), std::uint8_t{0});
}

void PNGImageData::End()
{
    // Where nothing was wanted, a single byte passes.
    std::uint8_t spare = 0;
    if (!fHasEnded)
        Inflate({&spare, fStream.total_out == 0 ? 1u : 0u});
    if (!fHasEnded || BigEndian(fStream.next_in - 4) != fSum.Value())
        ThrowMemoryError();
}

// Goes on until the data ends, or more room is wanted; avail_out tells what is left of the room.
void PNGImageData::Inflate(std::span<std::uint8_t> room)
{
    fStream.next_out = room.data();
    fStream.avail_out = static_cast<uInt>(room.size());
    while (!fHasEnded && TakeStep())
        ;
    fSum.Add(room.first(room.size() - fStream.avail_out));
}

// False when nothing goes on without more room. The last piece is asked for as such: zlib keeps no
// window then, which a small picture never needs.
bool PNGImageData::TakeStep()
{
    if (fStream.avail_in == 0) {
        const std::size_t count =
            std::min<std::size_t>(fLater.size(), std::numeric_limits<uInt>::max());
        fStream.next_in = reinterpret_cast<Bytef*>(const_cast<std::byte*>(fLater.data()));
        fStream.avail_in = static_cast<uInt>(count);
        fLater = fLater.subspan(count);
    }
    const auto before = std::pair(fStream.avail_in, fStream.avail_out);
    const int result = inflate(&fStream, fLeft == 0 ? Z_FINISH : Z_NO_FLUSH);
    fHasEnded = result == Z_STREAM_END;
    if (result == Z_OK || fHasEnded)
        return true;
    if (result != Z_BUF_ERROR)
        ThrowMemoryError();
    const bool wentOn = before != std::pair(fStream.avail_in, fStream.avail_out);
    if (!wentOn && fStream.avail_out != 0)
        ThrowMemoryError(); // the data is cut
    return wentOn;
}

} // namespace Kesto
