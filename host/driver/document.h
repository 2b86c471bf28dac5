// Pictures in memory as filters and exports see them, and blocks of them to lend.
#pragma once

#include "lumograph/records.h"
#include "pictures/picture.h"

#include <cstdint>
#include <vector>

namespace Host {

// Bits of a sample: bytes, 16 bits from 0 to 32768, or floats from 0 to 1.
enum class SampleDepth : int32_t { k8 = 8, k16 = 16, k32 = 32 };

// A whole picture, its samples interleaved by pixel and its rows without gaps.
class Document {
public:
    // Reads all of the picture. Throws what the source throws.
    Document(PictureSource& source, SampleDepth depth);

    const PictureInfo& Info() const { return fInfo; }
    SampleDepth Depth() const { return fDepth; }
    size_t SampleBytes() const { return static_cast<size_t>(fDepth) / 8; }
    size_t Stride() const { return fInfo.RowBytes() * SampleBytes(); }
    HostRect32 Extent() const { return {0, 0, fInfo.width, fInfo.height}; }

    uint8_t* Row(int32_t y) { return fBytes.data() + static_cast<size_t>(y) * Stride(); }
    const uint8_t* Row(int32_t y) const
    {
        return fBytes.data() + static_cast<size_t>(y) * Stride();
    }

    // Hands all rows to the sink, rounded to 8 bits; what is beyond 0 and white is cut off.
    void WriteTo(PictureSink& sink) const;

private:
    PictureInfo fInfo;
    SampleDepth fDepth;
    std::vector<uint8_t> fBytes;
};

// A part of a document that a module asks for.
struct BlockRequest {
    HostRect32 rect{};
    int32_t firstPlane = 0;
    int32_t lastPlane = 0;

    bool IsEmpty() const { return rect.right <= rect.left || rect.bottom <= rect.top; }
    int32_t Width() const { return rect.right - rect.left; }
    int32_t Height() const { return rect.bottom - rect.top; }

    // Throws Failure for planes that the document hasn't got and for fills that mean nothing.
    void Check(const Document& document, int16_t fill, const char* which) const;
};

// The samples that a request was served with, packed row by row.
class Block {
public:
    // Copies the part out of the document; pixels beyond it are filled as kHostFill... says. Throws
    // Failure for a block beyond 2 GiB.
    void Lend(const Document& document, const BlockRequest& request, int16_t fill);

    // Copies the samples back; the request must lie within the document. A mask of the document's
    // size holds back what isn't selected, by the pixel as `before` has it.
    void TakeInto(Document& document, const Document& before, const Document* mask) const;

    // Nothing is lent any more.
    void Drop();

    bool IsLent() const { return !fBytes.empty(); }
    const BlockRequest& Request() const { return fRequest; }
    uint8_t* Bytes() { return fBytes.empty() ? nullptr : fBytes.data(); }
    int32_t Stride() const { return static_cast<int32_t>(fStride); }

private:
    BlockRequest fRequest;
    size_t fStride = 0;
    std::vector<uint8_t> fBytes;
};

} // namespace Host
