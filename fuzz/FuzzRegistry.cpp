// The module's registries against a plain model: objects and layers made,
// renamed, stacked, switched and destroyed in any order, the module made
// anew; edit gadgets whose handles are cleared, or that are given back or
// lose their module inside their own callback.
#include "fuzz/ZoFuzz.h"
#include "support/RecordingEditableUser.h"
#include <ZoGraphics/CZoMapModule.h>
#include <QGraphicsScene>
#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>

namespace
{
// Names are kept as text: one that is not valid GB18030 reads (and is
// looked up) as it comes back from the round trip.
std::string AsStored(const std::string& name)
{
    return ConvertQStringToStdString(ConvertStdStringToQString(name, ZoGraphicsConstantNS::STR_CODE_PAGE),
                                     ZoGraphicsConstantNS::STR_CODE_PAGE);
}

const char* const kNames[] = {"a", "b", "a", "", "名字", "\xff\xfe", "Zo.DefaultGraphicsLayer"};
constexpr int kNameCount = sizeof(kNames) / sizeof(kNames[0]);
// As kZoFuzzKinds numbers them: dot, circle, rectangle, tile, polyline,
// text, pie, multi-dot.
constexpr int kKinds[] = {0, 1, 6, 7, 9, 14, 3, 11};
constexpr int kKindCount = sizeof(kKinds) / sizeof(kKinds[0]);
constexpr int kTextKind = 14;

struct SObject
{
    IZoGraphicsMapObject* object = nullptr;
    int id = 0;
    std::string name;
    int kind = -1; // into kZoFuzzKinds; -1 for a gadget's handle that no typed lookup finds
    int layer = -1; // into the model's layers; -1 for none
    bool alive = true;
};

struct SLayer
{
    IZoGraphicsMapLayer* layer = nullptr;
    std::string name;
    bool alive = true;
};

// The first live entry of that name that also passes accept.
template <class T, class Accept>
const T* FirstNamed(const std::vector<T>& all, const char* name, Accept accept)
{
    for (const T& entry : all)
        if (entry.alive && entry.name == name && accept(entry))
            return &entry;
    return nullptr;
}
const auto kAny = [](const auto&) { return true; };

class CRegistryRun
{
public:
    explicit CRegistryRun(CZoMapModule& map) : m_map(map)
    {
        // The user answers false to everything, so that the gadget moves its
        // handles itself; armed, it does a deed from inside a gesture's step.
        m_user.position = m_user.controlPoint = CVector3D(1.0, 1.0, 0.0);
        m_user.box = EXTENT{0.0, 0.0, 2.0, 2.0};
        m_user.points = {CVector3D(0.0, 0.0, 0.0), CVector3D(2.0, 0.0, 0.0), CVector3D(2.0, 2.0, 0.0)};
        m_user.indicators = true;
        m_user.onCall = [this](const std::string&) {
            if (m_deed && m_countdown-- == 0)
                std::exchange(m_deed, nullptr)();
        };
        Start();
    }
    ~CRegistryRun()
    {
        if (m_module)
            m_module->Unintialise();
        GiveGadgetBack();
    }
    Q_DISABLE_COPY(CRegistryRun)
    void Step(CZoFuzzInput& in)
    {
        switch (in.Int(0, 12))
        {
        case 0:
        case 1: Create(in); break;
        case 2:
            if (in.Int(0, 15) == 0)
                m_module->DestroyGraphicsMapObject(nullptr);
            else if (SObject* o = LiveObject(in))
                m_module->DestroyGraphicsMapObject(o->object), o->alive = false;
            break;
        case 3:
            if (SObject* o = LiveObject(in))
            {
                const std::string name = kNames[in.Int(0, kNameCount - 1)];
                o->object->SetName(name), o->name = AsStored(name);
            }
            break;
        case 4: {
            const std::string name = kNames[in.Int(0, kNameCount - 1)];
            m_layers.push_back({m_module->CreateGraphicsLayer(name), name, true});
            ZO_FUZZ_CHECK(m_layers.back().layer != nullptr, "layer creator failed");
            break;
        }
        case 5: DestroyLayer(in); break;
        case 6: SwitchLayer(in); break;
        case 7: Stack(in); break;
        case 8: DestroyAllOnLayer(in); break;
        case 9: ZoFuzzZoom(m_map, in); break;
        case 10: ZoFuzzPaint(m_map.GetScene(), QRectF(-400, -300, 800, 600)); break;
        case 11:
            // Gadget deeds came late: they take the values that did nothing
            // before and read no more bytes, so older inputs run as they did.
            switch (const int deed = in.Int(0, 7))
            {
            case 0: m_module->Unintialise(), Renew(); break;
            case 5: ClearGadgetLayer(); break;
            case 6: TearDownInsideCallback(); break;
            case 7: Arm([this] { m_module->DestroyGraphicsEditObject(std::exchange(m_gadget, nullptr)); }); break;
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
    // After the module's teardown: a gadget left over stays inert until it
    // is given back; then a fresh module.
    void Renew()
    {
        DriveLostGadget();
        GiveGadgetBack();
        m_module.reset();
        Start();
    }
    // Gadgets live on a layer of their own: their handles are the module's
    // objects but none of the model's.
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
        m_gadget->OnMousePress(&m_view, 0, 0, HandleId()); // the next deed finds a drag under way
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
        bool torn = false;
        Arm([this, &torn] { m_module->Unintialise(), torn = true; });
        if (torn)
            Renew();
    }
    // Runs a gesture whose start, process, completion or backout (in turn
    // from one deed to the next) does the deed.
    void Arm(std::function<void()> deed)
    {
        if (!m_gadget)
            return;
        const int at = m_deeds++ % 4;
        m_countdown = at < 2 ? at : 3;
        m_deed = std::move(deed);
        const int id = HandleId();
        m_gadget->OnMousePress(&m_view, 0, 0, id);
        for (int step : {1, 2})
            if (m_gadget)
                m_gadget->OnMouseMove(&m_view, 30 * step, -20 * step, id);
        if (m_gadget && at == 3)
            m_gadget->OnKeyPress(&m_view, Qt::Key_Escape);
        else if (m_gadget)
            m_gadget->OnMouseRelease(&m_view, 60, -40, id);
        m_deed = nullptr;
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
    // The gadget's handles among the ids drawn since the last look: it makes
    // them in its own operations and on view changes.
    void ScanGadget()
    {
        if (!m_gadget)
            return;
        const int last = GenerateZoObjectID();
        for (int id = m_scanFrom; id < last; ++id)
            if (m_gadget->IsEditObjectHandle(id))
                m_gadgetIds.push_back(id);
        m_scanFrom = last;
    }
    // The gadget's first live dot.
    int HandleId()
    {
        ScanGadget();
        for (int id : m_gadgetIds)
            if (dynamic_cast<IZoDotMapObject*>(m_module->LookupGraphicObject(id)))
                return id;
        return -1;
    }
    // The model's objects and the gadget's handles, by id: the rotation
    // label has a name the model looks up ("").
    std::vector<SObject> Registered() const
    {
        std::vector<SObject> all = m_objects;
        for (int id : m_gadget ? m_gadgetIds : std::vector<int>())
            if (IZoGraphicsMapObject* handle = m_module->LookupGraphicObject(id))
                all.push_back({handle, id, handle->GetName(),
                               dynamic_cast<IZoTextMapObject*>(handle) ? kTextKind : -1, -1, true});
        std::sort(all.begin(), all.end(), [](const SObject& a, const SObject& b) { return a.id < b.id; });
        return all;
    }
    template <typename T>
    T& Pick(CZoFuzzInput& in, std::vector<T>& all)
    {
        return all[static_cast<std::size_t>(in.Int(0, static_cast<int>(all.size()) - 1))];
    }
    SObject* LiveObject(CZoFuzzInput& in)
    {
        if (m_objects.empty())
            return nullptr;
        SObject& o = Pick(in, m_objects);
        return o.alive ? &o : nullptr;
    }
    int LiveLayer(CZoFuzzInput& in) // an index, or -1
    {
        const int index = in.Int(0, static_cast<int>(m_layers.size()) - 1);
        return m_layers[static_cast<std::size_t>(index)].alive ? index : -1;
    }
    SLayer& Layer(int index) { return m_layers[static_cast<std::size_t>(index)]; }
    void Create(CZoFuzzInput& in)
    {
        const int kind = kKinds[in.Int(0, kKindCount - 1)];
        const std::string name = kNames[in.Int(0, kNameCount - 1)];
        int layer = in.Bool() ? -1 : LiveLayer(in); // null asks for the default layer, which may be gone
        IZoGraphicsMapObject* object = kZoFuzzKinds[kind].make(*m_module, name, layer >= 0 ? Layer(layer).layer : nullptr);
        if (layer < 0)
            layer = m_layers.front().alive ? 0 : -1;
        ZO_FUZZ_CHECK((object != nullptr) == (layer >= 0), "made without a layer, or failed with one");
        if (!object || layer < 0)
            return;
        ZO_FUZZ_CHECK(m_objects.empty() || object->GetObjectID() > m_objects.back().id, "ids rise");
        m_objects.push_back({object, object->GetObjectID(), AsStored(name), kind, layer, true});
    }
    // Objects on a destroyed layer stay registered, without a layer; a
    // layer's destroy-all takes them from the registry.
    void DestroyLayer(CZoFuzzInput& in)
    {
        if (in.Int(0, 15) == 0)
            return m_module->DestroyGraphicsLayer(nullptr);
        if (const int index = LiveLayer(in); index >= 0)
        {
            m_module->DestroyGraphicsLayer(Layer(index).layer);
            Layer(index).alive = false;
            for (SObject& o : m_objects)
                o.layer = o.layer == index ? -1 : o.layer;
        }
    }
    void DestroyAllOnLayer(CZoFuzzInput& in)
    {
        if (const int index = LiveLayer(in); index >= 0)
        {
            Layer(index).layer->DestroyAllMapObjects();
            for (SObject& o : m_objects)
                o.alive = o.alive && o.layer != index;
        }
    }
    void SwitchLayer(CZoFuzzInput& in)
    {
        static const ZoFuzzOperation<IZoGraphicsMapLayer> kSwitches[] = {
            ZO_FUZZ_DO(SetVisible(in.Bool())),        ZO_FUZZ_DO(SetMinLodLevel(in.Int(-3, 25))),
            ZO_FUZZ_DO(SetMaxLodLevel(in.Int(-3, 25))), ZO_FUZZ_DO(SetNameVisible(in.Bool())),
            ZO_FUZZ_DO(SetZValue(in.Int(-1000, 1000))), ZO_FUZZ_DO(SetSecondShapeCache(in.Bool())),
            ZO_FUZZ_DO(SetLevelLimit(in.Int(-3, 25)))};
        if (const SLayer& layer = Pick(in, m_layers); layer.alive)
            in.Apply(layer.layer, kSwitches);
    }
    void ObjectSwitch(CZoFuzzInput& in)
    {
        static const ZoFuzzOperation<IZoGraphicsMapObject> kSwitches[] = {
            ZO_FUZZ_DO(SetVisible(in.Bool())),          ZO_FUZZ_DO(SetNameVisible(in.Bool())),
            ZO_FUZZ_DO(SetZValue(in.Int(-1000, 1000))), ZO_FUZZ_DO(SetMinLodLevel(in.Int(-3, 25))),
            ZO_FUZZ_DO(RemoveFromScene()),              ZO_FUZZ_DO(AddToScene())};
        if (SObject* o = LiveObject(in))
            in.Apply(o->object, kSwitches);
    }
    // Destroyed and unknown ids among the others must be skipped.
    void Stack(CZoFuzzInput& in)
    {
        using Stacking = void (IZoGraphicsModule::*)(IZoGraphicsMapObject*, const std::vector<int>&);
        static const Stacking kStackings[] = {&IZoGraphicsModule::StackedTop, &IZoGraphicsModule::StackedUpper,
                                              &IZoGraphicsModule::StackedLower, &IZoGraphicsModule::StackedBottom};
        SObject* o = LiveObject(in);
        std::vector<int> ids;
        for (int n = in.Int(0, 4); n > 0; --n)
            ids.push_back(m_objects.empty() || in.Int(0, 3) == 0 ? in.Int(-2, 100000) : Pick(in, m_objects).id);
        (m_module.get()->*kStackings[in.Int(0, 3)])(o ? o->object : nullptr, ids);
    }
    // The registries as the model says they must be.
    void Compare() const
    {
        const std::vector<SObject> all = Registered();
        for (const char* name : kNames)
        {
            const SObject* first = FirstNamed(all, name, kAny);
            ZO_FUZZ_CHECK(m_module->LookupGraphicObject(name) == (first ? first->object : nullptr), name);
            for (int k : kKinds)
            {
                const char* lookup = kZoFuzzKinds[k].lookup;
                const SObject* typed = FirstNamed(all, name, [lookup](const SObject& o) {
                    return o.kind >= 0 && std::strcmp(kZoFuzzKinds[o.kind].lookup, lookup) == 0;
                });
                ZO_FUZZ_CHECK(kZoFuzzKinds[k].find(*m_module, name) == (typed ? typed->object : nullptr),
                              std::string(name) + " " + lookup);
            }
            const SLayer* layer = FirstNamed(m_layers, name, kAny);
            ZO_FUZZ_CHECK(m_module->LookupGraphicsLayer(name) == (layer ? layer->layer : nullptr), name);
        }
        std::vector<int> counts(m_layers.size());
        for (const SObject& o : m_objects)
        {
            const std::string id = std::to_string(o.id);
            ZO_FUZZ_CHECK(m_module->LookupGraphicObject(o.id) == (o.alive ? o.object : nullptr), id);
            if (!o.alive)
                continue;
            const SLayer* layer = o.layer >= 0 ? &m_layers[static_cast<std::size_t>(o.layer)] : nullptr;
            ZO_FUZZ_CHECK(o.object->GetGraphicsMapLayer() == (layer ? layer->layer : nullptr), "layer of " + id);
            ZO_FUZZ_CHECK(o.object->GetName() == o.name, "name of " + id);
            counts[static_cast<std::size_t>(std::max(o.layer, 0))] += layer != nullptr;
        }
        for (std::size_t l = 0; l < m_layers.size(); ++l)
            ZO_FUZZ_CHECK(!m_layers[l].alive || m_layers[l].layer->GetMapObjectCount() == counts[l],
                          "count of layer " + std::to_string(l));
        ZO_FUZZ_CHECK(m_module->GetDeafultGraphicsLayer() == (m_layers.front().alive ? m_layers.front().layer : nullptr),
                      "default layer");
    }
    CZoMapModule& m_map;
    FakeEditView m_view;
    RecordingEditableUser m_user;
    std::function<void()> m_deed;
    int m_countdown = 0; // steps of the gesture to let pass before the deed
    int m_deeds = 0;
    IZoGraphicsEditObject* m_gadget = nullptr;
    IZoGraphicsMapLayer* m_gadgetLayer = nullptr;
    std::vector<int> m_gadgetIds;
    int m_scanFrom = 0;
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
