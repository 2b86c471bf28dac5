#include "support/bad_files.h"

namespace Testing {
namespace {

EIFrame SmallFrame(uint8_t bitDepth, uint8_t frameType, uint8_t alphaDepth)
{
    return SmallFrame(EILayout{"", bitDepth, frameType, alphaDepth, 0, 0});
}

Bytes Cut(Bytes file, size_t size)
{
    file.resize(size);
    return file;
}

Bytes With(EIFrame frame, void (*change)(EIFrame&))
{
    change(frame);
    return OneFrameFile(frame);
}

} // namespace

EIFrame SmallFrame(const EILayout& layout)
{
    EIFrame frame{.layout = layout, .width = 2, .height = 1};
    frame.pixels.assign(layout.RowBytes(2) + 1, 7);
    return frame;
}

std::vector<BadFile> BadFiles()
{
    const EIFrame good = SmallFrame(Layout("rgb24"));
    const Bytes whole = OneFrameFile(good);
    const char* const depthAlert = "Unknown bit depth, contact author";
    std::vector<BadFile> files = {
        {"empty file", {}},
        {"ends in the file header", Cut(whole, 5)},
        {"version 256", EIFileBuilder({.version = 0x100}).Add(good).Build()},
        {"no frames", EIFileBuilder({.frameCount = 0}).Add(good).Build()},
        {"ends before the frame", Cut(whole, 6)},
        {"ends in the frame header", Cut(whole, 37)},
        {"frame type 3", OneFrameFile(SmallFrame(24, 3, 0))},
        {"no data", With(good, [](EIFrame& f) { f.dataSize = 0; })},
        {"packing 2", With(good, [](EIFrame& f) { f.packing = 2; }), "Unknown frame packing, contact author"},
        {"alpha beside 16 bits", OneFrameFile(SmallFrame(16, 0, 8))},
        {"odd alpha beside 8 bits", OneFrameFile(SmallFrame(8, 1, 3))},
        {"alpha of 4 bits", OneFrameFile(SmallFrame(24, 0, 4)), "Unknown alpha depth, contact author"},
        {"ends in the colour table", Cut(With(good, [](EIFrame& f) { f.lut.assign(9, 1); }), 46)},
        {"ends in the range", Cut(OneFrameFile(SmallFrame(Layout("depth32"))), 49)},
        {"depth of 16 bits", OneFrameFile(SmallFrame(16, 2, 0))},
        {"depth of 24 bits", OneFrameFile(SmallFrame(24, 2, 0))},
    };
    for (const uint8_t depth : {0, 3, 5, 7, 9, 12, 15, 40, 48, 64, 255})
        files.push_back({"depth " + std::to_string(depth), OneFrameFile(SmallFrame(depth, 0, 0)), depthAlert});
    return files;
}

} // namespace Testing
