// Pictures for the tests of the kernels.
#pragma once

#include "pixels/kernels/cpu.h"
#include "pixels/kernels/view_access.h"
#include "pixels/pixmaps/memory_pixmap.h"
#include "pixels/pixmaps/pixview.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <sstream>
#include <string>
#include <vector>

namespace Kesto::Testing {

// A pixmap of odd row lengths with a view of it; everything is random, the padding too.
class CPicture {
public:
    CPicture(std::int32_t bits, std::int32_t width, std::int32_t height, std::int32_t planes,
             std::uint32_t seed = 1)
        : fPixmap(bits, width, height, planes, 1, 0)
    {
        std::mt19937 random(seed);
        for (std::span<std::uint8_t> rest = Bytes(); !rest.empty();) {
            const std::uint32_t word = random();
            const std::size_t size = std::min(rest.size(), sizeof(word));
            std::memcpy(rest.data(), &word, size);
            rest = rest.subspan(size);
        }
    }

    CPixView View() const
    {
        CPixView view;
        fPixmap.GetView(view);
        return view;
    }

    // The view less some columns on its left, so that rows start at odd addresses.
    CPixView View(std::int32_t left, std::int32_t width, std::int32_t height) const
    {
        CPixView view;
        fPixmap.GetView(view, left, 0, width, height, 0, -1);
        return view;
    }

    CPixView Plane(std::int32_t plane) const
    {
        CPixView view;
        fPixmap.GetView(view, 0, 0, 0, 0, plane, 1);
        return view;
    }

    template <class T = std::uint8_t>
    T& At(std::int32_t x, std::int32_t y, std::int32_t plane = 0) const
    {
        return Kernels::RowOf<T>(View(), plane, y)[x];
    }

    std::span<std::uint8_t> Bytes() const
    {
        const std::size_t size = static_cast<std::size_t>(fPixmap.GetRowBytes()) *
                                 static_cast<std::size_t>(fPixmap.GetHeight()) *
                                 static_cast<std::size_t>(fPixmap.GetPlaneCount());
        return {fPixmap.GetBaseAddress(), size};
    }

    std::vector<std::uint8_t> Copied() const { return {Bytes().begin(), Bytes().end()}; }
    CMemoryPixmap& Pixmap() { return fPixmap; }

private:
    CMemoryPixmap fPixmap;
};

// A picture with the given rows of bytes.
inline CPicture PictureOf(const std::vector<std::vector<std::uint8_t>>& rows)
{
    CPicture picture(8, static_cast<std::int32_t>(rows[0].size()),
                     static_cast<std::int32_t>(rows.size()), 1);
    for (std::size_t y = 0; y < rows.size(); ++y)
        std::copy(rows[y].begin(), rows[y].end(), &picture.At(0, static_cast<std::int32_t>(y)));
    return picture;
}

// The bytes of plane 0.
inline std::vector<std::vector<std::uint8_t>> RowsOf(const CPicture& picture)
{
    const CPixView view = picture.View();
    std::vector<std::vector<std::uint8_t>> rows;
    for (std::int32_t y = 0; y < view.height; ++y)
        rows.emplace_back(&picture.At(0, y), &picture.At(0, y) + view.width);
    return rows;
}

// Words that name a case, with blanks between them.
template <class... Parts>
std::string Words(const Parts&... parts)
{
    std::ostringstream words;
    ((words << parts << ' '), ...);
    return words.str();
}

// Uses a level of the processor for as long as it lives.
class CUseLevel {
public:
    explicit CUseLevel(Kernels::CpuLevel level) { Kernels::UseCpuLevel(level); }
    CUseLevel(const CUseLevel&) = delete;
    CUseLevel& operator=(const CUseLevel&) = delete;
    ~CUseLevel() { Kernels::UseCpuLevel(Kernels::BestCpuLevel()); }
};

} // namespace Kesto::Testing
