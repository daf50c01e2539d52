#pragma once

#include "object/TZoGraphicsItem.h"

#include <QGraphicsItem>
#include <QMutex>

class CZoMarkPointMapObject;
class CZoNameLabel;

// Paints a pin's icon and name label, or a small dot when neither shows.
class CMarkPointItemQtImpl final : public TZoGraphicsItem<QGraphicsItem, CZoMarkPointMapObject>
{
public:
    explicit CMarkPointItemQtImpl(CZoMarkPointMapObject* owner);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    // Icon rectangle, then the label and the item rectangle.
    void RebuildShape(bool forced) override;
    void RebuildName(bool forced) override;
    void PaintOnCanvas(QPainter* painter, int level) override;
    double LabelAngle() const override;

    QRectF IconRect() const;
    QRectF ItemRect() const;

private:
    // Icon rectangle at pixel scale s: the anchor pixel on the item origin.
    QRectF ComputeIconRect(double s) const;
    // Places the label beside the icon if it shows at lod; returns its
    // rectangle in pixels (null when it does not show).
    QRectF PlaceLabel(CZoNameLabel& label, int lod) const;
    void PaintPin(QPainter* painter, const QRectF& iconRect, const CZoNameLabel& label, double s, int lod) const;

    // Layout and scene indexing may meet: both rectangles are read and
    // written under the mutex.
    mutable QMutex m_mutex;
    QRectF m_iconRect;
    QRectF m_itemRect;
};
