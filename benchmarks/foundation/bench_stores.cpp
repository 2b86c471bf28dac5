// Settings and files against the bare calls beneath them. A ratio of 1 is the cost of the bare
// call.
#include "foundation/settings/plugin_settings.h"
#include "foundation/settings/settings_file.h"
#include "foundation/settings/settings_store.h"
#include "foundation/spec_folder.h"
#include "foundation/streams/file_port.h"
#include "foundation/streams/memory_container.h"
#include "rounds.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace Kesto;

constexpr std::size_t kRounds = 201;

class CFolderStore final : public CSettingsStore {
public:
    explicit CFolderStore(CFileSpec folder) : fFolder(std::move(folder)) {}
    void GetSettingsFolder(CFileSpec& out) override { out = fFolder; }

private:
    CFileSpec fFolder;
};

void Compare(const char* name, int repeats, const std::function<void()>& ours,
             const std::function<void()>& bare)
{
    const auto repeat = [repeats](const std::function<void()>& call) {
        return [repeats, &call] {
            for (int i = 0; i < repeats; ++i)
                call();
        };
    };
    const std::vector<double> seconds =
        Bench::MedianSeconds(kRounds, {{repeat(ours)}, {repeat(bare)}});
    std::printf("%-44s %9.0f ns %9.0f ns %7.2f\n", name, seconds[0] / repeats * 1e9,
                seconds[1] / repeats * 1e9, seconds[0] / seconds[1]);
}

void CompareSettings(const SpecFolder& folder)
{
    CFolderStore store(folder.Spec());
    CMemoryContainer file;
    SettingsFileSave(PluginSettings(), file);
    store.WriteSettingsData("", "", "settings", file, false);
    const std::string path = (folder.Path() / "settings").string();
    PluginSettings settings;

    Compare(
        "load settings from a file : open, read, close", 50,
        [&] {
            CMemoryContainer data;
            if (store.ReadSettingsData("", "", "settings", data, false))
                SettingsFileLoad(settings, data);
        },
        [&] {
            char bytes[4096];
            const int bare = open(path.c_str(), O_RDONLY | O_CLOEXEC);
            if (read(bare, bytes, sizeof bytes) > 0)
                std::memcpy(&settings.window, bytes + 48, sizeof settings.window);
            close(bare);
            Bench::Keep(settings);
        });
    Compare(
        "save settings : write beside, fsync, rename", 1,
        [&] {
            CMemoryContainer data;
            SettingsFileSave(settings, data);
            store.WriteSettingsData("", "", "settings", data, false);
        },
        [&] {
            const std::string beside = path + ".new";
            const int bare = open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
            if (write(bare, file.Bytes().data(), file.Bytes().size()) > 0)
                fsync(bare);
            close(bare);
            std::rename(beside.c_str(), path.c_str());
        });
}

void CompareTransfers(const SpecFolder& folder, std::size_t size, const char* readName,
                      const char* writeName)
{
    constexpr std::uint64_t kPlace = std::uint64_t{5} << 30;
    const std::string path = (folder.Path() / "scratch").string();
    const CFilePort port(folder.File("scratch"), FileMode::kReplace);
    const int bare = open(path.c_str(), O_RDWR | O_CLOEXEC);
    std::vector<char> buffer(size, 'x');
    port.WriteAt(buffer.data(), size, kPlace);
    Compare(
        writeName, 100, [&] { port.WriteAt(buffer.data(), size, kPlace); },
        [&] {
            if (pwrite(bare, buffer.data(), size, kPlace) < 0)
                std::perror("pwrite");
        });
    Compare(
        readName, 100, [&] { port.ReadAt(buffer.data(), size, kPlace); },
        [&] {
            if (pread(bare, buffer.data(), size, kPlace) < 0)
                std::perror("pread");
        });
    close(bare);
}

} // namespace

int main()
{
    const SpecFolder folder;
    std::printf("%-44s %12s %12s %7s\n", "", "ours", "bare", "ratio");
    CompareSettings(folder);
    CompareTransfers(folder, 256, "ReadAt of 256 bytes : pread", "WriteAt of 256 bytes : pwrite");
    CompareTransfers(folder, 65536, "ReadAt of 64 KiB : pread", "WriteAt of 64 KiB : pwrite");
    return 0;
}
