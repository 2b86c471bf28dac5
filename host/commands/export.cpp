#include "commands/commands.h"

#include "driver/export_run.h"
#include "failure.h"
#include "pictures/picture_files.h"

#include <cstdio>

#include <CLI/CLI.hpp>

namespace Host {
namespace {

int RunExport(const DocumentOptions& options, CommonOptions& common)
{
    common.operation.memoryLimit = ParseSize(common.memoryLimit);
    ServedSettings::Pairs settings = ServedSettings::Parse(options.settings);
    const PluginModule module(common.Module(), PluginKind::kExport);
    const std::unique_ptr<PictureSource> source = OpenPicture(PathOf(options.picture));
    RequirePicture(module.Properties(), source->Info());

    const Document document(*source, static_cast<SampleDepth>(options.depth));
    const std::filesystem::path output = PathOf(options.output);
    ExportRun(module, common.operation, std::move(settings), document, options.picture).Run(output);
    std::printf("%s: %llu bytes\n", options.output.c_str(),
                static_cast<unsigned long long>(std::filesystem::file_size(output)));
    return 0;
}

} // namespace

Command AddExport(CLI::App& subcommand, CommonOptions& common)
{
    auto options = std::make_shared<DocumentOptions>();
    AddDocumentOptions(subcommand, *options, common);
    subcommand.add_option("-o,--output", options->output, "The file that the module is to write")
        ->required()
        ->type_name("FILE");
    subcommand.footer(
        "The module is run without its dialog and decides what FILE holds. FILE changes only when "
        "all went\n"
        "well.\n\n"
        "Examples:\n"
        "  lumohost export harbour.png --module contact_sheet_export.so -o sheet.ppm\n"
        "  lumohost export harbour.png --module contact_sheet_export.so --set columns=4 --set "
        "rows=2 "
        "-o sheet.ppm");
    return [options, &common] { return RunExport(*options, common); };
}

} // namespace Host
