#include "support/ei_file.h"

#include "lumograph/lumograph.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace Testing {
namespace {

constexpr EILayout kLayouts[] = {
    {"indexed1", 1, 1, 0, kHostModeIndexed, 1},  {"indexed2", 2, 1, 0, kHostModeIndexed, 1},
    {"indexed4", 4, 1, 0, kHostModeIndexed, 1},  {"indexed8", 8, 1, 0, kHostModeIndexed, 1},
    {"rgb16", 16, 0, 0, kHostModeRGB, 3},        {"rgb24", 24, 0, 0, kHostModeRGB, 3},
    {"argb32", 32, 0, 0, kHostModeRGB, 4},       {"rgb24alpha8", 24, 0, 8, kHostModeRGB, 4},
    {"depth32", 32, 2, 0, kHostModeGrayscale, 1}};

void Append(Bytes& out, uint64_t value, int bytes)
{
    while (bytes-- > 0)
        out.push_back(static_cast<uint8_t>(value >> (8 * bytes)));
}

void AppendFrame(Bytes& out, const EIFrame& frame)
{
    const bool depth = frame.layout.frameType == 2;
    const auto entries = static_cast<uint16_t>(frame.lut.size() / 3);
    Append(out, 0, 8);
    Append(out, static_cast<uint16_t>(frame.height), 2);
    Append(out, static_cast<uint16_t>(frame.width), 2);
    out.insert(out.end(), {frame.layout.bitDepth, frame.layout.frameType});
    for (const int bound :
         {int{frame.top}, int{frame.left}, frame.top + frame.height, frame.left + frame.width})
        Append(out, static_cast<uint16_t>(bound), 2);
    out.insert(out.end(), {frame.packing, frame.layout.alphaDepth});
    Append(out,
           frame.dataSize.value_or(static_cast<uint32_t>(frame.pixels.size() + (depth ? 12 : 0))),
           4);
    Append(out, frame.lutCount.value_or(entries), 2);
    Append(out, 0, 2);
    const Bytes range = FloatBytes({0.0F, frame.low, frame.high});
    const Bytes& table = depth ? range : frame.lut;
    out.insert(out.end(), table.begin(), table.end());
    out.insert(out.end(), frame.pixels.begin(), frame.pixels.end());
}

// One pixel of a decoded row as the host's planes hold it.
void PutPixel(Picture& picture, const EIFrame& frame, const uint8_t* row, int x, int y)
{
    const int bits = frame.layout.Bits();
    const auto unit = frame.layout.Unit();
    const uint8_t* pixel = row + static_cast<size_t>(x) * unit;
    if (bits <= 8) {
        const int place = 8 - bits - (x * bits) % 8;
        picture.At(x, y, 0) =
            static_cast<uint8_t>((row[x * bits / 8] >> place) & ((1 << bits) - 1));
    } else if (frame.layout.frameType == 2) {
        float value;
        std::memcpy(&value, pixel, sizeof value);
        const float scaled = (value - frame.low) * (255.0F / (frame.high - frame.low)) + 0.5F;
        picture.At(x, y, 0) = static_cast<uint8_t>(
            std::isinf(value) && value > 0 ? 255.0F : std::clamp(scaled, 0.0F, 255.0F));
    } else if (bits == 16) {
        const int word = pixel[0] | pixel[1] << 8;
        for (int plane = 0; plane < 3; ++plane) {
            const int five = (word >> (10 - 5 * plane)) & 31;
            picture.At(x, y, plane) = static_cast<uint8_t>(five << 3 | five >> 2);
        }
    } else {
        for (int plane = 0; plane < 3; ++plane)
            picture.At(x, y, plane) = pixel[plane + (bits == 32)];
        if (bits == 32)
            picture.At(x, y, 3) = pixel[0];
    }
}

int Between(int low, int high, Random& random)
{
    return std::uniform_int_distribution(low, high)(random);
}

} // namespace

std::span<const EILayout> AllLayouts()
{
    return kLayouts;
}

const EILayout& Layout(const std::string& name)
{
    return *std::ranges::find(kLayouts, name, &EILayout::name);
}

Bytes FileOf(const std::vector<EIFrame>& frames, uint16_t version,
             std::optional<uint32_t> frameCount)
{
    Bytes out;
    Append(out, version, 2);
    Append(out, frameCount.value_or(static_cast<uint32_t>(frames.size())), 4);
    for (const EIFrame& frame : frames)
        AppendFrame(out, frame);
    return out;
}

Bytes OneFrameFile(const EIFrame& frame)
{
    return FileOf({frame});
}

Bytes FloatBytes(const std::vector<float>& values)
{
    Bytes bytes(values.size() * sizeof(float));
    std::memcpy(bytes.data(), values.data(), bytes.size());
    return bytes;
}

Bytes RandomRows(const EILayout& layout, int width, int height, Random& random)
{
    const size_t unit = layout.Unit();
    Bytes rows(layout.RowBytes(width) * static_cast<size_t>(height));
    for (size_t at = 0; at < rows.size(); at += unit) {
        if (at > 0 && Between(0, 3, random) != 0) {
            std::copy_n(rows.begin() + static_cast<ptrdiff_t>(at - unit), unit,
                        rows.begin() + static_cast<ptrdiff_t>(at));
        } else if (layout.frameType == 2) {
            const int kind = Between(0, 9, random);
            const float value = kind == 0 ? std::numeric_limits<float>::infinity()
                                          : static_cast<float>(Between(-64, 320, random)) / 256.0F;
            std::memcpy(&rows[at], &value, sizeof value);
        } else {
            std::generate_n(rows.begin() + static_cast<ptrdiff_t>(at), unit,
                            [&] { return static_cast<uint8_t>(Between(0, 255, random)); });
        }
    }
    return rows;
}

Bytes RandomLut(int entries, Random& random)
{
    Bytes lut(static_cast<size_t>(entries) * 3);
    std::ranges::generate(lut, [&] { return static_cast<uint8_t>(Between(0, 255, random)); });
    return lut;
}

std::vector<EIFrame> SmallFrames()
{
    Random random(5);
    std::vector<EIFrame> frames;
    for (const EILayout& layout : AllLayouts()) {
        EIFrame frame{.layout = layout, .width = 9, .height = 6, .lut = {1, 2, 3, 4, 5, 6}};
        frame.pixels = RandomRows(layout, 9, 6, random);
        frames.push_back(frame);
        frame.packing = 1;
        frame.high = frame.low;
        frame.pixels = EncodeRow(frame.pixels, layout.Unit());
        frames.push_back(frame);
    }
    return frames;
}

std::optional<Bytes> DecodePackets(std::span<const uint8_t> stream, size_t unit, size_t size)
{
    Bytes out;
    size_t at = 0;
    while (out.size() < size) {
        if (at >= stream.size())
            return std::nullopt;
        const uint8_t control = stream[at++];
        const size_t count = (control & 0x7Fu) + 1;
        for (size_t i = 0; i < count && out.size() < size; ++i) {
            if (at + unit > stream.size())
                return std::nullopt;
            out.insert(out.end(), &stream[at], &stream[at] + unit);
            at += control >= 0x80 ? unit : 0;
        }
        at += control >= 0x80 ? 0 : unit;
    }
    return out;
}

Bytes EncodeRow(std::span<const uint8_t> row, size_t unit, uint8_t behind)
{
    Bytes pixels(row.begin(), row.end());
    pixels.resize(row.size() + unit, behind);
    const size_t end = row.size() / unit;
    const auto equal = [&](size_t a, size_t b) {
        return std::equal(&pixels[a * unit], &pixels[a * unit] + unit, &pixels[b * unit]);
    };
    Bytes packets;
    for (size_t at = 0; at < end;) {
        const bool run = at + 1 < end && equal(at, at + 1);
        size_t count = 1;
        while (at + count < end &&
               (run ? equal(at, at + count) : !equal(at + count, at + count + 1)))
            ++count;
        for (size_t length; count > 0; count -= length, at += length) {
            length = std::min<size_t>(count, 128);
            packets.push_back(static_cast<uint8_t>(length - 1 + (run ? 0 : 0x80)));
            const auto* const first = &pixels[at * unit];
            packets.insert(packets.end(), first, first + (run ? 1 : length) * unit);
        }
    }
    return packets;
}

Picture PictureOf(const EIFrame& frame, std::span<const uint8_t> rows)
{
    Picture picture(frame.layout.mode, frame.width, frame.height, frame.layout.planes);
    const size_t rowBytes = frame.layout.RowBytes(frame.width);
    for (int y = 0; y < frame.height; ++y)
        for (int x = 0; x < frame.width; ++x)
            PutPixel(picture, frame, rows.data() + static_cast<size_t>(y) * rowBytes, x, y);
    for (size_t i = 0; i < std::min<size_t>(256, frame.lut.size() / 3); ++i)
        for (size_t part = 0; part < 3; ++part)
            picture.lut[part][i] = frame.lut[3 * i + part];
    return picture;
}

} // namespace Testing
