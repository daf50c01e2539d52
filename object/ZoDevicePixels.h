#pragma once

#include <QRectF>
#include <QTransform>

class QPainter;

// The device pixels a painter ends up in, for pictures made at the device's
// own scale and put down pixel for pixel.
//
// QPainter::deviceTransform() leads to the pixels of the surface actually
// painted: for a widget painted into its window's backing store, that is the
// whole window, and the transform already holds the widget's offset in it
// (with the painter's redirection offset and the device pixel ratio). The
// same offset comes again with every world transform set on the painter, so
// a picture is put at a device position only through Enter(), which cancels
// everything but the world transform.
class CZoDevicePixels
{
public:
    explicit CZoDevicePixels(const QPainter* painter);

    // False when the painter's transforms cannot be inverted (nothing can be
    // put down in device pixels then).
    bool IsValid() const { return m_valid; }
    // From the painter's current coordinates to device pixels.
    const QTransform& FromPainter() const { return m_device; }
    // What of the device the painter may touch, in device pixels: the paint
    // device's own area, within the painter's clip when it has one.
    QRectF Area() const { return m_area; }
    // The same area in the painter's current coordinates (a bounding
    // rectangle where the painter is rotated or sheared).
    QRectF AreaInPainter() const;

    // Makes the painter's coordinates device pixels. Call between save() and
    // restore().
    void Enter(QPainter* painter) const;

private:
    QTransform m_device;
    QTransform m_fromDevicePixels; // the world transform that makes device pixels the painter's units
    QRectF m_area;
    bool m_valid = false;
};
