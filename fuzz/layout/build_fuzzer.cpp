// Any text to views, and, if they aren't too large, to pixels: a text is refused with an exception
// or drawn. The first two bytes say what the contents are resized to.
#include "vex/place.h"
#include "vex/show.h"

#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>

namespace {

constexpr double kLargestDrawn = 2000; // units; a picture is drawn in a moment

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const Vex::CSourceText source(
        "fuzz", std::string(reinterpret_cast<const char*>(data) + 2, size - 2).c_str());
    try {
        const Vex::CBuiltLayout layout(source, {Kesto::Point{data[0] * 4.0, data[1] * 4.0}, 1.0});
        Vex::PlacesOf(layout);
        Kesto::CContext& root = layout.Root();
        if (root.GetBounds().Width() <= kLargestDrawn && root.GetBounds().Height() <= kLargestDrawn)
            Vex::Draw(layout, true);
    } catch (const std::runtime_error&) {
    }
    return 0;
}
