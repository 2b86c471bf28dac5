#include "dialogs/preview/block_loop.h"

#include "plugin/frame/lent_block.h"

#include "lumograph/results.h"

#include <algorithm>

namespace Project {
namespace {

constexpr int32_t kOne = 0x10000;   // 1.0 in 16.16 fixed point
constexpr int32_t kMostPlanes = 56; // of a document, with all that belongs to it

int32_t SumOf(int16_t colours, int16_t transparency, int16_t layerMask, int16_t invert)
{
    return colours + transparency + layerMask + invert;
}

bool IsDepth(int32_t depth)
{
    return depth == 8 || depth == 16 || depth == 32;
}

HostRect16 Moved(const HostRect16& rect, const HostRect16& by)
{
    return ToHostRect(
        {rect.left + by.left, rect.top + by.top, rect.right + by.right, rect.bottom + by.bottom});
}

BlockOutcome OutcomeOf(int16_t code)
{
    switch (code) {
    case kHostNoError:
        return BlockOutcome::kDone;
    case kHostUserCanceled:
        return BlockOutcome::kUserCancelled;
    case kHostMemoryFull:
        return BlockOutcome::kNoMemory;
    default:
        return BlockOutcome::kFailed;
    }
}

} // namespace

BlockLoop::BlockLoop(HostFilterRecord& record, const BlockOrder& order)
    : fRecord(record), fOrder(order), fSavedOutRect(record.resultBlockRect),
      fSavedMaskRect(record.maskBlockRect), fDepth(record.depth),
      fMaskPresent(record.maskPresent != 0), fApplies(fMaskPresent && record.maskAutomatic != 0)
{
}

BlockLoop::~BlockLoop()
{
    fRecord.resultBlockRect = fSavedOutRect;
    if (fMaskPresent)
        fRecord.maskBlockRect = fSavedMaskRect;
}

BlockOutcome BlockLoop::Run()
{
    const PixelRect& all = fOrder.blockRect;
    if (all.IsEmpty())
        return BlockOutcome::kDone;
    if (fRecord.fetchBlocks == nullptr || !IsDepth(fDepth) || !AskForPlanes())
        return BlockOutcome::kFailed;
    AskForTarget();
    int32_t side = std::max(all.right - all.left, all.bottom - all.top);
    if (fOrder.mostBlockSide > 0)
        side = std::min(side, fOrder.mostBlockSide);
    for (int32_t top = all.top; top < all.bottom; top += side)
        for (int32_t left = all.left; left < all.right; left += side) {
            const PixelRect block = Intersect({left, top, left + side, top + side}, all);
            if (const BlockOutcome outcome = Fetch(block); outcome != BlockOutcome::kDone)
                return outcome;
            // A block that came while something changed is out of date, so it isn't copied.
            if (fOrder.shouldStop && fOrder.shouldStop())
                return BlockOutcome::kStopped;
            if (!Copy(block))
                return BlockOutcome::kFailed;
        }
    return BlockOutcome::kDone;
}

// False for numbers of planes that no document has.
bool BlockLoop::AskForPlanes()
{
    int32_t source = fOrder.planes;
    int32_t result = fOrder.planes;
    const bool hasMore = fRecord.inputTransparency != 0 || fRecord.inputLayerMask != 0;
    if (fRecord.floatingFlag == 0 && hasMore) {
        source = SumOf(fRecord.inputColorPlanes, fRecord.inputTransparency, fRecord.inputLayerMask,
                       fRecord.inputInvert);
        result = SumOf(fRecord.outputColorPlanes, fRecord.outputTransparency,
                       fRecord.outputLayerMask, fRecord.outputInvert);
    }
    if (fOrder.planesOnly)
        source = fOrder.planes;
    const auto isCount = [](int32_t planes) { return planes >= 1 && planes <= kMostPlanes; };
    if (fOrder.planes < 1 || source < fOrder.planes || !isCount(source) || !isCount(result))
        return false;
    fSamples = source;
    if (fRecord.inputColorPlanes > 0 && fRecord.inputTransparency >= 0) {
        if (fRecord.inputTransparency > 0)
            fTransparency = fRecord.inputColorPlanes;
        if (fRecord.inputLayerMask > 0)
            fLayerMask = fRecord.inputColorPlanes + fRecord.inputTransparency;
    }
    fRecord.sourceFirstPlane = fRecord.resultFirstPlane = 0;
    fRecord.sourceLastPlane = static_cast<int16_t>(source - 1);
    fRecord.resultLastPlane = static_cast<int16_t>(result - 1);
    return true;
}

void BlockLoop::AskForTarget()
{
    AskForBlocks(Moved(fRecord.targetRect, fOrder.offset));
    fRecord.inputRate = fRecord.outputRate = kOne;
    fRecord.sourceFill = fRecord.resultFill = fRecord.maskFill =
        static_cast<int16_t>(fOrder.padding);
}

// The mask goes with the source, block by block or all at once.
void BlockLoop::AskForBlocks(const HostRect16& rect)
{
    fSourceRect = fRecord.sourceBlockRect = rect;
    if (fMaskPresent)
        fRecord.maskBlockRect = rect;
}

BlockOutcome BlockLoop::Fetch(const PixelRect& block)
{
    fRecord.resultBlockRect = ToHostRect(block);
    if (fOrder.useInRect)
        AskForBlocks(fRecord.resultBlockRect);
    return OutcomeOf(fRecord.fetchBlocks());
}

// False for a block that the host hasn't lent whole.
bool BlockLoop::Copy(const PixelRect& block)
{
    const Kesto::CLentBlock source{
        fRecord.sourceBlock, fRecord.sourceStride, fSourceRect, 0, fSamples - 1, fDepth};
    const std::optional<BlockSamples> mask = fApplies ? Mask() : std::nullopt;
    if (!source.IsWhole() || (fApplies && !mask))
        return false;
    const BlockSamples* const over = mask && fOrder.blends ? &*mask : nullptr;
    if (mask && fOrder.mask != nullptr) {
        const auto width = static_cast<size_t>(ScaledSize(fOrder.blockRect, fOrder.factors).width);
        CopyBlock(*mask, nullptr, block,
                  {fOrder.mask, width, 1, fOrder.blockRect, fOrder.factors, 1, 8});
    }
    CopyPlanes(block, 0, fOrder.planes, fOrder.source, over);
    if (fTransparency > 0)
        CopyPlanes(block, fTransparency, 1, fOrder.transparency, over);
    if (fLayerMask > 0)
        CopyPlanes(block, fLayerMask, 1, fOrder.layerMask, over);
    return true;
}

void BlockLoop::CopyPlanes(const PixelRect& block, int32_t firstSample, int32_t samples,
                           uint8_t* to, const BlockSamples* mask)
{
    if (to == nullptr || firstSample + samples > fSamples)
        return;
    const size_t sample = static_cast<size_t>(fDepth) / 8;
    const size_t pixel = static_cast<size_t>(samples) * sample;
    const auto width = static_cast<size_t>(ScaledSize(fOrder.blockRect, fOrder.factors).width);
    const BlockSamples from{static_cast<const uint8_t*>(fRecord.sourceBlock) +
                                static_cast<size_t>(firstSample) * sample,
                            static_cast<size_t>(fRecord.sourceStride),
                            static_cast<size_t>(fSamples) * sample, FromHostRect(fSourceRect)};
    CopyBlock(from, mask, block,
              {to, width * pixel, pixel, fOrder.blockRect, fOrder.factors, samples, fDepth});
}

std::optional<BlockSamples> BlockLoop::Mask() const
{
    const Kesto::CLentBlock mask{fRecord.maskBlock, fRecord.maskStride, fSourceRect, 0, 0, 8};
    if (!mask.IsWhole())
        return std::nullopt;
    return BlockSamples{static_cast<const uint8_t*>(fRecord.maskBlock),
                        static_cast<size_t>(fRecord.maskStride), 1, FromHostRect(fSourceRect)};
}

} // namespace Project
