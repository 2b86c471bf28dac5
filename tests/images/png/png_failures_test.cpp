// Bad files: each ends in its message, and none in more memory than it could fill.
#include "foundation/errors/exceptions.h"
#include "images/png/decoding.h"
#include "support/testing.h"

using namespace Kesto;
using namespace TestPNG;

namespace {

constexpr const char* kSignatureText = "$$$/Kesto/PNGDecoder/Error/InvalidSig=This is not valid "
                                       "PNG data. It does not begin with a proper signature.";
constexpr const char* kHeaderText =
    "$$$/Kesto/PNGDecoder/Error/InvalidHeader=The PNG header data is not valid.";
constexpr const char* kMemoryText =
    "$$$/Kesto/CPNGDecoder/Error/MemoryError=PNG Decoder Memory Error.";
constexpr const char* kDepthText =
    "$$$/Kesto/PNGDecoder/Error/InvalidDepth=The PNG pixel depth is not supported.";
constexpr const char* kEndText = "$$$/Kesto/Container/Error/EndOfData=The end of data was reached "
                                 "while reading from a container.";

std::string ErrorOf(const Bytes& file)
{
    try {
        Decode(file);
    } catch (const CError& error) {
        return std::string(error.ErrorText().View());
    }
    return "no error";
}

Bytes File(const Bytes& header, const Bytes& imageData)
{
    return FileOf(header, {Chunk("IDAT", imageData)});
}

Bytes Cut(Bytes bytes, std::size_t size)
{
    bytes.resize(size);
    return bytes;
}

TEST(PNGFailures, HaveTheirMessages)
{
    const Bytes grey = Header(2, 1, 8, 0), header = Chunk("IHDR", grey),
                good = File(grey, Deflated({0, 1, 2}));
    Bytes lying = good;
    lying[33] = 0xFF; // the length of the chunk after the header
    Bytes wrongSum = Deflated({0, 1, 2});
    wrongSum.back() ^= 1;
    struct {
        const char* defect;
        Bytes file;
        const char* message;
    } const kRows[] = {
        {"no defect", good, "no error"},
        {"an empty file", {}, kEndText},
        {"another signature", Joined({{138}, good}), kSignatureText},
        {"another first chunk", Joined({Signature(), Chunk("IDAT", Bytes(13)), header}),
         kHeaderText},
        {"a short header", File(Cut(grey, 12), {}), kHeaderText},
        {"a width below 0", File(Header(0x80000000, 1, 8, 0), {}), kHeaderText},
        {"a height below 0", File(Header(1, 0xFFFFFFFF, 8, 0), {}), kHeaderText},
        {"a row beyond 31 bits", File(Header(0x7FFFFFFF, 1, 8, 6), {}), kHeaderText},
        {"rows beyond 31 bits", File(Header(0x10000, 0x10000, 8, 0), {}), kHeaderText},
        {"a pixmap beyond 31 bits", File(Header(1, 0x30000000, 8, 0), {}), kHeaderText},
        {"a pixmap of no height beyond 31 bits", File(Header(0x7FFFFFFF, 0, 8, 0), {}),
         kHeaderText},
        {"a pass beyond 31 bits", File(Header(0x7000, 0xFFFF, 255, 0, 0, 1), {}), kHeaderText},
        {"passes beyond 31 bits together", File(Header(2, 0x19000000, 16, 0, 0, 1), {}),
         kHeaderText},
        {"more pixels than the data could fill", File(Header(20000, 20000, 8, 6), Deflated({0})),
         kHeaderText},
        {"less than a modest picture's data", File(Header(5000, 5000, 8, 0), Deflated({0})),
         "no error"},
        {"no image data", File(grey, {}), kMemoryText},
        {"no image data for a large picture", File(Header(20000, 20000, 8, 6), {}), kMemoryText},
        {"a depth of 1 where 8 bits would be too many",
         File(Header(0x10000, 0x8000, 1, 0), Joined({Deflated({0}), Bytes(270000)})), kDepthText},
        {"image data that isn't deflated", File(grey, {1, 2, 3, 4, 5, 6, 7}), kMemoryText},
        {"image data that is cut", File(grey, Cut(Deflated({0, 1, 2}), 9)), kMemoryText},
        {"image data with a wrong checksum", File(grey, wrongSum), kMemoryText},
        {"bytes after the image data", File(grey, Joined({Deflated({0, 1, 2}), {9, 9}})),
         "no error"},
        {"image data for more rows", File(grey, Deflated(Bytes(6))), kMemoryText},
        {"a depth of 0", File(Header(2, 1, 0, 0), Deflated({0})), kDepthText},
        {"a depth of 1", File(Header(2, 1, 1, 0), Deflated({0, 1})), kDepthText},
        {"a depth of 2", File(Header(9, 1, 2, 3), Deflated({4, 1, 2, 3})), kDepthText},
        {"a depth of 4", File(Header(3, 1, 4, 0), Deflated({3, 1, 2})), kDepthText},
        {"a depth of 16", File(Header(2, 1, 16, 6), Deflated(Bytes(17, 4))), kDepthText},
        {"a depth of 255", File(Header(2, 3, 255, 6), Deflated(Bytes(768, 4))), kDepthText},
        {"a depth and data that are bad", File(Header(2, 1, 16, 6), {1}), kMemoryText},
        {"a depth and a color type that are bad", File(Header(2, 1, 16, 1), Deflated({0})),
         kDepthText},
        {"no color type, no filter bytes", File(Header(2, 1, 16, 1, 1), Deflated({})), kDepthText},
        {"a short transparency", Joined({Signature(), header, Chunk("tRNS", {0}), good}), kEndText},
        {"no end chunk", Cut(good, good.size() - 12), kEndText},
        {"a cut chunk", Cut(good, good.size() - 14), kEndText},
        {"a chunk length that lies", lying, kEndText},
    };
    for (const auto& [defect, file, message] : kRows)
        EXPECT_EQ(ErrorOf(file), message) << defect;
}

TEST(PNGFailures, LeaveTheDecoderAsNew)
{
    CMemoryContainer bad, good;
    Put(bad, Joined({Signature(), Chunk("IHDR", Header(9, 9, 8, 3, 0, 1)), Chunk("tRNS", {1}),
                     Chunk("IDAT", Deflated({0, 1, 2}))}));
    Put(good, File(Header(2, 1, 8, 3), Deflated({0, 0, 1})));
    CPNGDecoder decoder;
    EXPECT_THROW(decoder.Decode(bad), CError);
    EXPECT_EQ(SamplesOf(*decoder.Decode(good)), Bytes(6, 0));
}

} // namespace
