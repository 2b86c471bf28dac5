// What is kept of each window that was made here, and how its messages reach its procedure.
#pragma once

#include "platform/graphics/cursors.h"
#include "platform/system/win32/handles.h"
#include "platform/windows/system_window.h"

#include <vector>
#include <windows.h>

namespace Platform {

class Bitmap;

struct WindowRecord {
    WindowProcedure* procedure = nullptr; // null: it is to hear nothing
    WindowKind kind = WindowKind::kDialog;
    std::uint32_t features = 0;
    HWND documents = nullptr; // the client of a frame of many documents
    int loops = 0;            // of the system's own that run for it
    Cursor cursor;
    Bitmap* photograph = nullptr; // what is presented goes here, while it is taken
};

// Null unless the window was made by MakeSystemWindow and lives.
WindowRecord* RecordOf(HWND window);

// The procedure of all window classes.
LRESULT CALLBACK ReceiveMessage(HWND window, UINT number, WPARAM first, LPARAM second);

void AddRecord(HWND window, const WindowRecord& record);
std::vector<HWND> RecordedWindows();

// What the system itself answers, by the kind of window.
LRESULT AnswerOfSystem(HWND window, const WindowRecord* record, UINT number, WPARAM first,
                       LPARAM second);

// The window underlines the letters that are keys, from now on.
void ShowCuesOf(HWND window);

// Keys that would open the system's menus, or close the window without its being asked.
bool IsKeptFromSystem(UINT number, WPARAM first);

} // namespace Platform
