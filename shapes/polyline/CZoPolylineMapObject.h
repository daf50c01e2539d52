#pragma once

#include "object/TZoStyledMapObject.h"
#include "shapes/pointlist/TZoSinglePointListObject.h"
#include "shapes/polyline/CLineItemQtImpl.h"

#include <ZoGraphics/IZoPolylineMapObject.h>

// An open or closed line through geographic points.
class CZoPolylineMapObject final
    : public TZoSinglePointListObject<TZoLineStyleObject<IZoPolylineMapObject, CZoPolylineMapObject, CLineItemQtImpl>,
                                      CZoPolylineMapObject>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoPolylineMapObject"};
    static constexpr bool kEditsRefreshItem = true;
    static constexpr const char* kPopEmptyReason = nullptr;

    CZoPolylineMapObject() = default;

    void SetClosed(bool closed) override;
    bool IsClosed() const override { return m_closed; }

private:
    bool m_closed = false;
};
