#pragma once

#include <ZoGraphics/IZoMapLayer.h>

class IZoMapModule;
class IZoGraphicsModule;
class IZoGraphicsMapObject;

// A layer of graphic map objects (slots 19 to 40 after IZoMapLayer's).
class ZOGRAPHICS_EXPORT IZoGraphicsMapLayer : public IZoImageMapLayer
{
public:
    IZoGraphicsMapLayer() = default;
    IZoGraphicsMapLayer(const IZoGraphicsMapLayer&) = default;
    IZoGraphicsMapLayer& operator=(const IZoGraphicsMapLayer&) = default;
    ~IZoGraphicsMapLayer() override;

    virtual bool Initialise(const std::string& name, IZoMapModule* mapModule,
                            IZoGraphicsModule* graphicsModule) = 0;     // 19
    virtual void Unintialise() = 0;                                     // 20
    virtual void SetNameMinLodLevel(int level) = 0;                     // 21
    virtual void SetNameMaxLodLevel(int level) = 0;                     // 22
    virtual int GetNameMinLodLevel() const = 0;                         // 23
    virtual int GetNameMaxLodLevel() const = 0;                         // 24
    virtual void SetNameVisible(bool visible) = 0;                      // 25
    virtual bool IsNameVisible() const = 0;                             // 26
    virtual bool AttachMapObject(IZoGraphicsMapObject* object) = 0;     // 27
    virtual bool ContainsMapObject(IZoGraphicsMapObject* object) = 0;   // 28
    virtual bool DetachMapObject(IZoGraphicsMapObject* object) = 0;     // 29
    virtual bool DetachAllMapObjects() = 0;                             // 30
    virtual bool DestroyAllMapObjects() = 0;                            // 31
    virtual int GetMapObjectCount() const = 0;                          // 32
    virtual void EnableShapeCache() = 0;                                // 33
    virtual bool IsShapeCacheEnabled() const = 0;                       // 34
    virtual void SetSecondShapeCache(bool enabled) = 0;                 // 35
    virtual bool IsSecondShapeCache() const = 0;                        // 36
    virtual void SetLevelLimit(int level) = 0;                          // 37
    virtual int GetLevelLimit() const = 0;                              // 38
    virtual void ReservedLayerSlot39();                                 // 39: does nothing
    virtual bool IsSimplifyEnabled() const = 0;                         // 40
};
