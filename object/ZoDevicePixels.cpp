#include "object/ZoDevicePixels.h"

#include <QPaintDevice>
#include <QPainter>

CZoDevicePixels::CZoDevicePixels(const QPainter* painter)
{
    if (!painter || !painter->isActive())
        return;
    m_device = painter->deviceTransform();
    // Device transform = world x view x (redirection and pixel ratio): the
    // last part is what the painter adds to any world transform.
    bool invertible = false;
    const QTransform combined = painter->combinedTransform();
    const QTransform toDevice = combined.inverted(&invertible) * m_device;
    if (!invertible)
        return;
    const QTransform beyondWorld = painter->worldTransform().inverted(&invertible) * m_device;
    if (!invertible)
        return;
    m_fromDevicePixels = beyondWorld.inverted(&invertible);
    if (!invertible)
        return;
    const QPaintDevice* target = painter->device();
    if (!target)
        return;
    // A picture being recorded knows no size of its own: it is not bounded.
    constexpr double kUnbounded = 1e9;
    m_area = target->width() > 0 && target->height() > 0
                 ? toDevice.mapRect(QRectF(0.0, 0.0, target->width(), target->height()))
                 : QRectF(-kUnbounded, -kUnbounded, 2 * kUnbounded, 2 * kUnbounded);
    if (painter->hasClipping())
        m_area &= m_device.mapRect(painter->clipBoundingRect());
    m_valid = true;
}

QRectF CZoDevicePixels::AreaInPainter() const
{
    bool invertible = false;
    const QTransform back = m_device.inverted(&invertible);
    return m_valid && invertible ? back.mapRect(m_area) : QRectF();
}

void CZoDevicePixels::Enter(QPainter* painter) const
{
    painter->setWorldTransform(m_fromDevicePixels);
}
