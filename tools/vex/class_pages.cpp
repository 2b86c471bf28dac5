#include "vex/class_pages.h"

#include "controls/registered_classes.h"
#include "vex/keys.h"
#include "vex/show.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace Vex {
namespace {

// What a picture of a class shows of the keys that it has.
constexpr struct {
    std::string_view key;
    std::string_view value;
} kSamples[] = {{"button_label", "'Label'"},  {"label", "'Label'"},    {"number_value", "40"},
                {"slider_value", "40"},       {"text", "'Some text'"}, {"title", "'Title'"},
                {"window_title", "'A title'"}};

constexpr double kLeastSide = 12; // of a view that can be seen

std::string SampleOf(const Kesto::RegisteredClass& registered, bool hasSize)
{
    std::string properties = hasSize ? "width: 160, height: 60" : "";
    for (const auto& sample : kSamples)
        if (HasKey(registered, sample.key))
            properties += (properties.empty() ? "" : ", ") + std::string(sample.key) + ": " +
                          std::string(sample.value);
    return std::string(registered.name) + "(" + properties + ");\n";
}

CBuiltLayout Build(const std::string& text)
{
    return {CSourceText("sample", text), {}};
}

// The text that the picture is of; a view that would be too small to be seen has a size.
std::string DrawSample(const Kesto::RegisteredClass& registered, const std::filesystem::path& file)
{
    std::string sample = SampleOf(registered, false);
    const CBuiltLayout natural = Build(sample);
    const Kesto::Rect frame = natural.Outermost().view->GetFrame();
    if (frame.Width() < kLeastSide || frame.Height() < kLeastSide)
        sample = SampleOf(registered, true);
    const bool isWindow = registered.kind == Kesto::VexClassKind::kWindow;
    WritePicture(Build(isWindow ? sample : "CDialog(margin: 12) {\n" + sample + "}\n"), file,
                 false);
    return sample;
}

} // namespace

void WriteClassPages(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    for (const Kesto::RegisteredClass& registered : Kesto::RegisteredClasses()) {
        const std::string name(registered.name);
        const std::string sample = DrawSample(registered, folder / (name + ".png"));
        std::ostringstream page;
        page << "# " << name << " {#layout_" << name << "}\n\n![](" << name << ".png)\n\n    "
             << sample << '\n';
        if (registered.IsToCome())
            page << "Still to come; a box of about its size stands for it.\n\n";
        PrintClassTables(page, registered);
        const std::filesystem::path file = folder / (name + ".md");
        if (!(std::ofstream(file, std::ios::binary) << page.str()).flush())
            throw std::runtime_error(file.string() + ": the file can't be written");
    }
}

} // namespace Vex
