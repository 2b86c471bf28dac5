// The plain loops of scaling.
#pragma once

#include "pixels/kernels/scale_tables.h"

#include <algorithm>
#include <array>
#include <limits>

namespace Kesto::Kernels::Plain {

// Reading a table is faster than converting.
inline constexpr auto kByteAsDouble = [] {
    std::array<double, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<double>(i);
    return table;
}();

inline double AsDouble(std::uint8_t value)
{
    return kByteAsDouble[value];
}
template <class T>
double AsDouble(T value)
{
    return static_cast<double>(value);
}

// Truncates a result. A 32-bit white can come out a little above its value, since the scale is a
// float.
template <class T>
T Truncated(double value)
{
    return static_cast<T>(std::min(value, static_cast<double>(std::numeric_limits<T>::max())));
}

template <class T>
double SumOf(const T* first, const T* end)
{
    double sum = 0;
    for (; end - first >= 4; first += 4)
        sum += AsDouble(first[0]) + AsDouble(first[1]) + AsDouble(first[2]) + AsDouble(first[3]);
    for (; first < end; ++first)
        sum += AsDouble(*first);
    return sum;
}

template <class T>
void ReduceRow(const T* source, const ScaleColumns& columns, T* out)
{
    const double scale = static_cast<double>(columns.fScale);
    for (std::size_t i = 0; i < columns.fCount; ++i) {
        const ScaleEntry& entry = columns.fEntries[i];
        const T* first = source + (entry.fFirst - columns.fStart);
        const T* last = source + (entry.fLast - columns.fStart);
        double sum = AsDouble(*first) * static_cast<double>(entry.fFirstWeight);
        if (first != last)
            sum = sum + SumOf(first + 1, last) +
                  AsDouble(*last) * static_cast<double>(entry.fLastWeight);
        out[i] = Truncated<T>(sum * scale + 0.5);
    }
}

template <class T>
T Between(T a, T b, double weightA, double weightB)
{
    return Truncated<T>(AsDouble(a) * weightA + AsDouble(b) * weightB + 0.5);
}

template <class T>
void EnlargeRow(const T* source, const ScaleColumns& columns, T* out)
{
    for (std::size_t i = 0; i < columns.fCount; ++i) {
        const ScaleEntry& entry = columns.fEntries[i];
        const T first = source[entry.fFirst - columns.fStart];
        out[i] = entry.fLastWeight > 0 ? Between(first, source[entry.fLast - columns.fStart],
                                                 entry.fFirstWeight, entry.fLastWeight)
                                       : first;
    }
}

template <class T>
void AddRow(const T* row, float weight, double* sum, std::size_t n)
{
    if (weight >= 1)
        for (std::size_t i = 0; i < n; ++i)
            sum[i] += AsDouble(row[i]);
    else
        for (std::size_t i = 0; i < n; ++i)
            sum[i] += AsDouble(row[i]) * static_cast<double>(weight);
}

template <class T>
void TakeSums(double* sum, float scale, T* out, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i) {
        out[i] = Truncated<T>(sum[i] * static_cast<double>(scale) + 0.5);
        sum[i] = 0;
    }
}

template <class T>
void Combine(const T* a, const T* b, float weightA, float weightB, T* out, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        out[i] = Between(a[i], b[i], weightA, weightB);
}

template <class T>
constexpr ScaleRows<T> kScaleRows = {.planReduce = nullptr,
                                     .planEnlarge = nullptr,
                                     .reduce = ReduceRow<T>,
                                     .enlarge = EnlargeRow<T>,
                                     .addRow = AddRow<T>,
                                     .takeSums = TakeSums<T>,
                                     .combine = Combine<T>,
                                     .average = nullptr,
                                     .averagePairs = nullptr};

} // namespace Kesto::Kernels::Plain
