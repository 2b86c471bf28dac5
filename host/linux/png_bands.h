// Packs the rows of a PNG picture on all processors: bands of rows become pieces of one zlib
// stream, each packed on its own, with a point between them where a reader needs nothing from
// before.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <future>
#include <span>
#include <vector>

namespace Host {

struct PngBandLayout {
    size_t rowBytes;
    size_t pixelBytes;
    bool indexed; // neighbouring indices tell nothing of each other: rows stay unfiltered
    int level;    // of zlib, 0 to 9; at 1 the rows are only filtered and packed by runs and
                  // frequencies
};

class PngBands {
public:
    // `put` receives the stream piece by piece, in order, in calls of AddRows and Finish; it may
    // throw.
    using Put = std::function<void(std::span<const uint8_t>)>;
    PngBands(const PngBandLayout& layout, Put put);

    // The rows are copied.
    void AddRows(const uint8_t* rows, size_t stride, int32_t count);

    // Packs what is left and ends the stream.
    void Finish();

private:
    // Rows side by side, and the row before them: filters look at it.
    struct Band {
        std::vector<uint8_t> before;
        std::vector<uint8_t> rows;
        bool last = false;
    };
    struct Piece {
        std::vector<uint8_t> bytes;
        uint32_t checksum = 0;
        size_t length = 0; // of what was packed
    };

    static std::vector<uint8_t> Filter(const PngBandLayout& layout, const Band& band);
    static Piece Pack(const PngBandLayout& layout, const Band& band);
    void Submit(bool last);
    void PutOldest();

    PngBandLayout fLayout;
    Put fPut;
    size_t fBandBytes;
    Band fBand;
    std::deque<std::future<Piece>> fPacking;
    uint32_t fChecksum = 1; // of all that was put, as zlib ends its stream with
};

} // namespace Host
