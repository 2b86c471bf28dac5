// The frame of a format around a class of its own: which exception becomes which result, and the memory bargain.
#include "support/module_test.h"

#include "foundation/service.h"
#include "pixels/virtual_heap.h"
#include "plugin/lumograph_error.h"
#include "plugin/lumograph_format.h"

#include <functional>
#include <stdexcept>

namespace Testing {
namespace {

class ProbeFormat : public Kesto::CLumographFormat {
public:
    std::function<bool()> body = [] { return true; };
    std::optional<uint64_t> memory;
    bool enoughMemory = true;
    bool loud = false;

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
    ProbeFormat format;

    int16_t Start() { return format.HandleReadStart(&host.record, &host.data); }
};

TEST_F(Frame, OnlyAHostErrorKeepsItsCode)
{
    format.body = []() -> bool { throw Kesto::CLumographError(kHostFileNotFound); };
    EXPECT_EQ(Start(), kHostFileNotFound);
    EXPECT_EQ(format.HandleReadContinue(&host.record, &host.data), kHostFileNotFound);
    EXPECT_EQ(format.HandleReadFinish(&host.record, &host.data), kHostFileNotFound);
    EXPECT_THAT(alerts.texts, ::testing::IsEmpty()) << "the host shows its own text";
    format.body = [] { return false; };
    EXPECT_EQ(Start(), kHostFailed);
    EXPECT_THAT(alerts.texts, ::testing::IsEmpty());
    EXPECT_EQ(format.HandleReadFinish(&host.record, &host.data), 0);
}

TEST_F(Frame, AnythingElseIsReportedAndBecomesOne)
{
    format.body = []() -> bool { throw std::runtime_error("the wheels came off"); };
    EXPECT_EQ(Start(), kHostFailed);
    ASSERT_EQ(alerts.texts.size(), 1U);
    EXPECT_THAT(alerts.texts[0], ::testing::HasSubstr("the wheels came off"));
    format.body = []() -> bool { throw 7; };
    EXPECT_EQ(Start(), kHostFailed);
    format.body = []() -> bool { throw Kesto::CException(); };
    EXPECT_EQ(Start(), kHostFailed);
}

TEST_F(Frame, FilterFileHasCodesOfItsOwn)
{
    const auto ask = [&] { return format.HandleFilterFile(&host.record, &host.data); };
    EXPECT_EQ(ask(), 0);
    for (const int code : {int{kHostFilterFileA}, int{kHostFilterFileB}, int{kHostMemoryFull}, -1}) {
        format.body = [=]() -> bool { throw Kesto::CLumographError(static_cast<int16_t>(code)); };
        const bool kept = code == kHostFilterFileA || code == kHostFilterFileB;
        EXPECT_EQ(ask(), kept ? code : int{kHostCannotRead});
    }
    format.body = []() -> bool { throw 7; };
    EXPECT_EQ(ask(), kHostCannotRead);
    format.body = [] { return false; };
    EXPECT_EQ(ask(), kHostCannotRead);
    EXPECT_THAT(alerts.texts, ::testing::IsEmpty());
}

TEST_F(Frame, HandlersRememberTheCallAndItsPhase)
{
    constexpr uint32_t kBoth = Kesto::CLumographPlugin::kFlag_Working | Kesto::CLumographPlugin::kFlag_About;
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
    format.HandleFilterFile(&host.record, &host.data);
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
    EXPECT_EQ(format.HandleReadPrepare(&host.record, &host.data), 0);
    EXPECT_EQ(format.memoryShare, 50);
    EXPECT_EQ(host.record.memoryBudget, 101);
    format.enoughMemory = false;
    EXPECT_EQ(format.HandleReadPrepare(&host.record, &host.data), kHostFailed);
    EXPECT_EQ(format.memoryShare, 0);
    ASSERT_EQ(alerts.texts.size(), 1U);
    EXPECT_THAT(alerts.texts[0],
                ::testing::HasSubstr("This plugin requires more memory than the host can currently supply."));
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
    const auto text = [](int code) {
        Kesto::CText out;
        Kesto::CLumographError(static_cast<int16_t>(code)).GetErrorText(out);
        return std::string(out.View());
    };
    EXPECT_THAT(text(kHostEndOfFile), ::testing::HasSubstr("The end of the data was prematurely reached."));
    EXPECT_THAT(text(kHostDiskFull), ::testing::HasSubstr("The disk is full."));
    EXPECT_THAT(text(kHostMemoryFull), ::testing::HasSubstr("There is not enough memory."));
    EXPECT_THAT(text(kHostBadMode), ::testing::HasSubstr("An unknown host error has occurred."));
    EXPECT_EQ(Kesto::CLumographError(kHostIoError).Code(), kHostIoError);
}

} // namespace
} // namespace Testing
