#include "platform/graphics/line_cache.h"

namespace Platform {

std::shared_ptr<const TextLine> LineCache::Find(std::string_view text)
{
    const auto found = fByText.find(text);
    if (found == fByText.end())
        return nullptr;
    fLines.splice(fLines.begin(), fLines, found->second);
    return found->second->line;
}

void LineCache::Add(std::string_view text, std::shared_ptr<const TextLine> line)
{
    fLines.push_front({std::string(text), std::move(line)});
    fByText.emplace(fLines.front().text, fLines.begin());
    fBytes += fLines.front().Bytes();
    while (fLines.size() > 1 && (fLines.size() > fMostLines || fBytes > fMostBytes))
        DropLast();
}

void LineCache::DropLast()
{
    fBytes -= fLines.back().Bytes();
    fByText.erase(fLines.back().text);
    fLines.pop_back();
}

} // namespace Platform
