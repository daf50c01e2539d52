#pragma once

#include <climits>
#include <cmath>

// A scene coordinate as the integer pixel the host map converts: truncated
// like a plain cast, but saturated, and 0 for NaN, so that far-off or broken
// geometry cannot make the conversion itself undefined.
inline int ZoPixelInt(double value)
{
    if (!(value == value))
        return 0;
    if (value <= static_cast<double>(INT_MIN))
        return INT_MIN;
    if (value >= static_cast<double>(INT_MAX))
        return INT_MAX;
    return static_cast<int>(value);
}

// Sizes and offsets given in pixels are kept within a million pixels either
// way: beyond that nothing is visible on any screen, and multiplied by the
// pixel scale or summed with positions they would overflow to infinity.
constexpr double kZoLargestPixels = 1e6;

inline bool ZoPlausiblePixels(double value)
{
    return std::abs(value) <= kZoLargestPixels;
}

// A pen is no wider than the largest size and never negative.
inline bool ZoPlausiblePenWidth(double width)
{
    return width >= 0.0 && width <= kZoLargestPixels;
}
