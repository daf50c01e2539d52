#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <QByteArray>
#include <string>
#include <vector>

class IZoGraphicsMapLayer;
class IZoGraphicsMapObject;
class IZoGraphicsModule;

// GeoJSON (RFC 7946) FeatureCollections in and out of a graphics layer.
//
// Loading makes one object per feature: Point a dot, MultiPoint a multi-dot,
// LineString a polyline, MultiLineString a multi-line, Polygon and
// MultiPolygon a multi-polygon (holes stay holes under its odd-even fill).
// The "name" property names the object, and every property is stored with
// SetProperty. A bad feature is skipped with a warning naming its index; the
// rest load. Text that is not JSON loads nothing and the warning says where
// it broke.
namespace ZoGeoJsonNS
{
struct SZoGeoJsonLoadResult
{
    std::vector<IZoGraphicsMapObject*> objects; // in feature order
    int skipped = 0;                            // bad features
    bool parsed = false;                        // false: nothing was read
};

// A null layer means the module's default layer.
ZOGRAPHICS_EXPORT SZoGeoJsonLoadResult LoadGeoJson(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer,
                                                   const QByteArray& json);
ZOGRAPHICS_EXPORT SZoGeoJsonLoadResult LoadGeoJsonFile(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer,
                                                       const std::string& path);

// Writes the point kinds, point-list kinds and their properties as a
// FeatureCollection; objects of other kinds are left out. Loading the result
// again gives the same geometry.
ZOGRAPHICS_EXPORT QByteArray WriteGeoJson(const std::vector<IZoGraphicsMapObject*>& objects);
// The same for every object on a layer, in the order they were created. A
// null layer, or one not made by CZoGraphicsModule, gives an empty collection.
ZOGRAPHICS_EXPORT QByteArray WriteGeoJsonLayer(IZoGraphicsMapLayer* layer);
} // namespace ZoGeoJsonNS
