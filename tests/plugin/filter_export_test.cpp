// The frames of filters and exports around classes of their own: which selector makes, serves and
// ends the object, the memory bargain, and what failures become.
#include "support/module_test.h"

#include "foundation/base/service.h"
#include "pixels/tiles/virtual_allocator.h"
#include "pixels/tiles/virtual_heap.h"
#include "plugin/export/export.h"
#include "plugin/export/export_dispatch.h"
#include "plugin/filter/filter.h"
#include "plugin/filter/filter_dispatch.h"

using namespace Testing;

namespace {

constexpr Kesto::ProjectIndex kProject{12};

// What the objects below do and tell of themselves; they die before a test can ask them.
struct Probe {
    std::vector<int> served; // selectors
    int16_t code = 0;        // the answer to each
    int made = 0;
    int alive = 0;
    uint32_t flags = 0; // while the last selector was served
};
Probe gProbe;

class Life {
public:
    Life() { ++gProbe.made, ++gProbe.alive; }
    ~Life() { --gProbe.alive; }
};

class ProbeFilter : public Project::PFilter {
public:
    void DoPluginMain(int16_t selector, HostFilterRecord*, intptr_t*, int16_t* result) override
    {
        gProbe.served.push_back(selector);
        gProbe.flags = filterFlags;
        *result = gProbe.code;
    }
    void DoAbout() override { gProbe.served.push_back(0); }
    void GetSettingsLocation(Kesto::CText&, Kesto::CText&) override {}
    void FilterDocument() override {}
    std::unique_ptr<Kesto::CPluginDialog> GetDialog() override { return nullptr; }

private:
    Life fLife;
};

class ProbeExport : public Project::PExport {
public:
    void DoPluginMain(int16_t selector, HostExportRecord*, intptr_t*, int16_t* result) override
    {
        gProbe.served.push_back(selector);
        *result = gProbe.code;
    }
    void DoAbout() override { gProbe.served.push_back(0); }
    void GetSettingsLocation(Kesto::CText&, Kesto::CText&) override {}
    void ExportDocument() override {}
    std::unique_ptr<Kesto::CPluginDialog> GetDialog() override { return nullptr; }

private:
    Life fLife;
};

class FilterFrame : public ModuleTest {
protected:
    HostFilterRecord filter{};
    HostExportRecord exported{};

    void SetUp() override
    {
        gProbe = {};
        filter.basicSuite = exported.basicSuite = host.record.basicSuite;
    }
    void TearDown() override
    {
        Filter(kFilterFinish);
        Export(kExportFinish);
        EXPECT_EQ(gProbe.alive, 0);
        ModuleTest::TearDown();
    }

    int16_t Filter(int16_t selector)
    {
        HostAboutRecord about{sizeof about, filter.basicSuite};
        int16_t result = 99;
        Kesto::DispatchFilter(selector, selector == 0 ? static_cast<void*>(&about) : &filter,
                              &host.data, &result, kProject,
                              [](auto) -> std::unique_ptr<Kesto::CLumographFilter> {
                                  return std::make_unique<ProbeFilter>();
                              });
        return result;
    }
    int16_t Export(int16_t selector)
    {
        HostAboutRecord about{sizeof about, filter.basicSuite};
        int16_t result = 99;
        Kesto::DispatchExport(selector, selector == 0 ? static_cast<void*>(&about) : &exported,
                              &host.data, &result, kProject,
                              [](auto) -> std::unique_ptr<Kesto::CLumographExport> {
                                  return std::make_unique<ProbeExport>();
                              });
        return result;
    }
};

} // namespace

TEST_F(FilterFrame, SelectorsMakeServeAndEndTheObject)
{
    const struct {
        const char* what;
        bool isFilter;
        std::vector<int> selectors;
        int16_t code;             // what the plug-in answers
        std::vector<int> results; // what the host hears
        std::vector<int> served;
        int made;
        int alive; // afterwards
    } rows[] = {
        {"a filter's run",
         true,
         {1, 2, 3, 4, 4, 5},
         0,
         {0, 0, 0, 0, 0, 0},
         {1, 2, 3, 4, 4, 5},
         1,
         0},
        {"a silent run", true, {2, 3, 4, 5}, 0, {0, 0, 0, 0}, {2, 3, 4, 5}, 1, 0},
        {"a filter without a start", true, {4, 5, 6, -1}, 0, {0, 0, 0, 0}, {}, 0, 0},
        {"a filter that fails at once", true, {1, 2, 3}, -43, {-43, -43, -43}, {1, 2, 3}, 3, 0},
        {"a filter's about box", true, {0}, 0, {0}, {0}, 1, 0},
        {"an export's run", false, {4, 1, 2, 3}, 0, {0, 0, 0, 0}, {4, 1, 2, 3}, 1, 0},
        {"an export without a prepare", false, {2, 3, 5}, 0, {0, 0, 0}, {}, 0, 0},
        {"an export that refuses", false, {1, 4}, -43, {1, 1}, {1, 4}, 2, 0},
        {"an export's about box", false, {0}, 0, {0}, {0}, 1, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        gProbe = {};
        gProbe.code = row.code;
        std::vector<int> results;
        for (const int selector : row.selectors)
            results.push_back(row.isFilter ? Filter(static_cast<int16_t>(selector))
                                           : Export(static_cast<int16_t>(selector)));
        EXPECT_EQ(results, row.results);
        EXPECT_EQ(gProbe.served, row.served);
        EXPECT_EQ(gProbe.made, row.made);
        EXPECT_EQ(gProbe.alive, row.alive);
    }
}

TEST_F(FilterFrame, AFailureBehindTheStartKeepsTheObject)
{
    EXPECT_EQ(Filter(kFilterStart), 0);
    gProbe.code = kHostUserCanceled;
    EXPECT_EQ(Filter(kFilterContinue), kHostUserCanceled);
    EXPECT_EQ(gProbe.alive, 1);
    EXPECT_EQ(Filter(kFilterFinish), kHostUserCanceled);
    EXPECT_EQ(gProbe.alive, 0);
    gProbe.code = 0;
    EXPECT_EQ(Export(kExportPrepare), 0);
    gProbe.code = kHostUserCanceled;
    EXPECT_EQ(Export(kExportStart), kHostFailed);
    EXPECT_EQ(Export(kExportFinish), 0) << "the code of the finish is dropped";
}

TEST_F(FilterFrame, ThePrepareBargainsForMemory)
{
    const struct {
        const char* what;
        int32_t budget, asked, ours;
    } rows[] = {
        {"both at the floor", 1000, 1000, 500},
        {"four fifths", 0x400000, 0x400000, 3355443},
        {"the rest at the floor", 0x180000, 0x180000, 0x100000},
        {"nothing", 0, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        filter.spaceBudget = row.budget;
        EXPECT_EQ(Filter(kFilterPrepare), 0);
        EXPECT_EQ(filter.spaceBudget, row.asked);
        EXPECT_EQ(filter.bufferShare, row.ours);
        Filter(kFilterFinish);
    }
}

TEST_F(FilterFrame, TheHostsBuffersServeTheTilesForOneSession)
{
    host.properties[kPropertyUseHostBuffers] = 1;
    EXPECT_EQ(Filter(kFilterStart), 0);
    EXPECT_EQ(gProbe.flags & 1U, 0U) << "only parameters open a session";
    ASSERT_NE(Kesto::CVirtualAllocator::Installed(), nullptr);
    void* const memory = Kesto::CVirtualAllocator::Installed()->Allocate(1000);
    EXPECT_NE(memory, nullptr);
    EXPECT_EQ(host.Buffers(), 1U);
    Kesto::CVirtualAllocator::Installed()->Free(memory);
    EXPECT_EQ(Filter(kFilterFinish), 0);
    EXPECT_EQ(Kesto::CVirtualAllocator::Installed(), nullptr);
    EXPECT_EQ(host.Buffers(), 0U);
}

TEST_F(FilterFrame, ClearedRequestsWantNothing)
{
    HostWideRects wide{};
    wide.source = wide.result = wide.mask = {1, 2, 3, 4};
    filter.sourceBlockRect = filter.resultBlockRect = filter.maskBlockRect = {1, 2, 3, 4};
    filter.sourceFirstPlane = filter.sourceLastPlane = 3;
    filter.resultFirstPlane = filter.resultLastPlane = 3;
    filter.wideRects = &wide;
    ProbeFilter object;
    object.ClearRequests(); // without a record
    EXPECT_EQ(object.HandleContinue(&filter, &host.data), 0);
    object.ClearRequests();
    HostFilterRecord cleared{};
    cleared.basicSuite = filter.basicSuite;
    cleared.wideRects = &wide;
    EXPECT_EQ(std::memcmp(&filter, &cleared, sizeof cleared), 0);
    const HostWideRects nothing{};
    EXPECT_EQ(std::memcmp(&wide, &nothing, sizeof nothing), 0);
}
