#include <ZoGraphics/ZoGeoJson.h>

#include "geojson/CZoGeoJsonCoordinates.h"
#include "layer/CZoGraphicsMapLayer.h"

#include "object/ZoLogText.h"

#include <ZoGraphics/CZoGraphicsModule.h>
#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoGraphicsModule.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoMultiDotMapObject.h>
#include <ZoGraphics/IZoMultiLineMapObject.h>
#include <ZoGraphics/IZoMultiPolygonMapObject.h>
#include <ZoGraphics/IZoPolygonMapObject.h>
#include <ZoGraphics/IZoPolylineMapObject.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>
#include <ZoGraphics/ZoTileModel.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <new>
#include <optional>

namespace
{
using Line = std::vector<CVector3D>;
using Lines = std::vector<Line>;

constexpr const char* kReader = "CZoGeoJsonReader";
// Properties the loader leaves on an object so that writing it gives back
// what was read: the feature's property keys, how many rings each polygon of
// a multi-polygon kept, the feature's "id" and "bbox" members, and whether
// it came without geometry.
constexpr const char* kPropertyKeys = "GeoJSON.PropertyKeys";
constexpr const char* kPolygonRings = "GeoJSON.PolygonRings";
constexpr const char* kFeatureId = "GeoJSON.Id";
constexpr const char* kFeatureBox = "GeoJSON.BBox";
constexpr const char* kNoGeometry = "GeoJSON.NullGeometry";

// The most text one load reads: 256 MiB, ten times the finest world-wide
// country files. A load peaks at about eight times its text (the 50m
// countries: 2.2 MB of text, 18 MB), so this keeps it near two gigabytes.
constexpr qint64 kMaxTextBytes = qint64(256) << 20;

// What is wrong with a feature or one of its rings, for its warning.
namespace Fault
{
constexpr const char* kNotFeature = "不是Feature对象";
constexpr const char* kGeometryType = "几何类型不支持";
constexpr const char* kCoordinates = "坐标缺失或非数值";
constexpr const char* kShortRing = "环少于3个点";
constexpr const char* kFlatRing = "环面积为零";
constexpr const char* kOffMap = "坐标超出地图范围";
constexpr const char* kNotCreated = "对象创建失败";
} // namespace Fault

// A QJsonValue with the accessors the coordinate readers use, so that the
// same rules read coordinates from QJsonDocument and from the text directly.
class CJsonValue
{
public:
    explicit CJsonValue(const QJsonValue& value) : m_value(value), m_array(value.toArray()) {}
    bool isArray() const { return m_value.isArray(); }
    bool isDouble() const { return m_value.isDouble(); }
    int size() const { return m_array.size(); }
    CJsonValue at(int i) const { return CJsonValue(m_array.at(i)); }
    double toDouble() const { return m_value.toDouble(); }

private:
    QJsonValue m_value;
    QJsonArray m_array;
};

// Whether the map can place a position: a latitude on the earth, pixels the
// tile model gives even at its deepest level (where they are largest, so a
// position placed there is placed at every level) and pixels the host's own
// conversion gives. A position past them would be drawn at the scene's
// origin.
class CMapRange
{
public:
    explicit CMapRange(IZoGraphicsModule* module)
    {
        if (const auto* own = dynamic_cast<const CZoGraphicsModule*>(module))
            m_map = own->GetMapModule();
        m_tiles = m_map ? ITileModel::GetTileModel(m_map->GetTileModelKind(), true) : nullptr;
        m_deepest = m_tiles ? m_tiles->GetMaxLevel() : 0;
    }

    bool Contains(const Line& line) const
    {
        return std::all_of(line.begin(), line.end(), [this](const CVector3D& p) { return Contains(p); });
    }

private:
    bool Contains(const CVector3D& p) const
    {
        int px = 0;
        int py = 0;
        return std::abs(p.y) <= 90.0 && (!m_tiles || m_tiles->ConvertGeoToPixel(&px, &py, m_deepest, p.x, p.y)) &&
               (!m_map || m_map->ConvertSceneToPixel(&px, &py, p.x, p.y));
    }

    IZoMapModule* m_map = nullptr;
    CTileModel* m_tiles = nullptr;
    int m_deepest = 0;
};

// Twice the signed area of a ring in the plane of longitude and latitude,
// positive when it runs counter-clockwise. Taken about the first position,
// which keeps the digits of rings far from the origin.
double TwiceSignedArea(const Line& ring)
{
    double sum = 0.0;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i)
    {
        const CVector3D& o = ring.front();
        sum += (ring[i].x - o.x) * (ring[i + 1].y - o.y) - (ring[i + 1].x - o.x) * (ring[i].y - o.y);
    }
    return sum;
}

// No area beyond rounding: every position on one line.
bool IsFlat(const Line& ring)
{
    const auto [left, right] =
        std::minmax_element(ring.begin(), ring.end(), [](const CVector3D& a, const CVector3D& b) { return a.x < b.x; });
    const auto [bottom, top] =
        std::minmax_element(ring.begin(), ring.end(), [](const CVector3D& a, const CVector3D& b) { return a.y < b.y; });
    return std::abs(TwiceSignedArea(ring)) <= 1e-12 * (right->x - left->x) * (top->y - bottom->y);
}

template <typename Value>
std::optional<CVector3D> ReadPosition(const Value& a)
{
    if (!a.isArray() || a.size() < 2 || !a.at(0).isDouble() || !a.at(1).isDouble())
        return std::nullopt;
    CVector3D p(a.at(0).toDouble(), a.at(1).toDouble(), 0.0);
    if (a.size() > 2)
    {
        if (!a.at(2).isDouble())
            return std::nullopt;
        p.z = a.at(2).toDouble();
    }
    if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z))
        return std::nullopt;
    return p;
}

// A list of at least minimum positions, or nothing.
template <typename Value>
std::optional<Line> ReadPositions(const Value& a, int minimum)
{
    if (!a.isArray())
        return std::nullopt;
    Line line;
    line.reserve(static_cast<std::size_t>(a.size()));
    for (int i = 0; i < a.size(); ++i)
    {
        const std::optional<CVector3D> p = ReadPosition(a.at(i));
        if (!p)
            return std::nullopt;
        line.push_back(*p);
    }
    if (static_cast<int>(line.size()) < minimum)
        return std::nullopt;
    return line;
}

template <typename Value>
bool ReadLines(const Value& value, Lines* lines)
{
    if (!value.isArray() || value.size() == 0)
        return false;
    for (int i = 0; i < value.size(); ++i)
    {
        std::optional<Line> line = ReadPositions(value.at(i), 2);
        if (!line)
            return false;
        lines->push_back(std::move(*line));
    }
    return true;
}

// A ring left out of a feature that keeps others, and why.
struct SDroppedRing
{
    int polygon = 0;
    int ring = 0;
    const char* fault = nullptr;
};

// One feature's geometry, read before any object is made.
struct SGeometry
{
    enum class Kind { None, Point, MultiPoint, LineString, MultiLineString, Rings } kind = Kind::None;
    Lines lines;
    QVariantList ringsPerPolygon;
    std::vector<SDroppedRing> dropped;
};

// Rings come closed; the objects close them themselves. A ring that encloses
// nothing (fewer than three corners, or no area) or that the map cannot place
// is dropped alone; only positions that are missing or not numbers spoil the
// whole geometry. The rings after a dropped exterior stay: under the odd-even
// fill they still read as the data draws them (Natural Earth's Antarctica is
// a flat line along the pole "around" its coast).
template <typename Value>
bool ReadPolygon(const Value& value, int polygon, const CMapRange& range, SGeometry* out)
{
    if (!value.isArray() || value.size() == 0)
        return false;
    int kept = 0;
    for (int i = 0; i < value.size(); ++i)
    {
        std::optional<Line> ring = ReadPositions(value.at(i), 0);
        if (!ring)
            return false;
        if (ring->size() > 1 && ring->front().x == ring->back().x && ring->front().y == ring->back().y)
            ring->pop_back();
        const char* fault = !range.Contains(*ring) ? Fault::kOffMap
                            : ring->size() < 3     ? Fault::kShortRing
                            : IsFlat(*ring)        ? Fault::kFlatRing
                                                   : nullptr;
        if (fault)
        {
            out->dropped.push_back({polygon, i, fault});
            continue;
        }
        out->lines.push_back(std::move(*ring));
        ++kept;
    }
    if (kept > 0)
        out->ringsPerPolygon.append(kept);
    return true;
}

template <typename Value>
bool ReadCoordinates(const QString& type, const Value& coordinates, const CMapRange& range, SGeometry* out,
                     const char** fault)
{
    *fault = Fault::kCoordinates;
    if (type == "Point")
    {
        out->kind = SGeometry::Kind::Point;
        const std::optional<CVector3D> p = ReadPosition(coordinates);
        if (!p)
            return false;
        out->lines = {{*p}};
    }
    else if (type == "MultiPoint" || type == "LineString")
    {
        const bool line = type == "LineString";
        out->kind = line ? SGeometry::Kind::LineString : SGeometry::Kind::MultiPoint;
        std::optional<Line> points = ReadPositions(coordinates, line ? 2 : 1);
        if (!points)
            return false;
        out->lines = {std::move(*points)};
    }
    else if (type == "MultiLineString")
    {
        out->kind = SGeometry::Kind::MultiLineString;
        if (!ReadLines(coordinates, &out->lines))
            return false;
    }
    else if (type == "Polygon" || type == "MultiPolygon")
    {
        out->kind = SGeometry::Kind::Rings;
        const bool multi = type == "MultiPolygon";
        if (multi && (!coordinates.isArray() || coordinates.size() == 0))
            return false;
        for (int i = 0; i < (multi ? coordinates.size() : 1); ++i)
            if (!ReadPolygon(multi ? coordinates.at(i) : coordinates, i, range, out))
                return false;
        // With no ring left the feature goes, for its first ring's fault.
        if (out->lines.empty())
        {
            *fault = out->dropped.front().fault;
            return false;
        }
        return true;
    }
    else
    {
        *fault = Fault::kGeometryType;
        return false;
    }
    *fault = Fault::kOffMap;
    return std::all_of(out->lines.begin(), out->lines.end(), [&range](const Line& l) { return range.Contains(l); });
}

// The coordinates come from the text directly where they were cut out of it.
bool ReadGeometry(const QJsonObject& geometry, int feature, const CZoGeoJsonCoordinates& extracted,
                  const CMapRange& range, SGeometry* out, const char** fault)
{
    const QString type = geometry.value("type").toString();
    const QJsonValue coordinates = geometry.value("coordinates");
    int root = -1;
    if (coordinates.isString() && extracted.Lookup(coordinates.toString(), feature, &root))
        return ReadCoordinates(type, extracted.Value(root), range, out, fault);
    return ReadCoordinates(type, CJsonValue(coordinates), range, out, fault);
}

IZoGraphicsMapObject* Create(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer, const std::string& name,
                             const SGeometry& g)
{
    switch (g.kind)
    {
    case SGeometry::Kind::None:
        // A feature without geometry (RFC 7946 allows it) keeps its place and
        // its properties in a multi-dot without dots.
        if (IZoMultiDotMapObject* none = module->CreateMultiDotMapObject(name, layer))
        {
            none->SetProperty(kNoGeometry, true);
            return none;
        }
        return nullptr;
    case SGeometry::Kind::Point:
        if (IZoDotMapObject* dot = module->CreateDotMapObject(name, layer))
        {
            dot->SetPosition(g.lines.front().front());
            return dot;
        }
        return nullptr;
    case SGeometry::Kind::MultiPoint:
        if (IZoMultiDotMapObject* dots = module->CreateMultiDotMapObject(name, layer))
        {
            dots->SetData(g.lines.front());
            dots->SetDotSize(dots->GetDotSize()); // point edits wait for a rebuild
            return dots;
        }
        return nullptr;
    case SGeometry::Kind::LineString:
        if (IZoPolylineMapObject* line = module->CreatePolylineMapObject(name, layer))
        {
            line->SetData(g.lines.front());
            return line;
        }
        return nullptr;
    case SGeometry::Kind::MultiLineString:
        if (IZoMultiLineMapObject* lines = module->CreateMultiLineMapObject(name, layer))
        {
            lines->SetData(g.lines);
            return lines;
        }
        return nullptr;
    case SGeometry::Kind::Rings:
        if (IZoMultiPolygonMapObject* rings = module->CreateMultiPolygonMapObject(name, layer))
        {
            rings->SetData(g.lines);
            rings->SetProperty(kPolygonRings, g.ringsPerPolygon);
            return rings;
        }
        return nullptr;
    }
    return nullptr;
}

void LogFeatureFault(int index, const char* fault)
{
    ZoLogWarnAt(kReader, "Load") << "要素" << index << "无效: " << fault;
}

void LogDroppedRing(int index, const SDroppedRing& dropped)
{
    ZoLogWarnAt(kReader, "Load") << "要素" << index << "多边形" << dropped.polygon << "环" << dropped.ring
                                 << "已丢弃: " << dropped.fault;
}

// --- writing --------------------------------------------------------------------------

QJsonArray Position(const CVector3D& p)
{
    QJsonArray a{p.x, p.y};
    if (p.z != 0.0)
        a.append(p.z);
    return a;
}

QJsonArray Positions(const Line& line)
{
    QJsonArray a;
    for (const CVector3D& p : line)
        a.append(Position(p));
    return a;
}

// Closed, an exterior counter-clockwise and a hole clockwise (the right-hand
// rule of RFC 7946), however it was read or drawn. A reversed ring keeps its
// first position.
QJsonArray Ring(const Line& ring, bool exterior)
{
    QJsonArray a;
    if (ring.empty())
        return a;
    const double area = TwiceSignedArea(ring);
    const bool reverse = exterior ? area < 0.0 : area > 0.0;
    a.append(Position(ring.front()));
    for (std::size_t i = 1; i < ring.size(); ++i)
        a.append(Position(ring[reverse ? ring.size() - i : i]));
    a.append(Position(ring.front()));
    return a;
}

QJsonObject Geometry(const char* type, const QJsonArray& coordinates)
{
    return QJsonObject{{"type", type}, {"coordinates", coordinates}};
}

// Rings grouped into polygons as they were read; otherwise each ring alone.
QJsonObject RingsGeometry(IZoMultiPolygonMapObject* rings)
{
    const int count = static_cast<int>(rings->GetPolygonNumber());
    QVariantList groups = rings->GetProperty(kPolygonRings).toList();
    int total = 0;
    for (const QVariant& g : groups)
        total += g.toInt() > 0 ? g.toInt() : count + 1;
    if (total != count)
    {
        groups.clear();
        for (int i = 0; i < count; ++i)
            groups.append(1);
    }
    QJsonArray polygons;
    int next = 0;
    for (const QVariant& g : groups)
    {
        QJsonArray polygon;
        for (int k = 0; k < g.toInt(); ++k)
            polygon.append(Ring(rings->GetPolygonData(next++), k == 0));
        polygons.append(polygon);
    }
    if (polygons.size() == 1)
        return Geometry("Polygon", polygons.first().toArray());
    return Geometry("MultiPolygon", polygons);
}

// Null for a feature read without geometry and still without dots.
std::optional<QJsonValue> GeometryOf(IZoGraphicsMapObject* object)
{
    if (auto* dot = dynamic_cast<IZoDotMapObject*>(object))
        return Geometry("Point", Position(dot->GetPosition()));
    if (auto* dots = dynamic_cast<IZoMultiDotMapObject*>(object))
    {
        const Line points = dots->GetData();
        if (points.empty() && dots->GetProperty(kNoGeometry).toBool())
            return QJsonValue();
        return Geometry("MultiPoint", Positions(points));
    }
    if (auto* line = dynamic_cast<IZoPolylineMapObject*>(object))
        return Geometry("LineString", Positions(line->GetDataRef()));
    if (auto* polygon = dynamic_cast<IZoPolygonMapObject*>(object))
        return Geometry("Polygon", QJsonArray{Ring(polygon->GetDataRef(), true)});
    if (auto* lines = dynamic_cast<IZoMultiLineMapObject*>(object))
    {
        QJsonArray all;
        for (int i = 0; i < lines->GetLineNumber(); ++i)
            all.append(Positions(lines->GetLineData(i)));
        return Geometry("MultiLineString", all);
    }
    if (auto* rings = dynamic_cast<IZoMultiPolygonMapObject*>(object))
        return RingsGeometry(rings);
    return std::nullopt;
}

// Objects are made as their features are read, and what was made before an
// allocation failed stays in the result.
void Load(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer, const QByteArray& json,
          ZoGeoJsonNS::SZoGeoJsonLoadResult* result)
{
    CZoGeoJsonCoordinates extracted;
    QJsonParseError error;
    QJsonDocument document = QJsonDocument::fromJson(extracted.Extract(json), &error);
    if (error.error != QJsonParseError::NoError)
    {
        // Where the text broke is told in the text as it was given.
        extracted = CZoGeoJsonCoordinates();
        document = QJsonDocument::fromJson(json, &error);
    }
    if (error.error != QJsonParseError::NoError)
    {
        ZoLogWarnAt(kReader, "Load") << "JSON解析失败, 偏移: " << error.offset << " ("
                                     << error.errorString().toStdString() << ")";
        return;
    }
    const QJsonObject root = document.object();
    if (root.value("type").toString() != "FeatureCollection" || !root.value("features").isArray())
    {
        ZoLogWarnAt(kReader, "Load") << "不是FeatureCollection";
        return;
    }
    result->parsed = true;
    const CMapRange range(module);
    const QJsonArray features = root.value("features").toArray();
    for (int index = 0; index < features.size(); ++index)
    {
        const QJsonObject feature = features[index].toObject();
        const QJsonValue geometryValue = feature.value("geometry");
        if (feature.value("type").toString() != "Feature" || !(geometryValue.isObject() || geometryValue.isNull()))
        {
            LogFeatureFault(index, Fault::kNotFeature);
            ++result->skipped;
            continue;
        }
        SGeometry geometry;
        const char* fault = nullptr;
        if (geometryValue.isObject() &&
            !ReadGeometry(geometryValue.toObject(), index, extracted, range, &geometry, &fault))
        {
            LogFeatureFault(index, fault);
            ++result->skipped;
            continue;
        }
        const QJsonObject properties = feature.value("properties").toObject();
        const std::string name =
            ConvertQStringToStdString(properties.value("name").toString(), ZoGraphicsConstantNS::STR_CODE_PAGE);
        IZoGraphicsMapObject* object = Create(module, layer, name, geometry);
        if (!object)
        {
            LogFeatureFault(index, Fault::kNotCreated);
            ++result->skipped;
            continue;
        }
        for (const SDroppedRing& dropped : geometry.dropped)
            LogDroppedRing(index, dropped);
        QStringList keys;
        for (auto it = properties.begin(); it != properties.end(); ++it)
        {
            object->SetProperty(it.key().toStdString(), it.value().toVariant());
            keys.append(it.key());
        }
        object->SetProperty(kPropertyKeys, keys);
        if (feature.contains("id"))
            object->SetProperty(kFeatureId, feature.value("id").toVariant());
        if (feature.contains("bbox"))
            object->SetProperty(kFeatureBox, feature.value("bbox").toVariant());
        result->objects.push_back(object);
    }
}

// A "name" property that is a string named the object, and the object's
// name, perhaps changed since, is written in its place; any other "name" is
// the feature's own. An object without a name property gets one only when it
// has a name.
void WriteName(IZoGraphicsMapObject* object, QJsonObject* properties)
{
    const QString name = ConvertStdStringToQString(object->GetName(), ZoGraphicsConstantNS::STR_CODE_PAGE);
    const QJsonValue read = properties->value("name");
    if (read.isString() || (read.isUndefined() && !name.isEmpty()))
        properties->insert("name", name);
}
} // namespace

namespace ZoGeoJsonNS
{
SZoGeoJsonLoadResult LoadGeoJson(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer, const QByteArray& json)
{
    SZoGeoJsonLoadResult result;
    if (!module)
    {
        ZoLogWarnAt(kReader, "Load") << ZoLogReason::kArgumentNull;
        return result;
    }
    if (json.size() > kMaxTextBytes)
    {
        ZoLogWarnAt(kReader, "Load") << "文本超过大小上限: " << json.size();
        return result;
    }
    try
    {
        Load(module, layer, json, &result);
    }
    catch (const std::bad_alloc&)
    {
        ZoLogWarnAt(kReader, "Load") << "内存不足";
    }
    return result;
}

SZoGeoJsonLoadResult LoadGeoJsonFile(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer, const std::string& path)
{
    // A pipe or a device would block or never end: only a plain file has a
    // size to check before anything is read.
    const QFileInfo info(QString::fromStdString(path));
    if (info.exists() && !info.isFile())
    {
        ZoLogWarnAt(kReader, "LoadFile") << "不是普通文件: " << path;
        return SZoGeoJsonLoadResult();
    }
    if (info.size() > kMaxTextBytes)
    {
        ZoLogWarnAt(kReader, "LoadFile") << "文件超过大小上限: " << path;
        return SZoGeoJsonLoadResult();
    }
    QFile file(info.filePath());
    QByteArray json;
    try
    {
        // No more than was measured, should the file grow meanwhile.
        if (file.open(QIODevice::ReadOnly))
            json = file.read(std::min(info.size(), kMaxTextBytes));
    }
    catch (const std::bad_alloc&)
    {
        ZoLogWarnAt(kReader, "LoadFile") << "内存不足";
        return SZoGeoJsonLoadResult();
    }
    if (!file.isOpen())
    {
        ZoLogWarnAt(kReader, "LoadFile") << "文件无法打开: " << path;
        return SZoGeoJsonLoadResult();
    }
    return LoadGeoJson(module, layer, json);
}

QByteArray WriteGeoJsonLayer(IZoGraphicsMapLayer* layer)
{
    const auto* own = dynamic_cast<CZoGraphicsMapLayer*>(layer);
    return WriteGeoJson(own ? own->GetMapObjects() : std::vector<IZoGraphicsMapObject*>());
}

QByteArray WriteGeoJson(const std::vector<IZoGraphicsMapObject*>& objects)
{
    QJsonArray features;
    for (IZoGraphicsMapObject* object : objects)
    {
        if (!object)
            continue;
        const std::optional<QJsonValue> geometry = GeometryOf(object);
        if (!geometry)
            continue;
        QJsonObject properties;
        for (const QString& key : object->GetProperty(kPropertyKeys).toStringList())
            properties.insert(key, QJsonValue::fromVariant(object->GetProperty(key.toStdString())));
        WriteName(object, &properties);
        QJsonObject feature{{"type", "Feature"}, {"properties", properties}, {"geometry", *geometry}};
        for (const auto& [member, key] : {std::pair{"id", kFeatureId}, std::pair{"bbox", kFeatureBox}})
        {
            const QVariant kept = object->GetProperty(key);
            if (kept.isValid())
                feature.insert(member, QJsonValue::fromVariant(kept));
        }
        features.append(feature);
    }
    return QJsonDocument(QJsonObject{{"type", "FeatureCollection"}, {"features", features}})
        .toJson(QJsonDocument::Compact);
}
} // namespace ZoGeoJsonNS
