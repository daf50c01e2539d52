#pragma once

#include "object/TZoOutlineItem.h"

#include <QGraphicsEllipseItem>

class CZoEllipseMapObject;

class CEllipseItemQtImpl final : public TZoOutlineItem<QGraphicsEllipseItem, CZoEllipseMapObject>
{
public:
    // No room beyond the ellipse: its label may stand outside the bounding
    // rectangle. The label stands on the middle of a side whatever the
    // alignment, and the shape is the ellipse alone.
    static constexpr SZoOutlineItemTraits kTraits{0.0, false, false};

    explicit CEllipseItemQtImpl(CZoEllipseMapObject* owner);

protected:
    QPainterPath BuildShape(const QRectF& outline, const QRectF& shapeRect) const override;
    void PaintShape(QPainter* painter, const QRectF& outline, double s) const override;
};
