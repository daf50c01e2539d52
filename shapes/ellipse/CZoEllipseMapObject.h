#pragma once

#include "object/TZoExtentShapeObject.h"
#include "shapes/ellipse/CEllipseItemQtImpl.h"

#include <ZoGraphics/IZoEllipseMapObject.h>

// An ellipse inscribed in a geographic extent; its geometry is held and
// changed as the bow's.
class CZoEllipseMapObject final
    : public TZoExtentShapeObject<IZoEllipseMapObject, CZoEllipseMapObject, CEllipseItemQtImpl>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoEllipseMapObject", nullptr, "SetMaxLodLevel",
                                                 "ConvertCenterToPixel"};
    static constexpr SZoSurfaceRefresh kSurfaceRefresh{false, true};
    static constexpr SZoExtentTexts kExtentTexts{ZoLogReason::kMapModuleNull, ZoLogReason::kMapModuleNull};

    CZoEllipseMapObject() = default;
};
