// How a preview is brought up to date: fetch, filter, picture.
#include "dialogs/preview/preview_globals.h"
#include "dialogs/preview/preview_pane.h"
#include "dialogs/preview/preview_picture.h"

#include "pixels/pixmaps/display_view.h"
#include "platform/system/machine.h"
#include "view/process/executable.h"
#include "view/tree/context.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <new>

namespace Project {

using namespace Kesto;

namespace {

constexpr int32_t kMostColours = 4;

size_t BytesOf(const DocumentSize& size, int32_t samples, int32_t depth)
{
    return static_cast<size_t>(size.width) * static_cast<size_t>(size.height) *
           static_cast<size_t>(samples) * static_cast<size_t>(depth / 8);
}

// Says that a run goes on, however it ends.
class RunScope {
public:
    explicit RunScope(bool& running) : fRunning(running) { fRunning = true; }
    ~RunScope() { fRunning = false; }
    RunScope(const RunScope&) = delete;
    RunScope& operator=(const RunScope&) = delete;

private:
    bool& fRunning;
};

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
    FreeBuffers();
    noMemory = true;
    return false;
}

void PPreviewPane::FreeBuffers()
{
    for (PreviewBuffer* const buffer :
         {&sourceBuffer, &resultBuffer, &transparencyBuffer, &layerMaskBuffer, &maskBuffer})
        buffer->Free();
    hasResult = false;
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
        FreeBuffers(); // what they hold has another shape
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
    // Done with before the filter runs: one that throws isn't run again for the same settings.
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
    try {
        hasResult = filter->FilterPreview(source, result);
    } catch (const std::bad_alloc&) {
        noMemory = true;
    }
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
    const RunScope run(isRunning);
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
    const ptrdiff_t sample = depth / 8;
    const uint8_t* alphas = transparencyBuffer.Bytes();
    for (int32_t y = 0; y < size.height; ++y, from += size.width * planes * sample) {
        ShowRow(picture->GetBaseAddress() + y * picture->GetBitmap().RowBytes(),
                {from, alphas, size.width, planes, depth});
        alphas += alphas != nullptr ? size.width * sample : 0;
    }
}

} // namespace Project
