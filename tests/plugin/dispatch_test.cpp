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
        const char* what;
        std::vector<int16_t> selectors;
        bool makes;     // an object when there is none
        int16_t result; // of a living object, in a session without a file
        bool survives;  // the object does
    } kRows[] = {
        {"prepares and starts that do well, load", {1, 5, 6, 9, 10, 13, 24}, true, 0, true},
        {"extensions and unload end it",
         {20, 21, 22, 23, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34},
         true,
         0,
         false},
        {"without a file no reading, no filtering", {2, 17}, true, kHostCannotRead, false},
        {"nor writing", {14}, true, kHostBadMode, false},
        {"finishes end it", {4, 8, 12, 16}, false, 0, false},
        {"extra starts are refused", {35, 38}, false, kHostBadMode, false},
        {"extra continues too", {36, 39}, false, kHostBadMode, true},
        {"a read continue without a file", {3}, false, kHostCannotRead, true},
        {"a write continue without a picture", {15}, false, kHostMemoryFull, true},
        {"other continues and finishes", {7, 11, 37, 40}, false, 0, true},
        {"numbers that mean nothing", {18, 19, 41, 42, 255, 32767, -1, -2, -32768}, false, 0, true},
    };
    for (const auto& row : kRows)
        for (const int16_t selector : row.selectors) {
            SCOPED_TRACE(row.what + (": " + std::to_string(selector)));
            ScriptableHost alone;
            alone.fault = Fault{Kind::kOpen, 0};
            const int16_t result = alone.Call(selector);
            EXPECT_EQ(ObjectsMade(alone), row.makes ? 1 : 0);
            EXPECT_TRUE(row.makes || (result == 0 && alone.Calls().empty() && alone.data == 0));
            ExpectClean(alone);
            ScriptableHost living;
            living.fault = Fault{Kind::kOpen, 0};
            EXPECT_EQ(living.Call(kFormatReadPrepare), 0);
            EXPECT_EQ(living.Call(selector), row.result);
            EXPECT_EQ(ObjectLives(living), row.survives);
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
    const struct {
        const char* what;
        void (*breaks)(ScriptableHost&);
    } kRows[] = {{"none", [](ScriptableHost& one) { one.record.handleSuite = nullptr; }},
                 {"another version", [](ScriptableHost& one) { one.handles.version = 2; }},
                 {"no New", [](ScriptableHost& one) { one.handles.New = nullptr; }}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        ScriptableHost each;
        row.breaks(each);
        EXPECT_EQ(each.Open(fPixel), Outcome{});
        EXPECT_EQ(each.document.samples, (Bytes{1, 2, 3}));
        EXPECT_EQ(each.Count(Kind::kHandleNew), 0);
        ExpectClean(each);
    }
}

TEST_F(Dispatch, OptionsAndEstimateAskForNoMemory)
{
    for (const int16_t selector : {kFormatOptionsPrepare, kFormatEstimatePrepare}) {
        SCOPED_TRACE(selector == kFormatOptionsPrepare ? "options" : "estimate");
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
    const std::map<int16_t, std::vector<int16_t>> kResults = {
        {kHostBadParameter, {1, 2, 3, 5, 6, 7, 9, 10, 11, 13, 14, 15, 35, 36, 38, 39}},
        {kHostCannotRead, {17}}};
    for (int16_t selector = 0; selector < kFormatSelectorCount; ++selector)
        for (const bool withRecord : {false, true}) {
            SCOPED_TRACE(std::to_string(selector) + (withRecord ? " without data" : " bare"));
            int16_t expected = 0, result = 99;
            for (const auto& [code, selectors] : kResults)
                expected = std::ranges::count(selectors, selector) != 0 ? code : expected;
            host.Call(kFormatLoad);
            void* const record = selector != 0 ? &host.record : nullptr; // about has its own
            host.entry(selector, withRecord ? record : nullptr, nullptr, &result);
            EXPECT_EQ(result, expected);
            host.entry(selector, record, &host.data, nullptr);
        }
}
