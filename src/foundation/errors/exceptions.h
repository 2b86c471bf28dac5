// The exceptions that carry every failure in the toolkit.
//
// Who catches one asks two questions (say nothing? beep or alert?) and takes two texts: the task
// that was not completed and the error that stopped it. Texts may be "$$$/" keys; they are
// localised when shown, not when thrown. All classes are cheap to copy.
#pragma once

#include "foundation/base/text.h"

#include <cstdint>

namespace Kesto {

// The base, and the failure about which nothing is known.
class CException {
public:
    CException() = default;
    CException(const CException&) = default;
    CException& operator=(const CException&) = default;
    virtual ~CException() = default;

    // True: the user is told nothing at all.
    virtual bool IsQuiet() const;

    // True: the user gets an alert; false: only a beep.
    virtual bool IsAlert() const;

    // What was being done.
    virtual CText TaskText() const;
    virtual void GetTaskText(CText& out) const;
    virtual void SetTaskText(const CText& task);

    // Why it failed; may be empty.
    virtual CText ErrorText() const;
    virtual void GetErrorText(CText& out) const;
    virtual void SetErrorText(const CText& error);

    // True: it leaves any depth of message handlers and is dealt with by whoever called the module;
    // false: the handler's wrapper reports it and all goes on.
    virtual bool LeavesHandlers() const { return false; }
};

// A failure with texts of its own. An unset text is empty: with an error alone, the reporter shows
// it as the task.
class CError : public CException {
public:
    CError() = default;
    explicit CError(const CText& error);
    CError(const CText& error, bool quiet, bool alert);
    CError(const CText& task, const CText& error, bool quiet = false, bool alert = true);
    CError(const CText&, const char*, bool) = delete; // a text is never taken for `quiet`

    // Takes over what another exception answers; with `task` given, all but its task.
    explicit CError(const CException& cause);
    CError(const CText& task, const CException& cause);

    bool IsQuiet() const override;
    bool IsAlert() const override;
    void GetTaskText(CText& out) const override;
    void SetTaskText(const CText& task) override;
    void GetErrorText(CText& out) const override;
    void SetErrorText(const CText& error) override;

private:
    CText fTask;
    CText fError;
    bool fQuiet = false;
    bool fAlert = true;
};

// The user's wish to stop, thrown through whatever is running.
class CAbort : public CException {
public:
    explicit CAbort(bool quiet, bool alert = true);

    bool IsQuiet() const override;
    bool IsAlert() const override;
    void GetTaskText(CText& out) const override;
    void GetErrorText(CText& out) const override;
    bool LeavesHandlers() const override { return true; }

private:
    bool fQuiet;
    bool fAlert;
};

// A failed call of the operating system; the error text is the system's own.
class CSystemError : public CException {
public:
    explicit CSystemError(std::uint32_t code);

    std::uint32_t Code() const { return fCode; }
    void GetErrorText(CText& out) const override;

private:
    std::uint32_t fCode;
};

// A programmer's message with its place in the source. Both texts are constants; null is an unknown
// one.
class CDebugError : public CException {
public:
    CDebugError(const char* message, const char* file, std::uint32_t line);

    void GetTaskText(CText& out) const override;
    void GetErrorText(CText& out) const override;

private:
    const char* fMessage;
    const char* fFile;
    std::uint32_t fLine;
};

} // namespace Kesto
