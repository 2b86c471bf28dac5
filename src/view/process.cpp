#include "view/process.h"

#include <thread>
#include <utility>

namespace Kesto {
namespace {

CProcess* gCurrent = nullptr;
std::thread::id gMainThread;

} // namespace

CProcess::~CProcess()
{
    if (gCurrent == this)
        gCurrent = nullptr;
}

CProcess* CProcess::Current()
{
    return gCurrent;
}

void CProcess::NoteMainThread()
{
    gMainThread = std::this_thread::get_id();
}

CProcessScope::CProcessScope(CProcess& process) : fBefore(std::exchange(gCurrent, &process)) {}

CProcessScope::~CProcessScope()
{
    gCurrent = fBefore;
}

} // namespace Kesto
