#pragma once

#include <cmath>
#include <cstddef>

// Longitudes on a map that is periodic in x. Everything that turns a line or
// a ring of geographic points into a drawing goes through these rules, the
// basemap of the reference host included, so that a shape crossing the
// antimeridian is drawn where it lies rather than across the whole world.
namespace ZoAntimeridian
{
// The same meridian taken into [-180, 180] (fmod is exact, also for
// longitudes far beyond one turn).
inline double Wrap(double lon)
{
    // Left exactly as given inside the world: the arithmetic below could move
    // it by a rounding step, and a pixel with it.
    if (lon >= -180.0 && lon <= 180.0)
        return lon;
    double east = std::fmod(lon + 180.0, 360.0);
    if (east < 0.0)
        east += 360.0;
    return east - 180.0;
}

// A point after another of the same line takes the short way: the result
// lies within half a turn of previous, past +-180 where the line crosses.
inline double Continue(double previous, double lon)
{
    // A step within half a turn keeps the value exactly as given.
    if (std::fabs(lon - previous) <= 180.0)
        return lon;
    return previous + std::remainder(lon - previous, 360.0);
}

// A ring whose unwrapped ends lie more than half a turn apart goes once
// round a pole (Antarctica); it is closed along that pole.
inline bool GoesRoundPole(double firstLon, double lastLon)
{
    return std::fabs(lastLon - firstLon) > 180.0;
}

// Whole turns to add to an unwrapped span so that its middle lies in
// [-180, 180]: the copy a viewer of the world sees. A span already there, one
// centred on the antimeridian included, stays where its first point put it.
inline double TurnsIntoWorld(double west, double east)
{
    const double middle = (west + east) * 0.5;
    return middle >= -180.0 && middle <= 180.0 ? 0.0 : -std::floor((middle + 180.0) / 360.0);
}

// Unwraps a sequence in place. lonOf(i) gives and setLon(i, v) stores the
// longitude of point i; returns the turns the whole sequence was moved by
// (0 when it already lay in the world).
template <class LonOf, class SetLon>
double Unwrap(std::size_t count, LonOf lonOf, SetLon setLon)
{
    if (count == 0)
        return 0.0;
    double previous = Wrap(lonOf(0));
    setLon(0, previous);
    double west = previous;
    double east = previous;
    for (std::size_t i = 1; i < count; ++i)
    {
        previous = Continue(previous, lonOf(i));
        setLon(i, previous);
        west = std::fmin(west, previous);
        east = std::fmax(east, previous);
    }
    const double turns = TurnsIntoWorld(west, east);
    if (turns != 0.0)
        for (std::size_t i = 0; i < count; ++i)
            setLon(i, lonOf(i) + 360.0 * turns);
    return turns;
}
} // namespace ZoAntimeridian
