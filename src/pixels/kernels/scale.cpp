#include "pixels/kernels/scale.h"

#include "pixels/kernels/kernel_table.h"

#include <algorithm>
#include <cstring>

namespace Kesto::Kernels {

namespace {

template <class T>
const ScaleRows<T>& ActiveRows()
{
    if constexpr (sizeof(T) == 1)
        return ActiveKernels().scale8;
    else if constexpr (sizeof(T) == 2)
        return ActiveKernels().scale16;
    else
        return ActiveKernels().scale32;
}

// True when an axis is reduced to exactly half, each target pixel from two whole ones.
bool ArePairs(const ScaleAxis& axis)
{
    return axis.fMode == ScaleMode::kReduce && axis.fScale == 0.5f &&
           std::all_of(axis.fEntries.begin(), axis.fEntries.end(), [](const ScaleEntry& entry) {
               return entry.fFirstWeight == 1 && entry.fLastWeight == 1 &&
                      entry.fLast == entry.fFirst + 1;
           });
}

// One run over a plane.
template <class T>
class CPlaneScaler {
public:
    CPlaneScaler(Plane<const T> source, Plane<T> out, const ScaleAxis& columns,
                 const ScaleAxis& rows, std::byte* scratch)
        : fSource(source), fOut(out), fColumnMode(columns.fMode), fRows(rows),
          fWidth(static_cast<std::size_t>(out.fWidth)),
          fSums(static_cast<double*>(static_cast<void*>(scratch))),
          fColumns{columns.fEntries.data(), fWidth,         columns.fStart,
                   source.fWidth,           columns.fScale, scratch + fWidth * sizeof(double)}
    {
        fScaled[0] =
            static_cast<T*>(static_cast<void*>(fColumns.fPlan + ScaleColumns::PlanBytes(fWidth)));
        fScaled[1] = fScaled[0] + fWidth;
        fHalvesRows = fOperations.average != nullptr && ArePairs(rows);
        fHalvesBoth = fHalvesRows && ArePairs(columns);
        if (fColumnMode == ScaleMode::kReduce && fOperations.planReduce != nullptr)
            fOperations.planReduce(fColumns);
        else if (fColumnMode == ScaleMode::kEnlarge && fOperations.planEnlarge != nullptr)
            fOperations.planEnlarge(fColumns);
    }

    void Run()
    {
        switch (fRows.fMode) {
        case ScaleMode::kReduce:
            return Reduce();
        case ScaleMode::kEnlarge:
            return Enlarge();
        case ScaleMode::kSame:
            for (std::int32_t y = 0; y < fOut.fHeight; ++y)
                ScaleRow(y, fOut.Row(y));
        }
    }

private:
    // One source row, scaled along the row.
    void ScaleRow(std::int32_t y, T* out)
    {
        const T* row = fSource.Row(y);
        if (fColumnMode == ScaleMode::kReduce)
            fOperations.reduce(row, fColumns, out);
        else if (fColumnMode == ScaleMode::kEnlarge)
            fOperations.enlarge(row, fColumns, out);
        else
            std::memcpy(out, row, fWidth * sizeof(T));
    }

    // The same, kept: of the two rows that were asked for last, neither is scaled again.
    const T* ScaledRow(std::int32_t y)
    {
        for (std::size_t i = 0; i < 2; ++i) {
            if (fKept[i] == y) {
                fNewest = i;
                return fScaled[i];
            }
        }
        fNewest ^= 1;
        fKept[fNewest] = y;
        ScaleRow(y, fScaled[fNewest]);
        return fScaled[fNewest];
    }

    void Reduce()
    {
        std::fill_n(fSums, fWidth, 0.0);
        for (std::int32_t y = 0; y < fOut.fHeight; ++y) {
            const ScaleEntry& entry = fRows.fEntries[static_cast<std::size_t>(y)];
            const std::int32_t first = entry.fFirst - fRows.fStart;
            const std::int32_t last = entry.fLast - fRows.fStart;
            // Halving needs no weights.
            if (fHalvesBoth) {
                const std::ptrdiff_t left = fColumns.fEntries[0].fFirst - fColumns.fStart;
                fOperations.averagePairs(fSource.Row(first) + left, fSource.Row(last) + left,
                                         fOut.Row(y), fWidth);
                continue;
            }
            if (fHalvesRows) {
                const T* upper = ScaledRow(first);
                fOperations.average(upper, ScaledRow(last), fOut.Row(y), fWidth);
                continue;
            }
            fOperations.addRow(ScaledRow(first), entry.fFirstWeight, fSums, fWidth);
            for (std::int32_t row = first + 1; row < last; ++row)
                fOperations.addRow(ScaledRow(row), 1, fSums, fWidth);
            if (last > first)
                fOperations.addRow(ScaledRow(last), entry.fLastWeight, fSums, fWidth);
            fOperations.takeSums(fSums, fRows.fScale, fOut.Row(y), fWidth);
        }
    }

    void Enlarge()
    {
        for (std::int32_t y = 0; y < fOut.fHeight; ++y) {
            const ScaleEntry& entry = fRows.fEntries[static_cast<std::size_t>(y)];
            const T* first = ScaledRow(entry.fFirst - fRows.fStart);
            if (entry.fLastWeight > 0)
                fOperations.combine(first, ScaledRow(entry.fLast - fRows.fStart),
                                    entry.fFirstWeight, entry.fLastWeight, fOut.Row(y), fWidth);
            else
                std::memcpy(fOut.Row(y), first, fWidth * sizeof(T));
        }
    }

    const ScaleRows<T>& fOperations = ActiveRows<T>();
    Plane<const T> fSource;
    Plane<T> fOut;
    ScaleMode fColumnMode;
    const ScaleAxis& fRows;
    std::size_t fWidth;
    double* fSums;
    ScaleColumns fColumns;
    T* fScaled[2];
    std::int32_t fKept[2] = {-1, -1}; // the source rows in fScaled
    std::size_t fNewest = 0;
    bool fHalvesRows;
    bool fHalvesBoth;
};

} // namespace

template <class T>
void ScalePlane(Plane<const T> source, Plane<T> out, const ScaleAxis& columns,
                const ScaleAxis& rows, std::byte* scratch)
{
    CPlaneScaler<T>(source, out, columns, rows, scratch).Run();
}

template void ScalePlane(Plane<const std::uint8_t>, Plane<std::uint8_t>, const ScaleAxis&,
                         const ScaleAxis&, std::byte*);
template void ScalePlane(Plane<const std::uint16_t>, Plane<std::uint16_t>, const ScaleAxis&,
                         const ScaleAxis&, std::byte*);
template void ScalePlane(Plane<const std::uint32_t>, Plane<std::uint32_t>, const ScaleAxis&,
                         const ScaleAxis&, std::byte*);

} // namespace Kesto::Kernels
