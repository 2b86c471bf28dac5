#include "platform/files/folders.h"
#include "platform/files/volumes.h"
#include "support/testing.h"

using namespace Platform;

TEST(Volumes, HoldTheTemporaryFolder)
{
    EXPECT_TRUE(std::filesystem::is_directory(TemporaryFolder()));
    EXPECT_THAT(ListVolumes(), testing::Contains(VolumeRoot(TemporaryFolder())));
    const VolumeFacts facts = InspectVolume(TemporaryFolder());
    EXPECT_TRUE(facts.mounted);
    EXPECT_FALSE(facts.cdRom);
    EXPECT_GT(facts.freeBytes, 0u);
    EXPECT_NEAR(static_cast<double>(facts.freeBytes),
                static_cast<double>(std::filesystem::space(TemporaryFolder()).available), 0x1p30);
}

TEST(Volumes, ThatDoNotExistAreNotMounted)
{
    const VolumeFacts facts = InspectVolume("?:/no such volume");
    EXPECT_FALSE(facts.mounted);
    EXPECT_FALSE(facts.fixed);
    EXPECT_EQ(facts.freeBytes, 0u);
}
