// An export's protocol through its entry: what it asks for, what it writes, and what failures of
// the host become.
#include "lumograph/lumograph.h"
#include "support/testing.h"

extern "C" void EntryContactSheet(int16_t selector, void* record, intptr_t* data, int16_t* result);

namespace {

namespace fs = std::filesystem;

// 320 x 40 pixels of one colour. The size of the prints is what the user has left.
class ContactSheetRun : public testing::Test {
protected:
    ContactSheetRun()
    {
        fCurrent = this;
        record.documentWidth = 320;
        record.documentHeight = 40;
        record.depth = 8;
        record.planeCount = 3;
        record.memoryBudget = 0x400000;
        record.outputPath = path.c_str();
        record.fetchBlock = [] { return fCurrent->Lend(); };
        record.progressReport = [](int32_t, int32_t) {};
    }
    ~ContactSheetRun() override
    {
        fs::remove(path);
        fCurrent = nullptr;
    }

    int16_t Call(int16_t selector)
    {
        int16_t result = 99;
        EntryContactSheet(selector, &record, &data, &result);
        return result;
    }

    // What the start answers in a whole run.
    int16_t Run()
    {
        fetches = 0;
        EXPECT_EQ(Call(kExportPrepare), 0);
        const int16_t result = Call(kExportStart);
        const HostRect16 nothing{};
        EXPECT_EQ(std::memcmp(&record.blockRect, &nothing, sizeof nothing), 0);
        EXPECT_EQ(record.lastPlane, 0);
        EXPECT_EQ(Call(kExportFinish), 0);
        return result;
    }

    int16_t Lend()
    {
        if (fetches++ == failAt)
            return code;
        const HostRect16& rect = record.blockRect;
        record.blockStride = (rect.right - rect.left) * 3;
        lent.assign(static_cast<size_t>(record.blockStride * (rect.bottom - rect.top)), 'P');
        record.block = lent.data();
        if (lie)
            lie(record);
        return kHostNoError;
    }

    static inline ContactSheetRun* fCurrent = nullptr;

    const std::string path = (fs::temp_directory_path() / "sidecar_sheet_test.ppm").string();
    HostExportRecord record{};
    intptr_t data = 0;
    std::vector<uint8_t> lent;
    int fetches = 0;
    int failAt = -1;
    int16_t code = kHostIoError;
    std::function<void(HostExportRecord&)> lie;
};

TEST_F(ContactSheetRun, WritesItsSheetARowOfThePrintAtATime)
{
    EXPECT_EQ(Call(kExportParameters), 0) << "a host without windows has nobody to ask";
    EXPECT_EQ(Run(), 0);
    std::ifstream file(path, std::ios::binary);
    std::string kind;
    int64_t width = 0, height = 0, white = 0;
    file >> kind >> width >> height >> white;
    file.get();
    const std::string pixels{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(kind, "P6");
    EXPECT_EQ(std::ssize(pixels), width * height * 3);
    EXPECT_GE(std::ranges::count(pixels, 'P'), fetches * 8 * fetches * 3) << "eight times as wide";
}

TEST_F(ContactSheetRun, AFailureOfTheHostIsARefusal)
{
    ASSERT_EQ(Run(), 0);
    const int all = fetches;
    for (const int16_t failure : {kHostUserCanceled, kHostMemoryFull, kHostIoError})
        for (const int row : {0, all / 2, all - 1}) {
            SCOPED_TRACE(testing::Message() << failure << " at row " << row);
            failAt = row;
            code = failure;
            EXPECT_EQ(Run(), kHostFailed);
            EXPECT_EQ(fetches, row + 1);
        }
    failAt = -1;
    const std::pair<const char*, void (*)(HostExportRecord&)> rows[] = {
        {"no block", [](HostExportRecord& told) { told.block = nullptr; }},
        {"rows too short", [](HostExportRecord& told) { --told.blockStride; }},
        {"rows upwards", [](HostExportRecord& told) { told.blockStride *= -1; }},
    };
    for (const auto& [what, change] : rows) {
        SCOPED_TRACE(what);
        lie = change;
        EXPECT_EQ(Run(), kHostFailed);
        EXPECT_EQ(fetches, 1);
    }
    record.fetchBlock = nullptr;
    EXPECT_EQ(Run(), kHostFailed);
}

} // namespace
