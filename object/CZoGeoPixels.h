#pragma once

#include <ZoGraphics/ZoCoreTypes.h>

#include <QPointF>
#include <QPolygonF>
#include <cstddef>
#include <limits>
#include <vector>

class IZoMapModule;

// Geographic points to the integer scene pixels of the map module's current
// view: the one conversion every kind's item is placed and shaped with.
// Longitudes are periodic: a longitude past +-180 is the same meridian, drawn
// one world width beside its twin, so that a line may continue across the
// antimeridian instead of turning back across the whole map.
class CZoGeoPixels
{
public:
    explicit CZoGeoPixels(IZoMapModule* map);

    // False without a map module, for a non-finite point, or when the module
    // cannot convert it.
    bool Point(double lon, double lat, QPointF* pixel) const;
    bool Point(const CVector3D& point, QPointF* pixel) const { return Point(point.x, point.y, pixel); }
    // (0, 0) where Point is false.
    QPointF PointOrZero(const CVector3D& point) const;

    // Offsets from origin of a line's points, each taking the short way from
    // the one before, and the whole line moved by whole turns into the world,
    // or, given a finite nearX, to lie within half a world of that offset: the
    // parts of one object (Russia's Wrangel Island beside Chukotka) stay
    // together across the antimeridian.
    QPolygonF Offsets(const std::vector<CVector3D>& line, const QPointF& origin,
                      double nearX = std::numeric_limits<double>::quiet_NaN()) const;

    // Notes points handed to a setter that the map draws elsewhere than
    // given: a longitude past +-180 (the same meridian) and a latitude past
    // a pole (at the map's edge), once per call each. Latitudes between the
    // projection's reach and the poles are valid and drawn at the edge
    // without a word: the world's coastlines reach them.
    static void NoteOutOfRange(const CVector3D* points, std::size_t count, const char* cls, const char* method);

    // Pixels of one turn of longitude; 0 when the map module does not repeat.
    double WorldWidth() const;
    // x moved by whole world widths to lie within half a world of near.
    double Near(double x, double near) const;
    // Pixel y of the map's edge towards a pole (as far as the projection reaches).
    double PoleY(bool north) const;

private:
    IZoMapModule* m_map;
    mutable double m_worldWidth = -1.0; // measured on first need
};
