// Makes a contact sheet of drawing: shapes, lines, text, pictures, frames and controls, in the four
// themes and at the usual scales.
#include "drawdemo/panel.h"
#include "drawing/ports/image.h"
#include "drawing/tools/draw_tools.h"
#include "pictures/picture_files.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

using namespace Kesto;

namespace {

constexpr const char* kThemeNames[] = {"light", "medium light", "medium dark", "dark", "system"};

struct Choice {
    std::int32_t theme;
    double scale;
};

PixelPoint SizeOf(const Choice& choice)
{
    return {ToDevice(kPanelWidth, choice.scale), ToDevice(kPanelHeight, choice.scale)};
}

// Draws one panel onto the sheet.
void DrawChoice(CSystemPort& sheet, const Choice& choice, const PixelPoint& at)
{
    CDrawTools::Get().SetTheme(choice.theme);
    const PixelPoint size = SizeOf(choice);
    CImage image(size.x, size.y);
    image.SetScaleFactor(choice.scale);
    std::array<char, 64> title;
    std::snprintf(title.data(), title.size(), "%s, scale %g", kThemeNames[choice.theme],
                  choice.scale);
    DrawPanel(image, title.data());
    const Point corner{static_cast<double>(at.x), static_cast<double>(at.y)};
    sheet.DrawPort(image, image.GetClientRect(),
                   {corner.x, corner.y, corner.x + size.x, corner.y + size.y});
}

// As a picture file, red, green and blue. Throws Host::Failure.
void Write(const CImage& sheet, const std::string& path)
{
    Host::PictureInfo info;
    info.width = sheet.GetSize().x;
    info.height = sheet.GetSize().y;
    const auto sink = Host::CreatePicture(path, {});
    sink->Begin(info);
    const CPixelSurface pixels = SurfaceOf(*sheet.GetSurface());
    std::vector<std::uint8_t> row(info.RowBytes());
    for (std::int32_t y = 0; y < info.height; ++y) {
        for (std::int32_t x = 0; x < info.width; ++x)
            for (std::int32_t channel = 0; channel < 3; ++channel)
                row[static_cast<std::size_t>(3 * x + channel)] =
                    static_cast<std::uint8_t>(*pixels.At(x, y) >> (16 - 8 * channel));
        sink->PutRows(row.data(), row.size(), 1);
    }
    sink->Finish();
}

// Two columns.
void WriteSheet(const std::string& path, const std::vector<Choice>& choices)
{
    const auto count = static_cast<std::int32_t>(choices.size());
    const std::int32_t columns = std::min(count, 2);
    std::vector<PixelPoint> places;
    PixelPoint end;
    std::int32_t top = 0;
    for (std::int32_t row = 0; row * columns < count; ++row) {
        std::int32_t left = 0;
        std::int32_t height = 0;
        for (std::int32_t i = row * columns; i < std::min(count, (row + 1) * columns); ++i) {
            const PixelPoint size = SizeOf(choices[static_cast<std::size_t>(i)]);
            places.push_back({left, top});
            left += size.x;
            height = std::max(height, size.y);
        }
        end.x = std::max(end.x, left);
        top += height;
    }
    CImage sheet(end.x, top);
    sheet.Paint(sheet.GetClientRect(), Colour{128, 128, 128});
    for (std::size_t i = 0; i < choices.size(); ++i)
        DrawChoice(sheet, choices[i], places[i]);
    Write(sheet, path);
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Writes a contact sheet of drawing: shapes, lines, text, pictures, frames and "
                 "controls. Unless told otherwise, each theme has another scale.",
                 "drawdemo"};
    app.set_version_flag("--version", "drawdemo " SIDECAR_VERSION);
    std::string path = "drawing.png";
    std::vector<std::int32_t> themes;
    std::vector<double> scales;
    app.add_option("OUT.png", path, "The sheet to write")->capture_default_str();
    app.add_option("--theme", themes, "0 light, 1 medium light, 2 medium dark, 3 dark, 4 system")
        ->check(CLI::Range(0, 4));
    app.add_option("--scale", scales, "Pixels in a unit, 0.5 to 4")->check(CLI::Range(0.5, 4.0));
    CLI11_PARSE(app, argc, argv);

    std::vector<Choice> choices;
    if (themes.empty() && scales.empty()) {
        choices = {{0, 1.0}, {1, 1.25}, {2, 1.5}, {3, 2.0}};
    } else {
        for (const std::int32_t theme : themes.empty() ? std::vector{0} : themes)
            for (const double scale : scales.empty() ? std::vector{1.0} : scales)
                choices.push_back({theme, scale});
    }
    try {
        WriteSheet(path, choices);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "drawdemo: %s\n", failure.what());
        return 1;
    }
    std::printf("%s\n", path.c_str());
    return 0;
}
