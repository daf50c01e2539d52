#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"

using Messages = std::vector<std::string>;

namespace
{
using Creation = IZoGraphicsMapObject* (*)(CZoGraphicsModule& module, CZoGraphicsModule& other);

// Creations that go wrong, and ones that only look wrong, with all they log.
struct SCreation
{
    const char* what;
    Creation create;
    int registered; // objects the module holds then; the one made is on the default layer
    Messages log;
};

const SCreation kCreations[] = {
    {"empty name", [](auto& m, auto&) -> IZoGraphicsMapObject* { return m.CreateDotMapObject("", nullptr); }, 1},
    {"a name in use", [](auto& m, auto&) -> IZoGraphicsMapObject* {
         m.CreateDotMapObject("d", nullptr);
         return m.CreateCircleMapObject("d", nullptr);
     }, 2},
    {"another module's layer", [](auto& m, auto& other) -> IZoGraphicsMapObject* {
         return m.CreateDotMapObject("d", other.GetDeafultGraphicsLayer());
     }, 0, {"[CZoGraphicsModule::CreateDotMapObject] 图层不属于本模块"}},
    {"no layer and no default layer", [](auto& m, auto&) -> IZoGraphicsMapObject* {
         m.DestroyGraphicsLayer(m.GetDeafultGraphicsLayer());
         return m.CreateDotMapObject("d", nullptr);
     }, 0, {"[CZoGraphicsModule::CreateDotMapObject] 初始化失败"}},
    {"uninitialised module", [](auto&, auto&) -> IZoGraphicsMapObject* {
         CZoGraphicsModule fresh;
         return fresh.CreateDotMapObject("d", nullptr);
     }, 0, {"[CZoTextMapObject::Initialise] MapModule传入为空", "[CZoGraphicsModule::CreateDotMapObject] 初始化失败"}},
    // Initialise without a map succeeds, but makes no layer.
    {"module without a map", [](auto&, auto&) -> IZoGraphicsMapObject* {
         CZoGraphicsModule fresh;
         EXPECT_TRUE(fresh.Initialise("no map", nullptr));
         EXPECT_EQ(fresh.CreateGraphicsLayer("l"), nullptr);
         return fresh.CreateDotMapObject("d", nullptr);
     }, 0, {"[CZoGraphicsMapLayer::Initialise] MapModule传入为空", "[CZoGraphicsModule::CreateGraphicsLayer] 初始化失败",
                "[CZoGraphicsMapLayer::Initialise] MapModule传入为空", "[CZoGraphicsModule::CreateGraphicsLayer] 初始化失败",
                "[CZoTextMapObject::Initialise] MapModule传入为空", "[CZoGraphicsModule::CreateDotMapObject] 初始化失败"}},
};

class Creators : public ModuleFixture
{
};

TEST_F(Creators, RefuseWhatTheyCannotPlaceAndLogWhy)
{
    CZoGraphicsModule other;
    ASSERT_TRUE(other.Initialise("other", &map));
    for (const SCreation& row : kCreations)
    {
        CZoGraphicsModule target;
        ASSERT_TRUE(target.Initialise("target", &map));
        log.Clear();
        IZoGraphicsMapObject* made = row.create(target, other);
        EXPECT_EQ(made != nullptr, row.registered > 0) << row.what;
        EXPECT_EQ(log.Messages(), row.log) << row.what;
        EXPECT_EQ(target.GetRegisteredObjectCount(), row.registered) << row.what;
        if (made)
        {
            EXPECT_EQ(target.LookupGraphicObject(made->GetObjectID()), made) << row.what;
            EXPECT_TRUE(target.GetDeafultGraphicsLayer()->ContainsMapObject(made)) << row.what;
        }
        target.Unintialise();
    }
    // Edit gadgets are refused another module's layer alike.
    log.Clear();
    EXPECT_EQ(module.CreateTranslateEditObject(other.GetDeafultGraphicsLayer()), nullptr);
    EXPECT_EQ(log.Messages(), Messages{"[CZoGraphicsModule::CreateTranslateEditObject] 图层不属于本模块"});
    other.Unintialise();
}

// Each creator names itself in its failure, after the object's own text
// where the object could not start.
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
} // namespace
