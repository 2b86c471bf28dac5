// What the frame dialog costs, in processor time and without a display: opening a frame by way of
// the dialog, where a robot types its number and presses Return in the host's turns, against a
// quiet open of a file of that frame alone.
#include "formats/lean_host.h"
#include "formats/pictures.h"
#include "rounds.h"

#include "lumograph/window_requests.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace Bench {
namespace {

constexpr int kSide = 256;
constexpr uint32_t kFrames = 200;
constexpr size_t kRounds = 60;
constexpr double kAim = 5.0; // milliseconds more

// ----------------------------------------------------------------- A robot in the host's turns

std::string gNumber;  // what it types; "" for nothing
int gTurn = 0;        // of the dialog that is up
double gPainted = 0;  // when the first turn came, all painted
double gFirstRow = 0; // when the first row was delivered

uint8_t TakeTurn(HostInputEvent* event)
{
    constexpr uint32_t kKeyDown = 0x100;
    constexpr uint32_t kKeyUp = 0x101;
    constexpr uint64_t kReturn = 13;
    *event = {};
    switch (gTurn++) {
    case 0:
        gPainted = ProcessorSeconds();
        event->message = kHostRequestOwnTime;
        return 1;
    case 1: // the press that closed the dialog before this one was never seen to end
        event->message = kKeyUp;
        event->first = kReturn;
        return 1;
    case 2:
        event->message = kHostRequestType;
        event->second = reinterpret_cast<intptr_t>(gNumber.c_str());
        return 1;
    case 3:
        event->message = kKeyDown;
        event->first = kReturn;
        return 1;
    default:
        return 0;
    }
}

int32_t Hook(HostViewInfoCallback, int32_t, int32_t, int32_t)
{
    return kHostNoError;
}

// The robot leaves the user's settings alone.
int32_t GetProperty(uint32_t, uint32_t key, int32_t, intptr_t* value, void**)
{
    *value = key == kPropertySettingsOff ? 1 : key == kPropertyUiScale ? 100 : 0;
    return kHostNoError;
}

int32_t AcquireSuite(const char* name, int32_t, const void** suite)
{
    static constexpr HostUIHooksSuite4 kHooks = {
        kHostUIHooksTableVersion, 3, {}, Hook, Hook, TakeTurn};
    static constexpr HostPropertySuite kProperties = {GetProperty};
    *suite = std::strcmp(name, kHostUIHooksSuiteName) == 0    ? static_cast<const void*>(&kHooks)
             : std::strcmp(name, kHostPropertySuiteName) == 0 ? &kProperties
                                                              : nullptr;
    return *suite != nullptr ? kHostNoError : kHostMissingSuite;
}

int32_t ReleaseSuite(const char*, int32_t)
{
    return kHostNoError;
}

constexpr HostSuiteTable kSuites = {AcquireSuite, ReleaseSuite};
constexpr HostBasicSuite kBasicSuite = {nullptr, &kSuites};

// ------------------------------------------------------------------------------------ The races

// A file of one frame, and one in which it stands so many times.
Bytes OneFrame()
{
    Bytes pixels = PhotoLike(kSide, kSide);
    LeanHost host;
    host.picture = pixels.data();
    host.memoryLimit = 16 << 20;
    host.Save(kSide, kSide);
    host.file.resize(host.fileSize);
    return host.file;
}

Bytes ManyFrames(const Bytes& one)
{
    constexpr size_t kHeader = 6;
    constexpr size_t kCount = 2; // where the number of frames stands, 32 bits
    Bytes many(one.begin(), one.begin() + kHeader);
    for (size_t i = 0; i < 4; ++i)
        many[kCount + i] = static_cast<uint8_t>(kFrames >> (24 - 8 * i));
    for (uint32_t i = 0; i < kFrames; ++i)
        many.insert(many.end(), one.begin() + kHeader, one.end());
    return many;
}

void Prepare(LeanHost& host, const Bytes& file, bool quiet)
{
    host.file = file;
    host.fileSize = file.size();
    host.memoryLimit = 16 << 20;
    host.record.basicSuite = &kBasicSuite;
    host.record.quietOpen = quiet ? 1 : 0;
    host.makeRow = [](int row, uint8_t*) {
        if (row == 0)
            gFirstRow = ProcessorSeconds();
    };
}

// Milliseconds to the painted dialog and to the first row.
struct Marks {
    double painted;
    double firstRow;
};

Marks Open(LeanHost& host, const std::string& number)
{
    gTurn = 0;
    gNumber = number;
    gPainted = 0;
    const double start = ProcessorSeconds();
    host.Open();
    return {(gPainted - start) * 1e3, (gFirstRow - start) * 1e3};
}

double Median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void Compare(const char* words, LeanHost& quiet, LeanHost& asking, bool countsUp)
{
    std::vector<double> painted, quietRow, askedRow;
    for (size_t round = 0; round <= kRounds; ++round) {
        const double plain = Open(quiet, "").firstRow;
        const Marks asked =
            Open(asking, std::to_string(countsUp ? round * kFrames / (kRounds + 1) + 1 : 1));
        if (round == 0)
            continue;
        quietRow.push_back(plain);
        painted.push_back(asked.painted);
        askedRow.push_back(asked.firstRow);
    }
    const double more = Median(askedRow) - Median(quietRow);
    std::printf("%-34s quiet %6.2f ms   painted %6.2f ms   first row %6.2f ms   %5.2f ms more, aim "
                "%.0f\n",
                words, Median(quietRow), Median(painted), Median(askedRow), more, kAim);
}

void Resident(LeanHost& host, int16_t selector)
{
    int16_t result = 0;
    EntryElectricImage(selector, &host.record, &host.data, &result);
}

int RunAll()
{
    const Bytes one = OneFrame();
    const Bytes many = ManyFrames(one);
    LeanHost quiet;
    LeanHost asking;
    Prepare(quiet, one, true);
    Prepare(asking, many, false);
    Compare("module made anew for each open", quiet, asking, false);
    asking.MakeCurrent();
    Resident(asking, kFormatLoad);
    Compare("module resident", quiet, asking, false);
    Compare("module resident, frames 1 to 200", quiet, asking, true);
    Resident(asking, kFormatUnload);
    return 0;
}

} // namespace
} // namespace Bench

int main()
{
    return Bench::RunAll();
}
