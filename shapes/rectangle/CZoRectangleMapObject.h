#pragma once

#include "object/TZoExtentShapeObject.h"
#include "shapes/rectangle/CRectangleItemQtImpl.h"

#include <ZoGraphics/IZoRectangleMapObject.h>

// An axis-aligned rectangle over a geographic extent. As a map tile it is
// placed in the fractional world pixels of level 21 of the map module's tile
// model instead of the current view's whole pixels.
class CZoRectangleMapObject final
    : public TZoExtentShapeObject<IZoRectangleMapObject, CZoRectangleMapObject, CRectangleItemQtImpl>
{
    using Base = TZoExtentShapeObject<IZoRectangleMapObject, CZoRectangleMapObject, CRectangleItemQtImpl>;

public:
    static constexpr SZoObjectLogNames kLogNames{"CZoRectangleMapObject", nullptr, "SetMaxLodLevel",
                                                 "ConvertGeoToPixel"};
    static constexpr SZoSurfaceRefresh kSurfaceRefresh{true, false};
    static constexpr SZoExtentTexts kExtentTexts{ZoLogReason::kMapModuleNotSet, ZoLogReason::kMapModuleNotSet};

    CZoRectangleMapObject() = default;

    // Measured on every call.
    double GetWidth() const override { return MeasureWidth(); }
    double GetHeight() const override { return MeasureHeight(); }

    // Set once by the creator, before the rectangle is attached to its layer.
    void SetTile(bool tile);
    bool IsTile() const { return m_tile; }

    QPointF ConvertAnchorToPixel();
    bool GeoToPixel(const CVector3D& point, QPointF* pixel) const;
    CVector3D PixelToGeo(const QPointF& pixel) const;

private:
    // The tile model of the map module's coordinate mode, or null.
    CTileModel* TileModel() const;

    bool m_tile = false;
};
