#include "images/peers.h"

#include "rounds.h"

#include <png.h>
#include <spng.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string_view>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wold-style-cast"
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#include <stb_image.h>
#pragma GCC diagnostic pop

namespace Bench {

namespace {

void Fail(png_structp, png_const_charp message)
{
    throw std::runtime_error(message);
}

std::vector<png_bytep> RowsOf(std::uint8_t* samples, std::size_t rowBytes, std::size_t rows)
{
    std::vector<png_bytep> pointers(rows);
    for (std::size_t y = 0; y < rows; ++y)
        pointers[y] = samples + y * rowBytes;
    return pointers;
}

struct Source {
    const Bytes& file;
    std::size_t at = 0;
};

} // namespace

Bytes Write(const TestPNG::Picture& picture, int filters)
{
    Bytes file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp writer, png_bytep bytes, std::size_t size) {
            auto& out = *static_cast<Bytes*>(png_get_io_ptr(writer));
            out.insert(out.end(), bytes, bytes + size);
        },
        nullptr);
    const auto width = static_cast<png_uint_32>(picture.width),
               height = static_cast<png_uint_32>(picture.height);
    png_set_IHDR(png, info, width, height, 8, picture.colorType, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_BASE, PNG_FILTER_TYPE_BASE);
    if (!picture.palette.empty())
        png_set_PLTE(png, info, reinterpret_cast<png_const_colorp>(picture.palette.data()),
                     static_cast<int>(picture.palette.size() / 3));
    png_set_filter(png, PNG_FILTER_TYPE_BASE, filters);
    png_set_compression_level(png, 6);
    auto rows = RowsOf(const_cast<std::uint8_t*>(picture.samples.data()),
                       width * picture.Channels(), height);
    png_set_rows(png, info, rows.data());
    png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    png_destroy_write_struct(&png, &info);
    return file;
}

Bytes ImageDataOf(const Bytes& file)
{
    Bytes data;
    for (std::size_t at = 8; at + 12 <= file.size();) {
        const std::size_t size = static_cast<std::size_t>(file[at]) << 24 |
                                 static_cast<std::size_t>(file[at + 1]) << 16 |
                                 static_cast<std::size_t>(file[at + 2]) << 8 | file[at + 3];
        const auto payload = file.begin() + static_cast<std::ptrdiff_t>(at + 8);
        if (std::string_view(reinterpret_cast<const char*>(&file[at + 4]), 4) == "IDAT")
            data.insert(data.end(), payload, payload + static_cast<std::ptrdiff_t>(size));
        at += size + 12;
    }
    return data;
}

void DecodeWithLibpng(const Bytes& file)
{
    Source source{file};
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_read_fn(png, &source, [](png_structp reader, png_bytep out, std::size_t size) {
        auto& from = *static_cast<Source*>(png_get_io_ptr(reader));
        std::memcpy(out, from.file.data() + from.at, size);
        from.at += size;
    });
    // Nobody else looks at the checksums.
    png_set_crc_action(png, PNG_CRC_QUIET_USE, PNG_CRC_QUIET_USE);
    png_read_info(png, info);
    png_set_expand(png);
    png_read_update_info(png, info);
    const std::size_t rowBytes = png_get_rowbytes(png, info),
                      height = png_get_image_height(png, info);
    const std::unique_ptr<std::uint8_t[]> samples(new std::uint8_t[rowBytes * height]);
    png_read_image(png, RowsOf(samples.get(), rowBytes, height).data());
    png_destroy_read_struct(&png, &info, nullptr);
    Keep(samples[0]);
}

void DecodeWithSpng(const Bytes& file)
{
    const std::unique_ptr<spng_ctx, void (*)(spng_ctx*)> context(spng_ctx_new(0), spng_ctx_free);
    spng_set_png_buffer(context.get(), file.data(), file.size());
    spng_set_crc_action(context.get(), SPNG_CRC_USE, SPNG_CRC_USE);
    spng_ihdr header{};
    spng_get_ihdr(context.get(), &header);
    const int format = header.color_type == SPNG_COLOR_TYPE_INDEXED ? SPNG_FMT_RGB8 : SPNG_FMT_PNG;
    std::size_t size = 0;
    spng_decoded_image_size(context.get(), format, &size);
    const std::unique_ptr<std::uint8_t[]> samples(new std::uint8_t[size]);
    if (spng_decode_image(context.get(), samples.get(), size, format, 0) != 0)
        throw std::runtime_error("libspng did not decode the file");
    Keep(samples[0]);
}

void DecodeWithStb(const Bytes& file)
{
    int width = 0, height = 0, channels = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> samples(
        stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &width, &height,
                              &channels, 0),
        stbi_image_free);
    if (samples == nullptr)
        throw std::runtime_error("stb_image did not decode the file");
    Keep(*samples);
}

} // namespace Bench
