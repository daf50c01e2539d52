#pragma once

#include "support/BenchData.h"

#include <geos_c.h>

#include <cstddef>
#include <vector>

namespace ZoBench
{
// The same point lists as GEOS line strings (x and y only), built once so
// that a benchmark times GEOS's own work and not the conversion.
class GeosLines
{
public:
    explicit GeosLines(const std::vector<Path>& paths);
    ~GeosLines();
    GeosLines(const GeosLines&) = delete;
    GeosLines& operator=(const GeosLines&) = delete;

    // GEOS's Douglas-Peucker simplifier (GEOSSimplify_r) on every line;
    // returns the number of points kept.
    std::size_t Simplify(double tolerance) const;

private:
    GEOSContextHandle_t m_context;
    std::vector<GEOSGeometry*> m_lines;
};
} // namespace ZoBench
