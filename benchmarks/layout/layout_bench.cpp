// How fast layout texts are parsed: the frame dialog's, and one of 1,000 views against the time
// that pugixml needs for a document of the same content. Both are measured in turns in the same
// run; the medians count.
#include "layout/layout_texts.h"
#include "layout/placement/generator.h"
#include "layout/placement/rapid_view_scope.h"
#include "layout/vocabulary/keywords.h"

#include <pugixml.hpp>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <malloc.h>
#include <new>
#include <string>
#include <vector>

using namespace Kesto;

namespace {

std::size_t gAllocations = 0;

// Takes every view and makes none.
class CIdleGenerator : public CGenerator {
public:
    void Measure(std::string_view, CExpressionScope*, CExpressionScope*) override {}
    CView* Build(std::string_view, CExpressionScope*, CView*) override { return nullptr; }
};

template <class Run>
double Seconds(Run run)
{
    const auto start = std::chrono::steady_clock::now();
    run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// All that a program does to read a text, from making the root scope with all constants to letting
// go of the proxies. Returns the seconds that only the parse took.
double ParseLayout(const std::string& text)
{
    CIdleGenerator generator;
    const auto root = CRapidViewScope::CreateRootScope(nullptr, &generator, nullptr, nullptr, true);
    for (const VexConstant& constant : ClassConstants())
        root->AddConstant(constant.name, constant.value);
    return Seconds([&] { root->Parse(text.c_str()); });
}

void ParseXml(const std::string& text)
{
    pugi::xml_document document;
    if (!document.load_buffer(text.data(), text.size()))
        std::abort();
}

double Median(std::vector<double> values)
{
    std::ranges::nth_element(values,
                             values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2));
    return values[values.size() / 2];
}

std::string ReadFile(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Allocations that one more expression of each kind costs: none.
std::size_t AllocationsOfExpressions()
{
    CExpressionScope scope;
    scope.AddVariable("width", 100);
    constexpr const char* kExpression =
        "min(width, 40) * 2 + dim(7, 3) - (width / 3 == 33) + in(3, 1, 2, 3) + unknown";
    scope.IsCondition(kExpression);
    const std::size_t before = gAllocations;
    for (int i = 0; i < 1000; ++i)
        scope.IsCondition(kExpression);
    return gAllocations - before;
}

} // namespace

void* operator new(std::size_t size)
{
    ++gAllocations;
    if (void* bytes = std::malloc(size))
        return bytes;
    throw std::bad_alloc();
}
void operator delete(void* bytes) noexcept
{
    std::free(bytes);
}
void operator delete(void* bytes, std::size_t) noexcept
{
    std::free(bytes);
}

int main()
{
    // The heap keeps its pages between runs, for both: otherwise the kernel's work of handing them
    // out is most of the time.
    mallopt(M_TRIM_THRESHOLD, 256 << 20);
    mallopt(M_MMAP_THRESHOLD, 256 << 20);
    constexpr int kViews = 1000;
    const std::string dialog = ReadFile(SIDECAR_SOURCE_DIR "/resources/layouts/electricimage.vex");
    const std::string layout = MakeLayoutText(kViews);
    const std::string xml = MakeXmlText(kViews);
    std::vector<double> dialogTimes, dialogParseTimes, layoutTimes, xmlTimes;
    for (int i = 0; i < 400; ++i) {
        dialogTimes.push_back(Seconds([&] { dialogParseTimes.push_back(ParseLayout(dialog)); }));
        layoutTimes.push_back(Seconds([&] { ParseLayout(layout); }));
        xmlTimes.push_back(Seconds([&] { ParseXml(xml); }));
    }
    const double layoutTime = Median(layoutTimes);
    const double xmlTime = Median(xmlTimes);
    std::printf("frame dialog: %.1f us (wanted: below 20); with a fresh root scope and all "
                "constants %.1f us\n",
                Median(dialogParseTimes) * 1e6, Median(dialogTimes) * 1e6);
    std::printf("%d views, %zu bytes: %.1f us, %.0f MB/s (wanted: 100)\n", kViews, layout.size(),
                layoutTime * 1e6, static_cast<double>(layout.size()) / layoutTime / 1e6);
    std::printf(
        "the same as XML, %zu bytes, pugixml: %.1f us; ours is %.2f times as fast (wanted: 3)\n",
        xml.size(), xmlTime * 1e6, xmlTime / layoutTime);
    std::printf("allocations of 1,000 expressions: %zu (wanted: 0)\n", AllocationsOfExpressions());
}
