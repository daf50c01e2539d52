#include "object/ZoAnchoredShape.h"

#include "object/CZoGeoPixels.h"
#include "object/CZoMapObjectCore.h"
#include "object/ZoAntimeridian.h"
#include "object/ZoLogText.h"

#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/IZoMapModule.h>

#include <cmath>

namespace
{
// Beyond this, stepping by 360 would take too long or stop changing the value;
// fmod gives the same remainder exactly.
constexpr double kStepLimit = 1.0e6;

double Reduce(double degrees)
{
    return std::fabs(degrees) > kStepLimit ? std::fmod(degrees, 360.0) : degrees;
}
} // namespace

bool ZoIsFinitePoint(const CVector3D& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

bool ZoIsValidExtent(const EXTENT& extent)
{
    return std::isfinite(extent.xmin) && std::isfinite(extent.ymin) && std::isfinite(extent.xmax) &&
           std::isfinite(extent.ymax);
}

double ZoExtentEast(const EXTENT& extent)
{
    return extent.xmin <= extent.xmax ? extent.xmax : ZoAntimeridian::Continue(extent.xmin, extent.xmax);
}

bool ZoAcceptExtent(const EXTENT& extent, const char* cls, const char* method)
{
    if (ZoIsValidExtent(extent))
        return true;
    ZoLogWarnAt(cls, method) << "坐标无效";
    return false;
}

bool ZoGeoToScenePixel(IZoMapModule* mapModule, const CVector3D& point, QPointF* pixel)
{
    return CZoGeoPixels(mapModule).Point(point, pixel);
}

QPointF ZoAnchorToScenePixel(const CZoMapObjectCore& core, const CVector3D& anchor)
{
    const char* method = core.LogNames().anchorConvertMethod;
    if (core.GetMapModule() && !ZoIsFinitePoint(anchor))
    {
        ZoLogWarnAt(core.LogNames().className, method) << ZoLogReason::kConvertFailed;
        return QPointF(0.0, 0.0);
    }
    return core.ConvertGeoToScenePixel(anchor, method);
}

double ZoNormaliseBowAngle(double degrees)
{
    double value = Reduce(degrees);
    while (value < -360.0)
        value += 360.0;
    while (value >= 360.0)
        value -= 360.0;
    return value;
}

double ZoNormaliseRotation(double degrees)
{
    double value = Reduce(degrees);
    while (value >= 360.0)
        value -= 360.0;
    while (value <= -360.0)
        value += 360.0;
    return value;
}

void ZoPlaceSurfaceLabel(CZoNameLabel& label, const IZoGraphicsMapLayer* layer, int lod, unsigned int position,
                         unsigned int alignment, double w, double h)
{
    if (!label.IsShownAt(lod, layer))
        return;
    QPointF anchor;
    EZoLabelPlacement placement;
    if (!ZoSurfaceLabelAnchor(position, alignment, w, h, &anchor, &placement))
        return;
    if (position == E_LABEL_CENTRE)
    {
        label.clipRect = QRectF(-w / 2, -h / 2, w, h);
        label.clipToRect = layer && layer->IsSecondShapeCache();
    }
    else
    {
        label.clipRect = QRectF();
        label.clipToRect = false;
    }
    label.Place(placement, anchor.x(), anchor.y());
}
