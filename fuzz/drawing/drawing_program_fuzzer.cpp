// Plays a program of drawing operations, with numbers of any kind, on two ports of one bitmap.
// Nothing may crash, and what lies outside the clip that the program begins with stays as it was.
//
// A byte chooses the operation, the bytes after it are its numbers; at the end everything is 0.
#include "drawing/ports/image.h"
#include "drawing/ports/wrapper_port.h"
#include "pixels/pixmaps/memory_pixmap.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <string>

using namespace Kesto;

namespace {

constexpr std::int32_t kSide = 48;
constexpr std::int32_t kMargin = 8; // outside the clip, in pixels
constexpr std::uint32_t kGuard = 0xFF123456;
constexpr int kMostOperations = 200;

class Program {
public:
    Program(const std::uint8_t* data, std::size_t size) : fNext(data), fEnd(data + size) {}

    bool IsDone() const { return fNext == fEnd; }
    std::uint8_t Byte() { return IsDone() ? std::uint8_t{0} : *fNext++; }

    // Mostly near the picture, at times far away or no number at all.
    double Number()
    {
        const std::uint8_t byte = Byte();
        switch (byte) {
        case 255:
            return std::numeric_limits<double>::quiet_NaN();
        case 254:
            return std::numeric_limits<double>::infinity();
        case 253:
            return -1e300;
        case 252:
            return 3e9;
        case 251:
            return -2147483648.0;
        default:
            return (byte - 100) / 2.0 + Byte() / 256.0;
        }
    }
    Point Place() { return {Number(), Number()}; }
    Rect Frame() { return {Number(), Number(), Number(), Number()}; }
    Colour Paint() { return {Byte(), Byte(), Byte(), Byte()}; }
    CPen Pen() { return {Paint(), Number()}; }
    CBrush Brush()
    {
        CBrush brush{Paint(), Paint()};
        if (Byte() % 2 == 0)
            brush.pattern = 0x0101010101010101u * Byte();
        return brush;
    }
    CBRVRegion Region()
    {
        CBRVRegion region(Frame());
        return region.Union(Frame()).Subtract(Frame());
    }
    std::string Text()
    {
        std::string text(Byte() % 24, ' ');
        for (char& each : text)
            each = static_cast<char>(Byte());
        return text;
    }

private:
    const std::uint8_t* fNext;
    const std::uint8_t* fEnd;
};

template <class Shape>
void DrawShape(CSystemPort& port, Program& program, const Shape& shape)
{
    switch (program.Byte() % 5) {
    case 0:
        port.Frame(shape, program.Pen());
        break;
    case 1:
        port.Paint(shape, program.Brush());
        break;
    case 2:
        port.PaintAndFrame(shape, program.Pen(), program.Brush());
        break;
    case 3:
        port.Invert(shape);
        break;
    default:
        port.Erase(shape);
    }
}

void DrawPixmap(CSystemPort& port, Program& program, CImage& image)
{
    CMemoryPixmap pixmap(8, 1 + program.Byte() % 40, 1 + program.Byte() % 40, program.Byte() % 6, 4,
                         0);
    std::fill_n(pixmap.GetBaseAddress(),
                pixmap.GetRowBytes() * pixmap.GetHeight() * pixmap.GetPlaneCount(), program.Byte());
    pixmap.SetOrigin(program.Byte() - 128, program.Byte());
    const Rect source = program.Frame();
    const Rect dest = program.Frame();
    switch (program.Byte() % 4) {
    case 0:
        port.DrawPixmap(pixmap, source, dest);
        break;
    case 1:
        port.DrawPort(image, source, dest);
        break;
    default:
        port.DrawPixmapBlended(pixmap, source, dest);
    }
}

void DrawLines(CSystemPort& port, Program& program)
{
    std::array<Point, 6> places;
    std::ranges::generate(places, [&] { return program.Place(); });
    port.SetPen(program.Pen());
    if (program.Byte() % 2 == 0)
        port.DrawPolyline(places);
    else
        port.FillPolygon(places, program.Paint());
    port.LineTo(program.Place());
}

void DrawTexts(CSystemPort& port, Program& program)
{
    port.SetFont({program.Byte() % 2 == 0 ? "Tahoma" : "No such", program.Byte() / 4.0,
                  program.Byte() % 2 == 0, false});
    const std::string text = program.Text();
    port.DrawTextBox(text, program.Frame(), program.Byte() | (program.Byte() & 1u) << 8);
    port.DrawTextLine(text, program.Place());
}

void Step(CSystemPort& port, Program& program, CImage& image)
{
    switch (program.Byte() % 13) {
    case 0:
        return DrawShape(port, program, program.Frame());
    case 1:
        return DrawShape(port, program, Oval{program.Frame()});
    case 2:
        return DrawShape(port, program, RoundRect{program.Frame(), program.Number()});
    case 3:
        return DrawShape(port, program, program.Region());
    case 4:
        return DrawLines(port, program);
    case 5:
        return DrawTexts(port, program);
    case 6:
        return DrawPixmap(port, program, image);
    case 7: {
        CDeviceRegion uncovered;
        const Rect area = program.Frame();
        const Point way = program.Place();
        return port.ScrollPixels(area, way.x, way.y, uncovered);
    }
    case 8:
        return port.IntersectClip(program.Region());
    case 9:
        return port.SaveState();
    case 10:
        return port.RestoreState();
    case 11:
        return port.SetWindowOrigin(program.Place());
    default:
        return port.SetTransferMode(program.Byte() % 2 == 0 ? kTransfer_Copy : kTransfer_Xor);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Program program(data, size);
    CImage image(kSide, kSide);
    const CPixelSurface pixels = SurfaceOf(image.GetDisplay().GetBitmap());
    for (std::int32_t i = 0; i < kSide * kSide; ++i)
        *pixels.At(i % kSide, i / kSide) = kGuard;
    CWrapperPort wrapper(image.GetDisplay().GetBitmap(), {kSide, kSide});
    const double scale = 0.25 * (program.Byte() % 12);
    const PixelRect inside{kMargin, kMargin, kSide - kMargin, kSide - kMargin};
    for (CSystemPort* port :
         {static_cast<CSystemPort*>(&image), static_cast<CSystemPort*>(&wrapper)}) {
        port->SetScaleFactor(scale);
        port->SetDeviceClip(CDeviceRegion(inside));
    }
    for (int i = 0; i < kMostOperations && !program.IsDone(); ++i)
        Step(program.Byte() % 2 == 0 ? static_cast<CSystemPort&>(image) : wrapper, program, image);
    for (std::int32_t y = 0; y < kSide; ++y)
        for (std::int32_t x = 0; x < kSide; ++x)
            if (!CDeviceRegion(inside).Contains(x, y) && *pixels.At(x, y) != kGuard)
                std::abort();
    return 0;
}
