#include "progress.h"

#include "console.h"

#include <algorithm>
#include <cstdio>

namespace Host {
namespace {

constexpr int kWidestBar = 50;

} // namespace

ProgressBar::ProgressBar(std::string title, bool wanted)
    : fTitle(std::move(title)), fEnabled(wanted && MessagesGoToTerminal())
{
}

ProgressBar::~ProgressBar()
{
    if (fShown >= 0)
        std::fprintf(stderr, "\r%*s\r", TerminalWidth() - 1, "");
}

void ProgressBar::Show(int64_t current, int64_t total)
{
    if (!fEnabled || current < fNext || total <= 0)
        return;
    const int percent = static_cast<int>(std::clamp<int64_t>(current * 100 / total, 0, 100));
    fNext = (total * (percent + 1) + 99) / 100;
    if (percent != fShown)
        Draw(percent);
    fShown = percent;
}

void ProgressBar::Draw(int percent)
{
    const int room = TerminalWidth() - static_cast<int>(fTitle.size()) - 10;
    const int width = std::clamp(room, 0, kWidestBar);
    const std::string bar = std::string(static_cast<size_t>(width * percent / 100), '#');
    std::fprintf(stderr, "\r%s [%-*s] %3d%%", fTitle.c_str(), width, bar.c_str(), percent);
    std::fflush(stderr);
}

} // namespace Host
