// The host's file service through its exported functions, as a module and the host use them.
#include "lumograph/file_service_control.h"
#include "lumograph/results.h"
#include "support/temporary_folder.h"
#include "support/testing.h"

namespace {

std::string TextOf(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

// A record bound to a file of the folder, with a buffer of 16 bytes so that small files cross it.
class FileServiceTest : public testing::Test {
protected:
    FileServiceTest() { FileServiceSetBuffer(16); }
    ~FileServiceTest() override
    {
        FileServiceUnbind(&fRecord);
        FileServiceSetBuffer(0);
    }

    HostFile Open(const char* name, int16_t mode)
    {
        FileServiceBind(&fRecord, TextOf(fFolder / name).c_str());
        return FastOpen(&fRecord, mode);
    }

    // The bytes of one read; fewer than asked for at the end.
    std::string Read(HostFile file, int64_t count)
    {
        std::string bytes(static_cast<size_t>(count), '?');
        fResult = FastRead(file, &count, bytes.data());
        bytes.resize(static_cast<size_t>(count));
        return bytes;
    }

    void ExpectOldFileKept()
    {
        FileServiceUnbind(&fRecord);
        EXPECT_EQ(fFolder.Get("out"), "old");
        EXPECT_EQ(fFolder.Count(), 1);
    }

    TemporaryFolder fFolder;
    HostFormatRecord fRecord = {};
    int16_t fResult = 0;
};

TEST_F(FileServiceTest, PiecesOfAnySizeCrossTheBuffer)
{
    std::string content(300, ' ');
    std::iota(content.begin(), content.end(), '\0');
    HostFile file = Open("out", kHostOpenToWrite);
    int64_t at = 0;
    for (const int64_t count : {1, 4, 3, 16, 2, 90, 15, 17, 152}) {
        SCOPED_TRACE(at);
        EXPECT_EQ(FastWrite(file, count, content.data() + at), kHostNoError);
        at += count;
        EXPECT_EQ(FastGetPosition(file), at);
    }
    EXPECT_EQ(FastSetPosition(file, kHostSeekFromStart, 2), kHostNoError);
    EXPECT_EQ(FastWrite(file, 3, "XYZ"), kHostNoError);
    EXPECT_EQ(FastClose(file), kHostNoError);
    EXPECT_EQ(FileServiceCommit(&fRecord), kHostNoError);
    content.replace(2, 3, "XYZ");
    EXPECT_EQ(fFolder.Get("out"), content);

    file = Open("out", kHostOpenToRead);
    std::string read;
    for (const int64_t count : {1, 3, 2, 4, 15, 16, 17, 40, 1, 0, 33, 1}) {
        SCOPED_TRACE(read.size());
        EXPECT_EQ(FastGetPosition(file), std::ssize(read));
        read += Read(file, count);
        EXPECT_EQ(fResult, kHostNoError);
    }
    EXPECT_EQ(read, content.substr(0, read.size()));
    const std::pair<int16_t, int64_t> moves[] = {
        {kHostSeekFromStart, 5},    {kHostSeekFromCurrent, 3},  {kHostSeekFromStart, 0},
        {kHostSeekFromStart, 250},  {kHostSeekFromCurrent, -2}, {kHostSeekFromCurrent, -200},
        {kHostSeekFromCurrent, -9}, {kHostSeekFromStart, 299}};
    for (const auto& [mode, offset] : moves) {
        SCOPED_TRACE(offset);
        const int64_t target = mode == kHostSeekFromStart ? offset : FastGetPosition(file) + offset;
        EXPECT_EQ(FastSetPosition(file, mode, offset), kHostNoError);
        EXPECT_EQ(FastGetPosition(file), target);
        EXPECT_EQ(Read(file, 1), content.substr(static_cast<size_t>(target), 1));
    }
    EXPECT_EQ(FastClose(file), kHostNoError);
}

TEST_F(FileServiceTest, AShortReadDeliversTheRestAndIsAFailure)
{
    fFolder.Put("in", "0123456789");
    HostFile file = Open("in", kHostOpenToRead);
    EXPECT_EQ(Read(file, 8), "01234567");
    for (const char* rest : {"89", ""}) {
        SCOPED_TRACE(rest);
        EXPECT_EQ(Read(file, 100), rest);
        EXPECT_EQ(fResult, kHostEndOfFile);
    }
    EXPECT_EQ(FastGetPosition(file), 10);
    EXPECT_EQ(FileServiceInspect(&fRecord).ioResult, kHostEndOfFile);
}

TEST_F(FileServiceTest, RefusesPlacesBeforeTheStartAndCallsWithoutAFile)
{
    fFolder.Put("in", "0123456789");
    HostFile file = Open("in", kHostOpenToRead);
    Read(file, 4);
    EXPECT_EQ(FastSetPosition(file, kHostSeekFromCurrent, -5), kHostBadParameter);
    EXPECT_EQ(FastSetPosition(file, kHostSeekFromCurrent, std::numeric_limits<int64_t>::max()),
              kHostBadParameter);
    EXPECT_EQ(FastSetPosition(file, 2, 0), kHostBadParameter);
    EXPECT_EQ(FastGetPosition(file), 4);
    int64_t count = -1;
    char byte = 0;
    EXPECT_EQ(FastRead(file, &count, &byte), kHostBadParameter);
    EXPECT_EQ(FastWrite(file, 1, &byte), kHostOpenError);
    EXPECT_EQ(FastRead(nullptr, &count, &byte), kHostBadParameter);
    EXPECT_EQ(FastClose(file), kHostNoError);
    EXPECT_EQ(FastClose(file), kHostBadParameter) << "it was closed before";
    EXPECT_EQ(FastClose(nullptr), kHostBadParameter);
}

TEST_F(FileServiceTest, OpensOnlyWhatIsThereAndBound)
{
    EXPECT_EQ(Open("missing", kHostOpenToRead), nullptr);
    EXPECT_EQ(FileServiceInspect(&fRecord).openResult, kHostFileNotFound);
    std::filesystem::create_directory(fFolder / "folder");
    EXPECT_EQ(Open("folder", kHostOpenToRead), nullptr);
    EXPECT_EQ(Open("folder", kHostOpenToWrite), nullptr);
    EXPECT_EQ(Open("no/such/folder", kHostOpenToWrite), nullptr);
    FileServiceUnbind(&fRecord);
    EXPECT_EQ(FastOpen(&fRecord, kHostOpenToRead), nullptr);
}

TEST_F(FileServiceTest, WhatIsNotCommittedLeavesTheTargetAlone)
{
    fFolder.Put("out", "old");
    HostFile file = Open("out", kHostOpenToWrite);
    FastWrite(file, 3, "new");
    EXPECT_EQ(FileServiceCommit(&fRecord), kHostFileLocked) << "the file is still open";
    EXPECT_EQ(FileServiceInspect(&fRecord).openFiles, 1);
    EXPECT_EQ(FastClose(file), kHostNoError);
    ExpectOldFileKept();
}

TEST_F(FileServiceTest, AFailureOfAnyCallKeepsTheOldFile)
{
    fFolder.Put("out", "old");
    HostFile file = Open("out", kHostOpenToWrite);
    FastWrite(file, 3, "new");
    FastSetPosition(file, kHostSeekFromStart, -1);
    FastClose(file);
    EXPECT_EQ(FileServiceCommit(&fRecord), kHostBadParameter);
    ExpectOldFileKept();
}

TEST_F(FileServiceTest, FindsFilesWithNamesOfAnyScript)
{
    const char8_t name[] = u8"h\u00e5vn \u6e2f.img";
    const std::filesystem::path path = (fFolder / ".").parent_path() / name;
    std::ofstream(path) << "ahoy";
    FileServiceBind(&fRecord, TextOf(path).c_str());
    HostFile file = FastOpen(&fRecord, kHostOpenToRead);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(Read(file, 4), "ahoy");
}

TEST_F(FileServiceTest, TwoRecordsHaveFilesOfTheirOwn)
{
    fFolder.Put("one", "1111");
    fFolder.Put("two", "2222");
    HostFormatRecord other = {};
    HostFile one = Open("one", kHostOpenToRead);
    FileServiceBind(&other, TextOf(fFolder / "two").c_str());
    HostFile two = FastOpen(&other, kHostOpenToRead);
    EXPECT_EQ(Read(one, 2) + Read(two, 2), "1122");
    FileServiceUnbind(&other);
    EXPECT_EQ(Read(one, 2), "11");
}

} // namespace
