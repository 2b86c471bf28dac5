#include "commands/commands.h"

#include "electricimage/frame_walker.h"
#include "failure.h"

#include <cmath>
#include <cstdio>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

namespace Host {
namespace {

using Json = nlohmann::ordered_json;

// A file can promise four thousand million frames; nobody reads that many lines.
constexpr uint32_t kListedFrames = 10'000;

const char* ModeName(const EIFrameFields& fields)
{
    if (fields.frameType == kEIDepthFrame)
        return "grey";
    return fields.PixelBits() <= 8 ? "indexed" : fields.PixelBits() == 32 ? "RGBA" : "RGB";
}

Json JsonOfFloat(float value)
{
    return std::isfinite(value) ? Json(value) : Json(nullptr);
}

Json JsonOf(const EIFrameReport& frame)
{
    const EIFrameFields& fields = frame.fields;
    Json json = {{"frame", frame.number},
                 {"offset", frame.offset},
                 {"width", fields.Width()},
                 {"height", fields.Height()},
                 {"mode", ModeName(fields)},
                 {"layout", LayoutName(fields)},
                 {"bitDepth", fields.bitDepth},
                 {"alphaDepth", fields.alphaDepth},
                 {"packing", fields.packing == 0 ? "raw" : "runs"},
                 {"bytes", fields.dataSize},
                 {"colours", fields.lutCount}};
    if (frame.range)
        json["range"] = {JsonOfFloat(frame.range->minimum), JsonOfFloat(frame.range->maximum)};
    json["faults"] = frame.faults;
    return json;
}

std::string RangeText(const EIFrameReport& frame)
{
    if (!frame.range)
        return "";
    if (frame.range->minimum == 0 && frame.range->maximum == 0)
        return "  not stored";
    std::array<char, 64> text = {};
    std::snprintf(text.data(), text.size(), "  %g to %g", static_cast<double>(frame.range->minimum),
                  static_cast<double>(frame.range->maximum));
    return text.data();
}

void PrintFrame(const EIFrameReport& frame)
{
    const EIFrameFields& fields = frame.fields;
    const std::string size =
        std::to_string(fields.Width()) + " x " + std::to_string(fields.Height());
    std::printf("%5u  %-14s %-8s %-14s %-5s %12u  %7u%s\n", frame.number, size.c_str(),
                ModeName(fields), LayoutName(fields).c_str(), fields.packing == 0 ? "raw" : "runs",
                fields.dataSize, unsigned{fields.lutCount}, RangeText(frame).c_str());
    for (const std::string& fault : frame.faults)
        std::printf("       fault: %s\n", fault.c_str());
}

struct InfoOptions {
    std::string file;
    bool json = false;
};

int RunInfo(const InfoOptions& options)
{
    EIFrameWalker walker(PathOf(options.file));
    Json frames = Json::array();
    if (!options.json) {
        std::printf("%s: version %u, %u frame%s\n", options.file.c_str(),
                    unsigned{walker.File().version}, walker.File().frameCount,
                    walker.File().frameCount == 1 ? "" : "s");
        std::printf(
            "frame  size           mode     layout         rows         bytes  colours  range\n");
    }
    bool sound = true;
    uint32_t listed = 0;
    // The count in the header may be any number of 32 bits.
    while (listed < kListedFrames) {
        const std::optional<EIFrameReport> frame = walker.Next();
        if (!frame)
            break;
        ++listed;
        sound = sound && frame->faults.empty();
        if (options.json)
            frames.push_back(JsonOf(*frame));
        else
            PrintFrame(*frame);
    }
    if (options.json)
        std::printf("%s\n", Json({{"file", options.file},
                                  {"version", walker.File().version},
                                  {"frameCount", walker.File().frameCount},
                                  {"frames", frames}})
                                .dump(2, ' ', false, Json::error_handler_t::replace)
                                .c_str());
    if (listed == kListedFrames && walker.EndedEarly())
        std::fprintf(stderr, "lumohost: the list ends after %u frames\n", listed);
    else if (walker.EndedEarly())
        throw Failure(options.file + " ends after " + std::to_string(listed) + " of " +
                          std::to_string(walker.File().frameCount) + " frames",
                      "The file is cut off; fetch it again from where it came.", kHostEndOfFile);
    if (!sound)
        throw Failure(options.file + " has frames with faults",
                      "The frames without a fault can still be opened.", kHostCannotRead);
    return 0;
}

} // namespace

Command AddInfo(CLI::App& subcommand)
{
    auto options = std::make_shared<InfoOptions>();
    subcommand.add_option("file", options->file, "An ElectricImage file")
        ->required()
        ->type_name("FILE");
    subcommand.add_flag("--json", options->json, "The same as JSON, for programs");
    subcommand.footer(
        "Reads the headers only, and no module. The exit status is 0 when all frames are sound.\n\n"
        "Examples:\n"
        "  lumohost info five-frames.ei\n"
        "  lumohost info five-frames.ei --json | jq '.frames[].layout'");
    return [options] { return RunInfo(*options); };
}

} // namespace Host
