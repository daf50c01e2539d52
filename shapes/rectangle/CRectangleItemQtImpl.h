#pragma once

#include "object/TZoOutlineItem.h"

#include <QGraphicsItem>

class CZoRectangleMapObject;

class CRectangleItemQtImpl final : public TZoOutlineItem<QGraphicsItem, CZoRectangleMapObject>
{
public:
    // 50 pixels of room for the label, placed by position and alignment; the
    // shape is the rectangle alone.
    static constexpr SZoOutlineItemTraits kTraits{50.0, true, false};

    explicit CRectangleItemQtImpl(CZoRectangleMapObject* owner);

protected:
    QPainterPath BuildShape(const QRectF& outline, const QRectF& shapeRect) const override;
    void PaintShape(QPainter* painter, const QRectF& outline, double s) const override;
};
