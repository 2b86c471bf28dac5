// The names of the display's properties and messages that windows speak with their manager in.
#pragma once

#include <array>
#include <cstdint>
#include <xcb/xcb.h>

namespace Platform {

enum class Atom : std::size_t {
    kProtocols,
    kDeleteWindow,
    kPing,
    kUTF8,
    kName,
    kWindowType,
    kTypeNormal,
    kTypeDialog,
    kTypeUtility,
    kTypeToolbar,
    kTypePopup,
    kState,
    kStateModal,
    kStateMaximizedX,
    kStateMaximizedY,
    kStateHidden,
    kFrameExtents,
    kFrameHints,
    kChangeState,
    kClipboard,
    kTargets,
    kText,
    kIncremental,
    kTransfer,
    kCount,
};

class Atoms {
public:
    explicit Atoms(xcb_connection_t* connection);

    xcb_atom_t operator[](Atom atom) const { return fAtoms[static_cast<std::size_t>(atom)]; }

private:
    std::array<xcb_atom_t, static_cast<std::size_t>(Atom::kCount)> fAtoms{};
};

} // namespace Platform
