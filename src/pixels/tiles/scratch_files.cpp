#include "pixels/tiles/scratch_files.h"

#include "platform/files/files.h"
#include "platform/files/folders.h"
#include "platform/files/volumes.h"
#include "platform/system/machine.h"
#include "platform/system/process.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <string_view>
#include <utility>

namespace Kesto {
namespace {

constexpr std::size_t kMostCandidates = 64;
constexpr std::string_view kMark = "_KVM_";
constexpr std::string_view kSuffix = ".tmp";

struct Candidate {
    std::string fPath; // any place on the volume
    std::uint64_t fFreeBytes;
};

// Folders that somebody chose may be on any disk that is there; of the machine's own volumes only
// fixed ones will do, since others may be pulled out.
std::vector<Candidate> GatherCandidates(const std::vector<CFileSpec>* folders)
{
    std::vector<Candidate> candidates;
    const auto consider = [&](const std::string& path, bool onlyFixed) {
        const Platform::VolumeFacts volume = Platform::InspectVolume(path);
        const bool kind = onlyFixed ? volume.fixed : !volume.remote;
        if (kind && volume.mounted && !volume.cdRom && candidates.size() < kMostCandidates)
            candidates.push_back({path, volume.freeBytes});
    };
    if (folders != nullptr)
        for (const CFileSpec& folder : *folders)
            consider(folder.Path().CStr(), false);
    else
        for (const std::string& volume : Platform::ListVolumes())
            consider(volume, true);
    return candidates;
}

// The largest first, by plain exchanges: each place is compared with all after it, so equals may
// change their order.
void SortByFreeBytes(std::vector<Candidate>& candidates)
{
    for (std::size_t i = 0; i < candidates.size(); ++i)
        for (std::size_t j = i + 1; j < candidates.size(); ++j)
            if (candidates[j].fFreeBytes > candidates[i].fFreeBytes)
                std::swap(candidates[i], candidates[j]);
}

CFileSpec FolderOn(const std::string& path)
{
    const std::string temporary = Platform::TemporaryFolder();
    const std::string root = Platform::VolumeRoot(path);
    return CFileSpec(root == Platform::VolumeRoot(temporary) ? temporary : root);
}

std::filesystem::path NativePath(const CFileSpec& spec)
{
    const std::string_view path = spec.Path().CStr();
    return std::u8string(path.begin(), path.end());
}

// The last part of a path, or nothing if it has other characters than ours have.
std::string AsciiName(const std::filesystem::path& path)
{
    const std::filesystem::path name = path.filename();
    std::string ascii;
    for (const auto character : name.native()) {
        if (character <= 0 || character > 0x7e)
            return {};
        ascii.push_back(static_cast<char>(character));
    }
    return ascii;
}

// Takes a decimal number off the front of `text`.
bool TakeNumber(std::string_view& text, std::uint32_t& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc())
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool TakeText(std::string_view& text, std::string_view expected)
{
    if (!text.starts_with(expected))
        return false;
    text.remove_prefix(expected.size());
    return true;
}

// Whether a file has the name of a scratch file, and the process that made it.
bool ParseName(std::string_view name, std::uint32_t& process)
{
    std::uint32_t number = 0;
    return TakeNumber(name, process) && TakeText(name, "_") && TakeNumber(name, number) &&
           TakeText(name, kMark) && TakeNumber(name, number) && name == kSuffix;
}

} // namespace

std::vector<CFileSpec> PlanScratchFiles(const std::vector<CFileSpec>* folders,
                                        std::uint64_t fileBytes, std::size_t mostFiles)
{
    std::vector<Candidate> candidates = GatherCandidates(folders);
    if (candidates.empty())
        return {CFileSpec(Platform::TemporaryFolder())};
    SortByFreeBytes(candidates);
    std::vector<CFileSpec> files;
    for (const Candidate& candidate : candidates)
        for (std::uint64_t left = candidate.fFreeBytes;
             left > fileBytes && files.size() < mostFiles; left -= fileBytes)
            files.push_back(FolderOn(candidate.fPath));
    for (const Candidate& candidate : candidates)
        if (files.size() < mostFiles)
            files.push_back(FolderOn(candidate.fPath));
    return files;
}

std::string ScratchFileStem(const std::vector<CFileSpec>& folders)
{
    const std::string process = std::to_string(Platform::ProcessNumber()) + "_";
    for (std::uint32_t ticks = Platform::TickCount();; ++ticks) {
        std::string stem = process + std::to_string(ticks) + std::string(kMark);
        const CText name = ScratchFileName(stem, 0);
        std::error_code ignored;
        if (std::ranges::none_of(folders, [&](const CFileSpec& folder) {
                return std::filesystem::exists(NativePath(folder.Child(name)), ignored);
            }))
            return stem;
    }
}

CText ScratchFileName(const std::string& stem, std::size_t index)
{
    return CText(stem + std::to_string(index) + std::string(kSuffix));
}

void RemoveStaleScratchFiles(const CFileSpec& folder)
{
    std::error_code error;
    std::filesystem::directory_iterator entry(NativePath(folder), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = AsciiName(entry->path());
        std::uint32_t process = 0;
        if (ParseName(name, process) && !Platform::ProcessMayRun(process))
            Platform::RemoveFile(folder.Child(CText(name)).Path().CStr());
    }
}

} // namespace Kesto
