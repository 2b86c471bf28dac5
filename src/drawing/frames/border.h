// CBorder, the frame around a view, and the table of the kinds of frames.
#pragma once

#include "drawing/frames/frame_kinds.h"
#include "foundation/base/geometry.h"

#include <cstdint>

namespace Kesto {

class CSystemPort;

// What a frame takes from each side, in units: an EFrameKind or an EDividerKind, 0 all round for
// any other number.
Rect FrameEdges(std::int32_t kind);

class CBorder {
public:
    explicit CBorder(std::int32_t kind) : fKind(kind) {}
    virtual ~CBorder() = default;

    std::int32_t GetKind() const { return fKind; }
    virtual Rect GetEdges() const { return FrameEdges(fKind); }

    // What the edges leave of a rectangle; empty if they leave nothing.
    Rect GetInterior(const Rect& frame) const;

    // Draws within the edges of the frame, in the theme's colours.
    virtual void Draw(CSystemPort& port, const Rect& frame) const;

private:
    std::int32_t fKind;
};

} // namespace Kesto
