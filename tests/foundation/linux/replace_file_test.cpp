// What a file that is replaced survives, by means that only this system gives a test: limits, users and devices.
#include "foundation/exceptions.h"
#include "foundation/file_port.h"
#include "foundation/memory_container.h"
#include "foundation/settings_store.h"
#include "foundation/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

namespace Kesto {
namespace {

// No file of the process may become longer, as if the disk were full.
class FullDisk {
public:
    explicit FullDisk(rlim_t room)
    {
        fHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &fFormer);
        const rlimit limit{room, fFormer.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &fFormer);
        std::signal(SIGXFSZ, fHandler);
    }

private:
    rlimit fFormer{};
    void (*fHandler)(int);
};

// The process has no more rights than the rest of the world, even when it is run by the administrator.
class OrdinaryUser {
public:
    OrdinaryUser() { EXPECT_TRUE(fFormer != 0 || seteuid(65534) == 0); }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(fFormer), 0); }

private:
    uid_t fFormer = geteuid();
};

template <class Call>
std::uint32_t SystemErrorOf(Call call)
{
    try {
        call();
    } catch (const CSystemError& error) {
        EXPECT_FALSE(error.ErrorText().IsEmpty());
        return error.Code();
    }
    return 0;
}

class ReplaceFile : public testing::Test {
protected:
    ReplaceFile() { fFolder.Write("file", "old"); }
    ~ReplaceFile() override
    {
        EXPECT_EQ(fFolder.Content("file"), "old");
        EXPECT_EQ(fFolder.Count(), 1);
    }

    std::uint32_t Replace() const
    {
        const std::vector<std::byte> bytes(100'000);
        return SystemErrorOf([&] { CFile(fFolder.File("file")).ReplaceContents(bytes); });
    }

    TemporaryFolder fFolder;
};

TEST_F(ReplaceFile, KeepsTheOldFileWhenTheDiskIsFull)
{
    for (const rlim_t room : {0, 1, 65536, 99'999}) {
        const FullDisk full(room);
        EXPECT_EQ(Replace(), std::uint32_t{EFBIG}) << room;
    }
}

TEST_F(ReplaceFile, KeepsTheOldFileWithoutPermissionForTheFolder)
{
    std::filesystem::permissions(fFolder.Path(), std::filesystem::perms(0555));
    std::filesystem::permissions(fFolder.Path() / "file", std::filesystem::perms(0666));
    const OrdinaryUser user;
    EXPECT_EQ(Replace(), std::uint32_t{EACCES});
}

TEST_F(ReplaceFile, KeepsTheOldFileWithoutPermissionForTheFile)
{
    std::filesystem::permissions(fFolder.Path(), std::filesystem::perms(0777));
    std::filesystem::permissions(fFolder.Path() / "file", std::filesystem::perms(0444));
    const OrdinaryUser user;
    EXPECT_EQ(Replace(), std::uint32_t{EACCES});
}

TEST(FilePortOnAFullDevice, ThrowsForTheBytesThatWereNotTaken)
{
    CFilePort port(CFileSpec("/dev/full"), FileMode::kUpdate);
    EXPECT_EQ(SystemErrorOf([&] { port.Write("x", 1); }), std::uint32_t{ENOSPC});
    EXPECT_EQ(port.GetPosition(), 0u);
}

TEST(ReplacedFile, StaysWithWhoReadsIt)
{
    const TemporaryFolder folder;
    folder.Write("file", "old");
    CFilePort reader(folder.File("file"), FileMode::kRead);
    CFile(folder.File("file")).ReplaceContents(std::as_bytes(std::span("new", 3)));
    char text[3];
    reader.Read(text, 3);
    EXPECT_EQ(std::string_view(text, 3), "old");
    EXPECT_EQ(folder.Content("file"), "new");
}

// The folder that the user data folder of this process is set to, for the life of one test.
class UserDataFolder : public testing::Test {
protected:
    UserDataFolder()
    {
        const char* former = std::getenv("XDG_CONFIG_HOME");
        fHadFormer = former != nullptr;
        fFormer = fHadFormer ? former : "";
        setenv("XDG_CONFIG_HOME", fFolder.Path().c_str(), 1);
    }
    ~UserDataFolder() override
    {
        if (fHadFormer)
            setenv("XDG_CONFIG_HOME", fFormer.c_str(), 1);
        else
            unsetenv("XDG_CONFIG_HOME");
    }

    TemporaryFolder fFolder;
    CSettingsStore fStore;
    CMemoryContainer fData;

private:
    bool fHadFormer;
    std::string fFormer;
};

TEST_F(UserDataFolder, HoldsValuesAsFilesBelowTheLevelsOfTheirKey)
{
    fData.Write("value", 5);
    EXPECT_TRUE(fStore.WriteSettingsData("Software\\Orlen\\Key", "Preferences", "", fData, true));
    EXPECT_EQ(fFolder.Content("Software/Orlen/Key/Preferences"), "value");
}

TEST_F(UserDataFolder, IsNotLeftByNamesThatLeadElsewhere)
{
    fData.Write("value", 5);
    for (const char* path : {"..\\Orlen", "Software\\..\\..", "Software\\\\Orlen", "a/b", "", "."})
        EXPECT_THROW(fStore.WriteSettingsData(path, "name", "", fData, true), CSystemError) << path;
    for (const char* name : {"..", "a/b", ""}) {
        EXPECT_THROW(fStore.WriteSettingsData("Software", name, "", fData, true), CSystemError) << name;
        EXPECT_FALSE(fStore.ReadSettingsData("Software", name, "", fData, true)) << name;
        fData.Write("value", 5);
    }
    EXPECT_EQ(fFolder.Count(), 0);
}

TEST_F(UserDataFolder, KeepsSettingsFilesBelowTheNamesOfTheHost)
{
    fData.Write("file", 4);
    EXPECT_TRUE(fStore.WriteSettingsData("", "", "Prefs.lgp", fData, false));
    CFileSpec folder;
    fStore.GetSettingsFolder(folder);
    EXPECT_EQ(folder.Path().View().substr(0, fFolder.Path().string().size()), fFolder.Path().string());
    EXPECT_TRUE(CFile(folder.Child("Prefs.lgp")).OpenIfPresent(FileMode::kRead));
}

TEST_F(UserDataFolder, MustBeAFolder)
{
    fFolder.Write("Orlen", "a file in the way");
    CFileSpec folder;
    EXPECT_EQ(SystemErrorOf([&] { fStore.GetSettingsFolder(folder); }), std::uint32_t{ENOTDIR});
}

TEST_F(UserDataFolder, IsFoundInTheHomeFolderByDefault)
{
    const std::string home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
    setenv("XDG_CONFIG_HOME", "not/from/the/root", 1);
    setenv("HOME", fFolder.Path().c_str(), 1);
    CFileSpec folder;
    fStore.GetSettingsFolder(folder);
    EXPECT_TRUE(std::filesystem::is_directory(fFolder.Path() / ".config" / "Orlen"));
    setenv("HOME", home.c_str(), 1);
}

} // namespace
} // namespace Kesto
