#include "commands/open_options.h"

#include "failure.h"

#include <cstdio>

#include <CLI/CLI.hpp>

namespace Host {
namespace {

constexpr const char* kLesson =
    "An indexed document stays indexed, alpha stays alpha, and depth comes as grey.\n"
    "A file of several frames asks for one in the module's dialog. At a terminal with a display "
    "the\n"
    "dialog is shown; elsewhere the first frame is opened. --frame types the number into the "
    "dialog\n"
    "and presses OK, so what the dialog refuses is refused here. Ctrl-C stops; nothing is written\n"
    "then.\n\n"
    "Status: 0 good; 1 failed, cancelled, or not as the script expects; 2 misused, or a script "
    "that\n"
    "can't be read; 130 stopped by Ctrl-C.\n\n"
    "Examples:\n"
    "  lumohost open harbour.img                            writes harbour.png here\n"
    "  lumohost open harbour.img -o /tmp/h.ppm              plain pixels, the fastest\n"
    "  lumohost open film.ei --frame 12 -o twelve.png\n"
    "  lumohost open film.ei --all -o 'frame-%04d.png'      every frame\n"
    "  lumohost open shots/*.ei -o pictures/ --jobs 8       a process each\n"
    "  lumohost open film.ei --photograph dialog.png        what the dialog looks like\n"
    "  lumohost open film.ei --play pick.txt -o twelve.png  with: type 12, then: key Return\n\n"
    "Over many machines, with GNU parallel, or as a job of an array whose tasks count from 1:\n"
    "  ls *.ei | parallel --sshloginfile hosts lumohost open {} -o pictures/{.}.png\n"
    "  lumohost open \"$(ls *.ei | sed -n \"${SLURM_ARRAY_TASK_ID}p\")\" -o pictures/";

bool IsFolder(const std::string& output)
{
    std::error_code error;
    return output.ends_with('/') || output.ends_with('\\') ||
           std::filesystem::is_directory(PathOf(output), error);
}

int RunOpen(const OpenOptions& options, CommonOptions& common)
{
    common.operation.memoryLimit = ParseSize(common.memoryLimit);
    const bool isMany = options.files.size() > 1 || IsFolder(options.output);
    if (options.dialog.WantsRobot() && (isMany || options.all))
        throw Failure("a script is played on one dialog", "Open one frame of one file with it.");
    if (isMany && options.all)
        throw Failure("--all opens the frames of one file", "Open the files one by one with it.");
    UseOptions(options.dialog, options.dialog.WantsRobot() || options.frame || options.all);
    return isMany        ? OpenMany(options, common)
           : options.all ? OpenAll(options, common)
                         : OpenOne(options, common);
}

} // namespace

Command AddOpen(CLI::App& subcommand, CommonOptions& common)
{
    auto options = std::make_shared<OpenOptions>();
    subcommand.add_option("file", options->files, "The files to open")
        ->required()
        ->type_name("FILE...");
    subcommand
        .add_option("-o,--output", options->output,
                    "The picture to write: .png, or .ppm, .pgm or .pam for plain pixels [FILE's "
                    "name with .png]; a folder for the pictures of several files; with --all a "
                    "name with %d or %04d for the number")
        ->type_name("PICTURE|FOLDER/");
    auto* const frame = subcommand.add_option("--frame", options->frame, "The frame to open")
                            ->type_name("N")
                            ->check(CLI::NonNegativeNumber);
    subcommand.add_flag("--all", options->all, "Open every frame")->excludes(frame);
    subcommand
        .add_option("--jobs", options->jobs,
                    "Several files: how many at once [one for each processor]")
        ->type_name("N")
        ->check(CLI::Range(1, 1024));
    subcommand
        .add_option("--compression", options->picture.compression,
                    "How hard a PNG is packed: 0 not, 1 fast, 9 small [1]")
        ->type_name("0..9")
        ->check(CLI::Range(0, 9));
    AddDialogOptions(subcommand, options->dialog);
    AddModuleOptions(subcommand, common);
    subcommand.footer(kLesson);
    return [options, &common] { return RunOpen(*options, common); };
}

} // namespace Host
