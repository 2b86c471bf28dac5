// The sums of a reduction down the columns, eight pixels at a time.
#include "pixels/kernels/avx512/doubles.h"
#include "pixels/kernels/avx512/tables.h"

namespace Kesto::Kernels::Avx512 {
namespace {

template <class T>
void AddRow(const T* row, float weight, double* sum, std::size_t n)
{
    const __m512d factor = _mm512_set1_pd(static_cast<double>(weight));
    std::size_t i = 0;
    if (weight >= 1)
        for (; i + kLanes <= n; i += kLanes)
            _mm512_storeu_pd(sum + i, _mm512_add_pd(_mm512_loadu_pd(sum + i), Load8(row + i)));
    else
        for (; i + kLanes <= n; i += kLanes)
            _mm512_storeu_pd(sum + i, _mm512_add_pd(_mm512_loadu_pd(sum + i),
                                                    _mm512_mul_pd(Load8(row + i), factor)));
    Avx2::PlainRows<T>().addRow(row + i, weight, sum + i, n - i);
}

template <class T>
void TakeSums(double* sum, float scale, T* out, std::size_t n)
{
    const __m512d factor = _mm512_set1_pd(static_cast<double>(scale));
    const __m512d half = _mm512_set1_pd(0.5);
    std::size_t i = 0;
    for (; i + kLanes <= n; i += kLanes) {
        Store8(out + i, _mm512_add_pd(_mm512_mul_pd(_mm512_loadu_pd(sum + i), factor), half));
        _mm512_storeu_pd(sum + i, _mm512_setzero_pd());
    }
    Avx2::PlainRows<T>().takeSums(sum + i, scale, out + i, n - i);
}

template <class T>
void AddTo(ScaleRows<T>& rows)
{
    rows.addRow = AddRow<T>;
    rows.takeSums = TakeSums<T>;
}

} // namespace

void AddSums(KernelTable& table)
{
    AddTo(table.scale8);
    AddTo(table.scale16);
    AddTo(table.scale32);
}

} // namespace Kesto::Kernels::Avx512
