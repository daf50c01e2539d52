#include "content/canvas/CZoLayerCanvasMapObject.h"

#include "object/ZoItemLifetime.h"
#include "object/ZoLogText.h"

#include <ZoGraphics/IZoMapModule.h>

#include <cmath>

namespace
{
bool IsFinite(const EXTENT& e)
{
    return std::isfinite(e.xmin) && std::isfinite(e.ymin) && std::isfinite(e.xmax) && std::isfinite(e.ymax);
}
} // namespace

CZoLayerCanvasMapObject::CZoLayerCanvasMapObject() : m_refresher([this] { RefreshForNewImage(); }) {}

CZoLayerCanvasMapObject::~CZoLayerCanvasMapObject() = default;

void CZoLayerCanvasMapObject::SetImage(const QImage& image)
{
    QImage previous = image;
    {
        CZoLockGuard guard(m_imageLock);
        m_image.swap(previous);
    }
    // The old picture is let go outside the lock: freeing a large image must
    // not hold up a painter.
    previous = QImage();

    if (ZoOnGuiThread())
    {
        RefreshForNewImage();
        return;
    }
    // Items belong to the GUI thread: the repaint is asked for there.
    m_refresher.Request();
}

void CZoLayerCanvasMapObject::RefreshForNewImage()
{
    if (!GetItem())
        return;
    Core().PrepareGeometryChange();
    GetItem()->update();
}

QImage CZoLayerCanvasMapObject::GetImage() const
{
    QImage copy;
    WithImage([&copy](const QImage& image) { copy = image; });
    return copy;
}

void CZoLayerCanvasMapObject::SetExtent(const EXTENT& extent)
{
    if (!GetMapModule())
    {
        ZoLogWarnAt(kLogNames.className, "SetExtent") << ZoLogReason::kMapModuleNotSet;
        return;
    }
    if (!IsFinite(extent))
        return;
    m_extent = extent;
    UpdatePosition();
}

CAABB CZoLayerCanvasMapObject::GetBoundingBox() const
{
    CAABB box;
    box.Extend(CVector3D(m_extent.xmin, m_extent.ymin, 0.0));
    box.Extend(CVector3D(m_extent.xmax, m_extent.ymax, 0.0));
    return box;
}

void CZoLayerCanvasMapObject::UpdatePosition()
{
    CLayerCanvasItemQtImpl* item = GetItem();
    if (!item)
        return;
    Core().PrepareGeometryChange();
    Core().UpdatePosition();
    Core().RebuildAndRepaint(true);
}

void CZoLayerCanvasMapObject::Dirty()
{
    Core().Dirty();
    Core().RebuildAndRepaint(true);
}

QPointF CZoLayerCanvasMapObject::ConvertAnchorToPixel()
{
    return Core().ConvertGeoToScenePixel(GetAnchor(), kLogNames.anchorConvertMethod);
}

QPointF CZoLayerCanvasMapObject::ExtentSizeInPixels()
{
    IZoMapModule* map = GetMapModule();
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    if (!map || !map->ConvertSceneToPixel(&left, &top, m_extent.xmin, m_extent.ymax) ||
        !map->ConvertSceneToPixel(&right, &bottom, m_extent.xmax, m_extent.ymin))
        return QPointF(0.0, 0.0);
    // In doubles: corners far apart would overflow an int difference.
    return QPointF(double(right) - left, double(bottom) - top);
}
