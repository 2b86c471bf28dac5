// The block loop of previews against a plain model, and what it makes of hosts that fail or lie.
#include "dialogs/preview/block_loop.h"
#include "dialogs/preview_host.h"
#include "support/testing.h"

using namespace Project;
using Testing::PreviewHost;

namespace {

using Samples = std::vector<uint8_t>;

// What a buffer must hold: pixel by pixel, sample by sample, straight from the formulas.
class Model {
public:
    Model(const BlockOrder& order, int32_t depth, bool masked)
        : fOrder(order), fDepth(depth), fMasked(masked),
          fSize(ScaledSize(order.blockRect, order.factors))
    {
    }

    // The planes from `first` on, over samples that are all `old`.
    Samples Buffer(int32_t first, int32_t planes, int32_t old) const
    {
        const auto sample = static_cast<size_t>(fDepth / 8);
        Samples bytes;
        for (int32_t y = 0; y < fSize.height; ++y)
            for (int32_t x = 0; x < fSize.width; ++x)
                for (int32_t plane = first; plane < first + planes; ++plane) {
                    bytes.resize(bytes.size() + sample);
                    One(&bytes[bytes.size() - sample], Place(x, fOrder.blockRect.left),
                        Place(y, fOrder.blockRect.top), plane, old);
                }
        return bytes;
    }

private:
    int32_t Place(int32_t at, int32_t origin) const
    {
        return origin + at / fOrder.factors.dest * fOrder.factors.source;
    }

    void One(uint8_t* to, int32_t x, int32_t y, int32_t plane, int32_t old) const
    {
        const int32_t in = PreviewHost::Sample(x, y, plane);
        const int32_t m = fMasked ? PreviewHost::MaskSample(x, y) : 255;
        if (fDepth == 8) {
            const int32_t t = in * m + (255 - m) * old + 0x80;
            *to = static_cast<uint8_t>(fMasked ? (t + (t >> 8)) >> 8 : in);
        } else if (fDepth == 16) {
            const auto wide = static_cast<uint16_t>(
                fMasked ? (in * 128 * m + (255 - m) * old * 128 + 0x7F) / 255 : in * 128);
            std::memcpy(to, &wide, 2);
        } else {
            const float a = static_cast<float>(in) / 255, b = static_cast<float>(old) / 255;
            const float real = fMasked ? b + (a - b) * static_cast<float>(m) / 255 : a;
            std::memcpy(to, &real, 4);
        }
    }

    const BlockOrder& fOrder;
    int32_t fDepth;
    bool fMasked;
    DocumentSize fSize;
};

// Buffers of the right size, filled with one sample throughout.
Samples Filled(const BlockOrder& order, int32_t planes, int32_t depth, int32_t sample)
{
    const DocumentSize size = ScaledSize(order.blockRect, order.factors);
    const auto bytes = static_cast<size_t>(depth / 8);
    Samples samples(static_cast<size_t>(size.width * size.height * planes) * bytes);
    for (size_t at = 0; at < samples.size(); at += bytes)
        PreviewHost::Put(&samples[at], depth, sample);
    return samples;
}

constexpr int32_t kOld = 77;

TEST(BlockLoop, AgreesWithThePlainModel)
{
    std::mt19937 random(5);
    const auto pick = [&](int32_t least, int32_t most) {
        return std::uniform_int_distribution<int32_t>(least, most)(random);
    };
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        const int32_t depth = std::array{8, 16, 32}[static_cast<size_t>(pick(0, 2))];
        const auto colours = static_cast<int16_t>(pick(0, 1) * 2 + 1);
        PreviewHost host(pick(1, 90), pick(1, 90), colours, depth);
        host.record.inputTransparency = static_cast<int16_t>(pick(0, 1));
        host.record.inputLayerMask = static_cast<int16_t>(pick(0, 1));
        host.record.maskPresent = static_cast<uint8_t>(pick(0, 1));
        host.record.maskAutomatic = static_cast<uint8_t>(pick(0, 1));
        host.extraStride = pick(0, 1) * 5;
        BlockOrder order;
        order.planes = colours;
        const int32_t factor = pick(1, 5);
        order.factors = pick(0, 1) != 0 ? PreviewFactors{factor, 1} : PreviewFactors{1, factor};
        order.useInRect = pick(0, 1) != 0;
        order.mostBlockSide = pick(0, 2) * 7;
        order.blockRect.left = pick(0, host.record.documentWidth - 1);
        order.blockRect.top = pick(0, host.record.documentHeight - 1);
        order.blockRect.right = pick(order.blockRect.left + 1, host.record.documentWidth);
        order.blockRect.bottom = pick(order.blockRect.top + 1, host.record.documentHeight);
        Samples source = Filled(order, colours, depth, kOld);
        Samples transparency = Filled(order, 1, depth, kOld), layerMask = transparency;
        order.source = source.data();
        order.transparency = transparency.data();
        order.layerMask = pick(0, 1) != 0 ? layerMask.data() : nullptr;

        ASSERT_EQ(BlockLoop(host.record, order).Run(), BlockOutcome::kDone);
        const Model model(order, depth,
                          host.record.maskPresent != 0 && host.record.maskAutomatic != 0);
        EXPECT_EQ(source, model.Buffer(0, colours, kOld));
        if (host.record.inputTransparency != 0) {
            EXPECT_EQ(transparency, model.Buffer(colours, 1, kOld));
        }
        if (host.record.inputLayerMask != 0 && order.layerMask != nullptr) {
            EXPECT_EQ(layerMask, model.Buffer(colours + host.record.inputTransparency, 1, kOld));
        }
    }
}

// An order over 40 x 30 pixels of three planes, with blocks of 16.
struct SmallRun {
    explicit SmallRun(int32_t depth = 8) : host(200, 100, 3, depth)
    {
        order.blockRect = {10, 20, 50, 50};
        order.planes = 3;
        order.mostBlockSide = 16;
        source = Filled(order, 3, depth, kOld);
        order.source = source.data();
        host.record.resultBlockRect = {1, 2, 3, 4};
        host.record.maskBlockRect = {5, 6, 7, 8};
        host.record.maskPresent = host.record.maskAutomatic = 1;
    }

    BlockOutcome Run() { return BlockLoop(host.record, order).Run(); }

    PreviewHost host;
    BlockOrder order;
    Samples source;
};

bool Equal(const HostRect16& a, const HostRect16& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST(BlockLoop, EachCodeAtEachBlockEndsTheRunAndLeavesTheRequestsAsTheyWere)
{
    SmallRun whole;
    ASSERT_EQ(whole.Run(), BlockOutcome::kDone);
    ASSERT_EQ(whole.host.fetches, 6);
    const std::pair<int16_t, BlockOutcome> codes[] = {
        {kHostUserCanceled, BlockOutcome::kUserCancelled},
        {kHostMemoryFull, BlockOutcome::kNoMemory},
        {kHostIoError, BlockOutcome::kFailed},
        {kHostFailed, BlockOutcome::kFailed},
    };
    for (const auto& [code, outcome] : codes)
        for (int block = 0; block < whole.host.fetches; ++block) {
            SCOPED_TRACE(testing::Message() << code << " at block " << block);
            SmallRun run;
            run.host.failAt = block;
            run.host.code = code;
            EXPECT_EQ(run.Run(), outcome);
            EXPECT_EQ(run.host.fetches, block + 1);
            EXPECT_TRUE(Equal(run.host.record.resultBlockRect, {1, 2, 3, 4}));
            EXPECT_TRUE(Equal(run.host.record.maskBlockRect, {5, 6, 7, 8}));
            EXPECT_EQ(run.source == Filled(run.order, 3, 8, kOld), block == 0)
                << "what was done stays";
        }
}

TEST(BlockLoop, AsksForThePlanesThatThereAre)
{
    const struct {
        const char* what;
        uint8_t floating;
        int16_t transparency, layerMask, invert;
        bool planesOnly;
        int16_t last; // source plane
    } rows[] = {
        {"colours", 0, 0, 0, 0, false, 2},
        {"with transparency", 0, 1, 0, 0, false, 3},
        {"with all", 0, 1, 1, 1, false, 5},
        {"an invert plane alone doesn't count", 0, 0, 0, 1, false, 2},
        {"floating", 1, 1, 1, 0, false, 2},
        {"planes only", 0, 1, 1, 0, true, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        SmallRun run;
        run.host.record.floatingFlag = row.floating;
        run.host.record.inputTransparency = run.host.record.outputTransparency = row.transparency;
        run.host.record.inputLayerMask = row.layerMask;
        run.host.record.inputInvert = row.invert;
        run.order.planesOnly = row.planesOnly;
        EXPECT_EQ(run.Run(), BlockOutcome::kDone);
        EXPECT_EQ(run.host.record.sourceLastPlane, row.last);
        EXPECT_EQ(run.host.record.inputRate, 0x10000);
        EXPECT_EQ(run.host.record.sourceFill, kHostFillNone);
    }
}

TEST(BlockLoop, AHostThatLiesFailsTheRunAndTouchesNothingElse)
{
    using Lie = void (*)(HostFilterRecord&);
    const struct {
        const char* what;
        Lie before, after;
        bool fails;
    } rows[] = {
        {"no source", nullptr, [](HostFilterRecord& r) { r.sourceBlock = nullptr; }, true},
        {"rows too short", nullptr, [](HostFilterRecord& r) { r.sourceStride = 47; }, true},
        {"rows upwards", nullptr, [](HostFilterRecord& r) { r.sourceStride = -48; }, true},
        {"no mask", nullptr, [](HostFilterRecord& r) { r.maskBlock = nullptr; }, true},
        {"a short mask", nullptr, [](HostFilterRecord& r) { r.maskStride = 15; }, true},
        {"a depth of 12", [](HostFilterRecord& r) { r.depth = 12; }, nullptr, true},
        {"too many planes", [](HostFilterRecord& r) { r.inputTransparency = 30000; }, nullptr,
         true},
        {"fewer planes than there are", [](HostFilterRecord& r) { r.inputLayerMask = -3; }, nullptr,
         true},
        {"no way to fetch", [](HostFilterRecord& r) { r.fetchBlocks = nullptr; }, nullptr, true},
        {"another depth after the fetch", nullptr, [](HostFilterRecord& r) { r.depth = 32; },
         false},
        {"other planes after it", nullptr, [](HostFilterRecord& r) { r.sourceLastPlane = 30; },
         false},
        {"another rectangle after it", nullptr,
         [](HostFilterRecord& r) {
             r.sourceBlockRect = {-9000, -9000, 9000, 9000};
         },
         false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        SmallRun run;
        run.order.mostBlockSide = 0; // the lie is the last word
        run.order.blockRect = {10, 20, 26, 36};
        if (row.before != nullptr)
            row.before(run.host.record);
        if (row.after != nullptr)
            run.host.afterFetch = row.after;
        EXPECT_EQ(run.Run(), row.fails ? BlockOutcome::kFailed : BlockOutcome::kDone);
        EXPECT_TRUE(Equal(run.host.record.resultBlockRect, {1, 2, 3, 4}));
    }
}

TEST(BlockLoop, ATargetBeyond16BitsEndsAtTheirLimits)
{
    SmallRun run;
    run.order.useInRect = false;
    run.host.record.targetRect = {20, 10, 50, 50};
    run.order.offset = {-2, -3, 4, 5};
    run.order.blockRect = {10, 20, 26, 36};
    EXPECT_EQ(run.Run(), BlockOutcome::kDone);
    EXPECT_TRUE(Equal(run.host.record.sourceBlockRect, {18, 7, 54, 55}));
    run.host.record.targetRect = {32000, 32000, 32010, 32010};
    run.order.offset = {5000, 0, 5000, 0};
    EXPECT_EQ(run.Run(), BlockOutcome::kFailed) << "nothing is left of it";
}

TEST(PreviewRect, TheVisibleSourceIsCentredClampedAndCutToTheFactor)
{
    const struct {
        const char* what;
        int32_t x, y, width, height, factor;
        PixelRect result;
    } rows[] = {
        {"in the middle", 50, 40, 20, 10, 1, {40, 35, 60, 45}},
        {"an odd size grows to the right", 50, 40, 21, 11, 1, {40, 35, 61, 46}},
        {"at the left and the top", 2, 3, 20, 10, 1, {0, 0, 20, 10}},
        {"at the right and the bottom", 99, 79, 20, 10, 1, {80, 70, 100, 80}},
        {"wider than the document", 50, 40, 300, 300, 1, {0, 0, 100, 80}},
        {"a factor of 3 and a width of 10", 50, 40, 10, 9, 3, {45, 36, 54, 45}},
        {"a factor beyond the size", 50, 40, 10, 10, 16, {45, 35, 45, 35}},
        {"far outside", 5000, -5000, 20, 10, 1, {80, 0, 100, 10}},
        {"nothing", 50, 40, 0, -5, 1, {50, 40, 50, 40}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ClampToDocument(row.x, row.y, row.width, row.height, {100, 80}, row.factor),
                  row.result)
            << row.what;
}

TEST(PreviewScale, StepsLeadThroughTheMenuAndRoundingKeepsWholeFactors)
{
    double scale = kLeastPreviewScale;
    std::string steps;
    for (int n = 0; n < 20; ++n, scale = NextScale(scale))
        steps += std::to_string(static_cast<int>(scale * 100)) + " ";
    EXPECT_EQ(steps, "6 12 25 33 50 100 200 300 400 600 800 1000 1200 1600 1600 1600 1600 1600 "
                     "1600 1600 ");
    EXPECT_EQ(PreviousScale(1.0 / 3.0), 0.25);
    EXPECT_EQ(PreviousScale(kLeastPreviewScale), kLeastPreviewScale);
    const std::pair<double, PreviewFactors> rows[] = {
        {1.0, {1, 1}},  {2.4, {1, 2}},   {0.4, {3, 1}},  {1.0 / 3.0, {3, 1}},
        {1e9, {1, 16}}, {-5.0, {16, 1}}, {0.0, {16, 1}}, {0.0625, {16, 1}},
    };
    for (const auto& [wanted, factors] : rows)
        EXPECT_EQ(FactorsOf(RoundScale(wanted)), factors) << wanted;
}

} // namespace
