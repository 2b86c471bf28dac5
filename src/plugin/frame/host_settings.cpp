#include "plugin/frame/host_settings.h"

#include "plugin/frame/lumograph_error.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace Kesto {
namespace {

// The whole text as a number within the limits; false for anything else.
template <class Number>
bool Parse(std::string_view text, Number& value, Number least, Number most)
{
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [at, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || at != end || !(number >= least && number <= most))
        return false;
    value = number;
    return true;
}

[[noreturn]] void Refuse(const HostSettingsSuite& suite, const char* name,
                         const std::string& wanted)
{
    if (suite.Refuse != nullptr)
        suite.Refuse(name, wanted.c_str());
    throw CLumographError(kHostBadParameter);
}

std::string Range(const char* what, double least, double most)
{
    const auto digits = [](double number) {
        char text[32] = {};
        return std::string(text, std::to_chars(text, std::end(text), number).ptr);
    };
    return std::string(what) + " from " + digits(least) + " to " + digits(most);
}

} // namespace

const char* CHostSettings::Find(const char* name) const
{
    const char* text = nullptr;
    if (fSuite == nullptr || fSuite->Find == nullptr || fSuite->Find(name, &text) != kHostNoError)
        return nullptr;
    return text;
}

void CHostSettings::Read(const char* name, double& value, double least, double most) const
{
    const char* const text = Find(name);
    if (text != nullptr && !Parse(text, value, least, most))
        Refuse(*fSuite, name, Range("a number", least, most));
}

void CHostSettings::Read(const char* name, int32_t& value, int32_t least, int32_t most) const
{
    const char* const text = Find(name);
    if (text != nullptr && !Parse(text, value, least, most))
        Refuse(*fSuite, name, Range("a whole number", least, most));
}

void CHostSettings::Read(const char* name, int32_t& choice,
                         std::span<const std::string_view> words) const
{
    const char* const text = Find(name);
    if (text == nullptr)
        return;
    const auto found = std::ranges::find(words, std::string_view(text));
    if (found != words.end()) {
        choice = static_cast<int32_t>(found - words.begin());
        return;
    }
    std::string wanted;
    for (const std::string_view& word : words)
        wanted += (&word == &words.front()  ? ""
                   : &word == &words.back() ? " or "
                                            : ", ") +
                  std::string(word);
    Refuse(*fSuite, name, wanted);
}

} // namespace Kesto
