#pragma once

#include <ZoGraphics/IObject.h>

// The host's general map layer (slots 0 to 18, IObject's included).
class ZOGRAPHICS_EXPORT IZoMapLayer : public IObject
{
public:
    IZoMapLayer() = default;
    IZoMapLayer(const IZoMapLayer&) = default;
    IZoMapLayer& operator=(const IZoMapLayer&) = default;
    ~IZoMapLayer() override;

    virtual int GetLayerID() const = 0;              // 3
    virtual std::string GetLayerName() const = 0;    // 4
    virtual void SetInScene(bool inScene) = 0;       // 5
    virtual bool IsInScene() const = 0;              // 6
    virtual void SetAutoAdd(bool autoAdd) = 0;       // 7
    virtual bool IsAutoAdd() const = 0;              // 8
    virtual void SetMinLodLevel(int level) = 0;      // 9
    virtual void SetMaxLodLevel(int level) = 0;      // 10
    virtual int GetMinLodLevel() const = 0;          // 11
    virtual int GetMaxLodLevel() const = 0;          // 12
    virtual void SetVisible(bool visible) = 0;       // 13
    virtual bool IsVisible() const = 0;              // 14
    virtual void SetZValue(int z) = 0;               // 15
    virtual int GetZValue() const = 0;               // 16
    virtual int ReservedLayerSlot17() const;         // 17: returns 0
    virtual int ReservedLayerSlot18() const;         // 18: returns 0
};

// The host's raster-capable layer; it adds no operations of its own here.
class ZOGRAPHICS_EXPORT IZoImageMapLayer : public IZoMapLayer
{
public:
    IZoImageMapLayer() = default;
    IZoImageMapLayer(const IZoImageMapLayer&) = default;
    IZoImageMapLayer& operator=(const IZoImageMapLayer&) = default;
    ~IZoImageMapLayer() override;
};
