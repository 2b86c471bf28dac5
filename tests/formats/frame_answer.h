// Answers the frame dialog in the user's place while it lives.
#pragma once

#include "formats/electricimage/choose_frame.h"
#include "plugin/format_dialog.h"

#include <optional>

namespace Testing {

class FrameAnswer {
public:
    // A frame number to accept, or nothing to cancel.
    explicit FrameAnswer(std::optional<uint32_t> frame) : fBefore(Project::SetFrameDialogMaker(Make))
    {
        gFrame = frame;
        gAsked = 0;
        gOffered = gRange = 0;
    }
    ~FrameAnswer() { Project::SetFrameDialogMaker(fBefore); }
    FrameAnswer(const FrameAnswer&) = delete;
    FrameAnswer& operator=(const FrameAnswer&) = delete;

    int Asked() const { return gAsked; }
    uint32_t Offered() const { return gOffered; } // the frame that the dialog began with
    uint32_t Range() const { return gRange; }     // and how many there were

private:
    class Dialog : public Kesto::CFormatDialog {
    public:
        bool RunModal() override
        {
            ++gAsked;
            gRange = Project::gFrameCount;
            gOffered = *Project::gFrameResult;
            *Project::gFrameResult = gFrame.value_or(gOffered);
            return gFrame.has_value();
        }
    };
    static std::unique_ptr<Kesto::CFormatDialog> Make() { return std::make_unique<Dialog>(); }

    static inline std::optional<uint32_t> gFrame;
    static inline int gAsked = 0;
    static inline uint32_t gOffered = 0;
    static inline uint32_t gRange = 0;
    Project::FrameDialogMaker fBefore;
};

} // namespace Testing
