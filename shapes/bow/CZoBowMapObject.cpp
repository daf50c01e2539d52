#include "shapes/bow/CZoBowMapObject.h"

#include <cmath>

namespace
{
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kOutlineStep = 0.1; // degrees
} // namespace

void CZoBowMapObject::SetStartAngle(double degrees)
{
    if (!std::isfinite(degrees))
        return;
    m_startAngle = ZoNormaliseBowAngle(degrees);
    Core().RebuildAndRepaint(false);
}

void CZoBowMapObject::SetSpanAngle(double degrees)
{
    if (!std::isfinite(degrees))
        return;
    m_spanAngle = ZoNormaliseBowAngle(degrees);
    Core().RebuildAndRepaint(false);
}

void CZoBowMapObject::SetKind(EZoBowKind kind)
{
    m_kind = kind;
    Core().RebuildAndRepaint(true);
}

void CZoBowMapObject::GetOutlinePoints(std::vector<CVector3D>& out) const
{
    IZoMapModule* map = Core().GetMapModule();
    if (!map)
        return;
    const EXTENT extent = GetExtent();
    const CVector3D center = GetCenter();
    QPointF centre;
    QPointF east;
    if (!GeoToPixel(center, &centre) ||
        !GeoToPixel(CVector3D(ZoExtentEast(extent), (extent.ymin + extent.ymax) * 0.5, 0.0), &east))
        return;
    if (m_kind == EZoBowKind::Pie)
        out.push_back(center);
    // On a circle of the ellipse's horizontal pixel radius, not on the ellipse.
    const double r = std::hypot(east.x() - centre.x(), east.y() - centre.y());
    const auto walk = [&](double from, double to) {
        for (int i = 0; from + i * kOutlineStep <= to + 1e-9; ++i)
        {
            const double a = (from + i * kOutlineStep) * kRadiansPerDegree;
            out.push_back(PixelToGeo(QPointF(std::trunc(centre.x() + r * std::cos(a)),
                                             std::trunc(centre.y() - r * std::sin(a)))));
        }
    };
    const double end = m_startAngle + m_spanAngle;
    walk(m_startAngle, std::min(end, 360.0));
    if (end > 360.0)
        walk(0.0, end - 360.0);
}
