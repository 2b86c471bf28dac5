#include "platform/graphics/linux/font_cache.h"

#include "support/temporary_folder.h"
#include "support/testing.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>

namespace Platform {
namespace {

namespace fs = std::filesystem;

const FontSpec kSpec{"Tahoma", 11, 700};

// A cache and what its one answer comes from, all of it in a folder of its own.
struct KeptAnswer {
    KeptAnswer()
    {
        setenv("XDG_CONFIG_HOME", (folder / "user").c_str(), 1);
        folder.Put("main.conf", "");
        fs::create_directory(folder / "fonts");
        sources.since = WallClock() + 1'000'000'000;
        Cache().Keep(kSpec, font, sources);
    }
    ~KeptAnswer()
    {
        unsetenv("XDG_CONFIG_HOME");
        unsetenv("FC_LANG");
    }

    FontCache Cache() const { return FontCache(folder / "cache/sidecar"); }
    bool Holds() const { return Cache().Find(kSpec) == font; }
    fs::path CacheFile() const { return *fs::directory_iterator(folder / "cache/sidecar"); }
    void Grow(std::chrono::hours hours) const
    {
        fs::last_write_time(CacheFile(), fs::file_time_type::clock::now() - hours);
    }

    TemporaryFolder folder;
    FontFile font{folder / "fonts/a.ttf", 3};
    FontSources sources{{folder / "main.conf", folder / "fonts", folder / "more.conf"}, 0};
};

TEST(FontCache, HoldsUntilSomethingChanges)
{
    using Change = std::function<void(const KeptAnswer&)>;
    const std::tuple<const char*, bool, Change> rows[] = {
        {"nothing", true, [](auto&) {}},
        {"a configuration written", false, [](auto& it) { it.folder.Put("main.conf", "new"); }},
        {"one put in place of it", false,
         [](auto& it) { fs::rename(it.folder.Put("x", ""), it.folder / "main.conf"); }},
        {"one gone", false, [](auto& it) { fs::remove(it.folder / "main.conf"); }},
        {"one that was missing", false, [](auto& it) { it.folder.Put("more.conf", ""); }},
        {"a font installed", false, [](auto& it) { it.folder.Put("fonts/b.ttf", ""); }},
        {"a configuration of the system's own user", false,
         [](auto& it) { it.folder.Put("local.conf", ""); }},
        {"one of the user's", false,
         [](auto& it) { fs::create_directories(it.folder / "user/fontconfig/conf.d"); }},
        {"another user's", false,
         [](auto& it) { setenv("XDG_CONFIG_HOME", (it.folder / "cache").c_str(), 1); }},
        {"another language", false, [](auto&) { setenv("FC_LANG", "ja", 1); }},
        {"hours", true, [](auto& it) { it.Grow(std::chrono::hours(23)); }},
        {"a day", false, [](auto& it) { it.Grow(std::chrono::hours(24)); }},
        {"a clock set back", false, [](auto& it) { it.Grow(std::chrono::hours(-1)); }},
        {"no cache", false, [](auto& it) { fs::remove(it.CacheFile()); }},
        {"bytes after the end", false,
         [](auto& it) { std::ofstream(it.CacheFile(), std::ios::app) << "more"; }},
        {"a folder in its place", false,
         [](auto& it) {
             const fs::path file = it.CacheFile();
             fs::remove(file);
             fs::create_directory(file);
         }},
    };
    for (const auto& [words, holds, change] : rows) {
        SCOPED_TRACE(words);
        const KeptAnswer kept;
        ASSERT_TRUE(kept.Holds());
        change(kept);
        EXPECT_EQ(kept.Holds(), holds);
    }
}

TEST(FontCache, KeepsAnswersOfOneStateOnly)
{
    KeptAnswer kept;
    const FontSpec other{"Tahoma", 12};
    kept.Cache().Keep(other, kept.font, kept.sources);
    EXPECT_TRUE(kept.Holds());
    EXPECT_EQ(kept.Cache().Find(other), kept.font);
    EXPECT_EQ(kept.Cache().Find({"Tahoma", 12, 400, true}), std::nullopt);
    EXPECT_EQ(kept.Cache().Find({"Tahoma", 12, 400, false, true}), kept.font) << "underlined";

    FontCache before = kept.Cache();
    kept.folder.Put("fonts/b.ttf", "");
    before.Keep(other, kept.font, kept.sources);
    EXPECT_EQ(kept.Cache().Find(other), kept.font);
    EXPECT_FALSE(kept.Holds()) << "an answer from before the change";
}

TEST(FontCache, KeepsNothingThatIsInDoubt)
{
    const std::tuple<const char*, std::function<void(KeptAnswer&)>> rows[] = {
        {"changed while it was read",
         [](auto& it) { it.sources.since = WallClock() - 1'000'000'000; }},
        {"no sources", [](auto& it) { it.sources.paths.clear(); }},
        {"a path from the program's folder", [](auto& it) { it.sources.paths.push_back("x"); }},
        {"a font from elsewhere", [](auto& it) { it.font.path = "/elsewhere/a.ttf"; }},
        {"a cache that can't be made",
         [](auto& it) {
             fs::remove_all(it.folder / "cache");
             it.folder.Put("cache", "a file");
         }},
    };
    for (const auto& [words, doubt] : rows) {
        SCOPED_TRACE(words);
        KeptAnswer kept;
        const FontSpec other{"Tahoma", 12};
        doubt(kept);
        kept.Cache().Keep(other, kept.font, kept.sources);
        EXPECT_EQ(kept.Cache().Find(other), std::nullopt);
    }
}

std::string Zeros(std::string text)
{
    std::ranges::replace(text, '|', '\0');
    return text;
}

TEST(FontAnswers, AreReadFromWholeBytesOnly)
{
    const FontAnswers answers{{{"HOME", "=/h"}, {"/etc", "1 2"}, {"LANG", ""}},
                              {{kSpec, {"/f/a.ttf", 0}}, {{"", 9, 400, true}, {"/f/b.ttc", 2}}}};
    const std::string bytes = BytesOf(answers);
    EXPECT_EQ(ReadFontAnswers(bytes), answers);
    for (std::size_t length = 0; length < bytes.size(); ++length)
        EXPECT_EQ(ReadFontAnswers(bytes.substr(0, length)), std::nullopt) << length;
    const std::tuple<const char*, std::string> rows[] = {
        {"another form", "fonts 2|||"},
        {"no number", "fonts 1||x|400|0|T|/f|0||"},
        {"a number that is too large", "fonts 1||9999999999|400|0|T|/f|0||"},
        {"a slant of 2", "fonts 1||9|400|2|T|/f|0||"},
        {"two answers for a font", "fonts 1||9|400|0|T|/f|0|9|400|0|T|/g|0||"},
    };
    EXPECT_TRUE(ReadFontAnswers(Zeros("fonts 1||9|400|0|T|/f|0||")));
    for (const auto& [words, hostile] : rows)
        EXPECT_EQ(ReadFontAnswers(Zeros(hostile)), std::nullopt) << words;
}

} // namespace
} // namespace Platform
