#include "support/ModuleFixture.h"

#include "shapes/multidot/CZoMultiDotMapObject.h"
#include "shapes/multiline/CZoMultiLineMapObject.h"
#include "shapes/multipolygon/CZoMultiPolygonMapObject.h"
#include "shapes/polygon/CZoPolygonMapObject.h"
#include "shapes/polyline/CZoPolylineMapObject.h"

#include <QGraphicsItem>

using Messages = std::vector<std::string>;
using Points = std::vector<CVector3D>;

// The kinds that edit one list of points by index.
template <class O, class I, I* (IZoGraphicsModule::*Creator)(const std::string&, IZoGraphicsMapLayer*)>
struct SingleList
{
    using Object = O;
    static Object* Create(IZoGraphicsModule& m, IZoGraphicsMapLayer* layer)
    {
        return static_cast<Object*>((m.*Creator)("points", layer));
    }
};
#define ZO_LIST(Name, Kind, PopEmpty)                                                                              \
    struct Name : SingleList<CZo##Kind##MapObject, IZo##Kind##MapObject, &IZoGraphicsModule::Create##Kind##MapObject> \
    {                                                                                                              \
        static constexpr const char* kClass = "CZo" #Kind "MapObject";                                             \
        static constexpr const char* kPopEmpty = PopEmpty;                                                         \
    };
ZO_LIST(PolylineList, Polyline, nullptr)
ZO_LIST(PolygonList, Polygon, nullptr)
ZO_LIST(MultiDotList, MultiDot, "[CZoMultiDotMapObject::PopBack] 点集已为空")
#undef ZO_LIST

// An object of one point-list kind on a layer of its own, the log cleared.
template <class Kind>
class PointListEdit : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("points");
        object = Kind::Create(module, layer);
        ASSERT_NE(object, nullptr);
        log.Clear();
    }
    IZoGraphicsMapLayer* layer = nullptr;
    typename Kind::Object* object = nullptr;
};

template <class Kind>
class SinglePointList : public PointListEdit<Kind>
{
protected:
    static std::string IndexText(const char* method, int index)
    {
        return std::string("[") + Kind::kClass + "::" + method + "] Index越界: " + std::to_string(index);
    }
    QPolygonF Offsets() const { return this->object->GetItem()->Offsets().lines.front(); }
};

using SingleListKinds = ::testing::Types<PolylineList, PolygonList, MultiDotList>;
TYPED_TEST_SUITE(SinglePointList, SingleListKinds);

TYPED_TEST(SinglePointList, EveryIndexFaultLogsItsTextAndChangesNothing)
{
    auto* o = this->object;
    EXPECT_EQ(o->PopBack(), CVector3D());
    EXPECT_EQ(this->log.Messages(), TypeParam::kPopEmpty ? Messages{TypeParam::kPopEmpty} : Messages{});
    const Points points{{1, 2, 0}, {3, 4, 0}, {5, 6, 0}};
    o->SetData(points);
    const CAABB box = o->GetBoundingBox();
    this->log.Clear();
    EXPECT_EQ(o->At(3), CVector3D());
    EXPECT_EQ(o->At(-1), CVector3D());
    o->Modify(3, CVector3D(9, 9, 9));
    o->Modify(-1, CVector3D(9, 9, 9));
    o->Insert(4, CVector3D(9, 9, 9));
    o->Insert(-1, CVector3D(9, 9, 9));
    o->Remove(3);
    o->Remove(-2);
    EXPECT_EQ(this->log.Messages(),
              (Messages{this->IndexText("At", 3), this->IndexText("At", -1), this->IndexText("Modify", 3),
                        this->IndexText("Modify", -1), this->IndexText("Insert", 4), this->IndexText("Insert", -1),
                        this->IndexText("Remove", 3), this->IndexText("Remove", -2)}));
    EXPECT_EQ(o->GetData(), points);
    EXPECT_EQ(o->GetAnchor(), CVector3D(1, 2, 0));
    EXPECT_TRUE(o->GetBoundingBox().min == box.min && o->GetBoundingBox().max == box.max);
    // The end is a valid place to insert, not to read.
    this->log.Clear();
    o->Insert(3, CVector3D(7, 8, 0));
    EXPECT_EQ(o->At(3), CVector3D(7, 8, 0));
    EXPECT_TRUE(this->log.Messages().empty());
}

TYPED_TEST(SinglePointList, ANewLevelConvertsThePointsAgain)
{
    this->object->SetData({{1, 1, 0}, {2, 3, 0}});
    this->map.pixelsPerDegree = 20.0;
    this->map.ChangeLod(11);
    this->map.ChangeViewScale(1.0);
    EXPECT_EQ(this->object->GetQtItem()->pos(), QPointF(20, -20));
    EXPECT_EQ(this->Offsets(), QPolygonF(QVector<QPointF>{QPointF(0, 0), QPointF(20, -40)}));
}

// --- lists of lists ----------------------------------------------------------------

using Lines = std::vector<std::vector<CVector3D>>;

// The two list-of-lists kinds under one vocabulary. Their index texts differ
// on purpose; each kind spells out what it must log.
struct MultiLineLists
{
    using Object = CZoMultiLineMapObject;
    static Object* Create(IZoGraphicsModule& m, IZoGraphicsMapLayer* layer)
    {
        return static_cast<Object*>(m.CreateMultiLineMapObject("lines", layer));
    }
    static void SetLine(Object* o, int l, const std::vector<CVector3D>& line) { o->SetLineData(l, line); }
    static void InsertLine(Object* o, int l, const std::vector<CVector3D>& line) { o->InsertLine(l, line); }
    static void RemoveLine(Object* o, int l) { o->RemoveLine(l); }
    static std::vector<CVector3D> GetLine(Object* o, int l) { return o->GetLineData(l); }
    static std::vector<std::string> FaultTexts()
    {
        const std::string c = "[CZoMultiPolygonMapObject::";
        return {c + "SetLineData] Index越界: 2",     c + "InsertLine] Index越界: 3",
                c + "RemoveLine] Index越界: 2",      c + "GetLineData] Index越界: -1",
                c + "GetPointNumber] Index越界: 2",  c + "ModifyData] nLineIndex越界: 2",
                c + "ModifyData] nPointIndex越界: 3", c + "At] nLineIndex越界: -1",
                c + "At] nPointIndex越界: 3",         c + "At] nLineIndex越界: 2",
                c + "At] InsertPoint越界: 2",         c + "At] nPointIndex越界: 4",
                c + "RemovePoint] nLineIndex越界: 2", c + "RemovePoint] nPointIndex越界: 3",
                c + "PopPoint] nLineIndex越界: 2",    "[RemovePoint::PopPoint] nLineIndex对应点集为空"};
    }
    static constexpr bool kCleanupLogs = false;
};

struct MultiPolygonLists
{
    using Object = CZoMultiPolygonMapObject;
    static Object* Create(IZoGraphicsModule& m, IZoGraphicsMapLayer* layer)
    {
        return static_cast<Object*>(m.CreateMultiPolygonMapObject("rings", layer));
    }
    static void SetLine(Object* o, int l, const std::vector<CVector3D>& line) { o->SetPolygonData(l, line); }
    static void InsertLine(Object* o, int l, const std::vector<CVector3D>& line) { o->InsertPolygon(l, line); }
    static void RemoveLine(Object* o, int l) { o->RemovePolygon(l); }
    static std::vector<CVector3D> GetLine(Object* o, int l) { return o->GetPolygonData(l); }
    static std::vector<std::string> FaultTexts()
    {
        const std::string c = "[CZoPolygonMapObject::";
        return {"[CZoMultiPolygonMapObject::SetPolygonData] Index越界: 2", c + "InsertPolygon] Index越界: 3",
                c + "RemovePolygon] Index越界: 2",      c + "GetPolygonData] Index越界: -1",
                c + "GetPointNumber] Index越界: 2",     c + "ModifyData] nPolygonIndex越界: 2",
                c + "ModifyData] nPolygonIndex越界: 3", c + "At] nPolygonIndex越界: -1",
                c + "At] nPointIndex越界: 3",           c + "AppendPoint] nPolygonIndex越界: 2",
                c + "InsertPoint] nPolygonIndex越界: 2", c + "InsertPoint] nPointIndex越界: 4",
                c + "RemovePoint] nPolygonIndex越界: 2", c + "RemovePoint] nPointIndex越界: 3",
                c + "PopPoint] nPolygonIndex越界: 2",   c + "PopPoint] nPolygonIndex对应点集为空"};
    }
    static constexpr bool kCleanupLogs = true;
};

template <class Kind>
class NestedPointList : public PointListEdit<Kind>
{
};

using NestedKinds = ::testing::Types<MultiLineLists, MultiPolygonLists>;
TYPED_TEST_SUITE(NestedPointList, NestedKinds);

TYPED_TEST(NestedPointList, EveryIndexFaultLogsItsOwnTextAndChangesNothing)
{
    using K = TypeParam;
    auto* o = this->object;
    const Lines data{{{1, 1, 0}, {2, 2, 0}, {3, 1, 0}}, {}};
    o->SetData(data);
    this->log.Clear();
    const CVector3D p(9, 9, 9);
    K::SetLine(o, 2, {p});
    K::InsertLine(o, 3, {p});
    K::RemoveLine(o, 2);
    EXPECT_TRUE(K::GetLine(o, -1).empty());
    EXPECT_EQ(o->GetPointNumber(2), 0);
    o->ModifyData(2, 0, p);
    o->ModifyData(0, 3, p);
    EXPECT_EQ(o->At(-1, 0), CVector3D());
    EXPECT_EQ(o->At(0, 3), CVector3D());
    o->AppendPoint(2, p);
    o->InsertPoint(2, 0, p);
    o->InsertPoint(0, 4, p);
    o->RemovePoint(2, 0);
    o->RemovePoint(0, 3);
    EXPECT_EQ(o->PopPoint(2), CVector3D());
    EXPECT_EQ(o->PopPoint(1), CVector3D()); // the second line is empty
    EXPECT_EQ(this->log.Messages(), K::FaultTexts());
    EXPECT_EQ(o->Lines(), data);
    this->log.Clear();
    o->Cleanup(5);
    EXPECT_EQ(this->log.Messages().size(), K::kCleanupLogs ? 1u : 0u);
    EXPECT_EQ(o->Lines(), data);
}
