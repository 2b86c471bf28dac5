// BlockLoop, which brings the pixels of a part of the document into a preview's buffers, block by
// block, through the filter record.
//
// The record's requests are as before when the loop is over, however it ended, so that the host's
// later calls meet what they left. The host's fetch can reach the event pump: everything here may
// be asked to stop in it, and no pixel of the host is looked at after the next fetch.
#pragma once

#include "dialogs/preview/block_copy.h"

#include "lumograph/records.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

namespace Project {

// What a pane wants.
struct BlockOrder {
    PixelRect blockRect{}; // of the document, to be in the buffers
    PreviewFactors factors{};
    int32_t planes = 0;      // colour planes of the buffer
    bool planesOnly = false; // no plane but these is asked for
    bool useInRect = true;   // the source is asked for by blocks too, and not all at once
    int32_t padding = kHostFillNone;
    HostRect16 offset{};       // added to the target when the source is asked for
    int32_t mostBlockSide = 0; // blocks are no larger; 0: the larger side of blockRect

    // Where the samples go, packed; null for what isn't kept.
    uint8_t* source = nullptr;
    uint8_t* transparency = nullptr;
    uint8_t* layerMask = nullptr;

    // The host's mask, a byte for each pixel, when it is to be applied. Whoever keeps it can blend
    // later what he makes of plain samples.
    uint8_t* mask = nullptr;
    bool blends = true; // the samples over what the buffers hold, by that mask

    // Asked before each block is copied: true breaks the loop off. May be empty.
    std::function<bool()> shouldStop{};
};

enum class BlockOutcome {
    kDone,
    kStopped,       // shouldStop said so
    kUserCancelled, // the host's -128
    kNoMemory,      // its -108
    kFailed,        // any other code, and blocks that are none
};

class BlockLoop {
public:
    // The record outlives the loop. Of its fields only the blocks are read after a fetch; what the
    // document is like is settled before the first one.
    BlockLoop(HostFilterRecord& record, const BlockOrder& order);
    // Gives the record its requests back.
    ~BlockLoop();
    BlockLoop(const BlockLoop&) = delete;
    BlockLoop& operator=(const BlockLoop&) = delete;

    // Runs it, once. What was copied before the end stays in the buffers.
    BlockOutcome Run();

private:
    bool AskForPlanes();
    void AskForTarget();
    BlockOutcome Fetch(const PixelRect& block);
    bool Copy(const PixelRect& block);
    void CopyPlanes(const PixelRect& block, int32_t firstSample, int32_t samples, uint8_t* to,
                    const BlockSamples* mask);
    void AskForBlocks(const HostRect16& rect);
    std::optional<BlockSamples> Mask() const;

    HostFilterRecord& fRecord;
    const BlockOrder& fOrder;
    HostRect16 fSavedOutRect;
    HostRect16 fSavedMaskRect;

    // What was asked for.
    int32_t fDepth;
    int32_t fSamples = 0;      // of a pixel of the source
    int32_t fTransparency = 0; // which sample of a pixel it is; 0 for none
    int32_t fLayerMask = 0;
    bool fMaskPresent;
    bool fApplies; // the mask, if there is one
    HostRect16 fSourceRect{};
};

} // namespace Project
