// Every call that the host can refuse, refused one after the other, and the user's stop at every
// chance: each run ends with its code and leaves nothing behind but what it must.
#include "formats/frame_answer.h"
#include "support/ei_file.h"
#include "support/module_test.h"

namespace Testing {
namespace {

constexpr int16_t kCode = kHostDiskFull; // of the calls that are made to fail

// How a run ends, and what it leaves.
struct End {
    Outcome outcome;
    size_t buffers = 0;
    size_t files = 0;
    size_t locked = 0; // of the buffers
    bool operator==(const End&) const = default;
};

std::ostream& operator<<(std::ostream& out, const End& end)
{
    return out << end.outcome << ", " << end.buffers << " buffers, " << end.files << " files, "
               << end.locked << " locked";
}

End EndOf(const Outcome& outcome, ScriptableHost& host)
{
    const End end{outcome, host.Buffers(), host.OpenFiles(), host.LockedBuffers()};
    ExpectClean(host, end.buffers, end.files, end.locked);
    return end;
}

// A call that can fail in a run where nothing does: its kind, its number among its kind, and the
// selector it fell in.
struct Place {
    Kind kind;
    int number;
    int16_t selector;
};

std::ostream& operator<<(std::ostream& out, const Place& place)
{
    return out << "call " << place.number << " of kind " << static_cast<int>(place.kind);
}

template <class Run>
std::vector<Place> PlacesOf(const Run& run, int16_t finish)
{
    ScriptableHost host;
    std::vector<Place> places;
    EXPECT_EQ(run(host), Outcome{});
    std::map<Kind, int> numbers;
    auto selector = static_cast<int16_t>(finish - 4);
    for (const HostCall& call : host.Calls()) {
        if (call.kind ==
            Kind::kHandleLock) // each selector locks its session; the first one makes it before
            ++selector;
        if (call.kind <= kLastThatCanFail)
            places.push_back({call.kind, numbers[call.kind]++,
                              std::max(selector, static_cast<int16_t>(finish - 3))});
    }
    EXPECT_EQ(selector, finish);
    ExpectClean(host);
    return places;
}

template <class Run>
End Fail(const Run& run, const Place& place, int16_t code = kCode)
{
    ScriptableHost host;
    host.fault = Fault{place.kind, place.number, code};
    const Outcome outcome = run(host);
    EXPECT_TRUE(host.FaultReached());
    return EndOf(outcome, host);
}

End ExpectedOfOpen(const Place& place)
{
    const int16_t at = place.selector;
    const size_t files = at == kFormatReadStart ? 1 : 0; // a failed start doesn't close
    switch (place.kind) {
    case Kind::kHandleLock:
        return at == kFormatReadFinish ? End{{}, 0, 1} : End{{kHostMemoryFull, at}};
    case Kind::kOpen:
        return {{kHostCannotRead, at}};
    case Kind::kRead:
        return {{kHostCannotRead, at}, 0, files};
    case Kind::kSeek:
    case Kind::kExchange:
        return {{kCode, at}, 0, files};
    case Kind::kPosition:
        return {{kHostIoError, at}}; // there is no way back to such a place
    case Kind::kAllocate:
        return place.number == 0
                   ? End{}
                   : End{{kHostMemoryFull, at}, 1}; // fewer rows will do; the rows' buffer stays
    case Kind::kClose:
        return {};
    default:
        return {{kHostMemoryFull, at}};
    }
}

using Unlucky = ModuleTest;

TEST_F(Unlucky, EveryCallOfAnOpenFailsOnce)
{
    for (const EIFrame& frame : SmallFrames()) {
        const auto run = [&](ScriptableHost& one) {
            one.memoryLimit = 18 * frame.layout.planes; // two rows
            return one.Open(OneFrameFile(frame));
        };
        for (const Place& place : PlacesOf(run, kFormatReadFinish)) {
            SCOPED_TRACE(frame.layout.name);
            EXPECT_EQ(Fail(run, place), ExpectedOfOpen(place)) << place;
            if (place.kind == Kind::kRead) {
                EXPECT_EQ(Fail(run, place, 0), ExpectedOfOpen(place)) << place << " is short";
            }
        }
    }
}

TEST_F(Unlucky, EveryCallOfASkipFailsOnce)
{
    const EIFrame frame{.width = 2, .height = 1, .lut = {1, 2, 3}, .pixels = Bytes(6, 0xFF)};
    const Bytes file = FileOf({frame, frame, frame});
    const auto run = [&](ScriptableHost& one) {
        const FrameAnswer answer(3);
        return one.Open(file);
    };
    for (const Place& place : PlacesOf(run, kFormatReadFinish)) {
        End expected = ExpectedOfOpen(place);
        if (place.kind == Kind::kSeek) // what is read from the wrong place is no frame
            expected.outcome.code = kHostCannotRead;
        if (place.kind == Kind::kAllocate && place.number == 0) // of one row there are not fewer
            expected.outcome = {kHostMemoryFull, kFormatReadContinue};
        EXPECT_EQ(Fail(run, place), expected) << place;
    }
}

TEST_F(Unlucky, EveryCallOfASaveFailsOnce)
{
    const std::pair<int, int> kinds[] = {
        {kHostModeGrayscale, 1}, {kHostModeIndexed, 1}, {kHostModeRGB, 3}, {kHostModeRGB, 4}};
    Random random(8);
    for (const auto& [mode, planes] : kinds) {
        const EILayout& like = Layout(planes == 1 ? "indexed8" : planes == 3 ? "rgb24" : "argb32");
        const Picture picture(mode, 6, 4, planes, RandomRows(like, 6, 4, random));
        const auto run = [&](ScriptableHost& one) { return one.Save(picture); };
        for (const Place& place : PlacesOf(run, kFormatWriteFinish)) {
            const int16_t at = place.selector;
            End expected{{kCode, at}, 0, at == kFormatWriteStart};
            if (place.kind == Kind::kOpen)
                expected = {{kHostCannotRead, at}};
            else if (place.kind == Kind::kHandleNew)
                expected = {{kHostMemoryFull, at}};
            else if (place.kind == Kind::kLock)
                expected = {{kHostMemoryFull, kFormatWriteContinue}};
            else if (at == kFormatWriteFinish) // the finish has no way to tell
                expected = {{}, 0, place.kind != Kind::kClose && place.kind != Kind::kPosition};
            else if (place.kind == Kind::kHandleLock)
                // The continue gives the buffer back; without its session it can't.
                expected = {{kHostMemoryFull, at},
                            at == kFormatWriteContinue,
                            0,
                            at == kFormatWriteContinue};
            EXPECT_EQ(Fail(run, place), expected) << "mode " << mode << ", " << place;
        }
    }
}

TEST_F(Unlucky, AStopIsObeyedAtEveryRow)
{
    for (const EIFrame& frame : SmallFrames()) {
        const Bytes file = OneFrameFile(frame);
        ScriptableHost whole;
        EXPECT_EQ(whole.Open(file), Outcome{});
        for (int check = 0; check < whole.Count(Kind::kAbort); ++check) {
            SCOPED_TRACE(check);
            ScriptableHost each;
            each.abortAt = check;
            EXPECT_EQ(EndOf(each.Open(file), each),
                      (End{{kHostUserCanceled, kFormatReadContinue}}));
            EXPECT_EQ(each.Count(Kind::kAbort), check + 1);
            EXPECT_EQ(each.Count(Kind::kProgress), check);
        }
    }
    for (int check = 0; check < 4; ++check) {
        SCOPED_TRACE(check);
        ScriptableHost each;
        each.abortAt = check;
        EXPECT_EQ(EndOf(each.Save(Picture(kHostModeRGB, 3, 4, 3)), each),
                  (End{{kHostUserCanceled, kFormatWriteContinue}}));
        EXPECT_EQ(each.RowsExchanged(), check);
    }
}

// Sessions follow one another on one data word, whatever became of the one before.
TEST_F(Unlucky, AFailureLeavesTheNextSessionAlone)
{
    Random random(4);
    const Picture picture(kHostModeRGB, 7, 5, 4, RandomRows(Layout("argb32"), 7, 5, random));
    EXPECT_EQ(host.Save(picture), Outcome{});
    const Bytes good = host.file;
    EIFrame packed{
        .layout = Layout("indexed8"), .width = 3, .height = 1, .packing = 1, .pixels = {0x7F, 1}};
    const Bytes spilling = OneFrameFile(packed);
    packed.pixels = {0x7F};
    const Bytes broken = OneFrameFile(packed);
    for (int round = 0; round < 6; ++round) {
        SCOPED_TRACE(round);
        if (round == 3)
            host.Call(kFormatLoad); // resident from here on
        EXPECT_EQ(host.Open(spilling), Outcome{});
        EXPECT_EQ(host.Open(good), Outcome{});
        EXPECT_EQ(host.document.samples, picture.samples);
        EXPECT_EQ(host.Open(broken), (Outcome{kHostCannotRead, kFormatReadContinue}));
        EXPECT_EQ(host.Open(Bytes(20)), (Outcome{kHostCannotRead, kFormatReadStart}));
        host.Call(kFormatReadFinish); // a resident object still closes the file
        host.fault = Fault{Kind::kExchange, 1 + round % 3, kCode};
        host.ForgetCalls();
        EXPECT_EQ(host.Save(picture), (Outcome{kCode, kFormatWriteContinue}));
        host.fault.reset();
        EXPECT_EQ(host.Save(picture), Outcome{});
        EXPECT_EQ(host.file, good);
        EXPECT_EQ(host.Open(good), Outcome{});
        EXPECT_EQ(host.document.samples, picture.samples);
    }
    EXPECT_EQ(host.Call(kFormatUnload), 0);
    EXPECT_EQ(host.OpenFiles(), size_t{3})
        << "one for each failed start without an object left to close it";
    EXPECT_EQ(host.Buffers(), size_t{0});
}

// A host that mixes its phases up gets codes or rubbish, but never a fault.
TEST_F(Unlucky, PhasesOutOfTurnAreSurvived)
{
    const int16_t selectors[] = {1, 2, 3, 4, 13, 14, 15, 16, 10, 35, 40};
    ScriptableHost each;
    each.Call(kFormatLoad);
    Random random(6);
    for (int step = 0; step < 3000; ++step) {
        const int16_t selector = selectors[random() % std::size(selectors)];
        each.record.colorMode = static_cast<int16_t>(random() % 4);
        each.record.channelDepth = 8;
        if (selector == kFormatReadStart)
            each.file = OneFrameFile({.width = 4, .height = 8, .pixels = Bytes(96)});
        each.document = Picture(kHostModeRGB, each.record.columnCount, each.record.rowCount, 3);
        each.Call(selector);
    }
    EXPECT_EQ(each.Open(OneFrameFile({.width = 1, .height = 1, .pixels = {1, 2, 3}})), Outcome{});
    EXPECT_EQ(each.document.samples, (Bytes{1, 2, 3}));
}

} // namespace
} // namespace Testing
