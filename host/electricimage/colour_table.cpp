#include "electricimage/colour_table.h"

#include "failure.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace Host {
namespace {

struct CountedColour {
    uint32_t colour; // 0xRRGGBB
    int64_t pixels;
};
using ColourList = std::vector<CountedColour>;

constexpr std::array kChannelShifts = {16, 8, 0};

int Channel(uint32_t colour, int shift)
{
    return static_cast<int>(colour >> shift & 0xFF);
}

uint32_t ColourAt(const PictureInfo& info, const uint8_t* row, int32_t x)
{
    const uint8_t* pixel = row + static_cast<size_t>(x) * static_cast<size_t>(info.planes);
    if (info.planes == 1)
        return static_cast<uint32_t>(info.palette.red[*pixel]) << 16 |
               static_cast<uint32_t>(info.palette.green[*pixel]) << 8 | info.palette.blue[*pixel];
    return static_cast<uint32_t>(pixel[0]) << 16 | static_cast<uint32_t>(pixel[1]) << 8 | pixel[2];
}

// All colours of the picture with the pixels that have them, darkest number first.
ColourList CountColours(PictureSource& picture)
{
    const PictureInfo& info = picture.Info();
    std::unordered_map<uint32_t, int64_t> counts;
    for (int32_t y = 0; y < info.height; ++y) {
        const uint8_t* row = picture.Row(y);
        for (int32_t x = 0; x < info.width; ++x)
            ++counts[ColourAt(info, row, x)];
    }
    ColourList colours;
    for (const auto& [colour, pixels] : counts)
        colours.push_back({colour, pixels});
    std::ranges::sort(colours, {}, &CountedColour::colour);
    return colours;
}

// A range of similar colours that will share an entry.
struct Box {
    ColourList::iterator first, last;
    int widestShift = 0; // the channel in which they differ most,
    int extent = 0;      // and by how much

    Box(ColourList::iterator begin, ColourList::iterator end) : first(begin), last(end)
    {
        for (const int shift : kChannelShifts) {
            const auto [low, high] =
                std::ranges::minmax_element(first, last, {}, [shift](const CountedColour& entry) {
                    return Channel(entry.colour, shift);
                });
            const int range = Channel(high->colour, shift) - Channel(low->colour, shift);
            if (range > extent) {
                extent = range;
                widestShift = shift;
            }
        }
    }

    int64_t Pixels() const
    {
        int64_t sum = 0;
        for (auto at = first; at != last; ++at)
            sum += at->pixels;
        return sum;
    }

    // The second half by pixels, with at least one colour left in each; this box keeps the first.
    Box SplitOff()
    {
        std::sort(first, last,
                  [shift = widestShift](const CountedColour& a, const CountedColour& b) {
                      return std::pair(Channel(a.colour, shift), a.colour) <
                             std::pair(Channel(b.colour, shift), b.colour);
                  });
        const int64_t half = Pixels() / 2;
        auto middle = first + 1;
        for (int64_t sum = first->pixels; middle + 1 < last && sum + middle->pixels <= half;
             ++middle)
            sum += middle->pixels;
        const Box second(middle, last);
        *this = Box(first, middle);
        return second;
    }

    // The mean colour of the pixels.
    uint32_t Mean() const
    {
        const int64_t pixels = Pixels();
        uint32_t mean = 0;
        for (const int shift : kChannelShifts) {
            int64_t sum = pixels / 2;
            for (auto at = first; at != last; ++at)
                sum += at->pixels * Channel(at->colour, shift);
            mean |= static_cast<uint32_t>(sum / pixels) << shift;
        }
        return mean;
    }
};

// Cuts the colours into at most `size` boxes, each time the one that spreads widest.
std::vector<Box> CutColours(ColourList& colours, size_t size)
{
    std::vector<Box> boxes = {Box(colours.begin(), colours.end())};
    while (boxes.size() < size) {
        const auto widest = std::ranges::max_element(boxes, {}, &Box::extent);
        if (widest->extent == 0)
            break;
        const Box second = widest->SplitOff();
        boxes.push_back(second);
    }
    return boxes;
}

} // namespace

ColourTable::ColourTable(PictureSource& picture, int bits, bool reduce, const std::string& name)
    : fSize(size_t{1} << bits)
{
    if (picture.Info().planes == 1 && KeepIndices(picture))
        return;
    ColourList colours = CountColours(picture);
    if (colours.size() > fSize && !reduce)
        throw Failure(name + " has " + std::to_string(colours.size()) + " colours, " +
                          std::to_string(bits) + " bits hold " + std::to_string(fSize),
                      "Give more --bits, or let similar colours share an entry with --reduce.",
                      kHostBadMode);
    std::vector<Box> boxes = CutColours(colours, fSize);
    // In the order of their colours, so that the table doesn't depend on how the boxes were cut.
    std::ranges::sort(boxes, {}, &Box::Mean);
    for (size_t i = 0; i < boxes.size(); ++i) {
        const uint32_t mean = boxes[i].Mean();
        fPalette.red[i] = static_cast<uint8_t>(mean >> 16);
        fPalette.green[i] = static_cast<uint8_t>(mean >> 8);
        fPalette.blue[i] = static_cast<uint8_t>(mean);
        for (auto at = boxes[i].first; at != boxes[i].last; ++at)
            fIndices[at->colour] = static_cast<uint8_t>(i);
    }
}

bool ColourTable::KeepIndices(PictureSource& picture)
{
    const PictureInfo& info = picture.Info();
    for (int32_t y = 0; y < info.height && fSize < 256; ++y) {
        const uint8_t* row = picture.Row(y);
        if (*std::max_element(row, row + info.width) >= fSize)
            return false;
    }
    // A grey picture's levels are no indices: in a short table they would all be near black.
    if (info.mode == PictureMode::kGrayscale && fSize < 256)
        return false;
    fPalette = info.palette;
    fKeep = true;
    return true;
}

void ColourTable::Convert(const PictureInfo& info, const uint8_t* row, uint8_t* indices)
{
    if (fKeep) {
        std::copy_n(row, info.width, indices);
        return;
    }
    for (int32_t x = 0; x < info.width; ++x)
        indices[x] = IndexOf(ColourAt(info, row, x));
}

} // namespace Host
