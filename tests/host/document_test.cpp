// Documents in memory and the blocks that the host lends of them.
#include "driver/document.h"
#include "driver/filter_run.h"
#include "failure.h"
#include "host/test_pictures.h"
#include "support/testing.h"

namespace Host {
namespace {

TEST(Document, EverySampleComesBackFromEveryDepth)
{
    MadePicture grays(PictureMode::kGrayscale, 256, 2, 1, [](int32_t, int32_t at) { return at; });
    for (const SampleDepth depth : {SampleDepth::k8, SampleDepth::k16, SampleDepth::k32}) {
        SCOPED_TRACE(static_cast<int32_t>(depth));
        KeptPicture back;
        Document(grays, depth).WriteTo(back);
        EXPECT_EQ(back.fPixels, AllPixels(grays));
    }
}

// 4 x 3 pixels of two planes: the place in tens and ones, and 200 more.
int Place(int32_t y, int32_t at)
{
    return y * 10 + at / 2 + at % 2 * 200;
}

TEST(Block, HoldsThePlanesAskedForAndTheFillBeyondThePicture)
{
    MadePicture picture(PictureMode::kGrayscale, 4, 3, 2, Place);
    const Document document(picture, SampleDepth::k8);
    const struct {
        const char* what;
        HostRect32 rect;
        int32_t first, last;
        int16_t fill;
        Bytes bytes;
    } rows[] = {
        {"within", {1, 1, 3, 3}, 0, 1, 7, {11, 211, 12, 212, 21, 221, 22, 222}},
        {"one plane", {2, 0, 4, 2}, 1, 1, 7, {202, 203, 212, 213}},
        {"beyond, with a sample", {-1, -1, 1, 1}, 0, 0, 7, {7, 7, 7, 0}},
        {"beyond, with the edge", {3, 2, 5, 4}, 0, 0, kHostFillEdge, {23, 23, 23, 23}},
        {"far from it", {90, 1, 92, 2}, 0, 0, kHostFillEdge, {13, 13}},
        {"far above it", {0, -9, 2, -8}, 0, 0, 9, {9, 9}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const BlockRequest request{row.rect, row.first, row.last};
        EXPECT_NO_THROW(request.Check(document, row.fill, "source"));
        Block block;
        block.Lend(document, request, row.fill);
        EXPECT_EQ(Bytes(block.Bytes(), block.Bytes() + row.bytes.size()), row.bytes);
        EXPECT_EQ(block.Stride() * request.Height(), std::ssize(row.bytes));
    }
}

TEST(Block, RefusesWhatNoDocumentHas)
{
    MadePicture picture(PictureMode::kGrayscale, 4, 3, 2, Place);
    const Document document(picture, SampleDepth::k8);
    const struct {
        const char* what;
        int32_t first, last;
        int16_t fill;
    } rows[] = {
        {"a plane below 0", -1, 1, 0},  {"a plane too many", 0, 2, 0},     {"no plane", 1, 0, 0},
        {"a fill below all", 0, 1, -3}, {"a fill above white", 0, 1, 256},
    };
    for (const auto& row : rows)
        EXPECT_THROW(
            (BlockRequest{{0, 0, 1, 1}, row.first, row.last}.Check(document, row.fill, "source")),
            Failure)
            << row.what;
    Block block;
    EXPECT_THROW(block.Lend(document, {{-10, -10, 32767, 32767}, 0, 1}, 0), Failure);
    EXPECT_FALSE(block.IsLent()) << "no memory was taken for it";
}

TEST(Block, IsTakenBackAsFarAsTheMaskSelects)
{
    MadePicture picture(PictureMode::kGrayscale, 4, 3, 2, Place);
    MadePicture selection(PictureMode::kGrayscale, 4, 3, 1, [](int32_t y, int32_t x) {
        return y == 1 && x >= 1 ? std::array{0, 255, 102, 0}[static_cast<size_t>(x)] : 0;
    });
    const Document before(picture, SampleDepth::k8), mask(selection, SampleDepth::k8);
    Document document = before;
    Block block;
    block.Lend(document, {{1, 1, 4, 2}, 0, 0}, kHostFillNone);
    for (int n = 0; n < 3; ++n)
        block.Bytes()[n] = 111;
    block.TakeInto(document, before, &mask);
    const uint8_t* const row = document.Row(1);
    EXPECT_EQ(Bytes(row, row + 8), (Bytes{10, 210, 111, 211, 52, 212, 13, 213}));
    EXPECT_TRUE(std::equal(document.Row(2), document.Row(2) + 8, before.Row(2)));

    const HostRect32 selected = SelectedRect(mask);
    EXPECT_EQ((std::array{selected.left, selected.top, selected.right, selected.bottom}),
              (std::array{1, 1, 3, 2}));
    MadePicture nothing(PictureMode::kGrayscale, 4, 3, 1, [](int32_t, int32_t) { return 0; });
    EXPECT_EQ(SelectedRect(Document(nothing, SampleDepth::k8)).right, 0);
}

} // namespace
} // namespace Host
