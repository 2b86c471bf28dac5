// The frame of a format around a class of its own: which exception becomes which result, and the
// memory bargain.
#include "support/module_test.h"

#include "foundation/base/service.h"
#include "pixels/tiles/virtual_heap.h"
#include "plugin/format/format_selectors.h"
#include "plugin/frame/lumograph_error.h"

using namespace Testing;

namespace {

using testing::HasSubstr;

class ProbeFormat : public Kesto::CLumographFormat {
public:
    std::function<bool()> body = [] { return true; };
    std::optional<uint64_t> memory;
    bool enoughMemory = true;

    bool CanFilterFile() override { return body(); }
    bool DoReadPrepare() override { return body(); }
    bool DoReadStart() override { return body(); }
    bool DoReadContinue() override { return body(); }
    void DoReadFinish() override { body(); }
    void DoAbout() override { body(); }
    uint64_t GetHostMemory() override { return memory.value_or(CLumographFormat::GetHostMemory()); }
    bool SplitMemory(int32_t total, int32_t& first, int32_t& second) override
    {
        return CLumographFormat::SplitMemory(total, first, second) && enoughMemory;
    }
};

class Frame : public ModuleTest {
protected:
    std::unique_ptr<ProbeFormat> owner = std::make_unique<ProbeFormat>();
    ProbeFormat& format = *owner;

    void TearDown() override
    {
        owner.reset(); // gives the host's suites back
        ModuleTest::TearDown();
    }

    int16_t Handle(int16_t selector)
    {
        return Kesto::FindFormatSelector(selector).handler(format,
                                                           {selector, &host.record, &host.data});
    }
    int16_t Start() { return Handle(kFormatReadStart); }
    int16_t Prepare() { return Handle(kFormatReadPrepare); }
};

} // namespace

TEST_F(Frame, FailuresBecomeCodesAndAlerts)
{
    const auto fails = [](auto failure) { return [=]() -> bool { throw failure; }; };
    const struct {
        std::function<bool()> body;
        int started;
        int filtered;
        const char* alert; // of the start; asking for the type of a file shows none
    } rows[] = {
        {[] { return true; }, 0, 0, ""},
        {[] { return false; }, kHostFailed, kHostCannotRead, ""},
        {fails(Kesto::CLumographError(kHostFileNotFound)), kHostFileNotFound, kHostCannotRead, ""},
        {fails(Kesto::CLumographError(-1)), -1, kHostCannotRead, ""},
        {fails(Kesto::CLumographError(kHostFilterFileA)), kHostFilterFileA, kHostFilterFileA, ""},
        {fails(Kesto::CLumographError(kHostFilterFileB)), kHostFilterFileB, kHostFilterFileB, ""},
        {fails(std::runtime_error("the wheels came off")), kHostFailed, kHostCannotRead,
         "the wheels came off"},
        {fails(7), kHostFailed, kHostCannotRead, "could not be completed"},
        {fails(Kesto::CException()), kHostFailed, kHostCannotRead, "could not be completed"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.alert);
        format.body = row.body;
        EXPECT_EQ(Handle(kFormatFilterFile), row.filtered);
        EXPECT_THAT(alerts.texts, testing::IsEmpty());
        EXPECT_EQ(Start(), row.started);
        EXPECT_EQ(alerts.texts.size(), *row.alert != '\0' ? 1U : 0U)
            << "the host shows the text of its own codes";
        EXPECT_THAT(alerts.texts.empty() ? "" : alerts.texts[0], HasSubstr(row.alert));
        alerts.texts.clear();
    }
    format.body = fails(Kesto::CLumographError(kHostFileNotFound));
    EXPECT_EQ(Handle(kFormatReadContinue), kHostFileNotFound);
    EXPECT_EQ(Handle(kFormatReadFinish), kHostFileNotFound);
    format.body = [] { return false; };
    EXPECT_EQ(Handle(kFormatReadFinish), 0);
}

TEST_F(Frame, HandlersRememberTheCallAndItsPhase)
{
    constexpr uint32_t kBoth =
        Kesto::CLumographPlugin::kFlag_Working | Kesto::CLumographPlugin::kFlag_About;
    uint32_t flags = 0;
    format.body = [&] {
        flags = format.flags & kBoth;
        return true;
    };
    Start();
    EXPECT_EQ(flags, 8U);
    EXPECT_EQ(format.GetSelector(), kFormatReadStart);
    EXPECT_EQ(format.GetFormatRecord(), &host.record);
    EXPECT_EQ(format.pluginData, &host.data);
    Handle(kFormatFilterFile);
    EXPECT_EQ(flags, 0U);
    const HostAboutRecord about{sizeof about, host.record.basicSuite};
    EXPECT_EQ(format.HandleAbout(&about, &host.data), 0);
    EXPECT_EQ(flags, 32U);
    EXPECT_EQ(format.flags & kBoth, 0U);
    EXPECT_EQ(format.aboutRecord, &about);
}

TEST_F(Frame, ThePrepareSplitsTheHostsMemory)
{
    host.record.memoryBudget = 101;
    EXPECT_EQ(Prepare(), 0);
    EXPECT_EQ(format.memoryShare, 50);
    EXPECT_EQ(host.record.memoryBudget, 101);
    format.enoughMemory = false;
    EXPECT_EQ(Prepare(), kHostFailed);
    EXPECT_EQ(format.memoryShare, 0);
    ASSERT_EQ(alerts.texts.size(), 1U);
    EXPECT_THAT(alerts.texts[0],
                HasSubstr("This plugin requires more memory than the host can currently supply."));
}

TEST_F(Frame, TheTileStoresLimitFollowsTheMemoryWithinBounds)
{
    for (const auto& [memory, limit] : {std::pair<uint64_t, uint64_t>{16 << 20, 0x2000000},
                                        {0x4000000, 0x2000000},
                                        {0x4000003, 0x2000001},
                                        {uint64_t{1} << 40, 0x20000000}}) {
        format.memory = memory;
        EXPECT_EQ(Start(), 0);
        EXPECT_EQ(Kesto::CServiceT<Kesto::CVirtualHeap>::Get()->Budget(), limit) << memory;
    }
}

TEST_F(Frame, HostCodesHaveTexts)
{
    for (const auto& [code, text] :
         {std::pair{kHostEndOfFile, "The end of the data was prematurely reached."},
          {kHostDiskFull, "The disk is full."},
          {kHostMemoryFull, "There is not enough memory."},
          {kHostBadMode, "An unknown host error has occurred."}})
        EXPECT_THAT(std::string(Kesto::CLumographError(code).ErrorText().View()), HasSubstr(text))
            << code;
}
