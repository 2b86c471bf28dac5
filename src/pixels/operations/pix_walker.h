// CPixWalker runs a kernel over one or more pixmaps, piece by piece, whether they are contiguous or
// paged.
//
// Every piece lies in one tile of each pixmap, so that a view can describe it; tiles are locked
// while their piece is at work. Pieces come row by row from the top left.
#pragma once

#include "pixels/pixmaps/pixmap.h"
#include "pixels/pixmaps/pixview.h"

#include <span>
#include <vector>

namespace Kesto {

// The views of one piece, in the order in which the pixmaps were given; all are of one size.
struct CPixWalkContext {
    std::vector<CPixView> fRead;
    std::vector<CPixView> fReadWrite;
    std::vector<CPixView> fWrite;
};

class CPixWalker {
public:
    enum class Access { kRead, kReadWrite, kWrite };

    // Returns false to end the walk. It makes no pixmap smaller.
    using Function = bool (*)(const CPixWalkContext& context, void* userData);

    // One pixmap's part: the rectangle is global, a plane count below 0 means all planes from the
    // first on.
    struct Operand {
        CPixmap* fPixmap;
        PixelRect fRect;
        std::int32_t fFirstPlane;
        std::int32_t fPlaneCount;
        Access fAccess;
    };

    // The same rectangle and planes of all pixmaps. They are not owned, and stay while the walker
    // is used.
    CPixWalker(std::span<CPixmap* const> read, std::span<CPixmap* const> readWrite,
               std::span<CPixmap* const> write, const PixelRect& rect, std::int32_t firstPlane,
               std::int32_t planeCount);

    // One pixmap, to read and write.
    CPixWalker(CPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
               std::int32_t planeCount);

    // A source to read and a destination to write, whose rectangles begin at places of their own.
    // The smaller size counts.
    CPixWalker(CPixmap& source, CPixmap& dest, const PixelRect& sourceRect,
               const PixelRect& destRect, std::int32_t firstPlane, std::int32_t planeCount);

    // Pixmaps with a part of their own each.
    explicit CPixWalker(std::vector<Operand> operands);

    // Calls the function once for each piece of what all rectangles and bounds have in common.
    // Returns false when it ended the walk. Throws std::logic_error when a pixmap has less of its
    // rectangle afterwards, and for one that is neither contiguous nor paged; and what locking a
    // tile throws.
    bool Run(Function function, void* userData) const;

    // The same for anything that can be called with a context.
    template <class Callable>
    bool Run(const Callable& callable) const
    {
        const auto call = [](const CPixWalkContext& context, void* userData) -> bool {
            return (*static_cast<const Callable*>(userData))(context);
        };
        return Run(call, const_cast<Callable*>(&callable));
    }

    // A rectangle counted from the operands' corners, which can lie 32 bits apart.
    struct Area {
        std::int64_t left, top, right, bottom;

        friend bool operator==(const Area&, const Area&) = default;
    };

private:
    void Add(std::span<CPixmap* const> pixmaps, const PixelRect& rect, std::int32_t firstPlane,
             std::int32_t planeCount, Access access);
    Area CommonArea() const; // what all operands have
    bool RunPiece(const Area& piece, Function function, void* userData) const;

    std::vector<Operand> fOperands;
};

// True when the rectangle lies in one tile of the pixmap.
bool LiesInOneTile(const CPixmap& pixmap, const PixelRect& rect);

} // namespace Kesto
