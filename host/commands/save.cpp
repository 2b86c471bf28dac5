#include "commands/commands.h"

#include "driver/session.h"
#include "failure.h"
#include "pictures/picture_files.h"

#include <cstdio>

#include <CLI/CLI.hpp>

namespace Host {
namespace {

struct SaveOptions {
    std::string picture;
    std::string output;
};

int RunSave(const SaveOptions& options, CommonOptions& common)
{
    common.operation.memoryLimit = ParseSize(common.memoryLimit);
    const std::filesystem::path output = PathOf(options.output);
    const std::unique_ptr<PictureSource> picture = OpenPicture(PathOf(options.picture));
    const PictureInfo& info = picture->Info();

    const PluginModule module(common.Module());
    SaveReport report;
    {
        Session session(module, common.operation);
        report = session.Save(*picture, output);
    }
    const auto size = static_cast<unsigned long long>(std::filesystem::file_size(output));
    std::printf("%s: %d x %d, %s, %llu bytes\n", options.output.c_str(), info.width, info.height,
                KindOf(info), size);
    if (common.operation.verbose)
        std::fprintf(stderr, "the module's estimate was %d to %d bytes; the file has %llu\n",
                     report.estimateMin, report.estimateMax, size);
    return 0;
}

} // namespace

Command AddSave(CLI::App& subcommand, CommonOptions& common)
{
    auto options = std::make_shared<SaveOptions>();
    subcommand.add_option("picture", options->picture, "The picture to save: PNG, PGM, PPM or PAM")
        ->required()
        ->type_name("PICTURE");
    subcommand.add_option("-o,--output", options->output, "The file to write")
        ->required()
        ->type_name("FILE");
    AddModuleOptions(subcommand, common);
    subcommand.footer("The picture's kind decides the document's mode: grey stays grey, a palette "
                      "makes it indexed,\n"
                      "all others become RGB, with a fourth plane for alpha. FILE changes only "
                      "when all went well.\n\n"
                      "Examples:\n"
                      "  lumohost save harbour.png -o harbour.img\n"
                      "  lumohost save harbour.png -o harbour.img --verbose     shows the estimate "
                      "and the real size");
    return [options, &common] { return RunSave(*options, common); };
}

} // namespace Host
