#include "platform/user_folders.h"
#include "platform/volumes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace Platform {
namespace {

TEST(Volumes, ArePlacesToKeepFiles)
{
    const std::vector<std::string> volumes = ListVolumes();
    ASSERT_FALSE(volumes.empty());
    const VolumeFacts facts = InspectVolume(TemporaryFolder());
    EXPECT_TRUE(facts.mounted);
    EXPECT_FALSE(facts.cdRom);
    EXPECT_GT(facts.freeBytes, 0u);
    EXPECT_NEAR(static_cast<double>(facts.freeBytes),
                static_cast<double>(std::filesystem::space(TemporaryFolder()).available),
                static_cast<double>(std::uint64_t{1} << 30));
}

TEST(Volumes, HoldTheTemporaryFolder)
{
    EXPECT_TRUE(std::filesystem::is_directory(TemporaryFolder()));
    EXPECT_THAT(ListVolumes(), testing::Contains(VolumeRoot(TemporaryFolder())));
}

TEST(Volumes, ThatDoNotExistAreNotMounted)
{
    const VolumeFacts facts = InspectVolume("?:/no such volume");
    EXPECT_FALSE(facts.mounted);
    EXPECT_FALSE(facts.fixed);
    EXPECT_EQ(facts.freeBytes, 0u);
}

} // namespace
} // namespace Platform
