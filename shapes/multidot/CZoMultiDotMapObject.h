#pragma once

#include "object/TZoStyledMapObject.h"
#include "shapes/multidot/CMultiDotItemQtImpl.h"
#include "shapes/pointlist/TZoSinglePointListObject.h"

#include <ZoGraphics/IZoMultiDotMapObject.h>

// Equal dots at geographic points. Point edits only hand the offsets over:
// the dots are laid out again by the next rebuild (style, dot size, move, or
// the base refresh).
class CZoMultiDotMapObject final
    : public TZoSinglePointListObject<
          TZoSurfaceStyleObject<IZoMultiDotMapObject, CZoMultiDotMapObject, CMultiDotItemQtImpl>, CZoMultiDotMapObject>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoMultiDotMapObject"};
    static constexpr SZoSurfaceRefresh kSurfaceRefresh{false, true};
    static constexpr bool kEditsRefreshItem = false;
    static constexpr const char* kPopEmptyReason = "点集已为空";

    CZoMultiDotMapObject() = default;

    // The first dot lands on the point; nothing moves without points or item.
    void SetPosition(const CVector3D& first) override;
    void SetDotSize(double size) override;
    double GetDotSize() const override { return m_dotSize; }
    void SetExtraPoint(const CVector3D& point) override { m_extraPoint = point; }
    CVector3D GetExtraPoint() const override { return m_extraPoint; }

private:
    double m_dotSize = 4.0;
    CVector3D m_extraPoint;
};
