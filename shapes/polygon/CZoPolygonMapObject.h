#pragma once

#include "object/TZoStyledMapObject.h"
#include "shapes/pointlist/TZoSinglePointListObject.h"
#include "shapes/polygon/CPolygonItemQtImpl.h"

#include <ZoGraphics/IZoPolygonMapObject.h>

// One filled ring, always closed.
class CZoPolygonMapObject final
    : public TZoSinglePointListObject<TZoSurfaceStyleObject<IZoPolygonMapObject, CZoPolygonMapObject, CPolygonItemQtImpl>,
                                      CZoPolygonMapObject>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoPolygonMapObject"};
    static constexpr SZoSurfaceRefresh kSurfaceRefresh{false, false};
    static constexpr bool kEditsRefreshItem = true;
    static constexpr const char* kPopEmptyReason = nullptr;

    CZoPolygonMapObject() = default;

    bool IsRotatable() const override { return true; }

    // Kept for the host; drawing does not use it.
    void SetExtraPoint(const CVector3D& point) override { m_extraPoint = point; }
    CVector3D GetExtraPoint() const { return m_extraPoint; }

private:
    CVector3D m_extraPoint;
};
