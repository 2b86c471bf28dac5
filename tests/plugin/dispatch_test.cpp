// Which selectors make an object, which only find one, what they answer, and when the object ends.
#include "support/ei_file.h"
#include "support/module_test.h"

#include "module/projects.h"
#include "plugin/format/plugin_registry.h"

extern "C" void EntryBMP(int16_t selector, void* record, intptr_t* data, int16_t* result);

using namespace Testing;

namespace {

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

class Dispatch : public ModuleTest {
protected:
    const Bytes fPixel = OneFrameFile({.width = 1, .height = 1, .pixels = {1, 2, 3}});
};

} // namespace

TEST_F(Dispatch, SelectorsMakeFindAndEndTheObject)
{
    const struct {
        std::vector<int> selectors;
        bool make;
        int result;   // of a living object
        bool survive; // it does
    } rows[] = {
        {{1, 5, 6, 9, 10, 13, 24}, true, 0, true},
        {{20, 21, 22, 23, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34}, true, 0, false},
        {{2, 17}, true, kHostCannotRead, false},
        {{14}, true, kHostBadMode, false},
        {{4, 8, 12, 16}, false, 0, false},
        {{35, 38}, false, kHostBadMode, false},
        {{36, 39}, false, kHostBadMode, true},
        {{3}, false, kHostCannotRead, true},
        {{15}, false, kHostMemoryFull, true},
        {{7, 11, 37, 40}, false, 0, true},
        {{18, 19, 41, 42, 255, 32767, -1, -2, -32768}, false, 0, true}, // mean nothing
    };
    for (const auto& row : rows)
        for (const int number : row.selectors) {
            SCOPED_TRACE(number);
            const auto selector = static_cast<int16_t>(number);
            ScriptableHost alone;
            alone.fault = Fault{Kind::kOpen, 0};
            const int16_t result = alone.Call(selector);
            EXPECT_EQ(ObjectsMade(alone), row.make ? 1 : 0);
            EXPECT_TRUE(row.make || (result == 0 && alone.Calls().empty() && alone.data == 0));
            ExpectClean(alone);
            ScriptableHost living;
            living.fault = Fault{Kind::kOpen, 0};
            EXPECT_EQ(living.Call(kFormatReadPrepare), 0);
            EXPECT_EQ(living.Call(selector), row.result);
            EXPECT_EQ(ObjectLives(living), row.survive);
            ExpectClean(living);
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

TEST_F(Dispatch, AResidentObjectOutlivesSessionsFailuresAndRefusals)
{
    EXPECT_EQ(host.Call(kFormatLoad), 0);
    EXPECT_EQ(host.Open(Bytes{}), (Outcome{kHostCannotRead, kFormatReadStart}));
    EXPECT_EQ(host.Call(kFormatReadFinish), 0);
    EXPECT_EQ(host.OpenFiles(), size_t{0}) << "the object was there to close the file";
    EXPECT_EQ(host.Call(kFormatFilterFile), kHostCannotRead);
    EXPECT_EQ(host.Call(kFormatExtraReadStart), kHostBadMode);
    int16_t result = 99;
    EntryBMP(kFormatReadPrepare, &host.record, &host.data, &result);
    EXPECT_EQ(result, kHostFailed);
    HostAboutRecord about{sizeof about, host.record.basicSuite};
    host.entry(kFormatAbout, &about, &host.data, &result);
    EXPECT_TRUE(ObjectLives(host));
    EXPECT_EQ(Kesto::FindFormatPlugin(Kesto::kProject_EntryElectricImage)->aboutRecord, nullptr)
        << "it is gone by now";
    EXPECT_EQ(ObjectsMade(host), 1);
    EXPECT_EQ(host.Call(kFormatUnload), 0);
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
    EXPECT_EQ(host.Open(fPixel), Outcome{});
    const intptr_t word = host.data;
    EXPECT_NE(word, 0);
    EXPECT_EQ(host.Open(fPixel), Outcome{});
    EXPECT_EQ(host.data, word);
    EXPECT_EQ(host.CallsOf(Kind::kHandleNew), (std::vector<HostCall>{{Kind::kHandleNew, 112, 0}}));
    EXPECT_EQ(host.Count(Kind::kHandleDispose), 0);
}

TEST_F(Dispatch, WithoutAHandleSuiteTheModuleKeepsTheBlock)
{
    for (const int broken : {0, 1, 2}) {
        SCOPED_TRACE(broken);
        ScriptableHost each;
        each.record.handleSuite = broken == 0 ? nullptr : &each.handles;
        each.handles.version = broken == 1 ? 2 : 1;
        each.handles.New = broken == 2 ? nullptr : each.handles.New;
        EXPECT_EQ(each.Open(fPixel), Outcome{});
        EXPECT_EQ(each.document.samples, (Bytes{1, 2, 3}));
        EXPECT_EQ(each.Count(Kind::kHandleNew), 0);
        ExpectClean(each);
    }
}

TEST_F(Dispatch, OptionsAndEstimateAskForNoMemory)
{
    for (const int16_t selector : {kFormatOptionsPrepare, kFormatEstimatePrepare}) {
        SCOPED_TRACE(selector);
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
    for (int16_t selector = 0; selector < kFormatSelectorCount; ++selector)
        for (const bool withRecord : {false, true}) {
            int16_t result = 99;
            host.Call(kFormatLoad);
            host.entry(selector, withRecord && selector != 0 ? &host.record : nullptr, nullptr,
                       &result);
            const bool checked = (selector >= 1 && selector <= 15 && selector % 4 != 0) ||
                                 selector == 35 || selector == 36 || selector == 38 ||
                                 selector == 39;
            EXPECT_EQ(result, checked          ? kHostBadParameter
                              : selector == 17 ? kHostCannotRead
                                               : 0)
                << selector;
            host.entry(selector, selector != 0 ? &host.record : nullptr, &host.data, nullptr);
        }
}
