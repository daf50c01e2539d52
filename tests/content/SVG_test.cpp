#include "content/OnCanvas.h"
#include "support/KindFixture.h"
#include "support/ScratchFiles.h"
#include "content/svg/CZoSVGMapObject.h"
#include <ZoGraphics/ZoCoreUtility.h>
#include <QFile>
#include <QPainter>

using Messages = std::vector<std::string>;

namespace
{
// 40 x 20: a blue left half and an orange right half.
const char* const kPicture = R"(<svg xmlns="http://www.w3.org/2000/svg" width="40" height="20" viewBox="0 0 40 20">
<rect x="0" y="0" width="20" height="20" fill="#1e5ac8"/>
<rect x="20" y="0" width="20" height="20" fill="#f08c00"/>
</svg>)";
// A view box without height: nothing to draw, whatever it holds.
const char* const kSizeless = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 10 0">
<rect width="10" height="10" fill="red"/></svg>)";
const char* const kHuge = R"(<svg xmlns="http://www.w3.org/2000/svg" width="100000" height="100000"
viewBox="0 0 100000 100000">
<rect width="100000" height="100000" fill="green"/></svg>)";
} // namespace

class SVG : public KindFixture<SVGKind>
{
protected:
    void SetUp() override
    {
        KindFixture::SetUp();
        picture = files.Write(QString::fromUtf8("罗盘.svg"), kPicture);
    }
    QGraphicsItem* Item() const { return object->GetQtItem(); }
    ScratchFiles files;
    std::string picture;
};

TEST_F(SVG, LoadingCentresThePictureAndSpansTwiceItsSizeOnce)
{
    ASSERT_TRUE(object->LoadSVGFile(picture, CVector3D(10.0, 5.0, 0.0)));
    EXPECT_EQ(std::pair(Item()->pos(), Item()->sceneBoundingRect()), std::pair(QPointF(100.0, -50.0), QRectF(80.0, -60.0, 40.0, 20.0)));
    // A whole width and height from the centre on each side.
    EXPECT_EQ(std::tuple(object->GetGeoExtent(), object->GetCenter(), object->CalculateGeoExtent()),
              std::tuple(EXTENT{6.0, 3.0, 14.0, 7.0}, CVector3D(10.0, 5.0, 0.0), EXTENT{8.0, 4.0, 12.0, 6.0}));
    EXPECT_EQ(std::make_pair(object->GetWidth(), object->GetHeight()), std::make_pair(8.0, 4.0));
    EXPECT_TRUE(log.Messages().empty());
    // The same path is not loaded again and keeps the placement.
    object->SetXYScale(2.0, 2.0);
    object->Rotate(30.0);
    const QTransform transform = Item()->transform();
    EXPECT_TRUE(object->LoadSVGFile(picture, CVector3D(-50.0, -5.0, 0.0)));
    EXPECT_EQ(std::tuple(Item()->pos(), Item()->transform(), object->GetRotation()), std::tuple(QPointF(100.0, -50.0), transform, 30.0));
    EXPECT_EQ(log.Messages(), (Messages{"[CZoSVGMapObject::LoadSVGFile] 传入路径相等，不重复加载"}));
}

TEST_F(SVG, OperationsWithoutItemOrMapLogTheirTexts)
{
    {
    CZoSVGMapObject loose;
    LogCapture capture;
    EXPECT_TRUE(loose.GetXScale() == 1.0 && loose.GetYScale() == 1.0); // && keeps the log's order
    loose.SetXYScale(2.0, 2.0);
    loose.SetXScale(2.0);
    loose.SetYScale(2.0);
    loose.Rotate(5.0);
    EXPECT_TRUE(loose.ConvertToImage().isNull());
    loose.CalculateGeoExtent();
    EXPECT_TRUE(loose.GetWidth() == 0.0 && loose.GetHeight() == 0.0);
    loose.SetGeoExtent(EXTENT{0, 0, 1, 1});
    loose.SetCenter(CVector3D());
    EXPECT_EQ(capture.Messages(),
              (Messages{"[CZoSVGMapObject::GetXScale] Qt-Item为空", "[CZoSVGMapObject::GetYScale] Qt-Item为空",
                        "[CZoSVGMapObject::SetXYScale] Qt-Item为空", "[CZoSVGMapObject::SetXScale] Qt-Item为空",
                        "[CZoSVGMapObject::SetYScale] Qt-Item为空", "[CZoSVGMapObject::Rotate] Qt-Item为空",
                        "[CZoSVGMapObject::ConvertToImage] Qt-Item为空", "[CZoSVGMapObject::CalculateGeoExtent] Qt-Item为空",
                        "[CZoSVGMapObject::GetWidth] MapModule传入为空", "[CZoSVGMapObject::GetHeight] MapModule传入为空",
                        "[CZoSVGMapObject::SetGeoExtent] MapModule传入为空", "[CZoSVGMapObject::SetCenter] MapModule传入为空"}));
    }
    layer->SetAutoAdd(false);
    IZoSVGMapObject* itemless = module.CreateSVGMapObject("itemless", layer);
    log.Clear();
    itemless->SetCenter(CVector3D());
    itemless->SetGeoExtent(EXTENT{0, 0, 1, 1});
    EXPECT_EQ(log.Messages(), (Messages{"[CZoSVGMapObject::SetCenter] Qt-Item为空",
                                        "[CZoSVGMapObject::m_pItemQtImpl] Qt-Item为空"}));
}

TEST_F(SVG, ConvertToImageRastersTheItemsPictureAndCapsHugeOnes)
{
    ASSERT_TRUE(object->LoadSVGFile(picture, CVector3D()));
    const QImage image = object->ConvertToImage();
    ASSERT_EQ(std::pair(image.size(), image.format()), std::pair(QSize(40, 20), QImage::Format_ARGB32));
    EXPECT_EQ(image.pixelColor(5, 10).name() + image.pixelColor(35, 10).name(), QStringLiteral("#1e5ac8#f08c00"));
    ASSERT_TRUE(object->LoadSVGFile(files.Write(QStringLiteral("huge.svg"), kHuge), CVector3D()));
    log.Clear();
    const QImage capped = object->ConvertToImage();
    EXPECT_TRUE(capped.size() == QSize(8192, 8192) && capped.pixelColor(100, 100) == QColor(0, 128, 0));
    EXPECT_EQ(log.Messages(), (Messages{"[CZoSVGMapObject::ConvertToImage] SVG尺寸过大, 图像已缩小到: 8192x8192"}));
    // The free function keeps its inverted test: a valid file gives no image
    // and the failure text, an invalid one the renderer's empty view box.
    log.Clear();
    EXPECT_TRUE(ConvertSVGToImage(picture).isNull());
    EXPECT_TRUE(ConvertSVGToImage(files.Write(QStringLiteral("bad.svg"), "<svg")).isNull());
    EXPECT_TRUE(ConvertSVGToImage(files.Path(QStringLiteral("missing.svg"))).isNull());
    EXPECT_EQ(log.Messages(), (Messages{"[ConvertSVGToImage] Qt加载SVG失败"}));
}

TEST_F(SVG, PaintsCentredAndCanvasPaintingMatches)
{
    ASSERT_TRUE(object->LoadSVGFile(picture, CVector3D()));
    object->Rotate(90.0);
    EXPECT_EQ(Item()->sceneBoundingRect(), QRectF(-10.0, -20.0, 20.0, 40.0));
    QImage scene = BlankCanvas(60, 60);
    QPainter painter(&scene);
    map.Scene()->render(&painter, QRectF(0, 0, 60, 60), QRectF(-30, -30, 60, 60));
    painter.end();
    EXPECT_EQ(CompareWithReference(scene, QStringLiteral("svg_rotated"), 16, 8), QString());
    layer->SetAutoAdd(false);
    IZoSVGMapObject* itemless = module.CreateSVGMapObject("itemless", layer);
    // Level 0: (0, 0) is (128, 128), brought to (30, 30).
    EXPECT_EQ(CompareWithReference(OnCanvas(object, 0, QRect(98, 98, 60, 60)), QStringLiteral("svg_rotated"), 16, 8), QString());
    EXPECT_EQ(OnCanvas(itemless, 0, QRect(98, 98, 60, 60)), BlankCanvas(60, 60)); // nothing loaded
    // A picture without size draws nothing, whatever it holds.
    ASSERT_TRUE(object->LoadSVGFile(files.Write(QStringLiteral("sizeless.svg"), kSizeless), CVector3D()));
    EXPECT_EQ(OnCanvas(object, 0, QRect(0, 0, 256, 256)), BlankCanvas(256, 256));
}
