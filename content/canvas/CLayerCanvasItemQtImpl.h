#pragma once

#include "object/TZoGraphicsItem.h"

#include <QGraphicsItem>

class CZoLayerCanvasMapObject;

// Draws the canvas image stretched over the rectangle its extent covers. A
// null image draws nothing but still takes hits over the rectangle.
class CLayerCanvasItemQtImpl final : public TZoGraphicsItem<QGraphicsItem, CZoLayerCanvasMapObject>
{
public:
    explicit CLayerCanvasItemQtImpl(CZoLayerCanvasMapObject* owner);

    QRectF boundingRect() const override { return m_rect; }
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    // Recomputes the rectangle from the extent at the current resolution.
    void RebuildShape(bool forced) override;
    void RebuildName(bool) override {}
    void PaintOnCanvas(QPainter* painter, int level) override;
    void PaintOnCanvas(QPainter* painter, const CZoCanvasProjection& canvas) override;

private:
    QRectF m_rect;
};
