#include "images/png/png_decoder.h"

#include "foundation/errors/exceptions.h"
#include "foundation/streams/container.h"
#include "foundation/streams/memory_container.h"
#include "images/png/unfilter.h"
#include "pixels/pixmaps/memory_pixmap.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace Kesto {

namespace {

constexpr std::array<std::uint8_t, 8> kSignature{137, 80, 78, 71, 13, 10, 26, 10};
constexpr std::uint32_t kHeaderLength = 13; // bytes
constexpr std::size_t kChunkGrowth = 0x1000;
constexpr std::int32_t kRowAlignment = 4;

// No deflated byte gives more than this many. Up to the modest size a header is believed whatever
// data follows, and what is missing is 0.
constexpr std::int32_t kMostExpansion = 1032;
constexpr std::int32_t kModestSize = 64 << 20;

[[noreturn]] void ThrowInvalidHeader()
{
    throw CError("$$$/Kesto/PNGDecoder/Error/InvalidHeader=The PNG header data is not valid.");
}

[[noreturn]] void ThrowMemoryError()
{
    throw CError("$$$/Kesto/CPNGDecoder/Error/MemoryError=PNG Decoder Memory Error.");
}

} // namespace

CPNGDecoder::CPNGDecoder() = default;
CPNGDecoder::~CPNGDecoder() = default;

void CPNGDecoder::Reset()
{
    CPNGFormat::Reset();
    fImageData.Free();
    fImageBytes = 0;
}

bool CPNGDecoder::CheckSignature(CContainer& stream)
{
    std::array<std::uint8_t, kSignature.size()> bytes;
    stream.Read(bytes.data(), bytes.size());
    return bytes == kSignature;
}

bool CPNGDecoder::ReadSignature(CContainer& stream)
{
    if (!CheckSignature(stream))
        throw CError("$$$/Kesto/PNGDecoder/Error/InvalidSig=This is not valid PNG data. It does "
                     "not begin with a proper "
                     "signature.");
    return true;
}

void CPNGDecoder::ReadChunk(CContainer& stream, CMemoryContainer& chunk, Tag& type,
                            std::uint32_t& length)
{
    length = stream.ReadUInt32();
    type = stream.ReadTag();
    if (length > stream.GetSize() - stream.GetPosition())
        ThrowEndOfData();
    chunk.Fill(stream, length);
    chunk.SetSwapped(stream.IsSwapped());
    stream.ReadUInt32(); // the checksum, which nobody looks at
}

void CPNGDecoder::ReadHeader(CContainer& stream)
{
    CMemoryContainer chunk(kChunkGrowth);
    Tag type = 0;
    std::uint32_t length = 0;
    ReadChunk(stream, chunk, type, length);
    if (type != MakeTag("IHDR") || length < kHeaderLength) // a longer one is taken for a newer one
        ThrowInvalidHeader();
    fWidth = chunk.ReadInt32();
    fHeight = chunk.ReadInt32();
    fBitDepth = chunk.ReadUInt8();
    fColorType = static_cast<PNGColor>(chunk.ReadUInt8());
    fCompressionMethod = chunk.ReadUInt8();
    fFilterMethod = chunk.ReadUInt8();
    fInterlaceMethod = chunk.ReadUInt8();
    if (!DeriveSizes())
        ThrowInvalidHeader();
}

void CPNGDecoder::ReadChunks(CContainer& stream)
{
    CMemoryContainer chunk(kChunkGrowth);
    Tag type = 0;
    std::uint32_t length = 0;
    do
        ReadChunk(stream, chunk, type, length);
    while (type != MakeTag("IEND") && DispatchChunk(chunk, type, length));
}

void CPNGDecoder::InflateTo(std::span<std::uint8_t> data) const
{
    uLongf inflated = static_cast<uLongf>(data.size());
    if (!std::in_range<uLong>(fImageBytes) ||
        uncompress(data.data(), &inflated, reinterpret_cast<const Bytef*>(fImageData.Data()),
                   static_cast<uLong>(fImageBytes)) != Z_OK)
        ThrowMemoryError();
    // Short data doesn't reach the last rows, where this memory may hold another picture's.
    std::ranges::fill(data.subspan(std::min<std::size_t>(inflated, data.size())), std::uint8_t{0});
}

std::unique_ptr<CMemoryPixmap> CPNGDecoder::DecodeStream(CContainer& stream)
{
    Reset();
    stream.SetByteOrder(std::endian::big);
    ReadSignature(stream);
    ReadHeader(stream);
    ReadChunks(stream);
    if (fImageBytes == 0)
        ThrowMemoryError(); // as zlib would have it, but before memory is taken for nothing
    if (fTotalSize > kModestSize &&
        static_cast<std::size_t>(fTotalSize / kMostExpansion) > fImageBytes)
        ThrowInvalidHeader();

    CMemoryBlock block;
    block.SetSize(static_cast<std::size_t>(fTotalSize));
    const std::span<std::uint8_t> data{reinterpret_cast<std::uint8_t*>(block.Data()),
                                       block.GetSize()};
    InflateTo(data);
    fImageData.Free();
    fImageBytes = 0;
    Unfilter(data);
    if (fBitDepth != 8)
        throw CError(
            "$$$/Kesto/PNGDecoder/Error/InvalidDepth=The PNG pixel depth is not supported.");

    std::unique_ptr<CMemoryPixmap> pixmap;
    if (PlaneCount() != 0) {
        pixmap =
            std::make_unique<CMemoryPixmap>(8, fWidth, fHeight, PlaneCount(), kRowAlignment, 0);
        if (IsInterlaced() && fColorType == PNGColor::kRGBA)
            pixmap->Erase(); // packed passes don't reach every pixel
        TransferTo(*pixmap, data);
    }
    Reset();
    return pixmap;
}

std::unique_ptr<CMemoryPixmap> CPNGDecoder::Decode(CContainer& stream)
{
    stream.Seek(0);
    return DecodeStream(stream);
}

void CPNGDecoder::Unfilter(std::span<std::uint8_t> data) const
{
    for (const PNGPass& pass : Passes())
        if (pass.size != 0) {
            UnfilterRows(data.data(), pass.rowBytes, pass.height, (PixelBits() + 7) / 8);
            data = data.subspan(static_cast<std::size_t>(pass.size));
        }
}

} // namespace Kesto
