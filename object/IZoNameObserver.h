#pragma once

#include <string>

class IZoGraphicsMapObject;
class IZoGraphicsMapLayer;

// Told whenever a registered object or layer takes another name, so that the
// name index of its module answers for the new name at once.
class IZoNameObserver
{
public:
    virtual void OnObjectRenamed(IZoGraphicsMapObject& object, const std::string& oldName,
                                 const std::string& newName) = 0;
    virtual void OnLayerRenamed(IZoGraphicsMapLayer& layer, const std::string& oldName,
                                const std::string& newName) = 0;

protected:
    ~IZoNameObserver() = default;
};
