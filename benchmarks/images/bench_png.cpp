// The PNG decoder against the bare inflate of the same data, which no decoder can do without, and
// against its peers. With an argument, only the pictures whose names contain it.
#include "foundation/streams/memory_container.h"
#include "images/peers.h"
#include "images/pictures.h"
#include "images/png/png_decoder.h"
#include "pixels/pixmaps/memory_pixmap.h"
#include "rounds.h"

#include <malloc.h>
#include <png.h>
#include <zlib.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

using namespace Bench;

namespace {

struct Race {
    const char* name;
    std::vector<Bytes> files;
    std::size_t rounds;
    std::size_t largest; // bytes of the inflated data of any file
};

// Inflates into memory that is there already.
void Inflate(const std::vector<Bytes>& data, Bytes& room)
{
    for (const Bytes& each : data) {
        uLongf size = static_cast<uLongf>(room.size());
        if (uncompress(room.data(), &size, each.data(), static_cast<uLong>(each.size())) != Z_OK)
            std::abort();
        Keep(room[0]);
    }
}

const char* onlyPictures = "";

void Run(const Race& race)
{
    if (std::strstr(race.name, onlyPictures) == nullptr)
        return;
    std::vector<Bytes> data;
    std::vector<std::unique_ptr<Kesto::CMemoryContainer>> streams;
    for (const Bytes& file : race.files) {
        data.push_back(ImageDataOf(file));
        streams.push_back(std::make_unique<Kesto::CMemoryContainer>());
        streams.back()->Write(file.data(), file.size());
    }
    Bytes room(race.largest);
    const auto all = [&](void (*decode)(const Bytes&)) {
        return [&race, decode] {
            for (const Bytes& file : race.files)
                decode(file);
        };
    };
    const std::vector<double> seconds = MedianSeconds(race.rounds,
                                                      {{[&] { Inflate(data, room); }},
                                                       {[&] {
                                                           for (const auto& stream : streams) {
                                                               Kesto::CPNGDecoder decoder;
                                                               Keep(*decoder.Decode(*stream));
                                                           }
                                                       }},
                                                       {all(DecodeWithLibpng)},
                                                       {all(DecodeWithSpng)},
                                                       {all(DecodeWithStb)}},
                                                      ProcessorSeconds);
    std::printf("%-28s %9.2f %11.2f %8.2f %8.2f %9.2f\n", race.name, seconds[1] * 1e3,
                seconds[0] / seconds[1], seconds[2] / seconds[1], seconds[3] / seconds[1],
                seconds[4] / seconds[1]);
}

Race RaceOf(const char* name, const TestPNG::Picture& picture, int filters)
{
    return {name,
            {Write(picture, filters)},
            15,
            (picture.samples.size() + static_cast<std::size_t>(picture.height))};
}

Race IconRace()
{
    Race race{"1,000 icons, 24 x 24", {}, 25, 24 * (24 * 4 + 1)};
    for (std::uint32_t i = 0; i < 1000; ++i)
        race.files.push_back(Write(IconLike(24, i), PNG_ALL_FILTERS));
    return race;
}

} // namespace

int main(int count, char** arguments)
{
    if (count > 1)
        onlyPictures = arguments[1];
    // Memory that was freed is kept. Else each contender's first touch of fresh pages would be
    // timed too, and only for those whose blocks happen to pass the allocator's limits.
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);

    constexpr std::int32_t kSide = 2048;
    std::printf("Decoding PNG files; the ratios say how many times as long the others take\n"
                "%-28s %9s %11s %8s %8s %9s\n",
                "", "ms", "uncompress", "libpng", "libspng", "stb_image");
    Run(RaceOf("RGBA photo, 2048 x 2048", PhotoLike(kSide, 6), PNG_ALL_FILTERS));
    Run(RaceOf("the same, all Paeth", PhotoLike(kSide, 6), PNG_FILTER_PAETH));
    Run(RaceOf("the same, all Average", PhotoLike(kSide, 6), PNG_FILTER_AVG));
    Run(RaceOf("RGB photo", PhotoLike(kSide, 2), PNG_ALL_FILTERS));
    Run(RaceOf("grey photo", PhotoLike(kSide, 0), PNG_ALL_FILTERS));
    Run(RaceOf("palette photo, dithered", DitheredPhotoLike(kSide), PNG_FILTER_NONE));
    Run(RaceOf("palette drawing", DrawingLike(kSide), PNG_FILTER_NONE));
    Run(IconRace());
    return 0;
}
