// The entries of projects that the module has no class for: a refusal where an object is needed, nothing elsewhere.
#include "plugin/entry_names.h"
#include "support/module_test.h"

#define DECLARE_ENTRY(name) extern "C" void name(int16_t selector, void* record, intptr_t* data, int16_t* result);
FOR_EACH_OTHER_FORMAT(DECLARE_ENTRY)
FOR_EACH_FILTER(DECLARE_ENTRY)
FOR_EACH_EXPORT(DECLARE_ENTRY)

namespace Testing {
namespace {

struct Entry {
    const char* name;
    HostEntry call;
};

#define ENTRY_ROW(name) {#name, name},
constexpr Entry kFormats[] = {FOR_EACH_OTHER_FORMAT(ENTRY_ROW)};
constexpr Entry kFilters[] = {FOR_EACH_FILTER(ENTRY_ROW)};
constexpr Entry kExports[] = {FOR_EACH_EXPORT(ENTRY_ROW)};

// The record is large enough for each kind; it has no suites.
int16_t CallEntry(const Entry& entry, int selector)
{
    HostExportRecord record{};
    intptr_t data = 0;
    int16_t result = 99;
    entry.call(static_cast<int16_t>(selector), &record, &data, &result);
    entry.call(static_cast<int16_t>(selector), nullptr, nullptr, nullptr);
    return result;
}

void ExpectRefusals(std::span<const Entry> entries, std::initializer_list<int> needing)
{
    for (const Entry& entry : entries)
        for (const int selector : {-1, 0, 1, 2, 3, 4, 5, 6, 8, 13, 17, 18, 20, 24, 25, 27, 35, 40, 41, 99}) {
            const bool needs = std::ranges::find(needing, selector) != needing.end();
            EXPECT_EQ(CallEntry(entry, selector), needs ? 1 : 0) << entry.name << " " << selector;
        }
}

using Projects = ModuleTest;

TEST_F(Projects, OtherFormatsRefuseWhatNeedsAnObject)
{
    ExpectRefusals(kFormats, {0, 1, 2, 5, 6, 13, 17, 20, 24, 25, 27});
}

TEST_F(Projects, FiltersRefuseWhatNeedsAnObject)
{
    ExpectRefusals(kFilters, {0, 1, 2, 3});
}

TEST_F(Projects, TheExportRefusesWhatNeedsAnObject)
{
    ExpectRefusals(kExports, {0, 1, 4});
}

TEST_F(Projects, ARefusalLeavesTheLiveProjectAlone)
{
    host.Call(kFormatLoad);
    const int before = host.Count(Kind::kProperty);
    for (const Entry& entry : kFormats)
        CallEntry(entry, kFormatReadPrepare);
    host.Call(kFormatOptionsPrepare);
    EXPECT_EQ(host.Count(Kind::kProperty), before + before - 1) << "the object was made anew";
}

} // namespace
} // namespace Testing
