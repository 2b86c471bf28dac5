#include "platform/windows/clipboard.h"

#include "platform/system/win32/wide.h"

#include <cstring>
#include <windows.h>

namespace Platform {
namespace {

class OpenedClipboard {
public:
    OpenedClipboard() : fIsOpen(OpenClipboard(nullptr) != 0) {}
    ~OpenedClipboard()
    {
        if (fIsOpen)
            CloseClipboard();
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;

    explicit operator bool() const { return fIsOpen; }

private:
    bool fIsOpen;
};

std::string WithoutReturns(std::string text)
{
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at)
        text.erase(at, 1);
    return text;
}

std::wstring WithReturns(std::string_view text)
{
    std::string lines;
    for (const char c : text) {
        if (c == '\n')
            lines += '\r';
        lines += c;
    }
    return ToWide(lines);
}

} // namespace

std::optional<std::string> ClipboardText()
{
    const OpenedClipboard clipboard;
    const HANDLE block = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* const text =
        static_cast<const wchar_t*>(block != nullptr ? GlobalLock(block) : nullptr);
    if (text == nullptr)
        return std::nullopt;
    const std::size_t room = GlobalSize(block) / sizeof(wchar_t);
    std::string found = FromWide({text, wcsnlen(text, room)});
    GlobalUnlock(block);
    return WithoutReturns(std::move(found));
}

// The block is the system's once it has taken it.
bool SetClipboardText(std::string_view text)
{
    const std::wstring wide = WithReturns(text);
    const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
    void* const place = block != nullptr ? GlobalLock(block) : nullptr;
    if (place != nullptr) {
        std::memcpy(place, wide.c_str(), bytes);
        GlobalUnlock(block);
        const OpenedClipboard clipboard;
        if (clipboard && EmptyClipboard() != 0 &&
            SetClipboardData(CF_UNICODETEXT, block) != nullptr)
            return true;
    }
    GlobalFree(block);
    return false;
}

} // namespace Platform
