// Localize against hash maps that hold the same strings, copies of a text, and the reader of string
// files.
#include "foundation/localization/localize.h"
#include "foundation/localization/string_file.h"
#include "rounds.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#ifdef SIDECAR_HAS_ABSL
#include <absl/container/flat_hash_map.h>
#endif

using namespace Kesto;

namespace {

constexpr std::size_t kLookups = 20000;

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const
    {
        return std::hash<std::string_view>()(text);
    }
};

using StandardMap = std::unordered_map<std::string, CText, TextHash, std::equal_to<>>;

// Keys as dialogs have them: a few folders, a name, now and then a number.
std::string KeyOf(std::size_t index)
{
    static const char* const kFolders[] = {"/Kesto/Tasks/", "/OrlenPlugin/ElectricImage/",
                                           "/Kesto/Alert/OutOfRange/"};
    static const char* const kNames[] = {"Message", "Title", "Description", "UndoOp", "NumFrames"};
    return kFolders[index % 3] + ("Panel" + std::to_string(index / 5)) + '/' + kNames[index % 5];
}

// What Localize does, over another map, which is asked with a view of type `Key`.
template <class Key, class Map>
CText& LocalizeIn(const Map& map, CText& text)
{
    const std::string_view literal = text.View();
    if (!literal.starts_with("$$$"))
        return text;
    const std::string_view key = literal.substr(0, literal.find('=', 3)).substr(3);
    const auto found = map.find(Key(key.data(), key.size()));
    return found != map.end() ? text = found->second : text;
}

template <class Lookup>
Bench::Contender LookUpAll(const std::vector<CText>& literals, Lookup lookup)
{
    return {[&literals, lookup] {
        for (const CText& literal : literals) {
            CText text = literal;
            Bench::Keep(lookup(text));
        }
    }};
}

void MeasureLocalize(std::size_t keys)
{
    CServiceT<CStringTable>::Holder().Recreate();
    StandardMap standard;
    std::vector<CText> texts;
    for (std::size_t i = 0; i < keys; ++i) {
        const CText value("The text of item " + std::to_string(i));
        CServiceT<CStringTable>::Get()->Add(KeyOf(i), value, true);
        standard.emplace(KeyOf(i), value);
        texts.emplace_back("$$$" + KeyOf(i) + "=The default of item " + std::to_string(i));
    }
    std::mt19937 random(1);
    std::vector<CText> literals;
    for (std::size_t i = 0; i < kLookups; ++i)
        literals.push_back(texts[random() % texts.size()]);
    std::vector<Bench::Contender> contenders = {
        LookUpAll(literals, [](CText& text) { return &Localize(text); }),
        LookUpAll(literals,
                  [&](CText& text) { return &LocalizeIn<std::string_view>(standard, text); })};
#ifdef SIDECAR_HAS_ABSL
    absl::flat_hash_map<std::string, CText> flat(standard.begin(), standard.end());
    contenders.push_back(LookUpAll(
        literals, [&](CText& text) { return &LocalizeIn<absl::string_view>(flat, text); }));
#endif
    const auto seconds = Bench::MedianSeconds(201, contenders);
    std::printf("Localize, %zu keys: %.1f ns; speed against std::unordered_map %.2f", keys,
                seconds[0] / kLookups * 1e9, seconds[1] / seconds[0]);
    if (seconds.size() > 2)
        std::printf(", against absl::flat_hash_map %.2f", seconds[2] / seconds[0]);
    std::printf("\n");
}

template <class T>
Bench::Contender CopyMany(const T& original, std::size_t count)
{
    return {[&original, count] {
        const std::vector<T> copies(count, original);
        Bench::Keep(copies);
    }};
}

void MeasureCopies()
{
    constexpr std::size_t kCopies = 10000;
    const std::string words = "This file contains ^0 frames, of which one is shown.";
    const CText text(words);
    const auto shared = std::make_shared<const std::string>(words);
    const auto seconds = Bench::MedianSeconds(
        201, {CopyMany(text, kCopies), CopyMany(shared, kCopies), CopyMany(words, kCopies)});
    std::printf("Copy and release of a CText: %.1f ns; speed against std::shared_ptr %.2f, against "
                "std::string %.2f\n",
                seconds[0] / kCopies * 1e9, seconds[1] / seconds[0], seconds[2] / seconds[0]);
}

std::vector<std::byte> StringFile(std::size_t lines)
{
    std::u16string units = u"\uFEFF";
    for (std::size_t i = 0; i < lines; ++i) {
        const std::string line =
            "\"$$$" + KeyOf(i) + "=The translation of item " + std::to_string(i) + "\"\r\n";
        units.append(line.begin(), line.end());
    }
    std::vector<std::byte> bytes(units.size() * 2);
    std::memcpy(bytes.data(), units.data(), bytes.size());
    return bytes;
}

// The same lines into a std::unordered_map with the library's own searches, and without escapes or
// marks.
void ReadIntoStandardMap(const std::vector<std::byte>& file, StandardMap& map)
{
    std::u16string_view rest(reinterpret_cast<const char16_t*>(file.data()) + 1,
                             file.size() / 2 - 1);
    while (!rest.empty()) {
        const std::u16string_view line = rest.substr(0, rest.find(u'\r'));
        rest.remove_prefix(line.size() + 2);
        const std::size_t equals = line.find(u'=');
        std::string key;
        for (const char16_t unit : line.substr(4, equals - 4))
            key += static_cast<char>(unit);
        map.insert_or_assign(std::move(key),
                             CText::FromUtf16(line.substr(equals + 1, line.size() - equals - 2)));
    }
}

void MeasureStringFile()
{
    const auto file = StringFile(50000);
    std::unique_ptr<CStringTable> table;
    StandardMap map;
    const auto parse = [&] {
        table = std::make_unique<CStringTable>();
        ParseStringFile(*table, file, true);
    };
    const auto seconds = Bench::MedianSeconds(
        31, {{parse, [&] { table.reset(); }},
             {[&] { ReadIntoStandardMap(file, map); }, [&] { map = StandardMap(); }}});
    std::printf("String file of 50000 lines (%.1f MB): %.0f MB/s; speed against plain lines into "
                "std::unordered_map %.2f\n",
                static_cast<double>(file.size()) / 1e6,
                static_cast<double>(file.size()) / seconds[0] / 1e6, seconds[1] / seconds[0]);
}

} // namespace

int main()
{
    std::thread([] {
    }).join(); // as in a host: until a thread was made, the library counts without atomics
    MeasureLocalize(300);
    MeasureLocalize(50000);
    MeasureCopies();
    MeasureStringFile();
}
