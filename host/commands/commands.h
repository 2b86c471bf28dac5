// The subcommands of lumohost. Each adds itself to the command line, with a help text that teaches,
// and runs when it was named. A run throws what failed and returns the exit status otherwise.
#pragma once

#include "commands/dialog_options.h"
#include "driver/operation.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace Host {

// What all subcommands share.
struct CommonOptions {
    std::string modulePath; // UTF-8; empty: the one beside the program
    std::string memoryLimit = "4M";
    OperationOptions operation;

    std::filesystem::path Module() const;
};

using Command = std::function<int()>;

// Each returns the function that runs the subcommand, to be called when `subcommand` was parsed.
Command AddInfo(CLI::App& subcommand);
Command AddOpen(CLI::App& subcommand, CommonOptions& common);
Command AddSave(CLI::App& subcommand, CommonOptions& common);
Command AddAssemble(CLI::App& subcommand);
Command AddFilter(CLI::App& subcommand, CommonOptions& common);
Command AddExport(CLI::App& subcommand, CommonOptions& common);
Command AddSelectors(CLI::App& subcommand, CommonOptions& common);

// The options of subcommands that run a module: --module, --memory-limit, --verbose, --abort-at.
void AddModuleOptions(CLI::App& subcommand, CommonOptions& common);

// The options of subcommands that run a filter or an export over a picture.
struct DocumentOptions {
    std::string picture;
    std::string output;
    std::vector<std::string> settings; // NAME=VALUE
    int32_t depth = 8;
    DialogOptions dialog;
};
// `type` and `words` are those of the output; `lesson` follows what is said of dialogs.
void AddDocumentOptions(CLI::App& subcommand, DocumentOptions& options, CommonOptions& common,
                        const char* type, const char* words, const std::string& lesson);

// A path from an argument in UTF-8.
std::filesystem::path PathOf(const std::string& text);

// "4194304", "512K", "4M" or "1G" in bytes. Throws Failure for anything else.
int64_t ParseSize(const std::string& text);

} // namespace Host
