// The gestures and trackers that a view keeps.
#include "view/process/process.h"
#include "view/tree/context.h"
#include "view/tree/view_hold.h"
#include "view/tree/view_tracker.h"

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
    std::unique_ptr<CViewTracker> Make(const CMouseEvent& press) const { return fMaker(press); }

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
    std::unique_ptr<CViewTracker> tracker = record != nullptr ? record->Make(event) : nullptr;
    return tracker != nullptr && RunTracker(std::move(tracker));
}

bool CView::RunTracker(std::unique_ptr<CViewTracker> tracker)
{
    if (fContext == nullptr)
        return false;
    const CViewHold hold(*this);
    // It is moved by the messages of the window; any other runs a loop of its own, here.
    if (dynamic_cast<CNonPollingTracker*>(tracker.get()) != nullptr) {
        fContext->KeepTracker(std::unique_ptr<CNonPollingTracker>(
            static_cast<CNonPollingTracker*>(tracker.release())));
        return true;
    }
    CProcess* const process = CProcess::Current();
    if (process == nullptr)
        return false;
    tracker->Start();
    if (!tracker->IsOver())
        tracker->Run(*process);
    return true;
}

} // namespace Kesto
