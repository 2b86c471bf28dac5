#include "foundation/settings_file.h"

#include "foundation/exceptions.h"
#include "foundation/memory_container.h"
#include "foundation/plugin_settings.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Kesto {
namespace {

// Settings of a project that has one number to remember.
class PNumber final : public Project::PSettings {
public:
    void Read(CStream& in, std::uint32_t size) override
    {
        fSize = size;
        fNumber = in.ReadInt32();
    }
    void Write(CStream& out) const override { out.WriteInt32(fNumber); }

    std::int32_t fNumber = 0;
    std::uint32_t fSize = 0;
};

struct NumberSettings : PluginSettings {
    NumberSettings() { project = std::make_unique<PNumber>(); }
    PNumber& Number() { return static_cast<PNumber&>(*project); }
};

constexpr WindowState kWindow{3, 1, 1.5, -2, 3e10, 4, 5, 6, 7, 8, 640, 480, -0.25, 99, -3, 32767};

// Writes the parts of a file one by one, right or wrong.
class FileMaker {
public:
    explicit FileMaker(std::endian order) { file.SetByteOrder(order); }

    FileMaker& Header(Tag owner, Tag tag, std::uint32_t version, std::uint32_t size)
    {
        file.WriteTag(owner);
        file.WriteTag(tag);
        file.WriteInt32(0);
        file.WriteUInt32(version);
        file.WriteUInt32(size);
        return *this;
    }
    FileMaker& FileHeader(std::uint32_t version = 0, std::uint32_t size = 1000)
    {
        return Header(MakeTag("Kest"), MakeTag("Proj"), version, size);
    }
    FileMaker& Window(std::uint32_t blockVersion = 2, std::uint32_t chunkVersion = 0, std::uint32_t chunkSize = 116)
    {
        Header(MakeTag("Kest"), MakeTag("WnSt"), chunkVersion, chunkSize);
        file.WriteUInt32(blockVersion);
        file.WriteUInt32(108);
        VisitWindowStateFields(kWindow, [&]<class T>(const T& field, const char*) { file.WriteValue<T>(field); });
        return *this;
    }
    FileMaker& Zero()
    {
        file.WriteUInt32(0);
        return *this;
    }

    PluginSettings Load()
    {
        file.SetByteOrder(std::endian::big);
        PluginSettings settings;
        SettingsFileLoad(settings, file);
        return settings;
    }

    CMemoryContainer file;
};

class SettingsFile : public testing::TestWithParam<std::endian> {
protected:
    FileMaker Make() { return FileMaker(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(ByteOrders, SettingsFile, testing::Values(std::endian::big, std::endian::little),
                         [](const auto& test) { return test.param == std::endian::big ? "Big" : "Little"; });

TEST_P(SettingsFile, KeepsWhatWasSaved)
{
    NumberSettings saved;
    saved.window = kWindow;
    saved.Number().fNumber = -7;
    CMemoryContainer file;
    file.SetByteOrder(GetParam());
    SettingsFileSave(saved, file);

    file.SetByteOrder(std::endian::big);
    NumberSettings loaded;
    SettingsFileLoad(loaded, file);
    EXPECT_EQ(loaded.window, kWindow);
    EXPECT_EQ(loaded.Number().fNumber, -7);
    EXPECT_EQ(loaded.Number().fSize, 4u);
}

TEST_P(SettingsFile, HasItsChunksInTheirPlaces)
{
    CMemoryContainer file;
    file.SetByteOrder(GetParam());
    PluginSettings settings;
    settings.window = kWindow;
    SettingsFileSave(settings, file);

    FileMaker expected = Make();
    expected.FileHeader(0, 160).Window();
    expected.Header(MakeTag("Proj"), MakeTag("Sett"), 0, 0).Zero();
    const auto text = [](std::span<const std::byte> bytes) {
        return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    };
    EXPECT_EQ(text(file.Bytes()), text(expected.file.Bytes()));
    EXPECT_EQ(text(file.Bytes()).substr(0, 4), GetParam() == std::endian::big ? "Kest" : "tseK");
}

TEST_P(SettingsFile, SkipsChunksThatItDoesNotKnow)
{
    FileMaker maker = Make();
    maker.FileHeader().Header(MakeTag("Else"), MakeTag("WnSt"), 0, 5).file.Write("12345", 5);
    maker.Header(MakeTag("Kest"), MakeTag("Proj"), 0, 0).Window(2, 1).Window().Zero();
    EXPECT_EQ(maker.Load().window, kWindow);
}

TEST_P(SettingsFile, GoesOnBehindAChunkBySizeWhateverItHolds)
{
    FileMaker longer = Make();
    longer.FileHeader().Window(2, 0, 120).Zero().Zero();
    EXPECT_EQ(longer.Load().window, kWindow);
    // A chunk that says it ends within the state: the bytes there are taken for an owner, and the file for cut.
    FileMaker shorter = Make();
    shorter.FileHeader().Window(2, 0, 8).Zero();
    EXPECT_THROW(shorter.Load(), CError);
}

TEST_P(SettingsFile, KeepsTheDefaultsForAWindowStateOfAnotherVersion)
{
    FileMaker chunk = Make();
    EXPECT_EQ(chunk.FileHeader().Window(2, 1).Zero().Load().window, WindowState::FromNothing());
    FileMaker block = Make();
    EXPECT_EQ(block.FileHeader().Window(1).Zero().Load().window, WindowState::FromNothing());
}

TEST_P(SettingsFile, IgnoresWhatIsNoSettingsFile)
{
    const auto with = [&](Tag owner, Tag tag, std::uint32_t version, std::uint32_t size) {
        FileMaker maker = Make();
        maker.Header(owner, tag, version, size).Window().Zero();
        return maker.Load().window;
    };
    EXPECT_EQ(Make().Load().window, WindowState::FromNothing());
    EXPECT_EQ(Make().FileHeader().Load().window, WindowState::FromNothing());
    EXPECT_EQ(with(MakeTag("Kesu"), MakeTag("Proj"), 0, 140), WindowState::FromNothing());
    EXPECT_EQ(with(MakeTag("Kest"), MakeTag("Proi"), 0, 140), WindowState::FromNothing());
    EXPECT_EQ(with(MakeTag("Kest"), MakeTag("Proj"), 1, 140), WindowState::FromNothing());
    EXPECT_EQ(with(MakeTag("Kest"), MakeTag("Proj"), 0, 4), WindowState::FromNothing());
    EXPECT_EQ(with(MakeTag("Kest"), MakeTag("Proj"), 0, 5), kWindow);
}

// The window state ends at byte 156, and the file at 184.
TEST_P(SettingsFile, EndsWithTheEndOfDataErrorWhereverItIsCut)
{
    NumberSettings saved;
    saved.window = kWindow;
    CMemoryContainer whole;
    whole.SetByteOrder(GetParam());
    SettingsFileSave(saved, whole);
    ASSERT_EQ(whole.GetSize(), 184u);
    for (std::size_t size = 0; size < whole.GetSize(); ++size) {
        CMemoryContainer cut;
        cut.Write(whole.Bytes().data(), size);
        NumberSettings loaded;
        if (size <= 20)
            SettingsFileLoad(loaded, cut);
        else
            EXPECT_THROW(SettingsFileLoad(loaded, cut), CError) << size;
        EXPECT_EQ(loaded.window, size < 156 ? WindowState::FromNothing() : kWindow) << size;
    }
}

TEST_P(SettingsFile, SurvivesSizesThatLie)
{
    for (const std::uint32_t size : {1u, 115u, 117u, 140u, 0x7FFFFFFFu, 0xFFFFFFECu, 0xFFFFFFFFu}) {
        FileMaker maker = Make();
        maker.FileHeader().Window(2, 0, size).Zero();
        EXPECT_THROW(maker.Load(), CError) << size;
    }
    for (const std::uint32_t size : {5u, 140u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        FileMaker maker = Make();
        maker.FileHeader().Header(MakeTag("Kest"), MakeTag("WnSt"), 0, 8).file.WriteUInt32(1);
        maker.file.WriteUInt32(size);
        EXPECT_THROW(maker.Zero().Load(), CError) << size;
    }
}

} // namespace
} // namespace Kesto
