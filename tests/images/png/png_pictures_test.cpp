// Good files of unusual kinds; the usual ones are held against the decoder of libpng.
#include "images/png/decoding.h"
#include "support/testing.h"

using namespace Kesto;
using namespace TestPNG;

namespace {

TEST(PNGPictures, OfRGBAPackTheRowsOfEachInterlacedPass)
{
    Picture picture{4, 4, 6, true, {}, {}, {}};
    for (std::uint8_t i = 0; i < 16; ++i)
        picture.samples.insert(picture.samples.end(), {i, i, i, i});
    Bytes expected;
    for (const std::uint8_t i : {0, 1, 3, 0, 4, 5, 6, 7, 11, 10, 0, 0, 12, 13, 14, 15})
        expected.insert(expected.end(), {i, i, i, i});
    EXPECT_EQ(SamplesOf(*Decode(Encoded(picture, {0}))), expected);
}

Bytes Rows(const Bytes& rows)
{
    return Chunk("IDAT", Deflated(rows));
}

TEST(PNGChunks, OfUnusualOrderSizeAndMeaningAreTaken)
{
    std::vector<Bytes> unused;
    for (const char* type : {"bKGD", "cHRM", "gAMA", "hIST", "iCCP", "iTXt", "pHYs", "sBIT", "sPLT",
                             "sRGB", "tEXt", "tIME", "zTXt", "abCD", "IHDR"})
        unused.push_back(Chunk(type, {1, 2, 3}));
    unused.push_back(Rows({0, 6}));
    Bytes withUnused = FileOf(Header(1, 1, 8, 0), unused);
    withUnused[29] ^= 0xFF; // the header's checksum
    struct {
        const char* what;
        Bytes file, samples;
    } const kRows[] = {
        {"a transparent grey above the samples meets no pixel",
         FileOf(Header(2, 1, 8, 0), {Chunk("tRNS", {1, 44}), Rows({0, 44, 45})}),
         {44, 255, 45, 255}},
        {"any order; the third entry is cut off, so its index finds the black of a new palette",
         FileOf(Header(3, 1, 8, 3),
                {Chunk("tRNS", {7, 8}), Rows({0, 1, 0, 2}), Chunk("PLTE", {1, 2, 3, 4, 5, 6, 9})}),
         {4, 5, 6, 8, 1, 2, 3, 7, 0, 0, 0, 255}},
        {"more than the palette holds is cut",
         FileOf(Header(1, 1, 8, 3),
                {Chunk("PLTE", Bytes(1000, 9)), Chunk("tRNS", Bytes(300, 5)), Rows({0, 255})}),
         {9, 9, 9, 5}},
        {"chunks without a meaning here", withUnused, {6}},
        {"another filter method: a row's first sample is its filter",
         FileOf(Header(3, 2, 8, 0, 1), {Rows({1, 5, 6, 2, 7, 7})}),
         {1, 5, 11, 2, 12, 18}},
        {"missing rows are black",
         FileOf(Header(2, 3, 8, 0), {Rows({0, 1, 2, 0, 3})}),
         {1, 2, 3, 0, 0, 0}},
    };
    for (const auto& [what, file, samples] : kRows)
        EXPECT_EQ(SamplesOf(*Decode(file)), samples) << what;
}

TEST(PNGPixmaps, MayBeNullOrEmpty)
{
    EXPECT_EQ(Decode(FileOf(Header(0, 1, 8, 5), {Rows({0})})), nullptr) << "unknown color type";
    EXPECT_EQ(Decode(FileOf(Header(0, 3, 8, 6, 0, 1), {Rows({})}))->GetSize(), (PixelPoint{0, 3}));
}

// A decoder that stops at a comment.
class CStoppingDecoder : public CPNGDecoder {
public:
    bool OnTEXT(CContainer&, std::uint32_t) override { return false; }
};

TEST(PNGDecoder, EndsWhereAHandlerReturnsFalseAndBeginsAtTheStart)
{
    CMemoryContainer stream;
    Put(stream, FileOf(Header(1, 1, 8, 0), {Rows({0, 3}), Chunk("tEXt", {}), Bytes(3, 0)}));
    CStoppingDecoder decoder;
    EXPECT_EQ(SamplesOf(*decoder.Decode(stream)), Bytes{3});
    EXPECT_EQ(SamplesOf(*decoder.Decode(stream)), Bytes{3});
}

TEST(PNGDecoder, TransfersToAPixmapOfTheHeadersShape)
{
    CMemoryContainer stream;
    Put(stream, Chunk("IHDR", Header(2, 1, 8, 4)));
    stream.Seek(0);
    CPNGDecoder decoder;
    decoder.ReadHeader(stream);
    CMemoryPixmap fitting(8, 2, 1, 2, 4, 0), flat(8, 2, 1, 1, 4, 0), narrow(8, 1, 1, 2, 4, 0),
        deep(16, 2, 1, 2, 4, 0);
    const Bytes row{0, 1, 2, 3, 4};
    decoder.TransferTo(fitting, row);
    EXPECT_EQ(SamplesOf(fitting), (Bytes{1, 2, 3, 4}));
    EXPECT_THROW(decoder.TransferTo(fitting, std::span(row).first(4)), std::logic_error);
    for (const auto& [words, other] :
         {std::pair{"a plane less", &flat}, {"too narrow", &narrow}, {"16 bits", &deep}})
        EXPECT_THROW(decoder.TransferTo(*other, row), std::logic_error) << words;
}

} // namespace
