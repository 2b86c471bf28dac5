// Enlarging rows of bytes, 64 target pixels at a time. As in the source for AVX2, pixels are
// computed in whole numbers, and vectors with one that comes too near to the edge between two
// results are done again in doubles.
#include "pixels/kernels/avx2/doubles.h"
#include "pixels/kernels/avx2/factors.h"
#include "pixels/kernels/avx512/plans.h"
#include "pixels/kernels/avx512/tables.h"

namespace Kesto::Kernels::Avx512 {

namespace {

using Avx2::Factor;

constexpr std::size_t kWide = 64;  // bytes
constexpr std::size_t kWords = 32; // of a vector

struct Factors {
    __m512i fWhole, fRest;
};

// Parts of 32 differences in words: whole numbers, and how far these are from the edge to the next
// one, which is negative where the result is rounded up.
struct PartsOf {
    PartsOf(__m512i nearAndFar, const Factors& factors)
    {
        const __m512i difference =
            _mm512_maddubs_epi16(nearAndFar, _mm512_set1_epi16(0x01FF)); // times -1 and 1
        fWhole = _mm512_mulhi_epi16(difference, factors.fWhole);
        const __m512i fraction = _mm512_mullo_epi16(difference, factors.fWhole);
        const __m512i rest = _mm512_mulhrs_epi16(difference, factors.fRest);
        fToEdge = _mm512_subs_epi16(_mm512_xor_si512(fraction, _mm512_set1_epi16(32767)), rest);
    }

    __m512i fWhole, fToEdge;
};

// The distances from the edges of both halves, capped, in the order of packed bytes.
__m512i Lifted(const PartsOf& low, const PartsOf& high, __m512i lifts)
{
    return _mm512_subs_epi8(_mm512_packs_epi16(low.fToEdge, high.fToEdge), lifts);
}

bool AreDoubtful(__m512i toEdge)
{
    return _mm512_cmplt_epu8_mask(_mm512_abs_epi8(toEdge), _mm512_set1_epi8(Factor::kDoubt)) != 0;
}

__m512i RoundedUp(__m512i bytes, __m512i toEdge)
{
    return _mm512_mask_sub_epi8(bytes, _mm512_movepi8_mask(toEdge), bytes, _mm512_set1_epi8(-1));
}

// Target pixels of a row, from a piece of 64 source pixels, of which those may be read that are in
// the row.
struct Group {
    static constexpr std::size_t kCount = kWide;

    bool Lay(const ScaleEntry* entries, const ScaleColumns& columns)
    {
        fPiece = entries[0].fFirst - columns.fStart;
        fReadable = columns.fSourceWidth - fPiece;
        for (std::size_t i = 0; i < kCount; ++i) {
            const ScaleEntry& entry = entries[i];
            const std::int32_t places[2] = {entry.fFirst - entries[0].fFirst,
                                            entry.fLast - entries[0].fFirst};
            if (places[0] < 0 || places[1] < places[0] || places[1] >= 64 ||
                !Avx2::AreShares(entry.fFirstWeight, entry.fLastWeight))
                return false;
            const std::size_t near = entry.fLastWeight > entry.fFirstWeight ? 1 : 0;
            const std::size_t half = i / 8 % 2, word = i / 16 * 8 + i % 8;
            fPlaces[half][word][0] = static_cast<Byte>(places[near]);
            fPlaces[half][word][1] = static_cast<Byte>(places[1 - near]);
            const Factor factor(entry.fFirstWeight, entry.fLastWeight);
            fWhole[half][word] = factor.fWhole;
            fRest[half][word] = factor.fRest;
            fLifts[i] = factor.fLift;
        }
        return true;
    }

    std::int32_t fPiece; // where it starts
    std::int32_t fReadable;
    // In halves of words, in the order in which these are packed.
    Byte fPlaces[2][kWords][2]; // of the near and the far pixels in the piece
    std::int16_t fWhole[2][kWords], fRest[2][kWords];
    std::int8_t fLifts[kCount];
};

// Half a group in words, still to be rounded up.
struct HalfGroup {
    HalfGroup(__m512i piece, const Group& group, std::size_t half)
        : fPixels(_mm512_permutexvar_epi8(_mm512_loadu_si512(group.fPlaces[half]), piece)),
          fParts(fPixels,
                 {_mm512_loadu_si512(group.fWhole[half]), _mm512_loadu_si512(group.fRest[half])})
    {
    }

    __m512i Words() const
    {
        return _mm512_add_epi16(_mm512_and_si512(fPixels, _mm512_set1_epi16(255)), fParts.fWhole);
    }

    __m512i fPixels;
    PartsOf fParts;
};

// False where the pixels have to be done again.
bool EnlargeGroup(const Byte* source, const Group& group, Byte* out)
{
    const __m512i piece =
        _mm512_maskz_loadu_epi8(FirstLanes(group.fReadable), source + group.fPiece);
    const HalfGroup low(piece, group, 0), high(piece, group, 1);
    const __m512i toEdge = Lifted(low.fParts, high.fParts, _mm512_loadu_si512(group.fLifts));
    _mm512_storeu_si512(out, RoundedUp(_mm512_packus_epi16(low.Words(), high.Words()), toEdge));
    return !AreDoubtful(toEdge);
}

void Plan(const ScaleColumns& columns)
{
    HeadOf(columns).fGroups = LayGroups<Group>(columns);
    if (HeadOf(columns).fGroups == 0)
        Avx2Kernels().scale8.planEnlarge(WithInnerPlan(columns));
}

void EnlargeRow(const Byte* source, const ScaleColumns& columns, Byte* out)
{
    const std::size_t groups = HeadOf(columns).fGroups;
    if (groups == 0)
        return Avx2Kernels().scale8.enlarge(source, WithInnerPlan(columns), out);
    const Group* group = GroupsOf<Group>(columns);
    const std::size_t count = columns.fCount;
    for (std::size_t index = 0; index < groups; ++index, ++group) {
        const std::size_t i = EntryOf<Group>(count, index);
        FetchAhead(source + group->fPiece);
        if (!EnlargeGroup(source, *group, out + i))
            PlainKernels().scale8.enlarge(source, Avx2::Part(columns, i, kWide), out + i);
    }
}

void Combine(const Byte* a, const Byte* b, float weightA, float weightB, Byte* out, std::size_t n)
{
    const bool isNear = weightA >= weightB;
    const Byte *near = isNear ? a : b, *far = isNear ? b : a;
    const Factor factor(weightA, weightB);
    const Factors factors{_mm512_set1_epi16(factor.fWhole), _mm512_set1_epi16(factor.fRest)};
    const __m512i lifts = _mm512_set1_epi8(factor.fLift);
    const bool areShares = Avx2::AreShares(weightA, weightB);
    const auto narrower = Avx2Kernels().scale8.combine;
    std::size_t i = 0;
    for (; i + kWide <= n && areShares; i += kWide) {
        const __m512i ours = _mm512_loadu_si512(near + i), theirs = _mm512_loadu_si512(far + i);
        const PartsOf low(_mm512_unpacklo_epi8(ours, theirs), factors);
        const PartsOf high(_mm512_unpackhi_epi8(ours, theirs), factors);
        const __m512i toEdge = Lifted(low, high, lifts);
        const __m512i parts = _mm512_packs_epi16(low.fWhole, high.fWhole);
        _mm512_storeu_si512(out + i, RoundedUp(_mm512_add_epi8(ours, parts), toEdge));
        if (AreDoubtful(toEdge))
            narrower(a + i, b + i, weightA, weightB, out + i, kWide);
    }
    narrower(a + i, b + i, weightA, weightB, out + i, n - i);
}

} // namespace

void AddEnlarging(KernelTable& table)
{
    table.scale8.planEnlarge = Plan;
    table.scale8.enlarge = EnlargeRow;
    table.scale8.combine = Combine;
}

} // namespace Kesto::Kernels::Avx512
