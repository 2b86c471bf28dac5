// The process that toolkit code runs in: a plug-in object, for as long as the host has it at work.
#pragma once

#include "foundation/process_services.h"

namespace Kesto {

class CProcess : public CProcessServices {
public:
    // A new process is the current one at once.
    CProcess();
    virtual ~CProcess();

    // The process at work, or null.
    static CProcess* Current();
    void MakeCurrent();

    // Notes the calling thread as the one that owns the user interface.
    static void NoteMainThread();

    bool IsMainThread() override;
};

// Makes a process the current one for a scope.
class CProcessScope {
public:
    explicit CProcessScope(CProcess& process);
    ~CProcessScope();
    CProcessScope(const CProcessScope&) = delete;
    CProcessScope& operator=(const CProcessScope&) = delete;

private:
    CProcess* fBefore;
};

} // namespace Kesto
