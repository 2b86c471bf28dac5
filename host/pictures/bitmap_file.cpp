#include "pictures/bitmap_file.h"

#include "pictures/picture_files.h"

namespace Host {

BitmapCopy::BitmapCopy(std::int32_t width, std::int32_t height, const std::uint8_t* pixels,
                       std::int64_t rowBytes)
    : fWidth(width), fHeight(height)
{
    fPixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
    for (std::int32_t y = 0; y < height; ++y)
        for (const std::uint8_t* at = pixels + y * rowBytes;
             at != pixels + y * rowBytes + width * 4; at += 4)
            fPixels.insert(fPixels.end(), {at[2], at[1], at[0]});
}

void WriteBitmap(const std::filesystem::path& path, const BitmapCopy& bitmap)
{
    PictureInfo info;
    info.width = bitmap.Width();
    info.height = bitmap.Height();
    const std::unique_ptr<PictureSink> sink = CreatePicture(path, {});
    sink->Begin(info);
    sink->PutRows(bitmap.Pixels().data(), info.RowBytes(), info.height);
    sink->Finish();
}

} // namespace Host
