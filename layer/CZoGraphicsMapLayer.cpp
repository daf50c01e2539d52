#include "layer/CZoGraphicsMapLayer.h"

#include "object/CZoGeoPixels.h"
#include "object/CZoMapObjectCore.h"
#include "object/IZoMapObjectInternal.h"
#include "object/ZoLogText.h"

#include <ZoGraphics/CZoGraphicsModule.h>
#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/IZoGraphicsModule.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/ZoCoreUtility.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionGraphicsItem>
#include <algorithm>
#include <array>
#include <cmath>
#include <typeinfo>
#include <unordered_map>

namespace
{
constexpr const char* kClassName = "CZoGraphicsMapLayer";
// How far past the world's edges, in screen pixels, a label may reach.
constexpr double kLabelReach = 2048.0;
} // namespace

// The layer's labels, drawn in one item above the layer's objects. It shows
// nothing to hit tests, hover or the mouse: those belong to the objects.
class CZoLayerLabelItem final : public QGraphicsItem
{
public:
    explicit CZoLayerLabelItem(CZoGraphicsMapLayer& layer) : m_layer(&layer)
    {
        setFlag(ItemUsesExtendedStyleOption);
        setAcceptedMouseButtons(Qt::NoButton);
        setEnabled(false);
    }
    ~CZoLayerLabelItem() override
    {
        if (m_layer)
            m_layer->ForgetLabelItem();
    }
    Q_DISABLE_COPY(CZoLayerLabelItem)

    void ForgetLayer() { m_layer = nullptr; }
    void SetBounds(const QRectF& bounds)
    {
        if (bounds == m_bounds)
            return;
        prepareGeometryChange();
        m_bounds = bounds;
    }
    QRectF boundingRect() const override { return m_bounds; }
    QPainterPath shape() const override { return QPainterPath(); }
    bool contains(const QPointF&) const override { return false; }
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*) override
    {
        if (m_layer)
            m_layer->PaintLabels(painter, option ? option->exposedRect : QRectF());
    }

private:
    CZoGraphicsMapLayer* m_layer;
    QRectF m_bounds;
};

CZoGraphicsMapLayer::CZoGraphicsMapLayer() = default;
// The module's teardown deletes layers without uninitialising them; a layer
// must not stay behind in the map module's handler list once it is gone.
CZoGraphicsMapLayer::~CZoGraphicsMapLayer()
{
    DropLabelItem();
    if (m_mapModule)
        m_mapModule->UnregisterEventHandler(static_cast<IZoMapEventHandler*>(this));
}

bool CZoGraphicsMapLayer::Initialise(const std::string& name, IZoMapModule* mapModule,
                                     IZoGraphicsModule* graphicsModule)
{
    if (!mapModule)
    {
        ZoLogWarnAt(kClassName, "Initialise") << ZoLogReason::kMapModuleNull;
        return false;
    }
    m_graphicsModule = graphicsModule;
    m_mapModule = mapModule;
    const std::string oldName = m_name;
    m_name = name;
    m_layerId = GenerateZoObjectID();
    if (m_nameObserver)
        m_nameObserver->OnLayerRenamed(*this, oldName, m_name);
    m_mapModule->RegisterEventHandler(static_cast<IZoMapEventHandler*>(this), 0);
    UpdateLabelItem();
    return true;
}

void CZoGraphicsMapLayer::Unintialise()
{
    if (m_mapModule)
        m_mapModule->UnregisterEventHandler(static_cast<IZoMapEventHandler*>(this));
    {
        CZoLockGuard guard(m_lock);
        m_objects.Clear();
        m_walkStale = true;
        ForgetPlacedLabels();
        m_hoverGrid.Invalidate();
    }
    DropLabelItem();
    m_mapModule = nullptr;
}

const std::vector<IZoGraphicsMapObject*>& CZoGraphicsMapLayer::WalkLocked() const
{
    if (m_walkStale)
    {
        m_walk = m_objects.Sorted();
        m_walkCores.clear();
        m_walkStale = false;
    }
    return m_walk;
}

const std::vector<CZoMapObjectCore*>& CZoGraphicsMapLayer::WalkCoresLocked() const
{
    const std::vector<IZoGraphicsMapObject*>& walk = WalkLocked();
    if (m_walkCores.size() != walk.size())
    {
        m_walkCores.clear();
        m_walkCores.reserve(walk.size());
        for (IZoGraphicsMapObject* object : walk)
            m_walkCores.push_back(ZoObjectCore(object));
    }
    return m_walkCores;
}

std::vector<IZoGraphicsMapObject*> CZoGraphicsMapLayer::GetMapObjects() const
{
    CZoLockGuard guard(m_lock);
    return WalkLocked();
}

template <class F>
void CZoGraphicsMapLayer::ForEachObject(F f)
{
    CZoLockGuard guard(m_lock);
    // A copy: f may detach objects (and so change the map) on the way.
    const std::vector<IZoGraphicsMapObject*> walk = WalkLocked();
    for (IZoGraphicsMapObject* object : walk)
        f(object);
}

void CZoGraphicsMapLayer::SetInScene(bool inScene)
{
    if (!m_mapModule || inScene == m_inScene)
        return;
    m_inScene = inScene;
    ForEachObject([inScene](IZoGraphicsMapObject* object) {
        if (inScene)
            object->AddToScene();
        else
            object->RemoveFromScene();
    });
}

void CZoGraphicsMapLayer::SetVisible(bool visible)
{
    m_visible = visible;
    ForEachObject([visible](IZoGraphicsMapObject* object) { object->SetVisible(visible); });
}

void CZoGraphicsMapLayer::SetZValue(int z)
{
    m_zValue = z;
    m_labelZ = z;
    UpdateLabelItem();
    ForEachObject([z](IZoGraphicsMapObject* object) { object->SetZValue(z); });
}

void CZoGraphicsMapLayer::SetNameVisible(bool visible)
{
    m_nameVisible = visible;
    ForEachObject([visible](IZoGraphicsMapObject* object) { object->SetNameVisible(visible); });
}

bool CZoGraphicsMapLayer::AttachMapObject(IZoGraphicsMapObject* object)
{
    if (!object)
        return false;
    {
        CZoLockGuard guard(m_lock);
        if (!m_objects.Insert(object->GetObjectID(), object))
            return true;
        m_walkStale = true;
        m_labelsDirty = true;
    }
    if (m_autoAdd)
        object->AddToScene();
    object->SetZValue(m_zValue);
    return true;
}

bool CZoGraphicsMapLayer::ContainsMapObject(IZoGraphicsMapObject* object)
{
    if (!object)
        return false;
    CZoLockGuard guard(m_lock);
    return m_objects.Contains(object->GetObjectID());
}

bool CZoGraphicsMapLayer::DetachMapObject(IZoGraphicsMapObject* object)
{
    if (!object)
        return false;
    CZoLockGuard guard(m_lock);
    if (!m_objects.Erase(object->GetObjectID()))
        return true;
    m_walkStale = true;
    ForgetPlacedLabels();
    guard.Unlock();
    object->RemoveFromScene();
    return true;
}

bool CZoGraphicsMapLayer::DetachAllMapObjects()
{
    CZoLockGuard guard(m_lock);
    for (IZoGraphicsMapObject* object : WalkLocked())
        object->RemoveFromScene();
    m_objects.Clear();
    m_walkStale = true;
    ForgetPlacedLabels();
    return true;
}

bool CZoGraphicsMapLayer::DestroyAllMapObjects()
{
    if (!m_graphicsModule)
        return false;
    std::vector<IZoGraphicsMapObject*> objects;
    {
        // Emptying the table first lets DestroyGraphicsMapObject detach each
        // object from this layer without finding it again.
        CZoLockGuard guard(m_lock);
        WalkLocked();
        objects.swap(m_walk);
        m_walkCores.clear();
        m_objects.Clear();
        m_walkStale = true;
        ForgetPlacedLabels();
    }
    // The library's own module takes them out of its registry together; one
    // of the host's may have a say over each object.
    auto* module = dynamic_cast<CZoGraphicsModule*>(m_graphicsModule);
    if (module && typeid(*module) == typeid(CZoGraphicsModule))
    {
        module->DestroyGraphicsMapObjects(objects);
        return true;
    }
    for (IZoGraphicsMapObject* object : objects)
        m_graphicsModule->DestroyGraphicsMapObject(object);
    return true;
}

int CZoGraphicsMapLayer::GetMapObjectCount() const
{
    CZoLockGuard guard(m_lock);
    return static_cast<int>(m_objects.Size());
}

void CZoGraphicsMapLayer::EnableShapeCache()
{
    if (m_shapeCache)
        return;
    // Objects the cache holds report empty bounds from now on: each
    // announces the change while its old bounds still stand.
    ForEachObject([](IZoGraphicsMapObject* object) {
        if (CZoMapObjectCore* core = ZoObjectCore(object))
            core->AnnounceHold(true, core->IsAlwaysRebuild(), core->GetRebuildThreshold());
    });
    m_shapeCache = true;
}

bool CZoGraphicsMapLayer::OnLodLevelChanged(int lod)
{
    m_hoverGrid.Invalidate();
    ForEachObject([lod](IZoGraphicsMapObject* object) { object->UpdateVisibility(lod); });
    return false;
}

void CZoGraphicsMapLayer::CollectHoverCandidates(const QRectF& sceneRect, std::vector<CZoMapObjectCore*>* out)
{
    CZoLockGuard guard(m_lock);
    if (!m_hoverGrid.IsBuilt())
        m_hoverGrid.Build();
    m_hoverGrid.Collect(sceneRect, out);
}

// Every object changes its size and place: the hover grid is dropped first,
// so that none of them spends time on it, and built again by the next hover.
// A change of level or of the view as a whole does the same.
bool CZoGraphicsMapLayer::OnViewScaleChanged(double scale)
{
    m_hoverGrid.Invalidate();
    ForEachObject([scale](IZoGraphicsMapObject* object) { object->SetResolution(scale); });
    UpdateLabelItem();
    return false;
}

// The view moved: every object follows, but their labels keep their places
// relative to each other, so the decluttering decision stands. Changes of
// scale and level come with events of their own, which decide anew.
bool CZoGraphicsMapLayer::OnViewChanged()
{
    m_hoverGrid.Invalidate();
    const bool labelsDirty = m_labelsDirty;
    ForEachObject([](IZoGraphicsMapObject* object) { object->UpdatePosition(); });
    m_labelsDirty = labelsDirty;
    UpdateLabelItem();
    return false;
}

bool CZoGraphicsMapLayer::OnViewMoved()
{
    const bool labelsDirty = m_labelsDirty;
    ForEachObject([](IZoGraphicsMapObject* object) { object->UpdatePosition(); });
    m_labelsDirty = labelsDirty;
    UpdateLabelItem();
    return false;
}

void CZoGraphicsMapLayer::SetLabelDeclutter(bool enabled)
{
    if (enabled == m_declutter)
        return;
    m_declutter = enabled;
    ForgetPlacedLabels();
    UpdateLabelItem();
    m_labelsPlaced = 0;
    m_labelsDropped = 0;
    ForEachObject([](IZoGraphicsMapObject* object) {
        if (CZoMapObjectCore* core = ZoObjectCore(object))
        {
            core->SetLabelDecluttered(false);
            core->SetLabelShift(QPointF());
        }
        object->Update();
    });
}

namespace
{
struct LabelCandidate
{
    CZoMapObjectCore* core;
    int z;
    int id;
    QPointF at;  // the object's anchor in screen pixels
    QRectF own;  // the label as its object places it, halo included, about the anchor
};

// How far the own place keeps from the anchor, on its nearest side.
double LabelClearance(const QRectF& own)
{
    return std::max({own.left(), -own.right(), own.top(), -own.bottom(), 0.0});
}

// The places a label may take about its anchor, its own first. Each keeps the
// distance from the anchor that the own place keeps, so that a label set off a
// marker stays off it; the diagonal ones touch that circle with their corner.
// Readers look for a name above right of its point first, then below right,
// then on the left, and last straight above, below or beside it.
std::array<QRectF, 9> LabelPlaces(const QRectF& own)
{
    const double w = own.width();
    const double h = own.height();
    const double c = LabelClearance(own);
    const double k = c * 0.70710678118654752; // c / sqrt(2)
    return {own,
            QRectF(k, -k - h, w, h),
            QRectF(k, k, w, h),
            QRectF(-k - w, -k - h, w, h),
            QRectF(-k - w, k, w, h),
            QRectF(-w / 2, -c - h, w, h),
            QRectF(-w / 2, c, w, h),
            QRectF(-c - w, -h / 2, w, h),
            QRectF(c, -h / 2, w, h)};
}

// Where any of those places may lie about the anchor, turned by any angle.
QRectF LabelReach(const QRectF& own)
{
    const double w = own.width();
    const double h = own.height();
    const double c = LabelClearance(own);
    const QRectF places = own.united(QRectF(-c - w, -c - h, 2.0 * (c + w), 2.0 * (c + h)));
    const double r = std::max({-places.left(), places.right(), -places.top(), places.bottom()}) * 1.4142135623730951;
    return QRectF(-r, -r, 2.0 * r, 2.0 * r);
}

// Screen space in square cells; each cell lists the placed boxes that touch it.
class PlacedLabels
{
public:
    bool Overlaps(const QRectF& box) const
    {
        bool hit = false;
        ForCells(box, [&](qint64 cell) {
            const auto found = m_cells.find(cell);
            if (found == m_cells.end())
                return;
            for (int index : found->second)
                hit = hit || m_boxes[index].intersects(box);
        });
        return hit;
    }
    void Place(const QRectF& box)
    {
        const int index = static_cast<int>(m_boxes.size());
        m_boxes.push_back(box);
        ForCells(box, [&](qint64 cell) { m_cells[cell].push_back(index); });
    }

private:
    static constexpr double kCell = 64.0;
    template <class F>
    static void ForCells(const QRectF& box, F f)
    {
        const qint64 x0 = static_cast<qint64>(std::floor(box.left() / kCell));
        const qint64 x1 = static_cast<qint64>(std::floor(box.right() / kCell));
        const qint64 y0 = static_cast<qint64>(std::floor(box.top() / kCell));
        const qint64 y1 = static_cast<qint64>(std::floor(box.bottom() / kCell));
        for (qint64 y = y0; y <= y1; ++y)
            for (qint64 x = x0; x <= x1; ++x)
                f(static_cast<qint64>((static_cast<quint64>(y) << 32) ^ static_cast<quint32>(x)));
    }
    std::vector<QRectF> m_boxes;
    std::unordered_map<qint64, std::vector<int>> m_cells;
};
} // namespace

// An object painting its own label asks for a decision over every object:
// it does not know what the frame shows.
void CZoGraphicsMapLayer::ArrangeLabels()
{
    ArrangeLabelsFor(QRectF());
}

QPointF CZoGraphicsMapLayer::DecisionOrigin() const
{
    QPointF origin;
    CZoGeoPixels(m_mapModule).Point(0.0, 0.0, &origin);
    return origin;
}

bool CZoGraphicsMapLayer::DecisionCovers(const QRectF& shown) const
{
    if (m_labelsDirty)
        return false;
    if (m_decidedEverywhere)
        return true;
    // A host may move its scene's origin with the view; the decision moves
    // with the objects.
    return !shown.isNull() && m_decidedArea.translated(DecisionOrigin() - m_decidedOrigin).contains(shown);
}

void CZoGraphicsMapLayer::ArrangeLabelsFor(const QRectF& shown)
{
    if (!m_declutter || !m_mapModule)
        return;
    CZoLockGuard guard(m_lock);
    if (DecisionCovers(shown))
        return;
    const bool wasDirty = m_labelsDirty;
    m_labelsDirty = false;
    m_placedLabels.clear();
    m_labelsPlaced = 0;
    m_labelsDropped = 0;
    const bool drawnAbove = DrawsLabelsAbove();
    const int lod = m_mapModule->GetCurrentLodLevel();
    const double viewScale = m_mapModule->GetViewScale();
    if (!(viewScale > 0.0) || !std::isfinite(viewScale))
        return;
    // The frame and a quarter of it again on each side, in screen pixels: a
    // pan or a repaint inside it keeps the decision.
    const bool everywhere = shown.isNull() || !std::isfinite(shown.width()) || !std::isfinite(shown.height());
    const QRectF frame(shown.topLeft() * viewScale, shown.size() * viewScale);
    const double dx = frame.width() / 4.0;
    const double dy = frame.height() / 4.0;
    const QRectF area = frame.adjusted(-dx, -dy, dx, dy);
    m_decidedEverywhere = everywhere;
    m_decidedArea = QRectF(area.topLeft() / viewScale, area.size() / viewScale);
    m_decidedOrigin = DecisionOrigin();

    std::vector<LabelCandidate> candidates;
    for (CZoMapObjectCore* core : WalkCoresLocked())
    {
        if (!core)
            continue;
        QGraphicsItem* item = core->GetQtItem();
        const CZoNameLabel& label = core->Label();
        const QPointF at = item ? item->pos() * viewScale : QPointF();
        // A label that is not drawn takes no room and has nothing to hide.
        if (!item || !core->IsInScene() || !core->IsShown() || !label.IsShownAt(lod, this) ||
            (label.originX == 0.0 && label.originY == 0.0) || !std::isfinite(at.x()) || !std::isfinite(at.y()))
        {
            core->SetLabelDecluttered(false);
            continue;
        }
        const double halo = IsEqual(label.outlineWidth, 0.0) ? 0.0 : label.outlineWidth * 2.5 / 2.0;
        const QRectF text = label.TextRect().adjusted(-halo, -halo, halo, halo);
        // One that cannot reach the area waits for a frame that shows it.
        if (!everywhere && !area.intersects(LabelReach(text).translated(at)))
            continue;
        candidates.push_back({core, core->GetZValue(), core->GetObjectID(), at, text});
    }
    // Higher z first, then lower id; the walk is already in id order.
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const LabelCandidate& a, const LabelCandidate& b) { return a.z > b.z; });
    PlacedLabels placed;
    for (const LabelCandidate& candidate : candidates)
    {
        bool hidden = true;
        QPointF shift;
        for (const QRectF& place : LabelPlaces(candidate.own))
        {
            const QRectF box = place.translated(candidate.at);
            if (placed.Overlaps(box))
                continue;
            placed.Place(box);
            if (drawnAbove)
                m_placedLabels.push_back({candidate.core, QRectF(box.topLeft() / viewScale, box.size() / viewScale)});
            hidden = false;
            // As the object keeps it, so that an unchanged decision repaints nothing.
            shift = QPointF(static_cast<float>(place.left() - candidate.own.left()),
                            static_cast<float>(place.top() - candidate.own.top()));
            break;
        }
        if (everywhere || frame.contains(candidate.at))
            ++(hidden ? m_labelsDropped : m_labelsPlaced);
        if (hidden != candidate.core->IsLabelDecluttered() || shift != candidate.core->LabelShift())
        {
            candidate.core->SetLabelDecluttered(hidden);
            candidate.core->SetLabelShift(shift);
            // Drawn elsewhere with the old decision: paint it again. The
            // layer's own label item is being painted now.
            if (!drawnAbove)
                candidate.core->Update();
        }
    }
    // The frame that asked shows more than the last decision covered, and
    // what it scrolled in from that frame was drawn with the old one.
    if (!wasDirty && drawnAbove)
        RepaintLabels();
}

bool CZoGraphicsMapLayer::DrawsLabelsAbove() const
{
    return m_declutter && m_labelItem && m_labelItem->scene();
}

void CZoGraphicsMapLayer::InvalidateLabels()
{
    if (m_labelsDirty)
        return;
    m_labelsDirty = true;
    RepaintLabels();
}

void CZoGraphicsMapLayer::RepaintLabels()
{
    if (m_labelItem)
        m_labelItem->update();
}

void CZoGraphicsMapLayer::NoteObjectZValue(int z)
{
    if (z <= m_labelZ)
        return;
    m_labelZ = z;
    if (m_labelItem)
        m_labelItem->setZValue(m_labelZ + 0.5);
}

void CZoGraphicsMapLayer::ForgetPlacedLabels()
{
    m_placedLabels.clear();
    InvalidateLabels();
}

void CZoGraphicsMapLayer::PaintLabels(QPainter* painter, const QRectF& exposed)
{
    if (!painter)
        return;
    // A scene rendered into an image exposes all of an item: what the device
    // or the clip shows is what needs drawing.
    QRectF visible = exposed;
    bool invertible = false;
    const QTransform toScene = painter->worldTransform().inverted(&invertible);
    QRectF shown;
    if (painter->hasClipping())
        shown = painter->clipBoundingRect();
    else if (invertible && painter->device())
        shown = toScene.mapRect(QRectF(0.0, 0.0, painter->device()->width(), painter->device()->height()));
    if (!shown.isNull())
        visible = exposed.isNull() ? shown : exposed & shown;
    const bool all = exposed.isNull() && shown.isNull();
    // The decision covers what the device shows, not just the part exposed
    // now, so that a partial repaint agrees with the labels around it; and
    // what every view of the scene shows: views that each asked for their own
    // would take turns deciding and repainting each other without end.
    QRectF wanted = all ? QRectF() : shown.isNull() ? visible : shown;
    if (!wanted.isNull() && m_labelItem && m_labelItem->scene())
    {
        for (const QGraphicsView* view : m_labelItem->scene()->views())
            wanted |= view->mapToScene(view->viewport()->rect()).boundingRect();
    }
    ArrangeLabelsFor(wanted);
    CZoLockGuard guard(m_lock);
    for (const SPlacedLabel& placed : m_placedLabels)
    {
        if (all || placed.box.intersects(visible))
            placed.core->PaintLabelAbove(painter);
    }
}

void CZoGraphicsMapLayer::ForgetLabelItem()
{
    static_cast<void>(m_labelItem.release());
}

void CZoGraphicsMapLayer::DropLabelItem()
{
    const std::unique_ptr<CZoLayerLabelItem> item = std::move(m_labelItem);
    if (!item)
        return;
    item->ForgetLayer();
    if (QGraphicsScene* scene = item->scene())
        scene->removeItem(item.get());
}

void CZoGraphicsMapLayer::UpdateLabelItem()
{
    QGraphicsScene* scene = m_declutter && m_mapModule ? m_mapModule->GetScene() : nullptr;
    if (!scene)
    {
        DropLabelItem();
        return;
    }
    if (!m_labelItem)
        m_labelItem = std::make_unique<CZoLayerLabelItem>(*this);
    if (m_labelItem->scene() != scene)
    {
        if (QGraphicsScene* old = m_labelItem->scene())
            old->removeItem(m_labelItem.get());
        scene->addItem(m_labelItem.get());
    }
    m_labelItem->setZValue(m_labelZ + 0.5);
    // The world at the current view, once more on either side for what lies
    // across the antimeridian, and as far again as a label may reach.
    const CZoGeoPixels geo(m_mapModule);
    QPointF west;
    QPointF east;
    if (!geo.Point(-180.0, 0.0, &west) || !geo.Point(180.0, 0.0, &east))
        return;
    const double world = geo.WorldWidth();
    const double top = geo.PoleY(true);
    const double bottom = geo.PoleY(false);
    const double viewScale = m_mapModule->GetViewScale();
    const double reach = kLabelReach / (viewScale > 0.0 && std::isfinite(viewScale) ? viewScale : 1.0);
    const QRectF bounds = QRectF(QPointF(std::min(west.x(), east.x()) - world, std::min(top, bottom)),
                                 QPointF(std::max(west.x(), east.x()) + world, std::max(top, bottom)))
                              .adjusted(-reach, -reach, reach, reach);
    if (std::isfinite(bounds.width()) && std::isfinite(bounds.height()))
        m_labelItem->SetBounds(bounds);
}
