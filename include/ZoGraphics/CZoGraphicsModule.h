#pragma once

#include <ZoGraphics/IZoGraphicsModule.h>

#include <map>
#include <memory>
#include <string>

class IZoMapModule;
class QObject;
class CZoLock;
class CZoModuleNames;
class CZoHoverRouter;

/// The library's entry point: creates, finds and destroys graphics layers, map
/// objects and edit gadgets against a host map module.
///
/// It owns every layer and map object it creates; edit gadgets belong to the
/// caller until they are given back through DestroyGraphicsEditObject. The
/// operations are described on IZoGraphicsModule.
///
/// A host constructs it, calls Initialise() with its IZoMapModule, uses it,
/// then gives back its edit gadgets (their handles are objects of this module),
/// calls Unintialise() and deletes it.
///
/// Lifetimes the module survives:
/// - The map module may end first. The module takes the destruction of the
///   map module's scene or event object (GetScene(), GetEventObject()) as its
///   end: from then on nothing calls the map module, the scene deletes the
///   items it holds and the objects go on without them, and creators fail
///   with their "初始化失败" text. Unintialise() and the destructor then work
///   as usual. Edit gadgets talk to the map module themselves: give them back
///   before the map module goes.
/// - An object may be destroyed from inside an event that its own item (or any
///   item of the module) is delivering, a click on a button of its embedded
///   widget or a filter reacting to a recorded scene event: it is gone for
///   lookups at once, and its item is deleted when control returns to the
///   event loop.
/// - Layers belong to the module that made them. Creators, edit-gadget
///   creators and DestroyGraphicsLayer() refuse a layer that another module
///   made with "[CZoGraphicsModule::<operation>] 图层不属于本模块" and a null
///   result; DestroyGraphicsMapObject() refuses another module's object with
///   "[CZoGraphicsModule::DestroyGraphicsMapObject] 图元不属于本模块". Layers
///   and objects the host implements itself are taken as before.
///
/// Threads: lookups may come from any thread; everything else (creating,
/// destroying, initialising, stacking, and every setter of a map object) from
/// the GUI thread only. Debug builds assert it; release builds refuse the call
/// and log "[<class>::<operation>] 只能在GUI线程调用" the first time each
/// operation is refused. The layer canvas's SetImage is the one setter a
/// worker may call.
class ZOGRAPHICS_EXPORT CZoGraphicsModule : public IZoGraphicsModule
{
public:
    /// Creates a module that is not yet initialised: id -1, empty name and
    /// uuid, no map module, no layers.
    CZoGraphicsModule();
    /// A copy shares the original's id, name, uuid and map module but owns
    /// nothing: its registries start empty and it has no default layer.
    CZoGraphicsModule(const CZoGraphicsModule& other);
    /// Takes over `other`'s id, name, uuid and map module; keeps its own
    /// layers, objects and default layer.
    CZoGraphicsModule& operator=(const CZoGraphicsModule& other);
    /// Frees the locks and the registries' nodes; call Unintialise first to
    /// destroy the layers and objects. Objects and layers still alive stop
    /// reporting renames to it.
    ~CZoGraphicsModule() override;

    /// Draws the module id and creates the default layer. Returns true even
    /// when the default layer cannot be made (null map module); creators that
    /// rely on it then fail.
    ///
    /// Stores `name`, a fresh uuid and `mapModule` (not owned), then creates
    /// the layer STR_DEAFULT_GRAPHICS_LAYER_NAME. A null `mapModule` logs
    /// "[CZoGraphicsMapLayer::Initialise] MapModule传入为空" and
    /// "[CZoGraphicsModule::CreateGraphicsLayer] 初始化失败". Call it once: a
    /// second call makes another default layer and keeps the first one
    /// registered.
    bool Initialise(const std::string& name, IZoMapModule* mapModule);
    /// Destroys every layer and object. Afterwards the module is only to be
    /// destroyed: its registries keep stale keys.
    ///
    /// Each layer's objects are destroyed through the layer, then the layer
    /// is deleted; objects left over are uninitialised and deleted. Lookups
    /// then find nothing and the default layer is null. Give back edit
    /// gadgets first: their handles are among the objects destroyed.
    void Unintialise();
    /// Replaces the uuid string; Initialise draws a new one over it.
    void SetUUID(const std::string& uuid);

    /// The module id drawn by Initialise(); -1 before.
    int GetModuleID() const { return m_moduleId; }
    /// The name given to Initialise(); empty before.
    const std::string& GetName() const { return m_name; }
    /// The uuid drawn by Initialise() or set by SetUUID(); empty before both.
    const std::string& GetUUID() const { return m_uuid; }
    /// The host map module given to Initialise() (not owned); null before.
    IZoMapModule* GetMapModule() const { return m_mapModule; }
    /// The layer registry's size, the default layer included. Unintialise
    /// leaves the keys of what it destroyed behind (with null entries), so
    /// this counts them too.
    int GetRegisteredLayerCount() const;
    /// The object registry's size, edit gadgets' handles included; like
    /// GetRegisteredLayerCount(), it counts the keys Unintialise leaves behind.
    int GetRegisteredObjectCount() const;
    /// The live layer with id `id`; null once it is destroyed (or the module
    /// uninitialised). Ids are never reused, so a holder of a layer's id can
    /// tell whether its layer is still there without touching it.
    IZoGraphicsMapLayer* LookupGraphicsLayerById(int id) const;

    IZoGraphicsMapLayer* GetDeafultGraphicsLayer() const override;
    IZoGraphicsMapLayer* CreateGraphicsLayer(const std::string& name) override;
    IZoGraphicsMapLayer* LookupGraphicsLayer(const std::string& name) const override;
    void DestroyGraphicsLayer(IZoGraphicsMapLayer* layer) override;
    IZoGraphicsEditObject* CreateTranslateEditObject(IZoGraphicsMapLayer* layer) override;
    IZoGraphicsEditObject* CreateRotationEditObject(IZoGraphicsMapLayer* layer) override;
    IZoGraphicsEditObject* CreateScaleEditObject(IZoGraphicsMapLayer* layer) override;
    IZoGraphicsEditObject* CreateKeyPointSetEditObject(IZoGraphicsMapLayer* layer) override;
    void DestroyGraphicsEditObject(IZoGraphicsEditObject* editObject) override;
    IZoGraphicsMapObject* LookupGraphicObject(const std::string& name) const override;
    IZoGraphicsMapObject* LookupGraphicObject(int id) const override;
    void DestroyGraphicsMapObject(IZoGraphicsMapObject* object) override;
    /// Destroys each object as DestroyGraphicsMapObject() does, in the order
    /// given, taking them out of the registry and its name index together
    /// first: what a layer's DestroyAllMapObjects() uses. Each object may
    /// appear once.
    void DestroyGraphicsMapObjects(const std::vector<IZoGraphicsMapObject*>& objects);

    IZoTextMapObject* CreateTextMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoTextMapObject* LookupTextMapObject(const std::string& name) const override;
    IZoWidgetMapObject* CreateWidgetMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoWidgetMapObject* LookupWidgetMapObject(const std::string& name) const override;
    IZoBubbleMapObject* CreateBubbleMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoBubbleMapObject* LookupBubbleMapObject(const std::string& name) const override;
    IZoSVGMapObject* CreateSVGMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoSVGMapObject* LookupSVGMapObject(const std::string& name) const override;
    IZoDotMapObject* CreateDotMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoDotMapObject* LookupDotMapObject(const std::string& name) const override;
    IZoCircleMapObject* CreateCircleMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoCircleMapObject* LookupCircleMapObject(const std::string& name) const override;
    IZoEllipseMapObject* CreateEllipseMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoEllipseMapObject* LookupEllipseMapObject(const std::string& name) const override;
    IZoRectangleMapObject* CreateRectangleMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoRectangleMapObject* CreateTileMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoRectangleMapObject* LookupRectangleMapObject(const std::string& name) const override;
    IZoPolygonMapObject* CreatePolygonMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoPolygonMapObject* LookupPolygonMapObject(const std::string& name) const override;
    IZoMarkPointMapObject* CreateMarkPointMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoMarkPointMapObject* LookupLabelMapObject(const std::string& name) const override;
    IZoPolylineMapObject* CreatePolylineMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoPolylineMapObject* LookupPolylineMapObject(const std::string& name) const override;
    IZoBowMapObject* CreatePieMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoBowMapObject* CreateArcMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoBowMapObject* CreateChordMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoBowMapObject* LookupBowMapObject(const std::string& name) const override;
    IZoMultiDotMapObject* CreateMultiDotMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoMultiDotMapObject* LookupMultiDotMapObject(const std::string& name) const override;
    IZoMultiPolygonMapObject* CreateMultiPolygonMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoMultiPolygonMapObject* LookupMultiPolygonMapObject(const std::string& name) const override;
    IZoMultiLineMapObject* CreateMultiLineMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoMultiLineMapObject* LookupMultiLineMapObject(const std::string& name) const override;
    IZoLayerCanvasMapObject* CreateLayerCanvasMapObject(const std::string& name, IZoGraphicsMapLayer* layer) override;
    IZoLayerCanvasMapObject* LookupLayerCanvasMapObject(const std::string& name) const override;

    void StackedTop(IZoGraphicsMapObject* object, const std::vector<int>& ids) override;
    void StackedUpper(IZoGraphicsMapObject* object, const std::vector<int>& ids) override;
    void StackedLower(IZoGraphicsMapObject* object, const std::vector<int>& ids) override;
    void StackedBottom(IZoGraphicsMapObject* object, const std::vector<int>& ids) override;

protected:
    /// Detaches, uninitialises and deletes an object without touching the
    /// registry or its lock: the registry still lists the object afterwards,
    /// so only a subclass that has already taken it out may call this.
    void DestroyGraphicsMapObjectImpl(IZoGraphicsMapObject* object);

private:
    template <class T, class Setup>
    T* CreateAndRegister(const std::string& name, IZoGraphicsMapLayer* layer, const char* creator, Setup setup);
    template <class T>
    T* CreateAndRegister(const std::string& name, IZoGraphicsMapLayer* layer, const char* creator);
    template <class Interface>
    Interface* LookupTyped(const std::string& name) const;
    // Which of the four stacking walks; see the .cpp.
    enum class EStacking { Top, Upper, Lower, Bottom };
    // Objects left on a layer that is being deleted lose their layer, so
    // that nothing calls into it later.
    void ForgetLayer(const IZoGraphicsMapLayer* layer);
    void Stack(EStacking mode, const char* method, IZoGraphicsMapObject* object, const std::vector<int>& ids);
    // Hears of the map module's end through its scene and event object.
    void WatchMapModule();
    // Hovers the module's items from the map module's scene (see CZoHoverRouter).
    void RouteHover();
    void ForgetMapModule();
    // Whether layer is a layer of the library that another module made.
    bool IsForeignLayer(const IZoGraphicsMapLayer* layer) const;
    // A creator may run here with this layer (null: the default layer);
    // otherwise it has logged why not.
    bool AcceptsTarget(const IZoGraphicsMapLayer* layer, const char* creator) const;

    int m_moduleId = -1;
    std::string m_name;
    std::string m_uuid;
    IZoMapModule* m_mapModule = nullptr;
    std::unique_ptr<CZoLock> m_objectLock;
    std::map<int, IZoGraphicsMapObject*> m_objects;
    std::unique_ptr<CZoLock> m_layerLock;
    std::map<int, IZoGraphicsMapLayer*> m_layers;
    IZoGraphicsMapLayer* m_defaultLayer = nullptr;
    // Name lookups go through these indexes instead of walking the registries.
    std::unique_ptr<CZoModuleNames> m_names;
    // Context of the connections that report the map module's end.
    std::unique_ptr<QObject> m_mapWatch;
    // Hovers the items of this module's layers from the map module's scene.
    std::unique_ptr<CZoHoverRouter> m_hoverRouter;
};
