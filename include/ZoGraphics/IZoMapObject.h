#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <string>

class IZoMapModule;
class IZoMapLayer;

/// The host's general map object (11 slots).
///
/// Every graphic map object of the library implements it. Objects are made,
/// initialised and deleted by the graphics module; a user calls these
/// operations on objects the module handed out. Failure messages name the
/// object's own class, written `Class` below.
class ZOGRAPHICS_EXPORT IZoMapObject
{
public:
    /// Creates the interface part of an object.
    IZoMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoMapObject(const IZoMapObject&) = default;
    IZoMapObject& operator=(const IZoMapObject&) = default;
    /// @}
    /// Destroys the object; its Qt item is taken out of the scene first.
    virtual ~IZoMapObject();                                                                   // 0

    /// Binds the object to a map module and a layer. It draws its object id,
    /// takes the layer's z value, sets the name (GB18030), makes the Qt item
    /// and puts it into the scene when the layer adds automatically, and
    /// applies the module's level of detail and view scale.
    /// @return false with a null map module, logging
    ///         "[Class::Initialise] MapModule传入为空" (the dot names
    ///         CZoTextMapObject there); false without a message for a null layer.
    virtual bool Initialise(const std::string& name, IZoMapModule* mapModule, IZoMapLayer* layer) = 0; // 1
    /// Takes the item out of the scene, deletes it and forgets the map module
    /// and the layer. The id, the name and the settings stay.
    virtual void Unintialise() = 0;                  // 2
    /// The object id, unique in the process; -1 before Initialise().
    virtual int GetObjectID() const = 0;             // 3
    /// The object's name in the GB18030 code page.
    virtual std::string GetName() const = 0;         // 4: GB18030
    /// Sets the lowest level of detail at which the object shows (0 by
    /// default) and updates its visibility. Without a map module the value is
    /// stored and "[Class::SetMinLodLevel] MapModule模块未初始化设置" is logged.
    virtual void SetMinLodLevel(int level) = 0;      // 5
    /// The lowest level of detail at which the object shows.
    virtual int GetMinLodLevel() const = 0;          // 6
    /// Sets the highest level of detail at which the object shows (21 by
    /// default) and updates its visibility. Without a map module the value is
    /// stored and "[Class::SetMaxLodLevel] MapModule模块未初始化设置" is logged
    /// (the dot and the mark point write SetMinLodLevel in that text).
    virtual void SetMaxLodLevel(int level) = 0;      // 7
    /// The highest level of detail at which the object shows.
    virtual int GetMaxLodLevel() const = 0;          // 8
    /// Sets the layer whose visibility and level-of-detail settings the
    /// object follows; null leaves it without one. It does not attach the
    /// object to the layer (the graphics module does that). Not owned.
    virtual void SetMapLayer(IZoMapLayer* layer) = 0; // 9
    /// The layer given to Initialise() or SetMapLayer(); null if none.
    virtual IZoMapLayer* GetMapLayer() const = 0;    // 10
};
