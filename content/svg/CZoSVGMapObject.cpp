#include "content/svg/CZoSVGMapObject.h"

#include "object/ZoLogText.h"
#include "object/ZoPictureReader.h"
#include "object/ZoPixelValues.h"

#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QPainter>
#include <cmath>

namespace
{
constexpr const char* kClassName = "CZoSVGMapObject";

bool IsFinite(const EXTENT& e)
{
    return std::isfinite(e.xmin) && std::isfinite(e.ymin) && std::isfinite(e.xmax) && std::isfinite(e.ymax);
}
} // namespace

CSVGItemQtImpl* CZoSVGMapObject::ItemOrLog(const char* method) const
{
    CSVGItemQtImpl* item = GetItem();
    if (!item)
        ZoLogWarnAt(kClassName, method) << ZoLogReason::kItemNull;
    return item;
}

bool CZoSVGMapObject::LoadSVGFile(const std::string& path, const CVector3D& center)
{
    IZoMapModule* map = GetMapModule();
    if (!map)
        return false;
    CSVGItemQtImpl* item = GetItem();
    // The text names the map module although the test is on path and item;
    // hosts match on it.
    if (path.empty() || !item)
    {
        ZoLogWarnAt(kClassName, "LoadSVGFile") << ZoLogReason::kMapModuleNull;
        return false;
    }
    if (path == m_path)
    {
        ZoLogWarnAt(kClassName, "LoadSVGFile") << "传入路径相等，不重复加载";
        return true;
    }
    const bool loaded = item->Load(ConvertStdStringToQString(path, ZoGraphicsConstantNS::STR_CODE_PAGE), "LoadSVGFile");
    if (loaded)
        m_path = path;
    else
        ZoLogWarnAt(kClassName, "LoadSVGFile") << "Qt-Item加载SVG失败";

    // A failed load still places the picture it kept at the new centre.
    const QSizeF size = item->boundingRect().size();
    const double w = size.width();
    const double h = size.height();
    const QPointF c = Core().ConvertGeoToScenePixel(center, kLogNames.anchorConvertMethod);
    const int cx = ZoPixelInt(c.x());
    const int cy = ZoPixelInt(c.y());
    // The extent reaches a whole width and height from the centre on every
    // side, twice the picture; hosts size their views by it.
    double unused = 0.0;
    map->ConvertPixelToScene(&m_extent.xmin, &m_extent.ymin, ZoPixelInt(cx - w), ZoPixelInt(cy + h));
    map->ConvertPixelToScene(&unused, &m_extent.ymax, ZoPixelInt(cx - w), ZoPixelInt(cy - h));
    map->ConvertPixelToScene(&m_extent.xmax, &unused, ZoPixelInt(cx + w), ZoPixelInt(cy - h));
    map->ConvertPixelToScene(&m_extent.xmax, &unused, ZoPixelInt(cx + w), ZoPixelInt(cy + h));
    m_stretched = false;

    Core().PrepareGeometryChange();
    item->setPos(cx, cy);
    item->resetTransform();
    item->setTransform(QTransform::fromTranslate(-w * 0.5, -h * 0.5), false);
    // Qt turns an item before its transform: about the picture's centre, the
    // centred picture turns in place.
    item->setTransformOriginPoint(w * 0.5, h * 0.5);
    item->setRotation(0.0);
    m_rotation = 0.0;
    return loaded;
}

CVector3D CZoSVGMapObject::GetCenter() const
{
    return CVector3D((m_extent.xmin + m_extent.xmax) * 0.5, (m_extent.ymin + m_extent.ymax) * 0.5, 0.0);
}

QPointF CZoSVGMapObject::ConvertAnchorToPixel()
{
    return Core().ConvertGeoToScenePixel(GetCenter(), kLogNames.anchorConvertMethod);
}

QImage CZoSVGMapObject::ConvertToImage() const
{
    const CSVGItemQtImpl* item = ItemOrLog("ConvertToImage");
    if (!item)
        return QImage();
    QSvgRenderer* renderer = item->Renderer();
    if (!renderer)
    {
        ZoLogWarnAt(kClassName, "ConvertToImage") << "Qt-Item获取QSvgRenderer为空";
        return QImage();
    }
    return ZoRasteriseSvg(*renderer, item->boundingRect().size(), SZoLogSite{kClassName, "ConvertToImage"});
}

void CZoSVGMapObject::SetGeoExtent(const EXTENT& extent)
{
    if (!GetMapModule())
    {
        ZoLogWarnAt(kClassName, "SetGeoExtent") << ZoLogReason::kMapModuleNull;
        return;
    }
    if (!IsFinite(extent))
        return;
    m_extent = extent;
    m_stretched = true;
    if (ItemOrLog("m_pItemQtImpl"))
        StretchOverExtent();
}

void CZoSVGMapObject::StretchOverExtent()
{
    CSVGItemQtImpl* item = GetItem();
    const QPointF topLeft = Core().ConvertGeoToScenePixel(CVector3D(m_extent.xmin, m_extent.ymax, 0.0),
                                                          kLogNames.anchorConvertMethod);
    const QPointF bottomRight = Core().ConvertGeoToScenePixel(CVector3D(m_extent.xmax, m_extent.ymin, 0.0),
                                                              kLogNames.anchorConvertMethod);
    const QSizeF natural = item->boundingRect().size();
    const double width = bottomRight.x() - topLeft.x();
    const double height = bottomRight.y() - topLeft.y();
    Core().PrepareGeometryChange();
    item->setPos((topLeft + bottomRight) * 0.5);
    if (natural.isEmpty())
        return;
    // Scale first, then centre the scaled picture on the item's position;
    // the stored rotation turns it about that centre.
    QTransform transform = QTransform::fromScale(width / natural.width(), height / natural.height());
    transform *= QTransform::fromTranslate(-width * 0.5, -height * 0.5);
    item->setTransform(transform, false);
    item->setTransformOriginPoint(natural.width() * 0.5, natural.height() * 0.5);
    item->setRotation(m_rotation);
}

void CZoSVGMapObject::SetCenter(const CVector3D& center)
{
    if (!GetMapModule())
    {
        ZoLogWarnAt(kClassName, "SetCenter") << ZoLogReason::kMapModuleNull;
        return;
    }
    if (!ItemOrLog("SetCenter") || !std::isfinite(center.x) || !std::isfinite(center.y))
        return;
    // The extent keeps its size and moves with the centre.
    const CVector3D old = GetCenter();
    const double dx = center.x - old.x;
    const double dy = center.y - old.y;
    m_extent = EXTENT{m_extent.xmin + dx, m_extent.ymin + dy, m_extent.xmax + dx, m_extent.ymax + dy};
    UpdatePosition();
}

void CZoSVGMapObject::MoveBy(double dx, double dy)
{
    const CVector3D center = GetCenter();
    SetCenter(CVector3D(center.x + dx, center.y + dy, 0.0));
}

void CZoSVGMapObject::UpdatePosition()
{
    if (!GetItem())
        return;
    if (m_stretched)
    {
        StretchOverExtent();
        return;
    }
    Core().PrepareGeometryChange();
    Core().UpdatePosition();
}

EXTENT CZoSVGMapObject::CalculateGeoExtent() const
{
    const CSVGItemQtImpl* item = ItemOrLog("CalculateGeoExtent");
    IZoMapModule* map = GetMapModule();
    if (!item || !map)
        return m_extent;
    const QRectF rect = item->sceneBoundingRect();
    EXTENT extent;
    map->ConvertPixelToScene(&extent.xmin, &extent.ymax, ZoPixelInt(rect.left()), ZoPixelInt(rect.top()));
    map->ConvertPixelToScene(&extent.xmax, &extent.ymin, ZoPixelInt(rect.right()),
                             ZoPixelInt(rect.bottom()));
    return extent;
}

double CZoSVGMapObject::GetWidth() const
{
    IZoMapModule* map = GetMapModule();
    if (!map)
    {
        ZoLogWarnAt(kClassName, "GetWidth") << ZoLogReason::kMapModuleNull;
        return 0.0;
    }
    const double y = (m_extent.ymin + m_extent.ymax) * 0.5;
    return map->CalculateDistance(m_extent.xmin, y, m_extent.xmax, y);
}

double CZoSVGMapObject::GetHeight() const
{
    IZoMapModule* map = GetMapModule();
    if (!map)
    {
        ZoLogWarnAt(kClassName, "GetHeight") << ZoLogReason::kMapModuleNull;
        return 0.0;
    }
    const double x = (m_extent.xmin + m_extent.xmax) * 0.5;
    return map->CalculateDistance(x, m_extent.ymin, x, m_extent.ymax);
}

void CZoSVGMapObject::SetXYScale(double sx, double sy)
{
    if (ItemOrLog("SetXYScale"))
        CombineScale(sx, sy);
}

void CZoSVGMapObject::SetXScale(double sx)
{
    // Combined with the current transform, the other axis takes its own
    // factor once more; hosts rely on that.
    if (const CSVGItemQtImpl* item = ItemOrLog("SetXScale"))
        CombineScale(sx, item->transform().m22());
}

void CZoSVGMapObject::SetYScale(double sy)
{
    if (const CSVGItemQtImpl* item = ItemOrLog("SetYScale"))
        CombineScale(item->transform().m11(), sy);
}

void CZoSVGMapObject::CombineScale(double sx, double sy)
{
    if (!std::isfinite(sx) || !std::isfinite(sy))
        return;
    // Scales accumulate; one that would blow the picture up past any scene
    // (or to infinity) is refused and the picture keeps its size.
    const QTransform combined = QTransform::fromScale(sx, sy) * GetItem()->transform();
    const QRectF scaled = combined.mapRect(GetItem()->boundingRect());
    constexpr double kLargest = 1e9;
    // A scale of (nearly) zero would flatten the picture for good: no later
    // scale could bring it back.
    if (!(std::abs(scaled.left()) < kLargest && std::abs(scaled.right()) < kLargest &&
          std::abs(scaled.top()) < kLargest && std::abs(scaled.bottom()) < kLargest) ||
        !combined.isInvertible())
        return;
    Core().PrepareGeometryChange();
    GetItem()->setTransform(combined);
    m_stretched = false;
    m_extent = CalculateGeoExtent();
}

double CZoSVGMapObject::GetXScale() const
{
    const CSVGItemQtImpl* item = ItemOrLog("GetXScale");
    return item ? item->transform().m11() : 1.0;
}

double CZoSVGMapObject::GetYScale() const
{
    const CSVGItemQtImpl* item = ItemOrLog("GetYScale");
    return item ? item->transform().m22() : 1.0;
}

void CZoSVGMapObject::Rotate(double degrees)
{
    CSVGItemQtImpl* item = ItemOrLog("Rotate");
    if (!item || !std::isfinite(degrees))
        return;
    m_rotation = NormalizeDegree(degrees);
    Core().PrepareGeometryChange();
    item->setRotation(m_rotation);
}

QImage ConvertSVGToImage(const std::string& path)
{
    const SZoLogSite site{nullptr, "ConvertSVGToImage"};
    QByteArray xml;
    if (!ZoReadSvgDocument(ConvertStdStringToQString(path, ZoGraphicsConstantNS::STR_CODE_PAGE), site, &xml))
        return QImage();
    QSvgRenderer renderer;
    // The outcome is read the other way round: a file that loads gives no
    // image, one that does not gives the (empty) view box. Hosts depend on it.
    if (renderer.load(xml))
    {
        ZoLogWarnAt(site.className, site.method) << "Qt加载SVG失败";
        return QImage();
    }
    return ZoRasteriseSvg(renderer, renderer.viewBoxF().size(), site);
}
