// What the reader accepts of a file, what it tells the host about the picture, and which frame it
// opens.
#include "formats/frame_answer.h"
#include "support/ei_file.h"
#include "support/module_test.h"

namespace Testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Testing::kInfinity;

using ReadStart = ModuleTest;

// A sound frame of 2 by 1 pixels.
EIFrame SmallFrame(const EILayout& layout)
{
    return {.layout = layout, .width = 2, .height = 1, .pixels = Bytes(layout.RowBytes(2) + 1, 7)};
}

// One small file for each defect but a cut that the reader refuses at its start, and the alert of
// an interactive session.
struct BadFile {
    std::string name;
    Bytes bytes;
    const char* alert = "";
};

std::vector<BadFile> BadFiles()
{
    const auto shaped = [](uint8_t bitDepth, uint8_t frameType, uint8_t alphaDepth) {
        return OneFrameFile(SmallFrame(EILayout{"", bitDepth, frameType, alphaDepth, 0, 0}));
    };
    const EIFrame good = SmallFrame(Layout("rgb24"));
    EIFrame empty = good, packed = good;
    empty.dataSize = 0;
    packed.packing = 2;
    std::vector<BadFile> files = {
        {"empty file", {}},
        {"version 256", FileOf({good}, 0x100)},
        {"no frames", FileOf({good}, 5, 0)},
        {"frame type 3", shaped(24, 3, 0)},
        {"no data", OneFrameFile(empty)},
        {"packing 2", OneFrameFile(packed), "Unknown frame packing, contact author"},
        {"alpha beside 16 bits", shaped(16, 0, 8)},
        {"odd alpha beside 8 bits", shaped(8, 1, 3)},
        {"alpha of 4 bits", shaped(24, 0, 4), "Unknown alpha depth, contact author"},
        {"range of 16 bits", shaped(16, 2, 0)},
        {"range of 24 bits", shaped(24, 2, 0)},
    };
    for (const uint8_t depth : {0, 3, 5, 7, 9, 12, 15, 40, 48, 64, 255})
        files.push_back({"depth " + std::to_string(depth), shaped(depth, 0, 0),
                         "Unknown bit depth, contact author"});
    return files;
}

TEST_F(ReadStart, BadFilesAreRefusedWithTheirMessages)
{
    for (const BadFile& bad : BadFiles())
        for (const bool silent : {false, true}) {
            SCOPED_TRACE(bad.name + (silent ? ", silently" : ""));
            ScriptableHost each;
            AlertCapture shown;
            each.playback.playMode = silent ? kHostPlaySilent : 1;
            EXPECT_EQ(each.Open(bad.bytes), (Outcome{kHostCannotRead, kFormatReadStart}));
            const bool tells = !silent && *bad.alert != 0;
            EXPECT_EQ(shown.texts, std::vector<std::string>(tells ? 1 : 0, bad.alert));
            ExpectClean(each, 0, 1); // a failed start leaves the file open
        }
}

// A part may be missing at once, or from a later selector on.
TEST_F(ReadStart, MissingHostPartsAreTold)
{
    using Host = ScriptableHost;
    constexpr int16_t kStart = kFormatReadStart, kContinue = kFormatReadContinue;
    const struct {
        const char* what;
        void (*breaks)(Host&);
        int16_t goneBefore = kContinue;      // a selector that comes after the part has gone
        int16_t misses = kFormatReadPrepare; // the selector that misses one that was never there
    } kRows[] = {
        {"no suite", [](Host& one) { one.record.bufferSuite = nullptr; }, kStart},
        {"no exchange", [](Host& one) { one.record.exchangeRows = nullptr; }, kStart, kStart},
        {"an older suite", [](Host& one) { one.buffers.version = 1; }},
        {"a shorter suite", [](Host& one) { one.buffers.count = 7; }},
        {"no Allocate", [](Host& one) { one.buffers.Allocate = nullptr; }},
        {"no Lock", [](Host& one) { one.buffers.Lock = nullptr; }},
        {"no Unlock", [](Host& one) { one.buffers.Unlock = nullptr; }},
        {"no Free", [](Host& one) { one.buffers.Free = nullptr; }},
        {"no Space", [](Host& one) { one.buffers.Space = nullptr; }}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        const Bytes file = OneFrameFile(SmallFrame(Layout("rgb24")));
        ScriptableHost early, late;
        row.breaks(early);
        EXPECT_EQ(early.Open(file), (Outcome{kHostMissingSuite, row.misses}));
        ExpectClean(early);
        late.file = file;
        for (int16_t selector = kFormatReadPrepare; selector < row.goneBefore; ++selector)
            EXPECT_EQ(late.Call(selector), 0) << selector;
        row.breaks(late);
        const bool isStart = row.goneBefore == kStart;
        EXPECT_EQ(late.Call(row.goneBefore), isStart ? kHostMissingSuite : kHostMemoryFull);
        EXPECT_EQ(late.Count(Kind::kOpen), isStart ? 0 : 1);
        EXPECT_EQ(late.Count(Kind::kAllocate) + late.Count(Kind::kSpace), 0);
    }
}

TEST_F(ReadStart, TheHostIsToldThePicture)
{
    for (const EILayout& layout : AllLayouts()) {
        SCOPED_TRACE(layout.name);
        ScriptableHost each;
        each.file = FileOf(
            {{.layout = layout, .width = 31, .height = 12, .top = -5, .left = -9, .pixels = {1}}},
            0xFF);
        each.file[14] = each.file[16] = 0x7F; // the height and width fields count for nothing
        each.record.rowsAddress = &each;
        EXPECT_EQ(each.Call(kFormatReadPrepare), 0);
        EXPECT_EQ(each.record.memoryBudget, 0x100000);
        EXPECT_EQ(each.Call(kFormatReadStart), 0);
        const HostFormatRecord& told = each.record;
        EXPECT_THAT((std::array{int{told.colorMode}, int{told.planeCount}, int{told.channelDepth},
                                int{told.rowCount}, int{told.columnCount}}),
                    ElementsAre(layout.mode, layout.planes, 8, 12, 31));
        EXPECT_THAT((std::array{int{told.rowStride}, int{told.pixelStride}, int{told.planeStride}}),
                    ElementsAre(31 * layout.planes, layout.planes, 1));
        EXPECT_EQ(int{told.horizontalResolution}, 72 << 16);
        EXPECT_EQ(int{told.verticalResolution}, 72 << 16);
        EXPECT_EQ(RowsAddress(each), nullptr);
    }
}

TEST_F(ReadStart, ColourTablesFillUpAndOverflow)
{
    Random random(1);
    for (const int entries : {0, 10, 256, 300}) {
        SCOPED_TRACE(std::to_string(entries) + " entries");
        EIFrame frame = SmallFrame(Layout("indexed8"));
        frame.lut = RandomLut(entries, random);
        std::ranges::fill(host.record.greenLut, 99);
        EXPECT_EQ(host.Open(OneFrameFile(frame)), Outcome{});
        EXPECT_EQ(host.document, PictureOf(frame, frame.pixels));
    }
}

// Five frames of a pixel each whose sizes tell them apart.
Bytes FiveFrames()
{
    std::vector<EIFrame> frames;
    for (int i = 1; i <= 5; ++i) {
        EIFrame frame{.layout = Layout(i == 2 ? "depth32" : "rgb24"), .width = i, .height = 1};
        frame.lut.assign(i == 2 ? 0 : static_cast<size_t>(i) * 3, 1);
        frame.pixels.assign(frame.layout.RowBytes(i), 0x3E);
        frames.push_back(frame);
    }
    return FileOf(frames);
}

TEST_F(ReadStart, AChosenFrameIsReachedBySeeks)
{
    constexpr HostCall kSkips[] = {{Kind::kSeek, kHostSeekFromCurrent, 3 + 3},
                                   {Kind::kSeek, kHostSeekFromCurrent, 12 + 8},
                                   {Kind::kSeek, kHostSeekFromCurrent, 9 + 9},
                                   {Kind::kSeek, kHostSeekFromCurrent, 12 + 12}};
    for (const uint32_t frame : {1U, 2U, 3U, 4U, 5U, 0U, 6U, 0xFFFFFFFFU}) {
        SCOPED_TRACE("frame " + std::to_string(frame));
        ScriptableHost each;
        const FrameAnswer answer(frame);
        const bool there = frame >= 1 && frame <= 5;
        EXPECT_EQ(each.Open(FiveFrames()),
                  there ? Outcome{} : (Outcome{kHostBadMode, kFormatReadStart}));
        EXPECT_THAT((std::array<int64_t, 3>{answer.asked, answer.offered, answer.range}),
                    ElementsAre(1, 1, 5));
        EXPECT_EQ(each.CallsOf(Kind::kSeek), std::vector(kSkips, kSkips + (there ? frame - 1 : 0)));
        EXPECT_EQ(each.document.width, there ? static_cast<int>(frame) : 0);
        ExpectClean(each, 0, there ? 0 : 1);
    }
    const FrameAnswer answer(std::nullopt);
    EXPECT_EQ(host.Open(FiveFrames()), (Outcome{kHostUserCanceled, kFormatReadStart}));
}

// The first frame's pixels are a frame of their own, so that a reader that could not move finds one
// to go on with.
TEST_F(ReadStart, AFailedSkipIsToldAndReadingGoesOn)
{
    const Bytes inner = OneFrameFile({.width = 9, .height = 1, .pixels = Bytes(27)});
    EIFrame outer = SmallFrame(Layout("rgb24"));
    outer.pixels.assign(inner.begin() + 6, inner.end());
    const FrameAnswer answer(2);
    host.fault = Fault{Kind::kSeek, 0, kHostVolumeLocked};
    EXPECT_EQ(host.Open(FileOf({outer, outer})), (Outcome{kHostVolumeLocked, kFormatReadStart}));
    EXPECT_THAT(alerts.texts, ElementsAre("File error while skipping unread frames"));
    EXPECT_EQ(int{host.record.columnCount}, 9);
}

TEST_F(ReadStart, FramesThatEndEarlyWhileSkippingAreRefused)
{
    const FrameAnswer answer(0x7FFFFFFF);
    EXPECT_EQ(host.Open(FileOf({SmallFrame(Layout("rgb24"))}, 5, 0xFFFFFFFF)),
              (Outcome{kHostCannotRead, kFormatReadStart}));
    EXPECT_LE(host.Count(Kind::kSeek), 2);
}

TEST_F(ReadStart, BoundsWithoutAPictureEndInTheContinue)
{
    const std::tuple<const char*, int, int> kRows[] = {{"no columns", 0, 1},
                                                       {"no rows", 1, 0},
                                                       {"nothing", 0, 0},
                                                       {"the right edge left of the left", -1, 1},
                                                       {"the bottom above the top", 1, -1},
                                                       {"both turned round", -3, -3},
                                                       {"wider than 30000", 40000, 1},
                                                       {"higher than 30000", 1, 40000}};
    for (const EILayout& layout : AllLayouts())
        for (const auto& [what, width, height] : kRows) {
            SCOPED_TRACE(std::string(layout.name) + ": " + what);
            ScriptableHost each;
            const EIFrame frame{.layout = layout,
                                .width = width,
                                .height = height,
                                .top = -20000,
                                .left = -20000,
                                .pixels = Bytes(64)};
            EXPECT_EQ(each.Open(OneFrameFile(frame)),
                      (Outcome{kHostMemoryFull, kFormatReadContinue}));
            ExpectClean(each);
        }
}

TEST_F(ReadStart, DepthFramesMeasureTheirRange)
{
    const struct {
        const char* what;
        float low, high;
        bool scans;
    } kRows[] = {{"a range", 0, 1, false},
                 {"about 0", -5, 5, false},
                 {"a small one far from 0", 1000, 1000.001F, false},
                 {"no number on top", 0, std::nanf(""), false},
                 {"none", 0, 0, true},
                 {"turned round", 1, 0, true},
                 {"too small", 0, 0.9e-6F, true},
                 {"infinite on top", 0, kInfinity, true},
                 {"infinite below", -kInfinity, 1, true},
                 {"infinite at both ends", kInfinity, kInfinity, true}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        EIFrame frame = SmallFrame(Layout("depth32"));
        frame.low = row.low;
        frame.high = row.high;
        frame.pixels = FloatBytes({0.25F, 0.75F});
        host.ForgetCalls();
        EXPECT_EQ(host.Open(OneFrameFile(frame)), Outcome{});
        EXPECT_EQ(host.Count(Kind::kSeek), row.scans ? 1 : 0);
        EXPECT_EQ(host.Count(Kind::kAbort), row.scans ? 2 : 1);
        EXPECT_TRUE(!row.scans || host.document.samples == (Bytes{0, 255}));
    }
}

} // namespace
} // namespace Testing
