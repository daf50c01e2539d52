#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <string>

class IZoMapModule;
class IZoMapLayer;

// The host's general map object (11 slots).
class ZOGRAPHICS_EXPORT IZoMapObject
{
public:
    IZoMapObject() = default;
    IZoMapObject(const IZoMapObject&) = default;
    IZoMapObject& operator=(const IZoMapObject&) = default;
    virtual ~IZoMapObject();                                                                   // 0

    virtual bool Initialise(const std::string& name, IZoMapModule* mapModule, IZoMapLayer* layer) = 0; // 1
    virtual void Unintialise() = 0;                  // 2
    virtual int GetObjectID() const = 0;             // 3
    virtual std::string GetName() const = 0;         // 4: GB18030
    virtual void SetMinLodLevel(int level) = 0;      // 5
    virtual int GetMinLodLevel() const = 0;          // 6
    virtual void SetMaxLodLevel(int level) = 0;      // 7
    virtual int GetMaxLodLevel() const = 0;          // 8
    virtual void SetMapLayer(IZoMapLayer* layer) = 0; // 9
    virtual IZoMapLayer* GetMapLayer() const = 0;    // 10
};
