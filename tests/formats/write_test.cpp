// What the writer puts into a file, byte by byte, and how it talks to the host while it does.
#include "support/ei_file.h"
#include "support/module_test.h"

namespace Testing {
namespace {

using ::testing::ElementsAre;

constexpr size_t kHeads = 38; // both headers of a file

// Two runs, a pixel each.
Picture TwoRuns()
{
    return Picture(kHostModeRGB, 3, 1, 3, {1, 2, 3, 1, 2, 3, 4, 5, 6});
}

Bytes Ramp(int from, int count)
{
    Bytes out;
    for (int i = 0; i < count; ++i)
        out.push_back(static_cast<uint8_t>(from + i));
    return out;
}

Bytes Join(std::initializer_list<Bytes> parts)
{
    Bytes out;
    for (const Bytes& part : parts)
        out.insert(out.end(), part.begin(), part.end());
    return out;
}

class WriteFile : public ModuleTest {
protected:
    // The packets of a saved picture.
    Bytes Packets(const Picture& picture)
    {
        EXPECT_EQ(host.Save(picture), Outcome{});
        return {host.file.begin() + kHeads + (picture.mode == kHostModeRGB ? 3 : 768),
                host.file.end()};
    }
    int16_t Estimate(int depth, int columns, int rows, int planes)
    {
        host.record.channelDepth = static_cast<int16_t>(depth);
        host.record.columnCount = static_cast<int16_t>(columns);
        host.record.rowCount = static_cast<int16_t>(rows);
        host.record.planeCount = static_cast<int16_t>(planes);
        host.record.rowsAddress = &host;
        return host.Call(kFormatEstimateStart);
    }
};

TEST_F(WriteFile, RowsBecomePackets)
{
    const auto grey = [](const Bytes& row, int height = 1) {
        return Picture(kHostModeGrayscale, static_cast<int>(row.size()) / height, height, 1, row);
    };
    const auto rgb = [](int planes, const Bytes& row) {
        return Picture(kHostModeRGB, static_cast<int>(row.size()) / planes, 1, planes, row);
    };
    struct {
        const char* what;
        Picture picture;
        Bytes packets;
    } const kRows[] = {
        {"runs and literals", grey({1, 2, 2, 3, 3, 3, 4, 5}), {128, 1, 1, 2, 2, 3, 129, 4, 5}},
        {"the longest run", grey(Bytes(300, 9)), {0x7F, 9, 0x7F, 9, 0x2B, 9}},
        {"the longest literal", grey(Ramp(0, 129)), Join({{0xFF}, Ramp(0, 128), {0x80, 128}})},
        {"a literal up to a run", grey(Join({Ramp(0, 200), Bytes(3, 200)})),
         Join({{0xFF}, Ramp(0, 128), {0xC7}, Ramp(128, 72), {0x02, 200}})},
        {"the last pixel is what the host's buffers hold after it",
         grey({1, 0xCD}),
         {0x80, 1, 0x80, 0xCD}},
        {"each row starts afresh", grey({4, 4, 4, 4, 4, 5}, 2), {0x02, 4, 0x01, 4, 0x80, 5}},
        {"pixels are compared whole", rgb(3, {7, 7, 7, 7, 7, 8}), {0x81, 7, 7, 7, 7, 7, 8}},
        {"alpha comes first",
         rgb(4, {1, 2, 3, 9, 1, 2, 3, 9, 1, 2, 3, 8}),
         {0x01, 9, 1, 2, 3, 0x80, 8, 1, 2, 3}},
        {"no rows", Picture(kHostModeRGB, 4, 0, 3), {}}};
    for (const auto& [what, picture, packets] : kRows)
        EXPECT_EQ(Packets(picture), packets) << what;
}

TEST_F(WriteFile, AFileByteByByte)
{
    EXPECT_EQ(host.Save(Picture(kHostModeRGB, 0x102, 1, 4)), Outcome{});
    const Bytes head = {0, 5, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0,  0, 1, 1, 2, 24,
                        0, // version to frame type
                        0, 0, 0, 0, 0, 1, 1, 2, 1, 8, 0, 0, 0, 15, 0, 1, 0, 0}; // bounds to colours
    const Bytes rest = {0, 0, 0, 0x7F, 0, 0, 0, 0, 0x7F, 0, 0, 0, 0, 0x01, 0, 0, 0, 0};
    EXPECT_EQ(host.file, Join({head, rest}));
}

TEST_F(WriteFile, ColoursOfOtherPlaneCountsHaveThreeOrFour)
{
    EIFrame frame{.width = 2,
                  .height = 1,
                  .packing = 1,
                  .lut = {0, 0, 0},
                  .pixels = {0x81, 1, 0, 0, 2, 0, 0}};
    EXPECT_EQ(host.Save(Picture(kHostModeRGB, 2, 1, 1, {1, 2})), Outcome{});
    EXPECT_EQ(host.file, OneFrameFile(frame));
    frame.layout = Layout("rgb24alpha8");
    frame.pixels = {0x01, 9, 1, 2, 3};
    EXPECT_EQ(host.Save(Picture(kHostModeRGB, 2, 1, 5, {1, 2, 3, 9, 7, 1, 2, 3, 9, 8})), Outcome{});
    EXPECT_EQ(host.file, OneFrameFile(frame));
}

TEST_F(WriteFile, OtherModesAreRefusedBeforeAFileIsMade)
{
    for (const int mode : {-1, 0, 4, 5, 9}) {
        EXPECT_EQ(host.Save(Picture(mode, 1, 1, 1)), (Outcome{kHostBadMode, kFormatWriteStart}))
            << mode;
        EXPECT_EQ(host.Count(Kind::kOpen), 0);
    }
    host.buffers.version = 3;
    EXPECT_EQ(host.Save(Picture(kHostModeRGB, 1, 1, 3)),
              (Outcome{kHostMissingSuite, kFormatWritePrepare}));
}

TEST_F(WriteFile, TheStartTellsTheHostWhatToDeliver)
{
    for (const int planes : {1, 3, 4}) {
        ScriptableHost each;
        const HostFormatRecord& record = each.record;
        each.document = Picture(planes == 1 ? kHostModeGrayscale : kHostModeRGB, 11, 2, planes);
        each.record.colorMode = static_cast<int16_t>(each.document.mode);
        each.record.columnCount = 11;
        each.record.rowCount = 2;
        each.record.channelDepth = 8;
        each.record.planeCount = static_cast<int16_t>(planes);
        EXPECT_EQ(each.Call(kFormatWritePrepare), 0);
        EXPECT_EQ(record.memoryBudget, 0x100000);
        EXPECT_EQ(each.Call(kFormatWriteStart), 0);
        const HostRect16 rect = record.exchangeRect;
        EXPECT_THAT((std::array{rect.top, rect.left, rect.bottom, rect.right}),
                    ElementsAre(0, 0, 1, 11));
        EXPECT_THAT((std::array{int{record.firstPlane}, int{record.lastPlane}}),
                    ElementsAre(0, planes - 1));
        EXPECT_THAT(
            (std::array{int{record.pixelStride}, int{record.planeStride}, int{record.rowStride}}),
            ElementsAre(planes, 1, 11))
            << "the row stride is the measure of the buffer, not of the row";
        EXPECT_NE(RowsAddress(each), nullptr);
        EXPECT_THAT(each.Amounts(Kind::kAllocate), ElementsAre(88));
        EXPECT_EQ(each.Call(kFormatWriteContinue), 0);
        EXPECT_EQ(RowsAddress(each), nullptr);
        EXPECT_EQ(record.exchangeRect.right, 0);
        EXPECT_THAT(each.CallsOf(Kind::kExchange),
                    ElementsAre(HostCall{Kind::kExchange, 0, 1}, HostCall{Kind::kExchange, 1, 2}));
        EXPECT_THAT(each.CallsOf(Kind::kProgress),
                    ElementsAre(HostCall{Kind::kProgress, 0, 2}, HostCall{Kind::kProgress, 1, 2}));
        EXPECT_EQ(each.Buffers(), size_t{0});
        EXPECT_EQ(each.Call(kFormatWriteFinish), 0);
        ExpectClean(each);
    }
}

TEST_F(WriteFile, APacketIsTwoWrites)
{
    host.Save(TwoRuns());
    EXPECT_THAT(host.Amounts(Kind::kWrite), ElementsAre(6, 32, 3, 1, 3, 1, 3, 6, 32));
    EXPECT_THAT(host.CallsOf(Kind::kSeek),
                ElementsAre(HostCall{Kind::kSeek, kHostSeekFromStart, 0}));
}

TEST_F(WriteFile, ACancelledWriteStillPatchesItsHeader)
{
    host.abortAt = 2;
    EXPECT_EQ(host.Save(Picture(kHostModeRGB, 2, 5, 3)),
              (Outcome{kHostUserCanceled, kFormatWriteContinue}));
    EXPECT_EQ(host.file.size(), kHeads + 3 + 2 * 4);
    EXPECT_EQ(Bytes(host.file.begin() + 30, host.file.begin() + 34), (Bytes{0, 0, 0, 8}));
    ExpectClean(host);
}

TEST_F(WriteFile, FailuresAreShownOnlyAfterARead)
{
    const std::pair<Fault, const char*> kRows[] = {
        {{Kind::kWrite, 0}, "File error, writing header"},
        {{Kind::kWrite, 1}, "File error, writing frame"},
        {{Kind::kWrite, 2}, "File error, writing LUT"},
        {{Kind::kWrite, 3}, "File error, writing run length"},
        {{Kind::kWrite, 4}, "File error, writing run value"},
        {{Kind::kWrite, 5}, "File error, writing run length"},
        {{Kind::kWrite, 6}, "File error, writing run value"},
        {{Kind::kWrite, 7}, "File error, writing header"},
        {{Kind::kWrite, 8}, "File error, writing frame"},
        {{Kind::kSeek, 0}, "File error while seeking"}};
    for (const auto& [fault, text] : kRows)
        for (const bool afterRead : {false, true}) {
            ScriptableHost each;
            AlertCapture shown;
            if (afterRead)
                each.Open(OneFrameFile({.width = 1, .height = 1, .pixels = {1, 2, 3}}));
            each.fault = fault;
            each.Save(TwoRuns());
            EXPECT_EQ(shown.texts, std::vector<std::string>(afterRead ? 1 : 0, text)) << fault.at;
        }
}

TEST_F(WriteFile, TheEstimateCountsRowsOfEachPlane)
{
    for (const auto& [depth, columns, rows, planes, bytes] : {std::tuple{8, 10, 7, 1, 170},
                                                              {8, 10, 7, 3, 310},
                                                              {1, 10, 4, 1, 108},
                                                              {16, 3, 2, 4, 148},
                                                              {8, 0, 9, 3, 100}}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(Estimate(depth, columns, rows, planes), 0);
        EXPECT_EQ(int32_t{host.record.estimateMin}, bytes);
        EXPECT_EQ(int32_t{host.record.estimateMax}, bytes);
        EXPECT_EQ(RowsAddress(host), nullptr);
    }
    EXPECT_EQ(Estimate(16, 30000, 30000, 4), 0);
    EXPECT_EQ(int32_t{host.record.estimateMax}, INT32_MAX);
}

TEST_F(WriteFile, RandomDocumentsComeBack)
{
    Random random(3);
    const std::pair<int, const char*> kinds[] = {{kHostModeGrayscale, "indexed8"},
                                                 {kHostModeIndexed, "indexed8"},
                                                 {kHostModeRGB, "rgb24"},
                                                 {kHostModeRGB, "rgb24alpha8"}};
    for (int round = 0; round < 200; ++round) {
        const auto& [mode, layout] = kinds[round % 4];
        EIFrame frame{.layout = Layout(layout), .packing = 1};
        frame.width = std::uniform_int_distribution(1, round % 10 ? 60 : 900)(random);
        frame.height = std::uniform_int_distribution(1, 12)(random);
        frame.lut = RandomLut(mode == kHostModeRGB ? 1 : 256, random);
        const Bytes rows = RandomRows(frame.layout, frame.width, frame.height, random);
        for (auto rest = std::span(rows); !rest.empty();
             rest = rest.subspan(frame.layout.RowBytes(frame.width))) {
            const Bytes packets = EncodeRow(rest.first(frame.layout.RowBytes(frame.width)),
                                            frame.layout.Unit(), 0xCD);
            frame.pixels.insert(frame.pixels.end(), packets.begin(), packets.end());
        }
        const Picture picture =
            PictureOf(frame, rows); // a grey document comes back as an indexed one
        Picture document = picture;
        document.mode = mode;
        ScriptableHost each;
        ASSERT_EQ(each.Save(document), Outcome{}) << round;
        ASSERT_EQ(each.file, OneFrameFile(frame)) << round;
        ASSERT_EQ(each.Open(Bytes(each.file)), Outcome{}) << round;
        ASSERT_EQ(each.document, picture) << round;
        ExpectClean(each);
    }
}

} // namespace
} // namespace Testing
