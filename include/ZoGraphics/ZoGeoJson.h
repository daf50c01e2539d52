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
/// feature's "name" property (empty without one, or when it is not a string)
/// and gets every property under its key with SetProperty, plus
/// "GeoJSON.PropertyKeys" (the keys read), on multi-polygons
/// "GeoJSON.PolygonRings" (rings kept per polygon), and the feature's "id" and
/// "bbox" members as "GeoJSON.Id" and "GeoJSON.BBox" when it has them, which
/// WriteGeoJson uses to give back what was read. A feature whose geometry is
/// null becomes a multi-dot without dots marked "GeoJSON.NullGeometry". A
/// closing position that repeats a ring's first one is dropped.
///
/// A position must be one the map can place: latitude within ±90 degrees,
/// pixels that the map module's tile model gives at its deepest level and that
/// the map module's ConvertSceneToPixel gives.
///
/// A ring that encloses nothing (fewer than three positions once closed, or
/// all of them on one line) or holds a position off the map is dropped alone
/// with the warning "[CZoGeoJsonReader::Load] 要素", the feature index,
/// "多边形", the polygon index (0 for a Polygon), "环", the ring index,
/// "已丢弃: " and its reason (环少于3个点, 环面积为零 or 坐标超出地图范围). The
/// rest of the feature loads; the ring after a dropped exterior leads its
/// polygon when written.
///
/// A feature is skipped with the warning "[CZoGeoJsonReader::Load] 要素",
/// its index, "无效: " and one of these reasons:
/// - 不是Feature对象: it is not a Feature, or has no geometry member that is an
///   object or null;
/// - 几何类型不支持: its geometry is not one of the six types read;
/// - 坐标缺失或非数值: a position is missing or not a finite number, a
///   LineString or a line of a MultiLineString has fewer than two positions,
///   or a MultiPoint, MultiLineString, Polygon or MultiPolygon has none;
/// - 坐标超出地图范围: a position of a Point, MultiPoint, LineString or
///   MultiLineString is off the map;
/// - the reason of its first ring when none of its rings is kept;
/// - 对象创建失败: the module could not make the object.
///
/// Nothing is loaded, and parsed stays false, when module is null
/// ("[CZoGeoJsonReader::Load] 传入参数为空"), the text is longer than 256 MiB
/// ("[CZoGeoJsonReader::Load] 文本超过大小上限: " and its length), the text
/// is not JSON ("[CZoGeoJsonReader::Load] JSON解析失败, 偏移: " followed by
/// the byte offset and the reason in parentheses), or the top level is not a
/// FeatureCollection ("[CZoGeoJsonReader::Load] 不是FeatureCollection").
/// Memory running out ends the load with "[CZoGeoJsonReader::Load] 内存不足";
/// the objects made until then stay in the result.
ZOGRAPHICS_EXPORT SZoGeoJsonLoadResult LoadGeoJson(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer,
                                                   const QByteArray& json);
/// LoadGeoJson on the contents of the file at path (UTF-8, not GB18030).
/// Only a regular file (or a link to one) of at most 256 MiB is read. Each
/// refusal loads nothing and logs "[CZoGeoJsonReader::LoadFile] " and its
/// reason followed by the path: "不是普通文件: " for a pipe, a device or a
/// folder (without opening it, so a pipe never blocks), "文件超过大小上限: "
/// for a larger file, "文件无法打开: " for a file that cannot be opened, and
/// "内存不足" (without the path) when its text cannot be held.
ZOGRAPHICS_EXPORT SZoGeoJsonLoadResult LoadGeoJsonFile(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer,
                                                       const std::string& path);

/// Writes the point kinds, point-list kinds and their properties as a
/// FeatureCollection; objects of other kinds are left out. Loading the result
/// again gives the same geometry, with the exceptions at the end.
///
/// Dots, multi-dots, polylines, polygons and multi-lines become Point,
/// MultiPoint, LineString, Polygon and MultiLineString; a multi-polygon becomes
/// one Polygon or a MultiPolygon, its rings grouped into polygons as they were
/// loaded, otherwise one ring per polygon. Rings are written closed, exteriors
/// counter-clockwise and holes clockwise in the plane of longitude and
/// latitude (a reversed ring keeps its first position); a height is written
/// only when z is not 0. A multi-dot loaded from a null geometry is written
/// with a null geometry while it has no dots.
///
/// Each feature carries the properties it was loaded with, at their current
/// values, and its "id" and "bbox" as read. A "name" property that is a string
/// is written as the object's name; one of another type is written as read;
/// without one, "name" is added only for an object that has a name. Null
/// entries are skipped. The result is compact UTF-8 JSON; with nothing to
/// write, an empty collection. Reloading gives multi-polygons for polygons and
/// drops a polyline's closed flag, and geometry too short for its type (a line
/// of one point, a ring of two) is written but skipped when loaded.
ZOGRAPHICS_EXPORT QByteArray WriteGeoJson(const std::vector<IZoGraphicsMapObject*>& objects);
/// The same for every object on a layer, in the order they were created. A
/// null layer, or one not made by CZoGraphicsModule, gives an empty collection.
ZOGRAPHICS_EXPORT QByteArray WriteGeoJsonLayer(IZoGraphicsMapLayer* layer);
} // namespace ZoGeoJsonNS
