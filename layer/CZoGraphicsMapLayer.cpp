#include "layer/CZoGraphicsMapLayer.h"

#include "object/ZoLogText.h"

#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/IZoGraphicsModule.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/ZoCoreUtility.h>

namespace
{
constexpr const char* kClassName = "CZoGraphicsMapLayer";
}

CZoGraphicsMapLayer::CZoGraphicsMapLayer() = default;
// The module's teardown deletes layers without uninitialising them; a layer
// must not stay behind in the map module's handler list once it is gone.
CZoGraphicsMapLayer::~CZoGraphicsMapLayer()
{
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
    return true;
}

void CZoGraphicsMapLayer::Unintialise()
{
    if (m_mapModule)
        m_mapModule->UnregisterEventHandler(static_cast<IZoMapEventHandler*>(this));
    {
        CZoLockGuard guard(m_lock);
        m_objects.clear();
    }
    m_mapModule = nullptr;
}

void CZoGraphicsMapLayer::ForEachObject(const std::function<void(IZoGraphicsMapObject*)>& f)
{
    CZoLockGuard guard(m_lock);
    for (const auto& entry : m_objects)
        f(entry.second);
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
        if (!m_objects.emplace(object->GetObjectID(), object).second)
            return true;
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
    return m_objects.count(object->GetObjectID()) != 0;
}

bool CZoGraphicsMapLayer::DetachMapObject(IZoGraphicsMapObject* object)
{
    if (!object)
        return false;
    CZoLockGuard guard(m_lock);
    if (m_objects.empty())
        return true;
    const auto found = m_objects.find(object->GetObjectID());
    if (found == m_objects.end())
        return true;
    m_objects.erase(found);
    guard.Unlock();
    object->RemoveFromScene();
    return true;
}

bool CZoGraphicsMapLayer::DetachAllMapObjects()
{
    CZoLockGuard guard(m_lock);
    for (const auto& entry : m_objects)
        entry.second->RemoveFromScene();
    m_objects.clear();
    return true;
}

bool CZoGraphicsMapLayer::DestroyAllMapObjects()
{
    if (!m_graphicsModule)
        return false;
    std::map<int, IZoGraphicsMapObject*> objects;
    {
        // Moving the map out first lets DestroyGraphicsMapObject detach each
        // object from this layer without finding it again.
        CZoLockGuard guard(m_lock);
        objects.swap(m_objects);
    }
    for (const auto& entry : objects)
        m_graphicsModule->DestroyGraphicsMapObject(entry.second);
    return true;
}

int CZoGraphicsMapLayer::GetMapObjectCount() const
{
    CZoLockGuard guard(m_lock);
    return static_cast<int>(m_objects.size());
}

bool CZoGraphicsMapLayer::OnLodLevelChanged(int lod)
{
    ForEachObject([lod](IZoGraphicsMapObject* object) { object->UpdateVisibility(lod); });
    return false;
}

bool CZoGraphicsMapLayer::OnViewScaleChanged(double scale)
{
    ForEachObject([scale](IZoGraphicsMapObject* object) { object->SetResolution(scale); });
    return false;
}

bool CZoGraphicsMapLayer::OnViewChanged()
{
    ForEachObject([](IZoGraphicsMapObject* object) { object->UpdatePosition(); });
    return false;
}

bool CZoGraphicsMapLayer::OnViewMoved()
{
    ForEachObject([](IZoGraphicsMapObject* object) { object->UpdatePosition(); });
    return false;
}
