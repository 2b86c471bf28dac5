// Pictures made in memory, and picture files read back whole.
#pragma once

#include "pictures/picture_files.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

namespace Host {

using Bytes = std::vector<uint8_t>;

// A picture whose bytes come from a function of row and byte in the row.
class MadePicture final : public PictureSource {
public:
    using Content = std::function<int(int32_t y, int32_t at)>;
    MadePicture(PictureMode mode, int32_t width, int32_t height, int32_t planes, Content content)
        : fInfo{mode, width, height, planes, Palette::Grays()}, fContent(std::move(content)),
          fRow(fInfo.RowBytes())
    {
    }

    PictureInfo& Info() { return fInfo; }
    const PictureInfo& Info() const override { return fInfo; }
    const uint8_t* Row(int32_t y) override
    {
        for (size_t i = 0; i < fRow.size(); ++i)
            fRow[i] = static_cast<uint8_t>(fContent(y, static_cast<int32_t>(i)));
        return fRow.data();
    }

private:
    PictureInfo fInfo;
    Content fContent;
    Bytes fRow;
};

// Keeps the bytes of the rows that it is given.
class KeptPicture final : public PictureSink {
public:
    explicit KeptPicture(const PictureInfo& info = {}) : fInfo(info) {}

    void Begin(const PictureInfo& info) override { fInfo = info; }
    void PutRows(const uint8_t* rows, size_t stride, int32_t count) override
    {
        for (; count > 0; --count, rows += stride)
            fPixels.insert(fPixels.end(), rows, rows + fInfo.RowBytes());
    }
    void Finish() override {}

    Bytes fPixels;

private:
    PictureInfo fInfo;
};

inline Bytes AllPixels(PictureSource& picture)
{
    Bytes pixels;
    for (int32_t y = 0; y < picture.Info().height; ++y) {
        const uint8_t* row = picture.Row(y);
        pixels.insert(pixels.end(), row, row + picture.Info().RowBytes());
    }
    return pixels;
}

// Writes the picture as a file of the kind that the name tells.
inline void WritePicture(PictureSource& picture, const std::filesystem::path& path,
                         int compression = 1)
{
    const auto sink = CreatePicture(path, {compression});
    sink->Begin(picture.Info());
    for (int32_t y = 0; y < picture.Info().height; ++y)
        sink->PutRows(picture.Row(y), picture.Info().RowBytes(), 1);
    sink->Finish();
}

inline void WritePicture(MadePicture&& picture, const std::filesystem::path& path)
{
    WritePicture(picture, path);
}

// Runs, edges and noise, the same each time.
inline int Texture(int32_t y, int32_t at)
{
    return at % 40 < 20 ? y * 7 & 0xFF : (at * 31 + y * y * 17) >> 2 & 0xFF;
}

} // namespace Host
