// The preview of a filter's dialog and the example filter against memcpy and against OpenCV doing
// the same, on one thread: how many times faster we are.
#include "controls/control_panel.h"
#include "dialogs/preview/block_loop.h"
#include "dialogs/preview/preview_globals.h"
#include "dialogs/preview/preview_pane.h"
#include "dialogs/preview/preview_picture.h"
#include "rounds.h"
#include "soft_glow/glow.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

using namespace Project;

extern "C" void EntrySoftGlow(int16_t selector, void* record, intptr_t* data, int16_t* result);

namespace {

using Bytes = std::vector<uint8_t>;

Bytes Noise(size_t count)
{
    Bytes bytes(count);
    uint32_t seed = 1;
    for (uint8_t& byte : bytes)
        byte = static_cast<uint8_t>((seed = seed * 1664525u + 1013904223u) >> 24);
    return bytes;
}

// A host that lends its own pixels, 24 bits each, so that the time is ours.
class LeanHost {
public:
    explicit LeanHost(int32_t side) : fSide(side), fPicture(Noise(Size())), fMask(Noise(Size() / 3))
    {
        fCurrent = this;
        record.documentWidth = record.documentHeight = static_cast<int16_t>(side);
        record.targetRect = {0, 0, record.documentHeight, record.documentWidth};
        record.inputColorPlanes = record.outputColorPlanes = record.filterPlanes = 3;
        record.depth = 8;
        record.spaceBudget = 0x400000;
        record.fetchBlocks = [] { return fCurrent->Lend(); };
        gFilterRecord = &record;
    }
    ~LeanHost() { gFilterRecord = nullptr; }
    LeanHost(const LeanHost&) = delete;
    LeanHost& operator=(const LeanHost&) = delete;

    size_t Size() const { return static_cast<size_t>(fSide) * static_cast<size_t>(fSide) * 3; }
    cv::Mat Picture() { return cv::Mat(fSide, fSide, CV_8UC3, fPicture.data()); }
    cv::Mat Mask() { return cv::Mat(fSide, fSide, CV_8UC1, fMask.data()); }
    void HasResult() { fResult.resize(Size()); }

    HostFilterRecord record{};

private:
    uint8_t* At(Bytes& bytes, const HostRect16& rect, int32_t planes, int32_t& stride) const
    {
        stride = fSide * planes;
        return bytes.data() + ptrdiff_t{rect.top} * stride + ptrdiff_t{rect.left} * planes;
    }

    int16_t Lend()
    {
        record.sourceBlock = At(fPicture, record.sourceBlockRect, 3, record.sourceStride);
        if (!fResult.empty())
            record.resultBlock = At(fResult, record.resultBlockRect, 3, record.resultStride);
        if (record.maskPresent != 0)
            record.maskBlock = At(fMask, record.maskBlockRect, 1, record.maskStride);
        return kHostNoError;
    }

    static inline LeanHost* fCurrent = nullptr;

    int32_t fSide;
    Bytes fPicture;
    Bytes fMask;
    Bytes fResult;
};

constexpr size_t kRounds = 15;
constexpr int32_t kView = 1000; // pixels on a side of what is seen

void Compare(const char* what, const char* peer, const std::function<void()>& ours,
             const std::function<void()>& theirs, size_t rounds = kRounds)
{
    const std::vector<Bench::Seconds> seconds =
        Bench::TimeRounds(rounds, {{ours}, {theirs}}, Bench::ProcessorSeconds);
    std::printf("%-36s %8.2f x  %8.2f x  %10.2f ms   %s\n", what,
                seconds[1].median / seconds[0].median, seconds[1].best / seconds[0].best,
                1e3 * seconds[0].best, peer);
}

// Blocks into the buffers of a view.
void Blocks()
{
    constexpr int32_t kFactor = 3;
    LeanHost host(kView * kFactor);
    Bytes buffer(static_cast<size_t>(kView) * kView * 3);
    const auto fetch = [&](int32_t factor) {
        BlockOrder order;
        order.blockRect = {0, 0, kView * factor, kView * factor};
        order.factors = {factor, 1};
        order.planes = 3;
        order.source = buffer.data();
        BlockLoop(host.record, order).Run();
    };
    Bytes copied(buffer.size());
    Compare(
        "blocks at 100 %", "memcpy", [&] { fetch(1); },
        [&] { std::memcpy(copied.data(), buffer.data(), buffer.size()); });
    cv::Mat small;
    Compare(
        "blocks at 33 %", "OpenCV resize, nearest", [&] { fetch(kFactor); },
        [&] {
            cv::resize(host.Picture(), small, {kView, kView}, 0, 0, cv::INTER_NEAREST);
        });
    host.record.maskPresent = host.record.maskAutomatic = 1;
    cv::Mat old(kView, kView, CV_8UC3, cv::Scalar(9, 9, 9)), mask, rest, over, under;
    Compare(
        "blocks at 33 %, over by a mask", "OpenCV resize, multiply, add", [&] { fetch(kFactor); },
        [&] {
            cv::resize(host.Picture(), small, {kView, kView}, 0, 0, cv::INTER_NEAREST);
            cv::resize(host.Mask(), mask, {kView, kView}, 0, 0, cv::INTER_NEAREST);
            cv::cvtColor(mask, mask, cv::COLOR_GRAY2BGR);
            cv::bitwise_not(mask, rest);
            cv::multiply(small, mask, over, 1.0 / 255);
            cv::multiply(old, rest, under, 1.0 / 255);
            cv::add(over, under, old);
        });
    Bytes shown(static_cast<size_t>(kView) * kView * 4);
    Compare(
        "samples as display pixels", "OpenCV cvtColor",
        [&] {
            for (int32_t y = 0; y < kView; ++y)
                ShowRow(shown.data() + ptrdiff_t{y} * kView * 4,
                        {buffer.data() + ptrdiff_t{y} * kView * 3, nullptr, kView, 3, 8});
        },
        [&] {
            cv::Mat to(kView, kView, CV_8UC4, shown.data());
            cv::cvtColor(cv::Mat(kView, kView, CV_8UC3, buffer.data()), to, cv::COLOR_RGB2BGRA);
        });
}

class GlowPreview final : public PPreviewFilter {
public:
    bool FilterPreview(const PreviewPixels& source, const PreviewPixels& result) override
    {
        SoftGlow::Glow(settings, source.depth, source.planes, source.planes,
                       {source.bytes, source.stride, source.width, source.height}, 0, 0,
                       {result.bytes, result.stride, result.width, result.height});
        return true;
    }
    SoftGlow::Settings settings;
};

// From a change of the settings until the filter's work is on the screen.
void Turns(int32_t side, bool filters)
{
    LeanHost host(4 * side);
    GlowPreview glow;
    const auto units = static_cast<double>(side);
    ControlPanel panel({units, units});
    PPreviewPane& pane =
        *panel.AppendChild(std::make_unique<PPreviewPane>(Kesto::Rect{0, 0, units, units}));
    pane.SetFilter(filters ? &glow : nullptr);
    pane.StartPreview();
    Bytes from(static_cast<size_t>(side) * static_cast<size_t>(side) * 3), to(from.size());
    const std::string what = (filters ? "a slider's step, " : "fetch and paint, ") +
                             std::to_string(side) + " x " + std::to_string(side);
    Compare(
        what.c_str(), "memcpy",
        [&] {
            if (filters)
                pane.SettingsChanged();
            else
                pane.SetFilter(nullptr); // all of it is dirty
            pane.Idle();
            panel.UpdateNow();
        },
        [&] { std::memcpy(to.data(), from.data(), from.size()); });
}

void Filter(int32_t side)
{
    LeanHost host(side);
    host.HasResult();
    constexpr int32_t kRadius = 12, kPasses = 3;
    constexpr double kAmount = 0.6;
    const cv::Mat picture = host.Picture();
    cv::Mat light, spare, glow;
    const std::string what = "soft glow, " + std::to_string(side) + " x " + std::to_string(side);
    Compare(
        what.c_str(), "OpenCV blur, multiply, addWeighted",
        [&] {
            intptr_t data = 0;
            int16_t result = 0;
            for (const int16_t selector : {kFilterPrepare, kFilterStart, kFilterFinish})
                EntrySoftGlow(selector, &host.record, &data, &result);
        },
        [&] {
            picture.copyTo(light);
            for (int n = 0; n < kPasses; ++n) {
                cv::blur(light, spare, {2 * kRadius / kPasses + 1, 2 * kRadius / kPasses + 1});
                cv::swap(light, spare);
            }
            cv::bitwise_not(light, light);
            cv::bitwise_not(picture, spare);
            cv::multiply(light, spare, glow, 1.0 / 255);
            cv::bitwise_not(glow, glow);
            cv::addWeighted(picture, 1 - kAmount, glow, kAmount, 0, glow);
        },
        side > 2000 ? 3 : kRounds);
}

} // namespace

int main()
{
    cv::setNumThreads(1);
    std::printf("%-36s %10s  %10s  %13s   peer\n", "preview, 24 bits", "median", "best", "ours");
    Blocks();
    Turns(kView, false);
    Turns(kView, true);
    Turns(320, true);
    Filter(1024);
    Filter(8192);
}
