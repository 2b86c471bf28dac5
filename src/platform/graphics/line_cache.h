// The lines of one font that are known, by their text; the least recently used are dropped first.
#pragma once

#include "platform/graphics/text_line.h"

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace Platform {

class LineCache {
public:
    // Keeps at most so many lines and bytes, but always the last line.
    LineCache(std::size_t mostLines, std::size_t mostBytes)
        : fMostLines(mostLines), fMostBytes(mostBytes)
    {
    }

    // The line of this text, now the most recently used; or null. Allocates nothing.
    std::shared_ptr<const TextLine> Find(std::string_view text);

    // The text is not known yet.
    void Add(std::string_view text, std::shared_ptr<const TextLine> line);

private:
    struct Known {
        std::string text;
        std::shared_ptr<const TextLine> line;
        std::size_t Bytes() const { return text.size() + line->MemorySize(); }
    };

    void DropLast();

    std::size_t fMostLines;
    std::size_t fMostBytes;
    std::size_t fBytes = 0;
    std::list<Known> fLines; // most recently used first
    std::unordered_map<std::string_view, std::list<Known>::iterator> fByText;
};

} // namespace Platform
