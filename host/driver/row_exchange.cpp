#include "driver/row_exchange.h"

#include "failure.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace Host {
namespace {

Failure BadExchange(const std::string& what)
{
    return Failure("the module's exchange of rows names " + what,
                   "This is a fault of the module; please report it.", kHostBadParameter);
}

// The bytes of one row of `width` four-byte pixels, turned so that position i goes to plane
// order[i].
void Reorder(uint8_t* to, const uint8_t* from, int32_t width, const std::array<int16_t, 4>& order)
{
    if (order == std::array<int16_t, 4>{3, 0, 1, 2}) {
        for (int32_t x = 0; x < width; ++x) {
            uint32_t pixel = 0; // alpha first becomes alpha last
            std::memcpy(&pixel, from + 4 * x, 4);
            pixel = pixel >> 8 | pixel << 24;
            std::memcpy(to + 4 * x, &pixel, 4);
        }
        return;
    }
    for (int32_t x = 0; x < width; ++x)
        for (size_t i = 0; i < order.size(); ++i)
            to[4 * x + order[i]] = from[4 * x + static_cast<int32_t>(i)];
}

// Calls `move(moduleByte, pictureRow, pictureIndex)` for each sample of one row of the exchange.
template <class Move>
void ForEachSample(const Exchange& exchange, const PictureInfo& info, int32_t y, const Move& move)
{
    uint8_t* row = exchange.bytes + (y - exchange.top) * exchange.rowStride;
    for (int32_t plane = exchange.firstPlane; plane <= exchange.lastPlane; ++plane) {
        uint8_t* sample = row + (plane - exchange.firstPlane) * exchange.planeStride;
        const int32_t target = exchange.order[static_cast<size_t>(plane)];
        for (int32_t x = exchange.left; x < exchange.right; ++x, sample += exchange.pixelStride)
            move(*sample, static_cast<size_t>(x) * static_cast<size_t>(info.planes) +
                              static_cast<size_t>(target));
    }
}

} // namespace

Exchange Exchange::Of(const HostFormatRecord& record, const PictureInfo& info)
{
    const HostRect16 rect = record.exchangeRect;
    Exchange exchange = {static_cast<uint8_t*>(record.rowsAddress),
                         rect.top,
                         rect.left,
                         rect.bottom,
                         rect.right,
                         record.firstPlane,
                         record.lastPlane,
                         record.pixelStride,
                         record.rowStride,
                         record.planeStride,
                         {}};
    if (!exchange.bytes)
        throw BadExchange("no rows: rowsAddress is null");
    if (rect.top < 0 || rect.left < 0 || rect.bottom < rect.top || rect.right < rect.left ||
        rect.bottom > info.height || rect.right > info.width)
        throw BadExchange("a rectangle outside the picture: " + std::to_string(rect.left) + ", " +
                          std::to_string(rect.top) + " to " + std::to_string(rect.right) + ", " +
                          std::to_string(rect.bottom));
    if (exchange.firstPlane < 0 || exchange.lastPlane >= info.planes ||
        exchange.firstPlane > exchange.lastPlane)
        throw BadExchange(
            "planes that the picture hasn't got: " + std::to_string(exchange.firstPlane) + " to " +
            std::to_string(exchange.lastPlane));
    // The record has room for four planes; what stands behind those of the picture is never used.
    for (size_t i = 0; i < exchange.order.size(); ++i) {
        exchange.order[i] = record.planeOrder[i];
        if (i < static_cast<size_t>(info.planes) &&
            (exchange.order[i] < 0 || exchange.order[i] >= info.planes))
            throw BadExchange("a plane order without that plane: " +
                              std::to_string(exchange.order[i]));
    }
    return exchange;
}

bool Exchange::IsWholeRows(const PictureInfo& info) const
{
    return left == 0 && right == info.width && firstPlane == 0 && lastPlane == info.planes - 1 &&
           pixelStride == info.planes && planeStride == 1;
}

bool Exchange::IsPlainOrder(const PictureInfo& info) const
{
    for (int16_t i = 0; i < info.planes; ++i)
        if (order[static_cast<size_t>(i)] != i)
            return false;
    return true;
}

void RowDelivery::Take(const Exchange& exchange)
{
    const int32_t rows = exchange.bottom - exchange.top;
    const bool next = !fGathered && exchange.top == fPassed && exchange.IsWholeRows(fInfo) &&
                      exchange.rowStride > 0;
    if (next && exchange.IsPlainOrder(fInfo))
        fSink.PutRows(exchange.bytes, static_cast<size_t>(exchange.rowStride), rows);
    else if (next && fInfo.planes == 4)
        PassReordered(exchange);
    else
        return Gather(exchange);
    fPassed += rows;
    fDelivered += int64_t{rows} * fInfo.width * fInfo.planes;
}

void RowDelivery::PassReordered(const Exchange& exchange)
{
    fBand.resize(fInfo.RowBytes());
    for (int32_t y = exchange.top; y < exchange.bottom; ++y) {
        Reorder(fBand.data(), exchange.bytes + (y - exchange.top) * exchange.rowStride, fInfo.width,
                exchange.order);
        fSink.PutRows(fBand.data(), fBand.size(), 1);
    }
}

void RowDelivery::Gather(const Exchange& exchange)
{
    if (exchange.top < fPassed)
        throw BadExchange("row " + std::to_string(exchange.top) +
                          ", which it has delivered before");
    // Rows before this one are with the sink already; only what is left is gathered.
    if (!fGathered) {
        const size_t samples = fInfo.RowBytes() * static_cast<size_t>(fInfo.height - fPassed);
        fGathered = std::make_unique<uint8_t[]>(samples);
        fCame.resize(samples);
    }
    for (int32_t y = exchange.top; y < exchange.bottom; ++y) {
        const size_t row = static_cast<size_t>(y - fPassed) * fInfo.RowBytes();
        ForEachSample(exchange, fInfo, y, [&](uint8_t sample, size_t at) {
            fGathered[row + at] = sample;
            fDelivered += fCame[row + at] ? 0 : 1;
            fCame[row + at] = true;
        });
    }
}

bool RowDelivery::IsComplete() const
{
    return fDelivered >= int64_t{fInfo.width} * fInfo.height * fInfo.planes;
}

void RowDelivery::Finish()
{
    if (!IsComplete())
        throw Failure("the module delivered " + std::to_string(fDelivered) + " of " +
                          std::to_string(int64_t{fInfo.width} * fInfo.height * fInfo.planes) +
                          " samples",
                      "This is a fault of the module; please report it.");
    if (fGathered)
        fSink.PutRows(fGathered.get(), fInfo.RowBytes(), fInfo.height - fPassed);
}

void SupplyRows(const Exchange& exchange, PictureSource& source)
{
    const PictureInfo& info = source.Info();
    const bool plain = exchange.IsWholeRows(info) && exchange.IsPlainOrder(info);
    for (int32_t y = exchange.top; y < exchange.bottom; ++y) {
        const uint8_t* row = source.Row(y);
        if (plain)
            std::memcpy(exchange.bytes + (y - exchange.top) * exchange.rowStride, row,
                        info.RowBytes());
        else
            ForEachSample(exchange, info, y,
                          [row](uint8_t& sample, size_t at) { sample = row[at]; });
    }
}

} // namespace Host
