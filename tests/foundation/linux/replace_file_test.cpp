// What files of the user survive, by means that only this system gives a test: limits, users,
// devices and variables.
#include "foundation/errors/exceptions.h"
#include "foundation/settings/settings_store.h"
#include "foundation/spec_folder.h"
#include "foundation/streams/file_port.h"
#include "foundation/streams/memory_container.h"
#include "support/testing.h"

#include <cerrno>
#include <csignal>

#include <sys/resource.h>
#include <unistd.h>

using namespace Kesto;

namespace {

// No file of the process may become longer, as if the disk were full.
class FullDisk {
public:
    explicit FullDisk(rlim_t room)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &fFormer);
        const rlimit limit{room, fFormer.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &fFormer); }

private:
    rlimit fFormer{};
};

// The process has no more rights than the rest of the world, even when it is run by the
// administrator.
class OrdinaryUser {
public:
    OrdinaryUser() { EXPECT_TRUE(fFormer != 0 || seteuid(65534) == 0); }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(fFormer), 0); }

private:
    uid_t fFormer = geteuid();
};

// An environment variable with another value for the life of one object.
class Environment {
public:
    Environment(const char* name, const char* value) : fName(name)
    {
        if (const char* former = std::getenv(name))
            fFormer = former;
        setenv(name, value, 1);
    }
    ~Environment() { fFormer ? setenv(fName, fFormer->c_str(), 1) : unsetenv(fName); }

private:
    const char* fName;
    std::optional<std::string> fFormer;
};

auto ThrowsCode(std::uint32_t code)
{
    return testing::Throws<CSystemError>(testing::Property(&CSystemError::Code, code));
}

class ReplaceFile : public testing::Test {
protected:
    ReplaceFile() { fFolder.Put("file", "old"); }

    void Replace() const
    {
        CFile(fFolder.File("file")).ReplaceContents(std::vector<std::byte>(100'000));
    }

    void Permit(int file, int folder) const
    {
        std::filesystem::permissions(fFolder.Path() / "file", std::filesystem::perms(file));
        std::filesystem::permissions(fFolder.Path(), std::filesystem::perms(folder));
    }

    void ExpectToKeepTheOldFile(std::uint32_t code) const
    {
        EXPECT_THAT([this] { Replace(); }, ThrowsCode(code));
        EXPECT_EQ(fFolder.Get("file"), "old");
        EXPECT_EQ(fFolder.Count(), 1);
    }

    SpecFolder fFolder;
};

// The folder that holds the user's data is the test's own.
class UserDataFolder : public testing::Test {
protected:
    UserDataFolder() { fData.Write("value", 5); }

    CFileSpec Settings()
    {
        CFileSpec folder;
        fStore.GetSettingsFolder(folder);
        return folder;
    }

    SpecFolder fFolder;
    Environment fVariable{"XDG_CONFIG_HOME", fFolder.Path().c_str()};
    CSettingsStore fStore;
    CMemoryContainer fData;
};

} // namespace

TEST_F(ReplaceFile, KeepsTheOldFileWhenTheDiskIsFull)
{
    for (const rlim_t room : {0, 1, 65536, 99'999}) {
        const FullDisk full(room);
        ExpectToKeepTheOldFile(EFBIG);
    }
}

TEST_F(ReplaceFile, KeepsTheOldFileWithoutPermissionForIt)
{
    for (const int folder : {0555, 0777}) {
        SCOPED_TRACE(folder);
        Permit(0444, folder);
        const OrdinaryUser user;
        ExpectToKeepTheOldFile(EACCES);
    }
}

TEST_F(ReplaceFile, WritesInPlaceWhereTheFolderTakesNoNewFile)
{
    Permit(0666, 0555);
    const OrdinaryUser user;
    {
        const FullDisk full(50'000);
        ExpectToKeepTheOldFile(EFBIG);
    }
    for (const std::size_t size : {100'000, 5, 0}) {
        SCOPED_TRACE(size);
        const std::string text(size, 'x');
        CFile(fFolder.File("file")).ReplaceContents(std::as_bytes(std::span(text)));
        EXPECT_EQ(fFolder.Get("file"), text);
    }
    EXPECT_EQ(fFolder.Count(), 1);
}

TEST_F(ReplaceFile, KeepsThePermissionsAndTheLinksThatLeadToTheFile)
{
    Permit(0600, 0777);
    fFolder.Put("far", "far");
    std::filesystem::create_symlink("file", fFolder.Path() / "near");
    std::filesystem::create_symlink(fFolder.Path() / "near", fFolder.Path() / "link");
    std::filesystem::create_symlink("missing", fFolder.Path() / "dangling");
    std::filesystem::create_symlink("round", fFolder.Path() / "round");
    struct Case {
        const char *name, *written;
        int permissions; // 0: not looked at
    };
    for (const auto& [name, written, permissions] :
         {Case{"link", "file", 0600}, {"dangling", "missing", 0}}) {
        SCOPED_TRACE(name);
        CFile(fFolder.File(name)).ReplaceContents(std::as_bytes(std::span("new", 3)));
        EXPECT_TRUE(std::filesystem::is_symlink(fFolder.Path() / name));
        EXPECT_EQ(fFolder.Get(written), "new");
        const std::filesystem::file_status file = std::filesystem::status(fFolder.Path() / written);
        EXPECT_TRUE(permissions == 0 || file.permissions() == std::filesystem::perms(permissions));
    }
    EXPECT_THAT([&] { CFile(fFolder.File("round")).ReplaceContents({}); }, ThrowsCode(ELOOP));
}

TEST_F(ReplaceFile, LeavesTheOldFileToWhoReadsIt)
{
    CFilePort reader(fFolder.File("file"), FileMode::kRead);
    Replace();
    char text[3];
    reader.Read(text, 3);
    EXPECT_EQ(std::string_view(text, 3), "old");
    EXPECT_EQ(fFolder.Get("file").size(), 100'000u);
}

TEST_F(UserDataFolder, HoldsValuesBelowTheLevelsOfTheirKeyAndFilesBelowTheNamesOfTheHost)
{
    EXPECT_TRUE(fStore.WriteSettingsData("Software\\Orlen\\Key", "Preferences", "", fData, true));
    EXPECT_EQ(fFolder.Get("Software/Orlen/Key/Preferences"), "value");
    EXPECT_TRUE(fStore.WriteSettingsData("", "", "Prefs.lgp", fData, false));
    EXPECT_TRUE(Settings().Path().View().starts_with(fFolder.Path().native()));
    EXPECT_TRUE(CFile(Settings().Child("Prefs.lgp")).OpenIfPresent(FileMode::kRead));
}

TEST_F(UserDataFolder, IsNotLeftByNamesThatLeadElsewhere)
{
    const auto refuse = [this](const char* path, const char* name) {
        EXPECT_THROW(fStore.WriteSettingsData(path, name, "", fData, true), CSystemError)
            << path << " " << name;
        CMemoryContainer read;
        EXPECT_FALSE(fStore.ReadSettingsData(path, name, "", read, true)) << path << " " << name;
    };
    for (const char* path : {"..\\Orlen", "Software\\..\\..", "Software\\\\Orlen", "a/b", "", "."})
        refuse(path, "name");
    for (const char* name : {"..", "a/b", ""})
        refuse("Software", name);
    EXPECT_EQ(fFolder.Count(), 0);
}

TEST_F(UserDataFolder, IsFoundInTheHomeFolderByDefaultAndMustBeAFolder)
{
    fFolder.Put("Orlen", "a file in the way");
    EXPECT_THAT([&] { Settings(); }, ThrowsCode(ENOTDIR));
    const Environment config("XDG_CONFIG_HOME", "not/from/the/root");
    const Environment home("HOME", fFolder.Path().c_str());
    Settings();
    EXPECT_TRUE(std::filesystem::is_directory(fFolder.Path() / ".config" / "Orlen"));
}
