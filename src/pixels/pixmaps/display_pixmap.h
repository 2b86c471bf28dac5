// CDisplayPixmap, a contiguous pixmap of one plane in a bitmap that the graphics system owns, so
// that drawing calls and pixel code see the same memory.
//
// Its pixels are the port's screen pixels, all channels in one plane; without a port they have 32
// bits. The bitmap is at least 1 by 1 pixels and is made anew, with undefined pixels, whenever the
// size changes.
#pragma once

#include "pixels/pixmaps/basic_pixmap.h"
#include "platform/graphics/bitmap.h"

namespace Kesto {

class CPixmapPort;

class CDisplayPixmap : public CBasicPixmap {
public:
    // Makes the bitmap and announces the pixmap to the port, which outlives it or lets it go
    // before. Throws CSystemError when there can be no such bitmap, and what CBasicPixmap throws;
    // nothing is announced then.
    CDisplayPixmap(CPixmapPort& port, std::int32_t width, std::int32_t height);

    // Off the screen: 32 bits a pixel and no port, so that nobody is told of it. SetPort makes it a
    // port's.
    CDisplayPixmap(std::int32_t width, std::int32_t height);

    // Copy the record and the pixels into a bitmap of their own. A new pixmap is for the same port,
    // which keeps the one that it has; an old one stays with its own port.
    CDisplayPixmap(const CDisplayPixmap& other);
    CDisplayPixmap& operator=(const CDisplayPixmap& other);

    // The port is told that it has no pixmap any more, as it is before every change of bitmap.
    ~CDisplayPixmap() override;

    using CBasicPixmap::SetSize;
    void SetSize(std::int32_t width, std::int32_t height) override;
    std::uint8_t* GetBaseAddress() const override { return fBitmap.Bits(); }

    // Moves the pixmap to another port: the old one is told that it has none, and with the new one
    // comes a new bitmap of its depth. With null, or after a failure, there is neither port nor
    // bitmap. The same port is no change.
    virtual void SetPort(CPixmapPort* port);

    CPixmapPort* GetPort() const { return fPort; } // null off the screen

    // For the drawing calls of the platform. Who reads or writes the pixels through a view of his
    // own does it within a CBitmapAccess or CDisplayWriting.
    const Platform::Bitmap& GetBitmap() const { return fBitmap; }
    std::int32_t GetBitsSize() const; // bytes

private:
    Platform::Bitmap MakeBitmap() const;
    void CopyBits(const CDisplayPixmap& other);
    void Announce();
    void Withdraw();

    CPixmapPort* fPort;
    bool fAnnounced = false; // the port's pixmap is this one
    Platform::Bitmap fBitmap;
};

} // namespace Kesto
