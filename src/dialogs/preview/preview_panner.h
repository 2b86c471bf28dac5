// CPreviewPanner, which moves the image of a preview with the mouse from a press to the release.
#pragma once

#include "view/tree/view_tracker.h"

namespace Project {
class PPreviewPane;
}

namespace Kesto {

class CPreviewPanner final : public CNonPollingTracker {
public:
    CPreviewPanner(Project::PPreviewPane& pane, const CMouseEvent& press);

    void Begin(const CMouseEvent& event) override;
    void MoveTo(const CMouseEvent& event) override;
    void End(const CMouseEvent& event) override;
    void Abort() override; // the image is where it was

private:
    Project::PPreviewPane* Pane() const;

    Point fStart; // scroll position at the press
};

} // namespace Kesto
