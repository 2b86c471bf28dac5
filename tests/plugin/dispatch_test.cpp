// Which selectors make an object, which only find one, what they answer, and when the object ends.
#include "support/ei_file.h"
#include "support/module_test.h"

namespace Testing {
namespace {

using ::testing::IsEmpty;

// An object reads the host's scaling once in its life, when it is made.
int ObjectsMade(const ScriptableHost& host)
{
    return static_cast<int>(std::ranges::count_if(host.Calls(), [](const HostCall& call) {
        return call.kind == Kind::kProperty && call.a == int64_t{kPropertyHighDpi};
    }));
}

// Whether an object is there: a selector that acquires makes one only when there is none.
bool ObjectLives(ScriptableHost& host)
{
    const int before = ObjectsMade(host);
    host.Call(kFormatOptionsPrepare);
    return ObjectsMade(host) == before;
}

using Dispatch = ModuleTest;

TEST_F(Dispatch, SelectorsWithoutMeaningTouchNothing)
{
    for (const int selector : {18, 19, 41, 42, 255, 32767, -1, -2, -32768})
        EXPECT_EQ(host.Call(static_cast<int16_t>(selector)), 0) << selector;
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(host.data, 0);
}

TEST_F(Dispatch, FindingSelectorsNeedAnObject)
{
    for (const int16_t selector : {3, 4, 7, 8, 11, 12, 15, 16, 35, 36, 37, 38, 39, 40})
        EXPECT_EQ(host.Call(selector), 0) << selector;
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(host.data, 0);
}

TEST_F(Dispatch, AnObjectEndsAsItsSelectorSays)
{
    struct Row {
        int16_t selector;
        int16_t result;
        bool lives; // afterwards, having lived before
    };
    constexpr Row kRows[] = {
        {1, 0, true},        {3, kHostCannotRead, true},
        {4, 0, false},       {5, 0, true},
        {6, 0, true},        {7, 0, true},
        {8, 0, false},       {9, 0, true},
        {10, 0, true},       {11, 0, true},
        {12, 0, false},      {13, 0, true},
        {15, -108, true},    {16, 0, false},
        {17, -30501, false}, {18, 0, true},
        {20, 0, false},      {21, 0, false},
        {22, 0, false},      {23, 0, false},
        {26, 0, false},      {27, 0, false},
        {30, 0, false},      {33, 0, false},
        {34, 0, false},      {35, -30500, false},
        {36, -30500, true},  {37, 0, true},
        {38, -30500, false}, {39, -30500, true},
        {40, 0, true},       {41, 0, true},
        {2, -30501, false},  {14, -30500, false},
    };
    for (const Row& row : kRows) {
        ScriptableHost each;
        each.fault = Fault{Kind::kOpen, 0};
        EXPECT_EQ(each.Call(kFormatReadPrepare), 0);
        EXPECT_EQ(each.Call(row.selector), row.result) << row.selector;
        EXPECT_EQ(ObjectLives(each), row.lives) << row.selector;
        ExpectClean(each);
    }
}

TEST_F(Dispatch, AcquiringSelectorsMakeTheObject)
{
    for (const int16_t selector :
         {1, 2, 5, 6, 9, 10, 13, 14, 17, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34}) {
        ScriptableHost each;
        each.fault = Fault{Kind::kOpen, 0};
        each.Call(selector);
        EXPECT_EQ(ObjectsMade(each), 1) << selector;
        ExpectClean(each);
    }
}

TEST_F(Dispatch, EachAcquireReadsTheHostsProperties)
{
    host.Call(kFormatLoad);
    const int once = host.Count(Kind::kProperty);
    host.Call(kFormatOptionsPrepare);
    EXPECT_EQ(host.Count(Kind::kProperty), once + once - 1); // all but the scaling
    host.Call(kFormatOptionsFinish);
    EXPECT_EQ(host.Count(Kind::kProperty), once + once - 1); // finding reads nothing
}

TEST_F(Dispatch, AResidentObjectOutlivesSessionsAndFailures)
{
    EXPECT_EQ(host.Call(kFormatLoad), 0);
    EXPECT_EQ(host.Open(Bytes{}), (Outcome{kHostCannotRead, kFormatReadStart}));
    EXPECT_EQ(host.Call(kFormatReadFinish), 0);
    EXPECT_EQ(host.OpenFiles(), size_t{0}) << "the object was there to close the file";
    EXPECT_EQ(host.Call(kFormatFilterFile), kHostCannotRead);
    EXPECT_EQ(host.Call(kFormatExtraReadStart), kHostBadMode);
    EXPECT_EQ(ObjectsMade(host), 1);
    EXPECT_EQ(host.Call(kFormatUnload), 0);
    EXPECT_FALSE(ObjectLives(host));
}

TEST_F(Dispatch, UnloadAloneMakesAnObjectAndEndsIt)
{
    EXPECT_EQ(host.Call(kFormatUnload), 0);
    EXPECT_EQ(ObjectsMade(host), 1);
    EXPECT_FALSE(ObjectLives(host));
}

TEST_F(Dispatch, AFailedPrepareKeepsItsCodeAndEndsTheObject)
{
    host.buffers.count = kHostBufferSuiteCount - 1;
    EXPECT_EQ(host.Call(kFormatReadPrepare), kHostMissingSuite);
    EXPECT_EQ(host.record.memoryBudget, 0x100000);
    host.buffers.count = kHostBufferSuiteCount;
    EXPECT_EQ(host.Call(kFormatReadPrepare), 0);
    EXPECT_EQ(ObjectsMade(host), 2);
}

TEST_F(Dispatch, TheDataWordIsMadeOnceAndStays)
{
    const Bytes file = OneFrameFile({.width = 1, .height = 1, .pixels = {1, 2, 3}});
    EXPECT_EQ(host.Open(file), Outcome{});
    const intptr_t word = host.data;
    EXPECT_NE(word, 0);
    EXPECT_EQ(host.Open(file), Outcome{});
    EXPECT_EQ(host.data, word);
    EXPECT_EQ(host.CallsOf(Kind::kHandleNew), (std::vector<HostCall>{{Kind::kHandleNew, 112, 0}}));
    EXPECT_EQ(host.Count(Kind::kHandleDispose), 0);
}

TEST_F(Dispatch, WithoutAHandleSuiteTheModuleKeepsTheBlock)
{
    for (const int broken : {0, 1, 2}) {
        ScriptableHost each;
        each.record.handleSuite = broken == 0 ? nullptr : &each.handles;
        each.handles.version = broken == 1 ? 2 : 1;
        each.handles.New = broken == 2 ? nullptr : each.handles.New;
        EXPECT_EQ(each.Open(OneFrameFile({.width = 1, .height = 1, .pixels = {1, 2, 3}})), Outcome{});
        EXPECT_EQ(each.document.samples, (Bytes{1, 2, 3}));
        EXPECT_EQ(each.Count(Kind::kHandleNew), 0);
        ExpectClean(each);
    }
}

TEST_F(Dispatch, OptionsAndEstimateAskForNoMemory)
{
    for (const int16_t selector : {kFormatOptionsPrepare, kFormatEstimatePrepare}) {
        host.record.memoryBudget = 77;
        EXPECT_EQ(host.Call(selector), 0);
        EXPECT_EQ(host.record.memoryBudget, 0);
    }
    host.record.rowsAddress = &host;
    EXPECT_EQ(host.Call(kFormatOptionsStart), 0);
    EXPECT_EQ(RowsAddress(host), nullptr);
}

TEST_F(Dispatch, AboutReadsThePropertiesThroughItsOwnRecord)
{
    HostAboutRecord about{sizeof about, host.record.basicSuite};
    int16_t result = 99;
    host.entry(kFormatAbout, &about, &host.data, &result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(ObjectsMade(host), 1);
    EXPECT_EQ(host.data, 0) << "about is no affair of the file code";
    host.entry(kFormatAbout, nullptr, &host.data, &result);
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(ObjectLives(host));
}

TEST_F(Dispatch, MissingArgumentsEndInCodes)
{
    for (int selector = 0; selector < kFormatSelectorCount; ++selector)
        for (const bool withRecord : {false, true}) {
            int16_t result = 99;
            const auto number = static_cast<int16_t>(selector);
            host.Call(kFormatLoad);
            host.entry(number, withRecord && number != 0 ? &host.record : nullptr, nullptr, &result);
            const bool checked = (selector >= 1 && selector <= 15 && selector % 4 != 0) || selector == 35 ||
                                 selector == 36 || selector == 38 || selector == 39;
            EXPECT_EQ(result, checked ? kHostBadParameter : selector == 17 ? kHostCannotRead : 0) << selector;
            host.entry(number, number != 0 ? &host.record : nullptr, &host.data, nullptr);
        }
}

} // namespace
} // namespace Testing
