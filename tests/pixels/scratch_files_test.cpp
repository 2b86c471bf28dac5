// Scratch files in a real folder.
#include "pixels/tiles/scratch_files.h"

#include "foundation/spec_folder.h"
#include "pixels/tiles/virtual_heap.h"
#include "platform/system/process.h"
#include "support/testing.h"

namespace {

TEST(ScratchFilesOnDisk, OfADeadProcessAreRemoved)
{
    const SpecFolder folder;
    constexpr const char* kDead = "4294967292_1_KVM_0.tmp"; // no system counts so far
    const std::string alive = std::to_string(Platform::ProcessNumber()) + "_1_KVM_0.tmp";
    const char* const others[] = {alive.c_str(),
                                  "4294967292_1_KVM_0.tmp.old",
                                  "x4294967292_1_KVM_0.tmp",
                                  "4294967292_1_KVM_.tmp",
                                  "4294967292_KVM_0.tmp",
                                  "99999999999999999999_1_KVM_0.tmp",
                                  "notes.txt"};
    folder.Put(kDead, "scratch");
    for (const char* const other : others)
        folder.Put(other, "scratch");
    Kesto::RemoveStaleScratchFiles(folder.Spec());
    EXPECT_EQ(folder.Get(kDead), "none");
    for (const char* const other : others)
        EXPECT_EQ(folder.Get(other), "scratch") << other;
    Kesto::RemoveStaleScratchFiles(folder.File("missing"));
}

TEST(ScratchFilesOnDisk, HaveNamesOfTheirOwnAndAreGoneAfterTheHeap)
{
    Kesto::CVirtualHeap other;
    other.Initialize(nullptr);
    std::string path;
    {
        Kesto::CVirtualHeap heap;
        heap.AcquireTile(8, 8, 1);
        path = heap.Files().at(0)->Spec().Path().View();
        EXPECT_NE(path, other.Files().at(0)->Spec().Path().View());
        EXPECT_GE(std::filesystem::file_size(path), 65536U);
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

} // namespace
