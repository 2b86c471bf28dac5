// Scratch files in a real folder.
#include "pixels/scratch_files.h"
#include "pixels/virtual_heap.h"
#include "platform/process_number.h"
#include "platform/volumes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

namespace {

namespace fs = std::filesystem;

Kesto::CFileSpec SpecOf(const fs::path& path)
{
    const std::u8string text = path.u8string();
    return Kesto::CFileSpec(Kesto::CText(std::string(text.begin(), text.end())));
}

class ScratchFilesOnDisk : public ::testing::Test {
protected:
    ScratchFilesOnDisk()
    {
        fs::remove_all(folder);
        fs::create_directory(folder);
    }
    ~ScratchFilesOnDisk() override { fs::remove_all(folder); }

    void Touch(const std::string& name) const { std::ofstream(folder / name) << "scratch"; }

    std::set<std::string> Names() const
    {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.insert(entry.path().filename().string());
        return names;
    }

    const fs::path folder =
        fs::temp_directory_path() / ("sidecar_scratch_" + std::to_string(Platform::ProcessNumber()));
};

TEST_F(ScratchFilesOnDisk, OfADeadProcessAreRemoved)
{
    constexpr const char* kDead = "4294967292_1_KVM_0.tmp"; // no system counts so far
    const std::string alive = std::to_string(Platform::ProcessNumber()) + "_1_KVM_0.tmp";
    const std::set<std::string> others{alive,
                                       "4294967292_1_KVM_0.tmp.old",
                                       "x4294967292_1_KVM_0.tmp",
                                       "4294967292_1_KVM_.tmp",
                                       "4294967292_KVM_0.tmp",
                                       "99999999999999999999_1_KVM_0.tmp",
                                       "notes.txt"};
    Touch(kDead);
    for (const std::string& other : others)
        Touch(other);
    Kesto::RemoveStaleScratchFiles(SpecOf(folder));
    EXPECT_EQ(Names(), others);
    Kesto::RemoveStaleScratchFiles(SpecOf(folder / "missing"));
}

TEST_F(ScratchFilesOnDisk, OfTwoHeapsHaveNamesOfTheirOwn)
{
    Kesto::CVirtualHeap first;
    Kesto::CVirtualHeap second;
    first.Initialize(nullptr);
    second.Initialize(nullptr);
    ASSERT_FALSE(first.Files().empty());
    const std::string path(first.Files()[0]->Spec().Path().View());
    EXPECT_NE(path, second.Files()[0]->Spec().Path().View());
    EXPECT_TRUE(fs::exists(path));
}

TEST_F(ScratchFilesOnDisk, AreGoneAfterTheHeap)
{
    fs::path path;
    {
        Kesto::CVirtualHeap heap;
        heap.AcquireTile(8, 8, 1);
        path = std::string(heap.Files().at(0)->Spec().Path().View());
        EXPECT_GE(fs::file_size(path), 65536U);
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(ScratchFilesOnDisk, StandOnVolumesThatTheMachineHas)
{
    const std::vector<std::string> volumes = Platform::ListVolumes();
    ASSERT_FALSE(volumes.empty());
    EXPECT_TRUE(std::any_of(volumes.begin(), volumes.end(), [](const std::string& volume) {
        const Platform::VolumeFacts facts = Platform::InspectVolume(volume);
        return facts.mounted && facts.fixed && facts.freeBytes > 0;
    }));
}

} // namespace
