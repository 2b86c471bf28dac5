// An ordered list of properties, by value. Each entry's id is its index.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <vector>

namespace Kesto {

// References and pointers to entries hold until the list changes.
template <class T>
class CVexPropertyList {
public:
    CVexPropertyList() = default;
    CVexPropertyList(const CVexPropertyList&) = default;
    CVexPropertyList& operator=(const CVexPropertyList&) = default;
    virtual ~CVexPropertyList() = default;

    virtual std::unique_ptr<CVexPropertyList> Clone() const = 0;
    virtual void Assign(const CVexPropertyList& other) { fEntries = other.fEntries; }

    virtual std::size_t Count() const { return fEntries.size(); }
    virtual void Clear() { fEntries.clear(); }

    // Inserts before `index`, which may be Count(); beyond it throws std::range_error.
    virtual void Insert(std::size_t index, const T& entry)
    {
        if (index > fEntries.size())
            throw std::range_error("The index lies outside the list.");
        fEntries.insert(fEntries.begin() + static_cast<std::ptrdiff_t>(index), entry);
        Number(index);
    }

    virtual T& Add(const T& entry)
    {
        fEntries.push_back(entry);
        Number(fEntries.size() - 1);
        return fEntries.back();
    }

    // A null `entries` throws std::range_error.
    virtual void AddArray(const T* entries, std::size_t count)
    {
        if (entries == nullptr)
            throw std::range_error("There is no array to add.");
        const std::size_t first = fEntries.size();
        fEntries.insert(fEntries.end(), entries, entries + count);
        Number(first);
    }

    // Outside the list throws std::range_error.
    virtual T& At(std::size_t index)
    {
        Check(index);
        return fEntries[index];
    }
    virtual const T& At(std::size_t index) const
    {
        Check(index);
        return fEntries[index];
    }

    // Null for an empty list.
    virtual const T* First() const { return fEntries.empty() ? nullptr : &fEntries.front(); }

    // The entry after `entry` by its id, or null at the end; the first one for null.
    virtual const T* Next(const T* entry) const
    {
        if (entry == nullptr)
            return First();
        const std::int64_t next = std::int64_t{entry->Id()} + 1;
        return next >= 0 && next < static_cast<std::int64_t>(fEntries.size())
                   ? &fEntries[static_cast<std::size_t>(next)]
                   : nullptr;
    }

    // Those after it move up. Outside the list throws std::range_error.
    virtual void Remove(std::size_t index)
    {
        Check(index);
        fEntries.erase(fEntries.begin() + static_cast<std::ptrdiff_t>(index));
        Number(index);
    }

private:
    void Check(std::size_t index) const
    {
        if (index >= fEntries.size())
            throw std::range_error("The index lies outside the list.");
    }

    void Number(std::size_t from)
    {
        for (; from < fEntries.size(); ++from)
            fEntries[from].SetId(static_cast<std::int32_t>(from));
    }

    std::vector<T> fEntries;
};

} // namespace Kesto
