// What the writer puts into a file, byte by byte, and how it talks to the host while it does.
#include "support/ei_file.h"
#include "support/module_test.h"

namespace Testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr size_t kHeads = 38; // both headers of a file

Lut RampLut()
{
    Lut lut{};
    for (size_t i = 0; i < 256; ++i)
        for (size_t part = 0; part < 3; ++part)
            lut[part][i] = static_cast<uint8_t>(i * (part + 1) + part);
    return lut;
}

Picture WithLut(Picture picture)
{
    picture.lut = RampLut();
    return picture;
}

Bytes Repeat(size_t count, Bytes unit)
{
    Bytes out;
    for (size_t i = 0; i < count; ++i)
        out.insert(out.end(), unit.begin(), unit.end());
    return out;
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

// What the plain encoder makes of a picture; this host's buffers hold 0xCD behind a row.
Bytes PlainPackets(const Picture& picture)
{
    Bytes packets;
    const size_t unit = static_cast<size_t>(picture.planes), rowBytes = unit * static_cast<size_t>(picture.width);
    for (size_t at = 0; at < picture.samples.size(); at += rowBytes) {
        Bytes row(picture.samples.begin() + static_cast<ptrdiff_t>(at),
                  picture.samples.begin() + static_cast<ptrdiff_t>(at + rowBytes));
        for (size_t pixel = 0; unit == 4 && pixel < row.size(); pixel += 4) // alpha comes first in the file
            std::rotate(&row[pixel], &row[pixel] + 3, &row[pixel] + 4);
        const Bytes encoded = EncodeRow(row, unit, 0xCD);
        packets.insert(packets.end(), encoded.begin(), encoded.end());
    }
    return packets;
}

class WriteFile : public ModuleTest {
protected:
    // The packets of a saved picture.
    Bytes Packets(const Picture& picture)
    {
        host.ForgetCalls();
        EXPECT_EQ(host.Save(picture), Outcome{});
        const size_t before = kHeads + (picture.mode == kHostModeRGB ? 3 : 768);
        return {host.file.begin() + static_cast<ptrdiff_t>(before), host.file.end()};
    }
    Bytes GrayPackets(const Bytes& row)
    {
        return Packets(Picture(kHostModeGrayscale, static_cast<int>(row.size()), 1, 1, row));
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
    struct Row {
        Bytes pixels, packets;
    };
    const Row rows[] = {
        {{5}, {0x80, 5}},
        {{5, 5}, {0x01, 5}},
        {{1, 2}, {0x81, 1, 2}},
        {{1, 1, 2}, {0x01, 1, 0x80, 2}},
        {{1, 2, 2}, {0x80, 1, 0x01, 2}},
        {{1, 2, 2, 3, 3, 3, 4, 5}, {0x80, 1, 0x01, 2, 0x02, 3, 0x81, 4, 5}},
        {Bytes(127, 9), {0x7E, 9}},
        {Bytes(128, 9), {0x7F, 9}},
        {Bytes(129, 9), {0x7F, 9, 0x00, 9}},
        {Bytes(130, 9), {0x7F, 9, 0x01, 9}},
        {Bytes(300, 9), {0x7F, 9, 0x7F, 9, 0x2B, 9}},
        {Ramp(0, 127), Join({{0xFE}, Ramp(0, 127)})},
        {Ramp(0, 128), Join({{0xFF}, Ramp(0, 128)})},
        {Ramp(0, 129), Join({{0xFF}, Ramp(0, 128), {0x80, 128}})},
        {Join({Ramp(0, 200), {200, 200, 200}}), Join({{0xFF}, Ramp(0, 128), {0xC7}, Ramp(128, 72), {0x02, 200}})},
        // The last pixel equals what this host's buffers hold behind the row, so it stands alone.
        {{1, 0xCD}, {0x80, 1, 0x80, 0xCD}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(GrayPackets(row.pixels), row.packets) << row.pixels.size() << " pixels";
}

TEST_F(WriteFile, WiderPixelsAreComparedWhole)
{
    const auto rgb = [&](int planes, const Bytes& samples) {
        const int width = static_cast<int>(samples.size()) / planes;
        return Packets(Picture(kHostModeRGB, width, 1, planes, samples));
    };
    EXPECT_EQ(rgb(3, {1, 2, 3, 1, 2, 3, 1, 2, 4}), (Bytes{0x01, 1, 2, 3, 0x80, 1, 2, 4}));
    EXPECT_EQ(rgb(3, {7, 7, 7, 7, 7, 8, 7, 7, 7}), (Bytes{0x82, 7, 7, 7, 7, 7, 8, 7, 7, 7}));
    EXPECT_EQ(rgb(3, Repeat(129, {1, 2, 3})), (Bytes{0x7F, 1, 2, 3, 0x00, 1, 2, 3}));
    EXPECT_EQ(rgb(4, {1, 2, 3, 9, 1, 2, 3, 9, 1, 2, 3, 8}), (Bytes{0x01, 9, 1, 2, 3, 0x80, 8, 1, 2, 3}));
}

TEST_F(WriteFile, EachRowStartsAfresh)
{
    EXPECT_EQ(Packets(Picture(kHostModeIndexed, 3, 2, 1, {4, 4, 4, 4, 4, 5})), (Bytes{0x02, 4, 0x01, 4, 0x80, 5}));
}

TEST_F(WriteFile, HeadersSayWhatIsThere)
{
    struct Row {
        int mode, planes;
        uint8_t bitDepth, frameType, alpha;
        uint16_t lut;
    };
    const Row rows[] = {{kHostModeGrayscale, 1, 8, 1, 0, 256}, {kHostModeIndexed, 1, 8, 1, 0, 256},
                        {kHostModeRGB, 3, 24, 0, 0, 1},        {kHostModeRGB, 1, 24, 0, 0, 1},
                        {kHostModeRGB, 4, 24, 0, 8, 1},        {kHostModeRGB, 5, 24, 0, 8, 1}};
    for (const Row& row : rows) {
        const Picture picture = WithLut(Picture(row.mode, 0x102, 3, row.planes));
        EXPECT_EQ(host.Save(picture), Outcome{});
        const Bytes lut = row.lut == 1 ? Bytes{0, 1, 2} : [] {
            Bytes all;
            for (size_t i = 0; i < 256; ++i)
                for (const auto& part : RampLut())
                    all.push_back(part[i]);
            return all;
        }();
        const auto data = static_cast<uint8_t>(host.file.size() - kHeads - lut.size());
        const Bytes head = {0,
                            5,
                            0,
                            0,
                            0,
                            1, // version, frames
                            0,
                            0,
                            0,
                            0,
                            0,
                            0,
                            0,
                            0,
                            0,
                            3,
                            1,
                            2, // height, width
                            row.bitDepth,
                            row.frameType,
                            0,
                            0,
                            0,
                            0,
                            0,
                            3,
                            1,
                            2, // depth, type, bounds
                            1,
                            row.alpha,
                            0,
                            0,
                            0,
                            data, // packing, alpha, size
                            static_cast<uint8_t>(row.lut >> 8),
                            static_cast<uint8_t>(row.lut),
                            0,
                            0};
        EXPECT_EQ(host.file.size(), kHeads + lut.size() + 3 * 3 * (size_t{1} + row.bitDepth / 8U + row.alpha / 8U))
            << "three rows of three runs";
        EXPECT_THAT(Bytes(host.file.begin(), host.file.begin() + kHeads), ::testing::ElementsAreArray(head));
        EXPECT_EQ(Bytes(host.file.begin() + kHeads, host.file.begin() + static_cast<ptrdiff_t>(kHeads + lut.size())),
                  lut);
    }
}

TEST_F(WriteFile, OtherModesAreRefusedBeforeAFileIsMade)
{
    for (const int mode : {-1, 0, 4, 5, 9}) {
        EXPECT_EQ(host.Save(Picture(mode, 1, 1, 1)), (Outcome{kHostBadMode, kFormatWriteStart})) << mode;
        EXPECT_EQ(host.Count(Kind::kOpen), 0);
    }
    host.buffers.version = 3;
    EXPECT_EQ(host.Save(Picture(kHostModeRGB, 1, 1, 3)), (Outcome{kHostMissingSuite, kFormatWritePrepare}));
}

TEST_F(WriteFile, TheStartTellsTheHostWhatToDeliver)
{
    for (const int planes : {1, 3, 4}) {
        ScriptableHost each;
        each.record.colorMode = planes == 1 ? kHostModeGrayscale : kHostModeRGB;
        each.record.columnCount = 11;
        each.record.rowCount = 2;
        each.record.channelDepth = 8;
        each.record.planeCount = static_cast<int16_t>(planes);
        EXPECT_EQ(each.Call(kFormatWritePrepare), 0);
        EXPECT_EQ(each.record.memoryBudget, 0x100000);
        EXPECT_EQ(each.Call(kFormatWriteStart), 0);
        const HostRect16 rect = each.record.exchangeRect;
        EXPECT_THAT((std::array{rect.top, rect.left, rect.bottom, rect.right}), ElementsAre(0, 0, 1, 11));
        EXPECT_EQ(int{each.record.firstPlane}, 0);
        EXPECT_EQ(int{each.record.lastPlane}, planes - 1);
        EXPECT_EQ(int{each.record.pixelStride}, planes);
        EXPECT_EQ(int32_t{each.record.planeStride}, 1);
        EXPECT_EQ(int32_t{each.record.rowStride}, 11) << "the measure of the buffer, not of the row";
        EXPECT_NE(RowsAddress(each), nullptr);
        EXPECT_EQ(each.CallsOf(Kind::kAllocate), (std::vector<HostCall>{{Kind::kAllocate, 88, 0}}));
        each.document = Picture(each.record.colorMode, 11, 2, planes);
        EXPECT_EQ(each.Call(kFormatWriteContinue), 0);
        EXPECT_EQ(RowsAddress(each), nullptr);
        EXPECT_EQ(each.record.exchangeRect.right, 0);
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
    host.Save(Picture(kHostModeRGB, 3, 1, 3, {1, 2, 3, 1, 2, 3, 4, 5, 6}));
    std::vector<int64_t> sizes;
    for (const HostCall& call : host.CallsOf(Kind::kWrite))
        sizes.push_back(call.a);
    EXPECT_THAT(sizes, ElementsAre(6, 32, 3, 1, 3, 1, 3, 6, 32));
    EXPECT_THAT(host.CallsOf(Kind::kSeek), ElementsAre(HostCall{Kind::kSeek, kHostSeekFromStart, 0}));
}

TEST_F(WriteFile, APictureWithoutRowsIsHeadersAlone)
{
    EXPECT_THAT(Packets(Picture(kHostModeRGB, 4, 0, 3)), IsEmpty());
    EXPECT_EQ(host.Count(Kind::kExchange), 0);
}

TEST_F(WriteFile, AContinueWithoutABufferIsOutOfMemory)
{
    EXPECT_EQ(host.Call(kFormatWritePrepare), 0);
    EXPECT_EQ(host.Call(kFormatWriteContinue), kHostMemoryFull);
    EXPECT_EQ(host.Call(kFormatWriteFinish), 0);
    EXPECT_EQ(host.Count(Kind::kExchange) + host.Count(Kind::kPosition) + host.Count(Kind::kClose), 0);
}

TEST_F(WriteFile, ACancelledWriteStillPatchesItsHeader)
{
    host.abortAt = 2;
    EXPECT_EQ(host.Save(Picture(kHostModeRGB, 2, 5, 3)), (Outcome{kHostUserCanceled, kFormatWriteContinue}));
    EXPECT_EQ(host.file.size(), kHeads + 3 + 2 * 4);
    EXPECT_EQ(Bytes(host.file.begin() + 30, host.file.begin() + 34), (Bytes{0, 0, 0, 8}));
    ExpectClean(host);
}

TEST_F(WriteFile, FailuresAreShownOnlyAfterARead)
{
    const Picture picture(kHostModeRGB, 3, 1, 3, {1, 2, 3, 1, 2, 3, 4, 5, 6});
    const char* const texts[] = {
        "File error, writing header",     "File error, writing frame",     "File error, writing LUT",
        "File error, writing run length", "File error, writing run value", "File error, writing run length",
        "File error, writing run value",  "File error, writing header",    "File error, writing frame"};
    for (const bool afterRead : {false, true})
        for (int write = 0; write < 9; ++write) {
            ScriptableHost each;
            AlertRecorder shown;
            if (afterRead) {
                EXPECT_EQ(each.Open(OneFrameFile({.width = 1, .height = 1, .pixels = {1, 2, 3}})), Outcome{});
            }
            each.fault = Fault{Kind::kWrite, write, kHostDiskFull};
            each.Save(picture);
            ASSERT_EQ(shown.texts.size(), afterRead ? 1U : 0U) << write;
            if (afterRead) {
                EXPECT_EQ(shown.texts[0], texts[write]) << write;
            }
        }
    host.Open(OneFrameFile({.width = 1, .height = 1, .pixels = {1, 2, 3}}));
    host.fault = Fault{Kind::kSeek, 0};
    host.Save(picture);
    EXPECT_THAT(alerts.texts, ElementsAre("File error while seeking"));
}

TEST_F(WriteFile, TheEstimateCountsRowsOfEachPlane)
{
    for (const auto& [depth, columns, rows, planes, bytes] : {std::tuple{8, 10, 7, 1, 170},
                                                              {8, 10, 7, 3, 310},
                                                              {1, 10, 4, 1, 108},
                                                              {16, 3, 2, 4, 148},
                                                              {8, 0, 9, 3, 100}}) {
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
    const std::pair<int, int> kinds[] = {
        {kHostModeGrayscale, 1}, {kHostModeIndexed, 1}, {kHostModeRGB, 3}, {kHostModeRGB, 4}};
    for (int round = 0; round < 200; ++round) {
        const auto& [mode, planes] = kinds[round % 4];
        const int width = std::uniform_int_distribution(1, round % 10 ? 60 : 900)(random);
        const int height = std::uniform_int_distribution(1, 12)(random);
        const EILayout& like = Layout(planes == 1 ? "indexed8" : planes == 3 ? "rgb24" : "argb32");
        const Picture picture = WithLut(Picture(mode, width, height, planes, RandomRows(like, width, height, random)));
        ScriptableHost each;
        ASSERT_EQ(each.Save(picture), Outcome{}) << round;
        ASSERT_EQ(Bytes(each.file.begin() + static_cast<ptrdiff_t>(kHeads + (planes == 1 ? 768 : 3)), each.file.end()),
                  PlainPackets(picture))
            << round;
        ASSERT_EQ(each.Open(Bytes(each.file)), Outcome{}) << round;
        Picture expected = picture;
        if (planes == 1)
            expected.mode = kHostModeIndexed; // a grey document comes back as an indexed one
        else
            for (auto& part : expected.lut)
                std::fill(part.begin() + 1, part.end(), uint8_t{0}); // one entry is kept
        ASSERT_EQ(each.document, expected) << round;
        ExpectClean(each);
    }
}

} // namespace
} // namespace Testing
