// CSystemPort, the operations of every port, on a bitmap of 32 bits.
//
// Coordinates are doubles in units. The window origin is added to them, then each number goes to
// device pixels by the one rule (foundation/base/geometry.h). Rectangles, regions, pictures,
// pixmaps and scrolling are computed here, on the pixels; curves, slanting lines and text come from
// the platform's canvas. All but text is equal to the bit on every system.
//
// Drawing never throws for what it is given: what is empty, inverted, not a number or outside the
// clip draws nothing. Strokes lie within their shape. Used by the user interface's thread only.
#pragma once

#include "drawing/ports/drawing_state.h"
#include "drawing/ports/graphics_port.h"
#include "drawing/ports/pixel_surface.h"
#include "drawing/regions/region.h"
#include "platform/graphics/canvas.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace Kesto {

class CDualPicture;
class CPixmap;
struct CPreparedPixels;
struct CRoundedFrame;

// Places farther away than this count as being there, so that all distances fit in 32 bits.
inline constexpr std::int32_t kFarthestPixel = 1 << 29;

class CSystemPort : public CGraphicsPort {
public:
    // --- Surface, scale, position.

    // Null when there is nothing to draw on; measuring works all the same. The size is in pixels.
    const Platform::Bitmap* GetSurface() const { return fSurface; }
    PixelPoint GetSurfaceSize() const { return fSurfaceSize; }

    // Device pixels in a unit. A scale of 0, below or that is no number becomes 1.
    double GetScaleFactor() const { return fScale; }
    void SetScaleFactor(double scale);

    // The whole surface in port units, and a place of the port on the screen in pixels; a port that
    // isn't on the screen takes its own corner for the screen's.
    Rect GetClientRect() const;
    virtual Point ClientToScreen(const Point& units) const;

    std::int32_t GetScreenDepth() const override { return 32; }
    void PixmapChanged(CDisplayPixmap*) override {}

    // --- Origin, clip, state. What is saved and restored is all of CState.

    // Where the coordinates of operations begin, in port units. Patterns begin at the brush origin;
    // moving the window origin takes the brush origin along.
    void SetWindowOrigin(const Point& origin);
    Point GetWindowOrigin() const { return fState.windowOrigin; }
    void SetBrushOrigin(const Point& origin) { fState.brushOrigin = origin; }
    Point GetBrushOrigin() const { return fState.brushOrigin; }

    // The clip is kept in pixels of the surface. Regions and rectangles are taken at the window
    // origin; GetClip tells the clip there, grown by a pixel.
    void SetClip(const CBRVRegion& units);
    void IntersectClip(const CBRVRegion& units);
    void IntersectClip(const Rect& units);
    void ResetClip(); // everything
    CBRVRegion GetClip() const;
    void SetDeviceClip(const CDeviceRegion& pixels);
    const CDeviceRegion& GetDeviceClip() const { return fState.clip; }
    // True when some of the rectangle may show.
    bool IsInClip(const Rect& units) const;

    void SaveState();
    // Back to the latest saved state; without one nothing happens.
    void RestoreState();

    // --- Tools.

    // Black pen 1 wide, white brush, black text on transparent ground, the default font, copying;
    // both origins and the clip stay, and the brush origin is the window origin again. Done before
    // each view draws.
    void ResetTools();

    void SetPen(const CPen& pen) { fState.pen = pen; }
    const CPen& GetPen() const { return fState.pen; }
    void SetBrush(const CBrush& brush) { fState.brush = brush; }
    const CBrush& GetBrush() const { return fState.brush; }
    void SetFont(const CFont& font);
    const CFont& GetFont() const { return fState.font; }
    // What font sizes are multiplied with besides the scale: 1 unless set.
    void SetFontScale(double scale);
    void SetTextColour(const Colour& colour) { fState.textColour = colour; }
    Colour GetTextColour() const { return fState.textColour; }
    // What Erase paints with, and what lies behind text unless the ground is transparent.
    void SetBackground(const Colour& colour) { fState.background = colour; }
    Colour GetBackground() const { return fState.background; }
    void SetOpaqueText(bool opaque) { fState.opaqueText = opaque; }
    void SetTransferMode(ETransferMode mode) { fState.transfer = mode; }
    ETransferMode GetTransferMode() const { return fState.transfer; }

    // --- Lines, with the pen. Horizontal and vertical ones cover whole pixels: a line of 1 unit
    // from (x, y) covers the pixels of the units below and right of it. Others are antialiased
    // through the middles of these pixels.

    void MoveTo(const Point& place) { fState.penPlace = place; }
    void LineTo(const Point& place);
    void DrawLine(const Point& from, const Point& to);
    void DrawPolyline(std::span<const Point> places);
    // The area within, by the even-odd rule, antialiased, between the lines of the unit grid.
    void FillPolygon(std::span<const Point> corners, const Colour& colour);

    // --- Shapes: Rect, Oval, RoundRect and CBRVRegion. Frame strokes, Paint fills.

    template <class Shape>
    void Frame(const Shape& shape)
    {
        DrawShape(shape, &fState.pen, nullptr);
    }
    template <class Shape>
    void Frame(const Shape& shape, const CPen& pen)
    {
        DrawShape(shape, &pen, nullptr);
    }
    template <class Shape>
    void Frame(const Shape& shape, const Colour& colour)
    {
        Frame(shape, CPen{colour});
    }
    template <class Shape>
    void Paint(const Shape& shape)
    {
        DrawShape(shape, nullptr, &fState.brush);
    }
    template <class Shape>
    void Paint(const Shape& shape, const CBrush& brush)
    {
        DrawShape(shape, nullptr, &brush);
    }
    template <class Shape>
    void Paint(const Shape& shape, const Colour& colour)
    {
        Paint(shape, CBrush{colour});
    }
    template <class Shape>
    void Erase(const Shape& shape)
    {
        Paint(shape, fState.background);
    }
    template <class Shape>
    void Invert(const Shape& shape);
    template <class Shape>
    void PaintAndFrame(const Shape& shape)
    {
        DrawShape(shape, &fState.pen, &fState.brush);
    }
    template <class Shape>
    void PaintAndFrame(const Shape& shape, const CPen& pen, const CBrush& brush)
    {
        DrawShape(shape, &pen, &brush);
    }

    // --- Text, UTF-8, in the font and the text colour.

    SFontMetrics GetFontMetrics() const;
    // The units that one line takes, never less than what is drawn of it.
    double MeasureText(std::string_view text) const;
    // The size of a text with the line breaks it has, and those that kText_Wrap makes for the
    // width.
    Point MeasureTextBox(std::string_view text, double width, std::uint32_t flags) const;
    // One line, its base line beginning at the place.
    void DrawTextLine(std::string_view text, const Point& baseLine);
    // In a frame, and clipped to it, by ETextFlags. A line height of 0 is the font's.
    void DrawTextBox(std::string_view text, const Rect& frame, std::uint32_t flags,
                     double lineHeight = 0.0);

    // --- Pictures: the density that fits the scale, in units; see picture_choice.h.

    // At its own size from the corner, in the middle of a frame, and stretched to a frame.
    void DrawPicture(const CDualPicture& picture, const Point& corner);
    void DrawIcon(const CDualPicture& picture, const Rect& frame);
    void DrawPicture(const CDualPicture& picture, const Rect& frame);

    // --- Pixmaps. Source rectangles are in the pixmap's own global pixels and are cut, with the
    // destination, to what it has. A destination smaller than its source in either direction is
    // averaged, another one takes the nearest pixel.

    // 8 bits: 1 plane is grey, 2 are grey and alpha, 3 colours, 4 colours and alpha. With any other
    // number nothing is drawn.
    void DrawPixmapBlended(CPixmap& pixmap, const Rect& source, const Rect& dest);
    // Opaque: the pixels of a display pixmap of 32 bits, or the colours of planes.
    void DrawPixmap(CPixmap& pixmap, const Rect& source, const Rect& dest);
    // Opaque, from another port; its rectangle is in its own units.
    void DrawPort(const CSystemPort& port, const Rect& source, const Rect& dest);

    // Moves the pixels of an area within the clip by so many units, and tells in `uncovered` what
    // of the clipped area has to be drawn anew, in device pixels.
    void ScrollPixels(const Rect& area, double dx, double dy, CDeviceRegion& uncovered);

    // At the window origin, in device pixels.
    PixelRect ToPixels(const Rect& units) const;
    CDeviceRegion ToPixels(const CBRVRegion& units) const;

protected:
    CSystemPort();

    // Draws on the bitmap from now on, with everything in the clip, or on nothing with null. The
    // bitmap isn't owned.
    void SetSurface(const Platform::Bitmap* bitmap, const PixelPoint& size);

    // The core of each family: fills with the brush, if any, then strokes with the pen, if any.
    virtual void DrawShape(const Rect& shape, const CPen* pen, const CBrush* brush);
    virtual void DrawShape(const Oval& shape, const CPen* pen, const CBrush* brush);
    virtual void DrawShape(const RoundRect& shape, const CPen* pen, const CBrush* brush);
    virtual void DrawShape(const CBRVRegion& shape, const CPen* pen, const CBrush* brush);

private:
    struct CState {
        Point windowOrigin;
        Point brushOrigin;
        CDeviceRegion clip;
        CPen pen;
        CBrush brush;
        CFont font;
        double fontScale = 1.0;
        Colour textColour = kBlack;
        Colour background = kWhite;
        bool opaqueText = false;
        ETransferMode transfer = kTransfer_Copy;
        Point penPlace;
    };

    CPixelSurface Pixels() const;
    PixelPoint ToPixels(const Point& units) const;
    Platform::PathPoint ToPath(const Point& units) const;
    CPixelBrush ToPixels(const CBrush& brush) const;
    std::int32_t StrokePixels(double width) const;
    CDeviceRegion& ChangeClip();

    void FillDevice(const PixelRect& pixels, const CPixelBrush& brush);
    void FillDevice(const CDeviceRegion& pixels, const CPixelBrush& brush);
    void DrawCurve(const CRoundedFrame& shape, const CPen* pen, const CBrush* brush);
    void FillCurve(const CRoundedFrame& outer, const CRoundedFrame* inner, const CBrush& brush);
    void StrokePath(std::span<const Point> places);
    Platform::Canvas& ClippedCanvas();

    const Platform::Font& DeviceFont() const;
    // Within a frame of pixels as well as the clip.
    void DrawLineWithin(const Platform::TextLine& line, const PixelPoint& start,
                        const PixelRect& frame);
    void Underline(const Platform::TextLine& line, std::size_t position, const PixelPoint& start,
                   const PixelRect& frame);

    PixelRect VisiblePart(const PixelRect& pixels) const;
    void DrawPrepared(const CPreparedPixels& pixels, bool blended);

    const Platform::Bitmap* fSurface = nullptr;
    PixelPoint fSurfaceSize;
    double fScale = 1.0;
    CState fState;
    std::vector<CState> fSaved;

    // Made when they are first needed after a change of what they depend on.
    std::optional<Platform::Canvas> fCanvas;           // surface, clip
    mutable std::optional<Platform::Font> fDeviceFont; // font, scales
    Platform::Path fPath;                              // keeps its memory
};

template <class Shape>
void CSystemPort::Invert(const Shape& shape)
{
    const ETransferMode before = fState.transfer;
    fState.transfer = kTransfer_Xor;
    Paint(shape, kWhite);
    fState.transfer = before;
}

} // namespace Kesto
