#include "images/png/png_decoder.h"

#include "foundation/errors/exceptions.h"
#include "foundation/streams/container.h"
#include "foundation/streams/memory_container.h"
#include "images/png/image_data.h"
#include "images/png/row_writer.h"
#include "images/png/unfilter.h"
#include "pixels/pixmaps/memory_pixmap.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>

namespace Kesto {

namespace {

constexpr std::array<std::uint8_t, 8> kSignature{137, 80, 78, 71, 13, 10, 26, 10};
constexpr std::uint32_t kHeaderLength = 13; // bytes
constexpr std::size_t kChunkGrowth = 0x1000;

// Rows that are worked on together, where a row isn't longer: they and their pixels of the planes
// stay in the cache of one processor. They are some times as many as are undone at once.
constexpr std::int32_t kBandBytes = 128 << 10;
constexpr std::int32_t kRowsAtOnce = 32;

// No deflated byte gives more than this many. Up to the modest size a header is believed whatever
// data follows, and what is missing is 0.
constexpr std::int32_t kMostExpansion = 1032;
constexpr std::int32_t kModestSize = 64 << 20;

[[noreturn]] void ThrowInvalidHeader()
{
    throw CError("$$$/Kesto/PNGDecoder/Error/InvalidHeader=The PNG header data is not valid.");
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

std::unique_ptr<CMemoryPixmap> CPNGDecoder::DecodeStream(CContainer& stream)
{
    Reset();
    stream.SetByteOrder(std::endian::big);
    ReadSignature(stream);
    ReadHeader(stream);
    ReadChunks(stream);
    PNGImageData data({fImageData.Data(), fImageBytes}, static_cast<std::size_t>(fTotalSize));
    // Deflated data grows by a limited factor, so a header that promises more is a lie and is found
    // before memory is taken for it.
    if (fTotalSize > kModestSize &&
        static_cast<std::size_t>(fTotalSize / kMostExpansion) > fImageBytes)
        ThrowInvalidHeader();

    std::unique_ptr<CMemoryPixmap> pixmap = MakePixmap();
    DecodePasses(data, pixmap.get());
    // Told last: data that is damaged as well has its own message.
    if (fBitDepth != 8)
        throw CError(
            "$$$/Kesto/PNGDecoder/Error/InvalidDepth=The PNG pixel depth is not supported.");
    Reset();
    return pixmap;
}

std::unique_ptr<CMemoryPixmap> CPNGDecoder::Decode(CContainer& stream)
{
    stream.Seek(0);
    return DecodeStream(stream);
}

// Null for a file without a pixmap.
std::unique_ptr<CMemoryPixmap> CPNGDecoder::MakePixmap() const
{
    if (fBitDepth != 8 || PlaneCount() == 0)
        return nullptr;
    auto pixmap =
        std::make_unique<CMemoryPixmap>(8, fWidth, fHeight, PlaneCount(), kPNGRowAlignment, 0);
    if (IsInterlaced() && fColorType == PNGColor::kRGBA)
        pixmap->Erase(); // packed passes don't reach every pixel
    return pixmap;
}

// Without a pixmap the data is only read, and fails as any other.
void CPNGDecoder::DecodePasses(PNGImageData& data, CMemoryPixmap* pixmap) const
{
    std::optional<PNGRowWriter> writer;
    if (pixmap != nullptr)
        writer.emplace(*pixmap, Samples(), fColorType, HasFilterBytes());
    for (const PNGPass& pass : Passes())
        if (pass.size != 0)
            DecodePass(data, pass, writer ? &*writer : nullptr);
    data.End();
}

// In bands of rows, each inflated, recovered and put into the planes before the next.
void CPNGDecoder::DecodePass(PNGImageData& data, const PNGPass& pass,
                             const PNGRowWriter* writer) const
{
    const auto rowBytes = static_cast<std::size_t>(pass.rowBytes);
    const std::int32_t bandRows =
        std::min(pass.height, std::max(kBandBytes / pass.rowBytes / kRowsAtOnce, 1) * kRowsAtOnce);
    // The last row of the band before comes first, as a row that is stored as it is.
    CMemoryBlock block;
    block.SetSize((static_cast<std::size_t>(bandRows) + 1) * rowBytes);
    auto* const above = reinterpret_cast<std::uint8_t*>(block.Data());
    std::fill_n(above, rowBytes, std::uint8_t{0});
    for (std::int32_t y = 0; y < pass.height; y += bandRows) {
        const std::int32_t rows = std::min(bandRows, pass.height - y);
        const std::span band{above + rowBytes, static_cast<std::size_t>(rows) * rowBytes};
        data.Read(band);
        if (writer == nullptr)
            continue;
        UnfilterRows(above, pass.rowBytes, rows + 1, (PixelBits() + 7) / 8);
        writer->Put(pass, y, rows, band.data());
        std::copy_n(band.last(rowBytes).data(), rowBytes, above);
        above[0] = 0;
    }
}

} // namespace Kesto
