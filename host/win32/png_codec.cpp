// PNG through the Windows Imaging Component.
#include "pictures/png_codec.h"

#include "failure.h"
#include "files/pending_file.h"
#include "messages.h"

#include <algorithm>
#include <string>
#include <vector>

#include <windows.h>

#include <wincodec.h>

namespace Host {
namespace {

// Owns one reference to a COM object.
template <class Interface>
class Com {
public:
    Com() = default;
    ~Com() { Release(); }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

    Interface* operator->() const { return fObject; }
    Interface* Get() const { return fObject; }

    // Where a call puts a new reference; the old one ends.
    Interface** Put()
    {
        Release();
        return &fObject;
    }
    void** PutVoid() { return reinterpret_cast<void**>(Put()); }

    void Release()
    {
        if (fObject)
            fObject->Release();
        fObject = nullptr;
    }

private:
    Interface* fObject = nullptr;
};

class ComLibrary {
public:
    ComLibrary() { CoInitializeEx(nullptr, COINIT_MULTITHREADED); }
    ~ComLibrary() { CoUninitialize(); }
    ComLibrary(const ComLibrary&) = delete;
    ComLibrary& operator=(const ComLibrary&) = delete;
};

void Check(HRESULT result, const std::string& name, int16_t code)
{
    if (SUCCEEDED(result))
        return;
    throw Failure(name + ": the picture codec failed with " + std::to_string(result) + ". " +
                      ResultLine(code),
                  {}, code);
}

struct Codec {
    ComLibrary library; // first in, last out
    Com<IWICImagingFactory> factory;

    explicit Codec(const std::string& name, int16_t code)
    {
        Check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                               IID_IWICImagingFactory, factory.PutVoid()),
              name, code);
    }
};

// Turns the codec's blue, green, red into red, green, blue, or back.
void SwapRedAndBlue(uint8_t* pixels, size_t bytes, int32_t planes)
{
    const auto step = static_cast<size_t>(planes);
    for (size_t at = 0; at + 2 < bytes; at += step)
        std::swap(pixels[at], pixels[at + 2]);
}

// Pixel formats of the codec that are one byte or less of grey or index.
struct SmallFormat {
    const GUID& format;
    PictureMode mode;
    int bits;
};
const SmallFormat kSmallFormats[] = {
    {GUID_WICPixelFormatBlackWhite, PictureMode::kGrayscale, 1},
    {GUID_WICPixelFormat2bppGray, PictureMode::kGrayscale, 2},
    {GUID_WICPixelFormat4bppGray, PictureMode::kGrayscale, 4},
    {GUID_WICPixelFormat8bppGray, PictureMode::kGrayscale, 8},
    {GUID_WICPixelFormat1bppIndexed, PictureMode::kIndexed, 1},
    {GUID_WICPixelFormat2bppIndexed, PictureMode::kIndexed, 2},
    {GUID_WICPixelFormat4bppIndexed, PictureMode::kIndexed, 4},
    {GUID_WICPixelFormat8bppIndexed, PictureMode::kIndexed, 8},
};

// Formats with more than 8 bits of grey and no alpha become 8 bits of grey.
bool IsDeepGray(const GUID& format)
{
    return IsEqualGUID(format, GUID_WICPixelFormat16bppGray) != 0;
}

bool HasAlpha(const GUID& format)
{
    const GUID* const alphas[] = {&GUID_WICPixelFormat32bppBGRA, &GUID_WICPixelFormat32bppRGBA,
                                  &GUID_WICPixelFormat64bppRGBA, &GUID_WICPixelFormat64bppBGRA};
    return std::ranges::any_of(alphas,
                               [&](const GUID* alpha) { return IsEqualGUID(*alpha, format) != 0; });
}

class PngSource final : public PictureSource {
public:
    explicit PngSource(const std::filesystem::path& path)
        : fName(TextOf(path)), fCodec(fName, kHostCannotRead)
    {
        Need(fCodec.factory->CreateDecoderFromFilename(
            path.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnDemand, fDecoder.Put()));
        Need(fDecoder->GetFrame(0, fFrame.Put()));
        UINT width = 0, height = 0;
        Need(fFrame->GetSize(&width, &height));
        Need(fFrame->GetPixelFormat(&fFormat));
        fInfo.width = static_cast<int32_t>(width);
        fInfo.height = static_cast<int32_t>(height);
        fInfo.palette = Palette::Grays();
        DescribePicture();
    }

    const PictureInfo& Info() const override { return fInfo; }

    const uint8_t* Row(int32_t y) override
    {
        if (fPixels.empty())
            ReadPixels();
        return fPixels.data() + static_cast<size_t>(y) * fInfo.RowBytes();
    }

private:
    void Need(HRESULT result) const { Check(result, fName, kHostCannotRead); }

    void DescribePicture()
    {
        const auto small = std::ranges::find_if(kSmallFormats, [&](const SmallFormat& known) {
            return IsEqualGUID(known.format, fFormat) != 0;
        });
        fInfo.mode = PictureMode::kRgb;
        fInfo.planes = HasAlpha(fFormat) ? 4 : 3;
        if (small != std::end(kSmallFormats)) {
            fInfo.mode = small->mode;
            fInfo.planes = 1;
            fBits = small->bits;
        } else if (IsDeepGray(fFormat)) {
            fInfo.mode = PictureMode::kGrayscale;
            fInfo.planes = 1;
        }
        if (fInfo.mode == PictureMode::kIndexed)
            ReadPalette();
    }

    // A palette with transparent entries makes the picture RGB with alpha.
    void ReadPalette()
    {
        Com<IWICPalette> palette;
        Need(fCodec.factory->CreatePalette(palette.Put()));
        Need(fFrame->CopyPalette(palette.Get()));
        std::vector<WICColor> colours(256);
        UINT count = 0;
        Need(palette->GetColors(static_cast<UINT>(colours.size()), colours.data(), &count));
        fInfo.palette = {};
        bool transparent = false;
        for (size_t i = 0; i < std::min<size_t>(count, 256); ++i) {
            fInfo.palette.red[i] = static_cast<uint8_t>(colours[i] >> 16);
            fInfo.palette.green[i] = static_cast<uint8_t>(colours[i] >> 8);
            fInfo.palette.blue[i] = static_cast<uint8_t>(colours[i]);
            transparent = transparent || (colours[i] >> 24) != 255;
        }
        if (transparent) {
            fInfo.mode = PictureMode::kRgb;
            fInfo.planes = 4;
            fInfo.palette = Palette::Grays();
        }
    }

    void ReadPixels()
    {
        fPixels.resize(fInfo.RowBytes() * static_cast<size_t>(fInfo.height));
        if (fInfo.planes == 1 && !IsDeepGray(fFormat))
            return ReadSmallPixels();
        const GUID wanted = fInfo.planes == 1   ? GUID_WICPixelFormat8bppGray
                            : fInfo.planes == 3 ? GUID_WICPixelFormat24bppBGR
                                                : GUID_WICPixelFormat32bppBGRA;
        Com<IWICFormatConverter> converter;
        Need(fCodec.factory->CreateFormatConverter(converter.Put()));
        Need(converter->Initialize(fFrame.Get(), wanted, WICBitmapDitherTypeNone, nullptr, 0,
                                   WICBitmapPaletteTypeCustom));
        for (int32_t y = 0; y < fInfo.height; ++y)
            CopyRow(converter.Get(), y, fPixels.data() + static_cast<size_t>(y) * fInfo.RowBytes(),
                    fInfo.RowBytes());
        // The decoder's pixels begin with blue.
        if (fInfo.planes > 1)
            SwapRedAndBlue(fPixels.data(), fPixels.size(), fInfo.planes);
    }

    // Indices and greys of less than 8 bits are spread to bytes, greys over the whole range.
    void ReadSmallPixels()
    {
        const auto bits = static_cast<unsigned>(fBits);
        const unsigned top = (1u << bits) - 1;
        const unsigned scale = fInfo.mode == PictureMode::kGrayscale ? 255 / top : 1;
        std::vector<uint8_t> packed((static_cast<size_t>(fInfo.width) * bits + 7) / 8);
        uint8_t* out = fPixels.data();
        for (int32_t y = 0; y < fInfo.height; ++y) {
            CopyRow(fFrame.Get(), y, packed.data(), packed.size());
            for (size_t bit = 0; bit < static_cast<size_t>(fInfo.width) * bits; bit += bits)
                *out++ =
                    static_cast<uint8_t>((packed[bit / 8] >> (8 - bits - bit % 8) & top) * scale);
        }
    }

    void CopyRow(IWICBitmapSource* source, int32_t y, uint8_t* row, size_t bytes) const
    {
        const WICRect area = {0, y, fInfo.width, 1};
        Need(source->CopyPixels(&area, static_cast<UINT>(bytes), static_cast<UINT>(bytes), row));
    }

    std::string fName;
    Codec fCodec;
    Com<IWICBitmapDecoder> fDecoder;
    Com<IWICBitmapFrameDecode> fFrame;
    GUID fFormat = {};
    int fBits = 8;
    PictureInfo fInfo;
    std::vector<uint8_t> fPixels;
};

class PngSink final : public PictureSink {
public:
    explicit PngSink(const std::filesystem::path& path)
        : fPending(path), fName(TextOf(path)), fCodec(fName, kHostWriteError)
    {
    }

    void Begin(const PictureInfo& info) override
    {
        fInfo = info;
        RawFile file;
        Require(fPending.Create(file), fName);
        Require(file.Close(), fName); // the codec opens it by its name
        Need(fCodec.factory->CreateStream(fStream.Put()));
        Need(fStream->InitializeFromFilename(fPending.Temporary().c_str(), GENERIC_WRITE));
        Need(fCodec.factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, fEncoder.Put()));
        Need(fEncoder->Initialize(fStream.Get(), WICBitmapEncoderNoCache));
        Need(fEncoder->CreateNewFrame(fFrame.Put(), nullptr));
        Need(fFrame->Initialize(nullptr));
        Need(fFrame->SetSize(static_cast<UINT>(info.width), static_cast<UINT>(info.height)));
        GUID format = Format();
        Need(fFrame->SetPixelFormat(&format));
        if (IsEqualGUID(format, Format()) == 0)
            throw Failure(fName + ": the picture codec has no pixels of this kind", {},
                          kHostWriteError);
        if (info.mode == PictureMode::kIndexed)
            WritePalette();
    }

    void PutRows(const uint8_t* rows, size_t stride, int32_t count) override
    {
        fRow.resize(fInfo.RowBytes());
        for (; count > 0; --count, rows += stride) {
            std::copy_n(rows, fRow.size(), fRow.data());
            if (fInfo.planes > 1)
                SwapRedAndBlue(fRow.data(), fRow.size(), fInfo.planes);
            Need(fFrame->WritePixels(1, static_cast<UINT>(fRow.size()),
                                     static_cast<UINT>(fRow.size()), fRow.data()));
        }
    }

    void Finish() override
    {
        Need(fFrame->Commit());
        Need(fEncoder->Commit());
        CloseCodec();
        Require(fPending.Commit(), fName);
    }

    ~PngSink() override { CloseCodec(); }

private:
    void Need(HRESULT result) const { Check(result, fName, kHostWriteError); }

    GUID Format() const
    {
        if (fInfo.mode == PictureMode::kGrayscale)
            return GUID_WICPixelFormat8bppGray;
        if (fInfo.mode == PictureMode::kIndexed)
            return GUID_WICPixelFormat8bppIndexed;
        return fInfo.planes == 4 ? GUID_WICPixelFormat32bppBGRA : GUID_WICPixelFormat24bppBGR;
    }

    void WritePalette()
    {
        std::vector<WICColor> colours(256);
        for (size_t i = 0; i < colours.size(); ++i)
            colours[i] = 0xFF000000u | static_cast<WICColor>(fInfo.palette.red[i]) << 16 |
                         static_cast<WICColor>(fInfo.palette.green[i]) << 8 | fInfo.palette.blue[i];
        Com<IWICPalette> palette;
        Need(fCodec.factory->CreatePalette(palette.Put()));
        Need(palette->InitializeCustom(colours.data(), static_cast<UINT>(colours.size())));
        Need(fFrame->SetPalette(palette.Get()));
    }

    // The codec lets go of the file: only then can it be renamed or removed.
    void CloseCodec()
    {
        fFrame.Release();
        fEncoder.Release();
        fStream.Release();
    }

    PendingFile fPending;
    std::string fName;
    Codec fCodec;
    Com<IWICStream> fStream;
    Com<IWICBitmapEncoder> fEncoder;
    Com<IWICBitmapFrameEncode> fFrame;
    PictureInfo fInfo;
    std::vector<uint8_t> fRow;
};

} // namespace

std::unique_ptr<PictureSource> OpenPng(const std::filesystem::path& path)
{
    return std::make_unique<PngSource>(path);
}

// The codec chooses how hard it packs.
std::unique_ptr<PictureSink> CreatePng(const std::filesystem::path& path, int)
{
    return std::make_unique<PngSink>(path);
}

} // namespace Host
