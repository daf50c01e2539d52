#include "support/ModuleFixture.h"

#include "shapes/multipolygon/CZoMultiPolygonMapObject.h"

#include <ZoGraphics/ZoGeoJson.h>

#include <QFile>
#include <QGraphicsItem>

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
   [[0,0],[8,0],[8,8],[0,8],[0,0]],[[2,2],[6,2],[6,6],[2,6],[2,2]]]}},
 {"type":"Feature","properties":{"name":"islands"},"geometry":{"type":"MultiPolygon","coordinates":[
   [[[10,0],[12,0],[12,2],[10,0]]],[[[20,0],[22,0],[22,2],[20,2],[20,0]],[[20.5,0.5],[21,0.5],[21,1],[20.5,0.5]]]]}}
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
    EXPECT_EQ(result.objects.size(), 2u);
    EXPECT_EQ(result.skipped, 7);
    const std::string at = "[CZoGeoJsonReader::Load] 要素";
    EXPECT_EQ(log.Messages(), (Messages{at + "0无效: 几何类型不支持", at + "2无效: 坐标缺失或非数值",
                                        at + "3无效: 坐标缺失或非数值", at + "4无效: 环少于3个点",
                                        at + "5无效: 坐标缺失或非数值", at + "6无效: 几何类型不支持",
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
    EXPECT_TRUE(log.Messages().empty());
}
