// What the reader accepts of a file, what it tells the host about the picture, and which frame it
// opens.
#include "formats/frame_answer.h"
#include "support/ei_file.h"
#include "support/module_test.h"

#include <cmath>
#include <limits>

namespace Testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr float kInfinity = std::numeric_limits<float>::infinity();

using ReadStart = ModuleTest;

// A sound frame of 2 by 1 pixels.
EIFrame SmallFrame(const EILayout& layout)
{
    return {.layout = layout, .width = 2, .height = 1, .pixels = Bytes(layout.RowBytes(2) + 1, 7)};
}

// One small file for each defect that the reader refuses at its start, and the alert of an
// interactive session.
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
    const auto cut = [](Bytes file, size_t size) {
        return Bytes(file.begin(), file.begin() + ptrdiff_t(size));
    };
    const EIFrame good = SmallFrame(Layout("rgb24"));
    EIFrame empty = good, packed = good, coloured = good;
    empty.dataSize = 0;
    packed.packing = 2;
    coloured.lut.assign(9, 1);
    std::vector<BadFile> files = {
        {"empty file", {}},
        {"ends in the file header", cut(OneFrameFile(good), 5)},
        {"version 256", FileOf({good}, 0x100)},
        {"no frames", FileOf({good}, 5, 0)},
        {"ends before the frame", cut(OneFrameFile(good), 6)},
        {"ends in the frame header", cut(OneFrameFile(good), 37)},
        {"frame type 3", shaped(24, 3, 0)},
        {"no data", OneFrameFile(empty)},
        {"packing 2", OneFrameFile(packed), "Unknown frame packing, contact author"},
        {"alpha beside 16 bits", shaped(16, 0, 8)},
        {"odd alpha beside 8 bits", shaped(8, 1, 3)},
        {"alpha of 4 bits", shaped(24, 0, 4), "Unknown alpha depth, contact author"},
        {"ends in the colour table", cut(OneFrameFile(coloured), 46)},
        {"ends in the range", cut(OneFrameFile(SmallFrame(Layout("depth32"))), 49)},
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
            ScriptableHost each;
            AlertCapture shown;
            each.playback.playMode = silent ? kHostPlaySilent : 1;
            EXPECT_EQ(each.Open(bad.bytes), (Outcome{kHostCannotRead, kFormatReadStart}))
                << bad.name;
            const bool tells = !silent && *bad.alert != 0;
            EXPECT_EQ(shown.texts, std::vector<std::string>(tells ? 1 : 0, bad.alert)) << bad.name;
            ExpectClean(each, 0, 1); // a failed start leaves the file open
        }
}

TEST_F(ReadStart, MissingHostPartsAreTold)
{
    const Bytes file = OneFrameFile(SmallFrame(Layout("rgb24")));
    host.fault = Fault{Kind::kOpen, 0};
    EXPECT_EQ(host.Open(file), (Outcome{kHostCannotRead, kFormatReadStart}));
    void (*const breaks[])(ScriptableHost&) = {
        [](ScriptableHost& one) { one.record.bufferSuite = nullptr; },
        [](ScriptableHost& one) {
            one.record.exchangeRows = nullptr;
        }, // is missed at the start alone
        [](ScriptableHost& one) { one.buffers.version = 1; },
        [](ScriptableHost& one) { one.buffers.count = 7; },
        [](ScriptableHost& one) { one.buffers.Allocate = nullptr; },
        [](ScriptableHost& one) { one.buffers.Lock = nullptr; },
        [](ScriptableHost& one) { one.buffers.Unlock = nullptr; },
        [](ScriptableHost& one) { one.buffers.Free = nullptr; },
        [](ScriptableHost& one) { one.buffers.Space = nullptr; }};
    for (size_t part = 0; part < std::size(breaks); ++part) {
        SCOPED_TRACE(part);
        ScriptableHost early, late;
        breaks[part](early);
        EXPECT_EQ(early.Open(file),
                  (Outcome{kHostMissingSuite, part == 1 ? kFormatReadStart : kFormatReadPrepare}));
        ExpectClean(early);
        // What breaks later is missed by the start, or leaves the continue without memory.
        const bool started = part >= 2;
        late.file = file;
        EXPECT_EQ(late.Call(kFormatReadPrepare), 0);
        EXPECT_EQ(started ? late.Call(kFormatReadStart) : 0, 0);
        breaks[part](late);
        EXPECT_EQ(late.Call(started ? kFormatReadContinue : kFormatReadStart),
                  started ? kHostMemoryFull : kHostMissingSuite);
        EXPECT_EQ(late.Count(Kind::kOpen), started);
        EXPECT_EQ(late.Count(Kind::kAllocate) + late.Count(Kind::kSpace), 0);
    }
}

TEST_F(ReadStart, TheHostIsToldThePicture)
{
    for (const EILayout& layout : AllLayouts()) {
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
                    ElementsAre(layout.mode, layout.planes, 8, 12, 31))
            << layout.name;
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
        EIFrame frame = SmallFrame(Layout("indexed8"));
        frame.lut = RandomLut(entries, random);
        std::ranges::fill(host.record.greenLut, 99);
        EXPECT_EQ(host.Open(OneFrameFile(frame)), Outcome{});
        EXPECT_EQ(host.document, PictureOf(frame, frame.pixels)) << entries;
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
        ScriptableHost each;
        const FrameAnswer answer(frame);
        const bool there = frame >= 1 && frame <= 5;
        EXPECT_EQ(each.Open(FiveFrames()),
                  there ? Outcome{} : (Outcome{kHostBadMode, kFormatReadStart}))
            << frame;
        EXPECT_THAT((std::array<int64_t, 3>{answer.asked, answer.offered, answer.range}),
                    ElementsAre(1, 1, 5));
        EXPECT_EQ(each.CallsOf(Kind::kSeek), std::vector(kSkips, kSkips + (there ? frame - 1 : 0)));
        EXPECT_EQ(each.document.width, there ? static_cast<int>(frame) : 0);
        ExpectClean(each, 0, there ? 0 : 1);
    }
    const FrameAnswer answer(std::nullopt);
    EXPECT_EQ(host.Open(FiveFrames()), (Outcome{kHostUserCanceled, kFormatReadStart}));
}

TEST_F(ReadStart, TheDialogOpensWhereItWasLeft)
{
    FrameAnswer answer(2);
    for (const double place : {33.0, -50.0}) {
        answer.movesTo = place;
        SCOPED_TRACE(place);
        for (int session = 0; session < 2; ++session) { // the second reads what is stored
            ScriptableHost each;
            EXPECT_EQ(each.Open(FiveFrames()), Outcome{});
            each.Call(kFormatUnload);
        }
        EXPECT_EQ(answer.opensAt, place);
    }
}

TEST_F(ReadStart, NobodyIsAskedWithoutNeed)
{
    const FrameAnswer answer(4);
    EXPECT_EQ(host.Open(OneFrameFile(SmallFrame(Layout("rgb24")))), Outcome{});
    for (const bool quiet : {false, true}) {
        SCOPED_TRACE(quiet ? "a quiet open" : "a silent playback");
        host.record.quietOpen = quiet;
        host.playback.playMode = quiet ? 0 : kHostPlaySilent;
        EXPECT_EQ(host.Open(FiveFrames()), Outcome{});
        EXPECT_EQ(host.document.width, 1);
    }
    EXPECT_EQ(answer.asked, 0);
    host.record.quietOpen = 0;
    host.record.playbackBlock = nullptr;
    EXPECT_EQ(host.Open(FiveFrames()), Outcome{});
    EXPECT_EQ(answer.asked, 1);
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
    const std::pair<int, int> sizes[] = {{0, 1},  {1, 0},   {0, 0},     {-1, 1},
                                         {1, -1}, {-3, -3}, {40000, 1}, {1, 40000}};
    for (const EILayout& layout : AllLayouts())
        for (const auto& [width, height] : sizes) {
            ScriptableHost each;
            const EIFrame frame{.layout = layout,
                                .width = width,
                                .height = height,
                                .top = -20000,
                                .left = -20000,
                                .pixels = Bytes(64)};
            EXPECT_EQ(each.Open(OneFrameFile(frame)),
                      (Outcome{kHostMemoryFull, kFormatReadContinue}))
                << layout.name << " " << width << " " << height;
            ExpectClean(each);
        }
}

TEST_F(ReadStart, DepthFramesMeasureTheirRange)
{
    struct {
        float low, high;
        bool scans;
    } const kRanges[] = {
        {0, 1, false},           {0, 0, true},          {1, 0, true},
        {-5, 5, false},          {0, kInfinity, true},  {kInfinity, kInfinity, true},
        {0, 0.9e-6F, true},      {-kInfinity, 1, true}, {0, std::nanf(""), false},
        {1000, 1000.001F, false}};
    for (const auto& [low, high, scans] : kRanges) {
        EIFrame frame = SmallFrame(Layout("depth32"));
        frame.low = low;
        frame.high = high;
        frame.pixels = FloatBytes({0.25F, 0.75F});
        host.ForgetCalls();
        EXPECT_EQ(host.Open(OneFrameFile(frame)), Outcome{});
        EXPECT_EQ(host.Count(Kind::kSeek), scans ? 1 : 0) << low << " to " << high;
        EXPECT_EQ(host.Count(Kind::kAbort), scans ? 2 : 1) << low << " to " << high;
        EXPECT_TRUE(!scans || host.document.samples == (Bytes{0, 255})) << low << " to " << high;
    }
}

} // namespace
} // namespace Testing
