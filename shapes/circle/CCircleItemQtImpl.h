#pragma once

#include "object/TZoOutlineItem.h"

#include <QGraphicsEllipseItem>

class CZoCircleMapObject;

class CCircleItemQtImpl final : public TZoOutlineItem<QGraphicsEllipseItem, CZoCircleMapObject>
{
public:
    // The circle keeps 200 pixels around itself for its label, which stands
    // on the middle of a side whatever the alignment; the shape covers the stroke.
    static constexpr SZoOutlineItemTraits kTraits{200.0, false, true};

    explicit CCircleItemQtImpl(CZoCircleMapObject* owner);

protected:
    QPainterPath BuildShape(const QRectF& outline, const QRectF& shapeRect) const override;
    void PaintShape(QPainter* painter, const QRectF& outline, double s) const override;
};
