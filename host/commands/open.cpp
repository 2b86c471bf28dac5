#include "commands/commands.h"

#include "driver/session.h"
#include "electricimage/frame_walker.h"
#include "failure.h"
#include "pictures/picture_files.h"

#include <cstdio>

#include <CLI/CLI.hpp>

namespace Host {
namespace {

struct OpenOptions {
    std::string file;
    std::string output;
    int64_t frame = 1;
    PictureOptions picture;
};

// Without -o the picture goes to the working folder, and never over something that is there.
std::filesystem::path OutputOf(const OpenOptions& options, const std::filesystem::path& file)
{
    if (!options.output.empty())
        return PathOf(options.output);
    std::filesystem::path output = file.stem();
    output += ".png";
    if (std::filesystem::exists(output))
        throw Failure(TextOf(output) + " is there already",
                      "Name the picture with -o to replace it.");
    return output;
}

void RequireFirstFrame(int64_t frame)
{
    if (frame < 1)
        throw Failure("there is no frame " + std::to_string(frame), "Frames are counted from 1.",
                      kHostBadMode);
    if (frame > 1)
        throw Failure(
            "frame " + std::to_string(frame) +
                " can't be chosen: a module asks for the frame in its own dialog, and this one has "
                "none yet",
            "Leave --frame out to open the first frame; `lumohost info` lists the others.",
            kHostBadMode);
}

int RunOpen(const OpenOptions& options, CommonOptions& common)
{
    RequireFirstFrame(options.frame);
    common.operation.memoryLimit = ParseSize(common.memoryLimit);
    const std::filesystem::path file = PathOf(options.file);
    const std::filesystem::path output = OutputOf(options, file);
    const std::unique_ptr<PictureSink> sink = CreatePicture(output, options.picture);

    const PluginModule module(common.Module());
    PictureInfo info;
    {
        Session session(module, common.operation);
        info = session.Open(file, *sink);
    }
    sink->Finish();
    std::printf("%s: %d x %d, %s\n", TextOf(output).c_str(), info.width, info.height, KindOf(info));
    return 0;
}

} // namespace

Command AddOpen(CLI::App& subcommand, CommonOptions& common)
{
    auto options = std::make_shared<OpenOptions>();
    subcommand.add_option("file", options->file, "The file to open")->required()->type_name("FILE");
    subcommand
        .add_option("-o,--output", options->output,
                    "The picture to write: .png, or .ppm, .pgm or .pam for plain pixels [FILE's "
                    "name with .png]")
        ->type_name("PICTURE");
    subcommand
        .add_option("--frame", options->frame,
                    "The frame to open; only the first one can be chosen yet [1]")
        ->type_name("N");
    subcommand
        .add_option("--compression", options->picture.compression,
                    "How hard a PNG is packed: 0 not, 1 fast, 9 small [1]")
        ->type_name("0..9")
        ->check(CLI::Range(0, 9));
    AddModuleOptions(subcommand, common);
    subcommand.footer(
        "An indexed document stays indexed, alpha stays alpha, and depth comes as grey.\n"
        "Ctrl-C stops; nothing is written then.\n\n"
        "Examples:\n"
        "  lumohost open harbour.img                   writes harbour.png here\n"
        "  lumohost open harbour.img -o /tmp/h.ppm     plain pixels, the fastest\n"
        "  lumohost open wide.ei -o w.png --memory-limit 1M --verbose");
    return [options, &common] { return RunOpen(*options, common); };
}

} // namespace Host
