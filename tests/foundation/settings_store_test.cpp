#include "foundation/settings_store.h"

#include "foundation/exceptions.h"
#include "foundation/localize.h"
#include "foundation/memory_container.h"
#include "foundation/settings_locations.h"
#include "foundation/settings_record.h"
#include "foundation/temporary_folder.h"
#include "platform/user_folders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>

namespace Kesto {
namespace {

using testing::ElementsAre;

// The store of a process that keeps its files in another folder.
class CFolderStore final : public CSettingsStore {
public:
    explicit CFolderStore(CFileSpec folder) : fFolder(std::move(folder)) {}
    void GetSettingsFolder(CFileSpec& out) override { out = fFolder; }

private:
    CFileSpec fFolder;
};

void Fill(CContainer& container, std::string_view text)
{
    container.Write(text.data(), text.size());
}

std::string_view Text(const CMemoryContainer& container)
{
    return {reinterpret_cast<const char*>(container.Bytes().data()), container.Bytes().size()};
}

class SettingsStore : public testing::Test {
protected:
    bool Read(const char* fileName) { return fStore.ReadSettingsData("", "", fileName, fData, false); }
    bool Write(const char* fileName) { return fStore.WriteSettingsData("", "", fileName, fData, false); }

    TemporaryFolder fFolder;
    CFolderStore fStore{fFolder.Spec()};
    CMemoryContainer fData;
};

TEST_F(SettingsStore, KeepsAFileUnderItsLocalisedName)
{
    Fill(fData, "settings");
    EXPECT_TRUE(Write("$$$/SettingsStoreTest/File=My Prefs.lgp"));
    EXPECT_EQ(fFolder.Content("My Prefs.lgp"), "settings");
    fData.SetSize(2);
    EXPECT_TRUE(Read("$$$/SettingsStoreTest/File=My Prefs.lgp"));
    EXPECT_EQ(Text(fData), "settings");
    EXPECT_EQ(fData.GetPosition(), 0u);
}

TEST_F(SettingsStore, HasNothingForAFileThatIsMissingOrEmpty)
{
    Fill(fData, "before");
    EXPECT_FALSE(Read("none.lgp"));
    EXPECT_EQ(fData.GetSize(), 0u);
    fFolder.Write("empty.lgp", "");
    EXPECT_FALSE(Read("empty.lgp"));
}

TEST_F(SettingsStore, WritesNothingFromAnEmptyContainer)
{
    fFolder.Write("file.lgp", "old");
    EXPECT_FALSE(Write("file.lgp"));
    EXPECT_EQ(fFolder.Content("file.lgp"), "old");
}

TEST_F(SettingsStore, RefusesAFolderInThePlaceOfTheFile)
{
    std::filesystem::create_directory(fFolder.Path() / "file.lgp");
    Fill(fData, "settings");
    EXPECT_THROW(Write("file.lgp"), CSystemError);
    EXPECT_THROW(Read("file.lgp"), CSystemError);
    EXPECT_EQ(fFolder.Count(), 1);
}

TEST_F(SettingsStore, TakesNoFileOfUnlikelySizeIntoMemory)
{
    fFolder.Write("file.lgp", "x");
    std::filesystem::resize_file(fFolder.Path() / "file.lgp", std::uintmax_t{1} << 32);
    EXPECT_THROW(Read("file.lgp"), std::bad_alloc);
}

TEST_F(SettingsStore, KeepsAValueUnderKeyPathAndName)
{
    // A registry outlives the test, so each run takes a key of its own.
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    const CText key = CText::Join({"$$$/SettingsStoreTest/Key=SidecarTest^L", std::to_string(now), "^LLevel"});
    const CText name("$$$/SettingsStoreTest/Name=Value");
    EXPECT_FALSE(fStore.ReadSettingsData(key, name, "file", fData, true));
    Fill(fData, "first and longer");
    EXPECT_TRUE(fStore.WriteSettingsData(key, name, "file", fData, true));
    fData.SetSize(0);
    Fill(fData, "second");
    EXPECT_TRUE(fStore.WriteSettingsData(key, name, "file", fData, true));
    CMemoryContainer read;
    EXPECT_TRUE(fStore.ReadSettingsData(key, name, "file", read, true));
    EXPECT_EQ(Text(read), "second");
    EXPECT_FALSE(fStore.ReadSettingsData(key, "another", "file", read, true));
    EXPECT_EQ(read.GetSize(), 0u);
    EXPECT_EQ(fFolder.Count(), 0);

    std::string userData;
    ASSERT_EQ(Platform::FindUserDataFolder(userData), 0u);
    std::filesystem::remove_all(std::filesystem::path(userData) / "SidecarTest");
}

TEST(SettingsLocations, NameTheFoldersOfEachEdition)
{
    EXPECT_THAT(SettingsFolderNames(Edition::kLumograph),
                ElementsAre("Orlen", "Orlen Lumograph 2025", "Orlen Lumograph 2025 Settings"));
    EXPECT_THAT(SettingsFolderNames(Edition::kQuartets), ElementsAre("Orlen", "Orlen Lumograph 2025", "Quartets"));
}

TEST(SettingsFolder, IsMadeForTheEditionOfTheBuild)
{
    CSettingsStore store;
    CFileSpec folder;
    store.GetSettingsFolder(folder);
    const std::filesystem::path path(std::string(folder.Path().View()));
    EXPECT_TRUE(std::filesystem::is_directory(path));
    EXPECT_EQ(path.filename().string(), SettingsFolderNames(HostEdition())[2].View());
    EXPECT_EQ(path.parent_path().filename(), "Orlen Lumograph 2025");
    EXPECT_EQ(path.parent_path().parent_path().filename(), "Orlen");
}

class SettingsRecord : public SettingsStore, public CSettingsOwner {
protected:
    void GetSettingsLocation(CText& keyPath, CText& fileName) override
    {
        keyPath = "unused";
        fileName = "record.lgp";
    }

    static Platform::ModifierKeys Held(bool control, bool alt, bool shift) { return {control, alt, shift}; }

    void SaveWindow(double positionX)
    {
        CSettingsRecord record(*this, fStore, [] { return Held(false, false, false); });
        record.Get().window.positionX = positionX;
        EXPECT_TRUE(record.Save());
    }
    double LoadedPosition(CSettingsRecord::KeyboardReader keyboard)
    {
        return CSettingsRecord(*this, fStore, keyboard).Get().window.positionX;
    }
};

TEST_F(SettingsRecord, IsLoadedOnceAndKept)
{
    SaveWindow(70);
    CSettingsRecord record(*this, fStore);
    EXPECT_EQ(record.Get().window.positionX, 70);
    SaveWindow(80);
    EXPECT_EQ(record.Get().window.positionX, 70);
}

TEST_F(SettingsRecord, HasItsDefaultsWithoutAFile)
{
    EXPECT_EQ(CSettingsRecord(*this, fStore).Get().window, WindowState::FromNothing());
    EXPECT_EQ(fFolder.Count(), 0);
}

TEST_F(SettingsRecord, IsNotLoadedWithAllThreeModifiersHeld)
{
    SaveWindow(70);
    const std::string stored = fFolder.Content("record.lgp");
    EXPECT_EQ(LoadedPosition([] { return Held(true, true, true); }), -50);
    EXPECT_EQ(fFolder.Content("record.lgp"), stored);
    EXPECT_EQ(LoadedPosition([] { return Held(false, true, true); }), 70);
    EXPECT_EQ(LoadedPosition([] { return Held(true, false, true); }), 70);
    EXPECT_EQ(LoadedPosition([] { return Held(true, true, false); }), 70);
}

TEST_F(SettingsRecord, TellsOfACutFileOnceAndGoesOnWithItsDefaults)
{
    SaveWindow(70);
    std::filesystem::resize_file(fFolder.Path() / "record.lgp", 100);
    CSettingsRecord record(*this, fStore);
    EXPECT_THROW(record.Get(), CError);
    EXPECT_EQ(record.Get().window, WindowState::FromNothing());
    EXPECT_TRUE(record.Save());
    EXPECT_EQ(CSettingsRecord(*this, fStore).Get().window, WindowState::FromNothing());
}

} // namespace
} // namespace Kesto
