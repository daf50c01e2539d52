#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"

using Messages = std::vector<std::string>;

namespace
{
struct Creator
{
    MapObjectMaker make;
    const char* objectText; // the object's own Initialise text
    const char* creatorText;
};

template <class K>
Creator Row(const char* creatorText)
{
    return {[](IZoGraphicsModule& m, const std::string& name, IZoGraphicsMapLayer* layer) -> IZoGraphicsMapObject* {
                return K::Create(m, name, layer);
            },
            K::Texts().initialise, creatorText};
}

const std::vector<Creator>& Creators()
{
    static const std::vector<Creator> rows{
        Row<DotKind>("[CZoGraphicsModule::CreateDotMapObject] 初始化失败"),
        Row<TextKind>("[CZoGraphicsModule::CreateTextMapObject] 初始化失败"),
        Row<CircleKind>("[CZoGraphicsModule::CreateCircleMapObject] 初始化失败"),
        Row<EllipseKind>("[CZoGraphicsModule::CreateEllipseMapObject] 初始化失败"),
        Row<RectangleKind>("[CZoGraphicsModule::CreateRectangleMapObject] 初始化失败"),
        Row<TileKind>("[CZoGraphicsModule::CreateTileMapObject] 初始化失败"),
        Row<PieKind>("[CZoGraphicsModule::CreatePieMapObject] 初始化失败"),
        Row<ArcKind>("[CZoGraphicsModule::CreateArcMapObject] 初始化失败"),
        Row<ChordKind>("[CZoGraphicsModule::CreateChordMapObject] 初始化失败"),
        Row<BubbleKind>("[CZoGraphicsModule::CreateBubbleMapObject] 初始化失败"),
        Row<MarkPointKind>("[CZoGraphicsModule::CreateMarkPointMapObject] 初始化失败"),
        Row<SVGKind>("[CZoGraphicsModule::CreateSVGMapObject] 初始化失败"),
        Row<WidgetKind>("[CZoGraphicsModule::CreateWidgetMapObject] 初始化失败"),
        Row<LayerCanvasKind>("[CZoGraphicsModule::CreateLayerCanvasMapObject] 初始化失败"),
        Row<PolylineKind>("[CZoGraphicsModule::CreatePolylineMapObject] 初始化失败"),
        Row<PolygonKind>("[CZoGraphicsModule::CreatePolygonMapObject] 初始化失败"),
        Row<MultiDotKind>("[CZoGraphicsModule::CreateMultiDotMapObject] 初始化失败"),
        Row<MultiLineKind>("[CZoGraphicsModule::CreateMultiLineMapObject] 初始化失败"),
        Row<MultiPolygonKind>("[CZoGraphicsModule::CreateMultiPolygonMapObject] 初始化失败"),
    };
    return rows;
}
} // namespace

// Without a map the object says why first, then its creator; nothing is
// registered.
TEST(Creators, WithoutAMapLogTheObjectsTextThenTheirOwn)
{
    for (const Creator& creator : Creators())
    {
        CZoGraphicsModule module;
        LogCapture log;
        EXPECT_EQ(creator.make(module, "x", nullptr), nullptr) << creator.creatorText;
        EXPECT_EQ(log.Messages(), (Messages{creator.objectText, creator.creatorText}));
        EXPECT_EQ(module.GetRegisteredObjectCount(), 0);
        EXPECT_EQ(module.LookupGraphicObject("x"), nullptr);
    }
}

class CreatorsWithMap : public ModuleFixture
{
};

// With a map but no default layer, a null layer makes every creator fail on
// its own text.
TEST_F(CreatorsWithMap, WithoutTheDefaultLayerNullLayersFail)
{
    module.DestroyGraphicsLayer(DefaultLayer());
    EXPECT_TRUE(map.handlers.empty());
    const int before = module.GetRegisteredObjectCount();
    for (const Creator& creator : Creators())
    {
        log.Clear();
        EXPECT_EQ(creator.make(module, "x", nullptr), nullptr);
        EXPECT_EQ(log.Messages(), Messages{creator.creatorText});
    }
    EXPECT_EQ(module.GetRegisteredObjectCount(), before);
}
