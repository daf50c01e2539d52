#include "support/MapObjectKinds.h"

#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/ZoGraphics.h>

#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <cstring>
#include <memory>
#include <vector>

// Qt's scene index files an item under the bounds it reports when it
// announces a change, and takes it out under the bounds it reports at the
// next announcement. Bounds that change before they are announced leave
// entries behind that outlive the item: the next frame after the object is
// destroyed then walks freed memory. Zooms change every kind's pixel scale,
// and with it bounds that hold margins in pixels.
namespace
{
void Frame(QGraphicsScene* scene)
{
    QImage image(160, 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene->render(&painter, QRectF(image.rect()), QRectF(-800, -600, 1600, 1200));
}

// Hands freed blocks out again with other contents, so that an entry left
// behind points at garbage rather than at the intact old item.
void ReuseFreedMemory()
{
    std::vector<std::unique_ptr<char[]>> blocks;
    for (std::size_t size : {48u, 96u, 128u, 256u, 424u, 512u})
        for (int n = 0; n < 64; ++n)
        {
            blocks.emplace_back(new char[size]);
            std::memset(blocks.back().get(), 0xA5, size);
        }
}

template <class Kind>
class SceneIndex : public ::testing::Test
{
};
} // namespace

TYPED_TEST_SUITE(SceneIndex, MapObjectKindList);

TYPED_TEST(SceneIndex, ZoomsAndSwitchesLeaveNoEntryBehindADestroyedObject)
{
    CZoMapModule map;
    map.SetZoomAround(3.0, 0.0, 0.0);
    CZoGraphicsModule module;
    ASSERT_TRUE(module.Initialise("index", &map));
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("layer");
    std::vector<IZoGraphicsMapObject*> objects;
    for (int n = 0; n < 4; ++n)
    {
        auto* object = TypeParam::Create(module, "object" + std::to_string(n), layer);
        ASSERT_NE(object, nullptr);
        objects.push_back(object);
        TypeParam::PlaceAt(object, -20.0 + 12.0 * n, 5.0 * n);
        object->SetNameVisible(n % 2 == 0);
        object->SetRebuildThreshold(n == 3 ? 5.0 : -1.0);
    }
    Frame(map.GetScene());
    map.SetZoomAround(0.0, -179.9, -1.8);
    Frame(map.GetScene());
    map.SetZoomAround(2.65, -33.2, 30.3);
    layer->EnableShapeCache();
    Frame(map.GetScene());
    map.SetZoomAround(5.4, 10.0, 10.0);
    for (IZoGraphicsMapObject* object : objects)
        object->SetAlwaysRebuild(true);
    layer->DestroyAllMapObjects();
    ReuseFreedMemory();
    Frame(map.GetScene());
    EXPECT_TRUE(map.GetScene()->items().isEmpty());
    module.Unintialise();
}
