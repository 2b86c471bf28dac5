#include "commands/commands.h"

#include "commands/document_dialog.h"
#include "driver/filter_run.h"
#include "failure.h"
#include "pictures/picture_files.h"

#include <cstdio>
#include <optional>

#include <CLI/CLI.hpp>

namespace Host {
namespace {

struct FilterOptions : DocumentOptions {
    std::string mask;
};

Document ReadMask(const std::string& name, const PictureInfo& picture)
{
    const std::unique_ptr<PictureSource> source = OpenPicture(PathOf(name));
    const PictureInfo& info = source->Info();
    if (info.mode != PictureMode::kGrayscale || info.planes != 1)
        throw Failure("the mask " + name + " is not grey but " + KindOf(info),
                      "Black is what stays, white is what the filter may change.", kHostBadMode);
    if (info.width != picture.width || info.height != picture.height)
        throw Failure("the mask " + name + " has " + std::to_string(info.width) + " x " +
                          std::to_string(info.height) + " pixels, the picture " +
                          std::to_string(picture.width) + " x " + std::to_string(picture.height),
                      "Make them the same size.", kHostBadMode);
    return Document(*source, SampleDepth::k8);
}

int FilterPicture(const FilterOptions& options, CommonOptions& common, DialogUser* user)
{
    common.operation.memoryLimit = ParseSize(common.memoryLimit);
    ServedSettings::Pairs settings = ServedSettings::Parse(options.settings);
    const bool isSilent = IsSilent(settings, user);
    // Made first, so that a name that no picture can have is told before anything is loaded.
    const std::unique_ptr<PictureSink> sink = CreatePicture(PathOf(options.output), {});
    const PluginModule module(common.Module(), PluginKind::kFilter);
    const std::unique_ptr<PictureSource> source = OpenPicture(PathOf(options.picture));
    const PictureInfo& info = source->Info();
    RequirePicture(module.Properties(), info);
    std::optional<Document> mask;
    if (!options.mask.empty())
        mask = ReadMask(options.mask, info);

    const Document picture(*source, static_cast<SampleDepth>(options.depth));
    FilterRun run(module, common.operation, std::move(settings), picture, mask ? &*mask : nullptr,
                  options.picture);
    if (const auto status = Ask(run, isSilent, options.dialog, user))
        return *status;
    run.Run().WriteTo(*sink);
    sink->Finish();
    std::printf("%s: %d x %d, %s\n", options.output.c_str(), info.width, info.height, KindOf(info));
    return 0;
}

int RunFilter(const FilterOptions& options, CommonOptions& common)
{
    return RunWithUser(options.dialog,
                       [&](DialogUser* user) { return FilterPicture(options, common, user); });
}

} // namespace

Command AddFilter(CLI::App& subcommand, CommonOptions& common)
{
    auto options = std::make_shared<FilterOptions>();
    AddDocumentOptions(
        subcommand, *options, common, "PICTURE", "The picture to write",
        "A name that it doesn't know ends the run and tells those that it has; the picture is\n"
        "written only when all went well.\n\n"
        "Examples:\n"
        "  lumohost filter harbour.png --module soft_glow.so -o glow.png\n"
        "  lumohost filter harbour.png --module soft_glow.so --set radius=12 --set amount=40 "
        "-o glow.png\n"
        "  lumohost filter harbour.png --module soft_glow.so --play script.txt -o glow.png\n"
        "  lumohost filter harbour.png --module soft_glow.so --depth 16 --mask sky.png "
        "-o glow.png --verbose");
    subcommand
        .add_option("--mask", options->mask,
                    "A grey picture of the same size: the filter changes what is white in it")
        ->type_name("PICTURE");
    return [options, &common] { return RunFilter(*options, common); };
}

} // namespace Host
