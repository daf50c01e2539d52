#pragma once

class CZoMapObjectCore;
class IZoGraphicsMapObject;

// The library's own side of every map object it makes: what the module and
// the layer need beyond the exported interface. Objects a host implements
// itself have none, so callers reach it through ZoObjectCore.
class IZoMapObjectInternal
{
public:
    virtual CZoMapObjectCore& Core() = 0;
    virtual const CZoMapObjectCore& Core() const = 0;

protected:
    ~IZoMapObjectInternal() = default;
};

// The core of an object made by this library; null for foreign objects.
CZoMapObjectCore* ZoObjectCore(IZoGraphicsMapObject* object);
