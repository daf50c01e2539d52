#pragma once

#include <ZoGraphics/IZoGraphicsMapLayer.h>

// A layer that asks its objects to thin their outlines in screen space,
// which the library's own layer never does; everything else goes to a real
// layer.
class CSimplifyingLayer final : public IZoGraphicsMapLayer
{
public:
    explicit CSimplifyingLayer(IZoGraphicsMapLayer* real) : m_real(real) {}

    std::string GetUUID() const override { return m_real->GetUUID(); }
    void SetUUID(const std::string& uuid) override { m_real->SetUUID(uuid); }
    int GetLayerID() const override { return m_real->GetLayerID(); }
    std::string GetLayerName() const override { return m_real->GetLayerName(); }
    void SetInScene(bool inScene) override { m_real->SetInScene(inScene); }
    bool IsInScene() const override { return m_real->IsInScene(); }
    void SetAutoAdd(bool autoAdd) override { m_real->SetAutoAdd(autoAdd); }
    bool IsAutoAdd() const override { return m_real->IsAutoAdd(); }
    void SetMinLodLevel(int level) override { m_real->SetMinLodLevel(level); }
    void SetMaxLodLevel(int level) override { m_real->SetMaxLodLevel(level); }
    int GetMinLodLevel() const override { return m_real->GetMinLodLevel(); }
    int GetMaxLodLevel() const override { return m_real->GetMaxLodLevel(); }
    void SetVisible(bool visible) override { m_real->SetVisible(visible); }
    bool IsVisible() const override { return m_real->IsVisible(); }
    void SetZValue(int z) override { m_real->SetZValue(z); }
    int GetZValue() const override { return m_real->GetZValue(); }
    bool Initialise(const std::string& name, IZoMapModule* map, IZoGraphicsModule* graphics) override
    {
        return m_real->Initialise(name, map, graphics);
    }
    void Unintialise() override { m_real->Unintialise(); }
    void SetNameMinLodLevel(int level) override { m_real->SetNameMinLodLevel(level); }
    void SetNameMaxLodLevel(int level) override { m_real->SetNameMaxLodLevel(level); }
    int GetNameMinLodLevel() const override { return m_real->GetNameMinLodLevel(); }
    int GetNameMaxLodLevel() const override { return m_real->GetNameMaxLodLevel(); }
    void SetNameVisible(bool visible) override { m_real->SetNameVisible(visible); }
    bool IsNameVisible() const override { return m_real->IsNameVisible(); }
    bool AttachMapObject(IZoGraphicsMapObject* object) override { return m_real->AttachMapObject(object); }
    bool ContainsMapObject(IZoGraphicsMapObject* object) override { return m_real->ContainsMapObject(object); }
    bool DetachMapObject(IZoGraphicsMapObject* object) override { return m_real->DetachMapObject(object); }
    bool DetachAllMapObjects() override { return m_real->DetachAllMapObjects(); }
    bool DestroyAllMapObjects() override { return m_real->DestroyAllMapObjects(); }
    int GetMapObjectCount() const override { return m_real->GetMapObjectCount(); }
    void EnableShapeCache() override { m_real->EnableShapeCache(); }
    bool IsShapeCacheEnabled() const override { return m_real->IsShapeCacheEnabled(); }
    void SetSecondShapeCache(bool enabled) override { m_real->SetSecondShapeCache(enabled); }
    bool IsSecondShapeCache() const override { return m_real->IsSecondShapeCache(); }
    void SetLevelLimit(int level) override { m_real->SetLevelLimit(level); }
    int GetLevelLimit() const override { return m_real->GetLevelLimit(); }
    bool IsSimplifyEnabled() const override { return true; }

private:
    IZoGraphicsMapLayer* m_real;
};
