// What the reader accepts of a file, what it tells the host about the picture, and which frame it opens.
#include "formats/frame_answer.h"
#include "support/bad_files.h"
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

TEST_F(ReadStart, BadFilesAreRefusedWithTheirMessages)
{
    for (const BadFile& bad : BadFiles())
        for (const bool silent : {false, true}) {
            ScriptableHost each;
            AlertRecorder shown;
            each.playback.playMode = silent ? kHostPlaySilent : 1;
            EXPECT_EQ(each.Open(bad.bytes), (Outcome{kHostCannotRead, kFormatReadStart})) << bad.name;
            if (silent || *bad.alert == 0) {
                EXPECT_THAT(shown.texts, IsEmpty()) << bad.name;
            } else {
                EXPECT_THAT(shown.texts, ElementsAre(bad.alert)) << bad.name;
            }
            ExpectClean(each, 0, 1); // a failed start leaves the file open
        }
}

TEST_F(ReadStart, MissingHostPartsAreTold)
{
    const Bytes file = OneFrameFile(SmallFrame(Layout("rgb24")));
    host.fault = Fault{Kind::kOpen, 0};
    EXPECT_EQ(host.Open(file), (Outcome{kHostCannotRead, kFormatReadStart}));
    host.fault.reset();
    host.Call(kFormatReadPrepare);
    host.record.exchangeRows = nullptr;
    EXPECT_EQ(host.Call(kFormatReadStart), kHostMissingSuite);
    host.ResetRecord();
    host.Call(kFormatReadPrepare);
    host.record.bufferSuite = nullptr;
    EXPECT_EQ(host.Call(kFormatReadStart), kHostMissingSuite);
    EXPECT_EQ(host.Count(Kind::kOpen), 1);
    for (int part = 0; part < 8; ++part) {
        ScriptableHost each;
        HostBufferSuite& suite = each.buffers;
        part == 0   ? void(each.record.bufferSuite = nullptr)
        : part == 1 ? void(suite.version = 1)
        : part == 2 ? void(suite.count = 7)
        : part == 3 ? void(suite.Allocate = nullptr)
        : part == 4 ? void(suite.Lock = nullptr)
        : part == 5 ? void(suite.Unlock = nullptr)
        : part == 6 ? void(suite.Free = nullptr)
                    : void(suite.Space = nullptr);
        EXPECT_EQ(each.Open(file), (Outcome{kHostMissingSuite, kFormatReadPrepare})) << part;
        ExpectClean(each);
    }
}

TEST_F(ReadStart, ABufferSuiteThatFailsAfterPrepareLeavesNoMemory)
{
    host.file = OneFrameFile(SmallFrame(Layout("rgb24")));
    EXPECT_EQ(host.Call(kFormatReadPrepare), 0);
    EXPECT_EQ(host.Call(kFormatReadStart), 0);
    host.buffers.count = 7;
    EXPECT_EQ(host.Call(kFormatReadContinue), kHostMemoryFull);
    EXPECT_EQ(host.Call(kFormatReadFinish), 0);
    EXPECT_EQ(host.Count(Kind::kAllocate) + host.Count(Kind::kSpace), 0);
}

TEST_F(ReadStart, TheHostIsToldThePicture)
{
    for (const EILayout& layout : AllLayouts()) {
        EIFrame frame{.layout = layout, .width = 31, .height = 12, .top = -5, .left = -9};
        frame.pixels.resize(layout.RowBytes(31) * 12);
        host.file = EIFileBuilder({.version = 0xFF}).Add(frame).Build();
        host.file[14] = host.file[16] = 0x7F; // the height and width fields count for nothing
        host.record.rowsAddress = &host;
        host.discarding = true;
        EXPECT_EQ(host.Call(kFormatReadPrepare), 0);
        EXPECT_EQ(host.record.memoryBudget, 0x100000);
        EXPECT_EQ(host.Call(kFormatReadStart), 0);
        const HostFormatRecord& told = host.record;
        EXPECT_EQ(int{told.colorMode}, layout.mode) << layout.name;
        EXPECT_EQ(int{told.planeCount}, layout.planes) << layout.name;
        EXPECT_EQ(int{told.channelDepth}, 8);
        EXPECT_EQ(int{told.rowCount}, 12);
        EXPECT_EQ(int{told.columnCount}, 31);
        EXPECT_EQ(int32_t{told.rowStride}, 31 * layout.planes);
        EXPECT_EQ(int{told.pixelStride}, layout.planes);
        EXPECT_EQ(int32_t{told.planeStride}, 1);
        EXPECT_EQ(int32_t{told.horizontalResolution}, 72 << 16);
        EXPECT_EQ(int32_t{told.verticalResolution}, 72 << 16);
        EXPECT_EQ(RowsAddress(host), nullptr);
        EXPECT_EQ(host.Call(kFormatReadContinue), 0) << layout.name;
        EXPECT_EQ(host.Call(kFormatReadFinish), 0);
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
    EIFileBuilder builder;
    for (int i = 1; i <= 5; ++i) {
        EIFrame frame{.layout = Layout(i == 2 ? "depth32" : "rgb24"), .width = i, .height = 1};
        frame.lut.assign(i == 2 ? 0 : static_cast<size_t>(i) * 3, 1);
        frame.pixels.assign(frame.layout.RowBytes(i), 0x3E);
        builder.Add(frame);
    }
    return builder.Build();
}

TEST_F(ReadStart, AChosenFrameIsReachedBySeeks)
{
    const FrameAnswer answer(3);
    EXPECT_EQ(host.Open(FiveFrames()), Outcome{});
    EXPECT_EQ(host.document.width, 3);
    EXPECT_EQ(answer.Asked(), 1);
    EXPECT_EQ(answer.Offered(), 1U);
    EXPECT_EQ(answer.Range(), 5U);
    EXPECT_THAT(host.CallsOf(Kind::kSeek), ElementsAre(HostCall{Kind::kSeek, kHostSeekFromCurrent, 3 + 3},
                                                       HostCall{Kind::kSeek, kHostSeekFromCurrent, 12 + 8}));
}

TEST_F(ReadStart, EachFrameOpens)
{
    for (uint32_t frame = 1; frame <= 5; ++frame) {
        const FrameAnswer answer(frame);
        EXPECT_EQ(host.Open(FiveFrames()), Outcome{});
        EXPECT_EQ(static_cast<uint32_t>(host.document.width), frame);
    }
}

TEST_F(ReadStart, FrameNumbersThatAreNotThereAreRefused)
{
    for (const uint32_t frame : {0U, 6U, 0xFFFFFFFFU}) {
        const FrameAnswer answer(frame);
        EXPECT_EQ(host.Open(FiveFrames()), (Outcome{kHostBadMode, kFormatReadStart})) << frame;
    }
    const FrameAnswer answer(std::nullopt);
    EXPECT_EQ(host.Open(FiveFrames()), (Outcome{kHostUserCanceled, kFormatReadStart}));
    EXPECT_EQ(host.OpenFiles(), size_t{4});
}

TEST_F(ReadStart, NobodyIsAskedWithoutNeed)
{
    const FrameAnswer answer(4);
    EXPECT_EQ(host.Open(OneFrameFile(SmallFrame(Layout("rgb24")))), Outcome{});
    host.record.quietOpen = 1;
    EXPECT_EQ(host.Open(FiveFrames()), Outcome{});
    EXPECT_EQ(host.document.width, 1);
    host.record.quietOpen = 0;
    host.playback.playMode = kHostPlaySilent;
    EXPECT_EQ(host.Open(FiveFrames()), Outcome{});
    EXPECT_EQ(host.document.width, 1);
    EXPECT_EQ(answer.Asked(), 0);
    host.record.playbackBlock = nullptr;
    EXPECT_EQ(host.Open(FiveFrames()), Outcome{});
    EXPECT_EQ(answer.Asked(), 1);
}

// The first frame's pixels are a frame of their own, so that a reader that could not move finds one to go on with.
TEST_F(ReadStart, AFailedSkipIsToldAndReadingGoesOn)
{
    const Bytes inner = OneFrameFile({.width = 9, .height = 1, .pixels = Bytes(27)});
    EIFrame outer = SmallFrame(Layout("rgb24"));
    outer.pixels.assign(inner.begin() + 6, inner.end());
    const Bytes file = EIFileBuilder().Add(outer).Add(SmallFrame(Layout("rgb24"))).Build();
    const FrameAnswer answer(2);
    host.fault = Fault{Kind::kSeek, 0, kHostVolumeLocked};
    EXPECT_EQ(host.Open(file), (Outcome{kHostVolumeLocked, kFormatReadStart}));
    EXPECT_THAT(alerts.texts, ElementsAre("File error while skipping unread frames"));
    EXPECT_EQ(int{host.record.columnCount}, 9);
}

TEST_F(ReadStart, FramesThatEndEarlyWhileSkippingAreRefused)
{
    const FrameAnswer answer(0x7FFFFFFF);
    const Bytes file = EIFileBuilder({.frameCount = 0xFFFFFFFF}).Add(SmallFrame(Layout("rgb24"))).Build();
    EXPECT_EQ(host.Open(file), (Outcome{kHostCannotRead, kFormatReadStart}));
    EXPECT_LE(host.Count(Kind::kSeek), 2);
}

TEST_F(ReadStart, BoundsWithoutAPictureEndInTheContinue)
{
    const std::pair<int, int> sizes[] = {{0, 1}, {1, 0}, {0, 0}, {-1, 1}, {1, -1}, {-3, -3}, {40000, 1}, {1, 40000}};
    for (const EILayout& layout : AllLayouts())
        for (const auto& [width, height] : sizes) {
            ScriptableHost each;
            const EIFrame frame{
                .layout = layout, .width = width, .height = height, .top = -20000, .left = -20000, .pixels = Bytes(64)};
            EXPECT_EQ(each.Open(OneFrameFile(frame)), (Outcome{kHostMemoryFull, kFormatReadContinue}))
                << layout.name << " " << width << " " << height;
            ExpectClean(each);
        }
}

TEST_F(ReadStart, DepthFramesMeasureTheirRange)
{
    struct Row {
        float low, high;
        bool scans;
    };
    const Row rows[] = {{0, 1, false},           {0, 0, true},          {1, 0, true},
                        {-5, 5, false},          {0, kInfinity, true},  {kInfinity, kInfinity, true},
                        {0, 0.9e-6F, true},      {-kInfinity, 1, true}, {0, std::nanf(""), false},
                        {1000, 1000.001F, false}};
    for (const Row& row : rows) {
        EIFrame frame = SmallFrame(Layout("depth32"));
        frame.low = row.low;
        frame.high = row.high;
        frame.pixels = FloatBytes({0.25F, 0.75F});
        host.ForgetCalls();
        EXPECT_EQ(host.Open(OneFrameFile(frame)), Outcome{});
        EXPECT_EQ(host.Count(Kind::kSeek), row.scans ? 1 : 0) << row.low << " to " << row.high;
        EXPECT_EQ(host.Count(Kind::kAbort), row.scans ? 2 : 1) << row.low << " to " << row.high;
        if (row.scans) {
            EXPECT_EQ(host.document.samples, (Bytes{0, 255})) << row.low << " to " << row.high;
        }
    }
}

} // namespace
} // namespace Testing
