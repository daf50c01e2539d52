#include "object/CZoEmbeddedWidgetProxy.h"

#include "layer/ZoSceneEvents.h"
#include "object/ZoItemLifetime.h"

#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>

void ZoRecordGrabbedPress(IZoGraphicsMapObject* owner)
{
    RecordSceneEvent(ZoGraphicsConstantNS::STR_SCENE_MOUSE_PRESS, owner);
    RecordSceneGrab(ZoGraphicsConstantNS::STR_SCENE_MOUSE_PRESS_GRAB, owner);
}

void ZoRecordGrabbedWheel(IZoGraphicsMapObject* owner)
{
    RecordSceneEvent(ZoGraphicsConstantNS::STR_SCENE_WHEEL_PRESS, owner);
    RecordSceneGrab(ZoGraphicsConstantNS::STR_SCENE_WHEEL_PRESS_GRAB, owner);
}

CZoEmbeddedWidgetProxy::CZoEmbeddedWidgetProxy(IZoGraphicsMapObject* owner, QGraphicsItem* parent)
    : QGraphicsProxyWidget(parent), m_owner(owner)
{
}

bool CZoEmbeddedWidgetProxy::sceneEvent(QEvent* event)
{
    CZoItemEventScope delivering;
    return QGraphicsProxyWidget::sceneEvent(event);
}

void CZoEmbeddedWidgetProxy::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    ZoRecordGrabbedPress(m_owner);
    QGraphicsProxyWidget::mousePressEvent(event);
}

void CZoEmbeddedWidgetProxy::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    ZoRecordGrabbedWheel(m_owner);
    QGraphicsProxyWidget::wheelEvent(event);
}
