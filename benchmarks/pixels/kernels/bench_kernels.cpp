// The pixel kernels against the strongest peer: how many times faster they are, on one thread, at
// two picture sizes. Where no library has the kernel the peer is the plain loop of the same kernel.
// With an argument, only the kernels whose names contain it.
#include "pixels/kernels/arithmetic.h"
#include "pixels/kernels/blend.h"
#include "pixels/kernels/box.h"
#include "pixels/kernels/colour.h"
#include "pixels/kernels/cpu.h"
#include "pixels/kernels/mosaic.h"
#include "pixels/kernels/neighbours.h"
#include "pixels/kernels/noise.h"
#include "pixels/kernels/scale.h"
#include "pixels/kernels/transfer.h"
#include "pixels/kernels/view_access.h"
#include "pixels/pixmaps/memory_pixmap.h"
#include "rounds.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <pixman.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <string>

using namespace Kesto;
using namespace Kesto::Kernels;

namespace {

struct Picture {
    Picture(std::int32_t bits, std::int32_t width, std::int32_t height, std::int32_t planes = 1)
        : fPixmap(bits, width, height, planes, 4, 0)
    {
        std::uint32_t seed = 1;
        fPixmap.GetView(fView);
        std::uint8_t* bytes = fPixmap.GetBaseAddress();
        const std::size_t count = static_cast<std::size_t>(fView.rowBytes) *
                                  static_cast<std::size_t>(height) *
                                  static_cast<std::size_t>(planes);
        for (std::size_t i = 0; i < count; ++i) {
            seed = seed * 1664525u + 1013904223u;
            bytes[i] = static_cast<std::uint8_t>(seed >> 24);
        }
    }

    // The same pixels for the peer.
    cv::Mat Mat(int type, std::int32_t plane = 0) const
    {
        return cv::Mat(fView.height, fView.width, type,
                       fView.planePointers[static_cast<std::size_t>(plane)],
                       static_cast<std::size_t>(fView.rowBytes));
    }

    std::uint8_t* Bytes() const { return fPixmap.GetBaseAddress(); }

    CMemoryPixmap fPixmap;
    CPixView fView;
};

const char* onlyKernels = "";

// Prints how many times faster `ours` is, or nothing if the kernel isn't asked for.
void Compare(const char* kernel, std::int32_t size, const char* peer, std::function<void()> ours,
             std::function<void()> theirs)
{
    if (std::strstr(kernel, onlyKernels) == nullptr)
        return;
    const std::size_t repeats = size > 1000 ? 1 : 8;
    const auto repeated = [repeats](const std::function<void()>& run) {
        return [repeats, run] {
            for (std::size_t i = 0; i < repeats; ++i)
                run();
        };
    };
    const std::vector<Bench::Seconds> seconds = Bench::TimeRounds(
        size > 1000 ? 15 : 45, {{repeated(ours)}, {repeated(theirs)}}, Bench::ProcessorSeconds);
    std::printf("%-28s %5d  %8.2f x  %8.2f x  %10.1f us   %s\n", kernel, size,
                seconds[1].median / seconds[0].median, seconds[1].best / seconds[0].best,
                1e6 * seconds[0].best / static_cast<double>(repeats), peer);
}

// Against the plain loop of the same kernel.
void ComparePlain(const char* kernel, std::int32_t size, const std::function<void()>& run)
{
    Compare(
        kernel, size, "plain loop",
        [run] {
            UseCpuLevel(BestCpuLevel());
            run();
        },
        [run] {
            UseCpuLevel(CpuLevel::kBase);
            run();
        });
    UseCpuLevel(BestCpuLevel());
}

void Blends(std::int32_t size)
{
    const Picture below(8, size, size, 4), source(8, size, size, 4), mask(8, size, size);
    const Picture packed(32, size, size), packedSource(32, size, size);
    const auto image = [size](const Picture& picture, pixman_format_code_t format) {
        return pixman_image_create_bits(
            format, size, size, static_cast<std::uint32_t*>(static_cast<void*>(picture.Bytes())),
            picture.fView.rowBytes);
    };
    pixman_image_t* target = image(packed, PIXMAN_x8r8g8b8);
    pixman_image_t* from = image(packedSource, PIXMAN_x8r8g8b8);
    pixman_image_t* alpha = image(mask, PIXMAN_a8);
    const pixman_color_t half = {0, 0, 0, 0x8000};
    pixman_image_t* constant = pixman_image_create_solid_fill(&half);
    const auto composite = [&](pixman_image_t* through) {
        pixman_image_composite32(PIXMAN_OP_OVER, from, through, target, 0, 0, 0, 0, 0, 0, size,
                                 size);
    };
    Compare(
        "mask blend, 4 planes", size, "pixman over, 32 bits",
        [&] { Blend(below.fView, source.fView, below.fView, mask.fView); },
        [&] { composite(alpha); });
    Compare(
        "constant blend, 4 planes", size, "pixman over, 32 bits",
        [&] { Blend(below.fView, source.fView, below.fView, 128); }, [&] { composite(constant); });
    for (pixman_image_t* each : {target, from, alpha, constant})
        pixman_image_unref(each);
}

template <class T>
void Scales(const char* kernel, std::int32_t sourceSize, std::int32_t targetSize,
            std::int32_t label, int type, int method)
{
    const Picture source(8 * sizeof(T), sourceSize, sourceSize);
    const Picture target(8 * sizeof(T), targetSize, targetSize),
        peer(8 * sizeof(T), targetSize, targetSize);
    cv::Mat from = source.Mat(type);
    if (type == CV_32F) {
        cv::Mat whole = source.Mat(CV_32S);
        whole.convertTo(from, CV_32F);
    }
    cv::Mat to = peer.Mat(type);
    ScaleAxis axis;
    ScaleTable table;
    axis.fMode = targetSize < sourceSize ? ScaleMode::kReduce : ScaleMode::kEnlarge;
    table = axis.fMode == ScaleMode::kReduce
                ? MakeReduceTable(targetSize, sourceSize, 0, axis.fScale)
                : MakeEnlargeTable(targetSize, sourceSize, 0);
    axis.fEntries = table;
    std::vector<double> scratch(ScaleScratchBytes<T>(targetSize) / sizeof(double) + 1);
    Compare(
        kernel, label, method == cv::INTER_AREA ? "OpenCV area" : "OpenCV linear",
        [&] {
            ScalePlane<T>(PlaneOf<T>(source.fView, 0), PlaneOf<T>(target.fView, 0), axis, axis,
                          static_cast<std::byte*>(static_cast<void*>(scratch.data())));
        },
        [&] { cv::resize(from, to, to.size(), 0, 0, method); });
}

void AllScales(std::int32_t size)
{
    const auto part = [size](double ratio) { return static_cast<std::int32_t>(size / ratio); };
    Scales<std::uint8_t>("reduce by 2", size, part(2), size, CV_8U, cv::INTER_AREA);
    Scales<std::uint8_t>("reduce by 3.7", size, part(3.7), size, CV_8U, cv::INTER_AREA);
    Scales<std::uint8_t>("reduce by 16", size, part(16), size, CV_8U, cv::INTER_AREA);
    Scales<std::uint16_t>("reduce by 3.7, 16 bits", size, part(3.7), size, CV_16U, cv::INTER_AREA);
    Scales<std::uint32_t>("reduce by 3.7, 32 bits", size, part(3.7), size, CV_32F, cv::INTER_AREA);
    Scales<std::uint8_t>("enlarge by 1.5", part(1.5), size, size, CV_8U, cv::INTER_LINEAR);
    Scales<std::uint16_t>("enlarge by 1.5, 16 bits", part(1.5), size, size, CV_16U,
                          cv::INTER_LINEAR);
}

void Boxes(std::int32_t size)
{
    const Picture source(8, size + 8, size + 8), out(8, size, size), peer(8, size, size);
    const cv::Mat from = source.Mat(CV_8U)(cv::Rect(4, 4, size, size)).clone();
    cv::Mat to = peer.Mat(CV_8U);
    const BoxShape nine{9, 9};
    const cv::Mat element = cv::getStructuringElement(cv::MORPH_RECT, {9, 9});
    Compare(
        "box mean 9 x 9", size, "OpenCV blur",
        [&] { BoxMean(out.fView, source.fView, nine, true); },
        [&] {
            cv::blur(from, to, {9, 9});
        });
    Compare(
        "dilate 9 x 9", size, "OpenCV dilate", [&] { Dilate(out.fView, source.fView, nine); },
        [&] { cv::dilate(from, to, element); });
    Compare(
        "erode 9 x 9", size, "OpenCV erode", [&] { Erode(out.fView, source.fView, nine); },
        [&] { cv::erode(from, to, element); });
    const Picture wide(32, size + 8, size + 8), ranked(32, size, size);
    for (std::int32_t y = 0; y < size + 8; ++y)
        for (std::int32_t x = 0; x < size + 8; ++x)
            RowOf<std::uint32_t>(wide.fView, 0, y)[x] = RowOf<std::uint8_t>(source.fView, 0, y)[x];
    std::vector<std::int32_t> counts(256);
    Compare(
        "rank 9 x 9", size, "OpenCV median",
        [&] { Rank(ranked.fView, wide.fView, nine, 41, counts); },
        [&] { cv::medianBlur(from, to, 9); });
}

void Neighbours(std::int32_t size)
{
    const Picture source(8, size + 2, size + 2), out(8, size, size), peer(8, size, size);
    const cv::Mat from = source.Mat(CV_8U)(cv::Rect(1, 1, size, size)).clone();
    cv::Mat to = peer.Mat(CV_8U);
    std::vector<std::int32_t> gain(kSharpenLevels);
    for (std::int32_t edge = -1020; edge <= 1020; ++edge)
        gain[static_cast<std::size_t>(edge + 1020)] = edge;
    const std::span<const std::int32_t, kSharpenLevels> table(gain);
    const cv::Mat sharpen = (cv::Mat_<float>(3, 3) << 0, -1, 0, -1, 5, -1, 0, -1, 0);
    const cv::Mat mean = (cv::Mat_<float>(3, 3) << 0, .125, 0, .125, .5, .125, 0, .125, 0);
    Compare(
        "sharpen", size, "OpenCV filter2D", [&] { Sharpen(out.fView, source.fView, table); },
        [&] { cv::filter2D(from, to, -1, sharpen); });
    Compare(
        "neighbour mean", size, "OpenCV filter2D",
        [&] { NeighbourMean(out.fView, source.fView, 4); },
        [&] { cv::filter2D(from, to, -1, mean); });
    std::array<std::int32_t, 256> relief;
    for (std::size_t i = 0; i < relief.size(); ++i)
        relief[i] = static_cast<std::int32_t>(i) / 3;
    ComparePlain("emboss", size, [&] { Emboss(out.fView, source.fView, relief, 1, 128); });
}

void Arithmetic(std::int32_t size)
{
    const Picture a(8, size, size), b(8, size, size), out(8, size, size), peer(8, size, size);
    const cv::Mat first = a.Mat(CV_8U), second = b.Mat(CV_8U);
    cv::Mat to = peer.Mat(CV_8U);
    const std::size_t bytes = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
    Compare(
        "add, capped", size, "OpenCV add", [&] { AddCapped(out.fView, a.fView, b.fView); },
        [&] { cv::add(first, second, to); });
    Compare(
        "subtract, floored", size, "OpenCV subtract",
        [&] { SubtractFloored(out.fView, a.fView, b.fView); },
        [&] { cv::subtract(first, second, to); });
    Compare(
        "invert", size, "OpenCV bitwise_not", [&] { Invert(out.fView, a.fView); },
        [&] { cv::bitwise_not(first, to); });
    Compare(
        "copy", size, "memcpy", [&] { Copy(out.fView, a.fView); },
        [&] { std::memcpy(peer.Bytes(), a.Bytes(), bytes); });
    Compare(
        "fill", size, "memset",
        [&] { Fill<std::uint8_t>(out.fView, std::array<std::uint8_t, 1>{7}); },
        [&] { std::memset(peer.Bytes(), 7, bytes); });
    Compare(
        "exchange", size, "swap_ranges", [&] { Exchange(a.fView, b.fView); },
        [&] { std::swap_ranges(out.Bytes(), out.Bytes() + bytes, peer.Bytes()); });
    std::array<std::uint8_t, 256> table;
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<std::uint8_t>(255 - i);
    ComparePlain("table map", size, [&] { MapTable(out.fView, a.fView, table); });
    ComparePlain("noise", size, [&] { AddNoise(out.fView, a.fView, 20); });
    ComparePlain("mosaic 9 x 9", size, [&] { Mosaic(out.fView, a.fView, {9, 9}, true); });
    const Picture hsv(8, size, size, 3), rgb(8, size, size, 3);
    ComparePlain("hue to RGB", size, [&] { HueToRGB(rgb.fView, hsv.fView); });
}

// Between four planes and 32-bit pixels, the way of every picture that is drawn.
void Packing(std::int32_t size)
{
    const Picture planes(8, size, size, 4), packed(32, size, size), split(8, size, size, 4);
    const Picture peerPacked(32, size, size), peerSplit(8, size, size, 4);
    const auto mats = [](const Picture& picture) {
        std::vector<cv::Mat> result;
        for (const std::int32_t plane : kOrder_BGRA)
            result.push_back(picture.Mat(CV_8U, plane));
        return result;
    };
    const std::vector<cv::Mat> from = mats(planes);
    std::vector<cv::Mat> to = mats(peerSplit);
    cv::Mat peer = peerPacked.Mat(CV_8UC4);
    Compare(
        "merge planes", size, "OpenCV merge",
        [&] { MergePlanes(packed.fView, planes.fView, kOrder_BGRA); },
        [&] { cv::merge(from, peer); });
    Compare(
        "split planes", size, "OpenCV split",
        [&] { SplitPlanes(split.fView, packed.fView, kOrder_BGRA); }, [&] { cv::split(peer, to); });
    ComparePlain("merge, premultiplied", size,
                 [&] { MergePremultiplied(packed.fView, planes.fView, kOrder_BGRA); });
}

} // namespace

int main(int count, char** arguments)
{
    if (count > 1)
        onlyKernels = arguments[1];
    cv::setNumThreads(1);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    std::printf("%-28s %5s  %10s  %10s  %13s   %s\n", "kernel, 8 bits if not said", "size",
                "median", "best run", "ours", "peer");
    for (const std::int32_t size : {512, 4096}) {
        Blends(size);
        AllScales(size);
        Boxes(size);
        Neighbours(size);
        Arithmetic(size);
        Packing(size);
    }
    return 0;
}
