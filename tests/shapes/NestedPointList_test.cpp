#include "support/ModuleFixture.h"

#include "shapes/multiline/CZoMultiLineMapObject.h"
#include "shapes/multipolygon/CZoMultiPolygonMapObject.h"

#include <QGraphicsItem>

using Messages = std::vector<std::string>;
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
    static int AppendLine(Object* o, const std::vector<CVector3D>& line) { return o->AppendLine(line); }
    static void InsertLine(Object* o, int l, const std::vector<CVector3D>& line) { o->InsertLine(l, line); }
    static void RemoveLine(Object* o, int l) { o->RemoveLine(l); }
    static void PopLine(Object* o) { o->PopLine(); }
    static std::vector<CVector3D> GetLine(Object* o, int l) { return o->GetLineData(l); }
    static std::int64_t LineCount(Object* o) { return o->GetLineNumber(); }
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
    static int AppendLine(Object* o, const std::vector<CVector3D>& line) { return o->AppendPolygon(line); }
    static void InsertLine(Object* o, int l, const std::vector<CVector3D>& line) { o->InsertPolygon(l, line); }
    static void RemoveLine(Object* o, int l) { o->RemovePolygon(l); }
    static void PopLine(Object* o) { o->PopPolygon(); }
    static std::vector<CVector3D> GetLine(Object* o, int l) { return o->GetPolygonData(l); }
    static std::int64_t LineCount(Object* o) { return o->GetPolygonNumber(); }
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
class NestedPointList : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        object = Kind::Create(module, module.CreateGraphicsLayer("nested"));
        ASSERT_NE(object, nullptr);
        log.Clear();
    }
    typename Kind::Object* object = nullptr;
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

TYPED_TEST(NestedPointList, LinesGoInAtTheEndAndEmptyOnesAreRefused)
{
    using K = TypeParam;
    auto* o = this->object;
    EXPECT_EQ(K::AppendLine(o, {}), -1);
    EXPECT_EQ(K::LineCount(o), 0);
    EXPECT_EQ(K::AppendLine(o, {{1, 1, 0}}), 0);
    K::InsertLine(o, 1, {{2, 2, 0}, {3, 3, 0}}); // the count itself appends
    EXPECT_EQ(K::LineCount(o), 2);
    o->InsertPoint(0, 1, CVector3D(4, 4, 0)); // so does the point count
    EXPECT_EQ(o->At(0, 1), CVector3D(4, 4, 0));
    o->Cleanup(1);
    EXPECT_EQ(o->GetPointNumber(1), 0);
    K::PopLine(o);
    K::PopLine(o);
    K::PopLine(o); // nothing left: nothing happens
    EXPECT_EQ(K::LineCount(o), 0);
    EXPECT_EQ(o->GetAnchor(), CVector3D());
    EXPECT_TRUE(this->log.Messages().empty());
}

TYPED_TEST(NestedPointList, SetPositionMovesEveryLineRigidly)
{
    auto* o = this->object;
    o->SetData({{{1, 1, 0}, {2, 1, 0}}, {{5, 5, 0}}});
    o->SetPosition(CVector3D(2, 3, 0));
    EXPECT_EQ(o->At(1, 0), CVector3D(6, 7, 0));
    EXPECT_EQ(o->GetQtItem()->pos(), QPointF(20, -30));
    EXPECT_EQ(o->GetBoundingBox().max, CVector3D(6, 7, 1));
}
