// What the filters of rows predict, for a vector V whose lanes are pixels of different rows.
// Internal linkage throughout; see diagonal.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Kesto {
namespace {

template <class V>
inline V Select(V mask, V yes, V no)
{
    return (mask & yes) | AndNot(mask, no);
}

// The mean, rounded down.
template <class V>
inline V FloorMean(V a, V b)
{
    return Subtract(CeilMean(a, b), (a ^ b) & V::Ones());
}

// Which of the three is nearest to left + up - corner. Where corner lies between the other two, it
// is the nearest unless it is at least twice as near to one of them: then the other one is. Where
// it lies outside, the farther one is. That needs bytes alone, and no sign: a distance on the wrong
// side is 0.
template <class V>
inline V NearestOf(V left, V up, V corner)
{
    const V low = Least(left, up), high = Greatest(left, up);
    const V toHigh = SubtractFloored(high, corner), toLow = SubtractFloored(corner, low);
    const V isLow = Equal(SubtractFloored(AddCapped(toHigh, toHigh), toLow), V::Zero());
    const V isHigh = Equal(SubtractFloored(AddCapped(toLow, toLow), toHigh), V::Zero());
    return Select(isHigh, high, Select(isLow, low, corner));
}

// Which filters the rows of a group have: none of them Average, Average and others, Average alone.
enum class Kinds { kNearest, kMixed, kMeans };

// The filters of the lanes, as masks. All but Average are the nearest of the three neighbours, of
// which Sub and Up see one, and those that predict nothing none.
template <class V>
struct LaneFilters {
    V seesLeft = V::Zero();
    V seesUp = V::Zero();
    V seesCorner = V::Zero();
    V isMean = V::Zero();

    void SetLane(int lane, int laneBytes, std::uint8_t filter)
    {
        const auto set = [&](V& mask, bool on) {
            if (on)
                std::memset(reinterpret_cast<std::uint8_t*>(&mask) + lane * laneBytes, 0xFF,
                            static_cast<std::size_t>(laneBytes));
        };
        set(seesLeft, filter == 1 || filter == 4);
        set(seesUp, filter == 2 || filter == 4);
        set(seesCorner, filter == 4);
        set(isMean, filter == 3);
    }

    template <Kinds kKinds>
    V Predict(V left, V up, V corner) const
    {
        const V nearest = NearestOf(left & seesLeft, up & seesUp, corner & seesCorner);
        if constexpr (kKinds == Kinds::kMixed)
            return nearest | (FloorMean(left, up) & isMean);
        else
            return nearest;
    }
};

} // namespace
} // namespace Kesto
