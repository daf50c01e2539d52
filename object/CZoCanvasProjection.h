#pragma once

#include <ZoGraphics/ZoCoreTypes.h>

#include <QPointF>

class CSpatialReference;
class CTileModel;

// Where a shape lands on a foreign canvas: geographic points become canvas
// pixels relative to the object's anchor, to which the painter is translated.
class CZoCanvasProjection
{
public:
    CZoCanvasProjection(CTileModel* converter, int level, CSpatialReference* target, const QPointF& anchorPixel);

    int Level() const { return m_level; }
    // The anchor's pixel, to which the painter is translated.
    QPointF AnchorPixel() const { return m_anchorPixel; }
    // A geographic (WGS 84) point in canvas pixels relative to the anchor.
    bool ToPixel(const CVector3D& point, QPointF* pixel) const;

private:
    CTileModel* m_converter;
    int m_level;
    CSpatialReference* m_target;
    QPointF m_anchorPixel;
};
