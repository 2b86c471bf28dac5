#include "platform/input/pointer.h"

#include "platform/system/win32/handles.h"
#include "platform/system/win32/late_function.h"

#include <algorithm>
#include <windows.h>

namespace Platform {

PixelPoint CursorPosition()
{
    POINT point{};
    GetCursorPos(&point);
    return {point.x, point.y};
}

// The system tells it of one window's client area only, and goes between two of them.
bool TellsWhenMouseLeaves()
{
    return false;
}

bool AreButtonsSwapped()
{
    return GetSystemMetrics(SM_SWAPBUTTON) != 0;
}

NativeWindow WindowAt(PixelPoint point)
{
    const HWND window = WindowFromPoint({point.x, point.y});
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() ? Window(window)
                                                                             : nullptr;
}

namespace {

PenSample SampleOf(const POINTER_PEN_INFO& info)
{
    const POINTER_INFO& pointer = info.pointerInfo;
    return {pointer.ptPixelLocation.x, pointer.ptPixelLocation.y, pointer.dwTime, info.pressure};
}

bool IsPen(std::uint32_t number)
{
    static const auto type =
        FindUserFunction<BOOL WINAPI(UINT32, POINTER_INPUT_TYPE*)>("GetPointerType");
    constexpr DWORD kPen = 3;
    POINTER_INPUT_TYPE found{};
    return type != nullptr && type(number, &found) != 0 && static_cast<DWORD>(found) == kPen;
}

} // namespace

std::optional<PenSample> ReadPen(std::uint32_t pointer)
{
    static const auto read =
        FindUserFunction<BOOL WINAPI(UINT32, POINTER_PEN_INFO*)>("GetPointerPenInfo");
    POINTER_PEN_INFO info{};
    if (read == nullptr || !IsPen(pointer) || read(pointer, &info) == 0)
        return std::nullopt;
    return SampleOf(info);
}

std::vector<PenSample> ReadPenHistory(std::uint32_t pointer)
{
    static const auto read = FindUserFunction<BOOL WINAPI(UINT32, UINT32*, POINTER_PEN_INFO*)>(
        "GetPointerPenInfoHistory");
    UINT32 count = 0;
    if (read == nullptr || !IsPen(pointer) || read(pointer, &count, nullptr) == 0)
        return {};
    std::vector<POINTER_PEN_INFO> infos(count);
    if (infos.empty() || read(pointer, &count, infos.data()) == 0)
        return {};
    infos.resize(std::min<std::size_t>(count, infos.size()));
    std::vector<PenSample> samples(infos.size()); // the system names the newest first
    std::transform(infos.rbegin(), infos.rend(), samples.begin(), SampleOf);
    return samples;
}

} // namespace Platform
