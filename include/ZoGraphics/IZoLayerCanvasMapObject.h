#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <QImage>

// An image stretched over a geographic extent. SetImage may be called from a
// worker thread.
class ZOGRAPHICS_EXPORT IZoLayerCanvasMapObject : public IZoGraphicsMapObject
{
public:
    IZoLayerCanvasMapObject() = default;
    IZoLayerCanvasMapObject(const IZoLayerCanvasMapObject&) = default;
    IZoLayerCanvasMapObject& operator=(const IZoLayerCanvasMapObject&) = default;
    ~IZoLayerCanvasMapObject() override;

    virtual void SetImage(const QImage& image) = 0;    // 59
    virtual QImage GetImage() const = 0;               // 60
    virtual void SetExtent(const EXTENT& extent) = 0;  // 61
    virtual EXTENT GetExtent() const = 0;              // 62
};
