#include "commands/commands.h"

#include "console.h"
#include "electricimage/frame_encoder.h"
#include "failure.h"
#include "pictures/picture_files.h"
#include "progress.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include <CLI/CLI.hpp>

namespace Host {
namespace {

struct AssembleOptions {
    std::vector<std::string> pictures;
    std::string output;
    std::vector<std::string> bits;
    std::string depth;
    FrameOptions frame; // what all frames share
    bool noRange = false;
};

FrameOptions WithLayout(FrameOptions options, const std::string& layout)
{
    static const std::map<std::string, std::pair<FrameKind, int>> kLayouts = {
        {"1", {FrameKind::kIndexed, 1}}, {"2", {FrameKind::kIndexed, 2}},
        {"4", {FrameKind::kIndexed, 4}}, {"8", {FrameKind::kIndexed, 8}},
        {"16", {FrameKind::kRgb16, 8}},  {"24", {FrameKind::kRgb24, 8}},
        {"32", {FrameKind::kRgba32, 8}}, {"depth", {FrameKind::kDepth, 8}}};
    const auto found = kLayouts.find(layout);
    if (found == kLayouts.end())
        throw Failure("\"" + layout + "\" is no layout of pixels",
                      "--bits takes 1, 2, 4, 8, 16, 24, 32 or depth.");
    options.kind = found->second.first;
    options.indexBits = found->second.second;
    return options;
}

float ParseDepth(std::string_view text)
{
    float value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        throw Failure("\"" + std::string(text) + "\" is no depth",
                      "Write --depth MIN:MAX, such as --depth 0.5:120.");
    return value;
}

EIRange ParseRange(const std::string& text)
{
    const size_t colon = text.find(':');
    const std::string_view view(text);
    if (colon == std::string::npos)
        throw Failure("\"" + text + "\" is no range of depths",
                      "Write --depth MIN:MAX, such as --depth 0.5:120.");
    const EIRange range = {ParseDepth(view.substr(0, colon)), ParseDepth(view.substr(colon + 1))};
    if (range.minimum >= range.maximum)
        throw Failure("the range of depths " + text + " is empty", "MIN must be below MAX.");
    return range;
}

// One layout for each picture: those that were given, the last one for the rest.
std::vector<FrameOptions> LayoutsOf(const AssembleOptions& options)
{
    FrameOptions shared = options.frame;
    shared.storeRange = !options.noRange;
    if (!options.depth.empty()) {
        shared.range = ParseRange(options.depth);
        shared.kind = options.bits.empty() ? FrameKind::kDepth : FrameKind::kAuto;
    }
    std::vector<FrameOptions> layouts;
    for (const std::string& bits : options.bits)
        layouts.push_back(WithLayout(shared, bits));
    if (layouts.size() > options.pictures.size())
        throw Failure("--bits names " + std::to_string(layouts.size()) + " layouts for " +
                          std::to_string(options.pictures.size()) + " pictures",
                      "Give one for all or one for each.");
    layouts.resize(options.pictures.size(), layouts.empty() ? shared : layouts.back());
    return layouts;
}

void RequireGoOn(const std::string& output)
{
    if (Interrupted())
        throw FailureOf("can't assemble " + output, kHostUserCanceled);
}

// A picture whose reading ends when the user asks for it: a large one takes long.
class StoppablePicture final : public PictureSource {
public:
    StoppablePicture(std::unique_ptr<PictureSource> picture, const std::string& output)
        : fPicture(std::move(picture)), fOutput(output)
    {
    }

    const PictureInfo& Info() const override { return fPicture->Info(); }
    const uint8_t* Row(int32_t y) override
    {
        RequireGoOn(fOutput);
        return fPicture->Row(y);
    }

private:
    std::unique_ptr<PictureSource> fPicture;
    const std::string& fOutput;
};

int RunAssemble(const AssembleOptions& options)
{
    const std::vector<FrameOptions> layouts = LayoutsOf(options);
    FrameEncoder encoder(PathOf(options.output), static_cast<uint32_t>(options.pictures.size()));
    ProgressBar progress("Assembling");
    for (size_t i = 0; i < options.pictures.size(); ++i) {
        RequireGoOn(options.output);
        progress.Show(static_cast<int64_t>(i), static_cast<int64_t>(options.pictures.size()));
        StoppablePicture picture(OpenPicture(PathOf(options.pictures[i])), options.output);
        encoder.Append(picture, layouts[i], options.pictures[i]);
    }
    // A stop during the last frame leaves no finished file either.
    RequireGoOn(options.output);
    encoder.Finish();
    std::printf(
        "%s: %zu frame%s, %llu bytes\n", options.output.c_str(), layouts.size(),
        layouts.size() == 1 ? "" : "s",
        static_cast<unsigned long long>(std::filesystem::file_size(PathOf(options.output))));
    return 0;
}

} // namespace

Command AddAssemble(CLI::App& subcommand)
{
    auto options = std::make_shared<AssembleOptions>();
    subcommand
        .add_option("pictures", options->pictures,
                    "Pictures, one for each frame: PNG, PGM, PPM or PAM")
        ->required()
        ->type_name("PICTURE");
    subcommand.add_option("-o,--output", options->output, "The file to write")
        ->required()
        ->type_name("FILE");
    subcommand
        .add_option("--bits", options->bits,
                    "Bits of a pixel: 1, 2, 4 or 8 with a colour table, 16, 24, 32 with alpha, or "
                    "the word depth; one "
                    "for all pictures, or one for each, with commas [what the picture needs]")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("LIST");
    subcommand
        .add_option("--depth", options->depth,
                    "The depths of black and of white in depth frames; without --bits all frames "
                    "become depth [0:1]")
        ->type_name("MIN:MAX");
    subcommand.add_flag("--no-range", options->noRange,
                        "Don't store the range of depths: readers have to find it");
    subcommand.add_flag("--infinite-white", options->frame.infiniteWhite,
                        "White in depth frames is infinity: nothing is there");
    subcommand.add_flag("--raw", options->frame.raw, "Store the rows as they are [packed in runs]");
    subcommand.add_flag(
        "--reduce", options->frame.reduce,
        "Let similar colours share an entry when the colour table is too small for all");
    subcommand.footer("Makes a file of as many frames as there are pictures, by the host's own "
                      "encoder, without a module.\n"
                      "Pictures need not be of one size.\n\n"
                      "Examples:\n"
                      "  lumohost assemble walk1.png walk2.png walk3.png -o walk.ei\n"
                      "  lumohost assemble beauty.png alpha.png depth.png -o passes.ei --bits "
                      "24,8,depth --depth 1:250\n"
                      "  lumohost assemble icon.png -o icon.ei --bits 4 --reduce --raw");
    return [options] { return RunAssemble(*options); };
}

} // namespace Host
