#include "shapes/circle/CZoCircleMapObject.h"

#include "object/ZoAnchoredShape.h"
#include "object/ZoAntimeridian.h"
#include "object/ZoPixelValues.h"

#include <ZoGraphics/IZoMapModule.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace
{
constexpr double kRadiansPerDegree = 0.017453292519943295;
// The host's coordinate mode in which outlines are computed in degrees.
constexpr int kGeographicMode = 2;
// The deepest level of detail; deeper requests would ask for billions of points.
constexpr int kMaxOutlineLevel = 21;
} // namespace

void CZoCircleMapObject::SetCenter(const CVector3D& center)
{
    // The rim moves along, which keeps the radius.
    m_rimPoint.x += center.x - m_center.x;
    m_rimPoint.y += center.y - m_center.y;
    m_rimPoint.z += center.z - m_center.z;
    m_center = center;
    Core().UpdatePosition();
}

void CZoCircleMapObject::SetRadiusPoint(const CVector3D& point)
{
    // A rim across the antimeridian is reached the short way, as the map
    // module measures the radius.
    const double d = std::hypot(ZoAntimeridian::Continue(m_center.x, point.x) - m_center.x, point.y - m_center.y);
    m_rimPoint = CVector3D(m_center.x + d, m_center.y, 0.0);
    Core().RebuildAndRepaint(false);
}

double CZoCircleMapObject::GetRadius() const
{
    IZoMapModule* map = Core().GetMapModule();
    return map ? map->CalculateDistance(m_center.x, m_center.y, m_rimPoint.x, m_rimPoint.y) : 0.0;
}

void CZoCircleMapObject::GetOutlinePoints(std::vector<CVector3D>& out, int level) const
{
    IZoMapModule* map = Core().GetMapModule();
    if (!map)
        return;
    const int n = std::max(level, 1);
    if (n == 1)
    {
        out.push_back(m_rimPoint);
        return;
    }
    const int m = n == 2 ? 4 : (n > kMaxOutlineLevel ? 0 : static_cast<int>(std::pow(2.0, n)));
    if (m < 1)
        return;
    const double step = 360.0 / m;
    if (map->GetTileModelKind() == kGeographicMode)
    {
        // Counter-clockwise in degrees.
        const double r = std::hypot(m_rimPoint.x - m_center.x, m_rimPoint.y - m_center.y);
        for (int i = 0; i < m; ++i)
        {
            const double a = i * step * kRadiansPerDegree;
            out.emplace_back(m_center.x + r * std::cos(a), m_center.y + r * std::sin(a), 0.0);
        }
        return;
    }
    // In pixels y grows downwards, so this walk runs clockwise on the screen.
    QPointF centre;
    QPointF rim;
    if (!ZoGeoToScenePixel(map, m_center, &centre) || !ZoGeoToScenePixel(map, m_rimPoint, &rim))
        return;
    const double r = std::hypot(rim.x() - centre.x(), rim.y() - centre.y());
    for (int i = 0; i < m; ++i)
    {
        const double a = i * step * kRadiansPerDegree;
        CVector3D point;
        map->ConvertPixelToScene(&point.x, &point.y, ZoPixelInt(centre.x() + r * std::cos(a)),
                                 ZoPixelInt(centre.y() + r * std::sin(a)));
        out.push_back(point);
    }
}

void CZoCircleMapObject::GetCharacteristicPoints(std::vector<CVector3D>& out) const
{
    const double d = m_rimPoint.x - m_center.x;
    out.clear();
    out.emplace_back(m_center.x, m_center.y, -1.0);
    out.emplace_back(m_rimPoint.x, m_rimPoint.y, 1.0);
    out.emplace_back(m_center.x - d, m_center.y, 1.0);
    out.emplace_back(m_center.x, m_center.y + d, 1.0);
    out.emplace_back(m_center.x, m_center.y - d, 1.0);
}

QPointF CZoCircleMapObject::ConvertAnchorToPixel()
{
    return ZoAnchorToScenePixel(Core(), m_center);
}

namespace
{
QRectF SquareOfRadius(double r)
{
    return QRectF(-r, -r, 2 * r, 2 * r);
}
} // namespace

bool CZoCircleMapObject::SceneOutline(QRectF* outline) const
{
    QPointF centre;
    QPointF rim;
    IZoMapModule* map = Core().GetMapModule();
    if (!ZoGeoToScenePixel(map, m_center, &centre) || !ZoGeoToScenePixel(map, m_rimPoint, &rim))
        return false;
    *outline = SquareOfRadius(std::abs(static_cast<double>(ZoPixelInt(rim.x())) - ZoPixelInt(centre.x())));
    return true;
}

bool CZoCircleMapObject::CanvasOutline(const CZoCanvasProjection& canvas, QRectF* outline) const
{
    QPointF centre;
    QPointF rim;
    if (!canvas.ToPixel(m_center, &centre) || !canvas.ToPixel(m_rimPoint, &rim))
        return false;
    *outline = SquareOfRadius(std::fabs(rim.x() - centre.x()));
    return true;
}
