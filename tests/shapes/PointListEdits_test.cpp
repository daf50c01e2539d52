#include "support/KindFixture.h"

#include <QGraphicsItem>

using Messages = std::vector<std::string>;

template <class Kind>
class SinglePointList : public KindFixture<Kind>
{
protected:
    static std::string IndexText(const char* method, int index)
    {
        const char* cls = Kind::kRow == KindRow::Polyline  ? "CZoPolylineMapObject"
                          : Kind::kRow == KindRow::Polygon ? "CZoPolygonMapObject"
                                                           : "CZoMultiDotMapObject";
        return std::string("[") + cls + "::" + method + "] Index越界: " + std::to_string(index);
    }
    QPolygonF Offsets() const { return this->Impl()->GetItem()->Offsets().lines.front(); }
};

using SingleListKinds = ::testing::Types<PolylineKind, PolygonKind, MultiDotKind>;
TYPED_TEST_SUITE(SinglePointList, SingleListKinds);

TYPED_TEST(SinglePointList, EveryIndexFaultLogsItsText)
{
    auto* o = this->object;
    EXPECT_EQ(o->PopBack(), CVector3D());
    EXPECT_EQ(this->log.Messages(), TypeParam::kRow == KindRow::MultiDot
                                        ? Messages{"[CZoMultiDotMapObject::PopBack] 点集已为空"}
                                        : Messages{});
    o->SetData({{1, 2, 0}, {3, 4, 0}, {5, 6, 0}});
    this->log.Clear();
    EXPECT_TRUE(o->At(3) == CVector3D() && o->At(-1) == CVector3D()); // && keeps the log's order
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

// The two list-of-lists kinds under one vocabulary. Their index texts differ
// on purpose; each kind spells out what it must log.
struct MultiLineLists : MultiLineKind
{
    static void SetLine(Interface* o, int l, const std::vector<CVector3D>& line) { o->SetLineData(l, line); }
    static void InsertLine(Interface* o, int l, const std::vector<CVector3D>& line) { o->InsertLine(l, line); }
    static void RemoveLine(Interface* o, int l) { o->RemoveLine(l); }
    static std::vector<CVector3D> GetLine(Interface* o, int l) { return o->GetLineData(l); }
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
};

struct MultiPolygonLists : MultiPolygonKind
{
    static void SetLine(Interface* o, int l, const std::vector<CVector3D>& line) { o->SetPolygonData(l, line); }
    static void InsertLine(Interface* o, int l, const std::vector<CVector3D>& line) { o->InsertPolygon(l, line); }
    static void RemoveLine(Interface* o, int l) { o->RemovePolygon(l); }
    static std::vector<CVector3D> GetLine(Interface* o, int l) { return o->GetPolygonData(l); }
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
};

template <class Kind>
using NestedPointList = KindFixture<Kind>;

using NestedKinds = ::testing::Types<MultiLineLists, MultiPolygonLists>;
TYPED_TEST_SUITE(NestedPointList, NestedKinds);

TYPED_TEST(NestedPointList, EveryIndexFaultLogsItsOwnText)
{
    using K = TypeParam;
    auto* o = this->object;
    o->SetData({{{1, 1, 0}, {2, 2, 0}, {3, 1, 0}}, {}});
    this->log.Clear();
    const CVector3D p(9, 9, 9);
    K::SetLine(o, 2, {p});
    K::InsertLine(o, 3, {p});
    K::RemoveLine(o, 2);
    EXPECT_TRUE(K::GetLine(o, -1).empty() && o->GetPointNumber(2) == 0);
    o->ModifyData(2, 0, p);
    o->ModifyData(0, 3, p);
    EXPECT_TRUE(o->At(-1, 0) == CVector3D() && o->At(0, 3) == CVector3D());
    o->AppendPoint(2, p);
    o->InsertPoint(2, 0, p);
    o->InsertPoint(0, 4, p);
    o->RemovePoint(2, 0);
    o->RemovePoint(0, 3);
    EXPECT_EQ(o->PopPoint(2), CVector3D());
    EXPECT_EQ(o->PopPoint(1), CVector3D()); // the second line is empty
    EXPECT_EQ(this->log.Messages(), K::FaultTexts());
}
