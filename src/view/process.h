// The process that toolkit code runs in: a plug-in object, for as long as the host has it at work.
#pragma once

namespace Kesto {

class CProcess {
public:
    CProcess() = default;
    virtual ~CProcess();
    CProcess(const CProcess&) = delete;
    CProcess& operator=(const CProcess&) = delete;

    // The process at work, or null.
    static CProcess* Current();

    // Notes the calling thread as the one that owns the user interface.
    static void NoteMainThread();

private:
    friend class CProcessScope;
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
