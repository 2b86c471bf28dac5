#include "platform/system/alert.h"

#include <array>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace Platform {
namespace {

// By the low four flag bits: OK; OK, Cancel; Abort, Retry, Ignore; Yes, No, Cancel; Yes, No; Retry,
// Cancel.
constexpr std::array kDismissals = {BoxAnswer::kOK,     BoxAnswer::kCancel, BoxAnswer::kAbort,
                                    BoxAnswer::kCancel, BoxAnswer::kNo,     BoxAnswer::kCancel};

// One line, whatever breaks the texts hold.
std::string OneLine(std::string_view text)
{
    std::string line;
    for (const char c : text)
        if (c != '\n' && c != '\r')
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    return line;
}

} // namespace

BoxAnswer ShowMessageBox(std::uint32_t flags, std::string_view title, std::string_view text,
                         NativeWindow)
{
    const std::string heading = title.empty() ? "" : OneLine(title) + ": ";
    std::fprintf(stderr, "%s%s\n", heading.c_str(), OneLine(text).c_str());
    const std::uint32_t buttons = flags & kBoxButtonsMask;
    return buttons < kDismissals.size() ? kDismissals[buttons] : BoxAnswer::kOK;
}

void PlayAlertSound(std::uint32_t)
{
    if (isatty(STDERR_FILENO) != 0)
        std::fputc('\a', stderr);
}

} // namespace Platform
