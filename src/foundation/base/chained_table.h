// CChainedTable, the toolkit's map from a name to a value: 1021 buckets, each a chain with the
// newest entry at its head.
//
// A chain is kept as one block of slots, oldest first. A slot holds a digest of its entry's key and
// where the entry lies, so that a search reads memory in a row and looks at an entry only where the
// digests agree. An entry lies in an arena, followed by its key, and never moves. The table only
// grows. It has no lock.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

namespace Kesto {

inline constexpr std::uint32_t kTableBuckets = 1021;

// Where a key is looked for.
struct KeyPlace {
    std::uint32_t bucket; // the key's bytes read as one big-endian number, modulo 1021
    std::uint32_t tag;    // a digest of its length and bytes
};
KeyPlace PlaceOf(std::string_view key);

// Memory that is handed out in pieces, each known by a number of 32 bits, and given back all at
// once.
class CPieceArena {
public:
    // The number of a new piece of `size` bytes at a multiple of 8. Throws std::bad_alloc.
    std::uint32_t Allocate(std::size_t size);

    std::byte* At(std::uint32_t piece) const
    {
        return fBlocks[piece >> 16].get() + (piece & 0xFFFF) * std::size_t{8};
    }

private:
    std::vector<std::unique_ptr<std::byte[]>> fBlocks;
    std::size_t fUsed = 0; // of the last block
    std::size_t fRoom = 0; // the last block's size
};

template <class Value>
class CChainedTable {
public:
    CChainedTable() = default;
    CChainedTable(const CChainedTable&) = delete;
    CChainedTable& operator=(const CChainedTable&) = delete;
    ~CChainedTable()
    {
        for (const Chain& chain : fBuckets)
            for (const Slot slot : chain)
                std::destroy_at(EntryAt(slot));
    }

    // The value of a key, which stays where it is as long as the table lives; null if there is
    // none.
    Value* Find(std::string_view key) { return FindIn(key, PlaceOf(key)); }
    const Value* Find(std::string_view key) const
    {
        return const_cast<CChainedTable*>(this)->Find(key);
    }

    // Adds the key, or gives it the new value when it is there and `replace` is set. Returns false,
    // the table as it was, when it is there and `replace` is not set.
    bool Add(std::string_view key, Value value, bool replace)
    {
        const KeyPlace place = PlaceOf(key);
        if (Value* const found = FindIn(key, place)) {
            if (replace)
                *found = std::move(value);
            return replace;
        }
        Chain& chain = fBuckets[place.bucket];
        chain.emplace_back(); // before the entry is made, so that nothing can fail after it
        try {
            chain.back() = {place.tag, MakeEntry(key, std::move(value))};
        } catch (...) {
            chain.pop_back();
            throw;
        }
        ++fSize;
        return true;
    }

    std::size_t Size() const { return fSize; }

    // Visits keys and values: bucket by bucket, in each from the head of its chain on. Nothing may
    // be added meanwhile.
    template <class Visit>
    void ForEach(Visit visit) const
    {
        for (const Chain& chain : fBuckets)
            for (auto slot = chain.rbegin(); slot != chain.rend(); ++slot) {
                const Entry& entry = *EntryAt(*slot);
                visit(entry.Key(), entry.value);
            }
    }

private:
    // The key's bytes and a zero follow in memory.
    struct Entry {
        Value value;
        std::size_t keyLength;

        std::string_view Key() const
        {
            return {reinterpret_cast<const char*>(this + 1), keyLength};
        }
    };
    static_assert(alignof(Entry) <= 8);

    struct Slot {
        std::uint32_t tag;
        std::uint32_t piece;
    };
    using Chain = std::vector<Slot>;

    Entry* EntryAt(Slot slot) const
    {
        return std::launder(reinterpret_cast<Entry*>(fArena.At(slot.piece)));
    }

    Value* FindIn(std::string_view key, KeyPlace place) const
    {
        for (const Slot slot : fBuckets[place.bucket])
            if (slot.tag == place.tag && EntryAt(slot)->Key() == key)
                return &EntryAt(slot)->value;
        return nullptr;
    }

    std::uint32_t MakeEntry(std::string_view key, Value value)
    {
        const std::uint32_t piece = fArena.Allocate(sizeof(Entry) + key.size() + 1);
        Entry* const entry = new (fArena.At(piece)) Entry{std::move(value), key.size()};
        *std::ranges::copy(key, reinterpret_cast<char*>(entry + 1)).out = '\0';
        return piece;
    }

    CPieceArena fArena;
    std::array<Chain, kTableBuckets> fBuckets;
    std::size_t fSize = 0;
};

} // namespace Kesto
