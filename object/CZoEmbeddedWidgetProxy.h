#pragma once

#include <QGraphicsProxyWidget>

class IZoGraphicsMapObject;

// Shows a widget of an object in the scene. Presses and wheel turns go to the
// widget, and the host learns that the widget took them: the object's id is
// recorded under "Scene_MousePress" or "Scene_WheelPress" and the matching
// grab flag is raised.
class CZoEmbeddedWidgetProxy : public QGraphicsProxyWidget
{
public:
    CZoEmbeddedWidgetProxy(IZoGraphicsMapObject* owner, QGraphicsItem* parent);
    Q_DISABLE_COPY(CZoEmbeddedWidgetProxy)

    // The object is gone; the proxy may outlive it until the event loop runs.
    void ForgetOwner() { m_owner = nullptr; }

protected:
    bool sceneEvent(QEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;

private:
    IZoGraphicsMapObject* m_owner;
};

// Records a press or wheel turn taken by an embedded widget of the object.
void ZoRecordGrabbedPress(IZoGraphicsMapObject* owner);
void ZoRecordGrabbedWheel(IZoGraphicsMapObject* owner);
