#include "foundation/errors/exceptions.h"

#include "platform/system/errors.h"

#include <string>

namespace Kesto {

bool CException::IsQuiet() const
{
    return false;
}

bool CException::IsAlert() const
{
    return true;
}

CText CException::TaskText() const
{
    CText task;
    GetTaskText(task);
    return task;
}

void CException::GetTaskText(CText& out) const
{
    out = "$$$/Kesto/Exception/Task=The operation could not be completed.";
}

void CException::SetTaskText(const CText&) {}

CText CException::ErrorText() const
{
    CText error;
    GetErrorText(error);
    return error;
}

void CException::GetErrorText(CText& out) const
{
    out.Clear();
}

void CException::SetErrorText(const CText&) {}

CError::CError(const CText& error) : fError(error) {}

CError::CError(const CText& error, bool quiet, bool alert)
    : fError(error), fQuiet(quiet), fAlert(alert)
{
}

CError::CError(const CText& task, const CText& error, bool quiet, bool alert)
    : fTask(task), fError(error), fQuiet(quiet), fAlert(alert)
{
}

CError::CError(const CException& cause) : CError(cause.TaskText(), cause) {}

CError::CError(const CText& task, const CException& cause)
    : CError(task, cause.ErrorText(), cause.IsQuiet(), cause.IsAlert())
{
}

bool CError::IsQuiet() const
{
    return fQuiet;
}

bool CError::IsAlert() const
{
    return fAlert;
}

void CError::GetTaskText(CText& out) const
{
    out = fTask;
}

void CError::SetTaskText(const CText& task)
{
    fTask = task;
}

void CError::GetErrorText(CText& out) const
{
    out = fError;
}

void CError::SetErrorText(const CText& error)
{
    fError = error;
}

CAbort::CAbort(bool quiet, bool alert) : fQuiet(quiet), fAlert(alert) {}

bool CAbort::IsQuiet() const
{
    return fQuiet;
}

bool CAbort::IsAlert() const
{
    return fAlert;
}

void CAbort::GetTaskText(CText& out) const
{
    out = "$$$/Kesto/Abort/Task=The operation was not completed.";
}

void CAbort::GetErrorText(CText& out) const
{
    out = "$$$/Kesto/Abort/Error=The operation has been canceled.";
}

CSystemError::CSystemError(std::uint32_t code) : fCode(code) {}

void CSystemError::GetErrorText(CText& out) const
{
    if (fCode == 0)
        out = "$$$/Kesto/SystemError/Win/Unknown=An unknown operating system error has occurred.";
    else
        out = Platform::ErrorText(fCode);
}

CDebugError::CDebugError(const char* message, const char* file, std::uint32_t line)
    : fMessage(message), fFile(file), fLine(line)
{
}

void CDebugError::GetTaskText(CText& out) const
{
    out = fMessage != nullptr ? fMessage : "An unknown debugging error was generated.";
}

void CDebugError::GetErrorText(CText& out) const
{
    if (fFile != nullptr)
        out = CText::Join({"File ", fFile, ", Line ", std::to_string(fLine), "."});
    else
        out = "File not specified.";
}

} // namespace Kesto
