// Which scratch files the heap opens, and where.
#include "foundation/exceptions.h"
#include "pixels/lying_disk.h"
#include "pixels/virtual_heap.h"
#include "platform/process_number.h"

#include <gmock/gmock.h>

#include <cstdio>

namespace {

using Kesto::CFileSpec;
using Kesto::CVirtualHeap;
using ::testing::ElementsAre;
using Testing::LyingDisk;

constexpr std::uint64_t kGiB = std::uint64_t{1} << 30;

// The folders of a heap's files, in order.
std::vector<std::string> FoldersOf(const CVirtualHeap& heap)
{
    std::vector<std::string> folders;
    for (const auto& file : heap.Files()) {
        const std::string path(file->Spec().Path().View());
        folders.push_back(path.substr(0, path.find_last_of("/\\")));
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

TEST_F(ScratchFolders, NamesHoldTheProcessTheTimeAndTheIndex)
{
    disk.AddVolume("/w", 2 * kGiB);
    CVirtualHeap heap;
    heap.Initialize(nullptr);
    std::vector<std::uint32_t> times;
    for (std::uint32_t i = 0; i < 2; ++i) {
        const std::string path(heap.Files().at(i)->Spec().Path().View());
        const std::string name = path.substr(path.find_last_of("/\\") + 1);
        std::uint32_t time = 0;
        ASSERT_TRUE(std::sscanf(name.c_str(), "%*u_%u_KVM_", &time) == 1) << name;
        EXPECT_EQ(name, std::to_string(Platform::ProcessNumber()) + "_" + std::to_string(time) + "_KVM_" +
                            std::to_string(i) + ".tmp");
        times.push_back(time);
    }
    EXPECT_EQ(times[0], times[1]);
}

TEST_F(ScratchFolders, AreOnFixedVolumesWithTheMostRoomFirst)
{
    disk.AddVolume("/small", 1000);
    disk.AddVolume("/large", 3 * kGiB);
    disk.AddVolume("/remote", 4 * kGiB) = {.mounted = true, .remote = true, .freeBytes = 4 * kGiB};
    disk.AddVolume("/disc", 4 * kGiB) = {.mounted = true, .fixed = true, .cdRom = true, .freeBytes = 4 * kGiB};
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

TEST_F(ScratchFolders, GetOneFileForEach64GiBAndOneMore)
{
    disk.volumes["/v"].freeBytes = 64 * kGiB; // not more than that
    disk.AddVolume("/w", 3 * 64 * kGiB);      // leaves 64 GiB after two
    disk.AddVolume("/x", 64 * kGiB + 1);
    EXPECT_THAT(FoldersFor(), ElementsAre("/w", "/w", "/x", "/w", "/x", "/v/tmp"));
}

TEST_F(ScratchFolders, AreNeverMoreThan16)
{
    disk.AddVolume("/w", 10000 * kGiB);
    EXPECT_EQ(FoldersFor().size(), 16U);
    EXPECT_THAT(FoldersFor(), ::testing::Each("/w"));
}

TEST_F(ScratchFolders, AreDeletedWithTheHeapLastToFirst)
{
    disk.AddVolume("/w", 2 * kGiB);
    std::vector<std::string> paths;
    {
        CVirtualHeap heap;
        heap.Initialize(nullptr);
        for (const auto& file : heap.Files())
            paths.emplace_back(file->Spec().Path().View());
    }
    EXPECT_TRUE(disk.files.empty());
    EXPECT_THAT(disk.deleted, ElementsAre(paths[1], paths[0]));
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
