#include "object/CZoMapObjectCore.h"

#include "layer/CZoHoverRouter.h"
#include "object/CZoGeoPixels.h"
#include "object/IZoMapObjectInternal.h"
#include "object/ZoAntimeridian.h"
#include "object/ZoItemLifetime.h"
#include "object/ZoLogText.h"
#include "object/ZoPixelValues.h"

#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/SrsToolkit.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>
#include <ZoGraphics/ZoTileModel.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QPainter>
#include <cmath>

namespace
{
constexpr int kAllMouseButtons = 0x7FFFFFF;

// Stands for Qt's insertion order among items of the same z value.
quint32 g_sceneOrder = 0;

// k = 1 / view scale; a scale that is not a positive number leaves k alone,
// and so does one so far from 1 that pixel sizes times k would overflow.
constexpr double kMinViewScale = 1e-12;
constexpr double kMaxViewScale = 1e12;

// The layer's shape cache holds the object still (its rebuilds and paints
// are skipped).
bool SuppressedUnder(bool shapeCache, bool always, double threshold)
{
    return shapeCache && !always && threshold > -1.0 && threshold < 12.0;
}

bool ShapeCacheOf(const IZoGraphicsMapLayer* layer)
{
    return layer && layer->IsShapeCacheEnabled();
}

bool PixelScaleFromViewScale(double viewScale, double* k)
{
    if (!(viewScale >= kMinViewScale && viewScale <= kMaxViewScale))
        return false;
    *k = 1.0 / viewScale;
    return true;
}
} // namespace

CZoMapObjectCore* ZoObjectCore(IZoGraphicsMapObject* object)
{
    auto* internal = dynamic_cast<IZoMapObjectInternal*>(object);
    return internal ? &internal->Core() : nullptr;
}

CZoMapObjectCore::CZoMapObjectCore(IZoGraphicsMapObject& self, IKind& kind, const SZoObjectLogNames& names)
    : m_self(self), m_kind(kind), m_names(names)
{
}

CZoMapObjectCore::~CZoMapObjectCore()
{
    DisposeItem();
}

// A deleted item leaves its scene by itself, with less work than removing it
// first (no change notifications, no switching off): destroying many objects
// at once is mostly this.
void CZoMapObjectCore::DisposeItem()
{
    if (m_hoverGrid)
        m_hoverGrid->Forget(*this);
    m_inScene = false;
    if (!m_item)
        return;
    ZoDisposeItem(std::move(m_item));
}

void CZoMapObjectCore::ForgetDeletedItem(const IZoGraphicsItemImpl* item)
{
    if (!m_item || m_item.get() != item)
        return;
    if (m_hoverGrid)
        m_hoverGrid->Forget(*this);
    static_cast<void>(m_item.release());
    m_inScene = false;
}

bool CZoMapObjectCore::AcceptsCallingThread(const char* method) const
{
    return ZoAcceptsCallingThread(m_names.className, method);
}

bool CZoMapObjectCore::Initialise(const std::string& name, IZoMapModule* mapModule, IZoMapLayer* layer)
{
    if (!AcceptsCallingThread("Initialise"))
        return false;
    if (!mapModule)
    {
        ZoLogWarnAt(m_names.InitialiseClass(), "Initialise") << ZoLogReason::kMapModuleNull;
        return false;
    }
    // Without a layer there is no z value or scene policy to start from.
    if (!layer)
        return false;

    m_objectId = GenerateZoObjectID();
    m_mapModule = mapModule;
    m_self.SetMapLayer(layer);

    if (m_item)
    {
        RemoveFromScene();
        DisposeItem();
    }
    m_zValue = layer->GetZValue();
    PixelScaleFromViewScale(mapModule->GetViewScale(), &m_pixelScale);
    m_label.SetText(ConvertStdStringToQString(name, ZoGraphicsConstantNS::STR_CODE_PAGE));

    if (layer->IsAutoAdd())
    {
        EnsureItem();
        QGraphicsItem* item = m_item->GraphicsItem();
        item->setVisible(m_visible);
        item->setEnabled(m_interactive);
        item->setZValue(m_zValue);
        m_self.AddToScene();
    }
    m_self.UpdateVisibility(mapModule->GetCurrentLodLevel());
    m_self.SetResolution(mapModule->GetViewScale());
    return true;
}

void CZoMapObjectCore::Unintialise()
{
    if (!AcceptsCallingThread("Unintialise"))
        return;
    InvalidateLabels();
    DisposeItem();
    m_mapLayer = nullptr;
    m_mapModule = nullptr;
    m_graphicsLayer = nullptr;
    m_hoverGrid = nullptr;
}

void CZoMapObjectCore::SetMapLayer(IZoMapLayer* layer)
{
    if (!AcceptsCallingThread("SetMapLayer"))
        return;
    InvalidateLabels();
    auto* graphicsLayer = dynamic_cast<IZoGraphicsMapLayer*>(layer);
    AnnounceHold(ShapeCacheOf(graphicsLayer), m_alwaysRebuild, m_rebuildThreshold);
    m_mapLayer = layer;
    m_graphicsLayer = graphicsLayer;
    m_labelArranger = dynamic_cast<IZoLabelArranger*>(layer);
    auto* gridOwner = dynamic_cast<IZoHoverGridOwner*>(layer);
    CZoHoverGrid* hoverGrid = gridOwner ? &gridOwner->HoverGrid() : nullptr;
    if (hoverGrid != m_hoverGrid)
    {
        if (m_hoverGrid)
            m_hoverGrid->Forget(*this);
        m_hoverGrid = hoverGrid;
        ApplyInteractive();
    }
    m_labelDecluttered = false;
    SetLabelShift(QPointF());
    InvalidateLabels();
}

std::string CZoMapObjectCore::GetName() const
{
    return ConvertQStringToStdString(m_label.text, ZoGraphicsConstantNS::STR_CODE_PAGE);
}

void CZoMapObjectCore::SetMinLodLevel(int level)
{
    if (!AcceptsCallingThread("SetMinLodLevel"))
        return;
    m_minLod = level;
    if (m_mapModule)
        m_self.UpdateVisibility(CurrentLod());
    else
        ZoLogWarnAt(m_names.className, "SetMinLodLevel") << ZoLogReason::kMapModuleNotSet;
}

void CZoMapObjectCore::SetMaxLodLevel(int level)
{
    if (!AcceptsCallingThread("SetMaxLodLevel"))
        return;
    m_maxLod = level;
    if (m_mapModule)
        m_self.UpdateVisibility(CurrentLod());
    else
        ZoLogWarnAt(m_names.className, m_names.setMaxLodMethod) << ZoLogReason::kMapModuleNotSet;
}

void CZoMapObjectCore::SetName(const std::string& name)
{
    if (!AcceptsCallingThread("SetName"))
        return;
    // The index is keyed by what GetName answers, which is the name after a
    // round trip through the code page.
    const std::string oldName = m_nameObserver ? GetName() : std::string();
    m_label.SetText(ConvertStdStringToQString(name, ZoGraphicsConstantNS::STR_CODE_PAGE));
    if (m_nameObserver)
        m_nameObserver->OnObjectRenamed(m_self, oldName, GetName());
    if (!m_item)
        return;
    PrepareGeometryChange();
    RelayoutNameAndRepaint(false);
}

void CZoMapObjectCore::SetNameVisible(bool visible)
{
    if (!AcceptsCallingThread("SetNameVisible"))
        return;
    m_label.visible = visible;
    if (!visible)
        m_label.Release();
    if (!m_item)
        return;
    PrepareGeometryChange();
    RelayoutNameAndRepaint(false);
}

bool CZoMapObjectCore::IsNameVisible() const
{
    if (!m_mapModule)
    {
        ZoLogWarnAt(m_names.className, "IsNameVisible") << ZoLogReason::kMapModuleNotSet;
        return false;
    }
    const int lod = CurrentLod();
    if (lod < m_label.minLod || lod > m_label.maxLod)
        return false;
    if (m_graphicsLayer &&
        (lod < m_graphicsLayer->GetNameMinLodLevel() || lod > m_graphicsLayer->GetNameMaxLodLevel()))
        return false;
    return m_label.visible;
}

void CZoMapObjectCore::SetNameFont(const QFont& font)
{
    if (!AcceptsCallingThread("SetNameFont"))
        return;
    m_label.SetFont(font);
    if (m_item)
        RelayoutNameAndRepaint(false);
}

void CZoMapObjectCore::SetNameOffset(float offset)
{
    if (!AcceptsCallingThread("SetNameOffset"))
        return;
    if (!ZoPlausiblePixels(offset))
        return;
    m_label.SetOffset(offset);
    if (m_item)
        RelayoutNameAndRepaint(false);
}

void CZoMapObjectCore::SetNameColor(const QColor& color)
{
    if (!AcceptsCallingThread("SetNameColor"))
        return;
    m_label.textColor = color;
    Update();
}

void CZoMapObjectCore::SetNameOutlineColor(const QColor& color)
{
    if (!AcceptsCallingThread("SetNameOutlineColor"))
        return;
    m_label.outlineColor = color;
    Update();
}

void CZoMapObjectCore::SetNameOutlineWidth(double width)
{
    if (!AcceptsCallingThread("SetNameOutlineWidth"))
        return;
    if (!ZoPlausiblePenWidth(width))
        return;
    m_label.outlineWidth = width;
    InvalidateLabels(); // the halo is part of what must not overlap
    Update();
}

void CZoMapObjectCore::SetNameMinLodLevel(int level)
{
    if (AcceptsCallingThread("SetNameMinLodLevel"))
        m_label.minLod = level;
}

void CZoMapObjectCore::SetNameMaxLodLevel(int level)
{
    if (AcceptsCallingThread("SetNameMaxLodLevel"))
        m_label.maxLod = level;
}

void CZoMapObjectCore::SetZValue(int z)
{
    if (!AcceptsCallingThread("SetZValue"))
        return;
    if (z != m_zValue)
        InvalidateLabels();
    m_zValue = z;
    if (m_labelArranger)
        m_labelArranger->NoteObjectZValue(z);
    if (m_item)
        m_item->GraphicsItem()->setZValue(z);
}

void CZoMapObjectCore::SetInteractive(bool interactive)
{
    if (!AcceptsCallingThread("SetInteractive"))
        return;
    m_interactive = interactive;
    ApplyInteractive();
}

void CZoMapObjectCore::ApplyInteractive()
{
    if (!m_item)
        return;
    QGraphicsItem* item = m_item->GraphicsItem();
    item->setEnabled(m_interactive);
    // Qt scans every item of a scene without an index for each mouse move
    // once a single item accepts hover events: the layer's grid finds the
    // hovered item instead, and needs to hear of its moves. Items sized per
    // view have no place in scene cells and keep Qt's hover.
    const bool routed = m_hoverGrid && !(item->flags() & QGraphicsItem::ItemIgnoresTransformations);
    item->setAcceptHoverEvents(m_interactive && !routed);
    item->setFlag(QGraphicsItem::ItemSendsGeometryChanges, m_interactive && routed);
    item->setAcceptedMouseButtons(m_interactive ? Qt::MouseButtons(kAllMouseButtons) : Qt::NoButton);
    if (!routed)
        return;
    m_hoverGrid->NoteMoved(*this);
    if (m_interactive && m_inScene)
        ZoEnableHoverTracking(item->scene());
}

void CZoMapObjectCore::NoteItemMoved()
{
    if (m_hoverGrid)
        m_hoverGrid->NoteMoved(*this);
}

void CZoMapObjectCore::NoteItemShapeChanging()
{
    if (m_hoverGrid && m_interactive)
        m_hoverGrid->NoteShapeChanging(*this);
}

void CZoMapObjectCore::SetVisible(bool visible)
{
    if (!AcceptsCallingThread("SetVisible"))
        return;
    m_visible = visible;
    if (m_mapModule)
        m_self.UpdateVisibility(CurrentLod());
}

bool CZoMapObjectCore::IsVisible() const
{
    if (!m_mapModule || !m_graphicsLayer)
    {
        ZoLogWarnAt(m_names.className, "IsVisible") << ZoLogReason::kModuleNotSet;
        return false;
    }
    // Unlike UpdateVisibility, the layer's own switch is not consulted here.
    const int lod = CurrentLod();
    if (lod < m_minLod || lod > m_maxLod)
        return false;
    if (lod < m_graphicsLayer->GetMinLodLevel() || lod > m_graphicsLayer->GetMaxLodLevel())
        return false;
    return m_visible;
}

CAABB CZoMapObjectCore::AnchorBoundingBox() const
{
    const CVector3D anchor = m_kind.GetAnchor();
    CAABB box;
    box.Extend(CVector3D(anchor.x, anchor.y, -1.0));
    box.Extend(CVector3D(anchor.x, anchor.y, 1.0));
    return box;
}

void CZoMapObjectCore::UpdateVisibility(int lod)
{
    if (!AcceptsCallingThread("UpdateVisibility"))
        return;
    m_shown = false;
    if (m_visible)
    {
        const bool inRange = m_minLod <= lod && lod <= m_maxLod;
        bool layerInRange = true;
        bool layerVisible = true;
        if (m_graphicsLayer)
        {
            layerInRange = m_graphicsLayer->GetMinLodLevel() <= lod && lod <= m_graphicsLayer->GetMaxLodLevel();
            layerVisible = m_graphicsLayer->IsVisible();
        }
        m_shown = inRange && layerInRange && layerVisible;
    }
    InvalidateLabels();
    // A label that no longer shows gives its measurement and look back.
    const bool labelShown = m_shown && m_label.IsShownAt(lod, m_graphicsLayer);
    if (!labelShown)
        m_label.Release();
    if (m_item)
    {
        // setVisible repaints an item whose visibility changes; otherwise
        // only a label that comes or goes needs a repaint. A zoom visits
        // every object, and needless repaints are most of its cost.
        m_item->GraphicsItem()->setVisible(m_shown);
        if (labelShown != m_labelShown)
            m_item->Repaint();
    }
    m_labelShown = labelShown;
}

void CZoMapObjectCore::SetResolution(double scale)
{
    if (!AcceptsCallingThread("SetResolution"))
        return;
    double newScale = m_pixelScale;
    PixelScaleFromViewScale(scale, &newScale);
    if (!m_item)
    {
        m_pixelScale = newScale;
        return;
    }
    InvalidateLabels();
    // In the scene, the geometry change repaints the item already, and the
    // item need not announce it again while rebuilding. A shape of pixel
    // sizes alone does not change while k stays (a zoom from one whole level
    // to the next): announcing a change then would only take the item out of
    // the scene's index and put it back, most of a zoom's cost. The
    // announcement comes before k changes: the scene's index finds the item
    // under the rectangle it reports now, and bounds grow with k.
    const bool unchanged = newScale == m_pixelScale && m_kind.ShapeFollowsPixelScaleOnly();
    // Nor does such a shape's label move with the level once placed.
    if (unchanged && m_shapeFresh)
    {
        if (!m_inScene)
            m_item->Repaint();
        return;
    }
    if (!unchanged)
        PrepareGeometryChange();
    m_pixelScale = newScale;
    m_geometryAnnounced = m_inScene && !unchanged;
    NoteItemShapeChanging();
    m_item->RebuildShape(true);
    m_shapeFresh = !LabelWaitsForItsLevels();
    m_geometryAnnounced = false;
    if (!m_inScene)
        m_item->Repaint();
}

void CZoMapObjectCore::UpdatePosition()
{
    if (!AcceptsCallingThread("UpdatePosition"))
        return;
    InvalidateLabels();
    if (m_item)
        m_item->GraphicsItem()->setPos(m_kind.AnchorToPixel());
}

void CZoMapObjectCore::PaintOnCanvas(QPainter* painter, CTileModel* converter, int level, CSpatialReference* target)
{
    if (!painter || !converter)
    {
        ZoLogWarnAt(m_names.className, "PaintOnCanvas") << ZoLogReason::kArgumentNull;
        return;
    }
    CVector3D anchor = m_kind.GetAnchor();
    if (target)
    {
        CSpatialReference* wgs84 = CSpatialReferenceFactorySingleton::Instance()->GetOrCreateSRSViaEPSG(4326);
        anchor = RxGDALUtilityNS::TransformGeoSRS_Point(anchor, wgs84, target);
    }
    int px = 0;
    int py = 0;
    if (!converter->ConvertGeoToPixel(&px, &py, level, anchor.x, anchor.y))
        return;

    const CZoCanvasProjection canvas(converter, level, target, QPointF(px, py));
    painter->save();
    painter->translate(px, py);
    if (m_item)
    {
        m_item->PaintOnCanvas(painter, canvas);
    }
    else
    {
        const std::unique_ptr<IZoGraphicsItemImpl> temporary = m_kind.CreateItem();
        temporary->PaintOnCanvas(painter, canvas);
    }
    painter->restore();
}

QGraphicsItem* CZoMapObjectCore::GetQtItem() const
{
    return m_item ? m_item->GraphicsItem() : nullptr;
}

void CZoMapObjectCore::AddToScene()
{
    if (!AcceptsCallingThread("AddToScene"))
        return;
    if (m_inScene)
        return;
    InvalidateLabels();
    QGraphicsScene* scene = m_mapModule ? m_mapModule->GetScene() : nullptr;
    if (!scene)
        return;
    m_inScene = true;
    EnsureItem();
    QGraphicsItem* item = m_item->GraphicsItem();
    m_sceneOrder = ++g_sceneOrder;
    scene->addItem(item);
    m_item->NotifyGeometryChange();
    // Taking an item out of the scene switches it off; bring back what the
    // object says.
    item->setVisible(m_shown);
    ApplyInteractive();
}

void CZoMapObjectCore::RemoveFromScene()
{
    if (!AcceptsCallingThread("RemoveFromScene"))
        return;
    InvalidateLabels();
    if (m_item && m_inScene)
    {
        // Announced first, so that an index forgets the item under the
        // bounds it holds it by; out of the scene next, so that the item is
        // switched off without the scene's bookkeeping for each switch.
        QGraphicsItem* item = m_item->GraphicsItem();
        m_item->NotifyGeometryChange();
        if (QGraphicsScene* scene = item->scene())
            scene->removeItem(item);
        item->setVisible(false);
        item->setEnabled(false);
        item->setAcceptHoverEvents(false);
        item->setAcceptedMouseButtons(Qt::NoButton);
    }
    m_inScene = false;
    if (m_hoverGrid)
        m_hoverGrid->Forget(*this);
}

void CZoMapObjectCore::Rebuild(double scale)
{
    if (!AcceptsCallingThread("Rebuild"))
        return;
    EnsureItem();
    double newScale = m_pixelScale;
    PixelScaleFromViewScale(scale, &newScale);
    // Bounds grow with k: announce while the item still reports the old ones.
    if (newScale != m_pixelScale)
        PrepareGeometryChange();
    m_pixelScale = newScale;
    NoteItemShapeChanging();
    m_item->RebuildShape(true);
    m_shapeFresh = !LabelWaitsForItsLevels();
}

// A label kept out of the current level by its range, or its layer's, is
// not placed by a rebuild: the level that brings it in must place it.
bool CZoMapObjectCore::LabelWaitsForItsLevels() const
{
    return m_label.visible && !m_label.text.isEmpty() && !m_label.IsShownAt(CurrentLod(), m_graphicsLayer);
}

void CZoMapObjectCore::Dirty()
{
    if (!AcceptsCallingThread("Dirty"))
        return;
    if (!m_item)
    {
        ZoLogWarnAt(m_names.className, "Dirty") << ZoLogReason::kItemMissing;
        return;
    }
    QGraphicsItem* item = m_item->GraphicsItem();
    item->setZValue(m_zValue);
    ApplyInteractive();
    item->setVisible(m_shown);
    item->setPos(m_kind.AnchorToPixel());
    m_self.UpdateVisibility(CurrentLod());
}

void CZoMapObjectCore::Update()
{
    if (!AcceptsCallingThread("Update"))
        return;
    if (m_item)
        m_item->Repaint();
    if (m_labelArranger && m_labelArranger->DrawsLabelsAbove())
        m_labelArranger->RepaintLabels();
}

// The object's own switches first: the layer lies elsewhere in memory, and
// a frame of a scene without an index asks this of every item.
bool CZoMapObjectCore::IsSuppressed() const
{
    return SuppressedUnder(true, m_alwaysRebuild, m_rebuildThreshold) && ShapeCacheOf(m_graphicsLayer);
}

// A suppressed item reports empty bounds, so the switch is announced while
// the item still reports the bounds the scene's index holds it under.
void CZoMapObjectCore::AnnounceHold(bool shapeCache, bool always, double threshold)
{
    if (SuppressedUnder(shapeCache, always, threshold) != IsSuppressed())
        PrepareGeometryChange();
}

void CZoMapObjectCore::SetAlwaysRebuild(bool always)
{
    if (!AcceptsCallingThread("SetAlwaysRebuild"))
        return;
    AnnounceHold(ShapeCacheOf(m_graphicsLayer), always, m_rebuildThreshold);
    m_alwaysRebuild = always;
}

void CZoMapObjectCore::SetRebuildThreshold(double threshold)
{
    if (!AcceptsCallingThread("SetRebuildThreshold"))
        return;
    AnnounceHold(ShapeCacheOf(m_graphicsLayer), m_alwaysRebuild, threshold);
    m_rebuildThreshold = threshold;
}

int CZoMapObjectCore::CurrentLod() const
{
    return m_mapModule ? m_mapModule->GetCurrentLodLevel() : 0;
}

QPointF CZoMapObjectCore::ConvertGeoToScenePixel(const CVector3D& point, const char* method) const
{
    if (!m_mapModule)
        return QPointF(0.0, 0.0);
    // An anchor past +-180 is the same meridian: the item sits in the world.
    const CZoGeoPixels geo(m_mapModule);
    QPointF pixel;
    if (!geo.Point(ZoAntimeridian::Wrap(point.x), point.y, &pixel))
    {
        ZoLogWarnAt(m_names.className, method) << ZoLogReason::kConvertFailed;
        return QPointF(0.0, 0.0);
    }
    if (!(std::fabs(point.x) > 180.0 || std::fabs(point.y) > 90.0))
    {
        m_notedOutside.reset();
    }
    else if (!m_notedOutside || !(point == *m_notedOutside))
    {
        m_notedOutside = std::make_unique<CVector3D>(point);
        CZoGeoPixels::NoteOutOfRange(&point, 1, m_names.className, method);
    }
    return pixel;
}

void CZoMapObjectCore::PrepareGeometryChange()
{
    if (m_item && m_inScene)
        m_item->NotifyGeometryChange();
}

void CZoMapObjectCore::RebuildAndRepaint(bool forced)
{
    InvalidateLabels();
    if (!m_item)
        return;
    NoteItemShapeChanging();
    m_item->RebuildShape(forced);
    m_shapeFresh = forced && !LabelWaitsForItsLevels();
    m_item->Repaint();
}

void CZoMapObjectCore::RelayoutNameAndRepaint(bool forced)
{
    InvalidateLabels();
    if (!m_item)
        return;
    NoteItemShapeChanging();
    m_item->RebuildName(forced);
    m_shapeFresh = false;
    m_item->Repaint();
}

void CZoMapObjectCore::PaintName(QPainter* painter, const CZoNameLabel& label, double s, int lod) const
{
    if (!painter || !label.IsShownAt(lod, m_graphicsLayer))
        return;
    // Decluttering concerns the label as placed in the scene; canvases draw
    // copies of it and keep every label where the object puts it.
    const bool arranged = &label == &m_label && m_labelArranger && m_labelArranger->IsArrangingLabels();
    if (arranged)
    {
        // Drawn by the layer, above every object of it (PaintLabelAbove).
        if (m_labelArranger->DrawsLabelsAbove())
            return;
        m_labelArranger->ArrangeLabels();
        if (m_labelDecluttered)
            return;
    }
    DrawLabel(painter, label, s, arranged);
}

void CZoMapObjectCore::PaintLabelAbove(QPainter* painter) const
{
    if (!painter || !m_item || IsSuppressed() || !m_label.IsShownAt(CurrentLod(), m_graphicsLayer))
        return;
    QGraphicsItem* item = m_item->GraphicsItem();
    painter->save();
    painter->setTransform(item->sceneTransform(), true);
    const double angle = m_item->LabelAngle();
    if (angle != 0.0)
        painter->rotate(angle);
    DrawLabel(painter, m_label, m_pixelScale, true);
    painter->restore();
}

void CZoMapObjectCore::DrawLabel(QPainter* painter, const CZoNameLabel& label, double s, bool shifted) const
{
    painter->save();
    painter->scale(s, s);
    if (shifted && (m_labelShiftX != 0.0f || m_labelShiftY != 0.0f))
        painter->translate(m_labelShiftX, m_labelShiftY);
    label.Draw(painter);
    painter->restore();
}

void CZoMapObjectCore::EnsureItem()
{
    if (!m_item)
    {
        m_item = m_kind.CreateItem();
        m_shapeFresh = false;
    }
}
