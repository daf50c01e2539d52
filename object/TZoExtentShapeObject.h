#pragma once

#include "object/CZoCanvasProjection.h"
#include "object/TZoStyledMapObject.h"
#include "object/ZoAnchoredShape.h"
#include "object/ZoLogText.h"
#include "object/ZoPixelValues.h"

#include <ZoGraphics/IZoMapModule.h>

#include <QGraphicsItem>
#include <QRectF>
#include <cmath>

// What an extent kind logs when its geometry setters find no map module.
struct SZoExtentTexts
{
    const char* setExtentWithoutModule; // null: SetExtent then does nothing, silently
    const char* setCenterWithoutModule;
};

// A surface shape over a geographic extent, anchored at its midpoint: the
// bow, the ellipse and the rectangle. Holds the extent, centre, auxiliary
// point, rotation and the sizes measured by SetExtent. Derived supplies
//   static constexpr SZoExtentTexts kExtentTexts;
// and may replace how points become the pixels its item is placed in:
//   bool GeoToPixel(const CVector3D&, QPointF*) const;   (quiet; false when it cannot)
//   CVector3D PixelToGeo(const QPointF&) const;
// and how its anchor is placed (ConvertAnchorToPixel).
template <class Interface, class Derived, class Item>
class TZoExtentShapeObject : public TZoSurfaceStyleObject<Interface, Derived, Item>
{
public:
    void SetExtent(const EXTENT& extent) override
    {
        IZoMapModule* map = this->Core().GetMapModule();
        if (!map)
        {
            if (Derived::kExtentTexts.setExtentWithoutModule)
                ZoLogWarnAt(Derived::kLogNames.className, "SetExtent") << Derived::kExtentTexts.setExtentWithoutModule;
            return;
        }
        if (!ZoAcceptExtent(extent, Derived::kLogNames.className, "SetExtent"))
            return;
        m_extent = extent;
        // Halved before they are added, so that corners near the largest
        // double still have a finite centre.
        m_center = CVector3D(extent.xmin * 0.5 + ZoExtentEast(extent) * 0.5, extent.ymin * 0.5 + extent.ymax * 0.5, 0.0);
        m_width = MeasureWidth();
        m_height = MeasureHeight();
        this->Core().UpdatePosition();
        this->Core().RebuildAndRepaint(false);
    }
    EXTENT GetExtent() const override { return m_extent; }

    // Moves the shape by whole pixels, keeping its size on the screen; the
    // geographic size may change where the projection is not uniform.
    void SetCenter(const CVector3D& center) override
    {
        if (!this->Core().GetMapModule())
        {
            ZoLogWarnAt(Derived::kLogNames.className, "SetCenter") << Derived::kExtentTexts.setCenterWithoutModule;
            return;
        }
        const Derived& self = static_cast<const Derived&>(*this);
        QPointF low;
        QPointF high;
        QPointF target;
        if (!ZoIsValidExtent(m_extent) || !self.GeoToPixel(CVector3D(m_extent.xmin, m_extent.ymin, 0.0), &low) ||
            !self.GeoToPixel(CVector3D(ZoExtentEast(m_extent), m_extent.ymax, 0.0), &high) ||
            !self.GeoToPixel(center, &target))
            return;
        const QPointF old(std::trunc((low.x() + high.x()) * 0.5), std::trunc((low.y() + high.y()) * 0.5));
        const QPointF offset = QPointF(std::trunc(target.x()), std::trunc(target.y())) - old;
        const CVector3D lowGeo = self.PixelToGeo(low + offset);
        const CVector3D highGeo = self.PixelToGeo(high + offset);
        m_extent = EXTENT{lowGeo.x, lowGeo.y, highGeo.x, highGeo.y};
        m_center = self.PixelToGeo(old + offset);
        this->Core().UpdatePosition();
        this->Core().RebuildAndRepaint(false);
    }
    CVector3D GetCenter() const override { return m_center; }

    void SetRotation(double degrees) override
    {
        if (!std::isfinite(degrees))
            return;
        m_rotation = ZoNormaliseRotation(degrees);
        if (QGraphicsItem* item = this->GetQtItem())
            item->setRotation(m_rotation);
    }
    double GetRotation() const override { return m_rotation; }
    // As of the last SetExtent.
    double GetWidth() const override { return m_width; }
    double GetHeight() const override { return m_height; }
    void SetAuxPoint(const CVector3D& point) override { m_auxPoint = point; }
    CVector3D GetAuxPoint() const override { return m_auxPoint; }

    CVector3D GetAnchor() const { return m_center; }
    QPointF ConvertAnchorToPixel() { return ZoAnchorToScenePixel(this->Core(), m_center); }

    // Integer scene pixels of the map module's current view.
    bool GeoToPixel(const CVector3D& point, QPointF* pixel) const
    {
        return ZoGeoToScenePixel(this->Core().GetMapModule(), point, pixel);
    }
    CVector3D PixelToGeo(const QPointF& pixel) const
    {
        CVector3D point;
        if (IZoMapModule* map = this->Core().GetMapModule())
            map->ConvertPixelToScene(&point.x, &point.y, ZoPixelInt(pixel.x()), ZoPixelInt(pixel.y()));
        return point;
    }

    // The rectangle between the extent's corners, in pixels around the centre.
    bool SceneOutline(QRectF* outline) const
    {
        const Derived& self = static_cast<const Derived&>(*this);
        return OutlineThrough(
            [&self](const CVector3D& point, QPointF* pixel) { return self.GeoToPixel(point, pixel); }, outline);
    }
    bool CanvasOutline(const CZoCanvasProjection& canvas, QRectF* outline) const
    {
        return OutlineThrough(
            [&canvas](const CVector3D& point, QPointF* pixel) { return canvas.ToPixel(point, pixel); }, outline);
    }

protected:
    // Map-module distances along the bottom edge and down the left edge.
    double MeasureWidth() const
    {
        IZoMapModule* map = this->Core().GetMapModule();
        return map ? map->CalculateDistance(m_extent.xmin, m_extent.ymin, ZoExtentEast(m_extent), m_extent.ymin) : 0.0;
    }
    double MeasureHeight() const
    {
        IZoMapModule* map = this->Core().GetMapModule();
        return map ? map->CalculateDistance(m_extent.xmin, m_extent.ymax, m_extent.xmin, m_extent.ymin) : 0.0;
    }

private:
    template <class ToPixel>
    bool OutlineThrough(ToPixel toPixel, QRectF* outline) const
    {
        QPointF centre;
        QPointF low;
        QPointF high;
        if (!ZoIsValidExtent(m_extent) || !toPixel(m_center, &centre) ||
            !toPixel(CVector3D(m_extent.xmin, m_extent.ymin, 0.0), &low) ||
            !toPixel(CVector3D(ZoExtentEast(m_extent), m_extent.ymax, 0.0), &high))
            return false;
        *outline = QRectF(low - centre, high - centre).normalized();
        return true;
    }

    EXTENT m_extent;
    CVector3D m_center;
    CVector3D m_auxPoint;
    double m_rotation = 0.0;
    double m_width = 0.0;
    double m_height = 0.0;
};
