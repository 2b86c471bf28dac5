#include "foundation/errors/exceptions.h"
#include "foundation/spec_folder.h"
#include "foundation/streams/file_port.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

std::span<const std::byte> Bytes(std::string_view text)
{
    return std::as_bytes(std::span(text));
}

class FilePort : public testing::Test {
protected:
    SpecFolder folder;
};
using File = FilePort;

} // namespace

TEST_F(FilePort, ReadsAndWritesUpToItsEnd)
{
    constexpr std::uint64_t kFar = 0x1'0000'0002; // beyond 4 GiB
    CFilePort port(folder.File("file"), FileMode::kReplace);
    port.WriteAt("far", 3, kFar);
    EXPECT_EQ(port.GetPosition(), 0u);
    EXPECT_EQ(port.GetLength(), kFar + 3);
    char text[3];
    port.ReadAt(text, 3, kFar);
    EXPECT_EQ(std::string_view(text, 3), "far");
    port.SetLength(0);
    port.Write("abcdef", 6);
    EXPECT_EQ(port.GetPosition(), 6u);
    port.Seek(2);
    port.Read(text, 2);
    EXPECT_EQ(std::string_view(text, 2), "cd");
    EXPECT_THROW(port.Read(text, 3), CError);
    EXPECT_EQ(port.GetPosition(), 4u);
    EXPECT_THROW(port.ReadAt(text, 1, 6), CError);
    port.ReadAt(text, 0, 100);
    port.Flush();
    port.Close();
    EXPECT_EQ(folder.Get("file"), "abcdef");
}

TEST_F(FilePort, RefusesWhatTheSystemRefuses)
{
    folder.Put("file", "abc");
    CFilePort port(folder.File("file"), FileMode::kRead);
    char byte = 'x';
    EXPECT_THROW(port.Write(&byte, 1), CSystemError);
    EXPECT_THROW(port.SetLength(1), CSystemError);
    EXPECT_THROW(port.ReadAt(&byte, 1, UINT64_MAX), CSystemError);
    CFilePort writable(folder.File("file"), FileMode::kUpdate);
    EXPECT_THROW(writable.WriteAt(&byte, 1, UINT64_MAX), CSystemError);
    EXPECT_THROW(writable.SetLength(UINT64_MAX), CSystemError);
    for (const FileMode mode : {FileMode::kRead, FileMode::kUpdate, FileMode::kReplace})
        EXPECT_THROW(CFilePort(folder.Spec(), mode), CSystemError)
            << "mode " << static_cast<int>(mode);
    EXPECT_EQ(folder.Get("file"), "abc");
}

TEST_F(File, OpensWhatThereIs)
{
    const CFile file(folder.File("\xC3\xA9t\xC3\xA9.txt")); // a name beyond ASCII
    EXPECT_FALSE(file.OpenIfPresent(FileMode::kRead));
    EXPECT_FALSE(CFile(folder.File("none").Child("file")).OpenIfPresent(FileMode::kUpdate));
    EXPECT_THROW(file.Open(FileMode::kUpdate), CSystemError);
    file.Open(FileMode::kReplace).Write("12", 2);
    EXPECT_EQ(file.OpenIfPresent(FileMode::kRead)->GetLength(), 2u);
    EXPECT_EQ(file.Open(FileMode::kReplace).GetLength(), 0u);
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / u8"\u00E9t\u00E9.txt"));
    file.Delete();
    EXPECT_EQ(folder.Count(), 0);
    EXPECT_THROW(file.Delete(), CSystemError);
}

TEST_F(File, IsReplacedAndNothingStaysBeside)
{
    const CFile file(folder.File("file"));
    for (const char* content : {"first and longer", "second"}) {
        file.ReplaceContents(Bytes(content));
        EXPECT_EQ(folder.Get("file"), content) << content;
    }
    folder.Put("new", "new");
    CFile(folder.File("new")).MoveOver(folder.File("file"));
    EXPECT_EQ(folder.Get("file"), "new");
    EXPECT_EQ(folder.Count(), 1);
}

TEST_F(File, NeedsAFolderAndReplacesNone)
{
    EXPECT_THROW(CFile(folder.File("none").Child("file")).ReplaceContents(Bytes("new")),
                 CSystemError);
    std::filesystem::create_directory(folder.Path() / "folder");
    EXPECT_THROW(CFile(folder.File("folder")).ReplaceContents(Bytes("new")), CSystemError);
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "folder"));
    EXPECT_EQ(folder.Count(), 1);
}

TEST_F(File, GetsTheFoldersThatAreMissing)
{
    for (int time = 0; time < 2; ++time)
        folder.File("a").Child("b c").CreateFolder();
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "a" / "b c"));
    folder.Put("file", "x");
    EXPECT_THROW(folder.File("file").CreateFolder(), CSystemError);
    EXPECT_THROW(folder.File("file").Child("below").CreateFolder(), CSystemError);
}
