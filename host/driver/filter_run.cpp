#include "driver/filter_run.h"

#include "driver/basic_suite.h"
#include "driver/host_memory.h"
#include "failure.h"

#include <algorithm>

namespace Host {
namespace {

constexpr int32_t kOne = 0x10000; // 1.0 in 16.16 fixed point

HostRect16 Narrow(const HostRect32& rect)
{
    return {static_cast<int16_t>(rect.top), static_cast<int16_t>(rect.left),
            static_cast<int16_t>(rect.bottom), static_cast<int16_t>(rect.right)};
}

BlockRequest RequestOf(const HostRect16& rect, int32_t firstPlane, int32_t lastPlane)
{
    return {{rect.left, rect.top, rect.right, rect.bottom}, firstPlane, lastPlane};
}

void RequireWithin(const BlockRequest& request, const HostRect32& extent)
{
    const HostRect32& rect = request.rect;
    if (rect.left < extent.left || rect.top < extent.top || rect.right > extent.right ||
        rect.bottom > extent.bottom)
        throw Failure("the module wants to change what is beyond the picture: " +
                          std::to_string(rect.left) + ", " + std::to_string(rect.top) + " to " +
                          std::to_string(rect.right) + ", " + std::to_string(rect.bottom),
                      "This is a fault of the module; please report it.", kHostBadParameter);
}

} // namespace

HostRect32 SelectedRect(const Document& mask)
{
    HostRect32 selected{mask.Info().width, mask.Info().height, 0, 0};
    for (int32_t y = 0; y < mask.Info().height; ++y) {
        const uint8_t* const row = mask.Row(y);
        const uint8_t* const end = row + mask.Info().width;
        const uint8_t* const first = std::find_if(row, end, [](uint8_t m) { return m != 0; });
        if (first == end)
            continue;
        const uint8_t* last = end;
        while (last[-1] == 0)
            --last;
        selected = {std::min(selected.left, static_cast<int32_t>(first - row)),
                    std::min(selected.top, y),
                    std::max(selected.right, static_cast<int32_t>(last - row)), y + 1};
    }
    // Nothing selected: the corners that the search began with are no rectangle.
    return selected.right == 0 ? HostRect32{} : selected;
}

FilterRun::FilterRun(const PluginModule& module, const OperationOptions& options,
                     ServedSettings::Pairs settings, const Document& picture, const Document* mask,
                     const std::string& name)
    : DocumentRun(module, options, std::move(settings), "Filtering", "filter " + name),
      fPicture(picture), fMask(mask), fResult(picture)
{
    RequireSides(picture.Info());
    BuildRecord();
}

void FilterRun::BuildRecord()
{
    const PictureInfo& info = fPicture.Info();
    const bool hasAlpha = info.planes == 2 || info.planes == 4;
    fRecord.abortCheck = AbortCheck;
    fRecord.progressReport = ReportProgress;
    fRecord.documentWidth = static_cast<int16_t>(info.width);
    fRecord.documentHeight = static_cast<int16_t>(info.height);
    fRecord.targetRect = Narrow(fMask != nullptr ? SelectedRect(*fMask) : fPicture.Extent());
    fRecord.spaceBudget = Budget();
    fRecord.maskPresent = fRecord.maskAutomatic = fMask != nullptr ? 1 : 0;
    fRecord.filterPlanes = static_cast<int16_t>(info.planes);
    fRecord.fetchBlocks = FetchBlocks;
    fRecord.inputRate = fRecord.outputRate = kOne;
    fRecord.inputTransparency = fRecord.outputTransparency = hasAlpha ? 1 : 0;
    fRecord.inputColorPlanes = fRecord.outputColorPlanes =
        static_cast<int16_t>(info.planes - (hasAlpha ? 1 : 0));
    fRecord.basicSuite = BasicSuite();
    fRecord.depth = static_cast<int32_t>(fPicture.Depth());
}

void FilterRun::AskUser()
{
    Require(kFilterParameters, "filter parameters", &fRecord);
    TakeBlocks(); // of a preview; what it lent for the result is as it was
}

Document FilterRun::Run()
{
    Require(kFilterPrepare, "filter prepare", &fRecord);
    // The prepare has left there what the filter wants beyond the buffers.
    SetMemoryHeadRoom(fRecord.spaceBudget);
    Require(kFilterStart, "filter start", &fRecord);
    try {
        TakeBlocks();
        // The plug-in has read its settings by now, so what it never asked for is a wrong name.
        fSettings.RequireKnown();
        while (WantsBlocks())
            Proceed();
    } catch (...) {
        CallAtEnd(kFilterFinish, "filter finish", &fRecord);
        throw;
    }
    Require(kFilterFinish, "filter finish", &fRecord);
    ReportBooks();
    return std::move(fResult);
}

void FilterRun::Proceed()
{
    LendBlocks();
    Require(kFilterContinue, "filter continue", &fRecord);
    TakeBlocks();
}

bool FilterRun::WantsBlocks() const
{
    return !RequestOf(fRecord.sourceBlockRect, 0, 0).IsEmpty() ||
           !RequestOf(fRecord.resultBlockRect, 0, 0).IsEmpty() ||
           !RequestOf(fRecord.maskBlockRect, 0, 0).IsEmpty();
}

int16_t FilterRun::FetchBlocks()
{
    if (!IsRunning())
        return kHostBadParameter;
    auto& run = Current<FilterRun>();
    return run.Guarded([&run] {
        run.TakeBlocks();
        run.LendBlocks();
    });
}

// Takes over what was lent for the result and ends all loans.
void FilterRun::TakeBlocks()
{
    if (fResultBlock.IsLent())
        fResultBlock.TakeInto(fResult, fPicture, fMask);
    fSourceBlock.Drop();
    fResultBlock.Drop();
    fMaskBlock.Drop();
    fRecord.sourceBlock = fRecord.maskBlock = fRecord.resultBlock = nullptr;
    fRecord.sourceStride = fRecord.maskStride = fRecord.resultStride = 0;
}

void FilterRun::LendBlocks()
{
    const HostFilterRecord& asked = fRecord;
    if (asked.inputRate != kOne || asked.outputRate != kOne)
        throw Failure("the module asks for blocks at another rate than 1.0",
                      "This host serves pixels as they are.", kHostBadParameter);
    const auto lend = [](Block& block, const BlockRequest& request, const Document& document,
                         int16_t fill, const char* which) {
        if (request.IsEmpty())
            return;
        request.Check(document, fill, which);
        block.Lend(document, request, fill);
    };
    lend(fSourceBlock,
         RequestOf(asked.sourceBlockRect, asked.sourceFirstPlane, asked.sourceLastPlane), fPicture,
         asked.sourceFill, "source");
    const BlockRequest result =
        RequestOf(asked.resultBlockRect, asked.resultFirstPlane, asked.resultLastPlane);
    // A source may reach beyond the picture and is filled there; what is written may not.
    if (!result.IsEmpty())
        RequireWithin(result, fPicture.Extent());
    lend(fResultBlock, result, fResult, asked.resultFill, "result");
    if (fMask != nullptr)
        lend(fMaskBlock, RequestOf(asked.maskBlockRect, 0, 0), *fMask, asked.maskFill, "mask");
    fRecord.sourceBlock = fSourceBlock.Bytes();
    fRecord.sourceStride = fSourceBlock.Stride();
    fRecord.resultBlock = fResultBlock.Bytes();
    fRecord.resultStride = fResultBlock.Stride();
    fRecord.maskBlock = fMaskBlock.Bytes();
    fRecord.maskStride = fMaskBlock.Stride();
}

} // namespace Host
