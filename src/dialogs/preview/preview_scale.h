// The scales of a preview: whole factors, and the steps between them.
#pragma once

#include <cstdint>

namespace Project {

// Source pixels for a display pixel, and display pixels for a source pixel; one of them is 1.
struct PreviewFactors {
    int32_t source = 1;
    int32_t dest = 1;

    bool operator==(const PreviewFactors&) const = default;
};

inline constexpr double kLeastPreviewScale = 0.0625;
inline constexpr double kMostPreviewScale = 16.0;

// The nearest scale that has whole factors, within the limits. What is no number is 1.
double RoundScale(double scale);

// Of a scale as RoundScale gives it.
PreviewFactors FactorsOf(double scale);

// The next scale of the zoom menu above, or below; at the end the scale itself.
double NextScale(double scale);
double PreviousScale(double scale);

} // namespace Project
