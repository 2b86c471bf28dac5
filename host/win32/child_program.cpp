#include "child_program.h"

#include "failure.h"

#include <array>
#include <memory>
#include <mutex>

#include <windows.h>

namespace Host {
namespace {

// Handles that a process inherits go to whichever is started at that moment.
std::mutex gStarting;

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

void RequireSystem(BOOL good)
{
    if (!good)
        throw Failure("can't start another process: error " + std::to_string(GetLastError()),
                      "Try again with fewer --jobs.");
}

std::wstring ToWide(const std::string& text)
{
    const int size =
        MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), size);
    return wide;
}

std::wstring ThisProgram()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

// A word as the C runtime takes it apart again: backslashes count before a quotation mark only.
std::wstring Quoted(const std::wstring& word)
{
    std::wstring quoted = L"\"";
    size_t backslashes = 0;
    for (const wchar_t character : word) {
        if (character == L'"')
            quoted.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    quoted.append(backslashes, L'\\');
    return quoted + L'"';
}

// Nothing is read from it, and what is written is gone. A program without an output of its own
// couldn't end in good order.
OwnedHandle OpenNothing(SECURITY_ATTRIBUTES& inherited)
{
    const HANDLE nothing =
        CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    &inherited, OPEN_EXISTING, 0, nullptr);
    RequireSystem(nothing != INVALID_HANDLE_VALUE);
    return OwnedHandle(nothing);
}

std::string ReadAll(HANDLE from)
{
    std::string all;
    std::array<char, 4096> piece;
    DWORD got = 0;
    while (ReadFile(from, piece.data(), static_cast<DWORD>(piece.size()), &got, nullptr) && got > 0)
        all.append(piece.data(), got);
    std::erase(all, '\r');
    return all;
}

} // namespace

ChildEnd RunThisProgram(const std::vector<std::string>& arguments)
{
    std::wstring command = Quoted(ThisProgram());
    for (const std::string& argument : arguments)
        command += L' ' + Quoted(ToWide(argument));
    OwnedHandle from;
    OwnedHandle process;
    {
        // A program that another thread starts meanwhile would inherit the pipe and hold it open.
        const std::lock_guard lock(gStarting);
        SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
        HANDLE readEnd = nullptr;
        HANDLE writeEnd = nullptr;
        RequireSystem(CreatePipe(&readEnd, &writeEnd, &inherited, 0));
        from.reset(readEnd);
        const OwnedHandle to(writeEnd);
        SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
        const OwnedHandle nothing = OpenNothing(inherited);
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdInput = nothing.get();
        start.hStdOutput = nothing.get();
        start.hStdError = writeEnd;
        PROCESS_INFORMATION made = {};
        RequireSystem(CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                     nullptr, &start, &made));
        CloseHandle(made.hThread);
        process.reset(made.hProcess);
    }
    ChildEnd end;
    end.messages = ReadAll(from.get());
    WaitForSingleObject(process.get(), INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.get(), &status);
    end.status = static_cast<int>(status);
    return end;
}

} // namespace Host
