#include "pictures/picture.h"

#include <numeric>

namespace Host {

Palette Palette::Grays()
{
    Palette grays;
    std::iota(grays.red.begin(), grays.red.end(), uint8_t{0});
    grays.green = grays.blue = grays.red;
    return grays;
}

const char* ModeKey(PictureMode mode)
{
    switch (mode) {
    case PictureMode::kGrayscale:
        return "GrayScale";
    case PictureMode::kIndexed:
        return "IndexedColor";
    case PictureMode::kRgb:
        return "RGBColor";
    }
    return "";
}

const char* KindOf(const PictureInfo& info)
{
    switch (info.mode) {
    case PictureMode::kGrayscale:
        return "grey";
    case PictureMode::kIndexed:
        return "indexed";
    case PictureMode::kRgb:
        return info.planes == 4 ? "RGB with alpha" : "RGB";
    }
    return "unknown";
}

} // namespace Host
