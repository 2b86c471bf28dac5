// SValueRange, the values between two ends of a slider or scroll bar, and where they lie on the way
// from one to the other.
//
// The first end may be the larger one: then the values run backwards. Ends are finite. What is not
// a number is nowhere on the way: Pinned and Stepped hand it back, and it has share 0.
#pragma once

namespace Kesto {

struct SValueRange {
    double first = 0.0;
    double last = 100.0;
    int positions = 0; // evenly spaced, the ends among them; below 2 every value is one

    double Low() const { return first < last ? first : last; }
    double High() const { return first < last ? last : first; }

    // The nearest value between the ends, and the nearest position.
    double Pinned(double value) const;
    double Snapped(double value) const;

    // 0 at the first end, 1 at the last; 0 when they are equal. ValueAt is the way back, snapped.
    double ShareOf(double value) const;
    double ValueAt(double share) const;

    // What a step by `delta` from a value leads to: pinned, and at least to the next position when
    // the step is shorter than that. Above 0 goes to larger values.
    double Stepped(double value, double delta) const;

    // A position's distance from the next, or a hundredth of the way; never below 0.
    double NaturalStep() const;
};

} // namespace Kesto
