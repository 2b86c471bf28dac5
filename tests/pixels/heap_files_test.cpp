// Which scratch files the heap opens, and where.
#include "foundation/errors/exceptions.h"
#include "pixels/lying_disk.h"
#include "pixels/tiles/virtual_heap.h"
#include "platform/system/process.h"
#include "support/testing.h"

#include <cstdio>

namespace {

using Kesto::CFileSpec;
using Kesto::CVirtualHeap;
using ::testing::ElementsAre;
using Testing::LyingDisk;

constexpr std::uint64_t kGiB = std::uint64_t{1} << 30;

// Where the name of a path begins.
std::size_t NameOf(std::string_view path)
{
    return path.find_last_of("/\\") + 1;
}

std::vector<std::string> FoldersOf(const CVirtualHeap& heap)
{
    std::vector<std::string> folders;
    for (const auto& file : heap.Files()) {
        const std::string path(file->Spec().Path().View());
        folders.push_back(path.substr(0, NameOf(path) - 1));
    }
    return folders;
}

std::vector<std::string> FoldersFor(const std::vector<CFileSpec>* folders = nullptr)
{
    CVirtualHeap heap;
    heap.Initialize(folders);
    return FoldersOf(heap);
}

class ScratchFolders : public ::testing::Test {
protected:
    LyingDisk& disk = LyingDisk::Reset();
};

TEST_F(ScratchFolders, GetFilesOfTheProcessTheTimeAndTheIndexThatAreDeletedLastToFirst)
{
    disk.AddVolume("/w", 2 * kGiB);
    std::vector<std::string> paths;
    {
        CVirtualHeap heap;
        heap.Initialize(nullptr);
        for (const auto& file : heap.Files())
            paths.emplace_back(file->Spec().Path().View());
    }
    ASSERT_EQ(paths.size(), 2U);
    std::uint32_t time = 0;
    ASSERT_EQ(std::sscanf(paths[0].c_str() + NameOf(paths[0]), "%*u_%u_KVM_", &time), 1)
        << paths[0];
    const std::string start =
        std::to_string(Platform::ProcessNumber()) + "_" + std::to_string(time) + "_KVM_";
    EXPECT_EQ(paths[0].substr(NameOf(paths[0])), start + "0.tmp");
    EXPECT_EQ(paths[1].substr(NameOf(paths[1])), start + "1.tmp");
    EXPECT_TRUE(disk.files.empty());
    EXPECT_THAT(disk.deleted, ElementsAre(paths[1], paths[0]));
}

TEST_F(ScratchFolders, AreOnFixedVolumesWithTheMostRoomFirst)
{
    disk.AddVolume("/small", 1000);
    disk.AddVolume("/large", 3 * kGiB);
    disk.AddVolume("/remote", 4 * kGiB) = {.mounted = true, .remote = true, .freeBytes = 4 * kGiB};
    disk.AddVolume("/disc", 4 * kGiB) = {
        .mounted = true, .fixed = true, .cdRom = true, .freeBytes = 4 * kGiB};
    disk.AddVolume("/gone", 4 * kGiB) = {.fixed = true, .freeBytes = 4 * kGiB};
    EXPECT_THAT(FoldersFor(), ElementsAre("/large", "/v/tmp", "/small"));
}

TEST_F(ScratchFolders, OfAListNeedNotBeFixed)
{
    disk.AddVolume("/stick", kGiB) = {.mounted = true, .freeBytes = kGiB};
    disk.AddVolume("/remote", kGiB) = {.mounted = true, .remote = true, .freeBytes = kGiB};
    const std::vector<CFileSpec> folders{CFileSpec("/remote/x"), CFileSpec("/stick/x")};
    EXPECT_THAT(FoldersFor(&folders), ElementsAre("/stick"));
}

TEST_F(ScratchFolders, WithoutAnyCandidateAreTheTemporaryOne)
{
    disk.listed.clear();
    disk.volumes["/v"].freeBytes = 1000 * kGiB;
    EXPECT_THAT(FoldersFor(), ElementsAre("/v/tmp"));
    const std::vector<CFileSpec> folders{CFileSpec("/nowhere")};
    EXPECT_THAT(FoldersFor(&folders), ElementsAre("/v/tmp"));
}

TEST_F(ScratchFolders, GetOneFileForEach64GiBAndOneMoreUpTo16)
{
    disk.volumes["/v"].freeBytes = 64 * kGiB; // not more than that
    disk.AddVolume("/w", 3 * 64 * kGiB);      // leaves 64 GiB after two
    disk.AddVolume("/x", 64 * kGiB + 1);
    EXPECT_THAT(FoldersFor(), ElementsAre("/w", "/w", "/x", "/w", "/x", "/v/tmp"));
    disk.AddVolume("/y", 10000 * kGiB);
    EXPECT_EQ(FoldersFor(), std::vector<std::string>(16, "/y"));
}

TEST_F(ScratchFolders, AreOpenedAtTheFirstNeedOnly)
{
    disk.AddVolume("/w", kGiB / 2);
    CVirtualHeap heap;
    heap.InitializeLater({CFileSpec("/w")});
    heap.SetBudget(1000);
    heap.MakeRoom(1000);
    EXPECT_FALSE(heap.IsInitialized());
    EXPECT_TRUE(disk.files.empty());
    heap.AcquireTile(0, 0, 1);
    EXPECT_TRUE(heap.IsInitialized());
    EXPECT_THAT(FoldersOf(heap), ElementsAre("/w"));
}

TEST_F(ScratchFolders, ThatCannotBeWrittenAreAnErrorAndCanBeTriedAgain)
{
    disk.AddVolume("/w", 2 * kGiB);
    CVirtualHeap heap;
    disk.failsOpen = Testing::OnlyAt(1);
    EXPECT_THROW(heap.AcquireTile(3, 3, 1), Kesto::CSystemError);
    EXPECT_FALSE(heap.IsInitialized());
    EXPECT_TRUE(disk.files.empty());
    EXPECT_NE(heap.AcquireTile(3, 3, 1), nullptr);
    EXPECT_EQ(heap.Files().size(), 2U);
}

} // namespace
