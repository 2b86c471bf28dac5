// Scaling down the columns: rows are added up in doubles.
#include "pixels/kernels/avx2/doubles.h"
#include "pixels/kernels/avx2/tables.h"

namespace Kesto::Kernels::Avx2 {

namespace {

template <class T>
void AddRow(const T* row, float weight, double* sum, std::size_t n)
{
    const __m256d factor = _mm256_set1_pd(static_cast<double>(weight));
    std::size_t i = 0;
    if (weight >= 1)
        for (; i + 4 <= n; i += 4)
            _mm256_storeu_pd(sum + i, _mm256_add_pd(_mm256_loadu_pd(sum + i), Doubles(row + i)));
    else
        for (; i + 4 <= n; i += 4)
            _mm256_storeu_pd(sum + i, _mm256_add_pd(_mm256_loadu_pd(sum + i),
                                                    _mm256_mul_pd(Doubles(row + i), factor)));
    PlainRows<T>().addRow(row + i, weight, sum + i, n - i);
}

template <class T>
void TakeSums(double* sum, float scale, T* out, std::size_t n)
{
    const __m256d factor = _mm256_set1_pd(static_cast<double>(scale));
    std::size_t i = 0;
    for (; i + 4 <= n; i += 4) {
        StoreScaled(out + i, _mm256_loadu_pd(sum + i), factor);
        _mm256_storeu_pd(sum + i, _mm256_setzero_pd());
    }
    PlainRows<T>().takeSums(sum + i, scale, out + i, n - i);
}

template <class T>
void AddSums(ScaleRows<T>& rows)
{
    rows.addRow = AddRow<T>;
    rows.takeSums = TakeSums<T>;
}

} // namespace

void AddScaling(KernelTable& table)
{
    AddSums(table.scale8);
    AddSums(table.scale16);
    AddSums(table.scale32);
    AddReducing(table);
    AddEnlarging(table);
}

} // namespace Kesto::Kernels::Avx2
