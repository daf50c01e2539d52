#pragma once

/// @file
/// The graphics module's interface, the name of the default layer, and the
/// process-wide module pointer a host may publish.

#include <ZoGraphics/ZoGraphicsExport.h>

#include <string>
#include <vector>

class IZoGraphicsMapLayer;
class IZoGraphicsMapObject;
class IZoGraphicsEditObject;
class IZoTextMapObject;
class IZoWidgetMapObject;
class IZoBubbleMapObject;
class IZoSVGMapObject;
class IZoDotMapObject;
class IZoCircleMapObject;
class IZoEllipseMapObject;
class IZoRectangleMapObject;
class IZoPolygonMapObject;
class IZoMarkPointMapObject;
class IZoPolylineMapObject;
class IZoBowMapObject;
class IZoMultiDotMapObject;
class IZoMultiPolygonMapObject;
class IZoMultiLineMapObject;
class IZoLayerCanvasMapObject;

/// Name of the layer that Initialise creates and that creators use when they
/// are given no layer: "Zo.DefaultGraphicsLayer" (the spelling DEAFULT is
/// part of the exported name).
ZOGRAPHICS_EXPORT extern const std::string STR_DEAFULT_GRAPHICS_LAYER_NAME;

/// The graphics module: factory and registry of layers, map objects and edit
/// objects (52 slots).
///
/// CZoGraphicsModule implements it; initialise that with the host's map
/// module before anything here is used. The module owns every layer and map
/// object it creates: they are made only by its creators and ended only by
/// its destroyers (or its teardown). Edit objects are handed to the caller,
/// who gives them back with DestroyGraphicsEditObject().
///
/// Creators take a name (GB18030) and a layer; a null layer means the default
/// layer. A new object takes its layer's z value, goes into the scene when
/// the layer adds automatically, and is registered under its object id.
/// A creator returns null, logs its "初始化失败" line (quoted on each creator)
/// and leaves no trace when the object cannot be initialised: when the module
/// has no map module (before Initialise, or initialised with null; the object
/// logs its own `Initialise` line first), or when there is no layer (null
/// given and no default layer).
///
/// Names need not be unique. Lookups by name compare it exactly, byte for
/// byte, follow renames, and return the object created first among those
/// with the name; typed lookups pass over objects of other kinds. Lookups log
/// nothing, and destroyers ignore null.
///
/// The registries are guarded by locks, so lookups may come from other
/// threads; creating, destroying and stacking touch Qt items and belong on
/// the GUI thread: called from another thread they are refused (with a
/// logged text in release builds, an assertion in debug builds).
class ZOGRAPHICS_EXPORT IZoGraphicsModule
{
public:
    /// Creates the interface part of a module.
    IZoGraphicsModule() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoGraphicsModule(const IZoGraphicsModule&) = default;
    IZoGraphicsModule& operator=(const IZoGraphicsModule&) = default;
    /// @}
    /// Virtual, so that a module may be deleted through this interface.
    virtual ~IZoGraphicsModule();                                                          // 0

    /// The layer that Initialise made, named STR_DEAFULT_GRAPHICS_LAYER_NAME.
    /// Null before Initialise, when it could not be made (no map module),
    /// after it was given to DestroyGraphicsLayer(), and after Unintialise.
    virtual IZoGraphicsMapLayer* GetDeafultGraphicsLayer() const = 0;                       // 1
    /// Creates and registers a layer named `name` on the module's map module;
    /// other layers may carry the same name. Without a map module it returns
    /// null, after "[CZoGraphicsMapLayer::Initialise] MapModule传入为空" and
    /// "[CZoGraphicsModule::CreateGraphicsLayer] 初始化失败".
    virtual IZoGraphicsMapLayer* CreateGraphicsLayer(const std::string& name) = 0;          // 2
    /// The first-created layer named `name`; null if none.
    virtual IZoGraphicsMapLayer* LookupGraphicsLayer(const std::string& name) const = 0;    // 3
    /// Unregisters, uninitialises and deletes `layer`; null is ignored. A
    /// layer that another module made is refused with a logged text. Its objects
    /// are not destroyed: they stay registered without a layer, so destroy
    /// them first (IZoGraphicsMapLayer::DestroyAllMapObjects). Destroying the
    /// default layer leaves the module without one.
    virtual void DestroyGraphicsLayer(IZoGraphicsMapLayer* layer) = 0;                      // 4
    /// Creates a translate ball, the gadget that moves an object with the
    /// mouse, on `layer` (null: the default layer). It joins the map module's
    /// event handlers and is not registered with the module. Null on failure,
    /// logging "[CZoGraphicsModule::CreateTranslateEditObject] 初始化失败".
    virtual IZoGraphicsEditObject* CreateTranslateEditObject(IZoGraphicsMapLayer* layer) = 0;   // 5
    /// Creates a rotation axis, the gadget that turns an object, like
    /// CreateTranslateEditObject(). Null on failure, logging
    /// "[CZoGraphicsModule::CreateRotationEditObject] 初始化失败".
    virtual IZoGraphicsEditObject* CreateRotationEditObject(IZoGraphicsMapLayer* layer) = 0;    // 6
    /// Creates a scale box, the gadget that resizes an object by its corners
    /// and edges, like CreateTranslateEditObject(). Null on failure, logging
    /// "[CZoGraphicsModule::CreateScaleEditObject] 初始化失败".
    virtual IZoGraphicsEditObject* CreateScaleEditObject(IZoGraphicsMapLayer* layer) = 0;       // 7
    /// Creates a key-point set, the gadget that edits an object's vertices,
    /// like CreateTranslateEditObject(). Null on failure, logging
    /// "[CZoGraphicsModule::CreateKeyPointSetEditObject] 初始化失败".
    virtual IZoGraphicsEditObject* CreateKeyPointSetEditObject(IZoGraphicsMapLayer* layer) = 0; // 8
    /// Uninitialises and deletes an edit object made by this module: it leaves
    /// the map's event handlers, lets go of its user and destroys its handles.
    /// Null is ignored.
    virtual void DestroyGraphicsEditObject(IZoGraphicsEditObject* editObject) = 0;          // 9
    /// The first-created object of any kind named `name`; null if none. Edit
    /// gadgets' handles are objects too ("CustomEditDot" and the like).
    virtual IZoGraphicsMapObject* LookupGraphicObject(const std::string& name) const = 0;   // 10
    /// The object whose IZoGraphicsMapObject::GetObjectID is `id`; null if
    /// none.
    virtual IZoGraphicsMapObject* LookupGraphicObject(int id) const = 0;                    // 11
    /// Unregisters `object`, takes it off its layer (and its item out of the
    /// scene), uninitialises and deletes it; null is ignored, another module's
    /// object is refused with a logged text. It may be called from inside an
    /// event of the object's own item: the object is gone for lookups at once
    /// and its item is deleted when control returns to the event loop.
    virtual void DestroyGraphicsMapObject(IZoGraphicsMapObject* object) = 0;                // 12

    /// Creates a text object named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreateTextMapObject] 初始化失败".
    virtual IZoTextMapObject* CreateTextMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;        // 13
    /// The first-created text object named `name`; null if none.
    virtual IZoTextMapObject* LookupTextMapObject(const std::string& name) const = 0;                             // 14
    /// Creates a widget object, a Qt widget embedded in the map, named `name` on
    /// `layer` (null: the default layer). Null on failure, logging
    /// "[CZoGraphicsModule::CreateWidgetMapObject] 初始化失败".
    virtual IZoWidgetMapObject* CreateWidgetMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;    // 15
    /// The first-created widget object named `name`; null if none.
    virtual IZoWidgetMapObject* LookupWidgetMapObject(const std::string& name) const = 0;                         // 16
    /// Creates a bubble, a callout box with a tail, named `name` on `layer`
    /// (null: the default layer). Null on failure, logging
    /// "[CZoGraphicsModule::CreateBubbleMapObject] 初始化失败".
    virtual IZoBubbleMapObject* CreateBubbleMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;    // 17
    /// The first-created bubble named `name`; null if none.
    virtual IZoBubbleMapObject* LookupBubbleMapObject(const std::string& name) const = 0;                         // 18
    /// Creates an SVG picture named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreateSVGMapObject] 初始化失败".
    virtual IZoSVGMapObject* CreateSVGMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;          // 19
    /// The first-created SVG picture named `name`; null if none.
    virtual IZoSVGMapObject* LookupSVGMapObject(const std::string& name) const = 0;                               // 20
    /// Creates a dot named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreateDotMapObject] 初始化失败".
    virtual IZoDotMapObject* CreateDotMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;          // 21
    /// The first-created dot named `name`; null if none.
    virtual IZoDotMapObject* LookupDotMapObject(const std::string& name) const = 0;                               // 22
    /// Creates a circle named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreateCircleMapObject] 初始化失败".
    virtual IZoCircleMapObject* CreateCircleMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;    // 23
    /// The first-created circle named `name`; null if none.
    virtual IZoCircleMapObject* LookupCircleMapObject(const std::string& name) const = 0;                         // 24
    /// Creates an ellipse named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreateEllipseMapObject] 初始化失败".
    virtual IZoEllipseMapObject* CreateEllipseMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 25
    /// The first-created ellipse named `name`; null if none.
    virtual IZoEllipseMapObject* LookupEllipseMapObject(const std::string& name) const = 0;                       // 26
    /// Creates a rectangle named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreateRectangleMapObject] 初始化失败".
    virtual IZoRectangleMapObject* CreateRectangleMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0; // 27
    /// Creates a map tile named `name` on `layer` (null: the default layer): a
    /// rectangle laid out in the tile model's pixels of level 21 rather than
    /// the view's current pixels. Null on failure, logging
    /// "[CZoGraphicsModule::CreateTileMapObject] 初始化失败".
    virtual IZoRectangleMapObject* CreateTileMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;      // 28
    /// The first-created rectangle or tile named `name`; null if none.
    virtual IZoRectangleMapObject* LookupRectangleMapObject(const std::string& name) const = 0;                      // 29
    /// Creates a polygon named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreatePolygonMapObject] 初始化失败".
    virtual IZoPolygonMapObject* CreatePolygonMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 30
    /// The first-created polygon named `name`; null if none.
    virtual IZoPolygonMapObject* LookupPolygonMapObject(const std::string& name) const = 0;                       // 31
    /// Creates a mark point, an icon with a label, named `name` on `layer`
    /// (null: the default layer). Null on failure, logging
    /// "[CZoGraphicsModule::CreateMarkPointMapObject] 初始化失败".
    virtual IZoMarkPointMapObject* CreateMarkPointMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0; // 32
    /// The first-created mark point named `name`; null if none.
    virtual IZoMarkPointMapObject* LookupLabelMapObject(const std::string& name) const = 0;                          // 33
    /// Creates a polyline named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreatePolylineMapObject] 初始化失败".
    virtual IZoPolylineMapObject* CreatePolylineMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 34
    /// The first-created polyline named `name`; null if none.
    virtual IZoPolylineMapObject* LookupPolylineMapObject(const std::string& name) const = 0;                       // 35
    /// Creates a pie (a bow drawn as a slice of its ellipse) named `name` on
    /// `layer` (null: the default layer). Null on failure, logging
    /// "[CZoGraphicsModule::CreatePieMapObject] 初始化失败".
    virtual IZoBowMapObject* CreatePieMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;          // 36
    /// Creates an arc (a bow drawn as a piece of its ellipse's outline) named
    /// `name` on `layer` (null: the default layer). Null on failure, logging
    /// "[CZoGraphicsModule::CreateArcMapObject] 初始化失败".
    virtual IZoBowMapObject* CreateArcMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;          // 37
    /// Creates a chord (a bow drawn as a piece of its ellipse cut off by a
    /// straight line) named `name` on `layer` (null: the default layer). Null on failure, logging
    /// "[CZoGraphicsModule::CreateChordMapObject] 初始化失败".
    virtual IZoBowMapObject* CreateChordMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;        // 38
    /// The first-created pie, arc or chord named `name`; null if none.
    virtual IZoBowMapObject* LookupBowMapObject(const std::string& name) const = 0;                               // 39
    /// Creates a multi-dot, equal dots at many points drawn as one item, named
    /// `name` on `layer` (null: the default layer). Null on failure, logging
    /// "[CZoGraphicsModule::CreateMultiDotMapObject] 初始化失败".
    virtual IZoMultiDotMapObject* CreateMultiDotMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 40
    /// The first-created multi-dot named `name`; null if none.
    virtual IZoMultiDotMapObject* LookupMultiDotMapObject(const std::string& name) const = 0;                       // 41
    /// Creates a multi-polygon named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreateMultiPolygonMapObject] 初始化失败".
    virtual IZoMultiPolygonMapObject* CreateMultiPolygonMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0; // 42
    /// The first-created multi-polygon named `name`; null if none.
    virtual IZoMultiPolygonMapObject* LookupMultiPolygonMapObject(const std::string& name) const = 0;                      // 43
    /// Creates a multi-line named `name` on `layer` (null: the default layer).
    /// Null on failure, logging "[CZoGraphicsModule::CreateMultiLineMapObject] 初始化失败".
    virtual IZoMultiLineMapObject* CreateMultiLineMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0;  // 44
    /// The first-created multi-line named `name`; null if none.
    virtual IZoMultiLineMapObject* LookupMultiLineMapObject(const std::string& name) const = 0;                       // 45
    /// Creates a layer canvas, an image stretched over an extent, named `name`
    /// on `layer` (null: the default layer). Null on failure, logging
    /// "[CZoGraphicsModule::CreateLayerCanvasMapObject] 初始化失败".
    virtual IZoLayerCanvasMapObject* CreateLayerCanvasMapObject(const std::string& name, IZoGraphicsMapLayer* layer) = 0; // 46
    /// The first-created layer canvas named `name`; null if none.
    virtual IZoLayerCanvasMapObject* LookupLayerCanvasMapObject(const std::string& name) const = 0;                      // 47

    // 48-51: stack an object against the objects with the given ids.
    /// Puts `object` above every object named in `ids` (object ids).
    ///
    /// The stacking operations give the items involved the z value of
    /// `object`'s layer and order them among equal z values; they pass over
    /// `object`'s own id, unknown ids and objects without an item. Items in
    /// different scenes, or out of the scene, only take the z value. The
    /// objects' stored z values stay as they were: the object's SetZValue or
    /// Dirty, or the layer's SetZValue, puts them back. A null `object` or an
    /// empty `ids` logs "[CZoGraphicsModule::StackedTop] 传入参数为空", an object
    /// without a Qt item "[CZoGraphicsModule::StackedTop] 图元Qt-Item为空", an
    /// object without a layer "[CZoGraphicsModule::StackedTop] 图层为空", and
    /// nothing is changed (the other three log the same with their own names).
    virtual void StackedTop(IZoGraphicsMapObject* object, const std::vector<int>& ids) = 0;
    /// Puts `object` just above the first usable object of `ids` and leaves
    /// the rest; otherwise as StackedTop().
    virtual void StackedUpper(IZoGraphicsMapObject* object, const std::vector<int>& ids) = 0;
    /// Puts `object` below the first object of `ids` whose stored z value is
    /// at most the layer's, and leaves the rest; otherwise as StackedTop().
    virtual void StackedLower(IZoGraphicsMapObject* object, const std::vector<int>& ids) = 0;
    /// Puts `object` below every object of `ids` whose stored z value is at
    /// least the layer's; otherwise as StackedTop().
    virtual void StackedBottom(IZoGraphicsMapObject* object, const std::vector<int>& ids) = 0;
};

/// Publishes `module` as the process-wide module, replacing the one before;
/// null clears it. The pointer is not owned: clear or replace it before
/// destroying the module. Stores and loads are atomic.
ZOGRAPHICS_EXPORT void SetGlobalZoGraphicsModule(IZoGraphicsModule* module);
/// The module last given to SetGlobalZoGraphicsModule(); null until then.
/// The library itself never sets or reads it.
ZOGRAPHICS_EXPORT IZoGraphicsModule* GetGlobalZoGraphicsModule();
/// Named secondary modules are not supported: always null, whatever `name`.
ZOGRAPHICS_EXPORT IZoGraphicsModule* GetSlaveZoGraphicsModule(const std::string& name);
