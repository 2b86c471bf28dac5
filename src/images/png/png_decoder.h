// CPNGDecoder, which turns a PNG file in a container into a new pixmap.
//
// It takes what the module's own pictures need: samples of 8 bits, every colour type, both
// interlace methods. Checksums are not looked at, and no chunk but the header, the palette, the
// transparency and the image data has an effect. The pixmap has 8 bits a pixel, rows aligned to 4
// bytes, its origin at (0, 0), and the planes of the house: grey or red, green, blue, and
// alpha after them where the file has any.
//
// Data is taken as hostile: nothing in a file makes the decoder touch memory outside its buffers,
// and no more memory is asked for than the file's data could fill.
//
// A decoder may be used again after a decode, whether that failed or not, and by one thread at a
// time.
#pragma once

#include "foundation/base/block.h"
#include "foundation/streams/stream.h"
#include "images/png/png_format.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace Kesto {

class CBasicPixmap;
class CContainer;
class CMemoryContainer;
class CMemoryPixmap;
class PNGImageData;
class PNGRowWriter;
struct SampleFormat;

class CPNGDecoder : public CPNGFormat {
public:
    CPNGDecoder();
    ~CPNGDecoder() override;

    void Reset() override;

    // Reads 8 bytes and tells whether they are those that every PNG file begins with. ReadSignature
    // throws a CError when they are not.
    virtual bool CheckSignature(CContainer& stream);
    virtual bool ReadSignature(CContainer& stream);

    // Reads one chunk. Its payload replaces what `chunk` held, which is left at its beginning, in
    // the stream's byte order. Throws the end-of-data error when the stream holds less than the
    // chunk claims.
    virtual void ReadChunk(CContainer& stream, CMemoryContainer& chunk, Tag& type,
                           std::uint32_t& length);

    // Reads the header chunk and derives all sizes from it. Throws a CError for another chunk, a
    // short one, and for sizes that 31 bits can't measure.
    virtual void ReadHeader(CContainer& stream);

    // One handler for each kind of chunk, with its payload of `length` bytes; most have no use for
    // it. False ends the reading of chunks.
    virtual bool OnIDAT(CContainer& chunk, std::uint32_t length);
    virtual bool OnPLTE(CContainer& chunk, std::uint32_t length);
    virtual bool OnCHRM(CContainer&, std::uint32_t) { return true; }
    virtual bool OnGAMA(CContainer&, std::uint32_t) { return true; }
    virtual bool OnICCP(CContainer&, std::uint32_t) { return true; }
    virtual bool OnSBIT(CContainer&, std::uint32_t) { return true; }
    virtual bool OnSRGB(CContainer&, std::uint32_t) { return true; }
    virtual bool OnBKGD(CContainer&, std::uint32_t) { return true; }
    virtual bool OnHIST(CContainer&, std::uint32_t) { return true; }
    virtual bool OnTRNS(CContainer& chunk, std::uint32_t length);
    virtual bool OnPHYS(CContainer&, std::uint32_t) { return true; }
    virtual bool OnSPLT(CContainer&, std::uint32_t) { return true; }
    virtual bool OnTIME(CContainer&, std::uint32_t) { return true; }
    virtual bool OnITXT(CContainer&, std::uint32_t) { return true; }
    virtual bool OnTEXT(CContainer&, std::uint32_t) { return true; }
    virtual bool OnZTXT(CContainer&, std::uint32_t) { return true; }
    virtual bool OnUnknownChunk(CContainer&, Tag, std::uint32_t) { return true; }

    // Calls the handler for the type and returns its answer.
    virtual bool DispatchChunk(CContainer& chunk, Tag type, std::uint32_t length);

    // Reads and dispatches chunks up to the end chunk, or until a handler returns false.
    virtual void ReadChunks(CContainer& stream);

    // Decodes the file that begins at the stream's position, or at its start. The result is the
    // caller's; it is null for a colour type that doesn't exist. Throw a CError for a bad
    // signature, a bad header, data that can't be inflated and a depth other than 8, and what the
    // stream and the allocator throw.
    virtual std::unique_ptr<CMemoryPixmap> DecodeStream(CContainer& stream);
    virtual std::unique_ptr<CMemoryPixmap> Decode(CContainer& stream);

    // Copies the pixels of inflated and unfiltered data, as the header describes it, into a pixmap
    // of the caller's. Throws std::logic_error when the data is too short, or the pixmap isn't of
    // the header's size and planes.
    void TransferTo(CBasicPixmap& pixmap, std::span<const std::uint8_t> data) const;

private:
    SampleFormat Samples() const;
    std::unique_ptr<CMemoryPixmap> MakePixmap() const;
    void DecodePasses(PNGImageData& data, CMemoryPixmap* pixmap) const;
    void DecodePass(PNGImageData& data, const PNGPass& pass, const PNGRowWriter* writer) const;

    CMemoryBlock
        fImageData; // payloads of the image data chunks, joined; more room than fImageBytes
    std::size_t fImageBytes = 0;
};

} // namespace Kesto
