#include "images/icons/resource_data_provider.h"
#include "support/testing.h"

namespace Kesto {
namespace {

using testing::ElementsAre;

// Sets the 32-bit number that is the `index`th after an entry's name.
void SetNumber(std::string& entry, std::size_t index, std::uint32_t value)
{
    for (std::size_t byte = 0; byte < 4; ++byte)
        entry[kIconNameBytes + 4 * index + byte] = static_cast<char>(value >> 8 * byte);
}

struct Slot {
    std::size_t fResolution;
    std::size_t fSlot;
    std::uint32_t fOffset;
    std::uint32_t fSize;
};

// An entry of 7 x 5 pixels at low density and 14 x 10 at high, with the hot spot 2,3.
std::string Entry(std::string_view name, const std::vector<Slot>& slots)
{
    std::string entry(kIconEntryBytes, '\0');
    entry.replace(0, name.size(), name);
    constexpr std::array<std::uint32_t, 4> kMeasures = {7, 5, 2, 3};
    for (std::size_t measure = 0; measure < kMeasures.size(); ++measure)
        for (std::uint32_t resolution = 0; resolution < 2; ++resolution)
            SetNumber(entry, 4 * measure + resolution, kMeasures[measure] * (resolution + 1));
    for (const Slot& slot : slots) {
        SetNumber(entry, 16 + 8 * slot.fResolution + slot.fSlot, slot.fOffset);
        SetNumber(entry, 48 + 8 * slot.fResolution + slot.fSlot, slot.fSize);
    }
    return entry;
}

std::string Head()
{
    std::string head(kIconIndexHeader);
    for (const char* name : {"low", "high", "xlow", "xhigh"}) {
        std::string field = name;
        field.resize(kIconDataNameBytes, '\0');
        field.back() = '\n';
        head += field;
    }
    return head;
}

// A module with one store in it.
class IconStore : public testing::Test {
protected:
    IconStore()
    {
        fFiles["IDXF/IconResources.idx"] =
            Head() +
            Entry("Button",
                  {{0, 0, 4, 3}, {0, 1, 7, 3}, {0, 6, 10, 2}, {1, 0, 4, 4}, {2, 0, 4, 1}}) +
            Entry("Alpha_26019", {{0, 0, 12, 1}}) +
            Entry(
                "Hostile",
                {{0, 0, 12, 2}, {0, 2, 14, 1}, {0, 4, 0xFFFFFFFF, 2}, {1, 4, 0, 2}, {1, 6, 4, 0}});
        fFiles["IDXD/low"] = "fdrkAAABBBDDC";
        fFiles["IDXD/high"] = "fdrkHHHH";
        fFiles["TEXT/#7"] = "";
    }

    ResourceModule Module()
    {
        return [this](std::string_view type,
                      std::string_view name) -> std::optional<std::span<const std::byte>> {
            ++fReads;
            const auto found = fFiles.find(std::string(type) + "/" + std::string(name));
            if (found == fFiles.end())
                return std::nullopt;
            return std::as_bytes(std::span(found->second));
        };
    }

    // The bytes of a picture, or "none".
    std::string Picture(Tag tag, const CResourceName& name)
    {
        CMemoryBlock block;
        CopyToBlock(block, std::as_bytes(std::span("none", 4)));
        fStore.GetPicture(tag, name, block);
        return {reinterpret_cast<const char*>(block.Data()), block.GetSize()};
    }

    std::map<std::string, std::string> fFiles;
    int fReads = 0;
    CResourceDataProvider fStore{Module()};
};

TEST_F(IconStore, FindsPicturesByTag)
{
    for (const Tag tag : {MakeTag("PNGf"), MakeTag("PICn"), MakeTag("PICr")})
        EXPECT_EQ(Picture(tag, "Button"), "AAA") << tag;
    EXPECT_EQ(Picture(MakeTag("PIND"), "Button"), "DD");
    EXPECT_EQ(Picture(MakeTag("HICn"), "Button"), "HHHH");
    for (const Tag tag : {MakeTag("PICi"), MakeTag("PICd"), MakeTag("PICx"), MakeTag("PICp"),
                          MakeTag("HIND"), MakeTag("IDXD"), MakeTag("pICn"), MakeTag("HNGn")})
        EXPECT_EQ(Picture(tag, "Button"), "none") << tag;
}

TEST_F(IconStore, FindsPicturesByNameAndNumber)
{
    const Tag tag = MakeTag("PNGf");
    for (const CResourceName& name :
         {CResourceName(26019), CResourceName("26019"), CResourceName("26019.png"),
          CResourceName("Alpha_26019"), CResourceName("Alpha_26019.png")})
        EXPECT_EQ(Picture(tag, name), "C") << name.Text();
    for (const char* name : {"", "button", "Button.PNG", "Button.png.png", "26018", "Alpha_"})
        EXPECT_EQ(Picture(tag, name), "none") << name;
    EXPECT_THAT(fStore.GetNames(), ElementsAre("Alpha_26019", "Button", "Hostile"));
}

TEST_F(IconStore, TellsSizesAndHotSpots)
{
    std::int32_t x = 0, y = 0;
    EXPECT_TRUE(fStore.GetPictureSize(MakeTag("HICn"), "Button.png", x, y));
    EXPECT_THAT((std::array{x, y}), ElementsAre(14, 10));
    EXPECT_TRUE(fStore.GetHotSpot(MakeTag("HICn"), "Button.png", x, y));
    EXPECT_THAT((std::array{x, y}), ElementsAre(2, 3)) << "units at either density";
    // No picture there, or no size.
    EXPECT_FALSE(fStore.GetPictureSize(MakeTag("PICp"), "Button", x, y));
    EXPECT_FALSE(fStore.GetHotSpot(MakeTag("PICp"), "Button", x, y));
    EXPECT_FALSE(fStore.GetPictureSize("Button", kResolution_ExtraLow, kStateSlot_Normal, x, y));
    EXPECT_FALSE(fStore.GetHotSpot("Knob", x, y));
    EXPECT_THAT((std::array{x, y}), ElementsAre(2, 3)) << "nothing is set";
}

TEST_F(IconStore, GivesNothingThatDoesNotLieInTheDataFile)
{
    constexpr std::tuple<const char*, std::size_t, std::size_t> kWrong[] = {
        {"Hostile", 0, 0}, {"Hostile", 0, 2}, {"Hostile", 0, 4}, {"Hostile", 1, 4},
        {"Hostile", 1, 6}, {"Hostile", 4, 0}, {"Button", 4, 0},  {"Button", 0, 8}};
    for (const auto& [name, resolution, slot] : kWrong) {
        std::uint32_t size = 1;
        const std::byte* data = reinterpret_cast<const std::byte*>(&size);
        EXPECT_FALSE(fStore.GetPicture(name, static_cast<EResolution>(resolution),
                                       static_cast<EStateSlot>(slot), size, data));
        EXPECT_TRUE(size == 0 && data == nullptr) << name << ", " << resolution << ", " << slot;
    }
    EXPECT_EQ(fStore.GetData(kResolution_ExtraHigh), nullptr);
}

TEST_F(IconStore, IsReadOnce)
{
    Picture(MakeTag("PNGf"), "Button");
    fFiles.clear();
    fReads = 0;
    EXPECT_EQ(Picture(MakeTag("PIND"), "Button"), "DD");
    EXPECT_EQ(fReads, 0);

    CResourceDataProvider missing(Module());
    EXPECT_TRUE(missing.GetNames().empty());
    fFiles["IDXF/IconResources.idx"] = Head();
    EXPECT_TRUE(missing.GetNames().empty());
    EXPECT_EQ(fReads, 1) << "unavailable for good";
}

TEST_F(IconStore, RefusesABrokenIndex)
{
    std::string& index = fFiles["IDXF/IconResources.idx"];
    const std::string good = Head() + Entry("Button", {});
    const std::string noZero = Entry(std::string(kIconNameBytes, 'a'), {});
    for (const std::string& bad : {std::string(), good.substr(1), good.substr(0, 545),
                                   good.substr(0, 547), good + "x", Head() + noZero}) {
        index = bad;
        EXPECT_THROW(fStore.GetNames(), std::logic_error);
        EXPECT_THROW(Picture(MakeTag("PNGf"), "Button"), std::logic_error) << "and again";
    }
    index = Head();
    EXPECT_TRUE(fStore.GetNames().empty());
}

TEST_F(IconStore, ReaderTakesAnEmptyResourceForFound)
{
    CMemoryBlock block;
    block.SetSize(5);
    const CResourceReader reader(Module(), false);
    EXPECT_FALSE(reader.Read(block, MakeTag("TEXT"), 8));
    EXPECT_EQ(block.GetSize(), 5u);
    EXPECT_TRUE(reader.Read(block, MakeTag("TEXT"), 7));
    EXPECT_EQ(block.GetSize(), 0u);
}

} // namespace
} // namespace Kesto
