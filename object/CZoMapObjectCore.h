#pragma once

#include "object/CZoNameLabel.h"
#include "object/IZoGraphicsItemImpl.h"
#include "object/IZoLabelArranger.h"
#include "object/IZoNameObserver.h"
#include "layer/CZoHoverGrid.h"

#include <ZoGraphics/CZoVariantSetObject.h>
#include <ZoGraphics/ZoCoreTypes.h>

#include <QPointF>
#include <memory>
#include <string>

class QPainter;
class QGraphicsItem;
class CTileModel;
class CSpatialReference;
class IZoMapModule;
class IZoMapLayer;
class IZoGraphicsMapLayer;
class IZoGraphicsMapObject;

// Class names that a kind's log texts carry. Most texts name the class itself;
// a few deliberately name another class or method and are kept that way.
struct SZoObjectLogNames
{
    const char* className;
    const char* initialiseClass = nullptr; // class named by Initialise's text; null: className
    const char* setMaxLodMethod = "SetMaxLodLevel"; // method named by SetMaxLodLevel's text
    const char* anchorConvertMethod = "ConvertSceneToPixel"; // method named when the anchor fails to convert

    const char* InitialiseClass() const { return initialiseClass ? initialiseClass : className; }
};

// The state and behaviour every graphic map object shares: identity, layer,
// level of detail and visibility, name label, Qt item ownership and the
// refresh protocol. Kinds reach their own code through IKind.
class CZoMapObjectCore
{
public:
    class IKind
    {
    public:
        virtual std::unique_ptr<IZoGraphicsItemImpl> CreateItem() = 0;
        // Geographic anchor: what the item position and canvas painting follow.
        virtual CVector3D GetAnchor() const = 0;
        // Scene position of the anchor.
        virtual QPointF AnchorToPixel() = 0;
        // The shape is made of pixel sizes alone (times k): at the same k it
        // is the same shape, whatever the level.
        virtual bool ShapeFollowsPixelScaleOnly() const { return false; }

    protected:
        ~IKind() = default;
    };

    CZoMapObjectCore(IZoGraphicsMapObject& self, IKind& kind, const SZoObjectLogNames& names);
    ~CZoMapObjectCore();
    CZoMapObjectCore(const CZoMapObjectCore&) = delete;
    CZoMapObjectCore& operator=(const CZoMapObjectCore&) = delete;

    const SZoObjectLogNames& LogNames() const { return m_names; }

    bool Initialise(const std::string& name, IZoMapModule* mapModule, IZoMapLayer* layer);
    void Unintialise();

    int GetObjectID() const { return m_objectId; }
    std::string GetName() const;
    void SetMinLodLevel(int level);
    int GetMinLodLevel() const { return m_minLod; }
    void SetMaxLodLevel(int level);
    int GetMaxLodLevel() const { return m_maxLod; }
    // The graphics layer follows the map layer, so that an object whose layer
    // goes away stops consulting it.
    void SetMapLayer(IZoMapLayer* layer);
    IZoMapLayer* GetMapLayer() const { return m_mapLayer; }
    IZoMapModule* GetMapModule() const { return m_mapModule; }
    IZoGraphicsMapLayer* GetGraphicsMapLayer() const { return m_graphicsLayer; }

    void SetName(const std::string& name);
    // Who keeps a name index of this object: told of every rename.
    void SetNameObserver(IZoNameObserver* observer) { m_nameObserver = observer; }
    // Set by a decluttering layer: the label would overlap one of higher
    // priority and is not drawn in the scene.
    void SetLabelDecluttered(bool decluttered) { m_labelDecluttered = decluttered; }
    bool IsLabelDecluttered() const { return m_labelDecluttered; }
    // Set by a decluttering layer: where the label is drawn in screen pixels,
    // relative to where the object's own placement puts it.
    void SetLabelShift(const QPointF& shift)
    {
        m_labelShiftX = static_cast<float>(shift.x());
        m_labelShiftY = static_cast<float>(shift.y());
    }
    QPointF LabelShift() const { return QPointF(m_labelShiftX, m_labelShiftY); }
    // The label may have moved or changed: a decluttering layer decides anew.
    void InvalidateLabels()
    {
        if (m_labelArranger)
            m_labelArranger->InvalidateLabels();
    }
    CZoVariantSetObject& Properties() { return m_properties; }
    const CZoVariantSetObject& Properties() const { return m_properties; }

    void SetNameVisible(bool visible);
    bool IsNameVisible() const;
    void SetNameFont(const QFont& font);
    void SetNameColor(const QColor& color);
    void SetNameOutlineColor(const QColor& color);
    void SetNameOutlineWidth(double width);
    void SetNameOffset(float offset);
    void SetNameMinLodLevel(int level);
    void SetNameMaxLodLevel(int level);
    CZoNameLabel& Label() { return m_label; }
    const CZoNameLabel& Label() const { return m_label; }

    void SetZValue(int z);
    int GetZValue() const { return m_zValue; }
    void SetInteractive(bool interactive);
    bool IsInteractive() const { return m_interactive; }
    void SetVisible(bool visible);
    bool IsVisible() const;
    bool IsShown() const { return m_shown; }
    void SetAlwaysRebuild(bool always);
    bool IsAlwaysRebuild() const { return m_alwaysRebuild; }
    void SetRebuildThreshold(double threshold);
    double GetRebuildThreshold() const { return m_rebuildThreshold; }

    // Degenerate box at the anchor: (x, y, -1) to (x, y, 1).
    CAABB AnchorBoundingBox() const;

    void UpdateVisibility(int lod);
    void SetResolution(double scale);
    void UpdatePosition();
    void PaintOnCanvas(QPainter* painter, CTileModel* converter, int level, CSpatialReference* target);

    QGraphicsItem* GetQtItem() const;
    IZoGraphicsItemImpl* ItemImpl() const { return m_item.get(); }
    bool IsInScene() const { return m_inScene; }
    void AddToScene();
    void RemoveFromScene();
    void Rebuild(double scale);
    void Dirty();
    void Update();

    // k: scene units per pixel, 1 / the host's view scale.
    double PixelScale() const { return m_pixelScale; }
    // The shape cache holds: unforced rebuilds and paints are skipped.
    bool IsSuppressed() const;
    // The host's current level of detail, 0 without a map module.
    int CurrentLod() const;
    // Geographic point to scene pixels through the map module; a failure logs
    // "[Class::<method>] ConvertSceneToPixel失败" and gives (0, 0). A longitude
    // past +-180 is the same meridian in the world, a latitude past a pole
    // lies at the map's edge; either is noted once for each point converted.
    QPointF ConvertGeoToScenePixel(const CVector3D& point, const char* method) const;
    // prepareGeometryChange on the item while the object is in the scene.
    void PrepareGeometryChange();
    // Announces a geometry change when the shape cache's hold on the object
    // would change under these switches: call it before changing them.
    void AnnounceHold(bool shapeCache, bool always, double threshold);
    // True while a rebuild runs whose geometry change has been announced
    // already: the item need not call prepareGeometryChange again.
    bool IsGeometryChangeAnnounced() const { return m_geometryAnnounced; }
    // Asks the item for a shape rebuild and a repaint.
    void RebuildAndRepaint(bool forced);
    void RelayoutNameAndRepaint(bool forced);
    void EnsureItem();
    // The item was deleted by someone else (its scene, going away).
    void ForgetDeletedItem(const IZoGraphicsItemImpl* item);
    // The host's map module has ended: nothing may call it any more. The
    // item stays where it is; a dying scene deletes it (ForgetDeletedItem).
    void ForgetMapModule() { m_mapModule = nullptr; }
    // The item moved or turned, or is about to change its shape: the layer's
    // hover grid follows.
    void NoteItemMoved();
    void NoteItemShapeChanging();
    // Where the layer's hover grid holds the item.
    SZoGridPlace& GridPlace() { return m_gridPlace; }
    // Items added to a scene later lie above others of the same z value.
    quint32 SceneOrder() const { return m_sceneOrder; }
    // Whether the calling thread may run method; see ZoAcceptsCallingThread.
    bool AcceptsCallingThread(const char* method) const;
    // Draws a label placed in item pixels when it shows at lod: the painter
    // is scaled by s first, so the label keeps its on-screen size. Every
    // kind's paint goes through here, whatever label record it draws.
    void PaintName(QPainter* painter, const CZoNameLabel& label, double s, int lod) const;
    // Draws the object's own label where the layer's decision puts it, for a
    // layer that draws its labels above its objects: the painter maps scene
    // coordinates.
    void PaintLabelAbove(QPainter* painter) const;

private:
    bool LabelWaitsForItsLevels() const;
    void ApplyInteractive();
    // The label at pixel scale s, moved by the layer's shift when shifted.
    void DrawLabel(QPainter* painter, const CZoNameLabel& label, double s, bool shifted) const;
    // Lets go of the item, now or, while Qt delivers an item event, later.
    void DisposeItem();

    // Pointers first, then numbers, then switches: a large display holds one
    // core per object, and padding between mixed fields adds up.
    IZoGraphicsMapObject& m_self;
    IKind& m_kind;
    const SZoObjectLogNames& m_names;
    IZoNameObserver* m_nameObserver = nullptr;
    IZoLabelArranger* m_labelArranger = nullptr;
    CZoHoverGrid* m_hoverGrid = nullptr;
    // The last point ConvertGeoToScenePixel noted, kept only while it lies
    // outside the world (rare): points inside need no note.
    mutable std::unique_ptr<CVector3D> m_notedOutside;
    IZoMapLayer* m_mapLayer = nullptr;
    IZoMapModule* m_mapModule = nullptr;
    IZoGraphicsMapLayer* m_graphicsLayer = nullptr;
    std::unique_ptr<IZoGraphicsItemImpl> m_item;
    CZoVariantSetObject m_properties;

    double m_pixelScale = 0.0;
    double m_rebuildThreshold = -1.0;
    float m_labelShiftX = 0.0f;
    float m_labelShiftY = 0.0f;
    int m_objectId = -1;
    int m_minLod = 0;
    int m_maxLod = 21;
    int m_zValue = 0;
    quint32 m_sceneOrder = 0;
    SZoGridPlace m_gridPlace;

    bool m_labelDecluttered = false;
    bool m_labelShown = false; // as UpdateVisibility last found it
    bool m_geometryAnnounced = false;
    bool m_interactive = false;
    bool m_visible = true;
    bool m_shown = true;
    bool m_alwaysRebuild = false;
    bool m_inScene = false;
    // The item's shape and label were last rebuilt whole, forced, at
    // m_pixelScale, the label placed; any rebuild that may have been skipped
    // since clears it.
    bool m_shapeFresh = false;
    CZoNameLabel m_label;
};
