#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <QByteArray>
#include <string>
#include <vector>

class IZoGraphicsMapLayer;
class IZoGraphicsMapObject;
class IZoGraphicsModule;

/// GeoJSON (RFC 7946) FeatureCollections in and out of a graphics layer.
///
/// Loading makes one object per feature: Point a dot, MultiPoint a multi-dot,
/// LineString a polyline, MultiLineString a multi-line, Polygon and
/// MultiPolygon a multi-polygon (holes stay holes under its odd-even fill).
/// The "name" property names the object, and every property is stored with
/// SetProperty. A bad feature is skipped with a warning naming its index; the
/// rest load. Text that is not JSON loads nothing and the warning says where
/// it broke.
///
/// Positions are [longitude, latitude] or [longitude, latitude, height] in
/// degrees; further members are ignored, and z is 0 when there is no height.
/// Everything runs on the GUI thread, like the module it creates objects with.
namespace ZoGeoJsonNS
{
/// What a load made.
struct SZoGeoJsonLoadResult
{
    /// The objects made, in feature order. The module owns them: give them back
    /// with IZoGraphicsModule::DestroyGraphicsMapObject.
    std::vector<IZoGraphicsMapObject*> objects;
    /// How many features were skipped as bad, each with its own warning.
    int skipped = 0;
    /// Whether the text was read as a FeatureCollection; false when nothing was read.
    bool parsed = false;
};

/// Makes one object per feature of json, a FeatureCollection in UTF-8, on layer.
///
/// A null layer means the module's default layer. Each object is named by the
/// feature's "name" property (empty without one) and gets every property under
/// its key with SetProperty, plus "GeoJSON.PropertyKeys" (the keys read) and,
/// on multi-polygons, "GeoJSON.PolygonRings" (rings per polygon), which
/// WriteGeoJson uses to give back what was read. A closing position that
/// repeats a ring's first one is dropped.
///
/// A feature is skipped with the warning "[CZoGeoJsonReader::Load] 要素",
/// its index, "无效: " and one of these reasons:
/// - 不是Feature对象: it is not a Feature, or has no geometry object;
/// - 几何类型不支持: its geometry is null or not one of the six types read;
/// - 坐标缺失或非数值: a position is missing or not a finite number, a
///   LineString or a line of a MultiLineString has fewer than two positions,
///   or a MultiPoint, MultiLineString, Polygon or MultiPolygon has none;
/// - 环少于3个点: a ring keeps fewer than three positions;
/// - 对象创建失败: the module could not make the object.
///
/// Nothing is loaded, and parsed stays false, when module is null
/// ("[CZoGeoJsonReader::Load] 传入参数为空"), the text is not JSON
/// ("[CZoGeoJsonReader::Load] JSON解析失败, 偏移: " followed by the byte
/// offset and the reason in parentheses), or the top level is not a
/// FeatureCollection ("[CZoGeoJsonReader::Load] 不是FeatureCollection").
ZOGRAPHICS_EXPORT SZoGeoJsonLoadResult LoadGeoJson(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer,
                                                   const QByteArray& json);
/// LoadGeoJson on the contents of the file at path (UTF-8, not GB18030).
/// A file that cannot be opened loads nothing and logs
/// "[CZoGeoJsonReader::LoadFile] 文件无法打开: " followed by the path.
ZOGRAPHICS_EXPORT SZoGeoJsonLoadResult LoadGeoJsonFile(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer,
                                                       const std::string& path);

/// Writes the point kinds, point-list kinds and their properties as a
/// FeatureCollection; objects of other kinds are left out. Loading the result
/// again gives the same geometry, with the exceptions at the end.
///
/// Dots, multi-dots, polylines, polygons and multi-lines become Point,
/// MultiPoint, LineString, Polygon and MultiLineString; a multi-polygon becomes
/// one Polygon or a MultiPolygon, its rings grouped into polygons as they were
/// loaded, otherwise one ring per polygon. Rings are written closed; a height
/// is written only when z is not 0. Each feature carries the properties it was
/// loaded with, at their current values, and "name". Null entries are skipped.
/// The result is compact UTF-8 JSON; with nothing to write, an empty
/// collection. Reloading gives multi-polygons for polygons and drops a
/// polyline's closed flag, and geometry too short for its type (a line of one
/// point, a ring of two) is written but skipped when loaded.
ZOGRAPHICS_EXPORT QByteArray WriteGeoJson(const std::vector<IZoGraphicsMapObject*>& objects);
/// The same for every object on a layer, in the order they were created. A
/// null layer, or one not made by CZoGraphicsModule, gives an empty collection.
ZOGRAPHICS_EXPORT QByteArray WriteGeoJsonLayer(IZoGraphicsMapLayer* layer);
} // namespace ZoGeoJsonNS
