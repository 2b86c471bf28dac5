// How pixels travel from the file to the host: layouts, packets, chunks, and the calls that this
// takes.
#include "support/ei_file.h"
#include "support/module_test.h"

namespace Testing {
namespace {

using ::testing::ElementsAre;

constexpr float kInfinity = std::numeric_limits<float>::infinity();

EIFrame Frame(const char* layout, int width, int height, Bytes pixels, uint8_t packing = 0)
{
    return {.layout = Layout(layout),
            .width = width,
            .height = height,
            .packing = packing,
            .pixels = std::move(pixels)};
}

class ReadPixels : public ModuleTest {
protected:
    // The samples that the host is given.
    Bytes Samples(const EIFrame& frame)
    {
        host.ForgetCalls();
        EXPECT_EQ(host.Open(OneFrameFile(frame)), Outcome{});
        return host.document.samples;
    }
};

// One after the other on one host, so that a packet left open by one frame would show in the next.
TEST_F(ReadPixels, EachLayoutAndPacketHasItsReadsAndSamples)
{
    const Bytes depths = FloatBytes({0, 0.5F, 1, kInfinity, -1, 2, -kInfinity, std::nanf("")});
    const struct {
        const char* what;
        EIFrame frame;
        Bytes samples;
        std::vector<int64_t> reads; // of the pixels, in bytes
    } kRows[] = {
        {"8 pixels a byte; each row begins with a byte",
         Frame("indexed1", 10, 2, {0xB3, 0x40, 0x01, 0xBF}),
         {1, 0, 1, 1, 0, 0, 1, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 1, 1, 0},
         {2, 2}},
        {"4 pixels a byte", Frame("indexed2", 5, 1, {0x1B, 0xC0}), {0, 1, 2, 3, 3}, {2}},
        {"2 pixels a byte", Frame("indexed4", 3, 1, {0xA5, 0xF0}), {10, 5, 15}, {2}},
        {"1 pixel a byte", Frame("indexed8", 3, 1, {0, 200, 255}), {0, 200, 255}, {3}},
        {"5 bits a channel, widened",
         Frame("rgb16", 4, 1, {0x1F, 0x7C, 0xE0, 0x03, 0xFF, 0xFF, 0x21, 0x84}),
         {255, 0, 255, 0, 255, 0, 255, 255, 255, 8, 8, 8},
         {8}},
        {"colours", Frame("rgb24", 2, 1, {1, 2, 3, 4, 5, 6}), {1, 2, 3, 4, 5, 6}, {6}},
        {"alpha, first in the file and last in the picture",
         Frame("argb32", 2, 1, {9, 1, 2, 3, 8, 4, 5, 6}),
         {1, 2, 3, 9, 4, 5, 6, 8},
         {8}},
        {"alpha beside 24 bits", Frame("rgb24alpha8", 1, 1, {9, 1, 2, 3}), {1, 2, 3, 9}, {4}},
        {"depth in and out of its range",
         Frame("depth32", 8, 1, depths),
         {0, 128, 255, 255, 0, 255, 0, 0},
         {32}},
        {"a run", Frame("rgb24", 3, 1, {0x02, 1, 2, 3}, 1), {1, 2, 3, 1, 2, 3, 1, 2, 3}, {1, 3}},
        {"a literal",
         Frame("rgb24", 2, 1, {0x81, 1, 2, 3, 4, 5, 6}, 1),
         {1, 2, 3, 4, 5, 6},
         {1, 6}},
        {"a run of 7 over rows of 3, then a literal of 5 of which 2 are never wanted",
         Frame("indexed8", 3, 4, {0x06, 9, 0x84, 1, 2, 3, 4, 5, 0xEE}, 1),
         {9, 9, 9, 9, 9, 9, 9, 1, 2, 3, 4, 5},
         {1, 1, 1, 2, 3}},
        {"the longest run, left open", Frame("indexed8", 1, 1, {0x7F, 9}, 1), {9}, {1, 1}},
        {"a picture after an open run", Frame("indexed8", 2, 1, {0x01, 5}, 1), {5, 5}, {1, 1}},
        {"the longest literal, left open", Frame("indexed8", 1, 1, {0xFF, 7}, 1), {7}, {1, 1}},
        {"a picture after an open literal",
         Frame("indexed8", 2, 1, {0x00, 3, 0x00, 4}, 1),
         {3, 4},
         {1, 1, 1, 1}},
    };
    for (const auto& [what, frame, samples, reads] : kRows) {
        SCOPED_TRACE(what);
        EXPECT_EQ(Samples(frame), samples);
        const auto all = host.Amounts(Kind::kRead);
        const ptrdiff_t heads = frame.layout.frameType == 2 ? 3 : 2;
        EXPECT_EQ(std::vector(all.begin() + heads, all.end()), reads);
    }
}

TEST_F(ReadPixels, TheLongestPacketsReachOverManyRows)
{
    Bytes packed = {0x7F, 42, 0xFF};
    Bytes pixels(128, 42);
    for (uint8_t i = 0; i < 128; ++i) {
        packed.push_back(i);
        pixels.push_back(i);
    }
    for (const int width : {1, 50, 256}) {
        SCOPED_TRACE(width);
        const int height = 256 / width;
        EXPECT_EQ(Samples(Frame("indexed8", width, height, packed, 1)),
                  Bytes(pixels.begin(), pixels.begin() + width * height));
    }
}

TEST_F(ReadPixels, DepthFramesOfOtherLengths)
{
    const EIFrame floats = Frame("rgb24alpha8", 2, 1, FloatBytes({0.5F, 1}));
    const EIFrame plain = Frame("rgb24", 2, 1, floats.pixels);
    const struct {
        const char* what;
        EIFrame base;
        uint8_t bits;  // instead of those of the base
        Bytes samples; // none: refused
    } kRows[] = {
        {"4 bits: indices", Frame("indexed4", 3, 1, {0xA5, 0xF0}), 4, {10, 5, 15}},
        {"24 and 8 bits: a float", floats, 24, {128, 255}},
        {"0 bits", plain, 0, {}},
        {"3 bits", plain, 3, {}},
        {"12 bits", plain, 12, {}},
        {"40 bits", plain, 40, {}},
        {"255 bits", plain, 255, {}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        EIFrame frame = row.base;
        frame.layout.frameType = 2;
        frame.layout.bitDepth = row.bits;
        const bool refused = row.samples.empty();
        EXPECT_EQ(host.Open(OneFrameFile(frame)),
                  refused ? (Outcome{kHostFailed, kFormatReadContinue}) : Outcome{});
        EXPECT_EQ(alerts.texts,
                  std::vector<std::string>(refused ? 1 : 0, "Internal plane depth error"));
        EXPECT_EQ(int{host.record.colorMode}, kHostModeGrayscale);
        EXPECT_TRUE(refused || host.document.samples == row.samples);
        EXPECT_EQ(host.Buffers(), size_t{0});
        alerts.texts.clear();
    }
}

TEST_F(ReadPixels, ChunksFollowTheHostsSpace)
{
    constexpr int64_t kPlenty = 1 << 20;
    constexpr int kAll = 99;
    const struct {
        const char* what;
        EIFrame frame;
        int64_t space;
        int refusals;                     // of allocations, from the first on
        std::vector<int64_t> allocations; // the rows as often as refused, then the scratch
        std::vector<int> ends;            // of the chunks handed over; none: memory full
    } kRows[] = {
        {"3 rows and a rest", Frame("rgb24", 10, 7, Bytes(210)), 119, 0, {90, 60}, {3, 6, 7}},
        {"space for all", Frame("rgb24", 10, 7, Bytes(210)), kPlenty, 0, {210, 60}, {7}},
        {"depth: a scratch of 5 rows",
         Frame("depth32", 10, 7, Bytes(280)),
         kPlenty,
         0,
         {70, 50},
         {7}},
        {"refused: a row less",
         Frame("indexed8", 10, 6, Bytes(60)),
         kPlenty,
         1,
         {60, 50, 20},
         {5, 6}},
        {"refused until no row is left",
         Frame("indexed8", 10, 6, Bytes(60)),
         kPlenty,
         kAll,
         {60, 50, 40, 30, 20, 10},
         {}},
        {"no space for a row", Frame("indexed8", 10, 6, Bytes(60)), 9, 0, {20}, {}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        ScriptableHost each;
        each.memoryLimit = row.space;
        if (row.refusals > 0)
            each.fault = Fault{Kind::kAllocate, 0, kHostDiskFull, row.refusals == kAll};
        EXPECT_EQ(each.Open(OneFrameFile(row.frame)),
                  row.ends.empty() ? (Outcome{kHostMemoryFull, kFormatReadContinue}) : Outcome{});
        EXPECT_EQ(each.Amounts(Kind::kAllocate), row.allocations);
        std::vector<HostCall> chunks;
        for (const int end : row.ends)
            chunks.push_back({Kind::kExchange, chunks.empty() ? 0 : chunks.back().b, end});
        EXPECT_EQ(each.CallsOf(Kind::kExchange), chunks);
        ExpectClean(each);
    }
}

TEST_F(ReadPixels, AbortAndProgressComeBeforeEachRow)
{
    Samples(Frame("rgb24", 2, 3, Bytes(18)));
    std::vector<HostCall> rows;
    for (const HostCall& call : host.Calls())
        if (call.kind == Kind::kAbort || call.kind == Kind::kProgress ||
            (call.kind == Kind::kRead && call.a == 6))
            rows.push_back(call);
    std::vector<HostCall> expected = {{Kind::kRead, 6, 0}};
    for (int row = 0; row < 3; ++row)
        expected.insert(expected.end(),
                        {{Kind::kAbort, 0, 0}, {Kind::kProgress, row, 3}, {Kind::kRead, 6, 0}});
    EXPECT_EQ(rows, expected);
}

TEST_F(ReadPixels, DepthWithoutARangeIsReadTwice)
{
    EIFrame frame = Frame("depth32", 2, 3, {});
    frame.low = frame.high = 0;
    host.memoryLimit = 4;
    const float above = std::nextafter(5.0F, 6.0F);
    const Bytes packets = {0x02, 0, 0, 0x80, 0x3F, 0x82, 0, 0,    0,
                           0x40, 0, 0, 0x40, 0x40, 0,    0, 0x80, 0x40};
    struct {
        const char* what;
        Bytes pixels, samples;
    } const kRows[] = {
        {"a range and an infinity",
         FloatBytes({-1, 3, kInfinity, 1, 7, 2}),
         {0, 128, 255, 64, 255, 96}},
        {"equal values: a scale of 1",
         FloatBytes({5, 5, kInfinity, 5, 5, 5}),
         {0, 0, 255, 0, 0, 0}},
        {"nearly equal values too", FloatBytes({5, above, 5, above, 5, 5}), Bytes(6, 0)},
        {"infinities alone", FloatBytes(std::vector(6, kInfinity)), Bytes(6, 255)},
        {"packets", packets, {0, 0, 0, 85, 170, 255}}};
    for (const auto& [what, pixels, samples] : kRows) {
        SCOPED_TRACE(what);
        frame.pixels = pixels;
        frame.packing = pixels.size() < 24;
        EXPECT_EQ(Samples(frame), samples);
        EXPECT_EQ(host.Count(Kind::kExchange), 2) << "the first pass is for the module alone";
        EXPECT_EQ(host.Count(Kind::kAbort), 6);
        EXPECT_THAT(host.CallsOf(Kind::kSeek),
                    ElementsAre(HostCall{Kind::kSeek, kHostSeekFromStart, 6 + 32 + 12}));
    }
}

TEST_F(ReadPixels, EveryPrefixOfAFileIsRefused)
{
    for (const EIFrame& frame : SmallFrames()) {
        const Bytes file = OneFrameFile(frame);
        for (size_t size = 0; size < file.size(); ++size) {
            ScriptableHost each;
            const Outcome outcome = each.Open(std::span(file).first(size));
            EXPECT_EQ(outcome.code, kHostCannotRead) << frame.layout.name << " " << size;
            ExpectClean(each, 0, outcome.selector == kFormatReadStart ? 1 : 0);
        }
    }
}

TEST_F(ReadPixels, RandomPicturesOfEveryLayoutComeBack)
{
    Random random(7);
    const auto upTo = [&](int most) { return std::uniform_int_distribution(1, most)(random); };
    for (int round = 0; round < 60; ++round)
        for (const EILayout& layout : AllLayouts()) {
            EIFrame frame{
                .layout = layout, .width = upTo(round < 50 ? 40 : 700), .height = upTo(20)};
            frame.packing = static_cast<uint8_t>(round % 3 != 0);
            frame.lut = RandomLut(layout.frameType == 2 ? 0 : upTo(30), random);
            const Bytes rows = RandomRows(layout, frame.width, frame.height, random);
            frame.pixels = frame.packing ? EncodeRow(rows, layout.Unit()) : rows;
            ScriptableHost each;
            each.memoryLimit = int64_t{layout.planes} * frame.width * upTo(frame.height + 2);
            ASSERT_EQ(each.Open(OneFrameFile(frame)), Outcome{})
                << layout.name << " round " << round;
            ASSERT_EQ(each.document.samples, PictureOf(frame, rows).samples)
                << layout.name << " round " << round;
            ExpectClean(each);
        }
}

TEST_F(ReadPixels, AnyPacketStreamReadsAsThePlainDecoderSays)
{
    Random random(11);
    for (int round = 0; round < 400; ++round) {
        const EILayout& layout = AllLayouts()[static_cast<size_t>(round) % 8]; // depth aside
        EIFrame frame{
            .layout = layout, .width = 1 + round % 61, .height = 1 + round % 7, .packing = 1};
        frame.pixels.resize(static_cast<size_t>(random() % 600) + 1);
        std::ranges::generate(frame.pixels, [&] { return static_cast<uint8_t>(random()); });
        const size_t size = layout.RowBytes(frame.width) * static_cast<size_t>(frame.height);
        const auto rows = DecodePackets(frame.pixels, layout.Unit(), size);
        ScriptableHost each;
        const Outcome outcome = each.Open(OneFrameFile(frame));
        ASSERT_EQ(outcome.code, rows ? 0 : kHostCannotRead) << layout.name << " round " << round;
        if (rows) {
            ASSERT_EQ(each.document.samples, PictureOf(frame, *rows).samples)
                << layout.name << " round " << round;
        }
        ExpectClean(each);
    }
}

} // namespace
} // namespace Testing
