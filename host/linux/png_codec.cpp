// PNG through libpng; the pixels of written pictures are packed by PngBands. libpng reports errors
// by a jump back to setjmp: the functions that set one hold no objects that need an end of their
// own, and what outlives the jump is a member of the class.
#include "pictures/png_codec.h"

#include "failure.h"
#include "files/buffered_file.h"
#include "files/pending_file.h"
#include "linux/png_bands.h"

#include <algorithm>
#include <csetjmp>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <png.h>

namespace Host {
namespace {

// Keeps libpng's words; the jump then leads back into Guarded.
void KeepError(png_structp png, png_const_charp text)
{
    *static_cast<std::string*>(png_get_error_ptr(png)) = text;
    png_longjmp(png, 1);
}

void IgnoreWarning(png_structp, png_const_charp) {}

// Runs `calls`, which hold calls of libpng only. False when libpng gave up.
template <class Calls>
bool Guarded(png_structp png, const Calls& calls)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    calls();
    return true;
}

class PngSource final : public PictureSource {
public:
    explicit PngSource(const std::filesystem::path& path) : fName(TextOf(path))
    {
        RawFile file;
        Require(file.OpenToRead(path), fName);
        fFile.emplace(std::move(file), kHostOpenToRead);
        fPng = png_create_read_struct(PNG_LIBPNG_VER_STRING, &fError, KeepError, IgnoreWarning);
        fHeader = fPng ? png_create_info_struct(fPng) : nullptr;
        if (!fHeader)
            throw std::bad_alloc();
        png_set_read_fn(fPng, &*fFile, ReadBytes);
        RequirePng(Guarded(fPng, [&] { ReadHeader(); }));
    }

    ~PngSource() override { png_destroy_read_struct(&fPng, &fHeader, nullptr); }

    const PictureInfo& Info() const override { return fInfo; }

    const uint8_t* Row(int32_t y) override
    {
        if (!fPixels)
            ReadPixels();
        return fPixels.get() + static_cast<size_t>(y) * fInfo.RowBytes();
    }

private:
    static void ReadBytes(png_structp png, png_bytep bytes, size_t size)
    {
        int64_t count = static_cast<int64_t>(size);
        if (static_cast<BufferedFile*>(png_get_io_ptr(png))->Read(count, bytes) != kHostNoError)
            png_error(png, "the file ends too early");
    }

    void ReadHeader()
    {
        png_read_info(fPng, fHeader);
        const int type = png_get_color_type(fPng, fHeader);
        const bool transparent = png_get_valid(fPng, fHeader, PNG_INFO_tRNS) != 0;
        const bool alpha = transparent || (type & PNG_COLOR_MASK_ALPHA) != 0;
        png_set_scale_16(fPng);
        png_set_packing(fPng);
        // A picture with alpha becomes RGBA in all, since the host has no grey with alpha; without
        // it indices and greys stay what they are, a byte each.
        if (alpha)
            png_set_expand(fPng);
        else if (type == PNG_COLOR_TYPE_GRAY)
            png_set_expand_gray_1_2_4_to_8(fPng);
        if (alpha && (type & PNG_COLOR_MASK_COLOR) == 0)
            png_set_gray_to_rgb(fPng);
        png_set_interlace_handling(fPng);
        png_read_update_info(fPng, fHeader);
        DescribePicture(alpha, type);
    }

    void DescribePicture(bool alpha, int type)
    {
        fInfo.width = static_cast<int32_t>(png_get_image_width(fPng, fHeader));
        fInfo.height = static_cast<int32_t>(png_get_image_height(fPng, fHeader));
        fInfo.planes = png_get_channels(fPng, fHeader);
        fInfo.palette = Palette::Grays();
        fInfo.mode = PictureMode::kRgb;
        if (!alpha && type == PNG_COLOR_TYPE_GRAY)
            fInfo.mode = PictureMode::kGrayscale;
        if (!alpha && type == PNG_COLOR_TYPE_PALETTE)
            ReadPalette();
    }

    void ReadPalette()
    {
        png_colorp colours = nullptr;
        int count = 0;
        png_get_PLTE(fPng, fHeader, &colours, &count);
        fInfo.mode = PictureMode::kIndexed;
        fInfo.palette = {};
        for (int i = 0; i < std::min(count, 256); ++i) {
            const auto at = static_cast<size_t>(i);
            fInfo.palette.red[at] = colours[i].red;
            fInfo.palette.green[at] = colours[i].green;
            fInfo.palette.blue[at] = colours[i].blue;
        }
    }

    void ReadPixels()
    {
        fPixels = std::make_unique_for_overwrite<uint8_t[]>(fInfo.RowBytes() *
                                                            static_cast<size_t>(fInfo.height));
        std::vector<png_bytep> rows;
        for (int32_t y = 0; y < fInfo.height; ++y)
            rows.push_back(fPixels.get() + static_cast<size_t>(y) * fInfo.RowBytes());
        RequirePng(Guarded(fPng, [&] { png_read_image(fPng, rows.data()); }));
    }

    void RequirePng(bool good)
    {
        if (good)
            return;
        png_destroy_read_struct(&fPng, &fHeader, nullptr);
        throw Failure(fName + " is not a whole PNG picture: " + fError,
                      "Open it in an image viewer to see what is left of it.", kHostCannotRead);
    }

    std::string fName;
    std::optional<BufferedFile> fFile;
    std::string fError;
    png_structp fPng = nullptr;
    png_infop fHeader = nullptr;
    PictureInfo fInfo;
    std::unique_ptr<uint8_t[]> fPixels; // of the whole picture; none until the first row
};

class PngSink final : public PictureSink {
public:
    PngSink(const std::filesystem::path& path, int compression)
        : fPending(path), fName(TextOf(path)), fCompression(compression)
    {
    }

    ~PngSink() override { png_destroy_write_struct(&fPng, &fHeader); }

    void Begin(const PictureInfo& info) override
    {
        fInfo = info;
        RawFile file;
        Require(fPending.Create(file), fName);
        fFile.emplace(std::move(file), kHostOpenToWrite);
        fPng = png_create_write_struct(PNG_LIBPNG_VER_STRING, &fError, KeepError, IgnoreWarning);
        fHeader = fPng ? png_create_info_struct(fPng) : nullptr;
        if (!fHeader)
            throw std::bad_alloc();
        png_set_write_fn(fPng, this, WriteBytes, nullptr);
        RequirePng(Guarded(fPng, [&] { WriteHeader(); }));
        const PngBandLayout layout = {info.RowBytes(), static_cast<size_t>(info.planes),
                                      info.mode == PictureMode::kIndexed, fCompression};
        fBands.emplace(layout, [this](std::span<const uint8_t> bytes) { PutChunk("IDAT", bytes); });
    }

    void PutRows(const uint8_t* rows, size_t stride, int32_t count) override
    {
        fBands->AddRows(rows, stride, count);
    }

    void Finish() override
    {
        fBands->Finish();
        PutChunk("IEND", {});
        Require(fFile->Close(), fName);
        Require(fPending.Commit(), fName);
    }

private:
    static void WriteBytes(png_structp png, png_bytep bytes, size_t size)
    {
        auto* sink = static_cast<PngSink*>(png_get_io_ptr(png));
        sink->fResult = sink->fFile->Write(static_cast<int64_t>(size), bytes);
        if (sink->fResult != kHostNoError)
            png_error(png, "the file can't be written");
    }

    int ColourType() const
    {
        if (fInfo.mode == PictureMode::kGrayscale)
            return PNG_COLOR_TYPE_GRAY;
        if (fInfo.mode == PictureMode::kIndexed)
            return PNG_COLOR_TYPE_PALETTE;
        return fInfo.planes == 4 ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB;
    }

    void WriteHeader()
    {
        png_set_IHDR(fPng, fHeader, static_cast<png_uint_32>(fInfo.width),
                     static_cast<png_uint_32>(fInfo.height), 8, ColourType(), PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (fInfo.mode == PictureMode::kIndexed)
            WritePalette();
        png_write_info(fPng, fHeader);
    }

    void WritePalette()
    {
        png_color colours[256];
        for (size_t i = 0; i < 256; ++i)
            colours[i] = {fInfo.palette.red[i], fInfo.palette.green[i], fInfo.palette.blue[i]};
        png_set_PLTE(fPng, fHeader, colours, 256);
    }

    void PutChunk(const char* type, std::span<const uint8_t> bytes)
    {
        RequirePng(Guarded(fPng, [&] {
            png_write_chunk(fPng, reinterpret_cast<png_const_bytep>(type), bytes.data(),
                            bytes.size());
        }));
    }

    void RequirePng(bool good)
    {
        Require(fResult, fName);
        if (!good)
            throw Failure(fName + " can't be written: " + fError, {}, kHostWriteError);
    }

    PendingFile fPending; // before fFile: the file closes first
    std::optional<BufferedFile> fFile;
    std::string fName;
    std::string fError;
    std::optional<PngBands> fBands;
    int fCompression;
    int16_t fResult = kHostNoError; // of the last write
    png_structp fPng = nullptr;
    png_infop fHeader = nullptr;
    PictureInfo fInfo;
};

} // namespace

std::unique_ptr<PictureSource> OpenPng(const std::filesystem::path& path)
{
    return std::make_unique<PngSource>(path);
}

std::unique_ptr<PictureSink> CreatePng(const std::filesystem::path& path, int compression)
{
    return std::make_unique<PngSink>(path, compression);
}

} // namespace Host
