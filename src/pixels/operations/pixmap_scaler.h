// CPixmapScaler, the scaler between two pixmaps.
//
//     CPixmapScaler scaler;
//     scaler.SetPixmaps(&thumbnail, &picture);
//     std::uint32_t done = 0;
//     while (!scaler.DoAll(done, KeepGoing, this))
//         ...; // stopped by KeepGoing; the next DoAll goes on from there
#pragma once

#include "pixels/operations/pix_scaler.h"

namespace Kesto {

class CPixmapScaler : public CPixScaler {
public:
    void Reset() override;

    // Resets unless both pixmaps exist, have a pixel size of 8, 16 or 32 bits in common, and
    // contain the rectangles.
    void Prepare(const PixelRect& destRect, const PixelRect& sourceRect) override;

    bool DoStep(std::int32_t column, std::int32_t row, std::uint32_t& done, Callback callback,
                void* userData) override;

    // Forgets the pixmaps and planes, and resets.
    virtual void Clear();

    // Takes the pixmaps, which are not owned and stay until Clear or the next call, and prepares.
    // Plane counts below 0 mean all planes from the first on; the smaller of both counts is scaled.
    virtual void SetPixmaps(CPixmap* dest, CPixmap* source, const PixelRect& destRect,
                            const PixelRect& sourceRect, std::int32_t destFirstPlane = 0,
                            std::int32_t destPlaneCount = -1, std::int32_t sourceFirstPlane = 0,
                            std::int32_t sourcePlaneCount = -1);

    // The same for all pixels of both.
    virtual void SetPixmaps(CPixmap* dest, CPixmap* source, std::int32_t destFirstPlane = 0,
                            std::int32_t destPlaneCount = -1, std::int32_t sourceFirstPlane = 0,
                            std::int32_t sourcePlaneCount = -1);

    std::int32_t GetStepsAcross() const { return fStepsAcross; }
    std::int32_t GetStepsDown() const { return fStepsDown; }

private:
    bool CanPrepare(const PixelRect& destRect, const PixelRect& sourceRect) const;
    PixelRect PieceOf(std::int32_t column, std::int32_t row, std::uint32_t step) const;

    CPixmap* fDest = nullptr;
    CPixmap* fSource = nullptr;
    std::int32_t fDestFirstPlane = 0;
    std::int32_t fDestPlaneCount = -1;
    std::int32_t fSourceFirstPlane = 0;
    std::int32_t fSourcePlaneCount = -1;
    std::int32_t fStepsAcross = 0;
    std::int32_t fStepsDown = 0;
};

} // namespace Kesto
