// Times ports against Qt's raster painter and Cairo with Pango, at scale 1 and 2, one thread each,
// in the same run: above 1 a ratio says that we are faster.
#include "drawing/peers.h"
#include "drawing/ports/image.h"
#include "pixels/pixmaps/memory_pixmap.h"
#include "rounds.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <string_view>
#include <vector>

using namespace Kesto;

namespace {

constexpr std::size_t kRounds = 31;
constexpr int kCalls = 400; // in a round
constexpr std::int32_t kIcon = 24;
constexpr std::int32_t kLarge = 2000;
constexpr const char* kScrolling = "scrolling 1,000 x 1,000";

// A round badge with a soft edge, and its planes.
struct Source {
    explicit Source(std::int32_t side) : planes(8, side, side, 4, 4, 0)
    {
        picture.side = side;
        picture.pixels.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
        for (std::int32_t y = 0; y < side; ++y)
            for (std::int32_t x = 0; x < side; ++x)
                Set(x, y, side);
    }
    void Set(std::int32_t x, std::int32_t y, std::int32_t side)
    {
        const std::uint32_t alpha = static_cast<std::uint32_t>(255 * (x + 1) / side);
        std::uint32_t pixel = alpha << 24;
        for (std::int32_t plane = 0; plane < 4; ++plane) {
            const auto value = static_cast<std::uint8_t>(
                plane == 3 ? static_cast<std::int32_t>(alpha) : 7 * x + 3 * y + 60 * plane);
            planes.GetBaseAddress()[plane * planes.GetPlaneBytes() + y * planes.GetRowBytes() + x] =
                value;
            if (plane < 3)
                pixel |= value * alpha / 255 << (16 - 8 * plane);
        }
        picture.pixels[static_cast<std::size_t>(y * side + x)] = pixel;
    }

    Bench::Picture picture;
    CMemoryPixmap planes;
};

struct Row {
    const char* name;
    int calls;
    std::function<void(CImage&, int)> ours;
    std::function<void(Bench::Peer&, int)> peers;
};

// Somewhere on the surface, elsewhere for each call; whole units.
double Across(int call)
{
    return call * 37 % 900;
}
double Down(int call)
{
    return call * 53 % 940;
}

void Compare(const Row& row, double scale, const Source& icon, const Source& large)
{
    CImage image(ToDevice(1000, scale), ToDevice(1000, scale));
    image.SetScaleFactor(scale);
    image.Paint(Rect{0, 0, 1000, 1000}, kWhite);
    image.SetFont({"DejaVu Sans Condensed", 11});
    const auto qt = Bench::MakeQt(scale, icon.picture, large.picture);
    const auto cairo = Bench::MakeCairo(scale, icon.picture, large.picture);
    const auto repeat = [&row](const auto& call) {
        return [&row, call] {
            for (int i = 0; i < row.calls; ++i)
                call(i);
        };
    };
    const std::vector<double> seconds =
        Bench::MedianSeconds(kRounds,
                             {{repeat([&](int i) { row.ours(image, i); })},
                              {repeat([&](int i) { row.peers(*qt, i); })},
                              {repeat([&](int i) { row.peers(*cairo, i); })}},
                             Bench::ProcessorSeconds);
    const double each = 1e6 / row.calls;
    std::printf("%-34s %5.3g %10.3f us %10.2f Qt %8.2f Cairo\n", row.name, scale, seconds[0] * each,
                seconds[1] / seconds[0], seconds[2] / seconds[0]);
}

// Against the bare move of as many bytes.
void CompareScrolling()
{
    CImage image(1000, 1000);
    image.Paint(Rect{0, 0, 1000, 1000}, kWhite);
    std::vector<std::uint8_t> bytes(4'000'000);
    CDeviceRegion uncovered;
    const std::vector<double> seconds = Bench::MedianSeconds(
        kRounds,
        {{[&] {
             for (int i = 0; i < 20; ++i)
                 image.ScrollPixels({0, 0, 1000, 1000}, 0, i % 2 == 0 ? 16 : -16, uncovered);
         }},
         {[&] {
             for (int i = 0; i < 20; ++i)
                 std::memmove(bytes.data() + (i % 2 == 0 ? 64'000 : 0),
                              bytes.data() + (i % 2 == 0 ? 0 : 64'000), 3'936'000);
             Bench::Keep(bytes);
         }}},
        Bench::ProcessorSeconds);
    std::printf("%-34s %5.3g %10.3f us %10.2f memmove\n", kScrolling, 1.0, seconds[0] * 5e4,
                seconds[1] / seconds[0]);
}

} // namespace

// With a word, only the rows whose names have it.
int main(int count, char** words)
{
    Source icon(kIcon);
    Source large(kLarge);
    const std::string text = "A line of text with forty characters, ok";
    const Rect wholeIcon{0, 0, kIcon, kIcon};
    const Rect wholeLarge{0, 0, kLarge, kLarge};
    const std::vector<Row> rows = {
        {"filled rectangle 20 x 20", 10 * kCalls,
         [](CImage& image, int i) {
             image.Paint(Rect{Across(i), Down(i), Across(i) + 20, Down(i) + 20},
                         Colour{18, 128, 143});
         },
         [](Bench::Peer& peer, int i) { peer.FillRect(Across(i), Down(i), 20, 20); }},
        {"rounded rectangle 90 x 22", kCalls,
         [](CImage& image, int i) {
             image.PaintAndFrame(RoundRect{{Across(i), Down(i), Across(i) + 90, Down(i) + 22}, 4},
                                 CPen{{130, 134, 138}}, CBrush{{251, 251, 251}});
         },
         [](Bench::Peer& peer, int i) { peer.RoundedRect(Across(i), Down(i), 90, 22, 4); }},
        {"rounded rectangle 600 x 400", kCalls / 10,
         [](CImage& image, int i) {
             image.PaintAndFrame(RoundRect{{i * 5.0, i * 7.0, i * 5.0 + 600, i * 7.0 + 400}, 8},
                                 CPen{{130, 134, 138}}, CBrush{{251, 251, 251}});
         },
         [](Bench::Peer& peer, int i) { peer.RoundedRect(i * 5.0, i * 7.0, 600, 400, 8); }},
        {"line of 40 characters", kCalls,
         [&](CImage& image, int i) {
             image.DrawTextLine(text, {Across(i), Down(i) + 20});
         },
         [&](Bench::Peer& peer, int i) { peer.Text(Across(i), Down(i) + 20, text); }},
        {"blended icon of 24 x 24 pixels", 10 * kCalls,
         [&](CImage& image, int i) {
             const double side = kIcon / image.GetScaleFactor();
             image.DrawPixmapBlended(icon.planes, wholeIcon,
                                     {Across(i), Down(i), Across(i) + side, Down(i) + side});
         },
         [](Bench::Peer& peer, int i) { peer.Icon(Across(i), Down(i)); }},
        {"2,000 x 2,000 to a third", 1,
         [&](CImage& image, int) {
             const double side = kLarge / 3.0 / image.GetScaleFactor();
             image.DrawPixmapBlended(large.planes, wholeLarge, {0, 0, side, side});
         },
         [](Bench::Peer& peer, int) { peer.Stretched(kLarge / 3.0); }},
    };
    const std::string_view wanted = count > 1 ? words[1] : "";
    const auto isWanted = [wanted](std::string_view name) {
        return name.find(wanted) < name.size();
    };
    for (const Row& row : rows)
        for (const double scale : {1.0, 2.0})
            if (isWanted(row.name) && (scale == 1.0 || row.calls > 1))
                Compare(row, scale, icon, large);
    if (isWanted(kScrolling))
        CompareScrolling();
    return 0;
}
