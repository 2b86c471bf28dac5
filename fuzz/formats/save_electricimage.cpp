// Saves any picture and opens what was written: it must come back.
#include "support/alert_recorder.h"

#include "inputs.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Testing;
    if (size < SaveInput::kHead)
        return 0;
    const SaveInput input{data[0], data[1], data[2]};
    constexpr int kModes[] = {kHostModeGrayscale, kHostModeIndexed, kHostModeRGB, kHostModeRGB};
    constexpr int kPlanes[] = {1, 1, 3, 4};
    const int kind = input.kind % 4;
    Picture picture(kModes[kind], 1 + input.width, 1 + input.height % 32, kPlanes[kind]);
    const auto samples = std::span(data, size).subspan(SaveInput::kHead);
    std::copy_n(samples.begin(), std::min(samples.size(), picture.samples.size()), picture.samples.begin());

    AlertRecorder alerts;
    ScriptableHost host;
    host.noting = false;
    Require(host.Save(picture) == Outcome{});
    Require(host.Open(Bytes(host.file)) == Outcome{});
    Require(host.document.samples == picture.samples && host.document.width == picture.width);
    host.Call(kFormatUnload);
    Require(host.Misuse().empty() && host.Buffers() == 0 && host.OpenFiles() == 0);
    return 0;
}
