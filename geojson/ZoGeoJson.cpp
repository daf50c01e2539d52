#include <ZoGraphics/ZoGeoJson.h>

#include "geojson/CZoGeoJsonCoordinates.h"
#include "layer/CZoGraphicsMapLayer.h"

#include "object/ZoLogText.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoGraphicsModule.h>
#include <ZoGraphics/IZoMultiDotMapObject.h>
#include <ZoGraphics/IZoMultiLineMapObject.h>
#include <ZoGraphics/IZoMultiPolygonMapObject.h>
#include <ZoGraphics/IZoPolygonMapObject.h>
#include <ZoGraphics/IZoPolylineMapObject.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <cmath>
#include <optional>

namespace
{
using Line = std::vector<CVector3D>;
using Lines = std::vector<Line>;

constexpr const char* kReader = "CZoGeoJsonReader";
// Properties the loader leaves on an object so that writing it gives back
// what was read: the feature's property keys, and how many rings each
// polygon of a multi-polygon had.
constexpr const char* kPropertyKeys = "GeoJSON.PropertyKeys";
constexpr const char* kPolygonRings = "GeoJSON.PolygonRings";

// What is wrong with a feature, for its warning.
namespace Fault
{
constexpr const char* kNotFeature = "不是Feature对象";
constexpr const char* kGeometryType = "几何类型不支持";
constexpr const char* kCoordinates = "坐标缺失或非数值";
constexpr const char* kShortRing = "环少于3个点";
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

// Rings come closed; the objects close them themselves.
template <typename Value>
bool ReadRing(const Value& value, Line* ring, const char** fault)
{
    std::optional<Line> points = ReadPositions(value, 0);
    if (!points)
    {
        *fault = Fault::kCoordinates;
        return false;
    }
    if (points->size() > 1 && points->front().x == points->back().x && points->front().y == points->back().y)
        points->pop_back();
    if (points->size() < 3)
    {
        *fault = Fault::kShortRing;
        return false;
    }
    *ring = std::move(*points);
    return true;
}

template <typename Value>
bool ReadPolygon(const Value& value, Lines* rings, const char** fault)
{
    if (!value.isArray() || value.size() == 0)
    {
        *fault = Fault::kCoordinates;
        return false;
    }
    for (int i = 0; i < value.size(); ++i)
    {
        Line ring;
        if (!ReadRing(value.at(i), &ring, fault))
            return false;
        rings->push_back(std::move(ring));
    }
    return true;
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

// One feature's geometry, read before any object is made.
struct SGeometry
{
    enum class Kind { Point, MultiPoint, LineString, MultiLineString, Rings } kind = Kind::Point;
    Lines lines;
    QVariantList ringsPerPolygon;
};

template <typename Value>
bool ReadCoordinates(const QString& type, const Value& coordinates, SGeometry* out, const char** fault)
{
    *fault = Fault::kCoordinates;
    if (type == "Point")
    {
        out->kind = SGeometry::Kind::Point;
        const std::optional<CVector3D> p = ReadPosition(coordinates);
        if (!p)
            return false;
        out->lines = {{*p}};
        return true;
    }
    if (type == "MultiPoint" || type == "LineString")
    {
        const bool line = type == "LineString";
        out->kind = line ? SGeometry::Kind::LineString : SGeometry::Kind::MultiPoint;
        std::optional<Line> points = ReadPositions(coordinates, line ? 2 : 1);
        if (!points)
            return false;
        out->lines = {std::move(*points)};
        return true;
    }
    if (type == "MultiLineString")
    {
        out->kind = SGeometry::Kind::MultiLineString;
        return ReadLines(coordinates, &out->lines);
    }
    if (type == "Polygon")
    {
        out->kind = SGeometry::Kind::Rings;
        if (!ReadPolygon(coordinates, &out->lines, fault))
            return false;
        out->ringsPerPolygon = {static_cast<int>(out->lines.size())};
        return true;
    }
    if (type == "MultiPolygon")
    {
        out->kind = SGeometry::Kind::Rings;
        if (!coordinates.isArray() || coordinates.size() == 0)
            return false;
        for (int i = 0; i < coordinates.size(); ++i)
        {
            const std::size_t before = out->lines.size();
            if (!ReadPolygon(coordinates.at(i), &out->lines, fault))
                return false;
            out->ringsPerPolygon.append(static_cast<int>(out->lines.size() - before));
        }
        return true;
    }
    *fault = Fault::kGeometryType;
    return false;
}

// The coordinates come from the text directly where they were cut out of it.
bool ReadGeometry(const QJsonObject& geometry, int feature, const CZoGeoJsonCoordinates& extracted, SGeometry* out,
                  const char** fault)
{
    const QString type = geometry.value("type").toString();
    const QJsonValue coordinates = geometry.value("coordinates");
    int root = -1;
    if (coordinates.isString() && extracted.Lookup(coordinates.toString(), feature, &root))
        return ReadCoordinates(type, extracted.Value(root), out, fault);
    return ReadCoordinates(type, CJsonValue(coordinates), out, fault);
}

IZoGraphicsMapObject* Create(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer, const std::string& name,
                             const SGeometry& g)
{
    switch (g.kind)
    {
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

QJsonArray Ring(const Line& ring)
{
    QJsonArray a = Positions(ring);
    if (!ring.empty())
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
            polygon.append(Ring(rings->GetPolygonData(next++)));
        polygons.append(polygon);
    }
    if (polygons.size() == 1)
        return Geometry("Polygon", polygons.first().toArray());
    return Geometry("MultiPolygon", polygons);
}

std::optional<QJsonObject> GeometryOf(IZoGraphicsMapObject* object)
{
    if (auto* dot = dynamic_cast<IZoDotMapObject*>(object))
        return Geometry("Point", Position(dot->GetPosition()));
    if (auto* dots = dynamic_cast<IZoMultiDotMapObject*>(object))
        return Geometry("MultiPoint", Positions(dots->GetData()));
    if (auto* line = dynamic_cast<IZoPolylineMapObject*>(object))
        return Geometry("LineString", Positions(line->GetDataRef()));
    if (auto* polygon = dynamic_cast<IZoPolygonMapObject*>(object))
        return Geometry("Polygon", QJsonArray{Ring(polygon->GetDataRef())});
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
        return result;
    }
    const QJsonObject root = document.object();
    if (root.value("type").toString() != "FeatureCollection" || !root.value("features").isArray())
    {
        ZoLogWarnAt(kReader, "Load") << "不是FeatureCollection";
        return result;
    }
    result.parsed = true;
    const QJsonArray features = root.value("features").toArray();
    for (int index = 0; index < features.size(); ++index)
    {
        const QJsonObject feature = features[index].toObject();
        if (feature.value("type").toString() != "Feature" || !feature.value("geometry").isObject())
        {
            LogFeatureFault(index, feature.value("geometry").isNull() ? Fault::kGeometryType : Fault::kNotFeature);
            ++result.skipped;
            continue;
        }
        SGeometry geometry;
        const char* fault = nullptr;
        if (!ReadGeometry(feature.value("geometry").toObject(), index, extracted, &geometry, &fault))
        {
            LogFeatureFault(index, fault);
            ++result.skipped;
            continue;
        }
        const QJsonObject properties = feature.value("properties").toObject();
        const std::string name =
            ConvertQStringToStdString(properties.value("name").toString(), ZoGraphicsConstantNS::STR_CODE_PAGE);
        IZoGraphicsMapObject* object = Create(module, layer, name, geometry);
        if (!object)
        {
            LogFeatureFault(index, Fault::kNotCreated);
            ++result.skipped;
            continue;
        }
        QStringList keys;
        for (auto it = properties.begin(); it != properties.end(); ++it)
        {
            object->SetProperty(it.key().toStdString(), it.value().toVariant());
            keys.append(it.key());
        }
        object->SetProperty(kPropertyKeys, keys);
        result.objects.push_back(object);
    }
    return result;
}

SZoGeoJsonLoadResult LoadGeoJsonFile(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer, const std::string& path)
{
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
    {
        ZoLogWarnAt(kReader, "LoadFile") << "文件无法打开: " << path;
        return SZoGeoJsonLoadResult();
    }
    return LoadGeoJson(module, layer, file.readAll());
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
        const std::optional<QJsonObject> geometry = GeometryOf(object);
        if (!geometry)
            continue;
        QJsonObject properties;
        for (const QString& key : object->GetProperty(kPropertyKeys).toStringList())
            properties.insert(key, QJsonValue::fromVariant(object->GetProperty(key.toStdString())));
        properties.insert("name",
                          ConvertStdStringToQString(object->GetName(), ZoGraphicsConstantNS::STR_CODE_PAGE));
        features.append(QJsonObject{{"type", "Feature"}, {"properties", properties}, {"geometry", *geometry}});
    }
    return QJsonDocument(QJsonObject{{"type", "FeatureCollection"}, {"features", features}})
        .toJson(QJsonDocument::Compact);
}
} // namespace ZoGeoJsonNS
