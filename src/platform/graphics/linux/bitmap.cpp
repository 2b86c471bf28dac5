// Bitmaps on the heap: nobody but this system draws on them, and a window is shown its pixels.
//
// Large blocks go back to the kernel when they are freed, and each page that comes back from it
// costs more than filling it, so that a dialog which opens would spend a fifth of its time on them.
// A few blocks are therefore kept for the next bitmap of their size.

#include "platform/graphics/bitmap.h"

#include "platform/system/errors.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <utility>

namespace Platform {
namespace {

constexpr std::int32_t kMostPixels = 32767;        // along a side
constexpr std::size_t kLeastKept = 64 * 1024;      // bytes; the heap keeps smaller ones by itself
constexpr std::size_t kMostKept = 4 * 1024 * 1024; // of one block

struct Block {
    void* bytes = nullptr;
    std::size_t size = 0;
};

// Without a destructor, since bitmaps may outlive every object of this file.
constinit std::mutex gSparesLock;
constinit std::array<Block, 4> gSpares;
constinit std::size_t gNextSpare = 0;
constinit bool gKeepsSpares = true;

// With the module goes all that is kept.
struct SparesEnd {
    ~SparesEnd()
    {
        const std::lock_guard lock(gSparesLock);
        gKeepsSpares = false;
        for (Block& each : gSpares)
            std::free(std::exchange(each, {}).bytes);
    }
};
const SparesEnd kSparesEnd;

// A spare of just this size, or null.
void* TakeSpare(std::size_t size)
{
    const std::lock_guard lock(gSparesLock);
    for (Block& each : gSpares)
        if (each.size == size)
            return std::exchange(each, {}).bytes;
    return nullptr;
}

// All of it 0; null without memory.
void* TakeBlock(std::size_t size)
{
    void* const spare = TakeSpare(size);
    return spare != nullptr ? std::memset(spare, 0, size) : std::calloc(size, 1);
}

// In place of the spare that was kept the longest.
void GiveBlock(void* bytes, std::size_t size)
{
    if (size >= kLeastKept && size <= kMostKept) {
        const std::lock_guard lock(gSparesLock);
        if (gKeepsSpares) {
            bytes = std::exchange(gSpares[gNextSpare], {bytes, size}).bytes;
            gNextSpare = (gNextSpare + 1) % gSpares.size();
        }
    }
    std::free(bytes);
}

bool IsKnownDepth(std::int32_t pixelBits)
{
    return pixelBits == 1 || pixelBits == 8 || pixelBits == 16 || pixelBits == 32;
}

bool IsSize(std::int32_t pixels)
{
    return pixels >= 1 && pixels <= kMostPixels;
}

} // namespace

bool Bitmap::Make(std::int32_t width, std::int32_t height, std::int32_t pixelBits, bool)
{
    Release();
    if (!IsSize(width) || !IsSize(height) || !IsKnownDepth(pixelBits)) {
        SetLastError(EINVAL);
        return false;
    }
    const std::ptrdiff_t rowBytes = (std::ptrdiff_t{width} * pixelBits + 31) / 32 * 4;
    void* const block = TakeBlock(static_cast<std::size_t>(rowBytes * height));
    if (block == nullptr) {
        SetLastError(ENOMEM);
        return false;
    }
    fNative = reinterpret_cast<std::intptr_t>(block);
    fBits = static_cast<std::uint8_t*>(block);
    fSize = {width, height, pixelBits, rowBytes};
    return true;
}

void Bitmap::Release()
{
    if (fNative != 0)
        GiveBlock(fBits, static_cast<std::size_t>(fSize.rowBytes * fSize.height));
    fNative = 0;
    fBits = nullptr;
    fSize = {};
}

void Bitmap::BeginWriting() const {}

void Bitmap::EndWriting() const {}

} // namespace Platform
