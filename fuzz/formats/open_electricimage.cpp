// Opens any bytes as a file, from load to unload, under hosts of many tempers. Whatever the bytes
// say, the run ends with a code that is in the list, and the host has nothing to complain about.
//
//   0   1  four bits: silent, quiet, resident, without handles; above them, how far the host's
//   space of 16 bytes is
//          shifted left
//   1   1  the frame that the user chooses; 255 cancels
//   2   1  0, or the number of the call that fails, from 1
//   3      the file
#include "formats/frame_answer.h"
#include "support/alert_capture.h"
#include "support/ei_file.h"
#include "support/scriptable_host.h"

#include <algorithm>
#include <cstdlib>

namespace Testing {
namespace {

constexpr size_t kHead = 3;

// Preferences can't be stored there, so that no run leaves anything for the next one.
[[maybe_unused]] const int gNoStore = setenv("XDG_CONFIG_HOME", "/proc/no_store", 1);

// Ends the run when something is not as it must be.
void Require(bool condition)
{
    if (!condition)
        std::abort();
}

void OpenUnder(uint8_t temper, uint8_t fault, std::span<const uint8_t> file)
{
    ScriptableHost host;
    host.noting = false;
    host.documentLimit = 1 << 20;
    host.memoryLimit = int64_t{16} << (temper >> 4);
    host.playback.playMode = (temper & 1) != 0 ? kHostPlaySilent : 0;
    host.record.quietOpen = (temper & 2) != 0;
    if ((temper & 8) != 0) {
        static intptr_t word = 0; // the module keeps the block; one is enough
        host.record.handleSuite = nullptr;
        host.data = word;
        host.Call(kFormatOptionsStart);
        word = host.data;
    }
    if ((temper & 4) != 0)
        host.Call(kFormatLoad);
    if (fault != 0)
        host.fault = Fault{.at = fault - 1};
    const Outcome outcome = host.Open(file);
    constexpr int16_t kCodes[] = {0,
                                  kHostFailed,
                                  kHostIoError,
                                  kHostMemoryFull,
                                  kHostUserCanceled,
                                  kHostBadMode,
                                  kHostCannotRead};
    Require(std::ranges::find(kCodes, outcome.code) != std::end(kCodes));
    Require(outcome.code != kHostIoError || fault != 0);
    Require(outcome.code != 0 || host.RowsExchanged() == host.record.rowCount || fault != 0);
    Require(host.LockedBuffers() == 0 && host.Buffers() <= 1);
    host.fault.reset();
    host.Call(kFormatUnload);
    Require(host.Misuse().empty() && host.SuitesHeld() == 0);
}

// What came before must not show in the next file.
void OpenASoundOne()
{
    static const Bytes file = OneFrameFile(
        {.width = 2, .height = 2, .packing = 1, .pixels = {0x02, 1, 2, 3, 0x80, 4, 5, 6}});
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
    if (size < kHead)
        return 0;
    AlertCapture alerts;
    const FrameAnswer answer(data[1] == 255 ? std::nullopt : std::optional<uint32_t>(data[1]));
    OpenUnder(data[0], data[2], std::span(data, size).subspan(kHead));
    OpenASoundOne();
    return 0;
}
