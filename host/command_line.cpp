#include "command_line.h"

#include "commands/commands.h"
#include "console.h"
#include "failure.h"

#include <algorithm>
#include <cstdio>

#include <CLI/CLI.hpp>

namespace Host {
namespace {

constexpr int kFailed = 1;
constexpr int kMisused = 2;
constexpr int kInterrupted = 130;

int Report(const Failure& failure)
{
    std::fprintf(stderr, "lumohost: %s\n", failure.what());
    if (!failure.Advice().empty())
        std::fprintf(stderr, "  %s\n", failure.Advice().c_str());
    return failure.Code() == kHostUserCanceled ? kInterrupted : kFailed;
}

// Nothing is thrown out of the program: what is not a Failure is told in its own words.
int Run(const Command& command)
try {
    CatchInterrupts();
    const int status = command();
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        throw FailureOf("can't write to the standard output", kHostWriteError);
    return status;
} catch (const Failure& failure) {
    return Report(failure);
} catch (const std::bad_alloc&) {
    return Report(FailureOf("lumohost", kHostMemoryFull));
} catch (const std::exception& error) {
    return Report(Failure(error.what()));
}

} // namespace

int RunLumohost(std::vector<std::string> arguments)
{
    CommonOptions common;
    CLI::App app("Opens, saves, filters and exports pictures through Lumograph plug-in modules.",
                 "lumohost");
    app.require_subcommand(0, 1);           // no more; with none the help tells of them
    app.allow_windows_style_options(false); // a path from the root is no option, on any system
    app.set_version_flag("--version", "lumohost " SIDECAR_VERSION);
    app.set_help_all_flag("--help-all", "Show the help of all commands");
    app.footer("\nlumohost COMMAND --help tells more, with examples.");

    CLI::App* const info = app.add_subcommand("info", "List the frames of a file");
    CLI::App* const open =
        app.add_subcommand("open", "Open a file through the module and write it as a picture");
    CLI::App* const save =
        app.add_subcommand("save", "Save a picture as a file through the module");
    CLI::App* const assemble =
        app.add_subcommand("assemble", "Make a file of many frames from pictures");
    CLI::App* const filter = app.add_subcommand("filter", "Run a filter module over a picture");
    CLI::App* const exported =
        app.add_subcommand("export", "Have an export module write a picture in its own way");
    CLI::App* const selectors =
        app.add_subcommand("selectors", "Show what the module answers to each selector");
    const std::pair<CLI::App*, Command> commands[] = {
        {info, AddInfo(*info)},
        {open, AddOpen(*open, common)},
        {save, AddSave(*save, common)},
        {assemble, AddAssemble(*assemble)},
        {filter, AddFilter(*filter, common)},
        {exported, AddExport(*exported, common)},
        {selectors, AddSelectors(*selectors, common)}};
    try {
        std::ranges::reverse(arguments); // the parser takes them from the back
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kMisused;
    }
    const auto named =
        std::ranges::find_if(commands, [](const auto& entry) { return entry.first->parsed(); });
    if (named == std::end(commands)) {
        std::fputs(app.help().c_str(), stderr);
        return kMisused;
    }
    return Run(named->second);
}

} // namespace Host
