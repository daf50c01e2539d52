// The module's registries against a plain model: objects and layers created,
// renamed, looked up, stacked, switched and destroyed in any order, the
// module torn down and made again; edit gadgets whose handles' layer is
// cleared, and hosts that tear the module down or give the gadget back from
// inside a gadget's callback.
#include "fuzz/ZoFuzz.h"

#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/IZoMapView.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphics.h>

#include <QAbstractScrollArea>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <functional>
#include <memory>

namespace
{
// Objects keep their names as text, so a name that is not valid GB18030
// comes back (and is looked up) as it reads after a round trip.
std::string AsStored(const std::string& name)
{
    return ConvertQStringToStdString(ConvertStdStringToQString(name, ZoGraphicsConstantNS::STR_CODE_PAGE),
                                     ZoGraphicsConstantNS::STR_CODE_PAGE);
}

const char* const kNames[] = {"a", "b", "a", "", "名字", "\xff\xfe", "Zo.DefaultGraphicsLayer"};
constexpr int kNameCount = sizeof(kNames) / sizeof(kNames[0]);

// The kinds made here, with their typed lookups.
enum EKind { Dot, Circle, Rectangle, Tile, Polyline, Text, Pie, MultiDot, KindCount };

struct SObject
{
    IZoGraphicsMapObject* object = nullptr;
    int id = 0;
    std::string name;
    EKind kind = Dot;
    int layer = -1; // index into the model's layers; -1 for none
    bool alive = true;
};

struct SLayer
{
    IZoGraphicsMapLayer* layer = nullptr;
    std::string name;
    bool alive = true;
};

// A host's view: pixel (x, y) is longitude x / 10, latitude -y / 10.
class CGadgetView : public IZoMapView
{
public:
    QAbstractScrollArea* GetScrollArea() override { return &m_area; }
    bool ConvertPixelToGeo(int x, int y, double* lon, double* lat) override
    {
        *lon = x / 10.0;
        *lat = -y / 10.0;
        return true;
    }

private:
    QAbstractScrollArea m_area;
};

// A host's editable user that answers false to everything, so that the
// gadget moves its handles itself; armed, it runs a deed once from inside
// the next step of a gesture.
class CGadgetUser : public IZoGraphicsEditableUser
{
public:
    std::function<void()> inside;
    // Steps of the gesture to let pass before the deed.
    int countdown = 0;

    CVector3D GetEditorPosition(IZoGraphicsEditObject*) const override { return CVector3D(1.0, 1.0, 0.0); }
    bool OnStartTranslation(IZoGraphicsEditObject*) override { return Fire(); }
    bool OnProcessTranslation(IZoGraphicsEditObject*, const CVector3D&) override { return Fire(); }
    bool OnBackoutTranslation(IZoGraphicsEditObject*, const CVector3D&) override { return Fire(); }
    bool OnCompleteTranslation(IZoGraphicsEditObject*, const CVector3D&) override { return Fire(); }
    CVector3D GetEditorControlPoint(IZoGraphicsEditObject*) const override { return CVector3D(1.0, 1.0, 0.0); }
    bool OnStartRotation(IZoGraphicsEditObject*) override { return Fire(); }
    bool OnProcessRotation(IZoGraphicsEditObject*, double, double) override { return Fire(); }
    bool OnBackoutRotation(IZoGraphicsEditObject*, double) override { return Fire(); }
    bool OnCompleteRotation(IZoGraphicsEditObject*, double) override { return Fire(); }
    EXTENT GetEditorBoundingBox(IZoGraphicsEditObject*) const override { return EXTENT{0.0, 0.0, 2.0, 2.0}; }
    bool OnStartScaleBoundingBox(IZoGraphicsEditObject*) override { return Fire(); }
    bool OnProcessScaleBoundingBox(IZoGraphicsEditObject*, EXTENT&) override { return Fire(); }
    bool OnBackoutScaleBoundingBox(IZoGraphicsEditObject*, EXTENT&) override { return Fire(); }
    bool OnCompleteScaleBoundingBox(IZoGraphicsEditObject*, EXTENT&) override { return Fire(); }
    std::vector<CVector3D> GetEditorKeyPointSet(IZoGraphicsEditObject*) override
    {
        return {CVector3D(0.0, 0.0, 0.0), CVector3D(2.0, 0.0, 0.0), CVector3D(2.0, 2.0, 0.0)};
    }
    bool IsEnableVirtualIndicate() const override { return true; }
    bool OnProcessKeyPointChange(IZoGraphicsEditObject*, int, const CVector3D&) override { return Fire(); }
    bool OnBackoutKeyPointChange(IZoGraphicsEditObject*, int, const CVector3D&) override { return Fire(); }
    bool OnCompleteKeyPointChange(IZoGraphicsEditObject*, int, const CVector3D&) override { return Fire(); }
    bool OnCompleteKeyPointInsert(IZoGraphicsEditObject*, int, const CVector3D&) override { return Fire(); }

private:
    bool Fire()
    {
        if (inside && countdown-- == 0)
        {
            const std::function<void()> deed = std::move(inside);
            inside = nullptr;
            deed();
        }
        return false;
    }
};

class CRegistryRun
{
public:
    explicit CRegistryRun(CZoMapModule& map) : m_map(map) { Start(); }
    ~CRegistryRun()
    {
        if (m_module)
            m_module->Unintialise();
        GiveGadgetBack();
    }
    CRegistryRun(const CRegistryRun&) = delete;
    CRegistryRun& operator=(const CRegistryRun&) = delete;

    void Step(CZoFuzzInput& in)
    {
        switch (in.Int(0, 12))
        {
        case 0:
        case 1: Create(in); break;
        case 2: DestroyObject(in); break;
        case 3: Rename(in); break;
        case 4: CreateLayer(in); break;
        case 5: DestroyLayer(in); break;
        case 6: SwitchLayer(in); break;
        case 7: Stack(in); break;
        case 8: DestroyAllOnLayer(in); break;
        case 9: Zoom(in); break;
        case 10: Paint(); break;
        case 11:
            // Gadget deeds came late: they take the values that did nothing
            // before and read no more bytes, so older inputs run as they did.
            switch (const int deed = in.Int(0, 7))
            {
            case 0: Restart(); break;
            case 5: ClearGadgetLayer(); break;
            case 6: TearDownInsideCallback(); break;
            case 7: GiveBackInsideCallback(); break;
            default: MakeGadget(deed - 1); break;
            }
            break;
        default: ObjectSwitch(in); break;
        }
        ScanGadget();
        Compare();
    }

private:
    void Start()
    {
        m_module = std::make_unique<CZoGraphicsModule>();
        ZO_FUZZ_CHECK(m_module->Initialise("fuzz", &m_map), "initialise");
        m_layers = {{m_module->GetDeafultGraphicsLayer(), "Zo.DefaultGraphicsLayer", true}};
        m_objects.clear();
        m_gadgetLayer = nullptr;
    }

    void Restart()
    {
        m_module->Unintialise();
        Renew();
    }

    // After the module's teardown: a gadget left over stays inert until it
    // is given back; then a fresh module.
    void Renew()
    {
        DriveLostGadget();
        GiveGadgetBack();
        m_module.reset();
        Start();
    }

    // Gadgets live on a layer of their own, outside the model: their
    // handles are the module's objects but none of the model's.
    void MakeGadget(int kind)
    {
        using Creator = IZoGraphicsEditObject* (IZoGraphicsModule::*)(IZoGraphicsMapLayer*);
        static const Creator kCreators[] = {
            &IZoGraphicsModule::CreateTranslateEditObject, &IZoGraphicsModule::CreateRotationEditObject,
            &IZoGraphicsModule::CreateScaleEditObject, &IZoGraphicsModule::CreateKeyPointSetEditObject};
        GiveGadgetBack();
        if (!m_gadgetLayer)
            m_gadgetLayer = m_module->CreateGraphicsLayer("Zo.EditGadgets");
        m_scanFrom = GenerateZoObjectID();
        m_gadgetIds.clear();
        m_gadget = (m_module.get()->*kCreators[kind])(m_gadgetLayer);
        ZO_FUZZ_CHECK(m_gadget != nullptr, "gadget creator failed");
        m_gadget->AttachEditableUser(&m_user);
        m_gadget->UpdateEditor(0);
        // Left pressed: the next deed finds a drag under way.
        m_gadget->OnMousePress(&m_view, 0, 0, HandleId());
    }

    void GiveGadgetBack()
    {
        if (m_gadget)
            m_module->DestroyGraphicsEditObject(m_gadget);
        m_gadget = nullptr;
    }

    // "Clear the drawing" under an attached gadget.
    void ClearGadgetLayer()
    {
        if (!m_gadget || !m_gadgetLayer)
            return;
        m_gadgetLayer->DestroyAllMapObjects();
        DriveLostGadget();
    }

    void TearDownInsideCallback()
    {
        if (!m_gadget)
            return;
        bool torn = false;
        Arm([this, &torn] {
            m_module->Unintialise();
            torn = true;
        });
        if (torn)
            Renew();
    }

    void GiveBackInsideCallback()
    {
        if (!m_gadget)
            return;
        Arm([this] {
            m_module->DestroyGraphicsEditObject(m_gadget);
            m_gadget = nullptr;
        });
    }

    // Runs a gesture whose start, process, completion or backout (in turn
    // from one deed to the next) does the deed.
    void Arm(std::function<void()> deed)
    {
        const int at = m_deeds++ % 4;
        m_user.countdown = at < 2 ? at : 3;
        m_user.inside = std::move(deed);
        const int id = HandleId();
        if (m_gadget)
            m_gadget->OnMousePress(&m_view, 0, 0, id);
        for (int step : {1, 2})
        {
            if (m_gadget)
                m_gadget->OnMouseMove(&m_view, 30 * step, -20 * step, id);
        }
        if (m_gadget && at == 3)
            m_gadget->OnKeyPress(&m_view, Qt::Key_Escape);
        else if (m_gadget)
            m_gadget->OnMouseRelease(&m_view, 60, -40, id);
        m_user.inside = nullptr;
    }

    // Everything a host may still do with a gadget whose handles are gone.
    void DriveLostGadget()
    {
        if (!m_gadget)
            return;
        const int id = HandleId();
        m_gadget->OnHoverEnter(&m_view, 0, 0, id);
        m_gadget->OnMouseMove(&m_view, 30, -30, id);
        m_gadget->OnMouseRelease(&m_view, 30, -30, id);
        m_gadget->OnKeyPress(&m_view, Qt::Key_Escape);
        m_gadget->SetEditorPoint(CVector3D(0.5, 0.5, 0.0), 0);
        m_gadget->DetachEditableUser();
        m_gadget->AttachEditableUser(&m_user);
        m_gadget->UpdateEditor(0);
    }

    // Picks up the gadget's handles among the ids drawn since the last look:
    // it makes them in its own operations and on view changes.
    void ScanGadget()
    {
        if (!m_gadget)
            return;
        const int last = GenerateZoObjectID();
        for (int id = m_scanFrom; id < last; ++id)
        {
            if (m_gadget->IsEditObjectHandle(id))
                m_gadgetIds.push_back(id);
        }
        m_scanFrom = last;
    }

    // The gadget's first live dot.
    int HandleId()
    {
        ScanGadget();
        for (int id : m_gadgetIds)
        {
            if (dynamic_cast<IZoDotMapObject*>(m_module->LookupGraphicObject(id)))
                return id;
        }
        return -1;
    }

    // The model's objects and the gadget's handles, by id: the rotation
    // label has a name the model looks up ("").
    std::vector<SObject> Registered() const
    {
        std::vector<SObject> all = m_objects;
        if (!m_gadget)
            return all;
        for (int id : m_gadgetIds)
        {
            if (IZoGraphicsMapObject* handle = m_module->LookupGraphicObject(id))
                all.push_back({handle, id, handle->GetName(),
                               dynamic_cast<IZoTextMapObject*>(handle) ? Text : KindCount, -1, true});
        }
        std::sort(all.begin(), all.end(), [](const SObject& a, const SObject& b) { return a.id < b.id; });
        return all;
    }

    template <typename T>
    T& Pick(CZoFuzzInput& in, std::vector<T>& all)
    {
        return all[static_cast<std::size_t>(in.Int(0, static_cast<int>(all.size()) - 1))];
    }

    IZoGraphicsMapObject* Make(EKind kind, const std::string& name, IZoGraphicsMapLayer* layer)
    {
        switch (kind)
        {
        case Dot: return m_module->CreateDotMapObject(name, layer);
        case Circle: return m_module->CreateCircleMapObject(name, layer);
        case Rectangle: return m_module->CreateRectangleMapObject(name, layer);
        case Tile: return m_module->CreateTileMapObject(name, layer);
        case Polyline: return m_module->CreatePolylineMapObject(name, layer);
        case Text: return m_module->CreateTextMapObject(name, layer);
        case Pie: return m_module->CreatePieMapObject(name, layer);
        default: return m_module->CreateMultiDotMapObject(name, layer);
        }
    }

    IZoGraphicsMapObject* TypedLookup(EKind kind, const std::string& name) const
    {
        switch (kind)
        {
        case Dot: return m_module->LookupDotMapObject(name);
        case Circle: return m_module->LookupCircleMapObject(name);
        case Rectangle:
        case Tile: return m_module->LookupRectangleMapObject(name);
        case Polyline: return m_module->LookupPolylineMapObject(name);
        case Text: return m_module->LookupTextMapObject(name);
        case Pie: return m_module->LookupBowMapObject(name);
        default: return m_module->LookupMultiDotMapObject(name);
        }
    }

    static bool SameLookup(EKind asked, EKind kind)
    {
        return asked == kind || ((asked == Rectangle || asked == Tile) && (kind == Rectangle || kind == Tile));
    }

    void Create(CZoFuzzInput& in)
    {
        const EKind kind = static_cast<EKind>(in.Int(0, KindCount - 1));
        const std::string name = kNames[in.Int(0, kNameCount - 1)];
        // Null asks for the default layer, which may be gone.
        int layer = in.Bool() ? -1 : in.Int(0, static_cast<int>(m_layers.size()) - 1);
        if (layer >= 0 && !m_layers[static_cast<std::size_t>(layer)].alive)
            layer = -1;
        IZoGraphicsMapObject* object =
            Make(kind, name, layer >= 0 ? m_layers[static_cast<std::size_t>(layer)].layer : nullptr);
        if (layer < 0)
            layer = m_layers.front().alive ? 0 : -1;
        if (layer < 0)
        {
            ZO_FUZZ_CHECK(object == nullptr, "made without a layer");
            return;
        }
        ZO_FUZZ_CHECK(object != nullptr, "creator failed");
        ZO_FUZZ_CHECK(m_objects.empty() || object->GetObjectID() > m_objects.back().id, "ids rise");
        m_objects.push_back({object, object->GetObjectID(), AsStored(name), kind, layer, true});
    }

    SObject* LiveObject(CZoFuzzInput& in)
    {
        if (m_objects.empty())
            return nullptr;
        SObject& o = Pick(in, m_objects);
        return o.alive ? &o : nullptr;
    }

    void DestroyObject(CZoFuzzInput& in)
    {
        if (in.Int(0, 15) == 0)
            return m_module->DestroyGraphicsMapObject(nullptr);
        if (SObject* o = LiveObject(in))
        {
            m_module->DestroyGraphicsMapObject(o->object);
            o->alive = false;
        }
    }

    void Rename(CZoFuzzInput& in)
    {
        if (SObject* o = LiveObject(in))
        {
            const std::string name = kNames[in.Int(0, kNameCount - 1)];
            o->object->SetName(name);
            o->name = AsStored(name);
        }
    }

    void CreateLayer(CZoFuzzInput& in)
    {
        const std::string name = kNames[in.Int(0, kNameCount - 1)];
        IZoGraphicsMapLayer* layer = m_module->CreateGraphicsLayer(name);
        ZO_FUZZ_CHECK(layer != nullptr, "layer creator failed");
        m_layers.push_back({layer, name, true});
    }

    // Objects on a destroyed layer stay registered, without a layer.
    void DestroyLayer(CZoFuzzInput& in)
    {
        if (in.Int(0, 15) == 0)
            return m_module->DestroyGraphicsLayer(nullptr);
        const int index = in.Int(0, static_cast<int>(m_layers.size()) - 1);
        SLayer& layer = m_layers[static_cast<std::size_t>(index)];
        if (!layer.alive)
            return;
        m_module->DestroyGraphicsLayer(layer.layer);
        layer.alive = false;
        for (SObject& o : m_objects)
            if (o.layer == index)
                o.layer = -1;
    }

    void DestroyAllOnLayer(CZoFuzzInput& in)
    {
        const int index = in.Int(0, static_cast<int>(m_layers.size()) - 1);
        SLayer& layer = m_layers[static_cast<std::size_t>(index)];
        if (!layer.alive)
            return;
        layer.layer->DestroyAllMapObjects();
        for (SObject& o : m_objects)
            if (o.alive && o.layer == index)
                o.alive = false;
    }

    void SwitchLayer(CZoFuzzInput& in)
    {
        SLayer& layer = Pick(in, m_layers);
        if (!layer.alive)
            return;
        IZoGraphicsMapLayer* l = layer.layer;
        switch (in.Int(0, 6))
        {
        case 0: l->SetVisible(in.Bool()); break;
        case 1: l->SetMinLodLevel(in.Int(-3, 25)); break;
        case 2: l->SetMaxLodLevel(in.Int(-3, 25)); break;
        case 3: l->SetNameVisible(in.Bool()); break;
        case 4: l->SetZValue(in.Int(-1000, 1000)); break;
        case 5: l->SetSecondShapeCache(in.Bool()); break;
        default: l->SetLevelLimit(in.Int(-3, 25)); break;
        }
    }

    void ObjectSwitch(CZoFuzzInput& in)
    {
        SObject* o = LiveObject(in);
        if (!o)
            return;
        switch (in.Int(0, 5))
        {
        case 0: o->object->SetVisible(in.Bool()); break;
        case 1: o->object->SetNameVisible(in.Bool()); break;
        case 2: o->object->SetZValue(in.Int(-1000, 1000)); break;
        case 3: o->object->SetMinLodLevel(in.Int(-3, 25)); break;
        case 4: o->object->RemoveFromScene(); break;
        default: o->object->AddToScene(); break;
        }
    }

    void Stack(CZoFuzzInput& in)
    {
        SObject* o = LiveObject(in);
        std::vector<int> ids;
        for (int n = in.Int(0, 4); n > 0; --n)
            ids.push_back(m_objects.empty() || in.Int(0, 3) == 0 ? in.Int(-2, 100000)
                                                                 : Pick(in, m_objects).id);
        const std::vector<int>& live = ids; // destroyed ones included: they must be skipped
        IZoGraphicsMapObject* object = o ? o->object : nullptr;
        switch (in.Int(0, 3))
        {
        case 0: m_module->StackedTop(object, live); break;
        case 1: m_module->StackedUpper(object, live); break;
        case 2: m_module->StackedLower(object, live); break;
        default: m_module->StackedBottom(object, live); break;
        }
    }

    void Zoom(CZoFuzzInput& in)
    {
        const double level = in.Plain(0.0, 21.0);
        const double x = in.Plain(-180, 180);
        const double y = in.Plain(-85, 85);
        m_map.SetZoomAround(level, x, y);
    }

    void Paint()
    {
        QImage image(64, 48, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        m_map.GetScene()->render(&painter, QRectF(image.rect()), QRectF(-400, -300, 800, 600));
    }

    // The registries as the model says they must be.
    void Compare() const
    {
        const std::vector<SObject> all = Registered();
        for (const char* name : kNames)
        {
            const SObject* first = nullptr;
            for (const SObject& o : all)
                if (o.alive && o.name == name)
                {
                    first = &o;
                    break;
                }
            ZO_FUZZ_CHECK(m_module->LookupGraphicObject(name) == (first ? first->object : nullptr), name);
            for (int k = 0; k < KindCount; ++k)
            {
                const SObject* typed = nullptr;
                for (const SObject& o : all)
                    if (o.alive && o.name == name && SameLookup(static_cast<EKind>(k), o.kind))
                    {
                        typed = &o;
                        break;
                    }
                ZO_FUZZ_CHECK(TypedLookup(static_cast<EKind>(k), name) == (typed ? typed->object : nullptr),
                              std::string(name) + " kind " + std::to_string(k));
            }
            const SLayer* layer = nullptr;
            for (const SLayer& l : m_layers)
                if (l.alive && l.name == name)
                {
                    layer = &l;
                    break;
                }
            ZO_FUZZ_CHECK(m_module->LookupGraphicsLayer(name) == (layer ? layer->layer : nullptr), name);
        }
        for (const SObject& o : m_objects)
        {
            ZO_FUZZ_CHECK(m_module->LookupGraphicObject(o.id) == (o.alive ? o.object : nullptr), std::to_string(o.id));
            if (!o.alive)
                continue;
            IZoGraphicsMapLayer* expected = o.layer >= 0 ? m_layers[static_cast<std::size_t>(o.layer)].layer : nullptr;
            ZO_FUZZ_CHECK(o.object->GetGraphicsMapLayer() == expected, "layer of " + std::to_string(o.id));
            ZO_FUZZ_CHECK(o.object->GetName() == o.name, "name of " + std::to_string(o.id));
        }
        for (std::size_t l = 0; l < m_layers.size(); ++l)
        {
            if (!m_layers[l].alive)
                continue;
            int count = 0;
            for (const SObject& o : m_objects)
                count += o.alive && o.layer == static_cast<int>(l);
            ZO_FUZZ_CHECK(m_layers[l].layer->GetMapObjectCount() == count, "count of layer " + std::to_string(l));
        }
        ZO_FUZZ_CHECK(m_module->GetDeafultGraphicsLayer() == (m_layers.front().alive ? m_layers.front().layer : nullptr),
                      "default layer");
    }

    CZoMapModule& m_map;
    CGadgetView m_view;
    CGadgetUser m_user;
    IZoGraphicsEditObject* m_gadget = nullptr;
    IZoGraphicsMapLayer* m_gadgetLayer = nullptr;
    std::vector<int> m_gadgetIds;
    int m_scanFrom = 0;
    int m_deeds = 0;
    std::unique_ptr<CZoGraphicsModule> m_module;
    std::vector<SObject> m_objects;
    std::vector<SLayer> m_layers;
};
} // namespace

int ZoFuzzRegistry(const std::uint8_t* data, std::size_t size)
{
    ZoFuzzEnsureApplication();
    CZoQuietLog quiet;
    CZoFuzzInput in(data, size);
    CZoMapModule map;
    map.SetZoomAround(3.0, 0.0, 0.0);
    CRegistryRun run(map);
    for (int step = 0; step < 400 && !in.Empty(); ++step)
        run.Step(in);
    return 0;
}
