#include "platform/graphics/linux/font_answers.h"

#include <charconv>

namespace Platform {
namespace {

constexpr std::string_view kForm = "fonts 1";

void Add(std::string& bytes, std::string_view field)
{
    bytes.append(field) += '\0';
}

// Takes a field off the front of bytes; an empty one if none is left that has an end.
std::string_view TakeField(std::string_view& bytes)
{
    const std::size_t end = bytes.find('\0');
    const std::string_view field = bytes.substr(0, end == bytes.npos ? 0 : end);
    bytes.remove_prefix(end == bytes.npos ? bytes.size() : end + 1);
    return field;
}

// 0 if the field is no number.
int NumberIn(std::string_view field)
{
    int number = 0;
    std::from_chars(field.data(), field.data() + field.size(), number);
    return number;
}

} // namespace

std::string BytesOf(const FontAnswers& answers)
{
    std::string bytes;
    Add(bytes, kForm);
    for (const auto& [name, value] : answers.conditions) {
        Add(bytes, name);
        Add(bytes, value);
    }
    Add(bytes, {});
    for (const auto& [spec, file] : answers.files) {
        for (const int number : {spec.pixels, spec.weight, spec.italic ? 1 : 0})
            Add(bytes, std::to_string(number));
        Add(bytes, spec.face);
        Add(bytes, file.path);
        Add(bytes, std::to_string(file.index));
    }
    Add(bytes, {});
    return bytes;
}

// Whatever the bytes are, they are read as something, and are right if that is written so.
std::optional<FontAnswers> ReadFontAnswers(std::string_view bytes)
{
    FontAnswers answers;
    std::string_view rest = bytes;
    TakeField(rest); // the form
    for (std::string_view name = TakeField(rest); !name.empty(); name = TakeField(rest))
        answers.conditions.emplace(name, TakeField(rest));
    for (std::string_view size = TakeField(rest); !size.empty(); size = TakeField(rest)) {
        FontSpec spec;
        spec.pixels = NumberIn(size);
        spec.weight = NumberIn(TakeField(rest));
        spec.italic = NumberIn(TakeField(rest)) != 0;
        spec.face = TakeField(rest);
        FontFile& file = answers.files[spec];
        file.path = TakeField(rest);
        file.index = NumberIn(TakeField(rest));
    }
    return BytesOf(answers) == bytes ? std::optional(std::move(answers)) : std::nullopt;
}

} // namespace Platform
