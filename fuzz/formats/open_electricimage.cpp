// Opens any bytes as a file, from load to unload, under hosts of many tempers. Whatever the bytes say, the run ends with
// a code that is in the list, and the host has nothing to complain about.
#include "formats/electricimage/choose_frame.h"
#include "plugin/format_dialog.h"
#include "support/alert_recorder.h"
#include "support/ei_file.h"

#include "inputs.h"

#include <algorithm>

namespace Testing {
namespace {

uint8_t gChoice = 0;

class ChoiceDialog : public Kesto::CFormatDialog {
public:
    bool RunModal() override
    {
        *Project::gFrameResult = gChoice;
        return gChoice != 255;
    }
};

std::unique_ptr<Kesto::CFormatDialog> MakeChoice()
{
    return std::make_unique<ChoiceDialog>();
}

void OpenUnder(const OpenInput& input, std::span<const uint8_t> file)
{
    ScriptableHost host;
    host.noting = false;
    host.documentLimit = 1 << 20;
    host.memoryLimit = int64_t{16} << (input.flags >> 4);
    host.playback.playMode = (input.flags & OpenInput::kSilent) != 0 ? kHostPlaySilent : 0;
    host.record.quietOpen = (input.flags & OpenInput::kQuiet) != 0;
    if ((input.flags & OpenInput::kNoHandles) != 0) {
        static intptr_t word = 0; // the module keeps the block; one is enough
        host.record.handleSuite = nullptr;
        host.data = word;
        host.Call(kFormatOptionsStart);
        word = host.data;
    }
    if ((input.flags & OpenInput::kResident) != 0)
        host.Call(kFormatLoad);
    if (input.fault != 0)
        host.fault = Fault{.at = input.fault - 1};
    gChoice = input.frame;
    const Outcome outcome = host.Open(file);
    constexpr int16_t kCodes[] = {
        0, kHostFailed, kHostIoError, kHostMemoryFull, kHostUserCanceled, kHostBadMode, kHostCannotRead};
    Require(std::ranges::find(kCodes, outcome.code) != std::end(kCodes));
    Require(outcome.code == 0 || input.fault != 0 || outcome.code != kHostIoError);
    Require(outcome.code != 0 || host.RowsExchanged() == host.record.rowCount || input.fault != 0);
    Require(host.LockedBuffers() == 0 && host.Buffers() <= 1);
    host.fault.reset();
    host.Call(kFormatUnload);
    Require(host.Misuse().empty() && host.SuitesHeld() == 0);
}

// What came before must not show in the next file.
void OpenASoundOne()
{
    static const Bytes file =
        OneFrameFile({.width = 2, .height = 2, .packing = 1, .pixels = {0x02, 1, 2, 3, 0x80, 4, 5, 6}});
    ScriptableHost host;
    Require(host.Open(file) == Outcome{});
    Require(host.document.samples == Bytes{1, 2, 3, 1, 2, 3, 1, 2, 3, 4, 5, 6});
    host.Call(kFormatUnload);
}

} // namespace
} // namespace Testing

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Testing;
    if (size < OpenInput::kHead)
        return 0;
    AlertRecorder alerts;
    Project::SetFrameDialogMaker(MakeChoice);
    OpenUnder({data[0], data[1], data[2]}, std::span(data, size).subspan(OpenInput::kHead));
    OpenASoundOne();
    return 0;
}
