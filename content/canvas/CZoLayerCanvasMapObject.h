#pragma once

#include "content/canvas/CLayerCanvasItemQtImpl.h"
#include "content/canvas/CZoCanvasRefresher.h"
#include "object/CZoLock.h"
#include "object/TZoMapObjectBase.h"

#include <ZoGraphics/IZoLayerCanvasMapObject.h>

#include <QImage>
#include <memory>

// An image stretched over a geographic extent. The picture may be replaced
// from any thread; every drawing sees one whole image.
class CZoLayerCanvasMapObject final
    : public TZoMapObjectBase<IZoLayerCanvasMapObject, CZoLayerCanvasMapObject, CLayerCanvasItemQtImpl>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoLayerCanvasMapObject"};

    CZoLayerCanvasMapObject();
    ~CZoLayerCanvasMapObject() override;

    void SetImage(const QImage& image) override;
    // Under the lock as well: a copy racing a worker's assignment could
    // otherwise catch a half-replaced image.
    QImage GetImage() const override;
    void SetExtent(const EXTENT& extent) override;
    EXTENT GetExtent() const override { return m_extent; }

    CAABB GetBoundingBox() const override;
    void UpdatePosition() override;
    void Dirty() override;

    // The top-left corner of the extent.
    CVector3D GetAnchor() const { return CVector3D(m_extent.xmin, m_extent.ymax, 0.0); }
    QPointF ConvertAnchorToPixel();
    // The bottom-right corner in scene pixels relative to the top-left one.
    QPointF ExtentSizeInPixels();

    // Runs draw with the picture under the image lock, so that a painter
    // never sees a half-assigned one. The painter holds no reference of its
    // own: a replaced picture is always let go on the thread that replaced
    // it, never on the GUI thread.
    template <class Draw>
    void WithImage(Draw&& draw) const
    {
        CZoLockGuard guard(m_imageLock);
        draw(static_cast<const QImage&>(m_image));
    }

private:
    // GUI-thread side of SetImage.
    void RefreshForNewImage();

    EXTENT m_extent;
    mutable CZoLock m_imageLock;
    QImage m_image;
    // Made on the GUI thread with the object, and gone with it: a repaint a
    // worker asked for is dropped when the object is destroyed first.
    CZoCanvasRefresher m_refresher;
};
