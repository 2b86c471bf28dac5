// What windows there are: their kinds, what they can do, and how they are shown. The numbers are
// those that layouts write down.
#pragma once

#include <cstdint>

namespace Platform {

enum class WindowKind : std::uint32_t {
    kDocument = 1,
    kAlert = 2,
    kDialog = 3,
    kPalette = 4,
    kToolbar = 5,
    kPopup = 6,       // without a frame; never active
    kMDIFrame = 7,    // of many documents
    kMDIDocument = 8, // within such a frame, where the system has them; else a document
    kDocumentSeamless = 12,
};

// Bits of what a window can do, as far as the system has to know.
namespace WindowFeature {

inline constexpr std::uint32_t kCanClose = 1;
inline constexpr std::uint32_t kCanMove = 2;
inline constexpr std::uint32_t kCanSize = 4;
inline constexpr std::uint32_t kCanMaximize = 32;
inline constexpr std::uint32_t kCanMinimize = 64;
inline constexpr std::uint32_t kDropFiles = 8192;
inline constexpr std::uint32_t kResolutionIndependent = 16384;

} // namespace WindowFeature

enum class ShowCommand : int {
    kHide = 0,
    kNormal = 1, // restored and activated
    kMinimized = 2,
    kMaximized = 3,
    kNormalInactive = 4,
    kShow = 5, // as it is, activated
    kMinimize = 6,
    kMinimizedInactive = 7,
    kShowInactive = 8, // as it is
    kRestore = 9,
};

// True for kinds that a press of the mouse doesn't activate: palettes, tool bars and popups.
constexpr bool NeverActivates(WindowKind kind)
{
    return kind == WindowKind::kPalette || kind == WindowKind::kToolbar ||
           kind == WindowKind::kPopup;
}

} // namespace Platform
