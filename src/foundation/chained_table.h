// CChainedTable, the toolkit's map from a name to a value: 1021 buckets, each a chain with the newest entry at its head.
//
// A chain is kept as one block of slots, oldest first, walked from its end. A slot holds the length and the last bytes
// of its entry's key, so that a walk reads consecutive memory and looks at an entry's key only when they agree; names
// that share a long path differ in just those bytes. Entries lie in one arena, each with its key behind it, and never
// move. The table only grows. It has no lock.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <memory_resource>
#include <new>
#include <ranges>
#include <string_view>
#include <utility>
#include <vector>

namespace Kesto {

inline constexpr std::uint32_t kTableBuckets = 1021;

// The bucket of a key: its bytes read as one big-endian number, modulo 1021.
std::uint32_t TableHash(std::string_view key);

// A key's last seven bytes and the low byte of its length: what keys are compared by first.
std::uint64_t TableTag(std::string_view key);

template <class Value>
class CChainedTable {
public:
    CChainedTable() = default;
    CChainedTable(const CChainedTable&) = delete;
    CChainedTable& operator=(const CChainedTable&) = delete;
    ~CChainedTable()
    {
        for (Chain& chain : fBuckets)
            for (Slot& slot : chain)
                std::destroy_at(slot.entry);
    }

    // The value of a key, which stays where it is as long as the table lives; null if there is none.
    Value* Find(std::string_view key) { return FindIn(fBuckets[TableHash(key)], key); }
    const Value* Find(std::string_view key) const { return const_cast<CChainedTable*>(this)->Find(key); }

    // Adds the key, or gives it the new value when it is there and `replace` is set. Returns false, the table as it
    // was, when it is there and `replace` is not set.
    bool Add(std::string_view key, Value value, bool replace)
    {
        Chain& chain = fBuckets[TableHash(key)];
        if (Value* const found = FindIn(chain, key)) {
            if (replace)
                *found = std::move(value);
            return replace;
        }
        chain.push_back({TableTag(key), nullptr});
        try {
            chain.back().entry = MakeEntry(key, std::move(value));
        } catch (...) {
            chain.pop_back();
            throw;
        }
        ++fSize;
        return true;
    }

    std::size_t Size() const { return fSize; }

    // The keys of one bucket of kTableBuckets from the head of its chain on. Valid as long as the table.
    std::vector<std::string_view> ChainKeys(std::uint32_t bucket) const
    {
        std::vector<std::string_view> keys;
        for (const Slot& slot : fBuckets.at(bucket) | std::views::reverse)
            keys.push_back(slot.entry->Key());
        return keys;
    }

private:
    // The key's bytes and a zero follow in memory.
    struct Entry {
        Value value;
        std::size_t keyLength;

        std::string_view Key() const { return {reinterpret_cast<const char*>(this + 1), keyLength}; }
    };
    struct Slot {
        std::uint64_t tag;
        Entry* entry;
    };
    using Chain = std::vector<Slot>;

    static Value* FindIn(Chain& chain, std::string_view key)
    {
        const std::uint64_t tag = TableTag(key);
        for (const Slot& slot : chain | std::views::reverse)
            if (slot.tag == tag && slot.entry->Key() == key)
                return &slot.entry->value;
        return nullptr;
    }

    Entry* MakeEntry(std::string_view key, Value value)
    {
        void* const memory = fArena.allocate(sizeof(Entry) + key.size() + 1, alignof(Entry));
        Entry* const entry = new (memory) Entry{std::move(value), key.size()};
        char* const bytes = reinterpret_cast<char*>(entry + 1);
        *std::ranges::copy(key, bytes).out = '\0';
        return entry;
    }

    std::pmr::monotonic_buffer_resource fArena;
    std::array<Chain, kTableBuckets> fBuckets;
    std::size_t fSize = 0;
};

} // namespace Kesto
