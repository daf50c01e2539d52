#include "support/GeosLines.h"

namespace ZoBench
{
GeosLines::GeosLines(const std::vector<Path>& paths) : m_context(GEOS_init_r())
{
    std::vector<double> xy;
    for (const Path& path : paths)
    {
        // A line string needs two points; shorter lists have nothing to simplify.
        if (path.size() < 2)
            continue;
        xy.clear();
        for (const CVector3D& p : path)
        {
            xy.push_back(p.x);
            xy.push_back(p.y);
        }
        GEOSCoordSequence* sequence =
            GEOSCoordSeq_copyFromBuffer_r(m_context, xy.data(), static_cast<unsigned>(path.size()), 0, 0);
        if (GEOSGeometry* line = GEOSGeom_createLineString_r(m_context, sequence))
            m_lines.push_back(line);
    }
}

GeosLines::~GeosLines()
{
    for (GEOSGeometry* line : m_lines)
        GEOSGeom_destroy_r(m_context, line);
    GEOS_finish_r(m_context);
}

std::size_t GeosLines::Simplify(double tolerance) const
{
    std::size_t kept = 0;
    for (const GEOSGeometry* line : m_lines)
    {
        GEOSGeometry* simplified = GEOSSimplify_r(m_context, line, tolerance);
        if (!simplified)
            continue;
        kept += static_cast<std::size_t>(GEOSGetNumCoordinates_r(m_context, simplified));
        GEOSGeom_destroy_r(m_context, simplified);
    }
    return kept;
}
} // namespace ZoBench
