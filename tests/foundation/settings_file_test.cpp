// The state of a window, and the file that keeps it and the settings of a project.
#include "foundation/settings/settings_file.h"

#include "foundation/errors/exceptions.h"
#include "foundation/settings/plugin_settings.h"
#include "foundation/settings/window_state.h"
#include "foundation/streams/memory_container.h"
#include "support/testing.h"

#include <bit>

using namespace Kesto;

namespace {

using Keys = std::map<std::string, double, std::less<>>;

WindowState FromLayout(const Keys& keys)
{
    return WindowStateFromLayout([&](std::string_view key) -> std::optional<double> {
        const auto found = keys.find(key);
        return found == keys.end() ? std::nullopt : std::optional(found->second);
    });
}

// A state of which only this is known.
WindowState Sized(double sizeX, double sizeY, double positionX = 0, double positionY = 0)
{
    return {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, sizeX, sizeY, positionX, positionY, 2, 2};
}

// Settings of a project that has one number to remember.
class PNumber final : public Project::PSettings {
public:
    void Read(CStream& in, std::uint32_t size) override
    {
        EXPECT_EQ(size, 4U);
        fNumber = in.ReadInt32();
    }
    void Write(CStream& out) const override { out.WriteInt32(fNumber); }

    std::int32_t fNumber = 0;
};

struct NumberSettings : PluginSettings {
    NumberSettings() { project = std::make_unique<PNumber>(); }
    std::int32_t& Number() { return static_cast<PNumber&>(*project).fNumber; }
};

const WindowState kDefaults = WindowState::FromNothing();
constexpr WindowState kWindow{3, 1, 1.5, -2, 3e10, 4, 5, 6, 7, 8, 640, 480, -0.25, 99, -3, 32767};

// A file that was saved, byte order by byte order: 20 bytes of header, the window's chunk, the
// project's, and a zero.
class SettingsFile : public testing::TestWithParam<std::endian> {
protected:
    SettingsFile()
    {
        NumberSettings saved;
        saved.window = kWindow;
        saved.Number() = -7;
        fFile.SetByteOrder(GetParam());
        SettingsFileSave(saved, fFile);
    }

    // Puts a number at a place of the file and returns the former one.
    std::uint32_t Put(std::uint64_t place, std::uint32_t number)
    {
        fFile.Seek(place);
        const std::uint32_t former = fFile.ReadUInt32();
        fFile.Seek(place);
        fFile.WriteUInt32(number);
        return former;
    }

    // What is loaded from the first bytes of the file. After a failure, what there was until then.
    NumberSettings Load(std::size_t size = kSize, bool fails = false)
    {
        CMemoryContainer file;
        file.Write(fFile.Bytes().data(), size);
        NumberSettings loaded;
        if (fails)
            EXPECT_THROW(SettingsFileLoad(loaded, file), CError) << size;
        else
            SettingsFileLoad(loaded, file);
        return loaded;
    }

    static constexpr std::size_t kSize = 184;
    CMemoryContainer fFile;
};

INSTANTIATE_TEST_SUITE_P(ByteOrders, SettingsFile,
                         testing::Values(std::endian::big, std::endian::little));

} // namespace

TEST(WindowState, HasItsDefaultsOrTheSizeOfTheView)
{
    EXPECT_EQ(WindowState(), Sized(-100, -100));
    EXPECT_EQ(WindowState::FromNothing(), Sized(0, 0, -50, -33));
    EXPECT_EQ(FromLayout({}), Sized(0, 0));
    EXPECT_EQ(FromLayout({{"width", 320}, {"height", 200.5}}), Sized(320, 200.5));
    EXPECT_EQ(FromLayout({{"width", 320}, {"height", 200.5}, {"window_size_x", 7}}),
              Sized(7, 200.5));
}

TEST(WindowState, HoldsNumbersWithinItsIntegerFields)
{
    WindowState expected = Sized(0, 0);
    expected.state = std::numeric_limits<std::int32_t>::max();
    expected.slopX = -32768;
    expected.slopY = 32767;
    EXPECT_EQ(
        FromLayout({{"window_state", 1e300}, {"window_slop_x", -1e300}, {"window_slop_y", 40000}}),
        expected);
    EXPECT_EQ(FromLayout({{"window_monitor", std::numeric_limits<double>::quiet_NaN()}}),
              Sized(0, 0));
}

TEST_P(SettingsFile, HasItsNumbersInTheirPlaces)
{
    const std::pair<std::uint64_t, std::vector<std::uint32_t>> rows[] = {
        {0, {MakeTag("Kest"), MakeTag("Proj"), 0, 0, 164}},
        {20, {MakeTag("Kest"), MakeTag("WnSt"), 0, 0, 116, 2, 108}},
        {156, {MakeTag("Proj"), MakeTag("Sett"), 0, 0, 4, 0xFFFFFFF9, 0}},
    };
    ASSERT_EQ(fFile.GetSize(), kSize);
    for (const auto& [place, numbers] : rows) {
        fFile.Seek(place);
        for (const std::uint32_t number : numbers)
            EXPECT_EQ(fFile.ReadUInt32(), number) << place;
    }
    fFile.Seek(48);
    VisitWindowStateFields(kWindow, [&]<class T>(const T& field, const char* name) {
        EXPECT_EQ(fFile.ReadValue<T>(), field) << name;
    });
    EXPECT_EQ(std::to_integer<char>(fFile.Bytes()[0]), GetParam() == std::endian::big ? 'K' : 't');
}

TEST_P(SettingsFile, IsReadByChunksAndPassesWhatItDoesNotKnow)
{
    const struct {
        std::vector<std::pair<std::uint64_t, std::uint32_t>>
            changes; // a number at a place, one at a time
        bool window; // is loaded
        bool project;
    } rows[] = {
        {{{0, MakeTag("Kesu")}, {4, MakeTag("Proi")}, {12, 1}, {16, 4}}, false, false},
        {{{16, 5}, {28, 1}}, true, true},
        {{{20, MakeTag("Else")}, {24, MakeTag("Proj")}, {32, 1}, {40, 1}}, false, true},
        {{{156, MakeTag("Kest")}, {160, MakeTag("WnSt")}, {168, 1}}, true, false},
        {{{36, 140}}, true, false}, // the window's chunk ends after the project's
    };
    for (const auto& row : rows)
        for (const auto& [place, number] : row.changes) {
            const std::uint32_t former = Put(place, number);
            NumberSettings loaded = Load();
            EXPECT_EQ(loaded.window, row.window ? kWindow : kDefaults) << place;
            EXPECT_EQ(loaded.Number(), row.project ? -7 : 0) << place;
            Put(place, former);
        }
}

// The window state ends at byte 156, and the project's number at 180.
TEST_P(SettingsFile, EndsWithTheEndOfDataErrorWhereverItIsCut)
{
    for (std::size_t size = 0; size <= kSize; ++size) {
        NumberSettings loaded = Load(size, size > 20 && size < kSize);
        EXPECT_EQ(loaded.window, size < 156 ? kDefaults : kWindow) << size;
        EXPECT_EQ(loaded.Number(), size < 180 ? 0 : -7) << size;
    }
}
