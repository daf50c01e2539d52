#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <QImage>

/// An image stretched over a geographic extent. SetImage may be called from a
/// worker thread.
///
/// A raster overlay: typically a worker renders a whole layer into an image and
/// hands each new one over with SetImage(); the view shows it under the same
/// level, visibility and z-order rules as any other object. The image's
/// top-left corner lies on the extent's (minimum x, maximum y) and its
/// bottom-right corner on (maximum x, minimum y), in degrees of longitude and
/// latitude, whatever the image's own size.
///
/// Threads: SetImage() and GetImage() may be called from any thread; every other
/// operation, inherited ones included, belongs to the GUI thread. A drawing
/// always sees one whole image, never parts of two. A worker must have stopped
/// calling SetImage() before the object is destroyed.
///
/// Made by IZoGraphicsModule::CreateLayerCanvasMapObject, which owns it, and
/// found with IZoGraphicsModule::LookupLayerCanvasMapObject.
class ZOGRAPHICS_EXPORT IZoLayerCanvasMapObject : public IZoGraphicsMapObject
{
public:
    IZoLayerCanvasMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoLayerCanvasMapObject(const IZoLayerCanvasMapObject&) = default;
    IZoLayerCanvasMapObject& operator=(const IZoLayerCanvasMapObject&) = default;
    /// @}
    ~IZoLayerCanvasMapObject() override;

    /// Replaces the picture; may be called from any thread.
    ///
    /// The picture the object held before is let go on the calling thread. The
    /// repaint follows on the GUI thread: at once when called there, otherwise
    /// through the GUI thread's event loop, where requests that pile up count
    /// once. A null image draws nothing, but the canvas still covers its extent
    /// for hit testing.
    virtual void SetImage(const QImage& image) = 0;    // 59
    /// A copy of the current picture (null until one is set); may be called from
    /// any thread.
    virtual QImage GetImage() const = 0;               // 60
    /// Sets the geographic extent the picture covers (degrees; minimum values
    /// below maximum ones) and places the picture on it. GUI thread only.
    ///
    /// Before Initialise (without a map module) logs
    /// "[CZoLayerCanvasMapObject::SetExtent] MapModule模块未初始化设置" and keeps the
    /// old extent; an extent with a NaN or infinite bound is ignored silently. When
    /// the map cannot convert the top-left corner, logs
    /// "[CZoLayerCanvasMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败".
    virtual void SetExtent(const EXTENT& extent) = 0;  // 61
    /// The extent as last set; all zero at first.
    virtual EXTENT GetExtent() const = 0;              // 62
};
