// Reads any bytes as a string file. What it brings must be found again; keys are visited bucket by
// bucket.
#include "foundation/localization/string_file.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Kesto::CStringTable table;
    Kesto::ParseStringFile(table, std::as_bytes(std::span(data, size)), true);
    std::size_t keys = 0;
    std::uint32_t last = 0;
    table.ForEach([&](std::string_view key, const Kesto::CText& text) {
        const std::uint32_t bucket = Kesto::PlaceOf(key).bucket;
        if (key.size() < 2 || bucket < last || table.Find(key) != &text)
            std::abort();
        last = bucket;
        ++keys;
    });
    if (keys != table.Size())
        std::abort();
    // A second reading changes nothing but values, and none without `replace`.
    Kesto::ParseStringFile(table, std::as_bytes(std::span(data, size)), false);
    if (keys != table.Size())
        std::abort();
    return 0;
}
