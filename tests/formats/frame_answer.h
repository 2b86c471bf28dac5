// Answers the frame dialog in the user's place while it lives.
#pragma once

#include "formats/electricimage/choose_frame.h"
#include "plugin/frame/plugin_dialog.h"

#include <optional>

namespace Testing {

class FrameAnswer {
public:
    // A frame number to accept, or nothing to cancel.
    explicit FrameAnswer(std::optional<uint32_t> frame)
        : fBefore(Project::SetFrameDialogMaker(Make)), fFrame(frame)
    {
        gAnswer = this;
    }
    ~FrameAnswer() { Project::SetFrameDialogMaker(fBefore); }
    FrameAnswer(const FrameAnswer&) = delete;
    FrameAnswer& operator=(const FrameAnswer&) = delete;

    int asked = 0;
    uint32_t offered = 0; // the frame that the dialog began with
    uint32_t range = 0;   // and how many there were

private:
    class Dialog : public Kesto::CPluginDialog {
    public:
        void TakeState(const Kesto::PluginSettings&) override {}
        void StoreState(Kesto::PluginSettings&) override {}
        bool RunModal() override
        {
            ++gAnswer->asked;
            gAnswer->range = Project::gFrameCount;
            gAnswer->offered = *Project::gFrameResult;
            *Project::gFrameResult = gAnswer->fFrame.value_or(gAnswer->offered);
            return gAnswer->fFrame.has_value();
        }
    };
    static std::unique_ptr<Kesto::CPluginDialog> Make() { return std::make_unique<Dialog>(); }

    static inline FrameAnswer* gAnswer = nullptr;
    Project::FrameDialogMaker fBefore;
    std::optional<uint32_t> fFrame;
};

} // namespace Testing
