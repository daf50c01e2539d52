#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <vector>

class CZoGraphicsMapLayer;
class CZoMapObjectCore;
class QGraphicsItem;
class QGraphicsScene;
class QGraphicsSceneMouseEvent;

// Hover for the library's items without Qt's scan of every item. Watching the
// host's scene, it finds the topmost interactive item under the pointer in
// the grids of the module's layers, stacked as Qt stacks them, and gives it
// the hover enter, move and leave events that Qt would have given it. The
// host's scene events are left for Qt to deliver as usual.
class CZoHoverRouter final : public QObject
{
public:
    // The module's layers now; the object of an id, null once it is gone.
    using Layers = std::function<std::vector<CZoGraphicsMapLayer*>()>;
    using Lookup = std::function<CZoMapObjectCore*(int id)>;

    CZoHoverRouter(QGraphicsScene* scene, Layers layers, Lookup lookup);
    ~CZoHoverRouter() override;
    Q_DISABLE_COPY(CZoHoverRouter)

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MoveTo(const QGraphicsSceneMouseEvent& move);
    // Leaves the hovered object, if any, as the pointer leaves the scene.
    void LeaveAll();
    CZoMapObjectCore* TopmostAt(const QGraphicsSceneMouseEvent& move);
    void Send(int type, int objectId, const QGraphicsSceneMouseEvent* move);

    QPointer<QGraphicsScene> m_scene;
    Layers m_layers;
    Lookup m_lookup;
    int m_hoveredId = -1;
    std::vector<CZoMapObjectCore*> m_candidates;
};

// Views show the pointer's moves without a button only when asked to; Qt asks
// them when an item accepts hover events, which the library's items no longer
// do.
void ZoEnableHoverTracking(QGraphicsScene* scene);
