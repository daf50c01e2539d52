#include <ZoGraphics/CZoGraphicsModule.h>

#include "layer/CZoGraphicsMapLayer.h"
#include "layer/CZoHoverRouter.h"
#include "module/CZoModuleNames.h"
#include "object/IZoMapObjectInternal.h"
#include "object/CZoLock.h"
#include "object/ZoItemLifetime.h"
#include "object/ZoLogText.h"
#include "shapes/bow/CZoBowMapObject.h"
#include "shapes/bubble/CZoBubbleMapObject.h"
#include "shapes/circle/CZoCircleMapObject.h"
#include "shapes/dot/CZoDotMapObject.h"
#include "shapes/ellipse/CZoEllipseMapObject.h"
#include "shapes/multidot/CZoMultiDotMapObject.h"
#include "shapes/multiline/CZoMultiLineMapObject.h"
#include "shapes/multipolygon/CZoMultiPolygonMapObject.h"
#include "shapes/polygon/CZoPolygonMapObject.h"
#include "shapes/polyline/CZoPolylineMapObject.h"
#include "shapes/rectangle/CZoRectangleMapObject.h"
#include "content/canvas/CZoLayerCanvasMapObject.h"
#include "content/markpoint/CZoMarkPointMapObject.h"
#include "content/svg/CZoSVGMapObject.h"
#include "content/widget/CZoWidgetMapObject.h"
#include "content/text/CZoTextMapObject.h"
#include "edit/CKeyPointSet.h"
#include "edit/CRotationAxis.h"
#include "edit/CScaleBox.h"
#include "edit/CTranslateBall.h"
#include "edit/ZoEditObjectFactory.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/ZoCoreUtility.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QObject>
#include <algorithm>

const std::string STR_DEAFULT_GRAPHICS_LAYER_NAME = "Zo.DefaultGraphicsLayer";

namespace
{
constexpr const char* kClassName = "CZoGraphicsModule";

// Erases the registry entry of value; false when there is none. Its key is
// normally the id it reports now; a layer or object initialised a second time
// reports a newer id than it was registered under, and must not stay behind
// as a dangling entry.
// hint, when given, is where to look first and is left on the entry after
// the one erased: a batch in ascending id order finds each entry there.
template <class T>
bool EraseEntry(std::map<int, T*>& registry, int id, const T* value,
                typename std::map<int, T*>::iterator* hint = nullptr)
{
    auto found = hint && *hint != registry.end() && (*hint)->first == id ? *hint : registry.find(id);
    if (found == registry.end() || found->second != value)
        found = std::find_if(registry.begin(), registry.end(), [value](const auto& e) { return e.second == value; });
    if (found == registry.end())
        return false;
    const auto after = registry.erase(found);
    if (hint)
        *hint = after;
    return true;
}

struct NoSetup
{
    template <class T>
    void operator()(T&) const
    {
    }
};
} // namespace

CZoGraphicsModule::CZoGraphicsModule()
    : m_objectLock(std::make_unique<CZoLock>()),
      m_layerLock(std::make_unique<CZoLock>()),
      m_names(std::make_unique<CZoModuleNames>(*m_objectLock, *m_layerLock)),
      m_mapWatch(std::make_unique<QObject>())
{
}

CZoGraphicsModule::CZoGraphicsModule(const CZoGraphicsModule& other)
    : IZoGraphicsModule(other),
      m_moduleId(other.m_moduleId),
      m_name(other.m_name),
      m_uuid(other.m_uuid),
      m_mapModule(other.m_mapModule),
      m_objectLock(std::make_unique<CZoLock>()),
      m_layerLock(std::make_unique<CZoLock>()),
      m_names(std::make_unique<CZoModuleNames>(*m_objectLock, *m_layerLock)),
      m_mapWatch(std::make_unique<QObject>())
{
    WatchMapModule();
}

CZoGraphicsModule& CZoGraphicsModule::operator=(const CZoGraphicsModule& other)
{
    if (this != &other)
    {
        m_moduleId = other.m_moduleId;
        m_name = other.m_name;
        m_uuid = other.m_uuid;
        m_mapModule = other.m_mapModule;
        WatchMapModule();
    }
    return *this;
}

CZoGraphicsModule::~CZoGraphicsModule()
{
    // What the host left alive must not report renames to a module that is gone.
    for (const auto& entry : m_objects)
    {
        if (CZoMapObjectCore* core = ZoObjectCore(entry.second))
            core->SetNameObserver(nullptr);
    }
    for (const auto& entry : m_layers)
    {
        if (auto* layer = dynamic_cast<CZoGraphicsMapLayer*>(entry.second))
            layer->SetNameObserver(nullptr);
    }
}

bool CZoGraphicsModule::Initialise(const std::string& name, IZoMapModule* mapModule)
{
    if (!ZoAcceptsCallingThread(kClassName, "Initialise"))
        return false;
    m_name = name;
    m_uuid = ZoCreateUUID();
    m_mapModule = mapModule;
    WatchMapModule();
    RouteHover();
    m_moduleId = GenerateZoModuleID();
    m_defaultLayer = CreateGraphicsLayer(STR_DEAFULT_GRAPHICS_LAYER_NAME);
    return true;
}

// The scene and the event object go with the map module (before it, or
// with its QObject children after it): whichever goes first tells that
// nothing may call the map module any more.
void CZoGraphicsModule::WatchMapModule()
{
    m_mapWatch = std::make_unique<QObject>();
    if (!m_mapModule)
        return;
    for (QObject* part : {static_cast<QObject*>(m_mapModule->GetScene()), m_mapModule->GetEventObject()})
    {
        if (part)
            QObject::connect(part, &QObject::destroyed, m_mapWatch.get(), [this] { ForgetMapModule(); });
    }
}

void CZoGraphicsModule::RouteHover()
{
    m_hoverRouter.reset();
    QGraphicsScene* scene = m_mapModule ? m_mapModule->GetScene() : nullptr;
    if (!scene)
        return;
    auto layers = [this] {
        std::vector<CZoGraphicsMapLayer*> layers;
        CZoLockGuard guard(*m_layerLock);
        for (const auto& entry : m_layers)
        {
            if (auto* layer = dynamic_cast<CZoGraphicsMapLayer*>(entry.second))
                layers.push_back(layer);
        }
        return layers;
    };
    auto lookup = [this](int id) { return ZoObjectCore(LookupGraphicObject(id)); };
    m_hoverRouter = std::make_unique<CZoHoverRouter>(scene, layers, lookup);
}

void CZoGraphicsModule::ForgetMapModule()
{
    if (!m_mapModule)
        return;
    m_hoverRouter.reset();
    m_mapModule = nullptr;
    {
        CZoLockGuard guard(*m_layerLock);
        for (const auto& entry : m_layers)
        {
            if (auto* layer = dynamic_cast<CZoGraphicsMapLayer*>(entry.second))
                layer->ForgetMapModule();
        }
    }
    CZoLockGuard guard(*m_objectLock);
    for (const auto& entry : m_objects)
    {
        if (CZoMapObjectCore* core = ZoObjectCore(entry.second))
            core->ForgetMapModule();
    }
}

// A layer the host implements itself is taken as given; one that another
// module made goes when that module says, and its objects with it.
bool CZoGraphicsModule::IsForeignLayer(const IZoGraphicsMapLayer* layer) const
{
    {
        CZoLockGuard guard(*m_layerLock);
        for (const auto& entry : m_layers)
        {
            if (entry.second && entry.second == layer)
                return false;
        }
    }
    const auto* made = dynamic_cast<const CZoGraphicsMapLayer*>(layer);
    return made && made->GetGraphicsModule() != this;
}

bool CZoGraphicsModule::AcceptsTarget(const IZoGraphicsMapLayer* layer, const char* creator) const
{
    if (!ZoAcceptsCallingThread(kClassName, creator))
        return false;
    if (layer && IsForeignLayer(layer))
    {
        ZoLogWarnAt(kClassName, creator) << ZoLogReason::kForeignLayer;
        return false;
    }
    return true;
}

void CZoGraphicsModule::Unintialise()
{
    if (!ZoAcceptsCallingThread(kClassName, "Unintialise"))
        return;
    m_hoverRouter.reset();
    {
        CZoLockGuard guard(*m_layerLock);
        for (auto& entry : m_layers)
        {
            if (!entry.second)
                continue;
            entry.second->DestroyAllMapObjects();
            ForgetLayer(entry.second);
            delete entry.second;
            entry.second = nullptr;
        }
        // In the same locked stretch as the deletes: a lookup from another
        // thread must never find a name whose layer is already gone.
        m_names->layers.Clear();
    }
    m_defaultLayer = nullptr;
    CZoLockGuard guard(*m_objectLock);
    for (auto& entry : m_objects)
    {
        if (!entry.second)
            continue;
        entry.second->Unintialise();
        delete entry.second;
        entry.second = nullptr;
    }
    m_names->objects.Clear();
}

void CZoGraphicsModule::SetUUID(const std::string& uuid)
{
    if (&uuid != &m_uuid)
        m_uuid = uuid;
}

int CZoGraphicsModule::GetRegisteredLayerCount() const
{
    CZoLockGuard guard(*m_layerLock);
    return static_cast<int>(m_layers.size());
}

int CZoGraphicsModule::GetRegisteredObjectCount() const
{
    CZoLockGuard guard(*m_objectLock);
    return static_cast<int>(m_objects.size());
}

IZoGraphicsMapLayer* CZoGraphicsModule::LookupGraphicsLayerById(int id) const
{
    CZoLockGuard guard(*m_layerLock);
    const auto found = m_layers.find(id);
    return found == m_layers.end() ? nullptr : found->second;
}

IZoGraphicsMapLayer* CZoGraphicsModule::GetDeafultGraphicsLayer() const
{
    return m_defaultLayer;
}

IZoGraphicsMapLayer* CZoGraphicsModule::CreateGraphicsLayer(const std::string& name)
{
    if (!ZoAcceptsCallingThread(kClassName, "CreateGraphicsLayer"))
        return nullptr;
    auto layer = std::make_unique<CZoGraphicsMapLayer>();
    if (!layer->Initialise(name, m_mapModule, this))
    {
        layer.reset();
        ZoLogWarnAt(kClassName, "CreateGraphicsLayer") << ZoLogReason::kInitialiseFailed;
        return nullptr;
    }
    CZoLockGuard guard(*m_layerLock);
    m_layers[layer->GetLayerID()] = layer.get();
    m_names->layers.Insert(layer->GetLayerName(), layer->GetLayerID(), layer.get());
    layer->SetNameObserver(m_names.get());
    return layer.release();
}

IZoGraphicsMapLayer* CZoGraphicsModule::LookupGraphicsLayer(const std::string& name) const
{
    // Among equal names the layer created first wins.
    CZoLockGuard guard(*m_layerLock);
    return m_names->layers.FindFirst<IZoGraphicsMapLayer>(name);
}

void CZoGraphicsModule::DestroyGraphicsLayer(IZoGraphicsMapLayer* layer)
{
    if (!layer || !ZoAcceptsCallingThread(kClassName, "DestroyGraphicsLayer"))
        return;
    if (IsForeignLayer(layer))
    {
        ZoLogWarnAt(kClassName, "DestroyGraphicsLayer") << ZoLogReason::kForeignLayer;
        return;
    }
    if (layer == m_defaultLayer)
        m_defaultLayer = nullptr;
    {
        CZoLockGuard guard(*m_layerLock);
        EraseEntry(m_layers, layer->GetLayerID(), layer);
        m_names->layers.Erase(layer->GetLayerName(), layer);
    }
    // The layer's objects stay registered (callers destroy them first), but
    // without a layer.
    layer->Unintialise();
    ForgetLayer(layer);
    delete layer;
}

IZoGraphicsMapObject* CZoGraphicsModule::LookupGraphicObject(const std::string& name) const
{
    return LookupTyped<IZoGraphicsMapObject>(name);
}

IZoGraphicsMapObject* CZoGraphicsModule::LookupGraphicObject(int id) const
{
    CZoLockGuard guard(*m_objectLock);
    const auto found = m_objects.find(id);
    return found == m_objects.end() ? nullptr : found->second;
}

template <class Interface>
Interface* CZoGraphicsModule::LookupTyped(const std::string& name) const
{
    // Ascending ids: among equal names the object created first wins, and a
    // typed lookup passes over objects of other kinds.
    CZoLockGuard guard(*m_objectLock);
    return m_names->objects.FindFirst<Interface>(name);
}

void CZoGraphicsModule::DestroyGraphicsMapObject(IZoGraphicsMapObject* object)
{
    if (!object || !ZoAcceptsCallingThread(kClassName, "DestroyGraphicsMapObject"))
        return;
    CZoLockGuard guard(*m_objectLock);
    // Another module's object stays with it; one the host implements itself
    // is the host's to give.
    if (!EraseEntry(m_objects, object->GetObjectID(), object) && ZoObjectCore(object))
    {
        ZoLogWarnAt(kClassName, "DestroyGraphicsMapObject") << "图元不属于本模块";
        return;
    }
    m_names->objects.Erase(object->GetName(), object);
    DestroyGraphicsMapObjectImpl(object);
}

void CZoGraphicsModule::DestroyGraphicsMapObjects(const std::vector<IZoGraphicsMapObject*>& objects)
{
    if (!ZoAcceptsCallingThread(kClassName, "DestroyGraphicsMapObject"))
        return;
    std::vector<IZoGraphicsMapObject*> ours;
    ours.reserve(objects.size());
    {
        CZoLockGuard guard(*m_objectLock);
        auto hint = m_objects.end();
        for (IZoGraphicsMapObject* object : objects)
        {
            if (!object)
                continue;
            if (!EraseEntry(m_objects, object->GetObjectID(), object, &hint) && ZoObjectCore(object))
            {
                ZoLogWarnAt(kClassName, "DestroyGraphicsMapObject") << "图元不属于本模块";
                continue;
            }
            ours.push_back(object);
        }
        // Many names go in one pass over the index; a few, each by its name.
        if (ours.size() * 8 < m_names->objects.NameCount())
        {
            for (IZoGraphicsMapObject* object : ours)
                m_names->objects.Erase(object->GetName(), object);
        }
        else
        {
            m_names->objects.EraseValues(ours);
        }
    }
    for (IZoGraphicsMapObject* object : ours)
        DestroyGraphicsMapObjectImpl(object);
}

void CZoGraphicsModule::ForgetLayer(const IZoGraphicsMapLayer* layer)
{
    CZoLockGuard guard(*m_objectLock);
    for (const auto& entry : m_objects)
    {
        if (entry.second && entry.second->GetGraphicsMapLayer() == layer)
            entry.second->SetMapLayer(nullptr);
    }
}

void CZoGraphicsModule::DestroyGraphicsMapObjectImpl(IZoGraphicsMapObject* object)
{
    if (IZoGraphicsMapLayer* layer = object->GetGraphicsMapLayer())
        layer->DetachMapObject(object);
    object->Unintialise();
    delete object;
}

template <class T, class Setup>
T* CZoGraphicsModule::CreateAndRegister(const std::string& name, IZoGraphicsMapLayer* layer, const char* creator,
                                        Setup setup)
{
    if (!AcceptsTarget(layer, creator))
        return nullptr;
    IZoGraphicsMapLayer* target = layer ? layer : m_defaultLayer;
    auto object = std::make_unique<T>();
    // Initialise runs even without a layer, so that the object's own text
    // comes before the creator's.
    if (!object->Initialise(name, m_mapModule, target))
    {
        object.reset();
        ZoLogWarnAt(kClassName, creator) << ZoLogReason::kInitialiseFailed;
        return nullptr;
    }
    setup(*object);
    target->AttachMapObject(object.get());
    CZoLockGuard guard(*m_objectLock);
    m_objects[object->GetObjectID()] = object.get();
    m_names->objects.Insert(object->GetName(), object->GetObjectID(), object.get());
    object->Core().SetNameObserver(m_names.get());
    return object.release();
}

template <class T>
T* CZoGraphicsModule::CreateAndRegister(const std::string& name, IZoGraphicsMapLayer* layer, const char* creator)
{
    return CreateAndRegister<T>(name, layer, creator, NoSetup());
}

// --- edit gadgets --------------------------------------------------------------

IZoGraphicsEditObject* CZoGraphicsModule::CreateTranslateEditObject(IZoGraphicsMapLayer* layer)
{
    if (!AcceptsTarget(layer, "CreateTranslateEditObject"))
        return nullptr;
    return ZoCreateEditObject<CTranslateBall>(this, layer, "CreateTranslateEditObject");
}

IZoGraphicsEditObject* CZoGraphicsModule::CreateRotationEditObject(IZoGraphicsMapLayer* layer)
{
    if (!AcceptsTarget(layer, "CreateRotationEditObject"))
        return nullptr;
    return ZoCreateEditObject<CRotationAxis>(this, layer, "CreateRotationEditObject");
}

IZoGraphicsEditObject* CZoGraphicsModule::CreateScaleEditObject(IZoGraphicsMapLayer* layer)
{
    if (!AcceptsTarget(layer, "CreateScaleEditObject"))
        return nullptr;
    return ZoCreateEditObject<CScaleBox>(this, layer, "CreateScaleEditObject");
}

IZoGraphicsEditObject* CZoGraphicsModule::CreateKeyPointSetEditObject(IZoGraphicsMapLayer* layer)
{
    if (!AcceptsTarget(layer, "CreateKeyPointSetEditObject"))
        return nullptr;
    return ZoCreateEditObject<CKeyPointSet>(this, layer, "CreateKeyPointSetEditObject");
}

void CZoGraphicsModule::DestroyGraphicsEditObject(IZoGraphicsEditObject* editObject)
{
    if (!editObject || !ZoAcceptsCallingThread(kClassName, "DestroyGraphicsEditObject"))
        return;
    // A gadget given back from inside its own callback lives until that returns.
    if (auto* gadget = dynamic_cast<CZoEditObjectBase*>(editObject))
        return gadget->Dispose();
    editObject->Unintialise();
    delete editObject;
}

// --- creators and typed lookups ------------------------------------------------

IZoTextMapObject* CZoGraphicsModule::CreateTextMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoTextMapObject>(name, layer, "CreateTextMapObject");
}
IZoTextMapObject* CZoGraphicsModule::LookupTextMapObject(const std::string& name) const
{
    return LookupTyped<IZoTextMapObject>(name);
}
IZoWidgetMapObject* CZoGraphicsModule::CreateWidgetMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoWidgetMapObject>(name, layer, "CreateWidgetMapObject");
}
IZoWidgetMapObject* CZoGraphicsModule::LookupWidgetMapObject(const std::string& name) const
{
    return LookupTyped<IZoWidgetMapObject>(name);
}
IZoBubbleMapObject* CZoGraphicsModule::CreateBubbleMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoBubbleMapObject>(name, layer, "CreateBubbleMapObject");
}
IZoBubbleMapObject* CZoGraphicsModule::LookupBubbleMapObject(const std::string& name) const
{
    return LookupTyped<IZoBubbleMapObject>(name);
}
IZoSVGMapObject* CZoGraphicsModule::CreateSVGMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoSVGMapObject>(name, layer, "CreateSVGMapObject");
}
IZoSVGMapObject* CZoGraphicsModule::LookupSVGMapObject(const std::string& name) const
{
    return LookupTyped<IZoSVGMapObject>(name);
}
IZoDotMapObject* CZoGraphicsModule::CreateDotMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoDotMapObject>(name, layer, "CreateDotMapObject");
}
IZoDotMapObject* CZoGraphicsModule::LookupDotMapObject(const std::string& name) const
{
    return LookupTyped<IZoDotMapObject>(name);
}
IZoCircleMapObject* CZoGraphicsModule::CreateCircleMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoCircleMapObject>(name, layer, "CreateCircleMapObject");
}
IZoCircleMapObject* CZoGraphicsModule::LookupCircleMapObject(const std::string& name) const
{
    return LookupTyped<IZoCircleMapObject>(name);
}
IZoEllipseMapObject* CZoGraphicsModule::CreateEllipseMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoEllipseMapObject>(name, layer, "CreateEllipseMapObject");
}
IZoEllipseMapObject* CZoGraphicsModule::LookupEllipseMapObject(const std::string& name) const
{
    return LookupTyped<IZoEllipseMapObject>(name);
}
IZoRectangleMapObject* CZoGraphicsModule::CreateRectangleMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoRectangleMapObject>(name, layer, "CreateRectangleMapObject",
                                                    [](CZoRectangleMapObject& rectangle) { rectangle.SetTile(false); });
}
IZoRectangleMapObject* CZoGraphicsModule::CreateTileMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoRectangleMapObject>(name, layer, "CreateTileMapObject",
                                                    [](CZoRectangleMapObject& rectangle) { rectangle.SetTile(true); });
}
IZoRectangleMapObject* CZoGraphicsModule::LookupRectangleMapObject(const std::string& name) const
{
    return LookupTyped<IZoRectangleMapObject>(name);
}
IZoPolygonMapObject* CZoGraphicsModule::CreatePolygonMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoPolygonMapObject>(name, layer, "CreatePolygonMapObject");
}
IZoPolygonMapObject* CZoGraphicsModule::LookupPolygonMapObject(const std::string& name) const
{
    return LookupTyped<IZoPolygonMapObject>(name);
}
IZoMarkPointMapObject* CZoGraphicsModule::CreateMarkPointMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoMarkPointMapObject>(name, layer, "CreateMarkPointMapObject");
}
IZoMarkPointMapObject* CZoGraphicsModule::LookupLabelMapObject(const std::string& name) const
{
    return LookupTyped<IZoMarkPointMapObject>(name);
}
IZoPolylineMapObject* CZoGraphicsModule::CreatePolylineMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoPolylineMapObject>(name, layer, "CreatePolylineMapObject");
}
IZoPolylineMapObject* CZoGraphicsModule::LookupPolylineMapObject(const std::string& name) const
{
    return LookupTyped<IZoPolylineMapObject>(name);
}
IZoBowMapObject* CZoGraphicsModule::CreatePieMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoBowMapObject>(name, layer, "CreatePieMapObject",
                                              [](CZoBowMapObject& bow) { bow.SetKind(EZoBowKind::Pie); });
}
IZoBowMapObject* CZoGraphicsModule::CreateArcMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoBowMapObject>(name, layer, "CreateArcMapObject",
                                              [](CZoBowMapObject& bow) { bow.SetKind(EZoBowKind::Arc); });
}
IZoBowMapObject* CZoGraphicsModule::CreateChordMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoBowMapObject>(name, layer, "CreateChordMapObject",
                                              [](CZoBowMapObject& bow) { bow.SetKind(EZoBowKind::Chord); });
}
IZoBowMapObject* CZoGraphicsModule::LookupBowMapObject(const std::string& name) const
{
    return LookupTyped<IZoBowMapObject>(name);
}
IZoMultiDotMapObject* CZoGraphicsModule::CreateMultiDotMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoMultiDotMapObject>(name, layer, "CreateMultiDotMapObject");
}
IZoMultiDotMapObject* CZoGraphicsModule::LookupMultiDotMapObject(const std::string& name) const
{
    return LookupTyped<IZoMultiDotMapObject>(name);
}
IZoMultiPolygonMapObject* CZoGraphicsModule::CreateMultiPolygonMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoMultiPolygonMapObject>(name, layer, "CreateMultiPolygonMapObject");
}
IZoMultiPolygonMapObject* CZoGraphicsModule::LookupMultiPolygonMapObject(const std::string& name) const
{
    return LookupTyped<IZoMultiPolygonMapObject>(name);
}
IZoMultiLineMapObject* CZoGraphicsModule::CreateMultiLineMapObject(const std::string& name, IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoMultiLineMapObject>(name, layer, "CreateMultiLineMapObject");
}
IZoMultiLineMapObject* CZoGraphicsModule::LookupMultiLineMapObject(const std::string& name) const
{
    return LookupTyped<IZoMultiLineMapObject>(name);
}
IZoLayerCanvasMapObject* CZoGraphicsModule::CreateLayerCanvasMapObject(const std::string& name,
                                                                       IZoGraphicsMapLayer* layer)
{
    return CreateAndRegister<CZoLayerCanvasMapObject>(name, layer, "CreateLayerCanvasMapObject");
}
IZoLayerCanvasMapObject* CZoGraphicsModule::LookupLayerCanvasMapObject(const std::string& name) const
{
    return LookupTyped<IZoLayerCanvasMapObject>(name);
}

// --- stacking ------------------------------------------------------------------

void CZoGraphicsModule::StackedTop(IZoGraphicsMapObject* object, const std::vector<int>& ids)
{
    Stack(EStacking::Top, "StackedTop", object, ids);
}

void CZoGraphicsModule::StackedUpper(IZoGraphicsMapObject* object, const std::vector<int>& ids)
{
    Stack(EStacking::Upper, "StackedUpper", object, ids);
}

void CZoGraphicsModule::StackedLower(IZoGraphicsMapObject* object, const std::vector<int>& ids)
{
    Stack(EStacking::Lower, "StackedLower", object, ids);
}

void CZoGraphicsModule::StackedBottom(IZoGraphicsMapObject* object, const std::vector<int>& ids)
{
    Stack(EStacking::Bottom, "StackedBottom", object, ids);
}

namespace
{
// Qt orders only siblings in one scene; asked to order an item among the
// top-level items of a scene it is not in, it corrupts its own lists. Items
// out of the scene only take the z value.
void StackBefore(QGraphicsItem* item, const QGraphicsItem* sibling)
{
    if (item->scene() && item->scene() == sibling->scene() && item->parentItem() == sibling->parentItem())
        item->stackBefore(sibling);
}
} // namespace

// All items involved take the layer's z value and are then ordered among
// equal z values; the objects' stored z values stay as they were, so a later
// Dirty puts them back.
void CZoGraphicsModule::Stack(EStacking mode, const char* method, IZoGraphicsMapObject* object,
                              const std::vector<int>& ids)
{
    if (!ZoAcceptsCallingThread(kClassName, method))
        return;
    if (!object || ids.empty())
    {
        ZoLogWarnAt(kClassName, method) << ZoLogReason::kArgumentNull;
        return;
    }
    QGraphicsItem* item = object->GetQtItem();
    if (!item)
    {
        ZoLogWarnAt(kClassName, method) << "图元Qt-Item为空";
        return;
    }
    IZoGraphicsMapLayer* layer = object->GetGraphicsMapLayer();
    if (!layer)
    {
        ZoLogWarnAt(kClassName, method) << "图层为空";
        return;
    }
    const int z = layer->GetZValue();
    item->setZValue(z);

    for (int id : ids)
    {
        if (id == object->GetObjectID())
            continue;
        IZoGraphicsMapObject* other = LookupGraphicObject(id);
        QGraphicsItem* otherItem = other ? other->GetQtItem() : nullptr;
        if (!otherItem)
            continue;
        switch (mode)
        {
        case EStacking::Top:
        case EStacking::Upper:
            otherItem->setZValue(z);
            StackBefore(otherItem, item);
            if (mode == EStacking::Upper)
                return;
            break;
        case EStacking::Lower:
            if (other->GetZValue() > z)
                break;
            otherItem->setZValue(z);
            StackBefore(item, otherItem);
            return;
        case EStacking::Bottom:
            if (other->GetZValue() < z)
                break;
            otherItem->setZValue(z);
            StackBefore(item, otherItem);
            break;
        }
    }
}
