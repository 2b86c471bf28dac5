#include "formats/electricimage/choose_frame.h"

#include "formats/electricimage/format_electricimage.h"
#include "formats/electricimage/frame_dialog.h"

#include <utility>

namespace Project {

uint32_t gFrameCount = 0;
uint32_t* gFrameResult = nullptr;
HostFormatRecord* gFrameRecord = nullptr;

namespace {

std::unique_ptr<Kesto::CPluginDialog> MakeFrameDialog()
{
    return PDialogElectricImage::Make();
}

FrameDialogMaker gFrameDialogMaker = MakeFrameDialog;

// What the dialog works on. It points into the caller's frame, so it ends with the scope, also when
// the dialog throws.
class DialogScope {
public:
    DialogScope(HostFormatRecord* record, uint32_t frameCount, uint32_t* frame)
    {
        gFrameCount = frameCount;
        gFrameResult = frame;
        gFrameRecord = record;
    }
    ~DialogScope()
    {
        gFrameResult = nullptr;
        gFrameRecord = nullptr;
    }
    DialogScope(const DialogScope&) = delete;
    DialogScope& operator=(const DialogScope&) = delete;
};

} // namespace

FrameDialogMaker GetFrameDialogMaker()
{
    return gFrameDialogMaker;
}

FrameDialogMaker SetFrameDialogMaker(FrameDialogMaker maker)
{
    return std::exchange(gFrameDialogMaker, maker);
}

int16_t ChooseFrame(HostFormatRecord* record, uint32_t frameCount, uint32_t* frame)
{
    auto* format = dynamic_cast<PFormatElectricImage*>(Kesto::CProcess::Current());
    if (format == nullptr)
        return kHostUserCanceled; // nobody is there to ask
    const DialogScope scope(record, frameCount, frame);
    return format->RunDialog() ? int16_t{kHostNoError} : int16_t{kHostUserCanceled};
}

} // namespace Project
