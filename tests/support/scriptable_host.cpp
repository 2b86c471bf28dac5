#include "support/scriptable_host.h"

#include <algorithm>
#include <cstring>

namespace Testing {
namespace {

ScriptableHost* gCurrent = nullptr;

constexpr int16_t kRubbish = 0x5A5A;

} // namespace

// The functions that the host's tables point to: each goes to the current host.
struct HostCallbacks {
    static ScriptableHost& Host() { return *gCurrent; }

    static uint8_t AbortCheck()
    {
        const int number = Host().Count(Kind::kAbort);
        Host().Note(Kind::kAbort, 0, 0);
        return number == Host().abortAt;
    }
    static void Progress(int32_t current, int32_t total)
    {
        Host().Note(Kind::kProgress, current, total);
    }
    static int16_t Exchange() { return Host().ExchangeRows(); }

    static int16_t Allocate(int32_t size, HostBuffer* buffer)
    {
        ScriptableHost& host = Host();
        if (host.Fails(Kind::kAllocate, size))
            return host.fault->code;
        if (size < 0 || host.fUsed + size > host.memoryLimit + host.record.memoryBudget)
            return kHostMemoryFull;
        *buffer = host.Make<HostBuffer>(host.fBuffers, size);
        host.fUsed += size;
        return kHostNoError;
    }
    static void* Lock(HostBuffer buffer, uint8_t)
    {
        return Host().LockBlock(Host().fBuffers, Kind::kLock, buffer);
    }
    static void Unlock(HostBuffer buffer)
    {
        Host().UnlockBlock(Host().fBuffers, Kind::kUnlock, buffer);
    }
    static void Free(HostBuffer buffer)
    {
        if (const auto found = Host().fBuffers.find(buffer); found != Host().fBuffers.end())
            Host().fUsed -= std::ssize(found->second->bytes);
        Host().EndBlock(Host().fBuffers, Kind::kFree, buffer);
    }
    static int32_t Space()
    {
        Host().Note(Kind::kSpace, 0, 0);
        return static_cast<int32_t>(
            std::clamp<int64_t>(Host().memoryLimit - Host().fUsed, 0, INT32_MAX));
    }

    static HostHandle HandleNew(int32_t size)
    {
        return Host().Fails(Kind::kHandleNew, size)
                   ? nullptr
                   : Host().Make<HostHandle>(Host().fHandles, size);
    }
    static void HandleDispose(HostHandle handle)
    {
        Host().EndBlock(Host().fHandles, Kind::kHandleDispose, handle);
    }
    static void* HandleLock(HostHandle handle, uint8_t)
    {
        return Host().LockBlock(Host().fHandles, Kind::kHandleLock, handle);
    }
    static void HandleUnlock(HostHandle handle)
    {
        Host().UnlockBlock(Host().fHandles, Kind::kHandleUnlock, handle);
    }
    static int32_t HandleSize(HostHandle handle)
    {
        const auto* block = Host().Find(Host().fHandles, handle, "a size asked");
        return block ? static_cast<int32_t>(block->bytes.size()) : 0;
    }

    static int32_t AcquireSuite(const char* name, int32_t version, const void** suite)
    {
        static constexpr HostPropertySuite kProperties = {GetProperty};
        static constexpr HostUIHooksSuite4 kHooks = {
            kHostUIHooksTableVersion, 3, {}, RegisterHook, UnregisterHook, TakeTurn};
        const struct {
            const char* name;
            int32_t version;
            const void* table;
        } rows[] = {
            {kHostPropertySuiteName, kHostPropertySuiteVersion, &kProperties},
            {kHostBufferSuiteName, kHostBufferSuiteNameVersion, &Host().buffers},
            {kHostUIHooksSuiteName, kHostUIHooksSuiteVersion4, &kHooks},
        };
        const auto* const row = std::ranges::find_if(rows, [&](const auto& one) {
            return one.version == version && std::strcmp(one.name, name) == 0;
        });
        if (Host().Fails(Kind::kAcquire, version) || row == std::end(rows))
            return kHostBadParameter;
        *suite = row->table;
        ++Host().fSuitesHeld;
        return kHostNoError;
    }
    static int32_t RegisterHook(HostViewInfoCallback, int32_t, int32_t, int32_t project)
    {
        if (Host().Fails(Kind::kRegister, project))
            return Host().fault->code;
        ++Host().fHooksHeld;
        return kHostNoError;
    }
    static int32_t UnregisterHook(HostViewInfoCallback, int32_t, int32_t, int32_t)
    {
        if (--Host().fHooksHeld < 0)
            Host().Blame("a hook taken back that is not registered");
        return kHostNoError;
    }
    static uint8_t TakeTurn(HostInputEvent*) { return 0; } // a person is there, in the tests' own
    static int32_t ReleaseSuite(const char*, int32_t version)
    {
        Host().Note(Kind::kRelease, version, 0);
        if (--Host().fSuitesHeld < 0)
            Host().Blame("a suite released that is not held");
        return kHostNoError;
    }
    static int32_t GetProperty(uint32_t signature, uint32_t key, int32_t, intptr_t* value, void**)
    {
        const auto found = Host().properties.find(key);
        if (Host().Fails(Kind::kProperty, key) || signature != kLumographSignature ||
            found == Host().properties.end())
            return kHostBadParameter;
        if (value != nullptr)
            *value = found->second;
        return kHostNoError;
    }
};

ScriptableHost::ScriptableHost()
    : entry(EntryElectricImage), properties{{kPropertyUiBrightness, 0},
                                            {kPropertyHighContrast, 0},
                                            {kPropertyLargeTabs, 0},
                                            {kPropertyUiScale, 100},
                                            {kPropertyHighDpi, 2}},
      buffers{kHostBufferSuiteVersion, kHostBufferSuiteCount, {},
              HostCallbacks::Allocate, HostCallbacks::Lock,   HostCallbacks::Unlock,
              HostCallbacks::Free,     HostCallbacks::Space,  {}},
      handles{kHostHandleSuiteVersion,     kHostHandleSuiteCount,        {},
              HostCallbacks::HandleNew,    HostCallbacks::HandleDispose, HostCallbacks::HandleLock,
              HostCallbacks::HandleUnlock, HostCallbacks::HandleSize},
      fPrevious(gCurrent), fCounts(static_cast<size_t>(Kind::kRegister) + 1)
{
    static constexpr HostSuiteTable kSuites = {HostCallbacks::AcquireSuite,
                                               HostCallbacks::ReleaseSuite};
    fBasicSuite = {nullptr, &kSuites};
    gCurrent = this;
    record.abortCheck = HostCallbacks::AbortCheck;
    record.progressReport = HostCallbacks::Progress;
    record.exchangeRows = HostCallbacks::Exchange;
    record.bufferSuite = &buffers;
    record.handleSuite = &handles;
    record.basicSuite = &fBasicSuite;
    record.playbackBlock = &playback;
}

ScriptableHost::~ScriptableHost()
{
    gCurrent = fPrevious;
}

int16_t ScriptableHost::Call(int16_t selector)
{
    int16_t result = kRubbish;
    entry(selector, &record, &data, &result);
    for (const auto& [handle, block] : fHandles)
        if (block->locks != 0)
            Blame("a handle left locked by selector " + std::to_string(selector));
    return result;
}

Outcome ScriptableHost::Operate(int16_t prepare)
{
    for (int16_t i = 0; i < 4; ++i)
        record.planeOrder[i] = i;
    record.rowsAddress = nullptr;
    record.exchangeRect = {};
    Outcome outcome;
    const auto succeeds = [&](int phase) {
        const auto selector = static_cast<int16_t>(prepare + phase);
        const int16_t code = Call(selector);
        if (outcome.code == 0 && code != 0)
            outcome = {code, selector};
        return code == 0;
    };
    if (!succeeds(0) || !succeeds(1))
        return outcome;
    if (prepare == kFormatReadPrepare)
        MakeDocument();
    succeeds(2);
    succeeds(3);
    return outcome;
}

// The document that a read start has told of.
void ScriptableHost::MakeDocument()
{
    fDiscarding = int64_t{record.rowCount} * record.columnCount * record.planeCount > documentLimit;
    if (record.rowCount > 0 && record.columnCount > 0 && !fDiscarding)
        document =
            Picture(record.colorMode, record.columnCount, record.rowCount, record.planeCount);
    std::ranges::copy(record.redLut, document.lut[0].begin());
    std::ranges::copy(record.greenLut, document.lut[1].begin());
    std::ranges::copy(record.blueLut, document.lut[2].begin());
}

Outcome ScriptableHost::Open(std::span<const uint8_t> bytes)
{
    file.assign(bytes.begin(), bytes.end());
    document = {};
    return Operate(kFormatReadPrepare);
}

Outcome ScriptableHost::Save(const Picture& picture)
{
    document = picture;
    record.colorMode = static_cast<int16_t>(picture.mode);
    record.columnCount = static_cast<int16_t>(picture.width);
    record.rowCount = static_cast<int16_t>(picture.height);
    record.planeCount = static_cast<int16_t>(picture.planes);
    record.channelDepth = 8;
    std::ranges::copy(picture.lut[0], record.redLut);
    std::ranges::copy(picture.lut[1], record.greenLut);
    std::ranges::copy(picture.lut[2], record.blueLut);
    return Operate(kFormatWritePrepare);
}

std::vector<HostCall> ScriptableHost::CallsOf(Kind kind) const
{
    std::vector<HostCall> chosen;
    std::ranges::copy_if(fCalls, std::back_inserter(chosen),
                         [=](const HostCall& call) { return call.kind == kind; });
    return chosen;
}

std::vector<int64_t> ScriptableHost::Amounts(Kind kind) const
{
    std::vector<int64_t> amounts;
    std::ranges::transform(CallsOf(kind), std::back_inserter(amounts), &HostCall::a);
    return amounts;
}

void ScriptableHost::ForgetCalls()
{
    fCalls.clear();
    std::ranges::fill(fCounts, 0);
    fSeen = 0;
    fFaultReached = false;
    fRowsExchanged = 0;
}

size_t ScriptableHost::LockedBuffers() const
{
    return static_cast<size_t>(std::ranges::count_if(
        fBuffers, [](const auto& entryOf) { return entryOf.second->locks > 0; }));
}

void ScriptableHost::Note(Kind kind, int64_t a, int64_t b)
{
    ++fCounts[static_cast<size_t>(kind)];
    if (noting)
        fCalls.push_back({kind, a, b});
}

// Notes a call and tells whether it is the one that the test wants to fail.
bool ScriptableHost::Fails(Kind kind, int64_t a, int64_t b)
{
    Note(kind, a, b);
    if (!fault || (fault->kind ? *fault->kind != kind : kind > kLastThatCanFail))
        return false;
    const int number = fSeen++;
    const bool fails = number == fault->at || (fault->lasting && number > fault->at);
    fFaultReached = fFaultReached || fails;
    return fails;
}

ScriptableHost::File* ScriptableHost::Find(HostFile handle)
{
    const auto found = fFiles.find(handle);
    if (found != fFiles.end())
        return found->second.get();
    Blame("a file used that is not open");
    return nullptr;
}

ScriptableHost::Block* ScriptableHost::Find(Blocks& blocks, const void* handle, const char* what)
{
    const auto found = blocks.find(handle);
    if (found != blocks.end())
        return found->second.get();
    Blame(std::string(what) + " of a block that is not there");
    return nullptr;
}

// Blocks of their own, so that a sanitizer sees each end of them, filled with rubbish.
template <class Handle>
Handle ScriptableHost::Make(Blocks& blocks, int32_t size)
{
    auto block = std::make_unique<Block>(Block{Bytes(static_cast<size_t>(size), 0xCD)});
    const auto handle = reinterpret_cast<Handle>(block.get());
    blocks.emplace(handle, std::move(block));
    return handle;
}

void* ScriptableHost::LockBlock(Blocks& blocks, Kind kind, const void* handle)
{
    Block* block = Fails(kind) ? nullptr : Find(blocks, handle, "a lock");
    if (block == nullptr)
        return nullptr;
    ++block->locks;
    return block->bytes.data();
}

void ScriptableHost::UnlockBlock(Blocks& blocks, Kind kind, const void* handle)
{
    Note(kind, 0, 0);
    if (Block* block = Find(blocks, handle, "an unlock"); block != nullptr && --block->locks < 0)
        Blame("a block unlocked more often than locked");
}

void ScriptableHost::EndBlock(Blocks& blocks, Kind kind, const void* handle)
{
    Note(kind, 0, 0);
    if (Find(blocks, handle, "an end") != nullptr)
        blocks.erase(handle);
}

bool ScriptableHost::InLockedBuffer(const uint8_t* begin, int64_t size) const
{
    return std::ranges::any_of(fBuffers, [&](const auto& entryOf) {
        const auto& [bytes, locks] = *entryOf.second;
        return locks > 0 && begin >= bytes.data() && begin + size <= bytes.data() + bytes.size();
    });
}

int16_t ScriptableHost::ExchangeRows()
{
    const HostRect16 rect = record.exchangeRect;
    if (Fails(Kind::kExchange, rect.top, rect.bottom))
        return fault->code;
    const int rows = rect.bottom - rect.top, columns = rect.right - rect.left;
    const int planes = record.lastPlane - record.firstPlane + 1;
    auto* const begin = static_cast<uint8_t*>(record.rowsAddress);
    const int64_t reach = int64_t{rows - 1} * record.rowStride +
                          int64_t{columns - 1} * record.pixelStride +
                          int64_t{planes - 1} * record.planeStride + 1;
    const char* wrong = nullptr;
    if (rect.top < 0 || rect.left != 0 || rows <= 0 || columns <= 0 || record.firstPlane != 0 ||
        planes <= 0 || planes > 4 || rect.bottom > record.rowCount ||
        rect.right > record.columnCount)
        wrong = "an exchange of a rectangle or of planes that are not in the picture";
    else if (!InLockedBuffer(begin, reach))
        wrong = "an exchange of rows that are not in a locked buffer";
    else if (!fDiscarding && (rect.bottom > document.height || rect.right > document.width))
        wrong = "an exchange outside the document";
    if (wrong != nullptr) {
        Blame(wrong);
        return kHostBadParameter;
    }
    fRowsExchanged += rows;
    for (int y = 0; y < rows && !fDiscarding; ++y)
        MoveRow(begin + int64_t{y} * record.rowStride, rect.top + y);
    return kHostNoError;
}

// One row to the document while a file is read, from it while one is written.
void ScriptableHost::MoveRow(uint8_t* row, int y)
{
    const bool writing = fMode == kHostOpenToWrite;
    for (int x = 0; x < record.exchangeRect.right; ++x)
        for (int i = 0; i <= record.lastPlane; ++i) {
            const int plane = i < 4 ? record.planeOrder[i] : i;
            uint8_t& sample = row[x * record.pixelStride + i * record.planeStride];
            if (plane < 0 || plane >= document.planes)
                sample = writing ? uint8_t{0} : sample;
            else if (writing)
                sample = document.At(x, y, plane);
            else
                document.At(x, y, plane) = sample;
        }
}

} // namespace Testing

// The host's file service, which the module imports.
using Testing::HostCallbacks;
using Testing::Kind;
using Testing::ScriptableHost;

HostFile FastOpen(HostFormatRecord* record, int16_t mode)
{
    ScriptableHost& host = HostCallbacks::Host();
    if (record != &host.record)
        host.Blame("a file opened for a record that is not the host's");
    if (host.Fails(Kind::kOpen, mode))
        return nullptr;
    host.fMode = mode;
    if (mode == kHostOpenToWrite)
        host.file.clear();
    auto file = std::make_unique<ScriptableHost::File>(ScriptableHost::File{mode, 0});
    const auto handle = reinterpret_cast<HostFile>(file.get());
    host.fFiles.emplace(handle, std::move(file));
    return handle;
}

int16_t FastRead(HostFile handle, int64_t* count, void* buffer)
{
    ScriptableHost& host = HostCallbacks::Host();
    auto* file = host.Find(handle);
    const int64_t wanted = *count, size = std::ssize(host.file);
    const bool fails = host.Fails(Kind::kRead, wanted);
    *count = file == nullptr
                 ? 0
                 : std::clamp<int64_t>(size - file->position, 0, std::max<int64_t>(wanted, 0));
    if (fails)
        *count = std::min(*count, host.fault->delivered);
    if (*count > 0) {
        std::memcpy(buffer, host.file.data() + file->position, static_cast<size_t>(*count));
        file->position += *count;
    }
    if (fails)
        return host.fault->code;
    return *count == wanted ? kHostNoError : kHostEndOfFile;
}

int16_t FastWrite(HostFile handle, int64_t count, const void* buffer)
{
    ScriptableHost& host = HostCallbacks::Host();
    auto* file = host.Find(handle);
    if (host.Fails(Kind::kWrite, count))
        return host.fault->code;
    if (file == nullptr || count < 0 || file->mode != kHostOpenToWrite) {
        host.Blame("a write that can't be");
        return kHostWriteError;
    }
    if (file->position + count > std::ssize(host.file))
        host.file.resize(static_cast<size_t>(file->position + count));
    std::copy_n(static_cast<const uint8_t*>(buffer), count, host.file.begin() + file->position);
    file->position += count;
    return kHostNoError;
}

int64_t FastGetPosition(HostFile handle)
{
    ScriptableHost& host = HostCallbacks::Host();
    const auto* file = host.Fails(Kind::kPosition) ? nullptr : host.Find(handle);
    return file ? file->position : -1;
}

int16_t FastSetPosition(HostFile handle, int16_t mode, int64_t offset)
{
    ScriptableHost& host = HostCallbacks::Host();
    auto* file = host.Find(handle);
    if (host.Fails(Kind::kSeek, mode, offset))
        return host.fault->code;
    const int64_t target = offset + (mode == kHostSeekFromCurrent && file ? file->position : 0);
    if (file == nullptr || target < 0)
        return kHostIoError;
    file->position = target;
    return kHostNoError;
}

int16_t FastClose(HostFile handle)
{
    ScriptableHost& host = HostCallbacks::Host();
    const bool fails = host.Fails(Kind::kClose);
    if (host.Find(handle) != nullptr)
        host.fFiles.erase(handle);
    return fails ? host.fault->code : int16_t{kHostNoError};
}
