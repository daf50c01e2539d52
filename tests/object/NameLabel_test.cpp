#include "object/CZoNameLabel.h"
#include "support/ImageCompare.h"

#include <QFontMetrics>
#include <QPainter>
#include <gtest/gtest.h>

namespace
{
CZoNameLabel LabelWith(const QString& text, float offset)
{
    CZoNameLabel label;
    label.font = QFont(QStringLiteral("DejaVu Sans"), 12);
    label.SetOffset(offset);
    label.SetText(text);
    label.visible = true;
    return label;
}

int CountPixels(const QImage& image, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == colour;
    return count;
}
} // namespace

TEST(NameLabel, PlacementsPutTheOriginWhereTheirRulesSay)
{
    CZoNameLabel label = LabelWith(QStringLiteral("Name"), 3.0f);
    const QFontMetrics metrics(label.font);
    const double w = metrics.horizontalAdvance(QStringLiteral("Name"));
    const double h = metrics.height();
    const double g = 3.0;
    const double x = 10.25;
    const double y = -4.5;
    struct Case
    {
        EZoLabelPlacement placement;
        double ox;
        double oy;
    };
    const Case cases[] = {
        {EZoLabelPlacement::Centred, x - w / 2, y + h / 2 - g},
        {EZoLabelPlacement::AboveStart, x, y - g},
        {EZoLabelPlacement::AboveCentred, x - w / 2, y - g},
        {EZoLabelPlacement::AboveEnd, x - w, y - g},
        {EZoLabelPlacement::BelowStart, x, y + g + h},
        {EZoLabelPlacement::BelowCentred, x - w / 2, y + g + h},
        {EZoLabelPlacement::BelowEnd, x - w, y + g + h},
        {EZoLabelPlacement::RightCentre, x + g, y + h / 2},
        {EZoLabelPlacement::RightBelow, x + g, y + h},
        {EZoLabelPlacement::RightBaseline, x + g, y},
        {EZoLabelPlacement::LeftCentre, x - g - w, y + h / 2},
        {EZoLabelPlacement::LeftBelow, x - g - w, y + h},
        {EZoLabelPlacement::LeftBaseline, x - g - w, y},
    };
    for (const Case& c : cases)
    {
        label.Place(c.placement, x, y);
        EXPECT_EQ(label.originX, static_cast<double>(static_cast<float>(c.ox))) << int(c.placement);
        EXPECT_EQ(label.originY, static_cast<double>(static_cast<float>(c.oy))) << int(c.placement);
        // The text block moves with its origin, however often it is placed.
        EXPECT_EQ(label.TextRect(), QRectF(label.originX, label.originY - metrics.ascent(), w, h));
    }
}

TEST(NameLabel, RelayoutKeepsTheOriginAndLineFeedsMakeLines)
{
    CZoNameLabel label = LabelWith(QStringLiteral("one"), 0.0f);
    label.Place(EZoLabelPlacement::RightBaseline, 20, 30);
    const double singleHeight = label.TextRect().height();
    label.SetText(QStringLiteral("one\ntwo"));
    EXPECT_EQ(label.originX, 20.0);
    EXPECT_EQ(label.originY, 30.0);
    EXPECT_GT(label.TextRect().height(), 1.8 * singleHeight);
    EXPECT_EQ(label.TextRect().left(), 20.0);
    label.SetText(QStringLiteral("one\n\nthree"));
    EXPECT_GT(label.TextRect().height(), 2.8 * singleHeight);
    // Widest line, not the whole text.
    label.SetText(QStringLiteral("a\nwidest line\nb"));
    EXPECT_EQ(label.TextRect().width(), QFontMetrics(label.font).horizontalAdvance(QStringLiteral("widest line")));
}

TEST(NameLabel, ShownOnlyWithTextInsideBothRangesAndSwitchedOn)
{
    CZoNameLabel label = LabelWith(QStringLiteral("x"), 0.0f);
    label.minLod = 3;
    label.maxLod = 8;
    EXPECT_FALSE(label.IsShownAt(2, nullptr));
    EXPECT_TRUE(label.IsShownAt(3, nullptr));
    EXPECT_TRUE(label.IsShownAt(8, nullptr));
    EXPECT_FALSE(label.IsShownAt(9, nullptr));
    label.visible = false;
    EXPECT_FALSE(label.IsShownAt(5, nullptr));
    label.visible = true;
    label.SetText(QString());
    EXPECT_FALSE(label.IsShownAt(5, nullptr));
}

TEST(NameLabel, HaloWidthIsTwoAndAHalfTimesTheOutlineWidth)
{
    auto haloPixels = [](double outlineWidth) {
        CZoNameLabel label = LabelWith(QStringLiteral("HALO"), 0.0f);
        label.outlineWidth = outlineWidth;
        label.outlineColor = QColor(0, 0, 255);
        label.textColor = QColor(255, 0, 0);
        label.Place(EZoLabelPlacement::RightCentre, 5, 20);
        QImage image = BlankCanvas(120, 40);
        QPainter painter(&image);
        label.Draw(&painter);
        painter.end();
        return CountPixels(image.convertToFormat(QImage::Format_ARGB32), qRgb(0, 0, 255));
    };
    EXPECT_EQ(haloPixels(0.0), 0);
    const int thin = haloPixels(1.0);
    const int thick = haloPixels(2.0);
    EXPECT_GT(thin, 0);
    EXPECT_GT(thick, thin);
}

TEST(NameLabel, NothingIsDrawnAtTheOriginOrOutsideTheClipRectangle)
{
    auto drawsAnything = [](CZoNameLabel label) {
        QImage image = BlankCanvas(120, 60);
        QPainter painter(&image);
        painter.translate(60, 30);
        label.Draw(&painter);
        painter.end();
        return CountPixels(image.convertToFormat(QImage::Format_ARGB32), qRgb(255, 255, 255)) != 120 * 60;
    };
    CZoNameLabel label = LabelWith(QStringLiteral("CLIP"), 0.0f);
    EXPECT_FALSE(drawsAnything(label)); // origin (0, 0)
    label.Place(EZoLabelPlacement::Centred, 0, 0);
    EXPECT_TRUE(drawsAnything(label));
    label.clipToRect = true;
    label.clipRect = QRectF(-5, -5, 10, 10); // the origin lies left of it
    EXPECT_FALSE(drawsAnything(label));
    label.clipRect = QRectF(-60, -30, 120, 60);
    EXPECT_TRUE(drawsAnything(label));
    label.clipRect = QRectF(); // invalid rectangles clip everything
    EXPECT_FALSE(drawsAnything(label));
}

TEST(NameLabel, SurfaceAnchorsCoverThirteenCasesAndRejectTheRest)
{
    QPointF anchor;
    EZoLabelPlacement placement;
    ASSERT_TRUE(ZoSurfaceLabelAnchor(0, 0, 20, 10, &anchor, &placement));
    EXPECT_EQ(anchor, QPointF(-10, -5));
    EXPECT_EQ(placement, EZoLabelPlacement::AboveStart);
    ASSERT_TRUE(ZoSurfaceLabelAnchor(1, 2, 20, 10, &anchor, &placement));
    EXPECT_EQ(anchor, QPointF(10, 5));
    EXPECT_EQ(placement, EZoLabelPlacement::BelowEnd);
    ASSERT_TRUE(ZoSurfaceLabelAnchor(2, 0, 20, 10, &anchor, &placement));
    EXPECT_EQ(anchor, QPointF(-10, -5));
    EXPECT_EQ(placement, EZoLabelPlacement::LeftBelow);
    ASSERT_TRUE(ZoSurfaceLabelAnchor(3, 1, 20, 10, &anchor, &placement));
    EXPECT_EQ(anchor, QPointF(10, 0));
    EXPECT_EQ(placement, EZoLabelPlacement::RightCentre);
    ASSERT_TRUE(ZoSurfaceLabelAnchor(4, 2, 20, 10, &anchor, &placement));
    EXPECT_EQ(anchor, QPointF(0, 0));
    EXPECT_EQ(placement, EZoLabelPlacement::Centred);
    EXPECT_FALSE(ZoSurfaceLabelAnchor(5, 1, 20, 10, &anchor, &placement));
    EXPECT_FALSE(ZoSurfaceLabelAnchor(0, 3, 20, 10, &anchor, &placement));
}
