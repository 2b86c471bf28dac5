// Decoding and encoding of 4096 by 4096 RGB pictures through the module's entry, a file service in
// memory below it, against a copy of the pixels, a plain codec on the same host, and run-length TGA
// in two well-kept programs. Then the memory that a picture of 30000 by 2000 takes of a host with 1
// MiB.
//
// The host counts the rows it is handed, so that what is measured is the module and the file
// service. A save has its rows copied in by the host, one by one, for both codecs alike; since
// these copies and those of the file service are half of it, it is also measured without them.
#include "formats/lean_host.h"
#include "formats/pictures.h"
#include "formats/plain_codec.h"
#include "formats/race.h"

#include <OpenImageIO/imageio.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <unistd.h>

namespace Bench {
namespace {

constexpr int kSide = 4096;
constexpr int kRounds = 15;
constexpr int kSlow = 5; // whole processes run in every fifth round

[[noreturn]] void Die(const std::string& why)
{
    std::cerr << why << '\n';
    std::exit(1);
}

// Files in memory, gone at the end.
class Scratch {
public:
    Scratch() : fFolder("/dev/shm/electricimage_bench." + std::to_string(getpid()))
    {
        std::filesystem::create_directories(fFolder);
    }
    ~Scratch() { std::filesystem::remove_all(fFolder); }
    std::string Path(const std::string& name) const { return fFolder / name; }

private:
    std::filesystem::path fFolder;
};

void WriteTga(const std::string& path, const Bytes& pixels)
{
    const auto out = OIIO::ImageOutput::create(path);
    OIIO::ImageSpec spec(kSide, kSide, 3, OIIO::TypeDesc::UINT8);
    spec.attribute("compression", "rle");
    if (!out || !out->open(path, spec) || !out->write_image(OIIO::TypeDesc::UINT8, pixels.data()) ||
        !out->close())
        Die("OpenImageIO can't write " + path);
}

void ReadTga(const std::string& path, Bytes& pixels)
{
    const auto in = OIIO::ImageInput::open(path);
    if (!in || !in->read_image(0, 0, 0, 3, OIIO::TypeDesc::UINT8, pixels.data()))
        Die("OpenImageIO can't read " + path);
}

void RunProgram(const std::string& command)
{
    if (std::system(command.c_str()) != 0)
        Die("failed: " + command);
}

std::string Percent(size_t part, size_t whole)
{
    return std::to_string((100 * part + whole / 2) / whole) + " %";
}

void CheckBothWays(LeanHost& host, Bytes& pixels)
{
    const Bytes ours(host.file.begin() + 41,
                     host.file.begin() + static_cast<std::ptrdiff_t>(host.fileSize));
    LeanHost other;
    other.picture = pixels.data();
    PlainSave(other, kSide, kSide);
    if (!std::equal(ours.begin(), ours.end(), other.file.begin() + 41))
        Die("the plain encoder and the module differ");
    Bytes back(pixels.size());
    host.picture = back.data();
    host.Open();
    if (back != pixels)
        Die("the picture does not come back");
}

// What runs on a host, for a race.
std::function<void()> OnHost(LeanHost& host, void (*run)(LeanHost&))
{
    return [&host, run] {
        host.MakeCurrent();
        run(host);
    };
}

void RaceWithoutCopies(const std::string& name, LeanHost& saver, LeanHost& plainSaver,
                       double encodePlain)
{
    saver.sparing = plainSaver.sparing = true;
    Race race("encode, " + name + ", without the host's copies of rows and file");
    race.Enter("the module", OnHost(saver, [](LeanHost& host) { host.Save(kSide, kSide); }));
    race.Enter("plain encoder, same host",
               OnHost(plainSaver, [](LeanHost& host) { PlainSave(host, kSide, kSide); }),
               encodePlain);
    race.Enter("rows passed on unseen",
               OnHost(plainSaver, [](LeanHost& host) { BareSave(host, kSide, kSide); }));
    race.Run(kRounds);
}

void RacePicture(const std::string& name, Bytes pixels, double decodeCopy, double decodePlain,
                 double encodePlain)
{
    const Scratch scratch;
    const std::string tga = scratch.Path("in.tga"), raw = scratch.Path("in.rgb"),
                      out = scratch.Path("out.tga");
    WriteTga(tga, pixels);
    std::ofstream(raw, std::ios::binary)
        .write(reinterpret_cast<const char*>(pixels.data()),
               static_cast<std::streamsize>(pixels.size()));
    LeanHost saved;
    saved.picture = pixels.data();
    saved.Save(kSide, kSide);
    CheckBothWays(saved, pixels);
    LeanHost opener, saver, plainSaver;
    opener.file = saved.file;
    opener.fileSize = saved.fileSize;
    saver.picture = plainSaver.picture = pixels.data();
    Bytes copy(pixels.size());
    const std::string size = std::to_string(kSide) + "x" + std::to_string(kSide);

    Race decode("decode, " + name + ", packed to " + Percent(saved.fileSize, pixels.size()) +
                " of its pixels");
    decode.Enter("the module", OnHost(opener, [](LeanHost& host) { host.Open(); }));
    decode.Enter(
        "memcpy of the pixels", [&] { std::memcpy(copy.data(), pixels.data(), copy.size()); },
        decodeCopy);
    decode.Enter("plain decoder, same host", OnHost(opener, PlainOpen), decodePlain);
    decode.Enter("OpenImageIO, run-length TGA, in memory", [&] { ReadTga(tga, copy); });
    decode.Enter(
        "ImageMagick, run-length TGA, whole process",
        [&] { RunProgram("convert " + tga + " null:"); }, 0, kSlow);
    decode.Run(kRounds);

    Race encode("encode, " + name);
    encode.Enter("the module", OnHost(saver, [](LeanHost& host) { host.Save(kSide, kSide); }));
    encode.Enter("memcpy of the pixels",
                 [&] { std::memcpy(copy.data(), pixels.data(), copy.size()); });
    encode.Enter("plain encoder, same host",
                 OnHost(plainSaver, [](LeanHost& host) { PlainSave(host, kSide, kSide); }),
                 encodePlain);
    encode.Enter("rows passed on unseen, same host",
                 OnHost(plainSaver, [](LeanHost& host) { BareSave(host, kSide, kSide); }));
    encode.Enter("OpenImageIO, run-length TGA, in memory", [&] { WriteTga(out, pixels); });
    encode.Enter(
        "ImageMagick, run-length TGA, whole process",
        [&] {
            RunProgram("convert -size " + size + " -depth 8 rgb:" + raw + " -compress RLE " + out);
        },
        0, kSlow);
    encode.Run(kRounds);
    RaceWithoutCopies(name, saver, plainSaver, encodePlain);
}

void ShowMemory()
{
    constexpr int kWidth = 30000, kHeight = 2000;
    const auto show = [](const char* what, const LeanHost& host) {
        std::printf("  %-6s peak %.2f MiB in buffers of", what,
                    static_cast<double>(host.peak) / (1 << 20));
        for (const int64_t size : host.requests)
            std::printf(" %lld", static_cast<long long>(size));
        std::printf(" bytes; %lld rows\n", static_cast<long long>(host.rows));
    };
    std::printf("memory, %d by %d RGB (%.0f MiB of pixels), host limit 1 MiB, with 1 MiB more for "
                "the module's budget\n",
                kWidth, kHeight, 3.0 * kWidth * kHeight / (1 << 20));
    LeanHost saver;
    saver.makeRow = [](int row, uint8_t* bytes) { CartoonRow(kWidth, row, bytes); };
    saver.Save(kWidth, kHeight);
    show("save", saver);
    LeanHost opener;
    opener.file = std::move(saver.file);
    opener.fileSize = saver.fileSize;
    opener.Open();
    show("open", opener);
}

} // namespace
} // namespace Bench

int main()
{
    using namespace Bench;
    OIIO::attribute("threads", 1);
    setenv("OMP_NUM_THREADS", "1", 1);
    setenv("MAGICK_THREAD_LIMIT", "1", 1);
    RacePicture("photo-like", PhotoLike(kSide, kSide), 0.8, 0, 5);
    RacePicture("cartoon-like", CartoonLike(kSide, kSide), 0, 1.5, 1.4);
    ShowMemory();
    return 0;
}
