#include "console.h"

#include <atomic>
#include <csignal>
#include <cstdlib>

#include <sys/ioctl.h>
#include <unistd.h>

namespace Host {
namespace {

std::atomic<bool> gInterrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may set it");

void OnInterrupt(int)
{
    gInterrupted = true;
}

} // namespace

bool MessagesGoToTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

bool HasDisplay()
{
    const char* const display = std::getenv("DISPLAY");
    return display != nullptr && *display != '\0';
}

int TerminalWidth()
{
    winsize size = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

void CatchInterrupts()
{
    struct sigaction action = {};
    action.sa_handler = OnInterrupt;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
        sigaction(signal, &action, nullptr);
    // A file that passes the limit of its size is a failed write, as on a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
}

bool Interrupted()
{
    return gInterrupted.load(std::memory_order_relaxed);
}

} // namespace Host
