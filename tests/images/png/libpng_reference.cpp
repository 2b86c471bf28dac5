#include "images/png/reference_decoder.h"

#include <png.h>

#include <cstring>
#include <memory>
#include <span>
#include <stdexcept>

namespace TestPNG {

namespace {

void Fail(png_structp, png_const_charp message)
{
    throw std::runtime_error(message);
}

void ReadFrom(png_structp png, png_bytep out, std::size_t size)
{
    auto& rest = *static_cast<std::span<const std::uint8_t>*>(png_get_io_ptr(png));
    if (size > rest.size())
        throw std::runtime_error("the file ends too early");
    std::memcpy(out, rest.data(), size);
    rest = rest.subspan(size);
}

struct Reader {
    Reader()
        : png(png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, nullptr)), info(png_create_info_struct(png))
    {
    }
    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    png_structp png;
    png_infop info;
};

} // namespace

std::optional<Bytes> ReferenceSamples(const Bytes& file)
{
    std::span<const std::uint8_t> rest(file);
    Reader reader;
    png_set_read_fn(reader.png, &rest, ReadFrom);
    png_read_png(reader.png, reader.info, PNG_TRANSFORM_EXPAND, nullptr);
    const std::size_t rowBytes = png_get_rowbytes(reader.png, reader.info);
    Bytes samples;
    for (const png_bytep row :
         std::span(png_get_rows(reader.png, reader.info), png_get_image_height(reader.png, reader.info)))
        samples.insert(samples.end(), row, row + rowBytes);
    return samples;
}

} // namespace TestPNG
