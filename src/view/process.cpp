#include "view/process.h"

#include <thread>

namespace Kesto {
namespace {

CProcess* gCurrent = nullptr;
std::thread::id gMainThread;

void SetCurrentProcess(CProcess* process)
{
    gCurrent = process;
    CProcessServices::SetCurrent(process);
}

} // namespace

CProcess::CProcess()
{
    MakeCurrent();
}

CProcess::~CProcess()
{
    if (gCurrent == this)
        SetCurrentProcess(nullptr);
}

CProcess* CProcess::Current()
{
    return gCurrent;
}

void CProcess::MakeCurrent()
{
    SetCurrentProcess(this);
}

void CProcess::NoteMainThread()
{
    gMainThread = std::this_thread::get_id();
}

bool CProcess::IsMainThread()
{
    return std::this_thread::get_id() == gMainThread;
}

CProcessScope::CProcessScope(CProcess& process) : fBefore(CProcess::Current())
{
    process.MakeCurrent();
}

CProcessScope::~CProcessScope()
{
    SetCurrentProcess(fBefore);
}

} // namespace Kesto
