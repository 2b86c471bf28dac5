// What a window can be asked for when it is made. The names are those of layout texts.
#pragma once

#include <cstdint>

namespace Kesto {

enum EWindowKind : std::int32_t {
    kWin_Document = 1,
    kWin_Alert = 2,
    kWin_Dialog = 3,
    kWin_Palette = 4,
    kWin_Toolbar = 5,
    kWin_Popup = 6,
    kWin_MDIFrame = 7,
    kWin_MDIDocument = 8,
    kWin_DocumentSeamless = 12,
};

// Each is one bit; the last three are sums.
enum EWindowFeatures : std::uint32_t {
    kWin_CanClose = 1,
    kWin_CanMove = 2,
    kWin_CanSize = 4,
    kWin_HasSizeBox = 8,
    kWin_LiveResize = 16,
    kWin_CanZoom = 32,
    kWin_CanCollapse = 64,
    kWin_CanMaximize = kWin_CanZoom,
    kWin_CanMinimize = kWin_CanCollapse,
    kWin_CanTarget = 128,
    kWin_CanBullseye = 256,
    kWin_CanTabStop = 512,
    kWin_OpenHidden = 1024,
    kWin_AutoDelete = 2048,
    kWin_DisableOwner = 4096,
    kWin_DropFiles = 8192,
    kWin_ResolutionIndependent = 16384,
    kWin_NoFeatures = 0,
    kWin_AllFeatures = kWin_CanClose + kWin_CanMove + kWin_CanSize + kWin_HasSizeBox +
                       kWin_LiveResize + kWin_CanZoom + kWin_CanCollapse,
    kWin_AllTargeting = kWin_CanTarget + kWin_CanBullseye + kWin_CanTabStop,
};

enum EWindowState : std::int32_t {
    kWinState_Default = 0,
    kWinState_Normal = 1,
    kWinState_Minimized = 2,
    kWinState_Maximized = 3,
};

// Which monitor a window opens on.
enum EMonitorChoice : std::int32_t {
    kMonitor_Main = 0,
    kMonitor_Big = 1,
    kMonitor_Small = 2,
    kMonitor_Deep = 3,
    kMonitor_Shallow = 4,
    kMonitor_Tall = 5,
    kMonitor_Short = 6,
    kMonitor_Wide = 7,
    kMonitor_Thin = 8,
};

} // namespace Kesto
