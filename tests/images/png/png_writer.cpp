#include "images/png/png_writer.h"

#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <random>
#include <stdexcept>

namespace TestPNG {

namespace {

struct Lattice {
    std::int32_t x0, y0, dx, dy;
};
constexpr Lattice kWhole[] = {{0, 0, 1, 1}};
constexpr Lattice kAdam7[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                              {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};

void Append(Bytes& out, const Bytes& more)
{
    std::ranges::copy(more, std::back_inserter(out));
}

void Append32(Bytes& out, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<std::uint8_t>(value >> shift));
}

int Prediction(std::uint8_t filter, int left, int up, int corner)
{
    const int sum = left + up - corner;
    const auto isNearest = [&](int a, int b, int c) {
        return std::abs(sum - a) <= std::min(std::abs(sum - b), std::abs(sum - c));
    };
    const int paeth = isNearest(left, up, corner)   ? left
                      : isNearest(up, left, corner) ? up
                                                    : corner;
    const int predictions[] = {0, left, up, (left + up) / 2, paeth};
    return filter < 5 ? predictions[filter] : 0;
}

} // namespace

std::size_t Picture::Channels() const
{
    constexpr std::size_t kChannels[] = {1, 0, 3, 1, 2, 0, 4};
    return kChannels[colorType];
}

std::vector<Picture> EveryKind(std::int32_t width, std::int32_t height, std::uint32_t seed)
{
    std::minstd_rand random(seed + 1);
    const auto byte = [&] { return static_cast<std::uint8_t>(random() >> 8); };
    std::vector<Picture> kinds;
    for (const std::uint8_t colorType : {0, 2, 3, 4, 6}) {
        Picture picture{width, height, colorType, false, {}, {}, {}};
        picture.samples.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
                               picture.Channels());
        std::uint8_t last = 0;
        for (std::uint8_t& sample : picture.samples)
            sample = last = byte() % 2 != 0 ? last : byte();
        picture.palette.resize(colorType == 3 ? 768 : 0);
        std::ranges::generate(picture.palette, byte);
        Picture transparent = picture;
        for (std::uint8_t i = 0; i < 100 && colorType == 3; ++i)
            transparent.transparency.push_back(2 * i);
        for (std::size_t c = 0; c < picture.Channels() && colorType != 3; ++c)
            transparent.transparency.insert(transparent.transparency.end(),
                                            {0, picture.samples[c]});
        for (const bool interlaced : {false, true}) {
            picture.interlaced = transparent.interlaced = interlaced;
            if (colorType != 6 || !interlaced)
                kinds.push_back(picture);
            if (colorType < 4)
                kinds.push_back(transparent);
        }
    }
    return kinds;
}

Bytes FilteredRows(const Picture& picture, const Bytes& filters)
{
    Bytes out;
    const std::int32_t channels = static_cast<std::int32_t>(picture.Channels());
    const Lattice* lattice = picture.interlaced ? kAdam7 : kWhole;
    for (const Lattice* end = lattice + (picture.interlaced ? 7 : 1); lattice != end; ++lattice) {
        const std::int32_t x0 = lattice->x0, y0 = lattice->y0, dx = lattice->dx, dy = lattice->dy;
        if (x0 >= picture.width)
            continue;
        const auto sample = [&](std::int32_t x, std::int32_t y, std::int32_t c) -> int {
            const std::ptrdiff_t pixel = std::ptrdiff_t{y} * picture.width + x;
            return x < x0 || y < y0
                       ? 0
                       : picture.samples[static_cast<std::size_t>(pixel * channels + c)];
        };
        for (std::int32_t y = y0, row = 0; y < picture.height; y += dy, ++row) {
            const std::uint8_t filter = filters[static_cast<std::size_t>(row) % filters.size()];
            out.push_back(filter);
            for (std::int32_t x = x0; x < picture.width; x += dx)
                for (std::int32_t c = 0; c < channels; ++c)
                    out.push_back(static_cast<std::uint8_t>(sample(x, y, c) -
                                                            Prediction(filter, sample(x - dx, y, c),
                                                                       sample(x, y - dy, c),
                                                                       sample(x - dx, y - dy, c))));
        }
    }
    return out;
}

Bytes Signature()
{
    return {137, 'P', 'N', 'G', '\r', '\n', 26, '\n'};
}

Bytes Header(std::uint32_t width, std::uint32_t height, std::uint8_t depth, std::uint8_t colorType,
             std::uint8_t filterMethod, std::uint8_t interlaceMethod)
{
    Bytes payload;
    Append32(payload, width);
    Append32(payload, height);
    Append(payload, {depth, colorType, 0, filterMethod, interlaceMethod});
    return payload;
}

Bytes Chunk(std::string_view type, const Bytes& payload)
{
    Bytes body(type.begin(), type.end());
    Append(body, payload);
    Bytes chunk;
    Append32(chunk, static_cast<std::uint32_t>(payload.size()));
    Append(chunk, body);
    Append32(chunk,
             static_cast<std::uint32_t>(crc32(0, body.data(), static_cast<uInt>(body.size()))));
    return chunk;
}

Bytes Deflated(const Bytes& data, int level)
{
    uLongf size = compressBound(static_cast<uLong>(data.size()));
    Bytes out(size);
    if (compress2(out.data(), &size, data.data(), static_cast<uLong>(data.size()), level) != Z_OK)
        throw std::runtime_error("zlib did not compress the rows");
    out.resize(size);
    return out;
}

Bytes Joined(const std::vector<Bytes>& parts)
{
    Bytes all;
    for (const Bytes& part : parts)
        Append(all, part);
    return all;
}

Bytes FileOf(const Bytes& header, const std::vector<Bytes>& chunks)
{
    return Joined({Signature(), Chunk("IHDR", header), Joined(chunks), Chunk("IEND", {})});
}

Bytes Encoded(const Picture& picture, const Bytes& filters, std::size_t pieceBytes, int level)
{
    std::vector<Bytes> chunks;
    if (!picture.palette.empty())
        chunks.push_back(Chunk("PLTE", picture.palette));
    if (!picture.transparency.empty())
        chunks.push_back(Chunk("tRNS", picture.transparency));
    const Bytes data = Deflated(FilteredRows(picture, filters), level);
    for (auto from = data.begin(); from != data.end();) {
        const auto end =
            from + std::min(data.end() - from, static_cast<std::ptrdiff_t>(pieceBytes));
        chunks.push_back(Chunk("IDAT", Bytes(from, end)));
        from = end;
    }
    return FileOf(Header(static_cast<std::uint32_t>(picture.width),
                         static_cast<std::uint32_t>(picture.height), 8, picture.colorType, 0,
                         picture.interlaced ? 1 : 0),
                  chunks);
}

} // namespace TestPNG
