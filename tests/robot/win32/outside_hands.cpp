// Wine starts programs of the system below it, but doesn't tell when they end: that is when their
// end of the pipe closes.
#include "robot/outside_hands.h"

#include <array>
#include <windows.h>

struct OutsideHands::Display {};

OutsideHands::OutsideHands() = default;

OutsideHands::~OutsideHands() = default;

bool OutsideHands::AreThere() const
{
    return GetEnvironmentVariableW(L"DISPLAY", nullptr, 0) != 0 && Do({"version"});
}

// Several processes of Wine's hand an event on.
double OutsideHands::Patience()
{
    return 0.35;
}

bool OutsideHands::Do(const std::vector<std::string>& words) const
{
    std::wstring line = L"xdotool";
    for (const std::string& word : words)
        line += L" \"" + std::wstring(word.begin(), word.end()) + L'"';
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE reads = nullptr;
    HANDLE writes = nullptr;
    if (CreatePipe(&reads, &writes, &inherited, 0) == 0)
        return false;
    SetHandleInformation(reads, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = writes;
    PROCESS_INFORMATION process{};
    const bool runs = CreateProcessW(L"/usr/bin/xdotool", line.data(), nullptr, nullptr, TRUE, 0,
                                     nullptr, nullptr, &start, &process) != 0;
    CloseHandle(writes);
    if (runs) {
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        std::array<char, 256> said;
        for (DWORD count = 1; count != 0;)
            if (ReadFile(reads, said.data(), said.size(), &count, nullptr) == 0)
                break;
    }
    CloseHandle(reads);
    return runs;
}
