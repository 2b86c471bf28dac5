// vex: checks, formats and shows layout texts.
#include "vex/check.h"
#include "vex/dump.h"
#include "vex/format.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

enum ExitStatus { kExit_Well = 0, kExit_Mistakes = 1, kExit_Trouble = 2 };

constexpr const char* kLanguage = R"(A layout text describes the views of one window:

  PDialog(placement: place_row, margin: 4, window_title: 'Hello') {
      text_font = kFont_UIMedium;             a variable, for what follows in this block
      CStaticText(text: 'Name:');             a view with properties
      step(10, 5, &first, &second);           first = 10, second = 15
      CPushButton(width: first * 8, default_button: true);
  }

Values are strings in single quotes, or expressions of 32-bit integers with + - * / and the functions
min, max and dim. There are no comments. `vex check --help` and the others tell more.)";

struct Options {
    std::vector<std::string> files;
    bool json = false;
    bool inPlace = false;
    bool checkOnly = false;
};

std::string ToText(const nlohmann::json& json)
{
    return json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + '\n';
}

// One file that can't be read hides neither the others nor what was found before.
int Check(const Options& options)
{
    nlohmann::json all = nlohmann::json::array();
    int status = kExit_Well;
    for (const std::string& file : options.files) {
        try {
            const Vex::CSourceText source = Vex::CSourceText::Load(file);
            for (const Vex::Diagnostic& diagnostic : Vex::CheckLayout(source)) {
                status = std::max<int>(status, kExit_Mistakes);
                if (options.json)
                    all.push_back(Vex::ToJson(source, diagnostic));
                else
                    Vex::Print(std::cout, source, diagnostic);
            }
        } catch (const std::runtime_error& error) {
            status = kExit_Trouble;
            std::cerr << "vex: " << error.what() << '\n';
        }
    }
    if (options.json)
        std::cout << ToText(all);
    return status;
}

void Write(const std::string& file, const std::string& text)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << text;
    if (!out.flush())
        throw std::runtime_error(file + ": the file can't be written");
}

int Format(const Options& options)
{
    bool isWell = true;
    for (const std::string& file : options.files) {
        const Vex::CSourceText source = Vex::CSourceText::Load(file);
        const std::string formatted = Vex::FormatLayout(source);
        const bool isCanonical = formatted == source.Text();
        if (options.checkOnly && !isCanonical) {
            isWell = false;
            std::cout << file
                      << ": not in the canonical form; `vex format --in-place` mends this\n";
        } else if (options.inPlace && !isCanonical) {
            Write(file, formatted);
        } else if (!options.checkOnly && !options.inPlace) {
            std::cout << formatted;
        }
    }
    return isWell ? kExit_Well : kExit_Mistakes;
}

int Dump(const Options& options)
{
    for (const std::string& file : options.files) {
        const nlohmann::json view = Vex::DumpLayout(Vex::CSourceText::Load(file));
        if (options.json)
            std::cout << ToText(view);
        else
            Vex::PrintDump(std::cout, view);
    }
    return kExit_Well;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Checks, formats and shows layout texts (.vex files).", "vex"};
    app.footer(kLanguage);
    app.set_version_flag("--version", "vex " SIDECAR_VERSION);
    app.require_subcommand(0, 1);           // no more; with none the help tells of them
    app.allow_windows_style_options(false); // an absolute path is no option, on any system
    Options options;

    CLI::App* const check =
        app.add_subcommand("check", "Report mistakes with file, line and column");
    check->footer(
        "Finds syntax errors, unknown classes, keys and names, values of the wrong kind, and "
        "identifiers that\n"
        "two views have. The file - is the standard input. Exit status: 0 no mistakes, 1 mistakes, "
        "2 a file can't be read.");
    check->add_option("FILE", options.files, "Layout texts")->required();
    check->add_flag("--json", options.json,
                    "Print an array of objects: file, line, column, kind, message, hint");

    CLI::App* const format =
        app.add_subcommand("format", "Write the canonical form to the standard output");
    format->footer("The meaning stays as it is. Exit status: 0 done, 1 with --check: a file has "
                   "another form, 2 a file has\n"
                   "mistakes or can't be read.");
    format->add_option("FILE", options.files, "Layout texts")->required();
    CLI::Option* const inPlace =
        format->add_flag("-i,--in-place", options.inPlace, "Rewrite the files instead");
    format
        ->add_flag("--check", options.checkOnly,
                   "Write nothing, name the files that have another form")
        ->excludes(inPlace);

    CLI::App* const dump =
        app.add_subcommand("dump", "Print the tree of views with the values of every scope");
    dump->footer(
        "For each view: its own properties, its layout scope as it would be built from them, and "
        "the variables of\n"
        "its block at the end. Exit status: 0 done, 2 a file has mistakes or can't be read.");
    dump->add_option("FILE", options.files, "Layout texts")->required();
    dump->add_flag("--json", options.json,
                   "Print objects: class, properties, layout, variables, children");

    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) {
            std::cerr << app.help();
            return kExit_Trouble;
        }
        return check->parsed()    ? Check(options)
               : format->parsed() ? Format(options)
                                  : Dump(options);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kExit_Well : kExit_Trouble;
    } catch (const std::exception& error) {
        std::cerr << "vex: " << error.what() << '\n';
        return kExit_Trouble;
    }
}
