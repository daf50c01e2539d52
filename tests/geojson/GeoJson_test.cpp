#include "support/ModuleFixture.h"

#include "shapes/multipolygon/CZoMultiPolygonMapObject.h"

#include <ZoGraphics/ZoGeoJson.h>

#include <QFile>
#include <QGraphicsItem>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstring>
#include <random>

using Messages = std::vector<std::string>;
using namespace ZoGeoJsonNS;

namespace
{
const QByteArray kMixed = R"({"type":"FeatureCollection","features":[
 {"type":"Feature","properties":{"name":"Beijing","pop":21.5},"geometry":{"type":"Point","coordinates":[116.4,39.9]}},
 {"type":"Feature","properties":{"name":"capitals"},"geometry":{"type":"MultiPoint","coordinates":[[1,2],[3,4,5]]}},
 {"type":"Feature","properties":{"name":"route"},"geometry":{"type":"LineString","coordinates":[[0,0],[10,5],[20,0]]}},
 {"type":"Feature","properties":{"name":"rivers"},"geometry":{"type":"MultiLineString","coordinates":[[[0,0],[1,1]],[[2,2],[3,3],[4,2]]]}},
 {"type":"Feature","properties":{"name":"frame","kind":"holed"},"geometry":{"type":"Polygon","coordinates":[
   [[0,0],[8,0],[8,8],[0,8],[0,0]],[[2,2],[2,6],[6,6],[6,2],[2,2]]]}},
 {"type":"Feature","properties":{"name":"islands"},"geometry":{"type":"MultiPolygon","coordinates":[
   [[[10,0],[12,0],[12,2],[10,0]]],[[[20,0],[22,0],[22,2],[20,2],[20,0]],[[20.5,0.5],[21,1],[21,0.5],[20.5,0.5]]]]}}
]})";

// Geometry of an object as plain lists, whatever its kind.
std::vector<std::vector<CVector3D>> GeometryOf(IZoGraphicsMapObject* object)
{
    if (auto* dot = dynamic_cast<IZoDotMapObject*>(object))
        return {{dot->GetPosition()}};
    if (auto* dots = dynamic_cast<IZoMultiDotMapObject*>(object))
        return {dots->GetData()};
    if (auto* line = dynamic_cast<IZoPolylineMapObject*>(object))
        return {line->GetData()};
    std::vector<std::vector<CVector3D>> all;
    if (auto* lines = dynamic_cast<IZoMultiLineMapObject*>(object))
        for (int i = 0; i < lines->GetLineNumber(); ++i)
            all.push_back(lines->GetLineData(i));
    if (auto* rings = dynamic_cast<IZoMultiPolygonMapObject*>(object))
        for (int i = 0; i < rings->GetPolygonNumber(); ++i)
            all.push_back(rings->GetPolygonData(i));
    return all;
}
} // namespace

class GeoJson : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("geojson");
        log.Clear();
    }
    IZoGraphicsMapLayer* layer = nullptr;
};

TEST_F(GeoJson, EachGeometryTypeBecomesItsKindWithNameAndProperties)
{
    const SZoGeoJsonLoadResult result = LoadGeoJson(&module, layer, kMixed);
    ASSERT_EQ(result.objects.size(), 6u);
    EXPECT_EQ(result.skipped, 0);
    EXPECT_TRUE(log.Messages().empty());
    EXPECT_EQ(module.LookupDotMapObject("Beijing")->GetPosition(), CVector3D(116.4, 39.9, 0));
    EXPECT_EQ(module.LookupDotMapObject("Beijing")->GetProperty("pop"), QVariant(21.5));
    EXPECT_EQ(module.LookupMultiDotMapObject("capitals")->At(1), CVector3D(3, 4, 5));
    EXPECT_EQ(module.LookupPolylineMapObject("route")->GetPointNumber(), 3);
    EXPECT_EQ(module.LookupMultiLineMapObject("rivers")->GetLineNumber(), 2);
    IZoMultiPolygonMapObject* frame = module.LookupMultiPolygonMapObject("frame");
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->GetPolygonNumber(), 2);
    EXPECT_EQ(frame->GetPointNumber(0), 4); // the closing position is the object's business
    EXPECT_EQ(frame->GetProperty("kind"), QVariant("holed"));
    EXPECT_EQ(module.LookupMultiPolygonMapObject("islands")->GetPolygonNumber(), 3);
    // The hole stays a hole.
    EXPECT_FALSE(frame->GetQtItem()->contains(QPointF(40, -40)));
    EXPECT_TRUE(frame->GetQtItem()->contains(QPointF(10, -10)));
    // Multi-dots are laid out at once.
    EXPECT_FALSE(module.LookupMultiDotMapObject("capitals")->GetQtItem()->shape().isEmpty());
}

TEST_F(GeoJson, WritingAndLoadingAgainGivesTheSameGeometry)
{
    const SZoGeoJsonLoadResult first = LoadGeoJson(&module, layer, kMixed);
    const QByteArray written = WriteGeoJson(first.objects);
    IZoGraphicsMapLayer* again = module.CreateGraphicsLayer("again");
    const SZoGeoJsonLoadResult second = LoadGeoJson(&module, again, written);
    ASSERT_EQ(second.objects.size(), first.objects.size());
    for (std::size_t i = 0; i < first.objects.size(); ++i)
    {
        EXPECT_EQ(GeometryOf(second.objects[i]), GeometryOf(first.objects[i])) << i;
        EXPECT_EQ(second.objects[i]->GetName(), first.objects[i]->GetName());
        EXPECT_EQ(typeid(*second.objects[i]), typeid(*first.objects[i]));
    }
    EXPECT_EQ(second.objects[0]->GetProperty("pop"), QVariant(21.5));
    // Polygons keep their rings together: the islands are written as two polygons.
    EXPECT_TRUE(written.contains(R"("type":"MultiPolygon")"));
    EXPECT_EQ(WriteGeoJson(second.objects), written);
    // A whole layer writes the same, in creation order.
    EXPECT_EQ(WriteGeoJsonLayer(again), written);
    EXPECT_EQ(WriteGeoJsonLayer(nullptr), WriteGeoJson({}));
}

TEST_F(GeoJson, PolygonsAndPolylinesMadeByHandAreWrittenToo)
{
    auto* polygon = module.CreatePolygonMapObject("p", layer);
    polygon->SetData({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
    auto* line = module.CreatePolylineMapObject("l", layer);
    line->SetData({{0, 0, 0}, {1, 1, 0.5}});
    const SZoGeoJsonLoadResult back = LoadGeoJson(&module, layer, WriteGeoJson({polygon, line, nullptr}));
    ASSERT_EQ(back.objects.size(), 2u);
    EXPECT_EQ(GeometryOf(back.objects[0]), (std::vector<std::vector<CVector3D>>{polygon->GetData()}));
    EXPECT_EQ(GeometryOf(back.objects[1]), (std::vector<std::vector<CVector3D>>{line->GetData()}));
}

TEST_F(GeoJson, BadFeaturesAreSkippedByIndexAndTheRestLoad)
{
    const QByteArray json = R"({"type":"FeatureCollection","features":[
      {"type":"Feature","properties":{},"geometry":{"type":"Circle","coordinates":[0,0]}},
      {"type":"Feature","properties":{"name":"ok"},"geometry":{"type":"Point","coordinates":[1,2]}},
      {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":["a",2]}},
      {"type":"Feature","properties":{},"geometry":{"type":"LineString"}},
      {"type":"Feature","properties":{},"geometry":{"type":"Polygon","coordinates":[[[0,0],[1,1],[0,0]]]}},
      {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1,2,"z"]}},
      {"type":"Feature","properties":{},"geometry":null},
      [1,2,3],
      {"type":"Feature","properties":{"name":"ok too"},"geometry":{"type":"MultiPoint","coordinates":[[5,5]]}}
    ]})";
    const SZoGeoJsonLoadResult result = LoadGeoJson(&module, layer, json);
    EXPECT_EQ(result.objects.size(), 3u); // the feature without geometry too
    EXPECT_EQ(result.skipped, 6);
    const std::string at = "[CZoGeoJsonReader::Load] 要素";
    EXPECT_EQ(log.Messages(), (Messages{at + "0无效: 几何类型不支持", at + "2无效: 坐标缺失或非数值",
                                        at + "3无效: 坐标缺失或非数值", at + "4无效: 环少于3个点",
                                        at + "5无效: 坐标缺失或非数值",
                                        at + "7无效: 不是Feature对象"}));
}

TEST_F(GeoJson, MalformedTextLoadsNothingAndSaysWhere)
{
    const SZoGeoJsonLoadResult broken =
        LoadGeoJson(&module, layer, R"({"type":"FeatureCollection","features":[{"type":"Feature",]})");
    EXPECT_FALSE(broken.parsed);
    EXPECT_TRUE(broken.objects.empty());
    ASSERT_EQ(log.Messages().size(), 1u);
    EXPECT_EQ(log.Messages()[0].rfind("[CZoGeoJsonReader::Load] JSON解析失败, 偏移: 59", 0), 0u) << log.Messages()[0];
    EXPECT_EQ(layer->GetMapObjectCount(), 0);

    log.Clear();
    EXPECT_FALSE(LoadGeoJson(&module, layer, R"({"type":"Feature"})").parsed);
    EXPECT_FALSE(LoadGeoJsonFile(&module, layer, "/nonexistent/file.geojson").parsed);
    EXPECT_FALSE(LoadGeoJson(nullptr, layer, kMixed).parsed);
    EXPECT_EQ(log.Messages(), (Messages{"[CZoGeoJsonReader::Load] 不是FeatureCollection",
                                        "[CZoGeoJsonReader::LoadFile] 文件无法打开: /nonexistent/file.geojson",
                                        "[CZoGeoJsonReader::Load] 传入参数为空"}));
}

TEST_F(GeoJson, TheNaturalEarthCountriesLoadWhole)
{
    const SZoGeoJsonLoadResult result =
        LoadGeoJsonFile(&module, layer, std::string(ZO_SOURCE_DATA_DIR) + "/countries-50m.geojson");
    EXPECT_EQ(result.skipped, 0);
    EXPECT_EQ(result.objects.size(), 241u);
    EXPECT_NE(module.LookupMultiPolygonMapObject("China"), nullptr);
    // Antarctica's sliver along 89.999°S encloses nothing.
    EXPECT_EQ(log.Messages(), Messages{"[CZoGeoJsonReader::Load] 要素239多边形2环0已丢弃: 环面积为零"});
}

namespace
{
// The coordinates of every LineString feature of json, read by QJsonDocument
// alone: what the loader must give, number for number.
std::vector<std::vector<CVector3D>> ReadByQt(const QByteArray& json)
{
    std::vector<std::vector<CVector3D>> lines;
    for (const QJsonValue& feature : QJsonDocument::fromJson(json).object().value("features").toArray())
    {
        std::vector<CVector3D> line;
        for (const QJsonValue& p : feature.toObject().value("geometry").toObject().value("coordinates").toArray())
            line.emplace_back(p.toArray().at(0).toDouble(), p.toArray().at(1).toDouble(), p.toArray().at(2).toDouble());
        lines.push_back(line);
    }
    return lines;
}

QByteArray LineFeatures(const std::vector<QByteArray>& coordinates)
{
    QByteArray json = R"({"type":"FeatureCollection","features":[)";
    for (std::size_t i = 0; i < coordinates.size(); ++i)
        json += (i ? "," : "") + QByteArray(R"({"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":)") +
                coordinates[i] + "}}";
    return json + "]}";
}
} // namespace

// Coordinates are read from the text without QJsonDocument's values; every
// spelling of a number must still come out as the very double Qt reads.
TEST_F(GeoJson, NumbersReadAsQtReadsThemInEverySpelling)
{
    const std::vector<QByteArray> spellings = {
        "0", "-0", "0.0", "-0.0", "1", "-17", "123456789012345678", "9223372036854775807", "9223372036854775808",
        "-9223372036854775809", "0.1", "-0.30000000000000004", "116.391275", "179.999999999999999999",
        "1e3", "1E-3", "-2.5e+2", "1.7976931348623157e308", "4.9e-324", "2.2250738585072014e-308",
        "123456789012345.6", "0.000000000000000000001", "12345678901234567890.5", "3.141592653589793238462643"};
    std::mt19937_64 random(7);
    std::vector<QByteArray> all = spellings;
    for (int i = 0; i < 2000; ++i)
    {
        // Random decimals of every length around the short-decimal limit.
        const int digits = 1 + static_cast<int>(random() % 19);
        QByteArray text = random() % 2 ? "-" : "";
        for (int d = 0; d < digits; ++d)
            text += static_cast<char>('0' + random() % 10);
        const int point = static_cast<int>(random() % static_cast<unsigned>(digits));
        if (point > 0 && text.size() > 1 && text[text.startsWith('-') ? 1 : 0] != '0')
            text.insert(text.size() - point, '.');
        else
            text = QByteArray::number(static_cast<qlonglong>(random() % 100000)) + "." + text.mid(text.startsWith('-') ? 1 : 0);
        all.push_back(text);
    }
    std::vector<QByteArray> lines;
    for (std::size_t i = 0; i + 2 < all.size(); i += 3)
        // Heights, which the map places whatever their value.
        lines.push_back("[[0,0," + all[i] + "],[0,0," + all[i + 1] + "],[0,0," + all[i + 2] + "],[ 0 ,\n0\t, 0 ]]");
    const QByteArray json = LineFeatures(lines);
    const std::vector<std::vector<CVector3D>> expected = ReadByQt(json);
    const SZoGeoJsonLoadResult result = LoadGeoJson(&module, layer, json);
    ASSERT_EQ(result.objects.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
    {
        const std::vector<CVector3D> got = GeometryOf(result.objects[i]).front();
        ASSERT_EQ(got.size(), 4u);
        for (std::size_t k = 0; k < 3; ++k)
        {
            const double want = expected[i][k].z;
            const double have = got[k].z;
            EXPECT_EQ(std::memcmp(&want, &have, sizeof(double)), 0)
                << all[3 * i + k].toStdString() << ": " << have << " instead of " << want;
        }
    }
}

// Only a feature geometry's coordinates are read past QJsonDocument; arrays
// elsewhere, coordinates that are not plain numbers, and text that breaks
// inside coordinates behave exactly as when QJsonDocument reads it all.
TEST_F(GeoJson, OnlyPlainGeometryCoordinatesAreReadDirectly)
{
    const QByteArray json = R"({"type":"FeatureCollection","coordinates":[9,9],"features":[
      {"type":"Feature","properties":{"name":"a","coordinates":[[1,2],[3,4]]},"geometry":{"type":"LineString","coordinates":[[1,2],[3,4]]}},
      {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[1,2],[3,4,1e999]]}},
      {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[1,2],[3,true]]}},
      {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[[[[[[[1]]]]]]]]}},
      {"type":"Feature","properties":{"name":"b"},"geometry":{"coordinates":[[5,6],[7,8]],"type":"LineString"}}
    ]})";
    const SZoGeoJsonLoadResult result = LoadGeoJson(&module, layer, json.simplified().replace("1e999", "1e300"));
    ASSERT_EQ(result.objects.size(), 3u);
    EXPECT_EQ(result.objects[0]->GetProperty("coordinates").toList().size(), 2);
    EXPECT_EQ(GeometryOf(result.objects[1]).front()[1].z, 1e300);
    EXPECT_EQ(result.objects[2]->GetName(), "b");
    EXPECT_EQ(GeometryOf(result.objects[2]).front()[1].x, 7.0);
    EXPECT_EQ(result.skipped, 2); // true, and arrays nested too deep

    // A number out of range breaks the text for QJsonDocument, and the
    // warning names the offset in the text as given.
    for (const QByteArray& broken : {json, QByteArray(json).replace("[[1,2],[3,4]]}}", "[[1,2],[3,4],]}}"),
                                     QByteArray(json).replace("[[5,6],[7,8]]", "[[5,6],[7,8]"),
                                     QByteArray(json).replace("[[5,6]", "[[5 6]")})
    {
        QJsonParseError expected;
        QJsonDocument::fromJson(broken, &expected);
        ASSERT_NE(expected.error, QJsonParseError::NoError);
        log.Clear();
        EXPECT_FALSE(LoadGeoJson(&module, layer, broken).parsed);
        ASSERT_EQ(log.Messages().size(), 1u);
        EXPECT_EQ(log.Messages()[0].rfind("[CZoGeoJsonReader::Load] JSON解析失败, 偏移: " +
                                              std::to_string(expected.offset) + " ",
                                          0),
                  0u)
            << log.Messages()[0];
    }

    // A string that looks like the reader's own placeholders stays a string.
    log.Clear();
    const SZoGeoJsonLoadResult forged = LoadGeoJson(&module, layer, LineFeatures({R"("\u00000")", "[[1,2],[3,4]]"}));
    EXPECT_EQ(forged.objects.size(), 1u);
    EXPECT_EQ(forged.skipped, 1);
}
