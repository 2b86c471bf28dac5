// How pixels travel from the file to the host: layouts, packets, chunks, and the calls that this
// takes.
#include "support/ei_file.h"
#include "support/module_test.h"

namespace Testing {
namespace {

using ::testing::ElementsAre;

using Testing::kInfinity;

EIFrame Frame(const char* layout, int width, int height, Bytes pixels, uint8_t packing = 0)
{
    return {.layout = Layout(layout),
            .width = width,
            .height = height,
            .packing = packing,
            .pixels = std::move(pixels)};
}

// Two hexadecimal digits a byte, with blanks anywhere between bytes.
Bytes Hex(std::string_view text)
{
    Bytes bytes;
    for (size_t at = 0; at < text.size(); at += text[at] == ' ' ? 1 : 2)
        if (text[at] != ' ')
            bytes.push_back(
                static_cast<uint8_t>(std::stoi(std::string(text.substr(at, 2)), nullptr, 16)));
    return bytes;
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
    const struct {
        const char *what, *layout;
        int width, height;
        uint8_t packing;
        const char *pixels, *samples, *reads; // of the pixels, in bytes
    } kRows[] = {
        {"8 pixels a byte; each row begins with a byte", "indexed1", 10, 2, 0, "B340 01BF",
         "01000101000001010001 00000000000000010100", "02 02"},
        {"4 pixels a byte", "indexed2", 5, 1, 0, "1BC0", "00 01 02 03 03", "02"},
        {"2 pixels a byte", "indexed4", 3, 1, 0, "A5F0", "0A 05 0F", "02"},
        {"1 pixel a byte", "indexed8", 3, 1, 0, "00C8FF", "00C8FF", "03"},
        {"5 bits a channel, widened", "rgb16", 4, 1, 0, "1F7C E003 FFFF 2184",
         "FF00FF 00FF00 FFFFFF 080808", "08"},
        {"colours", "rgb24", 2, 1, 0, "010203 040506", "010203 040506", "06"},
        {"alpha, first in the file and last in the picture", "argb32", 2, 1, 0, "09010203 08040506",
         "01020309 04050608", "08"},
        {"alpha beside 24 bits", "rgb24alpha8", 1, 1, 0, "09010203", "01020309", "04"},
        {"depth: 0, 0.5, 1, infinity, -1, 2, -infinity, no number", "depth32", 8, 1, 0,
         "00000000 0000003F 0000803F 0000807F 000080BF 00000040 000080FF 0000C07F",
         "00 80 FF FF 00 FF 00 00", "20"},
        {"a run", "rgb24", 3, 1, 1, "02 010203", "010203 010203 010203", "01 03"},
        {"a literal", "rgb24", 2, 1, 1, "81 010203 040506", "010203 040506", "01 06"},
        {"a run of 7 over rows of 3, then a literal of 5 of which 2 are never wanted", "indexed8",
         3, 4, 1, "06 09 84 0102030405 EE", "090909 090909 090102 030405", "01 01 01 02 03"},
        {"the longest run, left open", "indexed8", 1, 1, 1, "7F 09", "09", "01 01"},
        {"a picture after an open run", "indexed8", 2, 1, 1, "01 05", "0505", "01 01"},
        {"the longest literal, left open", "indexed8", 1, 1, 1, "FF 07", "07", "01 01"},
        {"a picture after an open literal", "indexed8", 2, 1, 1, "00 03 00 04", "0304",
         "01 01 01 01"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(Samples(Frame(row.layout, row.width, row.height, Hex(row.pixels), row.packing)),
                  Hex(row.samples));
        const auto all = host.Amounts(Kind::kRead);
        const ptrdiff_t heads = Layout(row.layout).frameType == 2 ? 3 : 2;
        EXPECT_EQ(Bytes(all.begin() + heads, all.end()), Hex(row.reads));
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
        const char *what, *layout;
        int height; // of 10 columns
        int64_t space;
        int refusals;                     // of allocations, from the first on
        std::vector<int64_t> allocations; // the rows as often as refused, then the scratch
        std::vector<int> ends;            // of the chunks handed over; none: memory full
    } kRows[] = {
        {"3 rows and a rest", "rgb24", 7, 119, 0, {90, 60}, {3, 6, 7}},
        {"space for all", "rgb24", 7, kPlenty, 0, {210, 60}, {7}},
        {"depth: a scratch of 5 rows", "depth32", 7, kPlenty, 0, {70, 50}, {7}},
        {"refused: a row less", "indexed8", 6, kPlenty, 1, {60, 50, 20}, {5, 6}},
        {"always refused", "indexed8", 6, kPlenty, kAll, {60, 50, 40, 30, 20, 10}, {}},
        {"no space for a row", "indexed8", 6, 9, 0, {20}, {}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        ScriptableHost each;
        each.memoryLimit = row.space;
        if (row.refusals > 0)
            each.fault = Fault{Kind::kAllocate, 0, kHostDiskFull, row.refusals == kAll};
        const Bytes pixels(Layout(row.layout).RowBytes(10) * static_cast<size_t>(row.height));
        EXPECT_EQ(each.Open(OneFrameFile(Frame(row.layout, 10, row.height, pixels))),
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
    struct {
        const char* what;
        Bytes pixels, samples;
    } const kRows[] = {
        {"a range and an infinity", FloatBytes({-1, 3, kInfinity, 1, 7, 2}), Hex("0080FF40FF60")},
        {"equal values: a scale of 1", FloatBytes({5, 5, kInfinity, 5, 5, 5}), Hex("0000FF000000")},
        {"nearly equal values too", FloatBytes({5, above, 5, above, 5, 5}), Bytes(6, 0)},
        {"infinities alone", FloatBytes(std::vector(6, kInfinity)), Bytes(6, 255)},
        {"packets", Hex("02 0000803F 82 00000040 00004040 00008040"), Hex("00000055AAFF")}};
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
