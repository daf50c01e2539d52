#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"

#include <QGraphicsItem>
#include <map>

using Messages = std::vector<std::string>;

// The shapes laid out in an extent alike: how they turn, and what their
// geometry setters say without a map module.
template <class Kind>
class ExtentShape : public ModuleFixture
{
};
using ExtentKinds = ::testing::Types<EllipseKind, RectangleKind, PieKind>;
TYPED_TEST_SUITE(ExtentShape, ExtentKinds);

TYPED_TEST(ExtentShape, RotationsFoldIntoOneTurnKeepingTheirSign)
{
    auto* shape = TypeParam::Create(this->module, "shape", nullptr);
    TypeParam::PlaceAt(shape, 1.0, 1.0);
    const std::vector<std::pair<double, double>> rotations = {
        {-360.0, 0.0}, {360.0, 0.0}, {725.0, 5.0}, {-400.0, -40.0}, {-359.5, -359.5}, {-720.25, -0.25}};
    for (const auto& [given, kept] : rotations)
    {
        shape->SetRotation(given);
        EXPECT_EQ(shape->GetRotation(), kept) << given;
        EXPECT_EQ(shape->GetQtItem()->rotation(), kept) << given;
    }
    // An item made later takes the rotation up.
    this->DefaultLayer()->SetAutoAdd(false);
    auto* late = TypeParam::Create(this->module, "late", nullptr);
    late->SetRotation(30.0);
    late->AddToScene();
    EXPECT_EQ(late->GetQtItem()->rotation(), 30.0);
}

TYPED_TEST(ExtentShape, WithoutMapModuleTheGeometrySettersComplainAndMeasureNothing)
{
    const std::map<KindRow, Messages> texts{
        {KindRow::Ellipse,
         {"[CZoEllipseMapObject::SetExtent] MapModule传入为空", "[CZoEllipseMapObject::SetCenter] MapModule传入为空"}},
        {KindRow::Rectangle,
         {"[CZoRectangleMapObject::SetExtent] MapModule模块未初始化设置",
          "[CZoRectangleMapObject::SetCenter] MapModule模块未初始化设置"}},
        {KindRow::Bow, {"[CZoBowMapObject::SetCenter] MapModule传入为空"}},
    };
    const std::unique_ptr<IZoGraphicsMapObject> loose = TypeParam::Construct();
    auto* shape = dynamic_cast<typename TypeParam::Interface*>(loose.get());
    this->log.Clear();
    shape->SetExtent(EXTENT{0.0, 0.0, 1.0, 1.0});
    shape->SetCenter(CVector3D(1.0, 1.0, 0.0));
    EXPECT_EQ(shape->GetExtent(), EXTENT());
    EXPECT_EQ(shape->GetWidth(), 0.0);
    EXPECT_EQ(this->log.Messages(), texts.at(TypeParam::kRow));
}
