#pragma once

#include "module/TZoNameIndex.h"
#include "object/CZoLock.h"
#include "object/IZoNameObserver.h"

#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/IZoGraphicsMapObject.h>

// The module's name indexes of objects and layers, each guarded by the lock
// of the registry it mirrors, and kept current through renames.
class CZoModuleNames final : public IZoNameObserver
{
public:
    CZoModuleNames(CZoLock& objectLock, CZoLock& layerLock) : m_objectLock(objectLock), m_layerLock(layerLock) {}
    CZoModuleNames(const CZoModuleNames&) = delete;
    CZoModuleNames& operator=(const CZoModuleNames&) = delete;

    void OnObjectRenamed(IZoGraphicsMapObject& object, const std::string& oldName,
                         const std::string& newName) override
    {
        CZoLockGuard guard(m_objectLock);
        objects.Erase(oldName, &object);
        objects.Insert(newName, object.GetObjectID(), &object);
    }

    void OnLayerRenamed(IZoGraphicsMapLayer& layer, const std::string& oldName, const std::string& newName) override
    {
        CZoLockGuard guard(m_layerLock);
        layers.Erase(oldName, &layer);
        layers.Insert(newName, layer.GetLayerID(), &layer);
    }

    // Touched only under the matching lock.
    TZoNameIndex<IZoGraphicsMapObject> objects;
    TZoNameIndex<IZoGraphicsMapLayer> layers;

private:
    CZoLock& m_objectLock;
    CZoLock& m_layerLock;
};
