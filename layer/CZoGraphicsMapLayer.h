#pragma once

#include "layer/CZoHoverGrid.h"
#include "object/CZoLock.h"
#include "object/IZoLabelArranger.h"
#include "object/IZoNameObserver.h"
#include "object/TZoIdTable.h"

#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/IZoLabelDeclutter.h>
#include <ZoGraphics/IZoMapEventHandler.h>

#include <QRectF>
#include <memory>
#include <vector>

class CZoMapObjectCore;
class CZoLayerLabelItem;
class QPainter;

// A layer of map objects. It refers to its objects without owning them, adds
// its visibility and LOD ranges on top of theirs, and passes the host map's
// view changes on to every one of them. On request it declutters their labels.
class CZoGraphicsMapLayer final : public IZoGraphicsMapLayer,
                                  public IZoMapEventHandler,
                                  public IZoLabelDeclutter2,
                                  public IZoLabelArranger,
                                  public IZoHoverGridOwner
{
public:
    CZoGraphicsMapLayer();
    ~CZoGraphicsMapLayer() override;
    CZoGraphicsMapLayer(const CZoGraphicsMapLayer&) = delete;
    CZoGraphicsMapLayer& operator=(const CZoGraphicsMapLayer&) = delete;

    std::string GetUUID() const override { return m_uuid; }
    void SetUUID(const std::string& uuid) override { m_uuid = uuid; }
    int GetLayerID() const override { return m_layerId; }
    std::string GetLayerName() const override { return m_name; }
    void SetInScene(bool inScene) override;
    bool IsInScene() const override { return m_inScene; }
    void SetAutoAdd(bool autoAdd) override { m_autoAdd = autoAdd; }
    bool IsAutoAdd() const override { return m_autoAdd; }
    void SetMinLodLevel(int level) override { m_minLod = level; }
    void SetMaxLodLevel(int level) override { m_maxLod = level; }
    int GetMinLodLevel() const override { return m_minLod; }
    int GetMaxLodLevel() const override { return m_maxLod; }
    void SetVisible(bool visible) override;
    bool IsVisible() const override { return m_visible; }
    void SetZValue(int z) override;
    int GetZValue() const override { return m_zValue; }

    bool Initialise(const std::string& name, IZoMapModule* mapModule, IZoGraphicsModule* graphicsModule) override;
    void Unintialise() override;
    void SetNameMinLodLevel(int level) override { m_nameMinLod = level; }
    void SetNameMaxLodLevel(int level) override { m_nameMaxLod = level; }
    int GetNameMinLodLevel() const override { return m_nameMinLod; }
    int GetNameMaxLodLevel() const override { return m_nameMaxLod; }
    void SetNameVisible(bool visible) override;
    bool IsNameVisible() const override { return m_nameVisible; }
    bool AttachMapObject(IZoGraphicsMapObject* object) override;
    bool ContainsMapObject(IZoGraphicsMapObject* object) override;
    bool DetachMapObject(IZoGraphicsMapObject* object) override;
    bool DetachAllMapObjects() override;
    bool DestroyAllMapObjects() override;
    int GetMapObjectCount() const override;
    void EnableShapeCache() override;
    bool IsShapeCacheEnabled() const override { return m_shapeCache; }
    void SetSecondShapeCache(bool enabled) override { m_secondShapeCache = enabled; }
    bool IsSecondShapeCache() const override { return m_secondShapeCache; }
    void SetLevelLimit(int level) override { m_levelLimit = level; }
    int GetLevelLimit() const override { return m_levelLimit; }
    bool IsSimplifyEnabled() const override { return false; }

    // The layer's objects in ascending id order, as they are now.
    std::vector<IZoGraphicsMapObject*> GetMapObjects() const;

    // The module that made the layer (null before Initialise).
    IZoGraphicsModule* GetGraphicsModule() const { return m_graphicsModule; }

    // The host's map module has ended: the layer no longer calls it, not even
    // to unregister.
    void ForgetMapModule() { m_mapModule = nullptr; }

    // Who keeps a name index of this layer: told when Initialise renames it.
    void SetNameObserver(IZoNameObserver* observer) { m_nameObserver = observer; }

    // Returns the counter and advances it; kept for hosts that number things
    // per layer.
    int NextCounter() { return m_counter++; }

    void SetLabelDeclutter(bool enabled) override;
    bool IsLabelDeclutter() const override { return m_declutter; }
    int GetPlacedLabelCount() const override { return m_labelsPlaced; }
    int GetDroppedLabelCount() const override { return m_labelsDropped; }
    bool IsArrangingLabels() const override { return m_declutter; }
    void ArrangeLabels() override;
    bool DrawsLabelsAbove() const override;
    void RepaintLabels() override;
    void NoteObjectZValue(int z) override;
    void InvalidateLabels() override;

    // Draws the labels placed by the last decision that meet exposed (scene
    // coordinates), deciding anew first if needed.
    void PaintLabels(QPainter* painter, const QRectF& exposed);
    // The scene deleted the label item (it went before the layer).
    void ForgetLabelItem();

    CZoHoverGrid& HoverGrid() override { return m_hoverGrid; }
    // Appends the layer's objects whose items may meet sceneRect and can be
    // hovered, building the hover grid first if a change dropped it.
    void CollectHoverCandidates(const QRectF& sceneRect, std::vector<CZoMapObjectCore*>* out);

    bool OnLodLevelChanged(int lod) override;
    bool OnViewScaleChanged(double scale) override;
    bool OnViewChanged() override;
    bool OnViewMoved() override;

private:
    // Calls f on every object in ascending id order, under the lock. Walks go
    // over a sorted copy of the table, made again after the table changes.
    template <class F>
    void ForEachObject(F f);
    const std::vector<IZoGraphicsMapObject*>& WalkLocked() const;
    // The walk's cores, null for objects a host made: looking a core up
    // costs a cast across the object's bases, too much for every object of
    // every frame.
    const std::vector<CZoMapObjectCore*>& WalkCoresLocked() const;
    // While decluttering in a scene, the layer's labels are drawn by an item
    // of their own, above every object of the layer; it covers the world.
    void UpdateLabelItem();
    void DropLabelItem();
    // Decides anew unless the last decision still stands and covers shown
    // (scene coordinates; null for every object).
    void ArrangeLabelsFor(const QRectF& shown);
    bool DecisionCovers(const QRectF& shown) const;
    // Where the map draws (0, 0), which the decided area keeps to.
    QPointF DecisionOrigin() const;
    // The labels the last decision placed: forgotten whenever an object may
    // have left, so that no label of a destroyed object is drawn.
    void ForgetPlacedLabels();

    struct SPlacedLabel
    {
        CZoMapObjectCore* core;
        QRectF box; // scene coordinates, halo included
    };


    std::string m_uuid;
    IZoMapModule* m_mapModule = nullptr;
    IZoGraphicsModule* m_graphicsModule = nullptr;
    int m_layerId = -1;
    std::string m_name;
    bool m_shapeCache = false;
    bool m_secondShapeCache = false;
    int m_levelLimit = 17;
    int m_counter = 101;
    bool m_visible = true;
    bool m_nameVisible = false;
    bool m_inScene = true;
    bool m_autoAdd = true;
    int m_zValue = 400;
    int m_minLod = 0;
    int m_maxLod = 21;
    int m_nameMinLod = 0;
    int m_nameMaxLod = 21;
    mutable CZoLock m_lock;
    TZoIdTable<IZoGraphicsMapObject> m_objects;
    mutable std::vector<IZoGraphicsMapObject*> m_walk;
    mutable std::vector<CZoMapObjectCore*> m_walkCores;
    mutable bool m_walkStale = true;
    IZoNameObserver* m_nameObserver = nullptr;
    bool m_declutter = false;
    bool m_labelsDirty = true;
    int m_labelsPlaced = 0;
    int m_labelsDropped = 0;
    std::vector<SPlacedLabel> m_placedLabels;
    bool m_decidedEverywhere = false;
    QRectF m_decidedArea;   // scene coordinates, when the origin was at
    QPointF m_decidedOrigin; // this scene point
    std::unique_ptr<CZoLayerLabelItem> m_labelItem;
    int m_labelZ = m_zValue; // the highest z value of the layer's objects
    CZoHoverGrid m_hoverGrid;
};
