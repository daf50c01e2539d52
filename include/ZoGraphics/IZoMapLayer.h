#pragma once

#include <ZoGraphics/IObject.h>

/// The host's general map layer (slots 0 to 18, IObject's included).
///
/// The graphics library's layers implement it. A layer groups map objects: its
/// visible switch and level-of-detail range apply on top of each object's own,
/// and its z value is the starting z value of the objects attached to it.
class ZOGRAPHICS_EXPORT IZoMapLayer : public IObject
{
public:
    /// Creates the interface part of a layer.
    IZoMapLayer() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoMapLayer(const IZoMapLayer&) = default;
    IZoMapLayer& operator=(const IZoMapLayer&) = default;
    /// @}
    /// Destroys the layer; the objects it refers to are not owned by it.
    ~IZoMapLayer() override;

    /// The layer's id, drawn from the object id counter when the layer is
    /// initialised; -1 before that.
    virtual int GetLayerID() const = 0;              // 3
    /// The layer's name as given when it was created (GB18030).
    virtual std::string GetLayerName() const = 0;    // 4
    /// Puts every object's item into the scene (true) or takes them out
    /// (false). Does nothing when the value is the current one or when the
    /// layer has no map module (before it is initialised).
    virtual void SetInScene(bool inScene) = 0;       // 5
    /// Whether the layer's items are in the scene; true by default.
    virtual bool IsInScene() const = 0;              // 6
    /// Whether objects attached to the layer go into the scene at once (and
    /// whether an object makes its item when it is initialised on the layer).
    virtual void SetAutoAdd(bool autoAdd) = 0;       // 7
    /// Whether attached objects go into the scene at once; true by default.
    virtual bool IsAutoAdd() const = 0;              // 8
    /// Sets the lowest level of detail at which the layer's objects show. Only
    /// stored: objects apply it when they next update their visibility (at
    /// the latest on the next level change).
    virtual void SetMinLodLevel(int level) = 0;      // 9
    /// Sets the highest level of detail at which the layer's objects show;
    /// only stored, like SetMinLodLevel().
    virtual void SetMaxLodLevel(int level) = 0;      // 10
    /// The lowest level of detail of the layer's range; 0 by default.
    virtual int GetMinLodLevel() const = 0;          // 11
    /// The highest level of detail of the layer's range; 21 by default.
    virtual int GetMaxLodLevel() const = 0;          // 12
    /// Stores the layer's visible switch and passes it to every object's
    /// SetVisible, overriding what was set on them one by one.
    virtual void SetVisible(bool visible) = 0;       // 13
    /// The layer's visible switch; true by default.
    virtual bool IsVisible() const = 0;              // 14
    /// Stores the layer's z value and gives it to every object, overriding
    /// their own z values and any stacking done on them.
    virtual void SetZValue(int z) = 0;               // 15
    /// The layer's z value, the starting z value of attached objects; 400 by
    /// default.
    virtual int GetZValue() const = 0;               // 16
    /// Reserved: holds the slot numbering and returns 0.
    virtual int ReservedLayerSlot17() const;         // 17: returns 0
    /// Reserved: holds the slot numbering and returns 0.
    virtual int ReservedLayerSlot18() const;         // 18: returns 0
};

/// The host's raster-capable layer; it adds no operations of its own here.
class ZOGRAPHICS_EXPORT IZoImageMapLayer : public IZoMapLayer
{
public:
    /// Creates the interface part of a layer.
    IZoImageMapLayer() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoImageMapLayer(const IZoImageMapLayer&) = default;
    IZoImageMapLayer& operator=(const IZoImageMapLayer&) = default;
    /// @}
    /// Destroys the layer.
    ~IZoImageMapLayer() override;
};
