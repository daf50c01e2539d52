#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <string>

// Root of the host's layer interfaces: an object known by a UUID string.
class ZOGRAPHICS_EXPORT IObject
{
public:
    IObject() = default;
    IObject(const IObject&) = default;
    IObject& operator=(const IObject&) = default;

    virtual std::string GetUUID() const = 0;           // 0
    virtual void SetUUID(const std::string& uuid) = 0; // 1
    virtual ~IObject();                                // 2
};
