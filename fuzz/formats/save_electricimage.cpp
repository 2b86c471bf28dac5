// Saves any picture and opens what was written: it must come back.
//
//   0   1  grey, indexed, RGB or RGBA
//   1   2  width and height
//   3      samples
#include "support/alert_capture.h"
#include "support/scriptable_host.h"

#include <algorithm>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Testing;
    constexpr size_t kHead = 3;
    if (size < kHead)
        return 0;
    constexpr int kModes[] = {kHostModeGrayscale, kHostModeIndexed, kHostModeRGB, kHostModeRGB};
    constexpr int kPlanes[] = {1, 1, 3, 4};
    const int kind = data[0] % 4;
    Picture picture(kModes[kind], 1 + data[1], 1 + data[2] % 32, kPlanes[kind]);
    const auto samples = std::span(data, size).subspan(kHead);
    std::copy_n(samples.begin(), std::min(samples.size(), picture.samples.size()),
                picture.samples.begin());

    AlertCapture alerts;
    ScriptableHost host;
    host.noting = false;
    const bool returns =
        host.Save(picture) == Outcome{} && host.Open(Bytes(host.file)) == Outcome{} &&
        host.document.samples == picture.samples && host.document.width == picture.width;
    host.Call(kFormatUnload);
    if (!returns || !host.Misuse().empty() || host.Buffers() != 0 || host.OpenFiles() != 0)
        std::abort();
    return 0;
}
