// The tile store against bare positioned reads and writes of the same bytes in the same order, the
// cost of finding a resident tile, and a pixmap of 2 GiB in 64 MiB.
#include "pixels/tiles/virtual_pixmap.h"
#include "platform/files/files.h"
#include "platform/files/folders.h"
#include "platform/system/process.h"
#include "rounds.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <numeric>
#include <random>
#include <string>

namespace {

using Kesto::CVirtualHeap;
using Kesto::CVirtualTileArray;

constexpr std::uint64_t kMiB = 1 << 20;
constexpr std::uint64_t kBytes = 64 * kMiB; // that each contender moves in a round
constexpr std::size_t kRounds = 15;

std::vector<std::uint32_t> Shuffled(std::uint32_t count)
{
    std::vector<std::uint32_t> order(count);
    std::iota(order.begin(), order.end(), 0U);
    std::shuffle(order.begin(), order.end(), std::mt19937(1));
    return order;
}

// A file as large as the store's, written once, and memory of its own for each tile.
class BareFile {
public:
    BareFile(std::uint32_t count, std::size_t tileBytes)
        : fPath(
              Platform::JoinPath(Platform::TemporaryFolder(),
                                 "bench_tile_store." + std::to_string(Platform::ProcessNumber()))),
          fTileBytes(tileBytes), fOrder(Shuffled(count))
    {
        fFile.Open(fPath, Platform::FileMode::kReplace);
        for (std::uint32_t i = 0; i < count; ++i)
            fMemory.emplace_back(tileBytes, std::byte(i));
        Write();
    }
    ~BareFile()
    {
        fFile.Close();
        Platform::RemoveFile(fPath);
    }
    BareFile(const BareFile&) = delete;
    BareFile& operator=(const BareFile&) = delete;

    void Write()
    {
        for (const std::uint32_t i : fOrder)
            fFile.WriteAt(fMemory[i].data(), fTileBytes, i * fTileBytes);
    }
    void Read()
    {
        for (const std::uint32_t i : fOrder)
            fFile.ReadAt(fMemory[i].data(), fTileBytes, i * fTileBytes);
    }

private:
    std::string fPath;
    std::size_t fTileBytes;
    std::vector<std::uint32_t> fOrder;
    std::vector<std::vector<std::byte>> fMemory;
    Platform::FileHandle fFile;
};

// An array of tiles that is in memory as a whole or on the disk as a whole.
class Store {
public:
    Store(std::uint32_t count, std::uint8_t sizeClass)
        : fOrder(Shuffled(count)), fTiles(sizeClass, false, fHeap)
    {
        fHeap.SetBudget(2 * kBytes);
        fTiles.Resize(count);
        PageIn(true);
        PageOut();
    }

    void PageIn(bool dirty)
    {
        for (const std::uint32_t i : fOrder) {
            void* pointer = nullptr;
            fTiles.Lock(i, pointer, false);
            fTiles.Unlock(i, pointer, dirty, false);
        }
    }
    void PageOut() { fHeap.EvictBytes(kBytes); }

private:
    std::vector<std::uint32_t> fOrder;
    CVirtualHeap fHeap;
    CVirtualTileArray fTiles;
};

void ComparePaging(std::uint8_t sizeClass)
{
    const std::uint64_t tileBytes = Kesto::TileClassBytes(sizeClass);
    const auto count = static_cast<std::uint32_t>(kBytes / tileBytes);
    BareFile bare(count, tileBytes);
    Store out(count, sizeClass);
    Store in(count, sizeClass);
    out.PageIn(true);
    const std::vector<double> seconds =
        Bench::MedianSeconds(kRounds, {{[&] { out.PageOut(); }, [&] { out.PageIn(true); }},
                                       {[&] { bare.Write(); }},
                                       {[&] { in.PageIn(false); }, [&] { in.PageOut(); }},
                                       {[&] { bare.Read(); }}});
    const auto print = [&](const char* what, double ours, double peer) {
        std::printf("%-32s %4llu KiB  %8.0f MB/s  %6.2f of the bare call\n", what,
                    static_cast<unsigned long long>(tileBytes >> 10),
                    static_cast<double>(kBytes) / ours / 1e6, peer / ours);
    };
    print("page-out to a recycled slot", seconds[0], seconds[1]);
    print("page-in", seconds[2], seconds[3]);
}

void FindResident()
{
    constexpr std::uint32_t kCount = 1024;
    constexpr int kTimes = 1000;
    CVirtualHeap heap;
    CVirtualTileArray tiles(4, false, heap);
    tiles.Resize(kCount);
    const std::vector<std::uint32_t> order = Shuffled(kCount);
    const auto find = [&](bool touch) {
        return [&, touch] {
            for (int time = 0; time < kTimes; ++time)
                for (const std::uint32_t i : order) {
                    void* pointer = nullptr;
                    tiles.Lock(i, pointer, touch);
                    Bench::Keep(pointer);
                    tiles.Unlock(i, pointer, false, false);
                }
        };
    };
    const std::vector<double> seconds = Bench::MedianSeconds(5, {{find(false)}, {find(true)}});
    std::printf("%-32s %5.1f ns, and made the newest %5.1f ns\n", "lock and unlock a resident tile",
                seconds[0] / kCount / kTimes * 1e9, seconds[1] / kCount / kTimes * 1e9);
}

std::string PeakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::to_string(std::stoul(line.substr(6)) / 1024) + " MiB";
    return "unknown";
}

// Before all else, so that the peak of the process is this one's.
void WalkLargePixmap()
{
    constexpr std::int32_t kSide = 46336; // 724 squared tiles of 64 pixels: 2 GiB of 8 bits
    CVirtualHeap heap;
    heap.SetBudget(64 * kMiB);
    Kesto::CVirtualPixmap pixmap(3, kSide, kSide, 1, 0x82, false, false, heap); // 256 by 256
    std::uint64_t most = 0;
    std::uint64_t wrong = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int pass = 0; pass < 2; ++pass)
        for (std::int32_t row = 0; row < pixmap.GetTilesDown(); ++row)
            for (std::int32_t column = 0; column < pixmap.GetTilesAcross(); ++column) {
                void* pointer = nullptr;
                pixmap.LockTile(column, row, 0, pointer, false);
                auto* const pixels = static_cast<std::uint32_t*>(pointer);
                constexpr std::uint32_t kWords = 256 * 256 / 4;
                const auto seed = static_cast<std::uint32_t>(row * 1000 + column);
                for (std::uint32_t i = 0; i < kWords; ++i) {
                    wrong += pass == 1 && pixels[i] != seed * 2654435761U + i;
                    pixels[i] = seed * 2654435761U + i;
                }
                pixmap.UnlockTile(column, row, 0, pointer, pass == 0, false);
                most = std::max(most, heap.AllocatedBytes());
            }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    std::printf("2 GiB pixmap in 64 MiB, walked twice: %llu wrong words, blocks at most %llu MiB, "
                "process at most %s, "
                "%.1f s\n",
                static_cast<unsigned long long>(wrong),
                static_cast<unsigned long long>(most / kMiB), PeakMemory().c_str(),
                elapsed.count());
}

void OpenFiles()
{
    std::vector<Kesto::CFileSpec> folders(16, Kesto::CFileSpec(Platform::TemporaryFolder()));
    const std::vector<double> seconds = Bench::MedianSeconds(15, {{[&] {
                                                                      CVirtualHeap heap;
                                                                      heap.Initialize(&folders);
                                                                  }},
                                                                  {[&] {
                                                                      CVirtualHeap heap;
                                                                      heap.InitializeLater(folders);
                                                                      heap.SetBudget(kMiB);
                                                                  }}});
    std::printf("%-32s %.2f ms, put off %.4f ms\n", "16 scratch files, made and deleted",
                seconds[0] * 1e3, seconds[1] * 1e3);
}

} // namespace

int main()
{
    WalkLargePixmap();
    OpenFiles();
    FindResident();
    ComparePaging(8);
    ComparePaging(10);
    return 0;
}
