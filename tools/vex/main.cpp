// vex: checks, formats, places and shows layout texts.
#include "vex/author_window.h"
#include "vex/check.h"
#include "vex/class_pages.h"
#include "vex/describe.h"
#include "vex/dump.h"
#include "vex/format.h"
#include "vex/keys.h"
#include "vex/new_plugin.h"
#include "vex/place.h"
#include "vex/play.h"
#include "vex/show.h"

#include "drawing/tools/draw_tools.h"
#include "platform/windows/system_window.h"
#include "platform/windows/window_place.h"
#include "view/process/ui_scale.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

enum ExitStatus { kExit_Well = 0, kExit_Mistakes = 1, kExit_Trouble = 2 };

constexpr auto kWatchPeriod = std::chrono::milliseconds(200);
constexpr double kLargestSize = 16384; // of a side, in units

constexpr const char* kLanguage = R"(A layout text describes the views of one window:

  PDialog(placement: place_row, margin: 4, window_title: 'Hello') {
      text_font = kFont_UIMedium;             a variable, for what follows in this block
      CStaticText(text: 'Name:');             a view with properties
      step(10, 5, &first, &second);           first = 10, second = 15
      CPushButton(width: first * 8, default_button: true);
  }

Values are strings in single quotes, or expressions of 32-bit integers with + - * / and the
functions min, max and dim. There are no comments. `vex check --help` and the others tell more.)";

constexpr const char* kShowing =
    R"(Without -o, --describe and --play a window opens. It is built anew whenever the file changes;
while the text is refused the last good window stays. F2 tells of the view under the mouse, F3 takes
the next theme, F4 and Shift-F4 a larger and a smaller scale, F5 builds anew.

A robot's script has one action a line; # begins a comment. VIEW is an id, or X,Y in the window's
units.

  click VIEW [left|right|middle] [xN] [shift] [control] [alt]
  press VIEW, move VIEW, release            for drags
  wheel VIEW DX DY                          notches to the right and upward
  type TEXT, paste TEXT                     the rest of the line
  key NAME [shift] [control] [alt]          Tab, Return, Escape, Up, F1, A, 0 ...
  hold KEY, let-go KEY                      shift, control or alt
  focus VIEW, resize W H, scale N, theme N, close, wait SECONDS
  shot FILE.png, describe FILE.json
  expect VIEW KEY VALUE                     KEY as in --describe, as in: expect A/Field string 12
  expect-window open|closed|TITLE
  place LEFT TOP, expect-cursor SHAPE       the content's corner in pixels; arrow, text, hand ...
  monitors WxH+LEFT+TOP ...                 made up without a display, else required

Without a display time is the robot's own: waiting takes none. Exit status: 0 done, 1 an expectation
failed, 2 the text or the script is refused, a line needs a window and none is open, or a file can't
be read or written.)";

struct Options {
    std::vector<std::string> files;
    bool json = false;
    bool inPlace = false;
    bool checkOnly = false;
    std::string size; // WxH, or empty
    std::string picture;
    double scale = 1.0;
    std::int32_t theme = 0;
    bool outline = false;
    bool describe = false;
    std::string script;
    std::string messages;
    std::string pages;
    std::string samples;
};

template <class Json>
std::string ToText(const Json& json)
{
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
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

// A file that has the canonical form already isn't written, so its time stays as it is.
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

std::optional<double> SideOf(std::string_view text)
{
    double side = 0;
    const char* const end = text.data() + text.size();
    const auto [next, error] = std::from_chars(text.data(), end, side);
    const bool isSide = error == std::errc() && next == end && side >= 0 && side <= kLargestSize;
    return isSide ? std::optional(side) : std::nullopt;
}

// "300x200".
std::optional<Kesto::Point> SizeOf(const std::string& text)
{
    if (text.empty())
        return std::nullopt;
    const std::size_t cross = std::min(text.find('x'), text.size());
    const auto width = SideOf(std::string_view(text).substr(0, cross));
    const auto height = SideOf(std::string_view(text).substr(std::min(cross + 1, text.size())));
    if (!width || !height)
        throw std::runtime_error("--size takes WIDTHxHEIGHT, for example 300x200, but not " + text);
    return Kesto::Point{*width, *height};
}

Vex::CBuiltLayout Build(const Options& options)
{
    Kesto::SetUiScale(options.scale / Platform::ScaleOf(nullptr));
    return {Vex::CSourceText::Load(options.files.front()),
            {SizeOf(options.size), options.scale, false}};
}

int Place(const Options& options)
{
    const Vex::CBuiltLayout layout = Build(options);
    const nlohmann::ordered_json view = Vex::PlacesOf(layout);
    if (options.json)
        std::cout << ToText(view);
    else
        Vex::PrintPlaces(std::cout, view);
    return kExit_Well;
}

// The robot takes names of files in UTF-8.
std::string Utf8NameOf(const std::string& argument)
{
    const std::u8string name = std::filesystem::path(argument).u8string();
    return {name.begin(), name.end()};
}

// The script, then the picture and the description that are asked for besides.
int Play(const Options& options)
{
    Host::Script script = Host::LoadScript(Utf8NameOf(options.script));
    const auto add = [&script](Host::Verb verb, const std::string& file) {
        Host::Action& action = script.actions.emplace_back();
        action.verb = verb;
        action.text = file;
    };
    if (!options.picture.empty())
        add(Host::Verb::kShot, Utf8NameOf(options.picture));
    if (options.describe)
        add(Host::Verb::kDescribe, "-");
    const Host::PlayOutcome outcome =
        Vex::Play(Vex::CSourceText::Load(options.files.front()), std::move(script),
                  {{SizeOf(options.size), options.scale, true},
                   options.theme,
                   Utf8NameOf(options.messages),
                   options.outline ? options.picture : std::string(),
                   {}});
    if (outcome.status != Host::PlayOutcome::kPlayed)
        std::cerr << "vex: " << outcome.words << '\n';
    return outcome.status;
}

// In the author's window, with the mistakes on the terminal, until it is closed.
int ShowWindow(const Options& options)
{
    if (!Platform::HasDisplay())
        throw std::runtime_error("there is no display: name a picture with -o, or ask for "
                                 "--describe or --play");
    Vex::AuthorOptions author;
    author.build = {SizeOf(options.size), options.scale, true};
    author.theme = options.theme;
    bool isTold = false; // what refuses a text is mostly one of its mistakes
    author.read = [&isTold](const Vex::CSourceText& source) {
        const auto mistakes = Vex::CheckLayout(source);
        isTold = !mistakes.empty();
        for (const Vex::Diagnostic& diagnostic : mistakes)
            Vex::Print(std::cout, source, diagnostic);
        std::cout << std::flush;
    };
    author.refused = [&isTold](const std::string& words) {
        if (!isTold)
            std::cout << words << '\n' << std::flush;
    };
    Vex::RunAuthorWindow(options.files.front(), author);
    return kExit_Well;
}

int Show(const Options& options)
{
    if (!options.script.empty())
        return Play(options);
    if (options.picture.empty() && !options.describe)
        return ShowWindow(options);
    Kesto::CDrawTools::Get().SetTheme(options.theme);
    const Vex::CBuiltLayout layout = Build(options);
    if (!options.picture.empty())
        Vex::WritePicture(layout, options.picture, options.outline);
    if (options.describe)
        std::cout << ToText(Vex::DescriptionOf(layout));
    return kExit_Well;
}

// Runs until it is interrupted. A text that is refused leaves the last good picture where it is.
int Watch(const Options& options)
{
    if (options.picture.empty())
        return ShowWindow(options);
    namespace fs = std::filesystem;
    const fs::path file = options.files.front();
    for (fs::file_time_type seen = fs::file_time_type::min();;) {
        std::error_code isBeingWritten;
        const fs::file_time_type now = fs::last_write_time(file, isBeingWritten);
        if (!isBeingWritten && now != seen) {
            seen = now;
            Check(options);
            try {
                Show(options);
                std::cout << options.picture << '\n' << std::flush;
            } catch (const std::runtime_error& error) {
                std::cout << error.what() << '\n' << std::flush;
            }
        }
        std::this_thread::sleep_for(kWatchPeriod);
    }
}

// Of the class that is named, or of all.
int Keys(const Options& options)
{
    if (!options.pages.empty()) {
        Vex::WriteClassPages(options.pages, options.samples);
        return kExit_Well;
    }
    if (options.files.empty()) {
        Vex::PrintAllKeys(std::cout);
        return kExit_Well;
    }
    if (Vex::PrintKeys(std::cout, options.files.front()))
        return kExit_Well;
    throw std::runtime_error("no class has the name " + options.files.front());
}

int New(const Options& options)
{
    const std::filesystem::path here;
    for (const auto& file : Vex::MakePlugin(options.files.front(), SIDECAR_VERSION, here))
        std::cout << file.generic_string() << '\n';
    return kExit_Well;
}

// A command with its options. They are stored in `options`, which outlives the command line.
struct Command {
    const CLI::App* app;
    int (*run)(const Options&);
};

Command AddCheck(CLI::App& app, Options& options)
{
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
    return {check, Check};
}

Command AddFormat(CLI::App& app, Options& options)
{
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
    return {format, Format};
}

Command AddDump(CLI::App& app, Options& options)
{
    CLI::App* const dump =
        app.add_subcommand("dump", "Print the tree of views with the values of every scope");
    dump->footer(
        "For each view: its own properties, its layout scope as it would be built from them, and "
        "the variables of\n"
        "its block at the end. Exit status: 0 done, 2 a file has mistakes or can't be read.");
    dump->add_option("FILE", options.files, "Layout texts")->required();
    dump->add_flag("--json", options.json,
                   "Print objects: class, properties, layout, variables, children");
    return {dump, Dump};
}

void AddBuildOptions(CLI::App& command, Options& options)
{
    command.add_option("FILE", options.files, "A layout text; - is the standard input")
        ->required()
        ->expected(1);
    command.add_option("--size", options.size,
                       "Resize the contents from their natural size: WIDTHxHEIGHT");
}

Command AddPlace(CLI::App& app, Options& options)
{
    CLI::App* const place = app.add_subcommand("place", "Print where the views come to lie");
    place->footer("For each view its class, identifier, left, top, width and height, in units of "
                  "the view around it. Exit\n"
                  "status: 0 done, 2 the text is refused or can't be read.");
    AddBuildOptions(*place, options);
    place->add_flag("--json", options.json,
                    "Print objects: class, id, left, top, width, height, children");
    return {place, Place};
}

Command AddShow(CLI::App& app, Options& options)
{
    CLI::App* const show =
        app.add_subcommand("show", "Show the views: in a window, as a picture, or to a robot");
    show->footer(kShowing);
    AddBuildOptions(*show, options);
    show->add_option("-o", options.picture, "The picture to write, a PNG");
    show->add_option("--theme", options.theme, "0 light, 1 medium light, 2 medium dark, 3 dark")
        ->check(CLI::Range(0, 3));
    show->add_option("--scale", options.scale, "Pixels in a unit")->check(CLI::Range(0.25, 8.0));
    show->add_flag("--outline", options.outline, "Draw frames, margins and identifiers over it");
    show->add_flag("--describe", options.describe,
                   "Print what a host is told of the views, as JSON");
    show->add_option("--play", options.script,
                     "A script that the robot plays on the window; - is the standard input");
    show->add_option("--messages", options.messages,
                     "The file for the messages that climb to the window, a JSON object a line")
        ->needs("--play");
    return {show, Show};
}

Command AddWatch(CLI::App& app, Options& options)
{
    CLI::App* const watch =
        app.add_subcommand("watch", "Check a text and show it anew whenever the file changes");
    watch->footer("In the window of `vex show` until that is closed, or with -o as a picture until "
                  "Ctrl-C. What was\n"
                  "shown stays while the text is refused.");
    AddBuildOptions(*watch, options);
    watch->add_option("-o", options.picture, "The picture to write, a PNG");
    return {watch, Watch};
}

Command AddKeys(CLI::App& app, Options& options)
{
    CLI::App* const keys = app.add_subcommand("keys", "Print the keys that classes read");
    keys->footer("Without a class: those of all, as Markdown. Exit status: 0 done, 2 there is no "
                 "such class.");
    keys->add_option("CLASS", options.files, "For example CStaticText")->expected(0, 1);
    CLI::Option* const pages = keys->add_option(
        "--pages", options.pages, "The folder for a page of each class, with a picture, instead");
    CLI::Option* const samples =
        keys->add_option("--samples", options.samples,
                         "The folder with CLASS.vex for each class, whose picture is taken");
    pages->needs(samples);
    samples->needs(pages);
    return {keys, Keys};
}

Command AddNew(CLI::App& app, Options& options)
{
    CLI::App* const make = app.add_subcommand("new", "Make a folder to start a filter from");
    make->footer("It has a number to set and a dialog with a live preview, and is built with the "
                 "installed kit. Exit\n"
                 "status: 0 done, 2 the name is none, or the folder is there.");
    make->add_option("NAME", options.files, "For example Relief")->required()->expected(1);
    return {make, New};
}

int Run(CLI::App& app, std::span<const Command> commands, const Options& options)
{
    for (const Command& command : commands)
        if (command.app->parsed())
            return command.run(options);
    std::cerr << app.help();
    return kExit_Trouble;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Checks, formats, places and shows layout texts (.vex files).", "vex"};
    app.footer(kLanguage);
    app.set_version_flag("--version", "vex " SIDECAR_VERSION);
    app.require_subcommand(0, 1);           // no more; with none the help tells of them
    app.allow_windows_style_options(false); // an absolute path is no option, on any system
    Options options;
    const Command commands[] = {AddCheck(app, options), AddFormat(app, options),
                                AddDump(app, options),  AddPlace(app, options),
                                AddShow(app, options),  AddWatch(app, options),
                                AddKeys(app, options),  AddNew(app, options)};
    try {
        app.parse(argc, argv);
        return Run(app, commands, options);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kExit_Well : kExit_Trouble;
    } catch (const std::exception& error) {
        std::cerr << "vex: " << error.what() << '\n';
        return kExit_Trouble;
    }
}
