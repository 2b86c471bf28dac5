#include "commands/commands.h"

#include "failure.h"

#include <charconv>

#include <CLI/CLI.hpp>

namespace Host {

std::filesystem::path CommonOptions::Module() const
{
    return modulePath.empty() ? ModuleLibrary::DefaultPath() : PathOf(modulePath);
}

std::filesystem::path PathOf(const std::string& text)
{
    return std::u8string(text.begin(), text.end());
}

int64_t ParseSize(const std::string& text)
{
    int64_t value = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const std::string unit(end, text.data() + text.size());
    const int shift = unit.empty()  ? 0
                      : unit == "K" ? 10
                      : unit == "M" ? 20
                      : unit == "G" ? 30
                                    : -1;
    if (error != std::errc() || value < 0 || value > (int64_t{1} << 32) || shift < 0)
        throw Failure("\"" + text + "\" is no size",
                      "Write bytes, or a number with K, M or G after it, such as 4M.");
    return value << shift;
}

void AddModuleOptions(CLI::App& subcommand, CommonOptions& common)
{
    subcommand
        .add_option("--module", common.modulePath,
                    "The plug-in module [the one beside this program]")
        ->type_name("PATH");
    subcommand
        .add_option("--memory-limit", common.memoryLimit,
                    "Bytes that the module is told it may use for rows, with K, M or G [4M]. The "
                    "scratch memory that "
                    "the module asked for when it prepared is granted on top")
        ->type_name("SIZE");
    subcommand.add_flag("-v,--verbose", common.operation.verbose,
                        "Show each selector, its answer, and the memory used");
    subcommand
        .add_option("--abort-at", common.operation.abortAt,
                    "Answer \"stop\" to the module's Nth question whether to stop: for trying how "
                    "a module ends")
        ->type_name("N")
        ->check(CLI::NonNegativeNumber);
}

void AddDocumentOptions(CLI::App& subcommand, DocumentOptions& options, CommonOptions& common,
                        const char* type, const char* words, const std::string& lesson)
{
    subcommand
        .add_option("picture", options.picture, "The picture to work on: PNG, PGM, PPM or PAM")
        ->required()
        ->type_name("PICTURE");
    subcommand
        .add_option("--set", options.settings,
                    "A setting of the module, such as radius=12; once for each. What isn't set is "
                    "as the user left it, or the default")
        ->type_name("NAME=VALUE")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    subcommand
        .add_option("--depth", options.depth,
                    "Bits of a sample that the module is to work with: 8, 16 or 32 [8]")
        ->type_name("BITS")
        ->check(CLI::IsMember({8, 16, 32}));
    AddModuleOptions(subcommand, common);
    subcommand.get_option("--module")->required();
    subcommand.add_option("-o,--output", options.output, words)->required()->type_name(type);
    AddDialogOptions(subcommand, options.dialog);
    subcommand.footer("At a terminal with a display the module shows its dialog; with --set, or "
                      "without a display, it is\nrun without. " +
                      lesson);
}

} // namespace Host
