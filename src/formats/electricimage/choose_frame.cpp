#include "formats/electricimage/choose_frame.h"

#include "formats/electricimage/format_electricimage.h"

#include <utility>

namespace Project {

uint32_t gFrameCount = 0;
uint32_t* gFrameResult = nullptr;
HostFormatRecord* gFrameRecord = nullptr;

namespace {

FrameDialogMaker gFrameDialogMaker = nullptr;

}

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
    gFrameCount = frameCount;
    gFrameResult = frame;
    gFrameRecord = record;
    const bool accepted = format->RunDialog();
    gFrameResult = nullptr;
    gFrameRecord = nullptr;
    return accepted ? int16_t{kHostNoError} : int16_t{kHostUserCanceled};
}

} // namespace Project
