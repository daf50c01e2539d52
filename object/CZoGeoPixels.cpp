#include "object/CZoGeoPixels.h"

#include "object/ZoAntimeridian.h"

#include "object/ZoLogText.h"

#include <ZoGraphics/IZoMapModule.h>

#include <algorithm>
#include <cmath>

namespace
{
bool Convert(IZoMapModule* map, double lon, double lat, QPointF* pixel)
{
    int px = 0;
    int py = 0;
    if (!map->ConvertSceneToPixel(&px, &py, lon, lat))
        return false;
    *pixel = QPointF(px, py);
    return true;
}
} // namespace

CZoGeoPixels::CZoGeoPixels(IZoMapModule* map) : m_map(map) {}

double CZoGeoPixels::WorldWidth() const
{
    if (m_worldWidth < 0.0)
    {
        QPointF west;
        QPointF east;
        m_worldWidth = 0.0;
        if (m_map && Convert(m_map, -180.0, 0.0, &west) && Convert(m_map, 180.0, 0.0, &east) && east.x() > west.x())
            m_worldWidth = east.x() - west.x();
    }
    return m_worldWidth;
}

bool CZoGeoPixels::Point(double lon, double lat, QPointF* pixel) const
{
    if (!m_map || !std::isfinite(lon) || !std::isfinite(lat))
        return false;
    lat = std::clamp(lat, -90.0, 90.0);
    // Inside the world the map module is asked directly: no world width needed.
    if ((lon >= -180.0 && lon <= 180.0) || WorldWidth() <= 0.0)
        return Convert(m_map, lon, lat, pixel);
    const double wrapped = ZoAntimeridian::Wrap(lon);
    QPointF at;
    if (!Convert(m_map, wrapped, lat, &at))
        return false;
    const double turns = std::round((lon - wrapped) / 360.0);
    at.rx() += turns * m_worldWidth;
    if (!std::isfinite(at.x()))
        return false;
    *pixel = at;
    return true;
}

QPointF CZoGeoPixels::PointOrZero(const CVector3D& point) const
{
    QPointF pixel;
    return Point(point, &pixel) ? pixel : QPointF(0.0, 0.0);
}

QPolygonF CZoGeoPixels::Offsets(const std::vector<CVector3D>& line, const QPointF& origin, double nearX) const
{
    std::vector<double> lons;
    lons.reserve(line.size());
    for (const CVector3D& point : line)
        lons.push_back(point.x);
    ZoAntimeridian::Unwrap(
        lons.size(), [&lons](std::size_t i) { return lons[i]; }, [&lons](std::size_t i, double lon) { lons[i] = lon; });
    QPolygonF offsets;
    offsets.reserve(static_cast<int>(line.size()));
    for (std::size_t i = 0; i < line.size(); ++i)
    {
        QPointF pixel;
        if (!Point(lons[i], line[i].y, &pixel))
            pixel = QPointF(0.0, 0.0);
        offsets.append(pixel - origin);
    }
    if (std::isfinite(nearX) && !offsets.isEmpty())
    {
        const QRectF box = offsets.boundingRect();
        const double middle = (box.left() + box.right()) * 0.5;
        const double shift = Near(middle, nearX) - middle;
        if (shift != 0.0)
            offsets.translate(shift, 0.0);
    }
    return offsets;
}

double CZoGeoPixels::Near(double x, double near) const
{
    const double width = WorldWidth();
    return width > 0.0 ? x + width * std::round((near - x) / width) : x;
}

double CZoGeoPixels::PoleY(bool north) const
{
    QPointF pixel;
    return Point(0.0, north ? 90.0 : -90.0, &pixel) ? pixel.y() : 0.0;
}

void CZoGeoPixels::NoteOutOfRange(const CVector3D* points, std::size_t count, const char* cls,
                                  const char* method)
{
    bool pastMeridian = false;
    bool pastPole = false;
    for (std::size_t i = 0; i < count; ++i)
    {
        pastMeridian = pastMeridian || std::fabs(points[i].x) > 180.0;
        pastPole = pastPole || std::fabs(points[i].y) > 90.0;
    }
    if (pastMeridian)
        ZoLogWarnAt(cls, method) << "经度超出±180, 按同一经线绘制";
    if (pastPole)
        ZoLogWarnAt(cls, method) << "纬度超出±90, 在地图边缘绘制";
}
