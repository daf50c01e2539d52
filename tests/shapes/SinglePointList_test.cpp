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

// Long random sequences of edits, bad indices included, against the plain
// model: points, anchor, extent and the item's offsets after every step.
TYPED_TEST(SinglePointList, RandomEditsFollowThePlainModel)
{
    auto* o = this->object;
    PointListModel model;
    model.lines.resize(1);
    RandomPoints random(20261124u);
    for (int step = 0; step < 3000; ++step)
    {
        auto& line = model.lines.front();
        const int n = static_cast<int>(line.size());
        const std::string where = "step " + std::to_string(step);
        this->log.Clear();
        bool faulty = false;
        switch (random.Int(0, 9))
        {
        case 0: {
            const auto data = random.Line(6);
            o->SetData(data);
            model.SetAll({data});
            break;
        }
        case 1:
        case 2: {
            const CVector3D p = random.Point();
            o->PushBack(p);
            model.Append(0, p);
            break;
        }
        case 3: {
            const CVector3D expected = n ? line.back() : CVector3D();
            EXPECT_EQ(o->PopBack(), expected) << where;
            if (n)
                line.pop_back();
            faulty = n == 0 && TypeParam::kPopEmpty;
            break;
        }
        case 4: {
            const int i = random.Int(-2, n + 2);
            const CVector3D p = random.Point();
            o->Insert(i, p);
            faulty = i < 0 || i > n;
            if (!faulty)
                line.insert(line.begin() + i, p);
            break;
        }
        case 5: {
            const int i = random.Int(-2, n + 1);
            const CVector3D p = random.Point();
            o->Modify(i, p);
            faulty = i < 0 || i >= n;
            if (!faulty)
                line[static_cast<std::size_t>(i)] = p;
            break;
        }
        case 6:
        case 7: {
            const int i = random.Int(-2, n + 1);
            o->Remove(i);
            faulty = i < 0 || i >= n;
            if (!faulty)
                line.erase(line.begin() + i);
            break;
        }
        case 8: {
            const int i = random.Int(-1, n);
            const bool valid = i >= 0 && i < n;
            EXPECT_EQ(o->At(i), valid ? line[static_cast<std::size_t>(std::max(i, 0))] : CVector3D()) << where;
            faulty = !valid;
            break;
        }
        default:
            if (random.Int(0, 3) == 0)
            {
                o->Clear();
                line.clear();
            }
            break;
        }
        model.Settle();
        EXPECT_EQ(this->log.Messages().size(), faulty ? 1u : 0u) << where;
        this->ExpectMatches(model, where);
        if (::testing::Test::HasFailure())
            return;
    }
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
