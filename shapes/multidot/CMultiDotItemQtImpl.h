#pragma once

#include "shapes/pointlist/TZoPointListItem.h"

#include <QGraphicsItem>

class CZoMultiDotMapObject;
class CZoNameLabel;

// Equal circles at the offsets, drawn and hit as one path.
class CMultiDotItemQtImpl final : public TZoPointListItem<QGraphicsItem, CZoMultiDotMapObject>
{
public:
    explicit CMultiDotItemQtImpl(CZoMultiDotMapObject* owner);

    QPainterPath shape() const override;
    void RebuildShape(bool forced) override;
    void RebuildName(bool forced) override;

protected:
    void PaintLines(QPainter* painter, const std::vector<QPolygonF>& lines, double s, int lod) const override;

private:
    QPainterPath DotPath(const std::vector<QPolygonF>& lines, double s) const;
    void PlaceLabel(CZoNameLabel& label, const QRectF& dots, double s, int lod) const;

    QPainterPath m_dots;
};
