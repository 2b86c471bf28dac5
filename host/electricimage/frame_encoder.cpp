#include "electricimage/frame_encoder.h"

#include "electricimage/colour_table.h"
#include "failure.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

namespace Host {
namespace {

constexpr size_t kLongestPacket = 128;
constexpr uint8_t kLiteralBias = 0x7F;
constexpr int32_t kLargestSide = std::numeric_limits<int16_t>::max();

// Turns rows of a picture into rows of a frame.
class RowConverter {
public:
    virtual ~RowConverter() = default;
    virtual EIFrameFields Layout() const = 0; // without bounds and sizes
    virtual void Convert(const uint8_t* row, uint8_t* out) = 0;
    virtual const Palette* Colours() const { return nullptr; }
};

class IndexedRows final : public RowConverter {
public:
    IndexedRows(PictureSource& picture, const FrameOptions& options, const std::string& name)
        : fInfo(picture.Info()), fBits(options.indexBits),
          fTable(picture, fBits, options.reduce, name), fIndices(static_cast<size_t>(fInfo.width))
    {
    }

    EIFrameFields Layout() const override
    {
        EIFrameFields fields;
        fields.bitDepth = static_cast<uint8_t>(fBits);
        fields.frameType = 1;
        fields.lutCount = static_cast<uint16_t>(1 << fBits);
        return fields;
    }

    // The first pixel goes to the top bits of a byte.
    void Convert(const uint8_t* row, uint8_t* out) override
    {
        fTable.Convert(fInfo, row, fIndices.data());
        std::fill_n(out, (fIndices.size() * static_cast<size_t>(fBits) + 7) / 8, uint8_t{0});
        size_t bit = 0;
        for (const uint8_t index : fIndices) {
            out[bit / 8] = static_cast<uint8_t>(
                out[bit / 8] | index << (8 - static_cast<size_t>(fBits) - bit % 8));
            bit += static_cast<size_t>(fBits);
        }
    }

    const Palette* Colours() const override { return &fTable.Colours(); }

private:
    PictureInfo fInfo;
    int fBits;
    ColourTable fTable;
    std::vector<uint8_t> fIndices;
};

// One pixel as 8-bit red, green, blue and alpha.
std::array<uint8_t, 4> PixelAt(const PictureInfo& info, const uint8_t* row, int32_t x)
{
    const uint8_t* pixel = row + static_cast<size_t>(x) * static_cast<size_t>(info.planes);
    if (info.planes == 1)
        return {info.palette.red[*pixel], info.palette.green[*pixel], info.palette.blue[*pixel],
                255};
    return {pixel[0], pixel[1], pixel[2], info.planes == 4 ? pixel[3] : uint8_t{255}};
}

class DirectRows final : public RowConverter {
public:
    DirectRows(const PictureInfo& info, int bits) : fInfo(info), fBits(bits) {}

    EIFrameFields Layout() const override
    {
        EIFrameFields fields;
        fields.bitDepth = static_cast<uint8_t>(fBits == 32 ? 24 : fBits);
        fields.alphaDepth = fBits == 32 ? 8 : 0;
        return fields;
    }

    void Convert(const uint8_t* row, uint8_t* out) override
    {
        for (int32_t x = 0; x < fInfo.width; ++x) {
            const auto [red, green, blue, alpha] = PixelAt(fInfo, row, x);
            if (fBits == 16) {
                const int word = Five(red) << 10 | Five(green) << 5 | Five(blue);
                *out++ = static_cast<uint8_t>(word);
                *out++ = static_cast<uint8_t>(word >> 8);
                continue;
            }
            if (fBits == 32)
                *out++ = alpha;
            *out++ = red;
            *out++ = green;
            *out++ = blue;
        }
    }

private:
    static int Five(int level) { return (level * 31 + 127) / 255; }

    PictureInfo fInfo;
    int fBits;
};

class DepthRows final : public RowConverter {
public:
    DepthRows(const PictureInfo& info, const FrameOptions& options, const std::string& name)
        : fWidth(info.width)
    {
        if (info.mode != PictureMode::kGrayscale)
            throw Failure(name + " is " + KindOf(info) +
                              "; a depth frame is made of a grey picture",
                          "Convert the picture to grey first.", kHostBadMode);
        const double span = double{options.range.maximum} - double{options.range.minimum};
        for (size_t level = 0; level < fDepths.size(); ++level)
            fDepths[level] = static_cast<float>(double{options.range.minimum} +
                                                span * static_cast<double>(level) / 255.0);
        if (options.infiniteWhite)
            fDepths[255] = std::numeric_limits<float>::infinity();
    }

    EIFrameFields Layout() const override
    {
        EIFrameFields fields;
        fields.bitDepth = 32;
        fields.frameType = kEIDepthFrame;
        return fields;
    }

    void Convert(const uint8_t* row, uint8_t* out) override
    {
        for (int32_t x = 0; x < fWidth; ++x, out += sizeof(float))
            std::memcpy(out, &fDepths[row[x]], sizeof(float));
    }

private:
    int32_t fWidth;
    std::array<float, 256> fDepths = {};
};

std::unique_ptr<RowConverter> MakeConverter(PictureSource& picture, const FrameOptions& options,
                                            const std::string& name)
{
    const PictureInfo& info = picture.Info();
    switch (options.kind) {
    case FrameKind::kIndexed:
        return std::make_unique<IndexedRows>(picture, options, name);
    case FrameKind::kRgb16:
        return std::make_unique<DirectRows>(info, 16);
    case FrameKind::kRgb24:
        return std::make_unique<DirectRows>(info, 24);
    case FrameKind::kRgba32:
        return std::make_unique<DirectRows>(info, 32);
    case FrameKind::kDepth:
        return std::make_unique<DepthRows>(info, options, name);
    case FrameKind::kAuto:
        break;
    }
    if (info.planes > 1)
        return std::make_unique<DirectRows>(info, info.planes * 8);
    return std::make_unique<IndexedRows>(picture, options, name);
}

} // namespace

void PackRow(const uint8_t* row, size_t bytes, size_t unit,
             const std::function<void(const void*, size_t)>& put)
{
    const size_t units = bytes / unit;
    const auto same = [&](size_t a, size_t b) {
        return std::memcmp(row + a * unit, row + b * unit, unit) == 0;
    };
    for (size_t at = 0; at < units;) {
        size_t count = 1;
        const bool run = at + 1 < units && same(at, at + 1);
        // A literal ends before two equal pixels, where a run begins.
        const auto goesOn = [&] {
            const size_t next = at + count;
            return run ? same(at, next) : next + 1 == units || !same(next, next + 1);
        };
        while (count < kLongestPacket && at + count < units && goesOn())
            ++count;
        const auto control = static_cast<uint8_t>(run ? count - 1 : count + kLiteralBias);
        put(&control, 1);
        put(row + at * unit, run ? unit : count * unit);
        at += count;
    }
}

FrameEncoder::FrameEncoder(const std::filesystem::path& path, uint32_t frameCount)
    : fPending(path), fName(TextOf(path))
{
    RawFile file;
    Require(fPending.Create(file), fName);
    fFile.emplace(std::move(file), kHostOpenToWrite);
    const auto header = EncodeFileHeader({5, frameCount});
    Put(header.data(), header.size());
}

void FrameEncoder::Append(PictureSource& picture, const FrameOptions& options,
                          const std::string& name)
{
    const PictureInfo& info = picture.Info();
    if (info.width > kLargestSide || info.height > kLargestSide)
        throw Failure(name + " is too large for a frame: " + std::to_string(info.width) + " x " +
                          std::to_string(info.height) + ", the limit is 32767",
                      "Make it smaller.", kHostBadMode);
    const std::unique_ptr<RowConverter> converter = MakeConverter(picture, options, name);
    EIFrameFields fields = converter->Layout();
    fields.bottom = static_cast<int16_t>(info.height);
    fields.right = static_cast<int16_t>(info.width);
    fields.packing = options.raw ? 0 : 1;

    const int64_t headerAt = fFile->Position();
    const auto blank = EncodeFrameHeader(fields);
    Put(blank.data(), blank.size());
    if (const Palette* colours = converter->Colours())
        for (size_t i = 0; i < fields.lutCount; ++i) {
            const std::array<uint8_t, 3> entry = {colours->red[i], colours->green[i],
                                                  colours->blue[i]};
            Put(entry.data(), entry.size());
        }
    // The range block counts as data: the next frame is looked for after the data and the colour
    // table only.
    const int64_t dataAt = fFile->Position();
    if (fields.frameType == kEIDepthFrame) {
        const auto range = EncodeRange(options.storeRange ? options.range : EIRange{});
        Put(range.data(), range.size());
    }
    const size_t bits = static_cast<size_t>(fields.PixelBits());
    std::vector<uint8_t> row((static_cast<size_t>(info.width) * bits + 7) / 8);
    for (int32_t y = 0; y < info.height; ++y) {
        converter->Convert(picture.Row(y), row.data());
        PutRow(row.data(), row.size(), std::max<size_t>(bits / 8, 1), options.raw);
    }

    const int64_t end = fFile->Position();
    if (end - dataAt > std::numeric_limits<uint32_t>::max())
        throw Failure(name + " makes a frame of more than 4 GB", "Make the picture smaller.",
                      kHostBadMode);
    fields.dataSize = static_cast<uint32_t>(end - dataAt);
    const auto header = EncodeFrameHeader(fields);
    Require(fFile->Seek(kHostSeekFromStart, headerAt), fName);
    Put(header.data(), header.size());
    Require(fFile->Seek(kHostSeekFromStart, end), fName);
}

void FrameEncoder::Finish()
{
    Require(fFile->Close(), fName);
    Require(fPending.Commit(), fName);
}

void FrameEncoder::Put(const void* bytes, size_t count)
{
    Require(fFile->Write(static_cast<int64_t>(count), bytes), fName);
}

void FrameEncoder::PutRow(const uint8_t* row, size_t bytes, size_t unit, bool raw)
{
    if (raw)
        Put(row, bytes);
    else
        PackRow(row, bytes, unit, [this](const void* packet, size_t count) { Put(packet, count); });
}

} // namespace Host
