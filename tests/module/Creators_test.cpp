#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"

using Messages = std::vector<std::string>;

using Creators = ModuleFixture;

// Each creator names itself in its failure, after the object's own text
// where the object could not start: on a module never initialised, and on
// one without a default layer.
TEST_F(Creators, EveryKindLogsItsOwnCreatorsText)
{
    struct SCreator
    {
        MapObjectMaker make;
        const char* objectText;
        const char* creatorText;
    };
    const auto row = [](auto kind, const char* creatorText) {
        using K = decltype(kind);
        return SCreator{&K::Create, K::Texts().initialise, creatorText};
    };
    const SCreator rows[] = {
        row(DotKind(), "[CZoGraphicsModule::CreateDotMapObject] 初始化失败"),
        row(TextKind(), "[CZoGraphicsModule::CreateTextMapObject] 初始化失败"),
        row(CircleKind(), "[CZoGraphicsModule::CreateCircleMapObject] 初始化失败"),
        row(EllipseKind(), "[CZoGraphicsModule::CreateEllipseMapObject] 初始化失败"),
        row(RectangleKind(), "[CZoGraphicsModule::CreateRectangleMapObject] 初始化失败"),
        row(TileKind(), "[CZoGraphicsModule::CreateTileMapObject] 初始化失败"),
        row(PieKind(), "[CZoGraphicsModule::CreatePieMapObject] 初始化失败"),
        row(ArcKind(), "[CZoGraphicsModule::CreateArcMapObject] 初始化失败"),
        row(ChordKind(), "[CZoGraphicsModule::CreateChordMapObject] 初始化失败"),
        row(BubbleKind(), "[CZoGraphicsModule::CreateBubbleMapObject] 初始化失败"),
        row(MarkPointKind(), "[CZoGraphicsModule::CreateMarkPointMapObject] 初始化失败"),
        row(SVGKind(), "[CZoGraphicsModule::CreateSVGMapObject] 初始化失败"),
        row(WidgetKind(), "[CZoGraphicsModule::CreateWidgetMapObject] 初始化失败"),
        row(LayerCanvasKind(), "[CZoGraphicsModule::CreateLayerCanvasMapObject] 初始化失败"),
        row(PolylineKind(), "[CZoGraphicsModule::CreatePolylineMapObject] 初始化失败"),
        row(PolygonKind(), "[CZoGraphicsModule::CreatePolygonMapObject] 初始化失败"),
        row(MultiDotKind(), "[CZoGraphicsModule::CreateMultiDotMapObject] 初始化失败"),
        row(MultiLineKind(), "[CZoGraphicsModule::CreateMultiLineMapObject] 初始化失败"),
        row(MultiPolygonKind(), "[CZoGraphicsModule::CreateMultiPolygonMapObject] 初始化失败"),
    };
    module.DestroyGraphicsLayer(DefaultLayer());
    for (const SCreator& creator : rows)
    {
        CZoGraphicsModule unset;
        log.Clear();
        EXPECT_EQ(creator.make(unset, "x", nullptr), nullptr) << creator.creatorText;
        EXPECT_EQ(creator.make(module, "x", nullptr), nullptr) << creator.creatorText;
        EXPECT_EQ(log.Messages(), (Messages{creator.objectText, creator.creatorText, creator.creatorText}));
    }
    EXPECT_EQ(module.GetRegisteredObjectCount(), 0);
}

TEST_F(Creators, AModuleWithoutAMapMakesNothingAndLogsWhy)
{
    CZoGraphicsModule fresh;
    log.Clear();
    EXPECT_TRUE(fresh.Initialise("no map", nullptr));
    EXPECT_EQ(fresh.CreateGraphicsLayer("l"), nullptr);
    EXPECT_EQ(fresh.CreateDotMapObject("d", nullptr), nullptr);
    EXPECT_EQ(fresh.GetRegisteredObjectCount(), 0);
    EXPECT_EQ(log.Messages(),
              (Messages{"[CZoGraphicsMapLayer::Initialise] MapModule传入为空", "[CZoGraphicsModule::CreateGraphicsLayer] 初始化失败",
                        "[CZoGraphicsMapLayer::Initialise] MapModule传入为空", "[CZoGraphicsModule::CreateGraphicsLayer] 初始化失败",
                        "[CZoTextMapObject::Initialise] MapModule传入为空", "[CZoGraphicsModule::CreateDotMapObject] 初始化失败"}));
}
