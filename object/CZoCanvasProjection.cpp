#include "object/CZoCanvasProjection.h"

#include <ZoGraphics/SrsToolkit.h>
#include <ZoGraphics/ZoTileModel.h>

#include <cmath>

CZoCanvasProjection::CZoCanvasProjection(CTileModel* converter, int level, CSpatialReference* target,
                                         const QPointF& anchorPixel)
    : m_converter(converter), m_level(level), m_target(target), m_anchorPixel(anchorPixel)
{
}

bool CZoCanvasProjection::ToPixel(const CVector3D& point, QPointF* pixel) const
{
    if (!m_converter || !std::isfinite(point.x) || !std::isfinite(point.y))
        return false;
    CVector3D projected = point;
    if (m_target)
    {
        CSpatialReference* wgs84 = CSpatialReferenceFactorySingleton::Instance()->GetOrCreateSRSViaEPSG(4326);
        projected = RxGDALUtilityNS::TransformGeoSRS_Point(point, wgs84, m_target);
    }
    double px = 0.0;
    double py = 0.0;
    if (!m_converter->ConvertGeoToPixel(&px, &py, m_level, projected.x, projected.y) || !std::isfinite(px) ||
        !std::isfinite(py))
        return false;
    *pixel = QPointF(px, py) - m_anchorPixel;
    return true;
}
