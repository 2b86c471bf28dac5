#include "vex/source_text.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace Vex {

CSourceText CSourceText::Load(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad())
        throw std::runtime_error(path.string() + ": the file can't be read");
    if (text.find('\0') != std::string::npos)
        throw std::runtime_error(path.string() + ": this is no text: it holds a zero byte");
    return {path.string(), std::move(text)};
}

SourcePlace CSourceText::PlaceOf(const char* position) const
{
    const std::string_view before(fText.data(), static_cast<std::size_t>(position - fText.data()));
    const std::size_t lineEnd = before.rfind('\n'); // npos + 1 is 0
    return {static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1,
            before.size() - (lineEnd + 1) + 1};
}

std::string_view CSourceText::LineOf(const char* position) const
{
    const std::size_t at = static_cast<std::size_t>(position - fText.data());
    const std::size_t start = at - (PlaceOf(position).column - 1);
    std::string_view line = std::string_view(fText).substr(start);
    line = line.substr(0, line.find('\n'));
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

} // namespace Vex
