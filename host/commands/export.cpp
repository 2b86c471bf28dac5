#include "commands/commands.h"

#include "commands/document_dialog.h"
#include "driver/export_run.h"
#include "failure.h"
#include "pictures/picture_files.h"

#include <cstdio>

#include <CLI/CLI.hpp>

namespace Host {
namespace {

int ExportPicture(const DocumentOptions& options, CommonOptions& common, DialogUser* user)
{
    common.operation.memoryLimit = ParseSize(common.memoryLimit);
    ServedSettings::Pairs settings = ServedSettings::Parse(options.settings);
    const bool isSilent = IsSilent(settings, user);
    const PluginModule module(common.Module(), PluginKind::kExport);
    const std::unique_ptr<PictureSource> source = OpenPicture(PathOf(options.picture));
    RequirePicture(module.Properties(), source->Info());

    const Document document(*source, static_cast<SampleDepth>(options.depth));
    const std::filesystem::path output = PathOf(options.output);
    ExportRun run(module, common.operation, std::move(settings), document, options.picture);
    if (const auto status = Ask(run, isSilent, options.dialog, user))
        return *status;
    run.Run(output);
    std::printf("%s: %llu bytes\n", options.output.c_str(),
                static_cast<unsigned long long>(std::filesystem::file_size(output)));
    return 0;
}

int RunExport(const DocumentOptions& options, CommonOptions& common)
{
    return RunWithUser(options.dialog,
                       [&](DialogUser* user) { return ExportPicture(options, common, user); });
}

} // namespace

Command AddExport(CLI::App& subcommand, CommonOptions& common)
{
    auto options = std::make_shared<DocumentOptions>();
    AddDocumentOptions(
        subcommand, *options, common, "FILE", "The file that the module is to write",
        "It decides what FILE holds, which changes only when all went well.\n\n"
        "Examples:\n"
        "  lumohost export harbour.png --module contact_sheet_export.so -o sheet.ppm\n"
        "  lumohost export harbour.png --module contact_sheet_export.so --set columns=4 --set "
        "rows=2 "
        "-o sheet.ppm");
    return [options, &common] { return RunExport(*options, common); };
}

} // namespace Host
