#include "layer/CZoHoverRouter.h"

#include "layer/CZoGraphicsMapLayer.h"
#include "object/CZoMapObjectCore.h"
#include "object/ZoItemLifetime.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPainterPath>
#include <QPolygonF>
#include <QWidget>
#include <algorithm>

namespace
{
bool LeavesScene(const QEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->type() == QEvent::GraphicsSceneLeave;
#else
    return event->type() == QEvent::Leave;
#endif
}

// What Qt tests items against for a pointer: a pixel of the view the pointer
// is in, in scene coordinates, or the bare scene point without a view.
struct SPointerArea
{
    QPointF point;
    QPainterPath pixel; // empty without a view
    QRectF bounds;
};

SPointerArea AreaOf(const QGraphicsSceneMouseEvent& move)
{
    SPointerArea area;
    area.point = move.scenePos();
    area.bounds = QRectF(area.point, QSizeF(0.0, 0.0));
    QWidget* viewport = move.widget();
    auto* view = viewport ? qobject_cast<QGraphicsView*>(viewport->parentWidget()) : nullptr;
    if (!view)
        return area;
    const QRectF pixel(QPointF(viewport->mapFromGlobal(move.screenPos())), QSizeF(1.0, 1.0));
    area.pixel.addPolygon(view->viewportTransform().inverted().map(QPolygonF(pixel)));
    area.pixel.closeSubpath();
    area.bounds = area.pixel.boundingRect();
    return area;
}

// Qt's own test for an item under the pointer: its bounds first, then its
// shape in item coordinates.
bool Hits(const QGraphicsItem& item, const SPointerArea& area)
{
    QRectF bounds = item.sceneBoundingRect();
    if (bounds.width() == 0.0)
        bounds.adjust(-0.00001, 0.0, 0.00001, 0.0);
    if (bounds.height() == 0.0)
        bounds.adjust(0.0, -0.00001, 0.0, 0.00001);
    if (area.pixel.isEmpty())
        return bounds.contains(area.point) && item.contains(item.mapFromScene(area.point));
    return bounds.intersects(area.bounds) &&
           item.collidesWithPath(item.mapFromScene(area.pixel), Qt::IntersectsItemShape);
}
} // namespace

CZoHoverRouter::CZoHoverRouter(QGraphicsScene* scene, Layers layers, Lookup lookup)
    : m_scene(scene), m_layers(std::move(layers)), m_lookup(std::move(lookup))
{
    if (m_scene)
    {
        m_scene->installEventFilter(this);
        ZoEnableHoverTracking(m_scene);
    }
}

CZoHoverRouter::~CZoHoverRouter()
{
    if (m_scene)
        m_scene->removeEventFilter(this);
}

bool CZoHoverRouter::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_scene)
        return false;
    if (event->type() == QEvent::GraphicsSceneMouseMove)
    {
        const auto* move = static_cast<QGraphicsSceneMouseEvent*>(event);
        // As Qt: no hover while a button is down or an item has the mouse.
        if (move->buttons() == Qt::NoButton && !m_scene->mouseGrabberItem())
            MoveTo(*move);
    }
    else if (LeavesScene(event))
    {
        LeaveAll();
    }
    return false;
}

CZoMapObjectCore* CZoHoverRouter::TopmostAt(const QGraphicsSceneMouseEvent& move)
{
    const SPointerArea area = AreaOf(move);
    m_candidates.clear();
    for (CZoGraphicsMapLayer* layer : m_layers())
    {
        if (layer->IsVisible() && layer->IsInScene())
            layer->CollectHoverCandidates(area.bounds, &m_candidates);
    }
    // Qt's stacking of items without parents: higher z first, then the item
    // added to the scene last.
    std::sort(m_candidates.begin(), m_candidates.end(), [](CZoMapObjectCore* a, CZoMapObjectCore* b) {
        const qreal za = a->GetQtItem()->zValue();
        const qreal zb = b->GetQtItem()->zValue();
        return za != zb ? za > zb : a->SceneOrder() > b->SceneOrder();
    });
    for (CZoMapObjectCore* core : m_candidates)
    {
        const QGraphicsItem* item = core->GetQtItem();
        if (item->scene() == m_scene && item->isVisible() && item->isEnabled() && Hits(*item, area))
            return core;
    }
    return nullptr;
}

void CZoHoverRouter::MoveTo(const QGraphicsSceneMouseEvent& move)
{
    // The host may destroy objects from inside what the events report: their
    // items stay until control returns to the event loop, and every object
    // is looked up again by id before it is told anything.
    CZoItemEventScope delivering;
    const CZoMapObjectCore* topmost = TopmostAt(move);
    const int id = topmost ? topmost->GetObjectID() : -1;
    m_candidates.clear();
    if (id != m_hoveredId)
    {
        const int left = m_hoveredId;
        m_hoveredId = id;
        if (left != -1)
            Send(QEvent::GraphicsSceneHoverLeave, left, &move);
        if (id != -1)
            Send(QEvent::GraphicsSceneHoverEnter, id, &move);
    }
    if (id != -1 && id == m_hoveredId)
        Send(QEvent::GraphicsSceneHoverMove, id, &move);
}

void CZoHoverRouter::LeaveAll()
{
    CZoItemEventScope delivering;
    const int left = m_hoveredId;
    m_hoveredId = -1;
    if (left != -1)
        Send(QEvent::GraphicsSceneHoverLeave, left, nullptr);
}

void CZoHoverRouter::Send(int type, int objectId, const QGraphicsSceneMouseEvent* move)
{
    CZoMapObjectCore* core = m_lookup(objectId);
    QGraphicsItem* item = core ? core->GetQtItem() : nullptr;
    if (!item || !m_scene || item->scene() != m_scene)
        return;
    QGraphicsSceneHoverEvent hover(static_cast<QEvent::Type>(type));
    if (move)
    {
        hover.setWidget(move->widget());
        hover.setPos(item->mapFromScene(move->scenePos()));
        hover.setScenePos(move->scenePos());
        hover.setScreenPos(move->screenPos());
        hover.setLastPos(item->mapFromScene(move->lastScenePos()));
        hover.setLastScenePos(move->lastScenePos());
        hover.setLastScreenPos(move->lastScreenPos());
        hover.setModifiers(move->modifiers());
    }
    m_scene->sendEvent(item, &hover);
}

void ZoEnableHoverTracking(QGraphicsScene* scene)
{
    if (!scene)
        return;
    for (QGraphicsView* view : scene->views())
    {
        if (QWidget* viewport = view->viewport())
            viewport->setMouseTracking(true);
    }
}
