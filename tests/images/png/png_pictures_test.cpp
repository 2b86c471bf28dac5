// Good files: every one gives the pixels that were written.
#include "images/png/decoding.h"
#include "images/png/reference_decoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

using namespace Kesto;
using namespace TestPNG;

namespace {

// What a colour type and its transparency make of one pixel.
Bytes PlanesOf(const Picture& picture, const std::uint8_t* pixel)
{
    Bytes planes(pixel, pixel + picture.Channels());
    if (picture.colorType == 3) {
        const std::size_t index = pixel[0];
        planes.assign(picture.palette.begin() + static_cast<std::ptrdiff_t>(3 * index),
                      picture.palette.begin() + static_cast<std::ptrdiff_t>(3 * index + 3));
        if (!picture.transparency.empty())
            planes.push_back(index < picture.transparency.size() ? picture.transparency[index] : 255);
    } else if (!picture.transparency.empty() && picture.colorType < 3) {
        Bytes wide; // the pixel as the chunk has its key
        for (const std::uint8_t sample : planes)
            wide.insert(wide.end(), {0, sample});
        planes.push_back(wide == picture.transparency ? 0 : 255);
    }
    return planes;
}

Bytes ExpectedSamples(const Picture& picture)
{
    Bytes expected;
    for (std::size_t at = 0; at < picture.samples.size(); at += picture.Channels())
        for (const std::uint8_t sample : PlanesOf(picture, &picture.samples[at]))
            expected.push_back(sample);
    return expected;
}

void ExpectSamePixels(const Picture& picture, const Bytes& filters)
{
    const Bytes file = Encoded(picture, filters, 100);
    const auto pixmap = Decode(file);
    ASSERT_NE(pixmap, nullptr);
    ASSERT_EQ(pixmap->GetSize(), (Point{picture.width, picture.height}));
    EXPECT_EQ(pixmap->GetRowBytes(), (picture.width + 3) / 4 * 4);
    EXPECT_TRUE(SamplesOf(*pixmap) == ExpectedSamples(picture));
    if (std::ranges::all_of(filters, [](std::uint8_t filter) { return filter < 5; })) {
        const auto reference = ReferenceSamples(file);
        EXPECT_TRUE(!reference || SamplesOf(*pixmap) == *reference);
    }
}

// A colour type, without or with a transparency chunk.
struct Kind {
    std::uint8_t colorType;
    bool isInterlaced;
    bool isTransparent;
};

// The transparency chunk that the picture's first pixel meets, or an alpha for some of the colours.
Bytes TransparencyFor(const Picture& picture)
{
    Bytes payload;
    if (picture.colorType == 3)
        for (int i = 0; i < 100; ++i)
            payload.push_back(static_cast<std::uint8_t>(2 * i));
    else
        for (std::size_t c = 0; c < picture.Channels(); ++c)
            payload.insert(payload.end(), {0, picture.samples[c]});
    return payload;
}

class PNGPictures : public testing::TestWithParam<Kind> {
protected:
    static Picture Make(std::int32_t width, std::int32_t height, std::uint32_t seed)
    {
        Picture picture = RandomPicture(width, height, GetParam().colorType, seed);
        picture.interlaced = GetParam().isInterlaced;
        if (GetParam().isTransparent)
            picture.transparency = TransparencyFor(picture);
        return picture;
    }
};

const std::vector<Bytes> kFilters{{0}, {1}, {2}, {3}, {4}, {4, 3, 1, 2, 0, 3, 4, 7}};

TEST_P(PNGPictures, OfEverySizeAndFilterAreDecodedToTheBit)
{
    for (std::int32_t size = 1; size <= 40; ++size)
        for (std::size_t i = 0; i < kFilters.size(); ++i) {
            SCOPED_TRACE(testing::Message() << "size " << size << ", filters " << i);
            ExpectSamePixels(Make(size, 1 + size * 7 % 40, static_cast<std::uint32_t>(size)), kFilters[i]);
        }
}

TEST_P(PNGPictures, ThatAreLargeAreDecodedToTheBit)
{
    ExpectSamePixels(Make(517, 131, 1), {4, 4, 3, 1, 0, 2});
    ExpectSamePixels(Make(3, 1500, 2), {3, 4});
    ExpectSamePixels(Make(1500, 3, 3), {4, 1, 3});
}

INSTANTIATE_TEST_SUITE_P(Kinds, PNGPictures,
                         testing::Values(Kind{0, false, false}, Kind{0, true, false}, Kind{0, false, true},
                                         Kind{0, true, true}, Kind{2, false, false}, Kind{2, true, false},
                                         Kind{2, false, true}, Kind{2, true, true}, Kind{3, false, false},
                                         Kind{3, true, false}, Kind{3, false, true}, Kind{3, true, true},
                                         Kind{4, false, false}, Kind{4, true, false}, Kind{6, false, false}));

// A file of one row of single samples.
Bytes GreyFile(const std::vector<Bytes>& chunks, const Bytes& rows, std::uint8_t colorType = 0)
{
    const std::uint32_t width = static_cast<std::uint32_t>(rows.size() - 1);
    return Joined({Signature(), Chunk("IHDR", Header(width, 1, 8, colorType)), Joined(chunks),
                   Chunk("IDAT", Deflated(rows)), Chunk("IEND", {})});
}

TEST(PNGInterlacedRGBA, PacksTheRowsOfEachPass)
{
    Picture picture{4, 4, 6, true, {}, {}, {}};
    for (std::uint8_t i = 0; i < 16; ++i)
        picture.samples.insert(picture.samples.end(), {i, i, i, i});
    Bytes expected;
    for (const std::uint8_t i : {0, 1, 3, 0, 4, 5, 6, 7, 11, 10, 0, 0, 12, 13, 14, 15})
        expected.insert(expected.end(), {i, i, i, i});
    EXPECT_EQ(SamplesOf(*Decode(Encoded(picture, {0}))), expected);
}

TEST(PNGTransparency, OfAKeyAboveTheSamplesMeetsNoPixel)
{
    EXPECT_EQ(SamplesOf(*Decode(GreyFile({Chunk("tRNS", {1, 44})}, {0, 44, 45}))), (Bytes{44, 255, 45, 255}));
}

TEST(PNGChunks, MayComeInAnyOrderBehindTheHeader)
{
    const Bytes image = Chunk("IDAT", Deflated({0, 1, 0, 2}));
    const Bytes header = Chunk("IHDR", Header(3, 1, 8, 3));
    const Bytes file = Joined(
        {Signature(), header, Chunk("tRNS", {7, 8}), image, Chunk("PLTE", {1, 2, 3, 4, 5, 6, 9}), Chunk("IEND", {})});
    // The third entry is cut off, so its index finds the black of a new palette.
    EXPECT_EQ(SamplesOf(*Decode(file)), (Bytes{4, 5, 6, 8, 1, 2, 3, 7, 0, 0, 0, 255}));
}

TEST(PNGChunks, BeyondThePaletteAreCut)
{
    const Bytes file = GreyFile({Chunk("PLTE", Bytes(1000, 9)), Chunk("tRNS", Bytes(300, 5))}, {0, 255}, 3);
    EXPECT_EQ(SamplesOf(*Decode(file)), (Bytes{9, 9, 9, 5}));
}

TEST(PNGChunks, WithoutAMeaningHereAreRead)
{
    std::vector<Bytes> chunks;
    for (const char* type : {"bKGD", "cHRM", "gAMA", "hIST", "iCCP", "iTXt", "pHYs", "sBIT", "sPLT", "sRGB", "tEXt",
                             "tIME", "zTXt", "abCD", "IHDR"})
        chunks.push_back(Chunk(type, {1, 2, 3}));
    Bytes file = GreyFile(chunks, {0, 6});
    file[29] ^= 0xFF; // the header's checksum
    EXPECT_EQ(SamplesOf(*Decode(file)), Bytes{6});
}

TEST(PNGRows, OfAnotherFilterMethodHaveTheirFirstSampleForAFilter)
{
    const Bytes rows{1, 5, 6, 2, 7, 7};
    const Bytes file =
        Joined({Signature(), Chunk("IHDR", Header(3, 2, 8, 0, 1)), Chunk("IDAT", Deflated(rows)), Chunk("IEND", {})});
    EXPECT_EQ(SamplesOf(*Decode(file)), (Bytes{1, 5, 11, 2, 12, 18}));
}

TEST(PNGRows, ThatAreMissingAreBlack)
{
    const Bytes file = Joined(
        {Signature(), Chunk("IHDR", Header(2, 3, 8, 0)), Chunk("IDAT", Deflated({0, 1, 2, 0, 3})), Chunk("IEND", {})});
    EXPECT_EQ(SamplesOf(*Decode(file)), (Bytes{1, 2, 3, 0, 0, 0}));
}

TEST(PNGPixmaps, AreNullForAnUnknownColorType)
{
    EXPECT_EQ(Decode(GreyFile({}, {0}, 5)), nullptr);
}

TEST(PNGPixmaps, MayBeEmpty)
{
    const Bytes file =
        Joined({Signature(), Chunk("IHDR", Header(0, 3, 8, 6, 0, 1)), Chunk("IDAT", Deflated({})), Chunk("IEND", {})});
    EXPECT_EQ(Decode(file)->GetSize(), (Point{0, 3}));
}

// A decoder that stops at a comment, and can be looked into.
class CStoppingDecoder : public CPNGDecoder {
public:
    bool OnTEXT(CContainer&, std::uint32_t) override { return false; }
    using CPNGDecoder::fImage;
    using CPNGDecoder::fPasses;
};

TEST(PNGDecoder, EndsWhereAHandlerReturnsFalseAndBeginsAtTheStart)
{
    CMemoryContainer stream;
    Put(stream, Joined({Signature(), Chunk("IHDR", Header(1, 1, 8, 0)), Chunk("IDAT", Deflated({0, 3})),
                        Chunk("tEXt", {}), Bytes(3, 0)}));
    CStoppingDecoder decoder;
    EXPECT_EQ(SamplesOf(*decoder.Decode(stream)), Bytes{3});
    EXPECT_EQ(SamplesOf(*decoder.Decode(stream)), Bytes{3});
}

TEST(PNGDecoder, MeasuresThePassesOfAnInterlacedImage)
{
    struct {
        std::uint32_t width;
        std::array<std::int32_t, 7> sizes;
    } const kRows[] = {{1, {2, 0, 0, 0, 0, 0, 0}}, {4, {2, 0, 0, 2, 0, 3, 0}}, {5, {2, 2, 0, 2, 0, 3, 0}}};
    for (const auto& [width, sizes] : kRows) {
        CMemoryContainer stream;
        Put(stream, Chunk("IHDR", Header(width, 1, 8, 0, 0, 1)));
        CStoppingDecoder decoder;
        stream.Seek(0);
        decoder.ReadHeader(stream);
        for (std::size_t i = 0; i < sizes.size(); ++i)
            EXPECT_EQ(decoder.fPasses[i].size, sizes[i]) << "pass " << i << " of width " << width;
    }
}

TEST(PNGDecoder, TransfersToAPixmapOfTheHeadersShape)
{
    CMemoryContainer stream;
    Put(stream, Chunk("IHDR", Header(2, 1, 8, 4)));
    stream.Seek(0);
    CPNGDecoder decoder;
    decoder.ReadHeader(stream);
    CMemoryPixmap fitting(8, 2, 1, 2, 4, 0), flat(8, 2, 1, 1, 4, 0), narrow(8, 1, 1, 2, 4, 0), deep(16, 2, 1, 2, 4, 0);
    const Bytes row{0, 1, 2, 3, 4};
    decoder.TransferTo(fitting, row);
    EXPECT_EQ(SamplesOf(fitting), (Bytes{1, 2, 3, 4}));
    EXPECT_THROW(decoder.TransferTo(fitting, std::span(row).first(4)), std::logic_error);
    for (CMemoryPixmap* other : {&flat, &narrow, &deep})
        EXPECT_THROW(decoder.TransferTo(*other, row), std::logic_error);
}

} // namespace
