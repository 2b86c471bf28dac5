// The gestures and trackers that a view keeps.
#include "view/messages/message_ids.h"
#include "view/process/process.h"
#include "view/process/tracker.h"
#include "view/tree/view.h"
#include "view/tree/view_hold.h"

namespace Kesto {
namespace {

// What makes a tracker for a press of a button.
class CTrackerRecord final : public CGesture {
public:
    CTrackerRecord(CObjID button, CView::TrackerMaker maker)
        : fButton(button), fMaker(std::move(maker))
    {
    }
    bool Matches(std::uint32_t kind, std::uint32_t detail) const override
    {
        return kind == kKind_Tracker && detail == fButton.Value();
    }
    std::unique_ptr<CTracker> Make(const CMouseEvent& press) const { return fMaker(press); }

private:
    CObjID fButton;
    CView::TrackerMaker fMaker;
};

} // namespace

void CView::AddRecord(std::unique_ptr<CGesture> record)
{
    record->fNext = std::move(fTrackers);
    fTrackers = std::move(record);
}

void CView::AddTracker(CObjID button, TrackerMaker maker)
{
    AddRecord(std::make_unique<CTrackerRecord>(button, std::move(maker)));
}

void CView::AddGesture(float deltaX, float deltaY)
{
    AddRecord(std::make_unique<CSwipeGesture>(deltaX, deltaY));
}

void CView::AddRotateGesture(float angle)
{
    AddRecord(std::make_unique<CRotateGesture>(angle));
}

void CView::AddMagnifyGesture(float factor)
{
    AddRecord(std::make_unique<CMagnifyGesture>(factor));
}

CGesture* CView::GetTrackerForCodes(std::uint32_t kind, std::uint32_t detail) const
{
    CGesture* record = fTrackers.get();
    while (record != nullptr && !record->Matches(kind, detail))
        record = record->fNext.get();
    return record;
}

bool CView::TrackClick(const CMouseEvent& event)
{
    auto* const record = static_cast<CTrackerRecord*>(
        GetTrackerForCodes(CGesture::kKind_Tracker, event.fButton.Value()));
    CProcess* const process = CProcess::Current();
    if (record == nullptr || process == nullptr)
        return false;
    const CViewHold hold(*this);
    const std::unique_ptr<CTracker> tracker = record->Make(event);
    if (tracker == nullptr)
        return false;
    tracker->Run(*process);
    return true;
}

} // namespace Kesto
