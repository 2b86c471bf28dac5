// Usage: sample_pictures FOLDER
// Writes the pictures of the samples into the folder: harbour.ppm, small.ppm, boat.pam (with
// alpha), depth.pgm, and hour1.ppm to hour5.ppm.
#include "harbour_scene.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

using Samples::HarbourScene;
using Samples::Sight;

constexpr int kGrid = 4; // each pixel is the mean of kGrid x kGrid sights
constexpr double kFarthest = 1000;

uint8_t ByteOf(double light)
{
    return static_cast<uint8_t>(std::lround(std::clamp(light, 0.0, 1.0) * 255));
}

struct Size {
    int width, height;
};

// Calls `take(sight)` for each of the places within a pixel.
template <class Take>
void LookAtPixel(const HarbourScene& scene, Size size, int column, int row, const Take& take)
{
    for (int i = 0; i < kGrid * kGrid; ++i) {
        const double px = column + (i % kGrid + 0.5) / kGrid, py = row + (i / kGrid + 0.5) / kGrid;
        take(scene.Look((px - size.width / 2.0) / size.height, 0.68 - py / size.height));
    }
}

// Red, green, blue and how much of the pixel the boat in front covers.
std::vector<uint8_t> DrawPixel(const HarbourScene& scene, Size size, int column, int row,
                               int planes)
{
    double red = 0, green = 0, blue = 0, front = 0;
    LookAtPixel(scene, size, column, row, [&](const Sight& sight) {
        red += sight.light.red;
        green += sight.light.green;
        blue += sight.light.blue;
        front += sight.foreground ? 1 : 0;
    });
    constexpr double kShare = 1.0 / (kGrid * kGrid);
    std::vector<uint8_t> pixel = {ByteOf(red * kShare), ByteOf(green * kShare),
                                  ByteOf(blue * kShare)};
    if (planes == 4)
        pixel.push_back(ByteOf(front * kShare));
    return pixel;
}

// Near is dark; nothing there is white.
uint8_t DepthOf(const HarbourScene& scene, Size size, int column, int row)
{
    double nearest = kFarthest * 2;
    LookAtPixel(scene, size, column, row,
                [&](const Sight& sight) { nearest = std::min(nearest, sight.distance); });
    return nearest > kFarthest
               ? 255
               : static_cast<uint8_t>(254 * std::log(nearest / 10) / std::log(kFarthest / 10));
}

bool WriteFile(const std::string& path, const std::string& header,
               const std::vector<uint8_t>& pixels)
{
    std::ofstream file(path, std::ios::binary);
    file << header;
    file.write(reinterpret_cast<const char*>(pixels.data()),
               static_cast<std::streamsize>(pixels.size()));
    return file.good();
}

bool DrawPicture(const std::string& path, const HarbourScene& scene, Size size, int planes)
{
    std::vector<uint8_t> pixels;
    for (int row = 0; row < size.height; ++row)
        for (int column = 0; column < size.width; ++column) {
            const std::vector<uint8_t> pixel = DrawPixel(scene, size, column, row, planes);
            pixels.insert(pixels.end(), pixel.begin(), pixel.end());
        }
    const std::string width = std::to_string(size.width), height = std::to_string(size.height);
    if (planes == 3)
        return WriteFile(path, "P6\n" + width + " " + height + "\n255\n", pixels);
    return WriteFile(path,
                     "P7\nWIDTH " + width + "\nHEIGHT " + height +
                         "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n",
                     pixels);
}

bool DrawDepth(const std::string& path, const HarbourScene& scene, Size size)
{
    std::vector<uint8_t> pixels;
    for (int row = 0; row < size.height; ++row)
        for (int column = 0; column < size.width; ++column)
            pixels.push_back(DepthOf(scene, size, column, row));
    return WriteFile(
        path, "P5\n" + std::to_string(size.width) + " " + std::to_string(size.height) + "\n255\n",
        pixels);
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "usage: sample_pictures FOLDER\n");
        return 2;
    }
    const std::string folder = std::string(arguments[1]) + "/";
    const Size large = {640, 400},
               small = {201, 126}; // an odd width: rows of packed pixels end within a byte
    const HarbourScene evening(0.45);
    bool good = DrawPicture(folder + "harbour.ppm", evening, large, 3) &&
                DrawPicture(folder + "small.ppm", evening, small, 3) &&
                DrawPicture(folder + "boat.pam", evening, small, 4) &&
                DrawDepth(folder + "depth.pgm", evening, small);
    for (int hour = 1; hour <= 5; ++hour)
        good = good && DrawPicture(folder + "hour" + std::to_string(hour) + ".ppm",
                                   HarbourScene((hour - 1) / 4.0), small, 3);
    if (!good)
        std::fprintf(stderr, "sample_pictures: a picture can't be written to %s\n", arguments[1]);
    return good ? 0 : 1;
}
