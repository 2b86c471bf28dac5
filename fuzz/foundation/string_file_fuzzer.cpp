// Reads any bytes as a string file. What it brings must be found again, each key in the chain of
// its bucket.
#include "foundation/localization/string_file.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Kesto::CStringTable table;
    Kesto::ParseStringFile(table, std::as_bytes(std::span(data, size)), true);
    std::size_t keys = 0;
    for (std::uint32_t bucket = 0; bucket < Kesto::kTableBuckets; ++bucket)
        for (const std::string_view key : table.ChainKeys(bucket)) {
            ++keys;
            if (key.size() < 2 || Kesto::PlaceOf(key).bucket != bucket ||
                table.Find(key) == nullptr)
                std::abort();
        }
    if (keys != table.Size())
        std::abort();
    // A second reading changes nothing but values, and none without `replace`.
    Kesto::ParseStringFile(table, std::as_bytes(std::span(data, size)), false);
    if (keys != table.Size())
        std::abort();
    return 0;
}
