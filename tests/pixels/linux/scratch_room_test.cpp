// A slot of a scratch file has its room on the disk.
#include "foundation/spec_folder.h"
#include "pixels/tiles/virtual_file.h"
#include "support/testing.h"

#include <sys/stat.h>

using namespace Kesto;

TEST(ScratchFile, HasRoomForEverySlot)
{
    const SpecFolder folder;
    CVirtualFile file(folder.Spec(), CText("room.tmp"), 0, 0, CVirtualFile::kMaximumSize);
    CVirtualTile* first = nullptr;
    CVirtualTile* last = nullptr;
    ASSERT_EQ(file.AcquireSlots(8, 16, first, last), 16U);
    struct stat facts {};
    ASSERT_EQ(stat(file.Spec().Path().CStr(), &facts), 0);
    EXPECT_EQ(facts.st_size, 16 * 65536);
    EXPECT_GE(facts.st_blocks * 512, facts.st_size);
}
