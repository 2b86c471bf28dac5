#include "platform/system/locale.h"

#include <gtest/gtest.h>

TEST(LanguageName, TakesLanguageAndRegionOfASystemsName)
{
    EXPECT_EQ(Platform::LanguageNameFrom("de_DE.UTF-8@euro"), "de_DE");
    EXPECT_EQ(Platform::LanguageNameFrom("pt-BR"), "pt_BR");
    EXPECT_EQ(Platform::LanguageNameFrom("sr-Latn-RS"), "sr_RS");
    EXPECT_EQ(Platform::LanguageNameFrom("fil_PH"), "fil_PH");
}

TEST(LanguageName, FallsBackToAmericanEnglish)
{
    for (const char* name :
         {"", "C", "POSIX", "C.UTF-8", "de", "de_", "_DE", "DE_de", "es-419", "@euro"})
        EXPECT_EQ(Platform::LanguageNameFrom(name), "en_US") << name;
}

TEST(LanguageName, OfTheUserHasTheSameForm)
{
    const std::string name = Platform::UserLanguageName();
    EXPECT_EQ(Platform::LanguageNameFrom(name), name);
}
