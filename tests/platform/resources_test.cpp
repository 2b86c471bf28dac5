#include "platform/resources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Text(std::optional<std::span<const std::byte>> bytes)
{
    return bytes ? std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size()) : "none";
}

TEST(Resources, AreFoundByTypeAndName)
{
    EXPECT_EQ(Text(FindModuleResource("TEXT", "ALPHA.TXT")), "alpha");
    EXPECT_EQ(Text(FindModuleResource("ELSE", "ALPHA.TXT")), "the 128th");
    EXPECT_EQ(Text(FindModuleResource("Text", "alpha.Txt")), "alpha");
    EXPECT_EQ(Text(FindModuleResource("TEXT", "GAMMA.TXT")), "none");
    EXPECT_EQ(Text(FindModuleResource("NONE", "ALPHA.TXT")), "none");
}

TEST(Resources, AreFoundByTypeAndNumber)
{
    EXPECT_EQ(Text(FindModuleResource("TEXT", 128)), "the 128th");
    EXPECT_EQ(Text(FindModuleResource("TEXT", 4000)), "alpha");
    EXPECT_EQ(Text(FindModuleResource("TEXT", 129)), "none");
    EXPECT_EQ(Text(FindModuleResource("ELSE", 128)), "none");
}

TEST(Resources, AreListedByTypeUnderTheNamesThatFindThem)
{
    EXPECT_THAT(ListModuleResources("TEXT"), ElementsAre("ALPHA.TXT", "BETA.TXT", "#128", "#4000"));
    EXPECT_THAT(ListModuleResources("text"), ElementsAre("ALPHA.TXT", "BETA.TXT", "#128", "#4000"));
    EXPECT_THAT(ListModuleResources("NONE"), IsEmpty());
    EXPECT_EQ(Text(FindModuleResource("TEXT", ListModuleResources("TEXT")[2])), "the 128th");
}

} // namespace
} // namespace Platform
