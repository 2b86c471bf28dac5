#include "foundation/settings/settings_store.h"

#include "foundation/errors/exceptions.h"
#include "foundation/localization/localize.h"
#include "foundation/settings/settings_locations.h"
#include "foundation/settings/settings_record.h"
#include "foundation/spec_folder.h"
#include "foundation/streams/memory_container.h"
#include "platform/files/folders.h"
#include "support/alert_capture.h"
#include "support/testing.h"

#include <chrono>

using namespace Kesto;
using testing::ElementsAre;

namespace {

// The store of a process that keeps its files in another folder.
class SettingsStore : public testing::Test, public CSettingsStore {
protected:
    void GetSettingsFolder(CFileSpec& out) override { out = fFolder.Spec(); }

    void Fill(std::string_view text)
    {
        fData.SetSize(0);
        fData.Write(text.data(), text.size());
    }
    std::string_view Text() const
    {
        return {reinterpret_cast<const char*>(fData.Bytes().data()), fData.GetSize()};
    }

    bool Read(const char* fileName) { return ReadSettingsData("", "", fileName, fData, false); }
    bool Write(const char* fileName) { return WriteSettingsData("", "", fileName, fData, false); }

    SpecFolder fFolder;
    CMemoryContainer fData;
};

Platform::ModifierKeys gHeld; // by the user

class SettingsRecord : public SettingsStore, public CSettingsOwner {
protected:
    SettingsRecord()
    {
        gHeld = {};
        Save(70);
    }

    void GetSettingsLocation(CText& keyPath, CText& fileName) override
    {
        keyPath = "unused";
        fileName = "record.lgp";
    }

    std::unique_ptr<Project::PSettings> CreateSettings() override { return fMakes(); }

    CSettingsRecord Record()
    {
        return CSettingsRecord(*this, *this, [] { return gHeld; });
    }
    void Save(double positionX)
    {
        CSettingsRecord record = Record();
        record.Get().window.positionX = positionX;
        EXPECT_TRUE(record.Save());
    }

    std::function<std::unique_ptr<Project::PSettings>()> fMakes = [] {
        return std::make_unique<Project::PSettings>();
    };
};

} // namespace

TEST_F(SettingsStore, KeepsAFileUnderItsLocalisedName)
{
    Fill("settings");
    EXPECT_TRUE(Write("$$$/SettingsStoreTest/File=My Prefs.lgp"));
    EXPECT_EQ(fFolder.Get("My Prefs.lgp"), "settings");
    fData.SetSize(2);
    EXPECT_TRUE(Read("$$$/SettingsStoreTest/File=My Prefs.lgp"));
    EXPECT_EQ(Text(), "settings");
    EXPECT_EQ(fData.GetPosition(), 0u);
    EXPECT_FALSE(Read("none.lgp"));
    EXPECT_EQ(fData.GetSize(), 0u);
    fFolder.Put("empty.lgp", "");
    EXPECT_FALSE(Read("empty.lgp"));
    fFolder.Put("file.lgp", "old");
    EXPECT_FALSE(Write("file.lgp")) << "there is nothing to write";
    EXPECT_EQ(fFolder.Get("file.lgp"), "old");
}

TEST_F(SettingsStore, RefusesAFolderInThePlaceOfTheFileAndAFileOfUnlikelySize)
{
    std::filesystem::create_directory(fFolder.Path() / "folder.lgp");
    Fill("settings");
    EXPECT_THROW(Write("folder.lgp"), CSystemError);
    EXPECT_THROW(Read("folder.lgp"), CSystemError);
    EXPECT_EQ(fFolder.Count(), 1);
    fFolder.Put("file.lgp", "x");
    std::filesystem::resize_file(fFolder.Path() / "file.lgp", std::uintmax_t{1} << 32);
    EXPECT_THROW(Read("file.lgp"), std::bad_alloc);
}

TEST_F(SettingsStore, KeepsAValueUnderKeyPathAndName)
{
    // A registry outlives the test, so each run takes a key of its own.
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    const CText key =
        CText::Join({"$$$/SettingsStoreTest/Key=SidecarTest^L", std::to_string(now), "^LLevel"});
    const CText name("$$$/SettingsStoreTest/Name=Value");
    EXPECT_FALSE(ReadSettingsData(key, name, "file", fData, true));
    for (const char* text : {"first and longer", "second"}) {
        SCOPED_TRACE(text);
        Fill(text);
        EXPECT_TRUE(WriteSettingsData(key, name, "file", fData, true));
        fData.SetSize(1);
        EXPECT_TRUE(ReadSettingsData(key, name, "file", fData, true));
        EXPECT_EQ(Text(), text);
    }
    EXPECT_FALSE(ReadSettingsData(key, "another", "file", fData, true));
    EXPECT_EQ(fData.GetSize(), 0u);
    EXPECT_EQ(fFolder.Count(), 0);

    std::string userData;
    ASSERT_EQ(Platform::FindUserDataFolder(userData), 0u);
    std::filesystem::remove_all(std::filesystem::path(userData) / "SidecarTest");
}

TEST(SettingsFolder, HasTheNamesOfItsEdition)
{
    EXPECT_THAT(SettingsFolderNames(Edition::kLumograph),
                ElementsAre("Orlen", "Orlen Lumograph 2025", "Orlen Lumograph 2025 Settings"));
    EXPECT_THAT(SettingsFolderNames(Edition::kQuartets),
                ElementsAre("Orlen", "Orlen Lumograph 2025", "Quartets"));

    CSettingsStore store;
    CFileSpec folder;
    store.GetSettingsFolder(folder);
    std::filesystem::path path(folder.Path().CStr());
    EXPECT_TRUE(std::filesystem::is_directory(path));
    for (const int level : {2, 1, 0}) {
        EXPECT_EQ(path.filename().string(),
                  SettingsFolderNames(HostEdition())[static_cast<std::size_t>(level)].View())
            << "level " << level;
        path = path.parent_path();
    }
}

TEST_F(SettingsRecord, IsLoadedOnceAndKept)
{
    CSettingsRecord record(*this, *this);
    EXPECT_EQ(record.Get().window.positionX, 70);
    Save(80);
    EXPECT_EQ(record.Get().window.positionX, 70);
    std::filesystem::remove(fFolder.Path() / "record.lgp");
    EXPECT_EQ(Record().Get().window, WindowState::FromNothing());
    EXPECT_EQ(fFolder.Count(), 0);
}

TEST_F(SettingsRecord, IsNotLoadedWithAllThreeModifiersHeld)
{
    const std::string stored = fFolder.Get("record.lgp");
    for (int held = 0; held < 8; ++held) {
        gHeld = {(held & 1) != 0, (held & 2) != 0, (held & 4) != 0};
        EXPECT_EQ(Record().Get().window.positionX, held == 7 ? -50 : 70) << held;
    }
    EXPECT_EQ(fFolder.Get("record.lgp"), stored);
}

TEST_F(SettingsRecord, KeepsWhatIsStoredWhenItsDefaultsCantBeMade)
{
    CSettingsRecord record = Record();
    fMakes = []() -> std::unique_ptr<Project::PSettings> { throw CError("no memory"); };
    EXPECT_THROW(record.Get(), CError);
    EXPECT_THROW(record.Save(), CError);
    fMakes = [] { return nullptr; };
    EXPECT_EQ(record.Get().window.positionX, 70);
    EXPECT_NE(record.Get().project, nullptr);
    PluginSettings copy = record.Get().Clone();
    copy.window.positionX = 1;
    EXPECT_EQ(record.Get().window.positionX, 70);
}

TEST_F(SettingsRecord, TellsOfACutFileOnceAndGoesOnWithItsDefaults)
{
    std::filesystem::resize_file(fFolder.Path() / "record.lgp", 100);
    CSettingsRecord record = Record();
    AlertCapture alerts;
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(record.Get().window, WindowState::FromNothing()) << "call " << i;
    EXPECT_EQ(alerts.boxes.size(), 1U);
    EXPECT_TRUE(record.Save());
    EXPECT_EQ(Record().Get().window, WindowState::FromNothing());
}
