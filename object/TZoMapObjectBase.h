#pragma once

#include "object/CZoMapObjectCore.h"
#include "object/IZoMapObjectInternal.h"

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <memory>

// The 59 base operations of every kind, forwarded to the shared core. A kind
// derives from TZoMapObjectBase<its interface, itself, its Qt item> and adds
// only its geometry; it overrides a base operation only where its behaviour
// really differs. Derived supplies:
//   static constexpr SZoObjectLogNames kLogNames;
//   CVector3D GetAnchor() const;       the geographic anchor (GetGeoAnchor
//                                      where the kind's interface already
//                                      gives GetAnchor another meaning)
//   QPointF ConvertAnchorToPixel();    the item position of the anchor
template <class Interface, class Derived, class Item>
class TZoMapObjectBase : public Interface, public IZoMapObjectInternal
{
public:
    TZoMapObjectBase() : m_kind(*this), m_core(*this, m_kind, Derived::kLogNames) {}
    TZoMapObjectBase(const TZoMapObjectBase&) = delete;
    TZoMapObjectBase& operator=(const TZoMapObjectBase&) = delete;

    bool Initialise(const std::string& name, IZoMapModule* mapModule, IZoMapLayer* layer) override
    {
        return m_core.Initialise(name, mapModule, layer);
    }
    void Unintialise() override { m_core.Unintialise(); }
    int GetObjectID() const override { return m_core.GetObjectID(); }
    std::string GetName() const override { return m_core.GetName(); }
    void SetMinLodLevel(int level) override { m_core.SetMinLodLevel(level); }
    int GetMinLodLevel() const override { return m_core.GetMinLodLevel(); }
    void SetMaxLodLevel(int level) override { m_core.SetMaxLodLevel(level); }
    int GetMaxLodLevel() const override { return m_core.GetMaxLodLevel(); }
    void SetMapLayer(IZoMapLayer* layer) override { m_core.SetMapLayer(layer); }
    IZoMapLayer* GetMapLayer() const override { return m_core.GetMapLayer(); }

    IZoMapModule* GetMapModule() const override { return m_core.GetMapModule(); }
    IZoGraphicsMapLayer* GetGraphicsMapLayer() const override { return m_core.GetGraphicsMapLayer(); }
    void SetName(const std::string& name) override { m_core.SetName(name); }
    void SetProperty(const std::string& key, const QVariant& value) override
    {
        if (m_core.AcceptsCallingThread("SetProperty"))
            m_core.Properties().SetProperty(key, value);
    }
    QVariant GetProperty(const std::string& key) const override { return m_core.Properties().GetProperty(key); }
    void SetUserData(int role, const QVariant& value) override
    {
        if (m_core.AcceptsCallingThread("SetUserData"))
            m_core.Properties().SetUserData(role, value);
    }
    QVariant GetUserData(int role) const override { return m_core.Properties().GetUserData(role); }
    void SetNameVisible(bool visible) override { m_core.SetNameVisible(visible); }
    bool IsNameVisible() const override { return m_core.IsNameVisible(); }
    void SetNameFont(const QFont& font) override { m_core.SetNameFont(font); }
    QFont GetNameFont() const override { return m_core.Label().font; }
    void SetNameColor(const QColor& color) override { m_core.SetNameColor(color); }
    QColor GetNameColor() const override { return m_core.Label().textColor; }
    void SetNameOutlineColor(const QColor& color) override { m_core.SetNameOutlineColor(color); }
    QColor GetNameOutlineColor() const override { return m_core.Label().outlineColor; }
    void SetNameOutlineWidth(double width) override { m_core.SetNameOutlineWidth(width); }
    double GetNameOutlineWidth() const override { return m_core.Label().outlineWidth; }
    void SetNameOffset(float offset) override { m_core.SetNameOffset(offset); }
    float GetNameOffset() const override { return m_core.Label().offset; }
    void SetNameMinLodLevel(int level) override { m_core.SetNameMinLodLevel(level); }
    int GetNameMinLodLevel() const override { return m_core.Label().minLod; }
    void SetNameMaxLodLevel(int level) override { m_core.SetNameMaxLodLevel(level); }
    int GetNameMaxLodLevel() const override { return m_core.Label().maxLod; }
    void SetZValue(int z) override { m_core.SetZValue(z); }
    int GetZValue() const override { return m_core.GetZValue(); }
    void SetInteractive(bool interactive) override { m_core.SetInteractive(interactive); }
    bool IsInteractive() const override { return m_core.IsInteractive(); }
    void SetVisible(bool visible) override { m_core.SetVisible(visible); }
    bool IsVisible() const override { return m_core.IsVisible(); }
    void SetAlwaysRebuild(bool always) override { m_core.SetAlwaysRebuild(always); }
    bool IsAlwaysRebuild() const override { return m_core.IsAlwaysRebuild(); }
    bool IsRotatable() const override { return false; }
    CAABB GetBoundingBox() const override { return m_core.AnchorBoundingBox(); }
    void SetRebuildThreshold(double threshold) override { m_core.SetRebuildThreshold(threshold); }
    double GetRebuildThreshold() const override { return m_core.GetRebuildThreshold(); }
    void SetEditAngle(double) override {}
    double GetEditAngle() const override { return 0.0; }
    void UpdateVisibility(int lod) override { m_core.UpdateVisibility(lod); }
    void SetResolution(double scale) override { m_core.SetResolution(scale); }
    void UpdatePosition() override { m_core.UpdatePosition(); }
    void PaintOnCanvas(QPainter* painter, CTileModel* converter, int level, CSpatialReference* target) override
    {
        m_core.PaintOnCanvas(painter, converter, level, target);
    }
    QGraphicsItem* GetQtItem() const override { return m_core.GetQtItem(); }
    bool IsInScene() const override { return m_core.IsInScene(); }
    void AddToScene() override { m_core.AddToScene(); }
    void RemoveFromScene() override { m_core.RemoveFromScene(); }
    void Rebuild(double scale) override { m_core.Rebuild(scale); }
    void Dirty() override { m_core.Dirty(); }
    void Update() override { m_core.Update(); }

    // For the kind's own code and its Qt item.
    CZoMapObjectCore& Core() final { return m_core; }
    const CZoMapObjectCore& Core() const final { return m_core; }
    Item* GetItem() const { return static_cast<Item*>(m_core.ItemImpl()); }

private:
    class Kind final : public CZoMapObjectCore::IKind
    {
    public:
        explicit Kind(TZoMapObjectBase& object) : m_object(object) {}
        std::unique_ptr<IZoGraphicsItemImpl> CreateItem() override
        {
            return std::make_unique<Item>(&static_cast<Derived&>(m_object));
        }
        CVector3D GetAnchor() const override { return GeoAnchorOf(static_cast<const Derived&>(m_object), 0); }
        QPointF AnchorToPixel() override { return static_cast<Derived&>(m_object).ConvertAnchorToPixel(); }
        bool ShapeFollowsPixelScaleOnly() const override { return FollowsScaleOnly<Derived>(0); }

    private:
        template <class D>
        static auto GeoAnchorOf(const D& object, int) -> decltype(object.GetGeoAnchor())
        {
            return object.GetGeoAnchor();
        }
        // Derived may state kShapeFollowsPixelScaleOnly; absent means false.
        template <class D>
        static constexpr auto FollowsScaleOnly(int) -> decltype(bool(D::kShapeFollowsPixelScaleOnly))
        {
            return D::kShapeFollowsPixelScaleOnly;
        }
        template <class D>
        static constexpr bool FollowsScaleOnly(long)
        {
            return false;
        }

        template <class D>
        static CVector3D GeoAnchorOf(const D& object, long)
        {
            return object.GetAnchor();
        }

        TZoMapObjectBase& m_object;
    };

    Kind m_kind;
    CZoMapObjectCore m_core;
};
