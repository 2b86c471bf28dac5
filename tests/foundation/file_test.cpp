#include "foundation/exceptions.h"
#include "foundation/file_port.h"
#include "foundation/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <string>

namespace Kesto {
namespace {

std::span<const std::byte> Bytes(std::string_view text)
{
    return std::as_bytes(std::span(text));
}

// Expects a CSystemError that has a text to show.
template <class Call>
void ExpectSystemError(Call call)
{
    try {
        call();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const CSystemError& error) {
        EXPECT_NE(error.Code(), 0u);
        EXPECT_FALSE(error.ErrorText().IsEmpty());
    }
}

TEST(FilePort, ReadsAndWritesInOrder)
{
    const TemporaryFolder folder;
    CFilePort port(folder.File("file"), FileMode::kReplace);
    port.Write("abcdef", 6);
    EXPECT_EQ(port.GetPosition(), 6u);
    port.Seek(2);
    char two[2];
    port.Read(two, 2);
    EXPECT_EQ(std::string_view(two, 2), "cd");
    EXPECT_EQ(port.GetPosition(), 4u);
    EXPECT_EQ(port.GetLength(), 6u);
    port.Flush();
    port.Close();
    EXPECT_EQ(folder.Content("file"), "abcdef");
}

TEST(FilePort, ReachesPlacesBeyondFourGibibytes)
{
    constexpr std::uint64_t kFar = 0x1'0000'0002;
    const TemporaryFolder folder;
    CFilePort port(folder.File("file"), FileMode::kReplace);
    port.WriteAt("far", 3, kFar);
    EXPECT_EQ(port.GetPosition(), 0u);
    EXPECT_EQ(port.GetLength(), kFar + 3);
    char text[3];
    port.ReadAt(text, 3, kFar);
    EXPECT_EQ(std::string_view(text, 3), "far");
    port.SetLength(0);
    EXPECT_EQ(port.GetLength(), 0u);
}

TEST(FilePort, TellsWhenTheFileEndsTooSoon)
{
    const TemporaryFolder folder;
    folder.Write("file", "abc");
    CFilePort port(folder.File("file"), FileMode::kRead);
    char text[4];
    port.Seek(1);
    EXPECT_THROW(port.Read(text, 3), CError);
    EXPECT_EQ(port.GetPosition(), 1u);
    EXPECT_THROW(port.ReadAt(text, 1, 3), CError);
    port.ReadAt(text, 0, 100);
}

TEST(FilePort, RefusesWhatTheSystemRefuses)
{
    const TemporaryFolder folder;
    folder.Write("file", "abc");
    CFilePort port(folder.File("file"), FileMode::kRead);
    char byte = 'x';
    ExpectSystemError([&] { port.Write(&byte, 1); });
    ExpectSystemError([&] { port.SetLength(1); });
    ExpectSystemError([&] { port.ReadAt(&byte, 1, UINT64_MAX); });
    CFilePort writable(folder.File("file"), FileMode::kUpdate);
    ExpectSystemError([&] { writable.WriteAt(&byte, 1, UINT64_MAX); });
    ExpectSystemError([&] { writable.SetLength(UINT64_MAX); });
    for (const FileMode mode : {FileMode::kRead, FileMode::kUpdate, FileMode::kReplace})
        ExpectSystemError([&] { CFilePort(folder.Spec(), mode); });
    EXPECT_EQ(folder.Content("file"), "abc");
}

TEST(File, OpensWhatThereIs)
{
    const TemporaryFolder folder;
    const CFile file(folder.File("\xC3\xA9t\xC3\xA9.txt")); // a name beyond ASCII
    EXPECT_FALSE(file.OpenIfPresent(FileMode::kRead));
    EXPECT_FALSE(CFile(folder.File("none").Child("file")).OpenIfPresent(FileMode::kUpdate));
    ExpectSystemError([&] { file.Open(FileMode::kUpdate); });
    file.Open(FileMode::kReplace).Write("12", 2);
    EXPECT_EQ(file.OpenIfPresent(FileMode::kRead)->GetLength(), 2u);
    EXPECT_EQ(file.Open(FileMode::kReplace).GetLength(), 0u);
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / u8"\u00E9t\u00E9.txt"));
    file.Delete();
    EXPECT_EQ(folder.Count(), 0);
    ExpectSystemError([&] { file.Delete(); });
}

TEST(File, MovesOverAnother)
{
    const TemporaryFolder folder;
    folder.Write("new", "new");
    folder.Write("old", "old");
    CFile(folder.File("new")).MoveOver(folder.File("old"));
    EXPECT_EQ(folder.Content("old"), "new");
    EXPECT_EQ(folder.Count(), 1);
}

TEST(File, ReplacesItsContentsAndLeavesNothingBeside)
{
    const TemporaryFolder folder;
    const CFile file(folder.File("file"));
    file.ReplaceContents(Bytes("first and longer"));
    EXPECT_EQ(folder.Content("file"), "first and longer");
    file.ReplaceContents(Bytes("second"));
    EXPECT_EQ(folder.Content("file"), "second");
    EXPECT_EQ(folder.Count(), 1);
}

TEST(File, RefusesToReplaceAFolder)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path() / "file");
    ExpectSystemError([&] { CFile(folder.File("file")).ReplaceContents(Bytes("new")); });
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "file"));
    EXPECT_EQ(folder.Count(), 1);
}

TEST(File, RefusesToReplaceInAFolderThatIsMissing)
{
    const TemporaryFolder folder;
    ExpectSystemError([&] { CFile(folder.File("none").Child("file")).ReplaceContents(Bytes("new")); });
    EXPECT_EQ(folder.Count(), 0);
}

TEST(FileSpec, CreatesTheFoldersThatAreMissing)
{
    const TemporaryFolder folder;
    CFileSpec spec = folder.Spec();
    spec.Append("a");
    spec.Append("b c");
    spec.CreateFolder();
    spec.CreateFolder();
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "a" / "b c"));
    folder.Write("file", "x");
    ExpectSystemError([&] { folder.File("file").CreateFolder(); });
    ExpectSystemError([&] { folder.File("file").Child("below").CreateFolder(); });
}

} // namespace
} // namespace Kesto
