#include "linux/png_bands.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>
#include <thread>
#include <utility>

#include <zlib.h>

namespace Host {
namespace {

constexpr size_t kBandBytes = size_t{1} << 20;
constexpr std::array<uint8_t, 2> kZlibHeader = {0x78, 0x01};

enum RowFilter : uint8_t { kNone = 0, kSub = 1, kUp = 2, kAverage = 3, kPaeth = 4 };

uint8_t Paeth(int left, int up, int corner)
{
    const int toLeft = std::abs(up - corner), toUp = std::abs(left - corner),
              toCorner = std::abs(left + up - 2 * corner);
    if (toLeft <= toUp && toLeft <= toCorner)
        return static_cast<uint8_t>(left);
    return static_cast<uint8_t>(toUp <= toCorner ? up : corner);
}

// Writes the filter's number and the differences of `row` to what the filter foretells.
void FilterRow(RowFilter filter, const uint8_t* row, const uint8_t* up, size_t bytes, size_t pixel,
               uint8_t* out)
{
    *out++ = filter;
    const auto leftOf = [&](const uint8_t* line, size_t i) {
        return i < pixel ? 0 : int{line[i - pixel]};
    };
    switch (filter) {
    case kNone:
        std::copy_n(row, bytes, out);
        return;
    case kSub:
        std::copy_n(row, std::min(pixel, bytes), out);
        for (size_t i = pixel; i < bytes; ++i)
            out[i] = static_cast<uint8_t>(row[i] - row[i - pixel]);
        return;
    case kUp:
        for (size_t i = 0; i < bytes; ++i)
            out[i] = static_cast<uint8_t>(row[i] - up[i]);
        return;
    case kAverage:
        for (size_t i = 0; i < bytes; ++i)
            out[i] = static_cast<uint8_t>(row[i] - (leftOf(row, i) + up[i]) / 2);
        return;
    case kPaeth:
        for (size_t i = 0; i < bytes; ++i)
            out[i] = static_cast<uint8_t>(row[i] - Paeth(leftOf(row, i), up[i], leftOf(up, i)));
        return;
    }
}

// How far the differences are from zero altogether: the smaller, the better they pack.
uint64_t Unrest(const uint8_t* filtered, size_t bytes)
{
    uint64_t sum = 0;
    for (size_t i = 0; i < bytes; ++i)
        sum += static_cast<uint64_t>(std::abs(static_cast<int8_t>(filtered[i])));
    return sum;
}

// One zlib compressor of bare deflate data.
class Deflater {
public:
    Deflater(int level, int strategy)
    {
        if (deflateInit2(&fStream, level, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL, strategy) != Z_OK)
            throw std::bad_alloc();
    }
    ~Deflater() { deflateEnd(&fStream); }
    Deflater(const Deflater&) = delete;
    Deflater& operator=(const Deflater&) = delete;

    std::vector<uint8_t> Pack(std::vector<uint8_t>& bytes, int flush)
    {
        std::vector<uint8_t> packed(deflateBound(&fStream, bytes.size()) + 16);
        fStream.next_in = bytes.data();
        fStream.avail_in = static_cast<uInt>(bytes.size());
        fStream.next_out = packed.data();
        fStream.avail_out = static_cast<uInt>(packed.size());
        deflate(&fStream, flush);
        packed.resize(fStream.total_out);
        return packed;
    }

private:
    z_stream fStream = {};
};

} // namespace

PngBands::PngBands(const PngBandLayout& layout, Put put)
    : fLayout(layout), fPut(std::move(put)),
      fBandBytes(std::max<size_t>(kBandBytes / layout.rowBytes, 1) * layout.rowBytes)
{
    fBand.before.resize(layout.rowBytes);
    fPut(kZlibHeader);
}

void PngBands::AddRows(const uint8_t* rows, size_t stride, int32_t count)
{
    for (; count > 0; --count, rows += stride) {
        if (fBand.rows.capacity() == 0)
            fBand.rows.reserve(fBandBytes);
        fBand.rows.insert(fBand.rows.end(), rows, rows + fLayout.rowBytes);
        if (fBand.rows.size() >= fBandBytes)
            Submit(false);
    }
}

void PngBands::Finish()
{
    Submit(true);
    while (!fPacking.empty())
        PutOldest();
    std::array<uint8_t, 4> end = {};
    for (size_t i = 0; i < end.size(); ++i)
        end[i] = static_cast<uint8_t>(fChecksum >> (24 - 8 * i));
    fPut(end);
}

void PngBands::Submit(bool last)
{
    Band next;
    next.before =
        fBand.rows.empty()
            ? fBand.before
            : std::vector<uint8_t>(fBand.rows.end() - static_cast<ptrdiff_t>(fLayout.rowBytes),
                                   fBand.rows.end());
    fBand.last = last;
    while (fPacking.size() > std::max(std::thread::hardware_concurrency(), 1u))
        PutOldest();
    fPacking.push_back(std::async(std::launch::async, [layout = fLayout, band = std::move(fBand)] {
        return Pack(layout, band);
    }));
    fBand = std::move(next);
}

void PngBands::PutOldest()
{
    const Piece piece = fPacking.front().get();
    fPacking.pop_front();
    fChecksum = static_cast<uint32_t>(
        adler32_combine(fChecksum, piece.checksum, static_cast<z_off_t>(piece.length)));
    fPut(piece.bytes);
}

std::vector<uint8_t> PngBands::Filter(const PngBandLayout& layout, const Band& band)
{
    const size_t bytes = layout.rowBytes;
    std::vector<uint8_t> filtered(band.rows.size() / bytes * (bytes + 1));
    std::vector<uint8_t> trial(bytes + 1);
    const uint8_t* up = band.before.data();
    uint8_t* out = filtered.data();
    for (const uint8_t* row = band.rows.data(); row < band.rows.data() + band.rows.size();
         row += bytes) {
        const bool plain = layout.indexed || layout.level == 0;
        FilterRow(plain ? kNone : kSub, row, up, bytes, layout.pixelBytes, out);
        if (!plain && layout.level > 1) {
            // The filter whose bytes stay nearest to 0 packs best, as a rule.
            uint64_t least = Unrest(out + 1, bytes);
            for (const RowFilter filter : {kNone, kUp, kAverage, kPaeth}) {
                FilterRow(filter, row, up, bytes, layout.pixelBytes, trial.data());
                const uint64_t unrest = Unrest(trial.data() + 1, bytes);
                if (unrest < least) {
                    least = unrest;
                    std::ranges::copy(trial, out);
                }
            }
        }
        up = row;
        out += bytes + 1;
    }
    return filtered;
}

PngBands::Piece PngBands::Pack(const PngBandLayout& layout, const Band& band)
{
    std::vector<uint8_t> filtered = Filter(layout, band);
    const int strategy = layout.indexed      ? Z_DEFAULT_STRATEGY
                         : layout.level <= 1 ? Z_RLE
                                             : Z_FILTERED;
    Deflater deflater(layout.level, strategy);
    Piece piece;
    piece.length = filtered.size();
    piece.checksum =
        static_cast<uint32_t>(adler32(1, filtered.data(), static_cast<uInt>(filtered.size())));
    piece.bytes = deflater.Pack(filtered, band.last ? Z_FINISH : Z_SYNC_FLUSH);
    return piece;
}

} // namespace Host
