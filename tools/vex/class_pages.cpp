#include "vex/class_pages.h"

#include "controls/registered_classes.h"
#include "dialogs/preview/preview_classes.h"
#include "vex/keys.h"
#include "vex/show.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace Vex {
namespace {

namespace fs = std::filesystem;

CSourceText SampleOf(const Kesto::RegisteredClass& registered, const fs::path& samples)
{
    const std::string name(registered.name);
    if (registered.IsToCome())
        return {name, "PDialog(margin: 12) {\n    " + name + "();\n}\n"};
    return CSourceText::Load(samples / (name + ".vex"));
}

// As a block that Markdown leaves as it is.
void PrintIndented(std::ostream& out, const std::string& text)
{
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        out << "    " << line << '\n';
    out << '\n';
}

void PrintPage(std::ostream& out, const Kesto::RegisteredClass& registered,
               const std::string& sample)
{
    out << "# " << registered.name << " {#layout_" << registered.name << "}\n\n![]("
        << registered.name << ".png)\n\n";
    if (registered.IsToCome())
        out << "Still to come; a box of about its size stands for it.\n\n";
    PrintIndented(out, sample);
    PrintClassTables(out, registered);
}

void Write(const fs::path& file, const std::string& text)
{
    if (!(std::ofstream(file, std::ios::binary) << text).flush())
        throw std::runtime_error(file.string() + ": the file can't be written");
}

// The page that leads to all others.
std::string Contents()
{
    std::ostringstream page;
    page << "# Classes of layouts {#layout_classes}\n\nWhat a layout can name:\n\n";
    for (const Kesto::RegisteredClass& registered : Kesto::RegisteredClasses())
        page << "- \\subpage layout_" << registered.name
             << (registered.IsToCome() ? " (still to come)" : "") << '\n';
    return page.str();
}

} // namespace

void WriteClassPages(const fs::path& folder, const fs::path& samples)
{
    Project::RegisterPreviewClasses();
    fs::create_directories(folder);
    for (const Kesto::RegisteredClass& registered : Kesto::RegisteredClasses()) {
        const CSourceText sample = SampleOf(registered, samples);
        const fs::path file = folder / std::string(registered.name);
        WritePicture({sample, {}}, fs::path(file).concat(".png"), false);
        std::ostringstream page;
        PrintPage(page, registered, sample.Text());
        Write(fs::path(file).concat(".md"), page.str());
    }
    Write(folder / "classes.md", Contents());
}

} // namespace Vex
