#include "support/ModuleFixture.h"
#include "geojson/CZoGeoJsonCoordinates.h"
#include <ZoGraphics/ZoGeoJson.h>
#include <QGraphicsItem>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstring>
#include <random>

using Messages = std::vector<std::string>;
using Rings = std::vector<std::vector<CVector3D>>;
using namespace ZoGeoJsonNS;

namespace
{
const std::string kAt = "[CZoGeoJsonReader::Load] 要素";
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
Rings GeometryOf(IZoGraphicsMapObject* object)
{
    if (auto* dot = dynamic_cast<IZoDotMapObject*>(object))
        return {{dot->GetPosition()}};
    if (auto* dots = dynamic_cast<IZoMultiDotMapObject*>(object))
        return {dots->GetData()};
    if (auto* line = dynamic_cast<IZoPolylineMapObject*>(object))
        return {line->GetData()};
    Rings all;
    if (auto* lines = dynamic_cast<IZoMultiLineMapObject*>(object))
        for (int i = 0; i < lines->GetLineNumber(); ++i)
            all.push_back(lines->GetLineData(i));
    if (auto* rings = dynamic_cast<IZoMultiPolygonMapObject*>(object))
        for (int i = 0; i < rings->GetPolygonNumber(); ++i)
            all.push_back(rings->GetPolygonData(i));
    return all;
}

std::string DataFile(const char* name) { return std::string(ZO_TEST_DATA_DIR) + "/geojson/" + name; }
QJsonArray Features(const QByteArray& json) { return QJsonDocument::fromJson(json).object().value("features").toArray(); }
QJsonObject Geometry(const QJsonArray& features, int i) { return features.at(i).toObject().value("geometry").toObject(); }
} // namespace

class GeoJson : public ModuleFixture
{
protected:
    void SetUp() override { ModuleFixture::SetUp(), layer = module.CreateGraphicsLayer("geojson"), log.Clear(); }
    IZoGraphicsMapLayer* layer = nullptr;
};

TEST_F(GeoJson, ADegenerateRingIsDroppedAloneAndTheFeatureKept)
{
    const SZoGeoJsonLoadResult result = LoadGeoJsonFile(&module, layer, DataFile("degenerate_rings.geojson"));
    EXPECT_EQ(result.skipped, 1);
    EXPECT_EQ(log.Messages(), (Messages{kAt + "0多边形1环0已丢弃: 环少于3个点", kAt + "0多边形2环0已丢弃: 环面积为零",
                                        kAt + "1多边形0环0已丢弃: 环面积为零", kAt + "2多边形0环1已丢弃: 环面积为零",
                                        kAt + "3无效: 环面积为零"}));
    ASSERT_EQ(result.objects.size(), 3u);
    auto* italy = dynamic_cast<IZoMultiPolygonMapObject*>(result.objects[0]);
    ASSERT_NE(italy, nullptr);
    EXPECT_EQ(GeometryOf(italy), (Rings{{{6, 36, 0}, {19, 36, 0}, {19, 47, 0}, {6, 47, 0}},
                                     {{12, 43.5, 0}, {12, 44, 0}, {12.5, 44, 0}, {12.5, 43.5, 0}},
                                     {{13, 37, 0}, {15, 37, 0}, {15, 38, 0}}}));
    // San Marino is still a hole (the fake map draws 10 px a degree, north up).
    EXPECT_FALSE(italy->GetQtItem()->contains(italy->GetQtItem()->mapFromScene(QPointF(122.5, -437.5))));
    EXPECT_TRUE(italy->GetQtItem()->contains(italy->GetQtItem()->mapFromScene(QPointF(100, -400))));
    // The ring after a flat exterior along the pole stays, and is land.
    EXPECT_EQ(GeometryOf(dynamic_cast<IZoMultiPolygonMapObject*>(result.objects[1])),
              (Rings{{{-180, -80, 0}, {180, -80, 0}, {180, -70, 0}}}));
    EXPECT_EQ(dynamic_cast<IZoMultiPolygonMapObject*>(result.objects[2])->GetPolygonNumber(), 1);
}

// What was read comes back: "id", "bbox", a "name" that is no string,
// features without geometry; rings follow the right-hand rule.
TEST_F(GeoJson, WritingGivesBackWhatWasReadWithRightHandRings)
{
    const SZoGeoJsonLoadResult result = LoadGeoJsonFile(&module, layer, DataFile("round_trip.geojson"));
    EXPECT_EQ(std::tuple(result.skipped, log.Messages()), std::tuple(0, Messages{}));
    const QByteArray written = WriteGeoJsonLayer(layer);
    EXPECT_EQ(Features(written), Features(R"({"features":[
 {"type":"Feature","id":"ITA","bbox":[0,0,4,4],"properties":{"name":42,"iso":"IT"},"geometry":{"type":"Polygon",
  "coordinates":[[[0,0],[4,0],[4,4],[0,4],[0,0]],[[1,1],[1,2],[2,2],[2,1],[1,1]]]}},
 {"type":"Feature","id":7,"properties":{"pop":3},"geometry":{"type":"Point","coordinates":[5,6]}},
 {"type":"Feature","properties":{"name":"nowhere"},"geometry":null}]})")) << written.toStdString();
    // Loading what was written and writing it again changes nothing.
    IZoGraphicsMapLayer* again = module.CreateGraphicsLayer("again");
    LoadGeoJson(&module, again, written);
    EXPECT_EQ(WriteGeoJsonLayer(again), written);
}

TEST_F(GeoJson, EachGeometryTypeBecomesItsKind)
{
    const SZoGeoJsonLoadResult first = LoadGeoJson(&module, layer, kMixed);
    ASSERT_EQ(first.objects.size(), 6u);
    EXPECT_EQ(std::tuple(first.skipped, log.Messages()), std::tuple(0, Messages{}));
    EXPECT_EQ(module.LookupDotMapObject("Beijing")->GetPosition(), CVector3D(116.4, 39.9, 0));
    EXPECT_EQ(module.LookupMultiDotMapObject("capitals")->At(1), CVector3D(3, 4, 5));
    EXPECT_EQ(std::tuple(module.LookupPolylineMapObject("route")->GetPointNumber(), module.LookupMultiLineMapObject("rivers")->GetLineNumber()),
              std::tuple(3, 2));
    IZoMultiPolygonMapObject* frame = module.LookupMultiPolygonMapObject("frame");
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->GetPointNumber(0), 4); // the closing position is the object's business
    EXPECT_EQ(frame->GetProperty("kind"), QVariant("holed"));
    EXPECT_EQ(module.LookupMultiPolygonMapObject("islands")->GetPolygonNumber(), 3);
    EXPECT_TRUE(!frame->GetQtItem()->contains(QPointF(40, -40)) && frame->GetQtItem()->contains(QPointF(10, -10)));
    EXPECT_FALSE(module.LookupMultiDotMapObject("capitals")->GetQtItem()->shape().isEmpty()); // laid out at once
    // A polygon made by hand is written as one; nulls are passed over.
    auto* polygon = module.CreatePolygonMapObject("p", layer);
    polygon->SetData({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}});
    const SZoGeoJsonLoadResult back = LoadGeoJson(&module, nullptr, WriteGeoJson({polygon, nullptr}));
    ASSERT_EQ(back.objects.size(), 1u);
    EXPECT_EQ(GeometryOf(back.objects[0]), Rings{polygon->GetData()});
    EXPECT_EQ(WriteGeoJsonLayer(nullptr), WriteGeoJson({}));
}

TEST_F(GeoJson, BadFeaturesAreSkippedByIndexAndBadTextLoadsNothing)
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
      {"type":"Feature","properties":{"name":"ok too"},"geometry":{"type":"MultiPoint","coordinates":[[5,5]]}},
      {"type":"Feature","properties":{},"geometry":{"type":"MultiLineString","coordinates":[[1,2]]}}
    ]})";
    const SZoGeoJsonLoadResult result = LoadGeoJson(&module, layer, json);
    EXPECT_EQ(result.objects.size(), 3u); // the feature without geometry too
    EXPECT_EQ(result.skipped, 7);
    EXPECT_EQ(log.Messages(), (Messages{kAt + "0无效: 几何类型不支持", kAt + "2无效: 坐标缺失或非数值",
                                        kAt + "3无效: 坐标缺失或非数值", kAt + "4无效: 环少于3个点",
                                        kAt + "5无效: 坐标缺失或非数值", kAt + "7无效: 不是Feature对象",
                                        kAt + "9无效: 坐标缺失或非数值"}));
    log.Clear();
    const int count = layer->GetMapObjectCount();
    EXPECT_FALSE(LoadGeoJson(&module, layer, R"({"type":"FeatureCollection","features":[{"type":"Feature",]})").parsed);
    EXPECT_FALSE(LoadGeoJson(&module, layer, R"({"type":"Feature"})").parsed);
    EXPECT_FALSE(LoadGeoJsonFile(&module, layer, "/nonexistent/file.geojson").parsed);
    EXPECT_FALSE(LoadGeoJson(nullptr, layer, kMixed).parsed);
    EXPECT_EQ(layer->GetMapObjectCount(), count);
    Messages messages = log.Messages();
    ASSERT_EQ(messages.size(), 4u);
    messages[0].resize(std::min<std::size_t>(messages[0].size(), 53)); // the offset, not the reason
    EXPECT_EQ(messages, (Messages{"[CZoGeoJsonReader::Load] JSON解析失败, 偏移: 59",
                        "[CZoGeoJsonReader::Load] 不是FeatureCollection",
                        "[CZoGeoJsonReader::LoadFile] 文件无法打开: /nonexistent/file.geojson",
                        "[CZoGeoJsonReader::Load] 传入参数为空"}));
}

namespace
{
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
    std::vector<QByteArray> all = {
        "0", "-0", "0.0", "-0.0", "1", "-17", "123456789012345678", "9223372036854775807", "9223372036854775808",
        "-9223372036854775809", "0.1", "-0.30000000000000004", "116.391275", "179.999999999999999999",
        "1e3", "1E-3", "-2.5e+2", "1.7976931348623157e308", "4.9e-324", "2.2250738585072014e-308",
        "123456789012345.6", "0.000000000000000000001", "12345678901234567890.5", "3.141592653589793238462643"};
    std::mt19937_64 random(7);
    for (int i = 0; i < 2000; ++i)
    {
        // Random decimals of every length around the short-decimal limit.
        QByteArray digits = QByteArray::number(static_cast<qulonglong>(random() % 9 + 1));
        for (int d = static_cast<int>(random() % 19); d > 0; --d)
            digits += static_cast<char>('0' + random() % 10);
        digits.insert(static_cast<int>(random() % static_cast<unsigned>(digits.size())) + 1, '.');
        all.push_back((random() % 2 ? "-" : "") + (digits.endsWith('.') ? digits + "5" : digits));
    }
    std::vector<QByteArray> lines; // heights, which the map places whatever their value
    for (std::size_t i = 0; i + 2 < all.size(); i += 3)
        lines.push_back("[[0,0," + all[i] + "],[0,0," + all[i + 1] + "],[0,0," + all[i + 2] + "],[ 0 ,\n0\t, 0 ]]");
    const QByteArray json = LineFeatures(lines);
    const QJsonArray byQt = Features(json);
    const SZoGeoJsonLoadResult result = LoadGeoJson(&module, layer, json);
    ASSERT_EQ(result.objects.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        const std::vector<CVector3D> got = GeometryOf(result.objects[i]).front();
        const QJsonArray want = Geometry(byQt, static_cast<int>(i)).value("coordinates").toArray();
        ASSERT_EQ(got.size(), 4u);
        for (std::size_t k = 0; k < 3; ++k)
        {
            const double expected = want.at(static_cast<int>(k)).toArray().at(2).toDouble();
            EXPECT_EQ(std::memcmp(&expected, &got[k].z, sizeof(double)), 0)
                << all[3 * i + k].toStdString() << ": " << got[k].z << " instead of " << expected;
        }
    }
}

// Arrays elsewhere, coordinates that are not plain numbers, and text that
// breaks inside coordinates behave exactly as when QJsonDocument reads it all.
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
    EXPECT_TRUE(result.objects[2]->GetName() == "b" && GeometryOf(result.objects[2]).front()[1].x == 7.0);
    EXPECT_EQ(result.skipped, 2); // true, and arrays nested too deep
    // A number out of range either way breaks the text for QJsonDocument,
    // and the warning names the offset in the text as given.
    for (const QByteArray& broken : {json, QByteArray(json).replace("1e999", "-1e-999"),
                                     QByteArray(json).replace("[[1,2],[3,4]]}}", "[[1,2],[3,4],]}}"),
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
                                              std::to_string(expected.offset) + " ", 0), 0u) << log.Messages()[0];
    }
    // A string that looks like the reader's own placeholders stays a string.
    const SZoGeoJsonLoadResult forged = LoadGeoJson(&module, layer, LineFeatures({R"("\u00000")", R"("")", "[[1,2],[3,4]]"}));
    EXPECT_EQ(std::make_pair(forged.objects.size(), forged.skipped), std::make_pair(std::size_t(1), 2));
}

// The coordinate reader takes exponents of either sign itself, rather than
// leaving their array to QJsonDocument (which reads them the same, only
// slower), and never looks past the end of the text it is given.
TEST(GeoJsonCoordinates, SignedExponentsAreReadAndTheTextsEndIsRespected)
{
    const QByteArray head = R"({"type":"FeatureCollection","features":[{"type":"Feature","geometry":{"coordinates":)";
    CZoGeoJsonCoordinates reader;
    const QByteArray cut = reader.Extract(head + "[[1e+2,2.5E-1]]}}]}");
    EXPECT_EQ(cut, head + "\"\\u00000\"}}]}");
    int root = -1;
    ASSERT_TRUE(reader.Lookup(QString(QChar(0)) + QLatin1Char('0'), 0, &root));
    EXPECT_EQ(std::make_pair(reader.Value(root).at(0).at(0).toDouble(), reader.Value(root).at(0).at(1).toDouble()),
              std::make_pair(100.0, 0.25));
    // Text that stops at an opening bracket, with a closing one just past it.
    const QByteArray storage = head + "[]";
    const QByteArray open = QByteArray::fromRawData(storage.constData(), storage.size() - 1);
    EXPECT_EQ(reader.Extract(open), open);
    EXPECT_EQ(reader.Extract(head + "[[1,2"), head + "[[1,2");
}

// A feature read without geometry stays without one only until it is given
// dots; a host's own empty multi-dot is an empty MultiPoint.
TEST_F(GeoJson, OnlyAFeatureReadWithoutGeometryAndStillEmptyIsWrittenWithoutOne)
{
    const SZoGeoJsonLoadResult read = LoadGeoJson(
        &module, layer, R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{},"geometry":null}]})");
    ASSERT_EQ(read.objects.size(), 1u);
    auto* dots = dynamic_cast<IZoMultiDotMapObject*>(read.objects[0]);
    ASSERT_NE(dots, nullptr);
    EXPECT_TRUE(Features(WriteGeoJson({dots})).at(0).toObject().value("geometry").isNull());
    dots->SetData({CVector3D(1.0, 2.0, 0.0)});
    EXPECT_EQ(Geometry(Features(WriteGeoJson({dots})), 0).value("type").toString(), "MultiPoint");
    IZoMultiDotMapObject* own = module.CreateMultiDotMapObject("own", layer);
    EXPECT_EQ(Geometry(Features(WriteGeoJson({own})), 0).value("type").toString(), "MultiPoint");
}
