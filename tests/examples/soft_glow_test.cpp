// A filter's protocol through its entry: what a run asks for, and what failures of the host become.
#include "dialogs/preview_host.h"
#include "support/testing.h"

using Testing::PreviewHost;

extern "C" void EntrySoftGlow(int16_t selector, void* record, intptr_t* data, int16_t* result);

namespace {

// 1030 x 520 pixels: six tiles, small ones at the ends.
class SoftGlowRun : public testing::Test {
protected:
    SoftGlowRun()
    {
        host.record.filterPlanes = 3;
        host.record.spaceBudget = 0x400000;
        host.afterFetch = [this](HostFilterRecord& record) { LendResult(record); };
    }
    ~SoftGlowRun() override { Call(kFilterFinish); }

    int16_t Call(int16_t selector)
    {
        int16_t result = 99;
        EntrySoftGlow(selector, &host.record, &data, &result);
        return result;
    }

    void LendResult(HostFilterRecord& record)
    {
        const HostRect16& rect = record.resultBlockRect;
        record.resultStride = (rect.right - rect.left) * 3 * record.depth / 8;
        lent.assign(static_cast<size_t>(record.resultStride * (rect.bottom - rect.top)), 0xCD);
        record.resultBlock = lent.data();
        changed += int64_t{rect.right - rect.left} * (rect.bottom - rect.top);
    }

    void ExpectNothingAskedFor() const
    {
        const HostRect16 nothing{};
        for (const HostRect16* const rect :
             {&host.record.sourceBlockRect, &host.record.resultBlockRect,
              &host.record.maskBlockRect})
            EXPECT_EQ(std::memcmp(rect, &nothing, sizeof nothing), 0)
                << rect->left << ", " << rect->top << " to " << rect->right << ", " << rect->bottom;
        EXPECT_EQ(host.record.sourceLastPlane, 0);
        EXPECT_EQ(host.record.resultLastPlane, 0);
    }

    PreviewHost host{1030, 520, 3, 8};
    intptr_t data = 0;
    std::vector<uint8_t> lent;
    int64_t changed = 0; // pixels that were lent to be changed
};

TEST_F(SoftGlowRun, ASilentRunChangesTheTargetOnceAndAsksForNoMore)
{
    for (const int32_t depth : {8, 16, 32}) {
        SCOPED_TRACE(depth);
        host.record.depth = depth;
        changed = 0;
        EXPECT_EQ(Call(kFilterPrepare), 0);
        EXPECT_EQ(host.record.bufferShare, 3355443) << "four fifths";
        host.record.spaceBudget = 0x400000;
        EXPECT_EQ(Call(kFilterStart), 0);
        EXPECT_EQ(changed, 1030 * 520);
        ExpectNothingAskedFor();
        EXPECT_EQ(Call(kFilterFinish), 0);
    }
    host.record.depth = 8;
    host.record.targetRect = {100, 200, 110, 230};
    changed = 0;
    EXPECT_EQ(Call(kFilterStart), 0);
    EXPECT_EQ(changed, 10 * 30) << "a selection's rectangle";
}

TEST_F(SoftGlowRun, AFailingFetchIsTheResultAtEachTile)
{
    for (const int16_t code : {kHostUserCanceled, kHostMemoryFull, kHostIoError, kHostFailed})
        for (int tile = 0; tile < 6; ++tile) {
            SCOPED_TRACE(testing::Message() << code << " at tile " << tile);
            host.fetches = 0;
            host.failAt = tile;
            host.code = code;
            EXPECT_EQ(Call(kFilterStart), code);
            EXPECT_EQ(host.fetches, tile + 1);
            ExpectNothingAskedFor();
        }
}

TEST_F(SoftGlowRun, BlocksThatAreNoneEndTheRunBeforeTheyAreTouched)
{
    using Lie = void (*)(HostFilterRecord&);
    const struct {
        const char* what;
        Lie lie;
    } rows[] = {
        {"no source", [](HostFilterRecord& record) { record.sourceBlock = nullptr; }},
        {"no result", [](HostFilterRecord& record) { record.resultBlock = nullptr; }},
        {"a short source", [](HostFilterRecord& record) { --record.sourceStride; }},
        {"a short result", [](HostFilterRecord& record) { --record.resultStride; }},
        {"rows upwards", [](HostFilterRecord& record) { record.resultStride *= -1; }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        host.afterFetch = [&](HostFilterRecord& record) {
            LendResult(record);
            row.lie(record);
        };
        EXPECT_EQ(Call(kFilterStart), kHostBadParameter);
        ExpectNothingAskedFor();
    }
    host.record.fetchBlocks = nullptr;
    EXPECT_EQ(Call(kFilterStart), kHostBadParameter);
}

TEST_F(SoftGlowRun, TheUserStopsItBetweenRowsOfTiles)
{
    host.record.abortCheck = [] { return uint8_t{1}; };
    EXPECT_EQ(Call(kFilterStart), kHostUserCanceled);
    EXPECT_EQ(host.fetches, 3);
    ExpectNothingAskedFor();
}

} // namespace
