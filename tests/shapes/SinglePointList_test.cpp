#include "support/ModuleFixture.h"

#include "shapes/multidot/CZoMultiDotMapObject.h"
#include "shapes/polygon/CZoPolygonMapObject.h"
#include "shapes/polyline/CZoPolylineMapObject.h"

#include <QGraphicsItem>
#include <QPainter>
#include <cmath>
#include <limits>

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
struct PolylineList : SingleList<CZoPolylineMapObject, IZoPolylineMapObject, &IZoGraphicsModule::CreatePolylineMapObject>
{
    static constexpr const char* kClass = "CZoPolylineMapObject";
    static constexpr const char* kPopEmpty = nullptr;
};
struct PolygonList : SingleList<CZoPolygonMapObject, IZoPolygonMapObject, &IZoGraphicsModule::CreatePolygonMapObject>
{
    static constexpr const char* kClass = "CZoPolygonMapObject";
    static constexpr const char* kPopEmpty = nullptr;
};
struct MultiDotList
    : SingleList<CZoMultiDotMapObject, IZoMultiDotMapObject, &IZoGraphicsModule::CreateMultiDotMapObject>
{
    static constexpr const char* kClass = "CZoMultiDotMapObject";
    static constexpr const char* kPopEmpty = "[CZoMultiDotMapObject::PopBack] 点集已为空";
};

template <class Kind>
class SinglePointList : public ModuleFixture
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
    static std::string IndexText(const char* method, int index)
    {
        return std::string("[") + Kind::kClass + "::" + method + "] Index越界: " + std::to_string(index);
    }
    QPolygonF Offsets() const { return object->GetItem()->Offsets().lines.front(); }

    IZoGraphicsMapLayer* layer = nullptr;
    typename Kind::Object* object = nullptr;
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
    o->Insert(0, CVector3D(-2, -2, 50));
    EXPECT_EQ(o->GetAnchor(), CVector3D(2, 3, 0));
    EXPECT_EQ(o->GetQtItem()->pos(), QPointF(20, -30));
    EXPECT_EQ(this->Offsets().first(), QPointF(-40, 50));
    // The extent has two corners per point and ignores z.
    EXPECT_EQ(o->GetBoundingBox().min, CVector3D(-2, -2, -1));
    EXPECT_EQ(o->GetBoundingBox().max, CVector3D(4, 5, 1));
    // Emptying the list brings the anchor and the item home.
    o->Clear();
    EXPECT_EQ(o->GetAnchor(), CVector3D());
    EXPECT_EQ(o->GetQtItem()->pos(), QPointF(0, 0));
    EXPECT_TRUE(this->Offsets().isEmpty());
    EXPECT_TRUE(o->GetBoundingBox().IsEmpty());
}

TYPED_TEST(SinglePointList, NonFinitePointsAreRefusedWholeAndDegenerateListsDrawQuietly)
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
    EXPECT_EQ(o->GetData(), (Points{{1, 1, 0}}));
    this->log.Clear();
    o->SetData(Points(50, CVector3D(3, 3, 0))); // all coincident
    EXPECT_TRUE(std::isfinite(o->GetQtItem()->boundingRect().width()));
    QImage image(40, 40, QImage::Format_ARGB32);
    QPainter painter(&image);
    o->GetQtItem()->paint(&painter, nullptr, nullptr);
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

TYPED_TEST(SinglePointList, PointsEditedBeforeTheItemExistsFillItLater)
{
    this->layer->SetAutoAdd(false);
    auto* late = TypeParam::Create(this->module, this->layer);
    ASSERT_EQ(late->GetQtItem(), nullptr);
    late->PushBack(CVector3D(1, 1, 0));
    late->PushBack(CVector3D(2, 2, 0));
    late->Remove(0);
    EXPECT_EQ(late->GetAnchor(), CVector3D(1, 1, 0));
    late->Rebuild(1.0);
    ASSERT_NE(late->GetItem(), nullptr);
    EXPECT_EQ(late->GetItem()->Offsets().lines.front(), QPolygonF({QPointF(10, -10)}));
}
