// How a preview is brought up to date: fetch, filter, picture.
#include "dialogs/preview/preview_globals.h"
#include "dialogs/preview/preview_pane.h"

#include "pixels/pixmaps/display_view.h"
#include "platform/system/machine.h"
#include "view/process/executable.h"
#include "view/tree/context.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <cstring>

namespace Project {

using namespace Kesto;

namespace {

constexpr int32_t kMostColours = 4;

size_t BytesOf(const DocumentSize& size, int32_t samples, int32_t depth)
{
    return static_cast<size_t>(size.width) * static_cast<size_t>(size.height) *
           static_cast<size_t>(samples) * static_cast<size_t>(depth / 8);
}

// A sample as 0 to 255; 16 bits are 0 to 32768.
uint8_t ShownSample(const uint8_t* from, int32_t depth)
{
    if (depth == 8)
        return *from;
    if (depth == 16) {
        uint16_t wide = 0;
        std::memcpy(&wide, from, sizeof wide);
        return static_cast<uint8_t>((std::min<uint32_t>(wide, 0x8000) * 255 + 0x4000) >> 15);
    }
    float real = 0;
    std::memcpy(&real, from, sizeof real);
    return static_cast<uint8_t>((real > 0 ? std::min(real, 1.0F) : 0.0F) * 255 + 0.5F);
}

uint8_t OverWhite(uint32_t sample, uint32_t alpha)
{
    return static_cast<uint8_t>((sample * alpha + 255 * (255 - alpha) + 127) / 255);
}

} // namespace

void PPreviewPane::OpenSuites()
{
    if (hasSuites || gFilterRecord == nullptr)
        return;
    hasSuites = true;
    suites.SetSource(gFilterRecord->basicSuite);
    bufferSuite = suites.Find<HostBufferSuite>(kHostBufferSuiteName, kHostBufferSuiteNameVersion);
    colorSpaceSuite = suites.Find(kHostColorSpaceSuiteName, kHostColorSpaceSuiteVersion);
}

bool PPreviewPane::AskProgress()
{
    const auto* const run = dynamic_cast<const CExecutable*>(GetContext());
    return IsDisposed() || changes != runStamp || (run != nullptr && run->IsDone());
}

// Buffers for blockRect. False, with noMemory set and the buffers empty, when there is no memory.
bool PPreviewPane::PrepareBuffers()
{
    const HostFilterRecord& record = *gFilterRecord;
    const DocumentSize size = ScaledSize(blockRect, factors);
    const size_t plane = BytesOf(size, 1, depth);
    hasResult = false;
    const auto keep = [&](PreviewBuffer& buffer, bool wanted, size_t bytes) {
        if (wanted)
            return buffer.Allocate(bufferSuite, bytes);
        buffer.Free();
        return true;
    };
    const bool masked = record.maskPresent != 0 && record.maskAutomatic != 0;
    if (keep(maskBuffer, masked, BytesOf(size, 1, 8)) &&
        keep(sourceBuffer, true, BytesOf(size, planes, depth)) &&
        keep(resultBuffer, filter != nullptr, BytesOf(size, planes, depth)) &&
        keep(transparencyBuffer, record.inputTransparency > 0 && !planesOnly, plane) &&
        keep(layerMaskBuffer, record.inputLayerMask > 0 && !planesOnly, plane))
        return true;
    for (PreviewBuffer* const buffer :
         {&sourceBuffer, &resultBuffer, &transparencyBuffer, &layerMaskBuffer, &maskBuffer})
        buffer->Free();
    noMemory = true;
    return false;
}

int PPreviewPane::FetchPreview()
{
    HostFilterRecord* const record = gFilterRecord;
    if (record == nullptr)
        return 0;
    const CViewHold hold(*this); // the host can end the dialog meanwhile
    OpenSuites();
    const bool isDepth = record->depth == 8 || record->depth == 16 || record->depth == 32;
    planes = record->inputColorPlanes;
    depth = record->depth;
    if (!isDepth || planes < 1 || planes > kMostColours) {
        sourceFailed = true;
        return 0;
    }
    if (!PrepareBuffers())
        return 0;
    const BlockOrder order{.blockRect = blockRect,
                           .factors = factors,
                           .planes = planes,
                           .planesOnly = planesOnly,
                           .useInRect = useInRect,
                           .padding = padding,
                           .offset = offset,
                           .source = sourceBuffer.Bytes(),
                           .transparency = transparencyBuffer.Bytes(),
                           .layerMask = layerMaskBuffer.Bytes(),
                           .mask = maskBuffer.Bytes(),
                           .blends = false, // the filter wants all of the source
                           .shouldStop = [this] { return AskProgress(); }};
    runStamp = changes;
    const BlockOutcome outcome = BlockLoop(*record, order).Run();
    sourceDirty = outcome != BlockOutcome::kDone;
    userCancelled = outcome == BlockOutcome::kUserCancelled;
    gHostGaveUp = outcome == BlockOutcome::kNoMemory;
    sourceFailed = outcome == BlockOutcome::kFailed;
    noMemory = noMemory || gHostGaveUp;
    return userCancelled ? -1 : 0;
}

void PPreviewPane::RunFilter()
{
    hasResult = false;
    resultDirty = false;
    if (filter == nullptr || resultBuffer.Bytes() == nullptr)
        return;
    const DocumentSize size = ScaledSize(blockRect, factors);
    const ptrdiff_t stride = static_cast<ptrdiff_t>(size.width) * planes * (depth / 8);
    PreviewPixels source{sourceBuffer.Bytes(), stride, size.width, size.height, planes, depth,
                         GetImageScale()};
    PreviewPixels result = source;
    result.bytes = resultBuffer.Bytes();
    hasResult = filter->FilterPreview(source, result);
    if (hasResult && maskBuffer.Bytes() != nullptr)
        BlendOver(result.bytes, source.bytes, maskBuffer.Bytes(),
                  static_cast<size_t>(size.width) * static_cast<size_t>(size.height), planes,
                  depth);
}

// The order of the fields matters: a run can be ended from within, and then what it set is what
// holds.
void PPreviewPane::Idle()
{
    const bool waits = sourceFailed || userCancelled || noMemory;
    if (isRunning || waits || !showsPreview || gFilterRecord == nullptr)
        return;
    if (!sourceDirty && (draggingPreview || !resultDirty))
        return;
    const CViewHold hold(*this);
    isRunning = true;
    if (sourceDirty) {
        const DocumentSize document{gFilterRecord->documentWidth, gFilterRecord->documentHeight};
        const int32_t reach = filter != nullptr ? std::max(filter->PreviewReach(), 0) : 0;
        const int32_t wider =
            std::max(visibleRect.right - visibleRect.left, visibleRect.bottom - visibleRect.top);
        blockRect =
            GrownInDocument(visibleRect, std::max(reach, wider / 4), document, factors.source);
        FetchPreview();
        scaleChanged = false;
    }
    if (!hold.IsOver() && !sourceDirty && !draggingPreview)
        RunFilter();
    isRunning = false;
    if (!hold.IsOver())
        ShowResult();
}

void PPreviewPane::ShowResult()
{
    isDirty = true;
    InvalidateAll();
}

const PreviewBuffer& PPreviewPane::ShownBuffer() const
{
    return hasResult && !draggingPreview ? resultBuffer : sourceBuffer;
}

// The picture on the screen, 32 bits a pixel, with the document's transparency over white.
void PPreviewPane::MakePicture()
{
    isDirty = false;
    const uint8_t* from = ShownBuffer().Bytes();
    if (from == nullptr) {
        picture.reset();
        return;
    }
    const DocumentSize size = ScaledSize(blockRect, factors);
    if (!picture)
        picture.emplace(size.width, size.height);
    else
        picture->SetSize(size.width, size.height);
    const CBitmapAccess access(picture->GetBitmap(), true);
    const size_t sample = static_cast<size_t>(depth) / 8;
    const size_t green = planes < 3 ? 0 : sample;
    const size_t blue = planes < 3 ? 0 : 2 * sample;
    const uint8_t* alphas = transparencyBuffer.Bytes();
    for (int32_t y = 0; y < size.height; ++y) {
        uint8_t* to = picture->GetBaseAddress() + y * picture->GetBitmap().RowBytes();
        for (int32_t x = 0; x < size.width; ++x, to += 4) {
            const uint32_t alpha = alphas != nullptr ? ShownSample(alphas, depth) : 255;
            to[0] = OverWhite(ShownSample(from + blue, depth), alpha);
            to[1] = OverWhite(ShownSample(from + green, depth), alpha);
            to[2] = OverWhite(ShownSample(from, depth), alpha);
            to[3] = 255;
            from += static_cast<size_t>(planes) * sample;
            alphas += alphas != nullptr ? sample : 0;
        }
    }
}

} // namespace Project
