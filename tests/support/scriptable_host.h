// A host in memory for tests, fuzz targets and benches: record, suites, file service and one
// document.
//
// The host's callbacks have no context argument, so one host is the current one: the youngest that
// lives. Everything that the module asks of it is noted in order; any call can be made to fail, and
// whatever the module does that a host must not put up with (a buffer freed twice, rows outside a
// locked buffer) is collected in Misuse().
#pragma once

#include "lumograph/lumograph.h"
#include "support/picture.h"

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Testing {

enum class Kind {
    kOpen,
    kRead,
    kWrite,
    kSeek,
    kPosition,
    kClose,
    kAllocate,
    kLock,
    kHandleNew,
    kHandleLock,
    kExchange, // the last that can fail unless it is named
    kSpace,
    kUnlock,
    kFree,
    kHandleUnlock,
    kHandleDispose,
    kAbort,
    kProgress,
    kAcquire,
    kRelease,
    kProperty,
    kRegister
};
inline constexpr Kind kLastThatCanFail = Kind::kExchange;

// One call of the module to the host. `a` and `b` are, by kind: the wanted and the delivered bytes
// (read), the bytes (write, allocate, new), mode and offset (seek), top and bottom row (exchange),
// current and total (progress), the version (acquire), the key (property), the project (register).
struct HostCall {
    Kind kind;
    int64_t a = 0;
    int64_t b = 0;
    bool operator==(const HostCall&) const = default;
};

// Which call fails and how: the one numbered `at` (from 0) among those of `kind`, or among all that
// can fail.
struct Fault {
    std::optional<Kind> kind{};
    int at = 0;
    int16_t code = kHostIoError;
    bool lasting = false; // and all later ones
    // What a failed read delivers all the same; with code 0 it is a short read.
    int64_t delivered = 0;
};

// How a whole operation ended: the first result that was not 0, and the selector that gave it.
struct Outcome {
    int16_t code = 0;
    int16_t selector = 0;
    bool operator==(const Outcome&) const = default;
};

class ScriptableHost {
public:
    ScriptableHost();
    ~ScriptableHost();
    ScriptableHost(const ScriptableHost&) = delete;
    ScriptableHost& operator=(const ScriptableHost&) = delete;

    // What a test may set at any time.
    HostFormatRecord record{};
    HostEntry entry;
    intptr_t data = 0;
    Bytes file;
    Picture document;
    int64_t memoryLimit = 16 << 20; // what Space() starts from; `memoryBudget` comes on top of it
    int abortAt = -1;               // the abortCheck that says yes, from 0
    std::optional<Fault> fault;
    std::map<uint32_t, intptr_t> properties; // a key that is not here can't be read
    bool noting = true;                      // keep Calls()
    // In bytes; rows of larger ones are checked and counted, but not kept.
    int64_t documentLimit = INT64_MAX;
    HostBufferSuite buffers;
    HostHandleSuite handles;
    HostPlaybackBlock playback{};

    // One selector through the entry. The result word holds rubbish before.
    int16_t Call(int16_t selector);
    // Prepare to finish: a failed prepare or start ends the operation, finish follows any continue.
    Outcome Open(std::span<const uint8_t> bytes);
    Outcome Save(const Picture& picture);
    // Sends unload, which ends the entry's object whatever its state.
    int16_t Unload() { return Call(kFormatUnload); }

    const std::vector<HostCall>& Calls() const { return fCalls; }
    std::vector<HostCall> CallsOf(Kind kind) const;
    std::vector<int64_t> Amounts(Kind kind) const; // `a` of each of them
    int Count(Kind kind) const { return fCounts[static_cast<size_t>(kind)]; }
    void ForgetCalls();
    bool FaultReached() const { return fFaultReached; }
    size_t OpenFiles() const { return fFiles.size(); }
    size_t Buffers() const { return fBuffers.size(); }
    size_t LockedBuffers() const;
    size_t Handles() const { return fHandles.size(); }
    int SuitesHeld() const { return fSuitesHeld; }
    int HooksHeld() const { return fHooksHeld; }
    int64_t RowsExchanged() const { return fRowsExchanged; }
    const std::string& Misuse() const { return fMisuse; }

private:
    friend struct HostCallbacks;
    friend HostFile(::FastOpen)(HostFormatRecord*, int16_t);
    friend int16_t(::FastRead)(HostFile, int64_t*, void*);
    friend int16_t(::FastWrite)(HostFile, int64_t, const void*);
    friend int64_t(::FastGetPosition)(HostFile);
    friend int16_t(::FastSetPosition)(HostFile, int16_t, int64_t);
    friend int16_t(::FastClose)(HostFile);
    struct File {
        int16_t mode;
        int64_t position;
    };
    struct Block {
        Bytes bytes;
        int locks = 0;
    };
    using Blocks = std::map<const void*, std::unique_ptr<Block>>;

    bool Fails(Kind kind, int64_t a = 0, int64_t b = 0);
    void Note(Kind kind, int64_t a, int64_t b);
    void Blame(const std::string& what) { fMisuse += what + "\n"; }
    File* Find(HostFile handle);
    Block* Find(Blocks& blocks, const void* handle, const char* what);
    template <class Handle>
    Handle Make(Blocks& blocks, int32_t size);
    void* LockBlock(Blocks& blocks, Kind kind, const void* handle);
    void UnlockBlock(Blocks& blocks, Kind kind, const void* handle);
    void EndBlock(Blocks& blocks, Kind kind, const void* handle);
    Outcome Operate(int16_t prepare);
    void MakeDocument();
    int16_t ExchangeRows();
    void MoveRow(uint8_t* row, int y);
    bool InLockedBuffer(const uint8_t* begin, int64_t size) const;

    ScriptableHost* fPrevious;
    HostBasicSuite fBasicSuite;
    std::vector<HostCall> fCalls;
    std::vector<int> fCounts;
    int fSeen = 0;
    bool fFaultReached = false;
    std::map<HostFile, std::unique_ptr<File>> fFiles;
    Blocks fBuffers;
    Blocks fHandles;
    int64_t fUsed = 0;
    bool fDiscarding = false;
    int64_t fRowsExchanged = 0;
    int16_t fMode = kHostOpenToRead; // of the file opened last: which way rows travel
    // Of all hosts together: a module keeps its suites from one to the next.
    static inline int fSuitesHeld = 0;
    int fHooksHeld = 0;
    std::string fMisuse;
};

} // namespace Testing

extern "C" void EntryElectricImage(int16_t selector, void* record, intptr_t* data, int16_t* result);
