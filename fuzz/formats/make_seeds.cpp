// Writes the seeds of the fuzz targets into the corpus folders below the folder that is named.
#include "support/bad_files.h"
#include "support/ei_file.h"

#include "inputs.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>

namespace Testing {
namespace {

class Folder {
public:
    explicit Folder(std::filesystem::path path) : fPath(std::move(path)) { std::filesystem::create_directories(fPath); }

    void Write(std::string name, std::initializer_list<uint8_t> head, const Bytes& bytes) const
    {
        std::ranges::replace(name, ' ', '_');
        std::ofstream out(fPath / name, std::ios::binary);
        out.write(reinterpret_cast<const char*>(std::data(head)), static_cast<std::streamsize>(head.size()));
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

private:
    std::filesystem::path fPath;
};

constexpr uint8_t kRoomy = 0xC0, kTight = 0x10;

void WriteSound(const Folder& folder)
{
    Random random(1);
    for (const EILayout& layout : AllLayouts())
        for (const uint8_t packing : {0, 1}) {
            EIFrame frame{.layout = layout, .width = 6, .height = 4, .packing = packing, .lut = RandomLut(4, random)};
            const Bytes rows = RandomRows(layout, 6, 4, random);
            frame.pixels = packing ? RandomPackets(rows, layout.Unit(), random, 2) : rows;
            const std::string name = (packing ? "packed " : "raw ") + std::string(layout.name);
            folder.Write(name, {kRoomy, 1, 0}, OneFrameFile(frame));
            folder.Write(name + " in small chunks", {kTight, 1, 0}, OneFrameFile(frame));
        }
    EIFrame depth{.layout = Layout("depth32"), .width = 3, .height = 1, .low = 0, .high = 0};
    depth.pixels = FloatBytes({1, std::numeric_limits<float>::infinity(), 5});
    folder.Write("depth in two passes", {kRoomy, 1, 0}, OneFrameFile(depth));
    const EIFrame small = SmallFrame(Layout("rgb24"));
    const Bytes several = EIFileBuilder().Add(small).Add(depth).Add(small).Build();
    folder.Write("third of three frames", {kRoomy, 3, 0}, several);
    folder.Write("frame that is not there", {kRoomy, 4, 0}, several);
    folder.Write("cancelled choice", {kRoomy, 255, 0}, several);
    folder.Write("resident without handles", {kRoomy | OpenInput::kResident | OpenInput::kNoHandles, 2, 0}, several);
    folder.Write("silent and quiet", {kRoomy | OpenInput::kSilent | OpenInput::kQuiet, 2, 0}, several);
    folder.Write("failing eighth call", {kRoomy, 1, 8}, several);
}

void WriteBroken(const Folder& folder)
{
    for (const BadFile& bad : BadFiles())
        folder.Write("bad " + bad.name, {kRoomy, 1, 0}, bad.bytes);
    const auto sized = [](int width, int height) {
        return OneFrameFile({.width = width, .height = height, .top = -20000, .left = -20000, .pixels = Bytes(6)});
    };
    folder.Write("bad width 0", {kRoomy, 1, 0}, sized(0, 2));
    folder.Write("bad height 0", {kRoomy, 1, 0}, sized(2, 0));
    folder.Write("bad width below 0", {kRoomy, 1, 0}, sized(-2, 2));
    folder.Write("bad bounds beyond 16 bits", {kRoomy, 1, 0}, sized(40000, 40000));
    folder.Write("largest size", {kRoomy, 1, 0}, sized(32767, 32767));
    EIFrame cut = SmallFrame(Layout("rgb24"));
    cut.packing = 1;
    for (const auto& [name, pixels] :
         {std::pair<const char*, Bytes>{"control byte", {}}, {"run", {0x01, 1, 2}}, {"literal", {0x81, 1, 2, 3, 4}}}) {
        cut.pixels = pixels;
        cut.dataSize = 9;
        folder.Write("bad end in a " + std::string(name), {kRoomy, 1, 0}, OneFrameFile(cut));
    }
}

void WriteDocuments(const Folder& folder)
{
    Random random(2);
    const char* const names[] = {"grey", "indexed", "rgb", "rgba"};
    const char* const like[] = {"indexed8", "indexed8", "rgb24", "argb32"};
    for (uint8_t kind = 0; kind < 4; ++kind) {
        folder.Write(names[kind], {kind, 19, 3}, RandomRows(Layout(like[kind]), 20, 4, random));
        folder.Write(std::string(names[kind]) + " flat", {kind, 200, 1}, {});
    }
}

} // namespace
} // namespace Testing

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: make_electricimage_seeds FOLDER\n";
        return 2;
    }
    const std::filesystem::path root = argv[1];
    const Testing::Folder opens(root / "corpus_open_electricimage");
    Testing::WriteSound(opens);
    Testing::WriteBroken(opens);
    Testing::WriteDocuments(Testing::Folder(root / "corpus_save_electricimage"));
    return 0;
}
