#include "platform/system/resources.h"
#include "support/testing.h"

using namespace Platform;

namespace {

template <class Name>
std::string Resource(const char* type, Name name)
{
    const std::optional<std::span<const std::byte>> bytes = FindModuleResource(type, name);
    return bytes ? std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size())
                 : "none";
}

} // namespace

TEST(Resources, AreFoundByTypeAndNameOrNumber)
{
    EXPECT_EQ(Resource("TEXT", "ALPHA.TXT"), "alpha");
    EXPECT_EQ(Resource("ELSE", "ALPHA.TXT"), "the 128th");
    EXPECT_EQ(Resource("Text", "alpha.Txt"), "alpha");
    EXPECT_EQ(Resource("TEXT", "GAMMA.TXT"), "none");
    EXPECT_EQ(Resource("NONE", "ALPHA.TXT"), "none");
    EXPECT_EQ(Resource("TEXT", 128), "the 128th");
    EXPECT_EQ(Resource("TEXT", 4000), "alpha");
    EXPECT_EQ(Resource("TEXT", 129), "none");
    EXPECT_EQ(Resource("ELSE", 128), "none");
}

TEST(Resources, AreListedByTypeUnderTheNamesThatFindThem)
{
    for (const char* type : {"TEXT", "text"})
        EXPECT_THAT(ListModuleResources(type),
                    testing::ElementsAre("ALPHA.TXT", "BETA.TXT", "#128", "#4000"))
            << type;
    EXPECT_THAT(ListModuleResources("NONE"), testing::IsEmpty());
    EXPECT_EQ(Resource("TEXT", "#128"), "the 128th");
}
