#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <string>

/// Root of the host's layer interfaces: an object known by a UUID string.
///
/// The library's layers carry the string for the host and never read it
/// themselves.
class ZOGRAPHICS_EXPORT IObject
{
public:
    /// Creates the interface part of an object.
    IObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IObject(const IObject&) = default;
    IObject& operator=(const IObject&) = default;
    /// @}

    /// The UUID string last given to SetUUID(); empty until then.
    virtual std::string GetUUID() const = 0;           // 0
    /// Replaces the UUID string. Any text is accepted, empty included; it is
    /// not checked for form or uniqueness.
    virtual void SetUUID(const std::string& uuid) = 0; // 1
    /// Virtual, so that an object may be deleted through this interface.
    virtual ~IObject();                                // 2
};
