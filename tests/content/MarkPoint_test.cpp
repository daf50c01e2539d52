#include "content/OnCanvas.h"
#include "support/RenderItem.h"
#include "support/KindFixture.h"
#include "support/ScratchFiles.h"
#include "content/markpoint/CZoMarkPointMapObject.h"
#include <ZoGraphics/ZoCoreUtility.h>
#include <QBuffer>
#include <QFile>
#include <QFileIconProvider>
#include <QFontMetrics>
#include <QPainter>

using Messages = std::vector<std::string>;

namespace
{
// A 24 x 32 pin picture: a blue drop with a white centre.
QPixmap PinPicture()
{
    QImage image(24, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(30, 90, 200));
    painter.drawEllipse(QRectF(1, 1, 22, 22));
    painter.drawPolygon(QPolygonF({QPointF(4, 16), QPointF(20, 16), QPointF(12, 32)}));
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(8, 8, 8, 8));
    painter.end();
    return QPixmap::fromImage(image);
}
} // namespace

class MarkPoint : public KindFixture<MarkPointKind>
{
protected:
    CMarkPointItemQtImpl* Item() const { return static_cast<CMarkPointItemQtImpl*>(object->GetQtItem()); }
    ScratchFiles files;
};

TEST_F(MarkPoint, IconRectanglePutsTheAnchorPixelOnTheItemOriginAndTheBoxHasNoExtent)
{
    object->SetIconSize(32.0, 0.0);
    object->SetIcon(PinPicture()); // sizes take the picture's where unset
    EXPECT_EQ(object->GetIconHeight(), 32.0);
    object->SetIconSize(0.0, 0.0);
    map.ChangeViewScale(2.0);
    object->SetIcon(PinPicture());
    object->SetIconAnchor(CVector3D(12.0, 32.0, 0.0));
    EXPECT_EQ(Item()->IconRect(), QRectF(-6.0, -16.0, 12.0, 16.0));
    // No size: a 3-pixel square.
    object->SetIconSize(-1.0, 10.0);
    EXPECT_EQ(Item()->IconRect(), QRectF(-6.0, -16.0, 1.5, 1.5));
    object->SetIconVisible(false);
    EXPECT_TRUE(Item()->IconRect().isNull());
    // The frame is the pin grown by 20 pixels on every side.
    object->SetIconVisible(true);
    object->SetIconSize(24.0, 32.0);
    EXPECT_EQ(std::pair(Item()->boundingRect(), Item()->shape().boundingRect()),
              std::pair(QRectF(-16.0, -26.0, 32.0, 36.0), QRectF(-6.0, -16.0, 12.0, 16.0)));
    object->SetPosition(CVector3D(116.4, 39.9, 0.0));
    const CAABB box = object->GetBoundingBox();
    EXPECT_TRUE(box.min.x == 116.4 && box.max.x == 116.4 && box.min.y == box.max.y);
    EXPECT_EQ(Item()->pos(), QPointF(1164.0, -399.0));
}

TEST_F(MarkPoint, LabelStandsOnTheNamedSideOfTheIcon)
{
    object->SetName("Label");
    object->SetNameVisible(true);
    object->SetIcon(PinPicture());
    object->SetIconAnchor(CVector3D(12.0, 32.0, 0.0)); // the tip of the pin
    const QFontMetrics metrics(Label().font);
    const double w = metrics.horizontalAdvance(QStringLiteral("Label")), h = metrics.height();
    struct Case
    {
        unsigned int position, alignment;
        double x, y;
    };
    // Icon corners relative to the anchor: left -12, right 12, top -32, bottom 0.
    const std::vector<Case> cases = {
        {0, 0, -12, -32},         {0, 1, -w / 2, -32},      {0, 2, 12 - w, -32},
        {1, 0, -12, h},           {1, 1, -w / 2, h},        {1, 2, 12 - w, h},
        {2, 0, -12 - w, -32 + h}, {2, 1, -12 - w, -16 + h / 2}, {2, 2, -12 - w, 0},
        {3, 0, 12, -32 + h},      {3, 1, 12, -16 + h / 2},  {3, 2, 12, 0},
        {4, 0, -w / 2, -16 + h / 2}, {4, 2, -w / 2, -16 + h / 2},
    };
    for (const Case& c : cases)
    {
        object->SetLabelPosition(c.position);
        object->SetLabelAlignment(c.alignment);
        EXPECT_EQ(QPointF(Label().originX, Label().originY), QPointF(c.x, c.y)) << c.position << "/" << c.alignment;
        EXPECT_TRUE(Item()->ItemRect().contains(Item()->IconRect()) && Item()->ItemRect().width() >= w);
    }
}

// Pictures are read by their content, whatever the name; other files give
// their system icon or, without one, no icon (the dot is drawn instead).
TEST_F(MarkPoint, IconFilesAreReadByContent)
{
    QByteArray png;
    QBuffer buffer(&png);
    PinPicture().save(&buffer, "PNG");
    const std::string video =
        files.Write(QStringLiteral("clip.mp4"), QByteArray("\x00\x00\x00\x18" "ftypmp42\x00\x00\x00\x00mp42isom", 24));
    const QSize system =
        QFileIconProvider().icon(QFileInfo(files.FilePath(QStringLiteral("clip.mp4")))).pixmap(64, 64).size();
    const QSize none(0, 0);
    const std::vector<std::pair<std::string, QSize>> cases = {
        {files.Write(QString::fromUtf8("图标.png"), png), QSize(24, 32)},
        {files.Write(QStringLiteral("pin.jpg"), png), QSize(24, 32)},
        {files.Write(QStringLiteral("truncated.png"), png.left(40)), none},
        {files.Path(QStringLiteral("missing.png")), none},
        {video, system},
    };
    for (const auto& [path, size] : cases)
    {
        object->SetIcon(PinPicture());
        object->SetIconFile(path);
        EXPECT_EQ(object->GetIcon().size(), size) << path;
    }
    EXPECT_LE(system.width(), 64);
}

// On the scene at every label side, and on a canvas (at scale one, whatever
// the view's) through a temporary item.
TEST_F(MarkPoint, PinsWithALabelOnEachSideMatchTheirReferences)
{
    layer->SetAutoAdd(false);
    IZoMarkPointMapObject* loose = module.CreateMarkPointMapObject("Pin", layer);
    for (IZoMarkPointMapObject* pin : {static_cast<IZoMarkPointMapObject*>(object), loose})
    {
        pin->SetName("Pin");
        pin->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        pin->SetNameVisible(true);
        pin->SetIcon(PinPicture());
        pin->SetIconAnchor(CVector3D(12.0, 32.0, 0.0));
    }
    for (unsigned int position = 0; position <= 4; ++position)
    {
        object->SetLabelPosition(position);
        EXPECT_EQ(CompareWithReference(RenderItemCentred(Item(), 140, 100),
                                       QStringLiteral("markpoint_label_%1").arg(position), 16, 12),
                  QString());
    }
    loose->SetLabelPosition(3);
    map.ChangeViewScale(3.0);
    EXPECT_EQ(CompareWithReference(OnCanvas(loose, 0, QRect(58, 78, 140, 100)), QStringLiteral("markpoint_label_3"), 16, 12),
              QString()); // pixel (128, 128) at (70, 50)
}
