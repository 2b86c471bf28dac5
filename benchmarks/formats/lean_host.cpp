#include "formats/lean_host.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <unordered_map>

namespace Bench {
namespace {

LeanHost* gHost = nullptr;

struct Buffer {
    std::unique_ptr<uint8_t[]> bytes;
    int64_t size;
};

std::unordered_map<HostBuffer, Buffer> gBuffers;

int16_t Allocate(int32_t size, HostBuffer* buffer)
{
    gHost->requests.push_back(size);
    if (gHost->used + size > gHost->memoryLimit + gHost->record.memoryBudget)
        return kHostMemoryFull;
    auto bytes = std::make_unique<uint8_t[]>(static_cast<size_t>(size));
    *buffer = reinterpret_cast<HostBuffer>(bytes.get());
    gBuffers[*buffer] = {std::move(bytes), size};
    gHost->used += size;
    gHost->peak = std::max(gHost->peak, gHost->used);
    return kHostNoError;
}

void* Lock(HostBuffer buffer, uint8_t)
{
    return buffer;
}

void Unlock(HostBuffer) {}

void Free(HostBuffer buffer)
{
    gHost->used -= gBuffers.at(buffer).size;
    gBuffers.erase(buffer);
}

int32_t Space()
{
    return static_cast<int32_t>(gHost->memoryLimit - gHost->used);
}

constexpr HostBufferSuite kBuffers = {
    kHostBufferSuiteVersion, kHostBufferSuiteCount, {}, Allocate, Lock, Unlock, Free, Space, {}};

uint8_t NeverAbort()
{
    return 0;
}

void NoProgress(int32_t, int32_t) {}

int16_t Exchange()
{
    const HostFormatRecord& record = gHost->record;
    const int rows = record.exchangeRect.bottom - record.exchangeRect.top;
    const size_t rowBytes = size_t{3} * static_cast<size_t>(record.columnCount);
    auto* bytes = static_cast<uint8_t*>(record.rowsAddress);
    gHost->rows += rows;
    if (gHost->makeRow)
        gHost->makeRow(record.exchangeRect.top, bytes);
    if (gHost->picture == nullptr || (gHost->sparing && record.exchangeRect.top > 0))
        return kHostNoError;
    uint8_t* const place = gHost->picture + static_cast<size_t>(record.exchangeRect.top) * rowBytes;
    const size_t count = static_cast<size_t>(rows) * rowBytes;
    std::memcpy(gHost->writing ? bytes : place, gHost->writing ? place : bytes, count);
    return kHostNoError;
}

void Call(int16_t selector)
{
    int16_t result = 0;
    EntryElectricImage(selector, &gHost->record, &gHost->data, &result);
    if (result != kHostNoError) {
        std::cerr << "selector " << selector << " ended with " << result << '\n';
        std::exit(1);
    }
}

} // namespace

LeanHost::LeanHost()
{
    MakeCurrent();
    record.abortCheck = NeverAbort;
    record.progressReport = NoProgress;
    record.exchangeRows = Exchange;
    record.bufferSuite = &kBuffers;
}

void LeanHost::MakeCurrent()
{
    gHost = this;
}

void LeanHost::Open()
{
    MakeCurrent();
    for (const int16_t selector :
         {kFormatReadPrepare, kFormatReadStart, kFormatReadContinue, kFormatReadFinish})
        Call(selector);
}

void LeanHost::Save(int width, int height)
{
    MakeCurrent();
    record.colorMode = kHostModeRGB;
    record.columnCount = static_cast<int16_t>(width);
    record.rowCount = static_cast<int16_t>(height);
    record.planeCount = 3;
    record.channelDepth = 8;
    for (const int16_t selector :
         {kFormatWritePrepare, kFormatWriteStart, kFormatWriteContinue, kFormatWriteFinish})
        Call(selector);
}

} // namespace Bench

// The file service, as plain as it can be.
HostFile FastOpen(HostFormatRecord*, int16_t mode)
{
    Bench::gHost->position = 0;
    Bench::gHost->writing = mode == kHostOpenToWrite;
    if (Bench::gHost->writing)
        Bench::gHost->fileSize = 0;
    return reinterpret_cast<HostFile>(Bench::gHost);
}

int16_t FastRead(HostFile, int64_t* count, void* buffer)
{
    Bench::LeanHost& host = *Bench::gHost;
    const auto wanted = static_cast<size_t>(*count);
    if (host.fileSize - host.position < wanted)
        return kHostEndOfFile;
    std::memcpy(buffer, host.file.data() + host.position, wanted);
    host.position += wanted;
    return kHostNoError;
}

int16_t FastWrite(HostFile, int64_t count, const void* buffer)
{
    Bench::LeanHost& host = *Bench::gHost;
    if (host.sparing && host.position > 1 << 20)
        host.position = 0;
    const auto end = host.position + static_cast<size_t>(count);
    if (end > host.file.size())
        host.file.resize(end * 2);
    std::memcpy(host.file.data() + host.position, buffer, static_cast<size_t>(count));
    host.position = end;
    host.fileSize = std::max(host.fileSize, end);
    return kHostNoError;
}

int64_t FastGetPosition(HostFile)
{
    return static_cast<int64_t>(Bench::gHost->position);
}

int16_t FastSetPosition(HostFile, int16_t mode, int64_t offset)
{
    size_t& position = Bench::gHost->position;
    position = static_cast<size_t>(
        offset + (mode == kHostSeekFromCurrent ? static_cast<int64_t>(position) : 0));
    return kHostNoError;
}

int16_t FastClose(HostFile)
{
    return kHostNoError;
}
