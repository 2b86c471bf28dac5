// A layout text and where its characters are.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace Vex {

struct SourcePlace {
    std::size_t line;   // from 1
    std::size_t column; // from 1, in bytes
};

class CSourceText {
public:
    CSourceText(std::string name, std::string text);

    // The path "-" is the standard input. Throws std::runtime_error that says what is wrong
    // with the file. A text cannot hold a zero byte.
    static CSourceText Load(const std::filesystem::path& path);

    const std::string& Name() const { return fName; }
    const std::string& Text() const { return fText; }

    // `position` lies in Text() or is its end.
    SourcePlace PlaceOf(const char* position) const;
    std::string_view LineOf(const char* position) const;

private:
    std::string fName;
    std::string fText;
    std::vector<std::size_t> fLineStarts;
};

} // namespace Vex
