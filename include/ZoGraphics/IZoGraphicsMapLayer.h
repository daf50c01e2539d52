#pragma once

#include <ZoGraphics/IZoMapLayer.h>

class IZoMapModule;
class IZoGraphicsModule;
class IZoGraphicsMapObject;

/// A layer of graphic map objects (slots 19 to 40 after IZoMapLayer's).
///
/// Layers are made, owned and destroyed by the graphics module
/// (IZoGraphicsModule::CreateGraphicsLayer, IZoGraphicsModule::DestroyGraphicsLayer).
/// A layer refers to its objects without owning them. Its visible switch and
/// level range apply on top of each object's own, it has a second level range
/// and a switch for the objects' names, and it passes the map's changes of
/// level, scale and view on to every object (it is an IZoMapEventHandler of
/// the map module from Initialise() until Unintialise() or its deletion).
/// Layers made by the module also implement IZoLabelDeclutter.
///
/// Operations that visit every object hold the layer's lock and visit them
/// in ascending object id order; the layer may be used from more than one
/// thread, but anything that reaches the objects' Qt items belongs on the GUI
/// thread.
class ZOGRAPHICS_EXPORT IZoGraphicsMapLayer : public IZoImageMapLayer
{
public:
    /// Creates the interface part of a layer.
    IZoGraphicsMapLayer() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoGraphicsMapLayer(const IZoGraphicsMapLayer&) = default;
    IZoGraphicsMapLayer& operator=(const IZoGraphicsMapLayer&) = default;
    /// @}
    /// Destroys the layer and withdraws it from the map module's event
    /// handlers; the objects it refers to are not destroyed.
    ~IZoGraphicsMapLayer() override;

    /// Names the layer, draws a new layer id and registers the layer with
    /// `mapModule` as an event handler; the module's CreateGraphicsLayer does
    /// this, hosts do not. A null `mapModule` logs
    /// "[CZoGraphicsMapLayer::Initialise] MapModule传入为空" and returns false.
    /// `graphicsModule` may be null, but then DestroyAllMapObjects() fails.
    virtual bool Initialise(const std::string& name, IZoMapModule* mapModule,
                            IZoGraphicsModule* graphicsModule) = 0;     // 19
    /// Withdraws the layer from the map module's event handlers and forgets
    /// its objects without detaching or destroying them (their items stay in
    /// the scene). The module's DestroyGraphicsLayer calls it.
    virtual void Unintialise() = 0;                                     // 20
    /// Sets the lowest level of detail at which the objects' names show, on
    /// top of each object's own name range. Only stored: it takes effect as
    /// the objects next lay out and paint their names.
    virtual void SetNameMinLodLevel(int level) = 0;                     // 21
    /// Sets the highest level of detail at which the objects' names show;
    /// only stored, like SetNameMinLodLevel().
    virtual void SetNameMaxLodLevel(int level) = 0;                     // 22
    /// The lowest level of the names' range; 0 by default.
    virtual int GetNameMinLodLevel() const = 0;                         // 23
    /// The highest level of the names' range; 21 by default.
    virtual int GetNameMaxLodLevel() const = 0;                         // 24
    /// Stores the names' switch and passes it to every object's
    /// `SetNameVisible`, overriding what was set on them one by one.
    virtual void SetNameVisible(bool visible) = 0;                      // 25
    /// The names' switch as last set on the layer; false by default.
    virtual bool IsNameVisible() const = 0;                             // 26
    /// Adds `object` to the layer (by its object id, not owned), puts its item
    /// into the scene when the layer adds automatically, and gives it the
    /// layer's z value. An object already on the layer is left as it is.
    /// Returns false only for a null `object`. It does not change the layer
    /// the object reports; the module's creators attach every new object.
    virtual bool AttachMapObject(IZoGraphicsMapObject* object) = 0;     // 27
    /// Whether an object with `object`'s id is on the layer; false for null.
    virtual bool ContainsMapObject(IZoGraphicsMapObject* object) = 0;   // 28
    /// Takes `object` off the layer and its item out of the scene; an object
    /// that is not on the layer is left alone. Returns false only for null.
    virtual bool DetachMapObject(IZoGraphicsMapObject* object) = 0;     // 29
    /// Takes every object off the layer and its item out of the scene; the
    /// objects stay alive and registered with the module. Always true.
    virtual bool DetachAllMapObjects() = 0;                             // 30
    /// Destroys every object of the layer through the module's
    /// DestroyGraphicsMapObject, in ascending id order, and returns true.
    /// Without a graphics module it returns false and keeps the objects.
    virtual bool DestroyAllMapObjects() = 0;                            // 31
    /// The number of objects on the layer.
    virtual int GetMapObjectCount() const = 0;                          // 32
    /// Turns the shape cache on, for good: then an object whose rebuild
    /// threshold lies strictly between -1 and 12 and that is not set to
    /// always rebuild keeps its cached shape on unforced rebuilds and is not
    /// painted (see IZoGraphicsMapObject::SetRebuildThreshold).
    virtual void EnableShapeCache() = 0;                                // 33
    /// Whether EnableShapeCache() was called; false by default.
    virtual bool IsShapeCacheEnabled() const = 0;                       // 34
    /// Sets the second cache switch, which governs where names may go: when
    /// on, a name centred in a shape is drawn only if it starts inside the
    /// shape's box, and a line's name is left out where it is longer than its
    /// segment.
    virtual void SetSecondShapeCache(bool enabled) = 0;                 // 35
    /// The second cache switch; false by default.
    virtual bool IsSecondShapeCache() const = 0;                        // 36
    /// Stores a level limit for the host; nothing in the library reads it.
    virtual void SetLevelLimit(int level) = 0;                          // 37
    /// The stored level limit; 17 by default.
    virtual int GetLevelLimit() const = 0;                              // 38
    /// Reserved: holds the slot numbering and does nothing.
    virtual void ReservedLayerSlot39();                                 // 39: does nothing
    /// Whether the layer's polylines and polygons (single and multi) thin
    /// their outlines in screen space before drawing. Always false for the
    /// module's layers.
    virtual bool IsSimplifyEnabled() const = 0;                         // 40
};
