#pragma once

#include "object/TZoOutlineItem.h"

#include <QGraphicsItem>

class CZoBowMapObject;

class CBowItemQtImpl final : public TZoOutlineItem<QGraphicsItem, CZoBowMapObject>
{
public:
    // 50 pixels of room for the label, placed by position and alignment; the
    // shape covers the stroke.
    static constexpr SZoOutlineItemTraits kTraits{50.0, true, true};

    explicit CBowItemQtImpl(CZoBowMapObject* owner);

protected:
    QPainterPath BuildShape(const QRectF& outline, const QRectF& shapeRect) const override;
    void PaintShape(QPainter* painter, const QRectF& outline, double s) const override;
};

// The point at angle degrees of the ellipse inscribed in rect, as arcTo
// reaches it (item coordinates, y downwards).
QPointF ZoBowEndPoint(const QRectF& rect, double degrees);
