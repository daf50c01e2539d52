#include <ZoGraphics/SrsToolkit.h>
#include <ZoGraphics/ZoLogSystem.h>

namespace RxGDALUtilityNS
{
CVector3D TransformGeoSRS_Point(const CVector3D& point, CSpatialReference* from, CSpatialReference* to)
{
    if (from && to && from->GetEPSG() == to->GetEPSG())
        return point;
    CVector3D result;
    // Codes, not the references, key the work: references from any factory
    // are accepted, and the process-wide factory keeps the operations.
    if (!from || !to ||
        !CSpatialReferenceFactorySingleton::Instance()->TransformPoint(point, from->GetEPSG(), to->GetEPSG(),
                                                                         &result))
    {
        ZoLogWarn() << "[RxGDALUtilityNS::TransformGeoSRS_Point] 坐标转换失败";
        return point;
    }
    return result;
}
}
