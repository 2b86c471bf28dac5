#include "driver/selector_names.h"

#include "lumograph/selectors.h"

#include <array>

namespace Host {
namespace {

constexpr std::array<const char*, kFormatSelectorCount> kNames = {"about",
                                                                  "read prepare",
                                                                  "read start",
                                                                  "read continue",
                                                                  "read finish",
                                                                  "options prepare",
                                                                  "options start",
                                                                  "options continue",
                                                                  "options finish",
                                                                  "estimate prepare",
                                                                  "estimate start",
                                                                  "estimate continue",
                                                                  "estimate finish",
                                                                  "write prepare",
                                                                  "write start",
                                                                  "write continue",
                                                                  "write finish",
                                                                  "filter file",
                                                                  "(none)",
                                                                  "(none)",
                                                                  "extension 20",
                                                                  "extension 21",
                                                                  "extension 22",
                                                                  "extension 23",
                                                                  "load",
                                                                  "unload",
                                                                  "extension 26",
                                                                  "forwarded 27",
                                                                  "forwarded 28",
                                                                  "forwarded 29",
                                                                  "forwarded 30",
                                                                  "forwarded 31",
                                                                  "forwarded 32",
                                                                  "forwarded 33",
                                                                  "extension 34",
                                                                  "2nd read start",
                                                                  "2nd read continue",
                                                                  "2nd read finish",
                                                                  "2nd write start",
                                                                  "2nd write continue",
                                                                  "2nd write finish"};

} // namespace

const char* SelectorName(int16_t selector)
{
    const bool known = selector >= 0 && selector < kFormatSelectorCount;
    return known ? kNames[static_cast<size_t>(selector)] : "(none)";
}

} // namespace Host
