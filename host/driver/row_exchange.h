// Rows that pass between a module and a picture.
//
// A module names a rectangle, a range of planes and where their bytes lie: pixelStride from pixel
// to pixel, rowStride from row to row, planeStride from plane to plane. planeOrder says which of
// the picture's planes each position holds.
#pragma once

#include "lumograph/records.h"
#include "pictures/picture.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace Host {

// What exchangeRows asks for, checked against the picture.
struct Exchange {
    uint8_t* bytes;
    int32_t top, left, bottom, right;
    int32_t firstPlane, lastPlane;
    ptrdiff_t pixelStride, rowStride, planeStride;
    std::array<int16_t, 4> order; // the picture's plane at each position

    // Throws Failure for a rectangle or planes outside the picture, an order that names no plane,
    // or rows without an address.
    static Exchange Of(const HostFormatRecord& record, const PictureInfo& info);

    // All planes of whole rows, pixel by pixel, as pictures have them; but for their order.
    bool IsWholeRows(const PictureInfo& info) const;
    bool IsPlainOrder(const PictureInfo& info) const;
};

// Takes a module's rows and hands them to a sink from the top down. Whole rows in their order go
// straight through; what comes in another way (plane by plane, column by column, out of order) is
// gathered in memory first.
class RowDelivery {
public:
    RowDelivery(const PictureInfo& info, PictureSink& sink) : fInfo(info), fSink(sink) {}

    void Take(const Exchange& exchange);

    // Hands over what was gathered. Throws Failure when rows are missing.
    void Finish();

    // Pixels that came, counted per plane, and each once however often it came.
    int64_t Delivered() const { return fDelivered; }
    bool IsComplete() const;

private:
    void PassReordered(const Exchange& exchange);
    void Gather(const Exchange& exchange);

    PictureInfo fInfo;
    PictureSink& fSink;
    int32_t fPassed = 0; // rows that the sink has
    int64_t fDelivered = 0;
    std::unique_ptr<uint8_t[]>
        fGathered;              // the rows from fPassed on, once something came in another way
    std::vector<bool> fCame;    // which samples of these there are
    std::vector<uint8_t> fBand; // rows in the picture's order of planes
};

// Fills a module's rows from a source.
void SupplyRows(const Exchange& exchange, PictureSource& source);

} // namespace Host
