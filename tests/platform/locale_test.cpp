#include "platform/system/locale.h"
#include "support/testing.h"

TEST(LanguageName, TakesLanguageAndRegionOfASystemsName)
{
    constexpr std::pair<const char*, const char*> kNames[] = {
        {"de_DE.UTF-8@euro", "de_DE"},     {"pt-BR", "pt_BR"},
        {"sr-Latn-RS", "sr_RS"},           {"fil_PH", "fil_PH"},
        {"ca-ES-valencia", "ca_ES"},       {"ca_ES.UTF-8@valencia", "ca_ES"},
        {"zh-Hant-HK-x-private", "zh_HK"}, {"es-419", "es_419"},
    };
    for (const auto& [system, name] : kNames)
        EXPECT_EQ(Platform::LanguageNameFrom(system), name) << system;
}

TEST(LanguageName, FallsBackToAmericanEnglish)
{
    for (const char* name :
         {"", "C", "POSIX", "C.UTF-8", "de", "de_", "_DE", "DE_de", "sr-Latn", "es-4199", "@euro"})
        EXPECT_EQ(Platform::LanguageNameFrom(name), "en_US") << name;
}

TEST(LanguageName, OfTheUserHasTheSameForm)
{
    const std::string name = Platform::UserLanguageName();
    EXPECT_EQ(Platform::LanguageNameFrom(name), name);
}
