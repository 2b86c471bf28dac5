// SScrollTrack, the arithmetic of a scroll bar's thumb.
#pragma once

namespace Kesto {

// Units along the bar, between its buttons. `way` is how far the contents can be scrolled, `page`
// how much of them is seen: the thumb is to the track as the page is to all.
struct SScrollTrack {
    static constexpr double kLeastThumb = 24.0;

    double length = 0.0;
    double way = 0.0;
    double page = 0.0;

    // There is none where nothing can be scrolled, and on a track that is too short for it.
    bool HasThumb() const { return way > 0.0 && length > kLeastThumb; }
    double ThumbLength() const;

    // The thumb's place on the track for a distance from the beginning of the way, and the way
    // back. Both are pinned.
    double ThumbStart(double distance) const;
    double DistanceAt(double thumbStart) const;
};

} // namespace Kesto
