// Makes a contact sheet of the pixel kernels: each one applied to a sample picture, with its name
// below.
#include "contact_sheet/contact_sheet.h"
#include "pixels/kernels/arithmetic.h"
#include "pixels/kernels/blend.h"
#include "pixels/kernels/box.h"
#include "pixels/kernels/colour.h"
#include "pixels/kernels/mosaic.h"
#include "pixels/kernels/neighbours.h"
#include "pixels/kernels/noise.h"
#include "pixels/kernels/transfer.h"
#include "pixels/kernels/view_access.h"
#include "pixels/operations/pixmap_scaler.h"
#include "pixels/pixmaps/memory_pixmap.h"

#include <CLI/CLI.hpp>

#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

using namespace Kesto;
using namespace Kesto::Kernels;

namespace {

constexpr std::int32_t kSize = 160; // of a sample
// More of the source around it, for the kernels that look around.
constexpr std::int32_t kBorder = 8;
constexpr std::int32_t kLabel = 22;  // below each sample
constexpr std::int32_t kColumns = 6; // of samples

// Three planes with a view of all of them and one of the sample in the middle.
struct Picture {
    Picture() : fPixmap(8, kSize + 2 * kBorder, kSize + 2 * kBorder, 3, 4, 0)
    {
        fPixmap.GetView(fAll);
        fSample = Around(0);
    }

    // The sample with `margin` pixels more on each side.
    CPixView Around(std::int32_t margin) const
    {
        CPixView view;
        const std::int32_t corner = kBorder - margin;
        fPixmap.GetView(view, corner, corner, kSize + 2 * margin, kSize + 2 * margin, 0, -1);
        return view;
    }

    CMemoryPixmap fPixmap;
    CPixView fAll;
    CPixView fSample;
};

// A landscape of hues with a sun, so that edges, plains and colours are all there.
void Paint(const Picture& picture)
{
    for (std::int32_t y = 0; y < picture.fAll.height; ++y) {
        for (std::int32_t x = 0; x < picture.fAll.width; ++x) {
            const bool sun = std::hypot(x - 110.0, y - 50.0) < 26;
            const bool hill = y > 120 - 30 * std::sin(x / 22.0);
            const std::array<int, 3> hsv =
                sun    ? std::array{38, 230, 255}
                : hill ? std::array{80 + x / 8, 200, 90 + (x / 6 + y / 6) % 2 * 60}
                       : std::array{140 + y / 8, 150, 255 - y / 2};
            for (std::int32_t plane = 0; plane < 3; ++plane)
                RowOf<std::uint8_t>(picture.fAll, plane, y)[x] =
                    static_cast<std::uint8_t>(hsv[static_cast<std::size_t>(plane)]);
        }
    }
    HueToRGB(picture.fAll, picture.fAll);
}

// The sample by way of another size and back.
void ScaleTo(const Picture& out, const Picture& source, std::int32_t size)
{
    CMemoryPixmap other(8, size, size, 3, 4, 0);
    const PixelRect sample{kBorder, kBorder, kBorder + kSize, kBorder + kSize};
    CPixmapScaler scaler;
    scaler.SetPixmaps(&other, const_cast<CMemoryPixmap*>(&source.fPixmap), other.GetBounds(),
                      sample);
    scaler.DoCellsQuietly();
    scaler.SetPixmaps(const_cast<CMemoryPixmap*>(&out.fPixmap), &other, sample, other.GetBounds());
    scaler.DoCellsQuietly();
}

struct Sample {
    const char* fName;
    std::function<void(const Picture& out, const Picture& source)> fApply;
};

std::vector<Sample> Samples()
{
    static std::array<std::uint8_t, 256> curve;
    static std::array<std::int32_t, 256> relief;
    static std::array<std::int32_t, kSharpenLevels> gain;
    for (std::size_t i = 0; i < 256; ++i) {
        curve[i] = static_cast<std::uint8_t>(i < 128 ? 2 * i : 511 - 2 * i);
        relief[i] = static_cast<std::int32_t>(i) / 3;
    }
    for (std::size_t i = 0; i < kSharpenLevels; ++i)
        gain[i] = static_cast<std::int32_t>(i) - 1020;
    using Out = const Picture&;
    static const std::array<std::uint8_t, 3> red = {255, 0, 0};
    static const BoxShape nine{9, 9};
    return {
        {"source", [](Out out, Out in) { Copy(out.fSample, in.fSample); }},
        {"invert", [](Out out, Out in) { Invert(out.fSample, in.fSample); }},
        {"add, wrapping",
         [](Out out, Out in) { AddWrapping(out.fSample, in.fSample, in.fSample); }},
        {"add, capped", [](Out out, Out in) { AddCapped(out.fSample, in.fSample, in.fSample); }},
        {"subtract, floored",
         [](Out out, Out in) { SubtractFloored(out.fSample, in.fSample, in.Around(4)); }},
        {"add lookup",
         [](Out out, Out in) { AddLookup(out.fSample, in.fSample, in.fSample, relief); }},
        {"table map", [](Out out, Out in) { MapTable(out.fSample, in.fSample, curve); }},
        {"blend, alpha 128",
         [](Out out, Out in) { Blend(out.fSample, in.fSample, in.Around(8), 128); }},
        {"colour by mask",
         [](Out out, Out in) { BlendColour(out.fSample, red, in.fSample, in.fSample); }},
        {"mask", [](Out out,
                    Out in) { Copy(out.fSample, in.fSample), ApplyMask(out.fSample, in.fSample); }},
        {"noise", [](Out out, Out in) { AddNoise(out.fSample, in.fSample, 30); }},
        {"random colour",
         [](Out out, Out in) { RandomColour(out.fSample, in.fSample, red, 3000); }},
        {"box mean", [](Out out, Out in) { BoxMean(out.fSample, in.Around(4), nine, true); }},
        {"leaning mean",
         [](Out out, Out in) {
             BoxMean(out.fSample, in.Around(8), {1, 16, 1}, true);
         }},
        {"dilate", [](Out out, Out in) { Dilate(out.fSample, in.Around(4), nine); }},
        {"erode", [](Out out, Out in) { Erode(out.fSample, in.Around(4), nine); }},
        {"range",
         [](Out out, Out in) {
             BoxRange(out.fSample, in.Around(1), {3, 3});
         }},
        {"mosaic",
         [](Out out, Out in) {
             Mosaic(out.fSample, in.fSample, {10, 10}, true);
         }},
        {"emboss", [](Out out, Out in) { Emboss(out.fSample, in.Around(1), relief, 7, 128); }},
        {"sharpen", [](Out out, Out in) { Sharpen(out.fSample, in.Around(1), gain); }},
        {"neighbour mean", [](Out out, Out in) { NeighbourMean(out.fSample, in.Around(1), 1); }},
        {"hue to RGB", [](Out out, Out in) { HueToRGB(out.fSample, in.fSample); }},
        {"reduced to 40", [](Out out, Out in) { ScaleTo(out, in, 40); }},
        {"enlarged to 501", [](Out out, Out in) { ScaleTo(out, in, 501); }},
    };
}

bool WriteSheet(const std::string& path)
{
    const std::vector<Sample> samples = Samples();
    const std::int32_t rows = (static_cast<std::int32_t>(samples.size()) + kColumns - 1) / kColumns;
    ContactSheet sheet(kColumns * (kSize + 10) + 10, rows * (kSize + kLabel) + 10, 0xFFFFFF);
    const Picture source;
    Paint(source);
    for (std::int32_t i = 0; const Sample& sample : samples) {
        const Picture out;
        sample.fApply(out, source);
        const std::int32_t x = 10 + i % kColumns * (kSize + 10);
        const std::int32_t y = 10 + i / kColumns * (kSize + kLabel);
        sheet.Draw(out.fSample, x, y);
        sheet.Label(sample.fName, x, y + kSize + 15);
        ++i;
    }
    return sheet.Write(path);
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{
        "Writes a contact sheet of the pixel kernels: each one applied to a sample picture.",
        "pixdemo"};
    app.set_version_flag("--version", "pixdemo " SIDECAR_VERSION);
    std::string path = "kernels.png";
    app.add_option("OUT.png", path, "The sheet to write")->capture_default_str();
    CLI11_PARSE(app, argc, argv);
    if (!WriteSheet(path)) {
        std::fprintf(stderr,
                     "pixdemo: %s could not be written; is the folder there and writable?\n",
                     path.c_str());
        return 1;
    }
    std::printf("%s\n", path.c_str());
    return 0;
}
