#include "controls/scrolling/scroll_track.h"

#include <algorithm>

namespace Kesto {

double SScrollTrack::ThumbLength() const
{
    if (!HasThumb())
        return 0.0;
    const double seen = std::max(page, 0.0);
    return std::clamp(length * (seen / (seen + way)), kLeastThumb, length);
}

double SScrollTrack::ThumbStart(double distance) const
{
    if (!HasThumb())
        return 0.0;
    return (length - ThumbLength()) * std::clamp(distance / way, 0.0, 1.0);
}

double SScrollTrack::DistanceAt(double thumbStart) const
{
    const double room = length - ThumbLength();
    if (!HasThumb() || room <= 0.0)
        return 0.0;
    return way * std::clamp(thumbStart / room, 0.0, 1.0);
}

} // namespace Kesto
