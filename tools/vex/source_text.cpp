#include "vex/source_text.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace Vex {

namespace {

std::string ReadAll(std::istream& in)
{
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace

CSourceText::CSourceText(std::string name, std::string text)
    : fName(std::move(name)), fText(std::move(text)), fLineStarts{0}
{
    for (std::size_t i = 0; i < fText.size(); ++i)
        if (fText[i] == '\n')
            fLineStarts.push_back(i + 1);
}

// A folder opens like a file on some systems and only fails when it is read.
CSourceText CSourceText::Load(const std::filesystem::path& path)
{
    const bool isInput = path == "-";
    const std::string name = isInput ? "standard input" : path.string();
    std::error_code ignored;
    if (!isInput && std::filesystem::is_directory(path, ignored))
        throw std::runtime_error(name + ": this is a folder");
    std::ifstream file;
    if (!isInput) {
        file.open(path, std::ios::binary);
        if (!file.is_open())
            throw std::runtime_error(name + ": the file can't be read");
    }
    std::istream& in = isInput ? std::cin : file;
    std::string text = ReadAll(in);
    if (in.bad())
        throw std::runtime_error(name + ": the file can't be read");
    if (text.find('\0') != std::string::npos)
        throw std::runtime_error(name + ": this is no text: it holds a zero byte");
    return {name, std::move(text)};
}

SourcePlace CSourceText::PlaceOf(const char* position) const
{
    const auto at = static_cast<std::size_t>(position - fText.data());
    const auto behind = std::ranges::upper_bound(fLineStarts, at);
    return {static_cast<std::size_t>(behind - fLineStarts.begin()), at - behind[-1] + 1};
}

std::string_view CSourceText::LineOf(const char* position) const
{
    const std::size_t number = PlaceOf(position).line;
    const std::size_t start = fLineStarts[number - 1];
    const std::size_t end = number < fLineStarts.size() ? fLineStarts[number] - 1 : fText.size();
    const std::string_view line(fText.data() + start, end - start);
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

} // namespace Vex
