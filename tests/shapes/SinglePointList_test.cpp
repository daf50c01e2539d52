#include "support/ModuleFixture.h"
#include "support/PointListModel.h"

#include "shapes/multidot/CZoMultiDotMapObject.h"
#include "shapes/polygon/CZoPolygonMapObject.h"
#include "shapes/polyline/CZoPolylineMapObject.h"

#include <cmath>
#include <limits>

using Messages = std::vector<std::string>;

// The kinds that edit one list of points by index.
struct PolylineList
{
    using Object = CZoPolylineMapObject;
    static constexpr const char* kClass = "CZoPolylineMapObject";
    static constexpr const char* kPopEmpty = nullptr;
    static IZoPolylineMapObject* Create(IZoGraphicsModule& m, IZoGraphicsMapLayer* layer)
    {
        return m.CreatePolylineMapObject("line", layer);
    }
};
struct PolygonList
{
    using Object = CZoPolygonMapObject;
    static constexpr const char* kClass = "CZoPolygonMapObject";
    static constexpr const char* kPopEmpty = nullptr;
    static IZoPolygonMapObject* Create(IZoGraphicsModule& m, IZoGraphicsMapLayer* layer)
    {
        return m.CreatePolygonMapObject("ring", layer);
    }
};
struct MultiDotList
{
    using Object = CZoMultiDotMapObject;
    static constexpr const char* kClass = "CZoMultiDotMapObject";
    static constexpr const char* kPopEmpty = "[CZoMultiDotMapObject::PopBack] 点集已为空";
    static IZoMultiDotMapObject* Create(IZoGraphicsModule& m, IZoGraphicsMapLayer* layer)
    {
        return m.CreateMultiDotMapObject("dots", layer);
    }
};

template <class Kind>
class SinglePointList : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("points");
        auto* created = Kind::Create(module, layer);
        ASSERT_NE(created, nullptr);
        object = static_cast<typename Kind::Object*>(created);
        log.Clear();
    }
    std::string IndexText(const char* method, int index) const
    {
        return std::string("[") + Kind::kClass + "::" + method + "] Index越界: " + std::to_string(index);
    }
    void ExpectMatches(const PointListModel& model, const std::string& where)
    {
        EXPECT_EQ(object->GetData(), model.lines.front()) << where;
        EXPECT_EQ(object->GetAnchor(), model.anchor) << where;
        ExpectSameBox(object->GetBoundingBox(), model.Extent(), where);
        ExpectOffsetsFollowModel(map, model, object->GetQtItem(), object->GetItem()->Offsets().lines, where);
    }

    IZoGraphicsMapLayer* layer = nullptr;
    typename Kind::Object* object = nullptr;
};

using SingleListKinds = ::testing::Types<PolylineList, PolygonList, MultiDotList>;
TYPED_TEST_SUITE(SinglePointList, SingleListKinds);

TYPED_TEST(SinglePointList, EveryIndexFaultLogsItsTextAndChangesNothing)
{
    auto* o = this->object;
    const std::vector<CVector3D> points{{1, 2, 0}, {3, 4, 0}, {5, 6, 0}};
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
    ExpectSameBox(o->GetBoundingBox(), box, "after faults");

    // The end is a valid place to insert, not to read.
    this->log.Clear();
    o->Insert(3, CVector3D(7, 8, 0));
    EXPECT_EQ(o->GetPointNumber(), 4);
    EXPECT_EQ(o->At(3), CVector3D(7, 8, 0));
    EXPECT_TRUE(this->log.Messages().empty());
}

TYPED_TEST(SinglePointList, PopOnAnEmptyListReturnsTheOriginAndChangesNothing)
{
    EXPECT_EQ(this->object->PopBack(), CVector3D());
    if (TypeParam::kPopEmpty)
        EXPECT_EQ(this->log.Messages(), Messages{TypeParam::kPopEmpty});
    else
        EXPECT_TRUE(this->log.Messages().empty());
    EXPECT_EQ(this->object->GetPointNumber(), 0);
}

TYPED_TEST(SinglePointList, AnchorIsTheFirstPointOfSetDataOrOfAPushIntoAnEmptyList)
{
    auto* o = this->object;
    o->PushBack(CVector3D(2, 3, 0));
    EXPECT_EQ(o->GetAnchor(), CVector3D(2, 3, 0));
    EXPECT_EQ(o->GetQtItem()->pos(), QPointF(20, -30));
    o->PushBack(CVector3D(4, 5, 0));
    EXPECT_EQ(o->GetAnchor(), CVector3D(2, 3, 0));

    // Neither modifying nor inserting at the front moves the anchor or the item.
    o->Modify(0, CVector3D(-1, -1, 0));
    o->Insert(0, CVector3D(-2, -2, 0));
    EXPECT_EQ(o->GetAnchor(), CVector3D(2, 3, 0));
    EXPECT_EQ(o->GetQtItem()->pos(), QPointF(20, -30));
    EXPECT_EQ(o->GetItem()->Offsets().lines.front().first(), QPointF(-40, 50));

    // Emptying the list brings the anchor and the item home.
    o->Clear();
    EXPECT_EQ(o->GetAnchor(), CVector3D());
    EXPECT_EQ(o->GetQtItem()->pos(), QPointF(0, 0));
    EXPECT_TRUE(o->GetItem()->Offsets().lines.front().isEmpty());
    EXPECT_TRUE(o->GetBoundingBox().IsEmpty());
}

TYPED_TEST(SinglePointList, ExtentHasTwoCornersPerPointAndIgnoresZ)
{
    this->object->SetData({{1, -2, 50}, {-3, 4, -50}});
    const CAABB box = this->object->GetBoundingBox();
    EXPECT_EQ(box.min, CVector3D(-3, -2, -1));
    EXPECT_EQ(box.max, CVector3D(1, 4, 1));
}

TYPED_TEST(SinglePointList, NonFinitePointsAreRefusedWhole)
{
    auto* o = this->object;
    o->SetData({{1, 1, 0}});
    this->log.Clear();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    o->SetData({{2, 2, 0}, {nan, 0, 0}});
    o->PushBack(CVector3D(inf, 0, 0));
    o->Insert(0, CVector3D(0, nan, 0));
    o->Modify(0, CVector3D(0, 0, -inf));
    EXPECT_EQ(this->log.Messages().size(), 4u);
    EXPECT_EQ(o->GetData(), (std::vector<CVector3D>{{1, 1, 0}}));
    const QRectF bounds = o->GetQtItem()->boundingRect();
    EXPECT_TRUE(std::isfinite(bounds.width()) && std::isfinite(bounds.left()));
}

TYPED_TEST(SinglePointList, ANewLevelConvertsThePointsAgain)
{
    auto* o = this->object;
    o->SetData({{1, 1, 0}, {2, 3, 0}});
    this->map.pixelsPerDegree = 20.0;
    this->map.ChangeLod(11);
    this->map.ChangeViewScale(1.0);
    PointListModel model;
    model.SetAll({o->GetData()});
    this->ExpectMatches(model, "after the level change");
}

TYPED_TEST(SinglePointList, PointsEditedBeforeTheItemExistsFillItLater)
{
    this->layer->SetAutoAdd(false);
    auto* late = static_cast<typename TypeParam::Object*>(TypeParam::Create(this->module, this->layer));
    ASSERT_EQ(late->GetQtItem(), nullptr);
    late->PushBack(CVector3D(1, 1, 0));
    late->PushBack(CVector3D(2, 2, 0));
    late->Remove(0);
    EXPECT_EQ(late->GetAnchor(), CVector3D(1, 1, 0));
    late->Rebuild(1.0);
    ASSERT_NE(late->GetItem(), nullptr);
    EXPECT_EQ(late->GetItem()->Offsets().lines.front(), QPolygonF({QPointF(10, -10)}));
}

TYPED_TEST(SinglePointList, EnormousAndDegenerateListsStayCheap)
{
    auto* o = this->object;
    std::vector<CVector3D> many(300000);
    for (std::size_t i = 0; i < many.size(); ++i)
        many[i] = CVector3D(std::sin(i * 0.001) * 100.0, (i % 1000) * 0.01, 0.0);
    o->SetData(many);
    EXPECT_EQ(o->GetPointNumber(), 300000);
    o->SetData(std::vector<CVector3D>(50, CVector3D(3, 3, 0))); // all coincident
    EXPECT_TRUE(std::isfinite(o->GetQtItem()->boundingRect().width()));
    o->SetData({{3, 3, 0}});
    QImage image(40, 40, QImage::Format_ARGB32);
    QPainter painter(&image);
    o->GetQtItem()->paint(&painter, nullptr, nullptr);
    EXPECT_TRUE(this->log.Messages().empty());
}
