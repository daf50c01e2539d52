#pragma once

#include "object/TZoGraphicsItem.h"

#include <QGraphicsItem>
#include <QPainterPath>

class CZoDotMapObject;
class CZoNameLabel;

// A plain item: the dot keeps its own circle, and an ellipse item's private
// record (its rectangle, pen, brush and angles, all unused) would cost every
// dot of a large display a hundred bytes.
class CDotItemQtImpl final : public TZoGraphicsItem<QGraphicsItem, CZoDotMapObject>
{
public:
    explicit CDotItemQtImpl(CZoDotMapObject* owner);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void RebuildShape(bool forced) override;
    void RebuildName(bool forced) override;
    void PaintOnCanvas(QPainter* painter, int level) override;

private:
    // Draws the dot centred on the painter's origin with pixel scale s.
    void PaintDot(QPainter* painter, const CZoNameLabel& label, double s, int lod) const;
    // Places a label beside a dot of radius r pixels, if it shows at lod.
    void PlaceLabel(CZoNameLabel& label, int lod) const;
    // The circle the shape covers: radius plus pen width, times s.
    QRectF ShapeRect(double s) const;

    // The shape is a circle: its box is all that is kept, and the path is
    // made when Qt asks for it (hit tests), so that a dot costs little memory.
    QRectF m_shapeRect;
};
