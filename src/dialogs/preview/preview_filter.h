// What a preview asks of the filter whose effect it shows.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Project {

// Pixels of a preview, interleaved and packed; colour planes alone.
struct PreviewPixels {
    uint8_t* bytes;
    ptrdiff_t stride; // bytes from row to row
    int32_t width;
    int32_t height;
    int32_t planes;
    int32_t depth; // bits of a sample: 8, 16 or 32
    double scale;  // of these pixels for each of the document's
};

// Implemented by a plug-in, or by its dialog; it outlives the preview.
class PPreviewFilter {
public:
    // Fills `result` from `source`, which has the same size, by the settings as they are. False:
    // there is nothing to show but the source.
    virtual bool FilterPreview(const PreviewPixels& source, const PreviewPixels& result) = 0;

    // How far around a pixel the filter looks, in pixels of the document.
    virtual int32_t PreviewReach() const { return 0; }

protected:
    ~PPreviewFilter() = default;
};

} // namespace Project
