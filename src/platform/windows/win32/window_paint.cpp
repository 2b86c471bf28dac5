#include "platform/windows/window_paint.h"

#include "platform/windows/win32/device.h"
#include "platform/windows/win32/window_record.h"

#include <cstddef>

namespace Platform {
namespace {

RECT ToSystem(const PixelRect& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

PixelRect ClientOf(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    return {client.left, client.top, client.right, client.bottom};
}

// The rectangles that the window's update region is made of.
std::vector<PixelRect> UpdateRects(HWND window)
{
    std::vector<PixelRect> rects;
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    if (GetUpdateRgn(window, region, FALSE) != ERROR) {
        const DWORD size = GetRegionData(region, 0, nullptr);
        std::vector<std::byte> bytes(size);
        auto* const data = reinterpret_cast<RGNDATA*>(bytes.data());
        if (size >= sizeof(RGNDATAHEADER) && GetRegionData(region, size, data) != 0) {
            const auto* const first = reinterpret_cast<const RECT*>(data->Buffer);
            for (DWORD i = 0; i < data->rdh.nCount; ++i)
                rects.push_back({first[i].left, first[i].top, first[i].right, first[i].bottom});
        }
    }
    DeleteObject(region);
    return rects;
}

// Controls draw themselves on any device that they are handed, and leave their clip in it.
void PhotographChildren(HWND window, const Bitmap& picture)
{
    const MemoryDevice device(picture);
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if ((GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) == 0)
            continue;
        RECT rect{};
        GetWindowRect(child, &rect);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&rect), 2);
        const int before = SaveDC(device.Get());
        SetViewportOrgEx(device.Get(), rect.left, rect.top, nullptr);
        SendMessageW(child, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(device.Get()), PRF_CLIENT);
        RestoreDC(device.Get(), before);
    }
}

// What the system draws has no alpha.
void MakeOpaque(const Bitmap& picture)
{
    picture.BeginWriting();
    for (std::int32_t y = 0; y < picture.Height(); ++y)
        for (std::int32_t x = 0; x < picture.Width(); ++x)
            picture.Bits()[y * picture.RowBytes() + x * 4 + 3] = 255;
}

} // namespace

void InvalidateWindow(NativeWindow window, std::span<const PixelRect> rects)
{
    for (const PixelRect& rect : rects) {
        const RECT part = ToSystem(rect);
        InvalidateRect(Handle(window), &part, FALSE);
    }
}

// The system takes a null window for all of them.
void InvalidateWindow(NativeWindow window)
{
    if (window != nullptr)
        InvalidateRect(Handle(window), nullptr, FALSE);
}

void ValidateWindow(NativeWindow window, std::span<const PixelRect> rects)
{
    for (const PixelRect& rect : rects) {
        const RECT part = ToSystem(rect);
        if (window != nullptr)
            ValidateRect(Handle(window), &part);
    }
}

void UpdateWindowNow(NativeWindow window)
{
    RedrawWindow(Handle(window), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    ThrowStopped();
}

PaintScope::PaintScope(NativeWindow window) : fWindow(window)
{
    const WindowRecord* const record = RecordOf(Handle(window));
    if (record != nullptr && record->photograph != nullptr) {
        fRects.assign(1, ClientOf(Handle(window)));
        return;
    }
    fRects = UpdateRects(Handle(window));
    PAINTSTRUCT paint{};
    fNative = reinterpret_cast<std::intptr_t>(BeginPaint(Handle(window), &paint));
}

PaintScope::~PaintScope()
{
    PAINTSTRUCT paint{};
    paint.hdc = reinterpret_cast<HDC>(fNative);
    if (fNative != 0)
        EndPaint(Handle(fWindow), &paint);
}

void PresentBitmap(NativeWindow window, const Bitmap& bitmap, std::span<const PixelRect> rects)
{
    const WindowRecord* const record = RecordOf(Handle(window));
    if (bitmap.Bits() == nullptr || IsWindow(Handle(window)) == 0)
        return;
    // A window that is being photographed paints into the picture.
    const bool toPicture = record != nullptr && record->photograph != nullptr;
    const HDC target = toPicture ? nullptr : GetDC(Handle(window));
    {
        const MemoryDevice source(bitmap);
        for (const PixelRect& rect : rects) {
            const auto copy = [&](HDC device) {
                BitBlt(device, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                       source.Get(), rect.left, rect.top, SRCCOPY);
            };
            if (toPicture)
                copy(MemoryDevice(*record->photograph).Get());
            else
                copy(target);
        }
    }
    if (target != nullptr)
        ReleaseDC(Handle(window), target);
}

bool PhotographWindow(NativeWindow window, Bitmap& picture)
{
    WindowRecord* const record = RecordOf(Handle(window));
    const PixelRect client = ClientOf(Handle(window));
    if (record == nullptr || client.IsEmpty() ||
        !picture.Make(client.right, client.bottom, 32, false))
        return false;
    record->photograph = &picture;
    SendMessageW(Handle(window), WM_PAINT, 0, 0);
    // Painting may have ended the window.
    WindowRecord* const still = RecordOf(Handle(window));
    if (still == nullptr)
        return false;
    still->photograph = nullptr;
    PhotographChildren(Handle(window), picture);
    MakeOpaque(picture);
    ThrowStopped();
    return true;
}

} // namespace Platform
